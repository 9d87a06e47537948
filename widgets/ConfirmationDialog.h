#pragma once

#include "widgets/TrovDialog.h"

#include <QStringList>

class QHBoxLayout;
class QLabel;
class QPushButton;

// A question with "Yes", "No" and "Cancel". The answer goes to *result:
// 0 yes, 1 no, 2 cancel, and closing the dialog any other way leaves 2.
class ConfirmationDialog : public TrovDialog
{
    Q_OBJECT
public:
    // Mode YesNo shows no "Cancel" button.
    enum Mode { YesNoCancel = 0, YesNo = 1 };

    ConfirmationDialog(const QString& text, const QString& title, int* result, QWidget* parent = nullptr,
                       int mode = YesNoCancel, Qt::Alignment alignment = Qt::AlignCenter);
    // The lines stand one below the other.
    ConfirmationDialog(const QStringList& lines, const QString& title, int* result, QWidget* parent = nullptr,
                       int mode = YesNoCancel, Qt::Alignment alignment = Qt::AlignCenter);

    QLabel* label() const { return textLabel; }

public slots:
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();
    void on_endButton_clicked();

private:
    void answer(int value);

    int* result;
    QLabel* textLabel;
    QPushButton* confirmButton;
    QPushButton* cancelButton;
    QPushButton* endButton;
};
