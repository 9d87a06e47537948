#pragma once

#include <QPlainTextEdit>

// The program's multi-line text box: the edit menu with icons and "Insert
// Color", an optional limit of lines, and a code form in a monospace font.
class MyPlainTextEdit : public QPlainTextEdit
{
    Q_OBJECT
public:
    explicit MyPlainTextEdit(QWidget* parent = nullptr);

    // At most this many line breaks; 0 for no limit.
    void setLineLimit(int lines);
    int lineLimit() const { return maxLines; }
    void setColorInsertion(bool enabled) { colorInsertion = enabled; }
    // Monospace, no wrapping, a wide cursor and narrow tabs, for code.
    void setCodeBox();

public slots:
    void openColorPicker();
    void restrictLineSize();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    int maxLines = 0;
    bool colorInsertion = true;
};
