#pragma once

#include "widgets/MyLineEdit.h"

#include <QPointer>
#include <QStringList>

class MyPopup;

// A line edit with a list of suggestions: the arrow at its right end (or
// Alt+Down) opens the list, and a chosen row becomes the text.
class MyComboInput : public MyLineEdit
{
    Q_OBJECT
public:
    explicit MyComboInput(QWidget* parent = nullptr);

    void setSuggestions(const QStringList& rows);
    QStringList suggestions() const { return rows; }
    void setMaxVisibleRows(int count);
    MyPopup* popup() const { return openList; }
    void showPopup();

public slots:
    void popupClosed(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool onArrow(const QPoint& pos) const;

    QStringList rows;
    int heightLimit = 0;
    QPointer<MyPopup> openList;
};
