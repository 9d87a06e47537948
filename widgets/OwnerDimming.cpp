#include "widgets/OwnerDimming.h"

#include "widgets/DialogFlags.h"
#include "widgets/DialogOverlay.h"
#include "widgets/TrovDialog.h"

#include <QPropertyAnimation>
#include <QWidget>

namespace OwnerDimming {

namespace {

const char* const OverlayName = "ownerDimming";

TrovDialog* dialogOf(QWidget* owner)
{
    TrovDialog* dialog = qobject_cast<TrovDialog*>(owner);
    return dialog ? dialog : qobject_cast<TrovDialog*>(owner->window());
}

DialogOverlay* overlayOf(QWidget* window)
{
    return window->findChild<DialogOverlay*>(QLatin1String(OverlayName), Qt::FindDirectChildrenOnly);
}

}

void dim(QWidget* owner)
{
    if (!owner)
        return;
    if (TrovDialog* dialog = dialogOf(owner)) {
        dialog->darken();
        return;
    }
    if (!dialogDarkenLayers)
        return;
    QWidget* window = owner->window();
    delete overlayOf(window);
    DialogOverlay* overlay = new DialogOverlay(window, DialogOverlay::Fill, window->size());
    overlay->setObjectName(QLatin1String(OverlayName));
    overlay->show();
    overlay->raise();
    if (dialogDarkenAnimated)
        overlay->fade(0, 100, 150);
    else
        overlay->setCurrState(100);
}

void undim(QWidget* owner)
{
    if (!owner)
        return;
    if (TrovDialog* dialog = dialogOf(owner)) {
        dialog->undarken();
        return;
    }
    DialogOverlay* overlay = overlayOf(owner->window());
    if (!overlay)
        return;
    // A later dim looks for the overlay by name; the fading one is no longer it.
    overlay->setObjectName(QString());
    for (QPropertyAnimation* fadeIn : overlay->findChildren<QPropertyAnimation*>())
        fadeIn->stop();
    if (!dialogDarkenAnimated) {
        delete overlay;
        return;
    }
    QObject::connect(overlay->fade(overlay->currState(), 0, 200), &QPropertyAnimation::finished, overlay,
                     &QObject::deleteLater);
}

}
