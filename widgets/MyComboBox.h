#pragma once

#include <QPointer>
#include <QPushButton>
#include <QVariant>
#include <QVector>

class MyPopup;
class QPropertyAnimation;

// The program's drop-down choice: a 45-pixel field with a caption, the chosen
// row's text and an arrow that turns down while its list is open.
class MyComboBox : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(int currState READ currState WRITE setCurrState)
    Q_PROPERTY(int currState2 READ currState2 WRITE setCurrState2)
public:
    // The data that marks a row shown in italics.
    static const int ItalicData = -100;

    explicit MyComboBox(QWidget* parent = nullptr);

    void setCaption(const QString& text);
    QString caption() const { return captionText; }

    void addItem(const QString& text, const QVariant& data = QVariant());
    void removeItem(int index);
    void setCurrentIndex(int index, bool emitSignal = true);
    // Selects the first row whose data is the value; no signal.
    void selectByData(int value);
    void selectByText(const QString& text, bool emitSignal = true);
    int currentIndex() const { return selected; }
    // The selected row's data as an integer; -1 when nothing is selected.
    int currentData() const;
    QString currentText() const;
    // The data of a row; a bad index is a programming error and throws.
    QVariant getData(int index) const;
    QString itemText(int index) const;
    int count() const { return items.size(); }
    void clearItems();
    // The list shows at most this many rows and scrolls beyond.
    void setMaxVisibleRows(int rows);
    MyPopup* popup() const { return openList; }
    void showPopup();

    int currState() const { return state; }
    void setCurrState(int value);
    int currState2() const { return state2; }
    void setCurrState2(int value);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void whenChoiceChanges();

public slots:
    void popupClosed(int index);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct Item {
        QVariant data;
        QString text;
    };

    void hoverTo(bool inside);

    QVector<Item> items;
    int selected = -1;
    int heightLimit = 0;
    QString captionText;
    QPointer<MyPopup> openList;
    int state = 0;
    int state2 = 0;
    QPropertyAnimation* pressAnimation;
    QPropertyAnimation* hoverAnimation;
};
