#pragma once

#include "widgets/TrovDialog.h"

class QLabel;
class QPushButton;

// A message with one "OK" button.
class AlertDialog : public TrovDialog
{
    Q_OBJECT
public:
    AlertDialog(const QString& text, const QString& title, QWidget* parent = nullptr);

    // Shows one alert and returns when it is closed.
    static void alert(const QString& text, const QString& title, QWidget* parent = nullptr);
    // The same with plain-text details (a file and the system's reason), each
    // on a line of its own below the message.
    static void alert(const QString& text, const QStringList& details, const QString& title,
                      QWidget* parent = nullptr);

    // For error output: a fixed-pitch, slightly heavier and larger text.
    void setErrorText(bool leftAligned);

    QLabel* label() const { return textLabel; }
    QPushButton* okButton() const { return ok; }

private:
    QLabel* textLabel;
    QPushButton* ok;
};
