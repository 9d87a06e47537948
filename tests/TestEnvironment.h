#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QWidget>
#include <QtTest>

#include "app/Startup.h"
#include "logic/DynamicValueSelector.h"

#include <functional>

class GameUIEditor;
class GameUIEditorScene;
class GameUIEditorSceneHelperBase;
class MyComboBox;
class MyLineEdit;
class QMenu;
class TrovDialog;
class UltimateTreeWidget;
class UIComponentBase;
class VelmoMainWindow;

// Shared set-up of the test programs: an isolated home, settings store and
// data folders in a temporary folder, and realistic project folders.
namespace TestEnvironment {

// Points HOME and the XDG folders at a fresh temporary folder. Called before
// the application object exists, so no test ever sees the user's settings.
void isolate();
QString home();

// Dialogs without the system's title bar, darkening or opening animation,
// so that a test's answers come at once.
void quietDialogs();

// A fresh empty folder below the temporary home.
QString newFolder(const QString& name);

void writeFile(const QString& path, const QByteArray& bytes);
QByteArray readFile(const QString& path);

// Copies a folder tree.
void copyTree(const QString& source, const QString& destination);

// A minimal valid RPG Maker MZ project (the eleven data files, a screen of
// the given size) in a new folder; returns its path.
QString makeProject(const QString& name, int screenWidth = 1280, int screenHeight = 720);

// A copy of the bundled sample project in a new folder.
QString copySampleProject(const QString& name);

QString documentPath(const QString& project);
// A minimal project whose document holds the HUDs of data, the first the
// Map HUD and the second the Battle HUD.
QString makeProjectWithHuds(const QString& name, const QJsonArray& data);
// The project's "VelmoraHUD.json" as an object; empty when there is none.
QJsonObject writtenDocument(const QString& project);
// The component array of a template document beside the executable.
QJsonArray templateArray(const char* name);

// A main window built as at start-up with project as the stored "Project",
// shown and active.
VelmoMainWindow* showMainWindow(const QString& project);

// The canvas and its component list side by side, as the main window has
// them, on a screen of 816 by 624; not yet shown. Takes the helper.
struct Canvas {
    explicit Canvas(GameUIEditorSceneHelperBase* helper);
    QWidget window;
    GameUIEditor* view;
    UltimateTreeWidget* list;
    GameUIEditorScene* scene;
};

// A shape component's object named "Shape <id>".
QJsonObject shape(int id, int x, int y, int w = 100, int h = 100);

// What velmora-cli answered to arguments (without the program name), run
// in this process.
struct CliResult {
    int code = -1;
    QString out;
    QString err;
};
CliResult runCli(const QStringList& arguments);

// A mouse move with buttons held, as a drag sends it (QTest's own move holds none).
void moveWithButtons(QWidget* widget, const QPoint& point, Qt::MouseButtons buttons);
QByteArray compact(const QJsonObject& object);

// The contrast ratio of two colours as the accessibility guidelines define it
// (1 to 21).
double contrast(const QColor& a, const QColor& b);

// What the program's dialogs showed while a trigger ran.
struct Seen {
    QString title;
    QString text;
    int count = 0;
};

using Answer = std::function<void(TrovDialog*)>;

// Answers the program's modal dialogs that come up while trigger runs, in
// order, and records the title and message of each.
Seen answering(const std::function<void()>& trigger, QList<Answer> answers);
// Clicks a button of the dialog with the mouse.
Answer press(const char* objectName);
// What the window manager's close button does.
Answer closeByFrame();
// Clicks a field, then replaces its text by typing, as a user does; an
// empty text is typed as a Backspace over the selection.
Answer typing(const char* field, const QString& text);
// Opens a choice field's list with the mouse and picks the item by the keys.
Answer choosing(const char* field, int index);
// Clicks a widget of the dialog.
Answer clicking(const char* field);
// Double-clicks the row showing text in a list of the dialog (an image or
// a database picker).
Answer pickingRow(const char* list, const QString& text);

// The canvas with the real component registry, its selector and its
// dialogs, shown at zoom 1.0; the scene reads projectData.
struct Workbench : Canvas {
    Workbench();
    QJsonObject projectData;
    UIComponentBase* load(const QJsonArray& components);
    UIComponentBase* load(const QJsonObject& component);
    // The HUD as velmora-cli render draws it, at a zoom in tenths.
    QImage render(int zoom = 10);
    QImage render(const QJsonObject& component, int zoom = 10);
    // A double-click on a row of the list, as a user opens a component's
    // dialog, and the answers to the dialogs that come up.
    Seen editRow(int index, const QList<Answer>& answers);
    // A double-click on an empty spot of the canvas: the selector, then a
    // kind's dialog.
    Seen create(const QPointF& spot, const QList<Answer>& answers);
    // The HUD written as the document holds it and read back from that
    // text; the first component's object.
    QJsonObject reloaded();
    // A new component made through the selector at (300, 200) by the
    // answers: its data object under dataKey must be expected, and a save
    // and a reload must give the whole component back. The reloaded
    // component, or none when a check failed.
    UIComponentBase* createChecked(const QList<Answer>& answers, const char* dataKey, const QJsonObject& expected);
};

// An object from its JSON text.
QJsonObject json(const char* text);

// A named child of a dialog; a test that lacks it stops there.
template <class T>
T* field(QWidget* dialog, const char* name)
{
    T* found = dialog->findChild<T*>(QLatin1String(name));
    if (!found)
        qFatal("no field %s", name);
    return found;
}

// The texts of a column of a list's top-level rows.
QStringList rowTexts(UltimateTreeWidget* list, int column = 0);
// Clicks, or double-clicks, a top-level row of a list as a user does; an
// index past the last row is the "+" row below it.
void clickRow(UltimateTreeWidget* list, int index, bool twice = false);

// A pixel as an unpremultiplied colour, alpha included.
QColor pixel(const QImage& image, int x, int y);
// Whether two colours agree in every channel, alpha included.
// Replaces a field's text as a user does: a click, Ctrl+A, the keys; an
// empty text is a Delete over the selection.
void retype(MyLineEdit* edit, const QString& text);
// Picks a row of a combo through its popup, by keys as a user does.
void choose(MyComboBox* combo, int row);
// Clicks the tab of a public index on the upper or the lower row of a
// dialog whose tabs stand in two rows (a dynamic value, a list).
void clickTab(TypeTabDialog* dialog, int index);
bool nearColor(const QColor& actual, const QColor& expected, int tolerance = 3);

}

#define COMPARE_COLOR(image, x, y, expected)                                                                      \
    QVERIFY2(TestEnvironment::nearColor(TestEnvironment::pixel(image, x, y), expected),                           \
             qPrintable(QStringLiteral("pixel %1,%2 is %3 alpha %4, not %5 alpha %6")                             \
                            .arg(x)                                                                               \
                            .arg(y)                                                                               \
                            .arg(TestEnvironment::pixel(image, x, y).name())                                      \
                            .arg(TestEnvironment::pixel(image, x, y).alpha())                                     \
                            .arg(QColor(expected).name())                                                         \
                            .arg(QColor(expected).alpha())))

#define VELMORA_TEST_MAIN(TestObject, Application)                                                       \
    int main(int argc, char** argv)                                                                        \
    {                                                                                                      \
        TestEnvironment::isolate();                                                                        \
        Application app(argc, argv);                                                                       \
        initVelmoraResources();                                                                            \
        TestObject test;                                                                                   \
        return QTest::qExec(&test, argc, argv);                                                            \
    }
