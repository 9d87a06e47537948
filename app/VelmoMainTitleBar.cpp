#include "app/VelmoMainTitleBar.h"

#include "widgets/MainWindowTitleBarShadow.h"
#include "widgets/TitleBarButtons.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>

namespace {

// The title's face, compiled in and loaded on first use; empty when it can't
// be loaded, and the title keeps the default font.
QString titleFontFamily()
{
    static const QString family = [] {
        const int id = QFontDatabase::addApplicationFont(QStringLiteral(":/resources/Fonts/Pangolin-Regular.ttf"));
        const QStringList families = QFontDatabase::applicationFontFamilies(id);
        return families.isEmpty() ? QString() : families.first();
    }();
    return family;
}

}

VelmoMainTitleBar::VelmoMainTitleBar(int windowStyle, bool nativeMenuBar, QWidget* parent)
    : BaseMainTitleBar(windowStyle, nativeMenuBar, parent)
{
    setObjectName(QStringLiteral("VelmoMainTitleBar"));
    QHBoxLayout* row = new QHBoxLayout(this);
    row->setSpacing(0);
    row->setContentsMargins(0, 0, 0, 0);

    menus = new QMenuBar(this);
    menus->setObjectName(QStringLiteral("menuBar"));
    menus->setStyleSheet(QStringLiteral("#menuBar { border: none; background: transparent; }"));
    menus->setMaximumWidth(224);
    menus->setContextMenuPolicy(Qt::PreventContextMenu);
    menus->setFocusPolicy(Qt::NoFocus);
    menus->setNativeMenuBar(false);

    shadow = new MainWindowTitleBarShadow(this);
    shadow->setObjectName(QStringLiteral("titleBarShadow"));
    shadow->setFixedWidth(8);

    row->addWidget(systemMenuButton());
    row->addWidget(menus, 0, Qt::AlignVCenter);
    row->addWidget(shadow);
    row->addStretch(1);
    row->addWidget(minimizeButton(), 0, Qt::AlignTop);
    row->addWidget(maximizeButton(), 0, Qt::AlignTop);
    row->addWidget(closeButton(), 0, Qt::AlignTop);

    if (windowStyle == 2) {
        // The system's frame has its own buttons. Until the tool buttons
        // arrive, the menus stay as the way to the commands.
        minimizeButton()->hide();
        maximizeButton()->hide();
        closeButton()->hide();
        systemMenuButton()->hide();
        row->setContentsMargins(6, 0, 0, 0);
    } else {
        setFixedHeight(29);
    }
}

void VelmoMainTitleBar::paintEvent(QPaintEvent* event)
{
    BaseMainTitleBar::paintEvent(event);
    if (windowStyle == 2)
        return;
    QPainter painter(this);
    QFont font = painter.font();
    if (!titleFontFamily().isEmpty())
        font.setFamily(titleFontFamily());
    font.setWeight(QFont::Bold);
    font.setPointSizeF(font.pointSizeF() + 1);
    painter.setFont(font);
    painter.setPen(palette().color(QPalette::WindowText));
    // The window's own title, with Qt's "[*]" placeholder shown as the mark
    // of unsaved changes.
    QString title = window()->windowTitle();
    title.replace(QStringLiteral("[*]"), window()->isWindowModified() ? QStringLiteral("*") : QString());
    const QRect area = QRect(0, 0, width(), 24).translated(0, (height() - 24) / 2);
    // Clear of the menus on the left and the window buttons on the right.
    const int side = qMax(menus->geometry().right() + 24, width() - minimizeButton()->geometry().left() + 8);
    const QRect text = area.adjusted(side, 0, -side, 0);
    painter.drawText(text, Qt::AlignCenter, QFontMetrics(font).elidedText(title, Qt::ElideMiddle, text.width()));
}
