#pragma once

#include "widgets/AlertDialog.h"

// The keys of the component list, one per line with the key in a column of
// its own. For now it stands on the alert dialog; the full help page replaces
// this when the help pages are built.
class VelmoComponentListHelp : public AlertDialog
{
    Q_OBJECT
public:
    explicit VelmoComponentListHelp(QWidget* parent = nullptr);

private:
    static QString keyTable();
};
