#include "widgets/BaseMainTitleBar.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/TitleBarButtons.h"

#include <QEvent>
#include <QIcon>
#include <QLinearGradient>
#include <QPainter>
#include <QPushButton>

BaseMainTitleBar::BaseMainTitleBar(int windowStyle, bool nativeMenuBar, QWidget* parent)
    : QWidget(parent), windowStyle(windowStyle), nativeMenuBar(nativeMenuBar)
{
    minimize = new TitleBarButtons(TitleBarButtons::Minimize, false, this);
    minimize->setObjectName(QStringLiteral("minimizeButton"));
    minimize->setToolTip(tr("Minimize"));
    maximize = new TitleBarButtons(TitleBarButtons::Maximize, false, this);
    maximize->setObjectName(QStringLiteral("maximizeButton"));
    close = new TitleBarButtons(TitleBarButtons::Close, false, this);
    close->setObjectName(QStringLiteral("closeButton"));
    close->setToolTip(tr("Close"));
    systemMenu = new QPushButton(this);
    systemMenu->setObjectName(QStringLiteral("systemMenuButton"));
    systemMenu->setIcon(QIcon(QStringLiteral(":/Icon.png")));
    systemMenu->setIconSize(QSize(16, 16));
    systemMenu->setFixedSize(29, 29);
    systemMenu->setFlat(true);
    systemMenu->setFocusPolicy(Qt::NoFocus);
    setMaximizedState(false);
    // The buttons follow the window's state, however it changed.
    if (parent)
        parent->window()->installEventFilter(this);
}

void BaseMainTitleBar::setMaximizedState(bool maximized)
{
    maximize->setMaximized(maximized);
    maximize->setToolTip(maximized ? tr("Restore Down") : tr("Maximize"));
}

bool BaseMainTitleBar::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == window()) {
        if (event->type() == QEvent::WindowStateChange)
            setMaximizedState(window()->isMaximized());
        else if (event->type() == QEvent::ActivationChange)
            update();
    }
    return QWidget::eventFilter(watched, event);
}

void BaseMainTitleBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QLinearGradient gradient(0, 0, 0, height());
    gradient.setColorAt(0, themeColor(ThemeKey::WindowBottom));
    gradient.setColorAt(1, themeColor(ThemeKey::WindowTop));
    painter.fillRect(rect(), gradient);
    painter.setPen(QColor(0x3C, 0x3C, 0x3C));
    painter.drawLine(0, 0, width() - 1, 0);
}
