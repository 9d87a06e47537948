#pragma once

#include "widgets/TrovDialog.h"

class QLabel;
class QPushButton;

// The keys of the component list, one per line with the key in a column of
// its own, in a fixed-pitch face.
class VelmoComponentListHelp : public TrovDialog
{
    Q_OBJECT
public:
    explicit VelmoComponentListHelp(QWidget* parent = nullptr);

    QLabel* label;
    QPushButton* cancelButton;

    // The lines, each a name padded with blanks and its key.
    static QString keyTable();

public slots:
    void on_cancelButton_clicked();
};
