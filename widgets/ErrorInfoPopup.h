#pragma once

#include <QList>
#include <QString>
#include <QWidget>

class QFontMetrics;
class QPropertyAnimation;

// The errors of a script check, each with its line, in a small frameless
// window over the bottom of the code input. It fades in and out.
class ErrorInfoPopup : public QWidget
{
    Q_OBJECT
public:
    struct Error {
        // From 1, as the gutter counts.
        int line;
        QString text;
    };

    explicit ErrorInfoPopup(QWidget* owner);

    QList<Error> errors() const { return list; }
    // Fills the list and fades in over the bottom of the owner; an empty
    // list fades out.
    void showErrors(const QList<Error>& errors);
    void fadeIn();
    void fadeOut();

    QSize sizeHint() const override;

public slots:
    void whenFadeOutComplete();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void fadeTo(double opacity);
    QString lineText(const Error& error) const;
    int lineColumnWidth(const QFontMetrics& metrics) const;

    QWidget* owner;
    QList<Error> list;
    QPropertyAnimation* fade;
};
