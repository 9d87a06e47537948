#pragma once

#include "widgets/TrovDialog.h"

class QLabel;
class QPushButton;

// The About box: the program's icon, name, author, the testers it owes
// thanks to and its version, in the program's own face.
class VelmoAbout : public TrovDialog
{
    Q_OBJECT
public:
    explicit VelmoAbout(QWidget* parent = nullptr);

    QLabel* logo;
    QLabel* title;
    QLabel* author;
    QLabel* credits;
    QLabel* version;
    QPushButton* cancelButton;

public slots:
    void on_cancelButton_clicked();
};
