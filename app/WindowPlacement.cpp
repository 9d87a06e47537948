#include "app/WindowPlacement.h"

#include "app/SettingsStore.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <QWidget>

namespace WindowPlacement {

void restore(QWidget* window)
{
    SettingsStore store;
    const QList<QScreen*> screens = QGuiApplication::screens();
    QVector<QRect> available;
    for (const QScreen* screen : screens)
        available.append(screen->availableGeometry());
    if (store.contains(QStringLiteral("Geometry"))) {
        // A monitor that is gone must not take the window with it.
        window->setGeometry(reachableGeometry(store.value(QStringLiteral("Geometry")).toRect(), available));
    } else if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        // First start: a comfortable size in the middle of the screen.
        const QRect area = screen->availableGeometry();
        const QSize size(qMin(1280, area.width() * 9 / 10), qMin(820, area.height() * 9 / 10));
        window->setGeometry(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, area));
    }
    if (store.value(QStringLiteral("IsMaximized")).toBool())
        window->setWindowState(window->windowState() | Qt::WindowMaximized);
}

QRect reachableGeometry(const QRect& stored, const QVector<QRect>& screens)
{
    if (screens.isEmpty() || !stored.isValid())
        return stored;
    // The window is reachable when a good part of its top strip, where it is
    // grabbed and where its buttons are, lies on a screen.
    const QRect strip(stored.topLeft(), QSize(stored.width(), qMin(stored.height(), 32)));
    const int needed = qMin(stored.width(), 160) * strip.height();
    for (const QRect& screen : screens) {
        const QRect seen = strip.intersected(screen);
        if (seen.width() * seen.height() >= needed)
            return stored;
    }
    // Otherwise it goes whole onto the nearest screen, shrunk if it must.
    const QRect* nearest = &screens.first();
    qint64 best = -1;
    for (const QRect& screen : screens) {
        const QPoint gap = screen.center() - stored.center();
        const qint64 distance = qint64(gap.x()) * gap.x() + qint64(gap.y()) * gap.y();
        if (best < 0 || distance < best) {
            best = distance;
            nearest = &screen;
        }
    }
    QRect placed(stored.topLeft(), stored.size().boundedTo(nearest->size()));
    placed.moveLeft(qBound(nearest->left(), placed.left(), nearest->right() - placed.width() + 1));
    placed.moveTop(qBound(nearest->top(), placed.top(), nearest->bottom() - placed.height() + 1));
    return placed;
}

}
