#pragma once

class QWidget;

// The dimming of whatever a dialog opens over. A dialog of the program
// darkens itself (TrovDialog::darken); any other window, such as the main
// window under a component's property dialog, gets the same overlay laid
// over it, by the same preferences. Every dim is followed by its undim.
namespace OwnerDimming {

void dim(QWidget* owner);
void undim(QWidget* owner);

}
