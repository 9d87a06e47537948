#pragma once

#include <QWidget>

class QDialog;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class TitleBarButtons;

// The 30-pixel title bar a dialog draws itself when the user turned the
// system's title bar off: the title and a close button.
class CustomTitleBar : public QWidget
{
    Q_OBJECT
public:
    explicit CustomTitleBar(QWidget* parent = nullptr);

    void setDialog(QDialog* dialog);
    void setTitle(const QString& text);
    QString title() const;
    void setActive(bool active);
    bool isActive() const { return active; }
    void setShownSeparator(bool shown);
    // With the system's title bar the form's bar gives up its place.
    void collapse();

    TitleBarButtons* closeButton() const { return closeButtonWidget; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QGridLayout* gridLayout;
    QWidget* draggable;
    QHBoxLayout* horizontalLayout;
    QLabel* titleLabel;
    TitleBarButtons* closeButtonWidget;
    QDialog* dialog = nullptr;
    bool active = true;
    bool shownSeparator = false;
};
