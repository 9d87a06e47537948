#pragma once

#include <QPointer>
#include <QWidget>

class QAbstractAnimation;

// The program's tooltip: a title bar over a description, shown for widgets
// that carry the dynamic properties "mtt_title" and "mtt_desc". It follows
// the pointer and ends when the pointer leaves its widget. One exists at a
// time.
class UltimateToolTip : public QWidget
{
    Q_OBJECT
public:
    // The one tooltip that is up, if any.
    static UltimateToolTip* current();
    // The application's rule for tooltip events: a widget with a title,
    // enabled or not, gets this tooltip instead of the system's. Returns
    // true when the event is taken.
    static bool filterEvent(QObject* watched, QEvent* event);
    // Shows the tooltip for owner at a global pointer position.
    static UltimateToolTip* showFor(QWidget* owner, const QString& title, const QString& description,
                                    const QPoint& globalPos);

    // Fades out and deletes itself.
    void end();
    QWidget* owner() const { return ownerWidget; }
    QString title() const { return titleText; }
    QString description() const { return descriptionText; }
    // The size of the body, without the room of the shadow.
    QSize bodySize() const { return body; }
    // The body's size for a title and a description.
    static QSize measure(const QString& title, const QString& description, const QFont& font);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    UltimateToolTip(QWidget* owner, const QString& title, const QString& description);
    void moveTo(const QPoint& globalPos);

    QPointer<QWidget> ownerWidget;
    QString titleText;
    QString descriptionText;
    QSize body;
    bool ending = false;
    QPointer<QAbstractAnimation> showing;
};
