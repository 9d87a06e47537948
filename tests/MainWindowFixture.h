#pragma once

// The main window as a test opens and drives it: built as at start-up on a
// project, its HUD list, its commands and its status line.
#include "TestEnvironment.h"
#include "app/VelmoMainWindow.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QAction>
#include <QLabel>
#include <QStringList>
#include <QtTest>

#include <memory>

class MainWindowFixture
{
protected:
    std::unique_ptr<VelmoMainWindow> window;

    VelmoMainWindow* openWindow(const QString& project)
    {
        window.reset(TestEnvironment::showMainWindow(project));
        return window.get();
    }
    UltimateTree* list() const { return window->hudListWidget()->tree(); }
    QStringList rowNames() const
    {
        QStringList names;
        for (int i = 0; i < list()->rowCount(); ++i)
            names.append(list()->row(i)->text(1));
        return names;
    }
    QAction* action(const char* name) const
    {
        QAction* found = window->findChild<QAction*>(QLatin1String(name));
        if (!found)
            qFatal("no action %s", name);
        return found;
    }
    QString status() const { return window->findChild<QLabel*>(QStringLiteral("statusText"))->text(); }
    // A key pressed on the window, as a user does; the window is made active
    // first, since a message box that just closed may have taken the activation.
    void key(int keyCode, Qt::KeyboardModifiers modifiers = Qt::ControlModifier)
    {
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QTest::keyClick(window.get(), Qt::Key(keyCode), modifiers);
    }
};
