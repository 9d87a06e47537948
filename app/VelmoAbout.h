#pragma once

#include "widgets/AlertDialog.h"

// The About box: the program's icon, name, author and version. For now it
// stands on the alert dialog; the full help page with credits and the
// program's own font replaces this when the help pages are built.
class VelmoAbout : public AlertDialog
{
    Q_OBJECT
public:
    explicit VelmoAbout(QWidget* parent = nullptr);
};
