#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QLineEdit>
#include <QPointer>
#include <QVector>

#include <functional>

class AnimatedLook;
class MyLineEdit;
class QAbstractButton;
class QMenu;
class QValidator;

// What stands in place of a literal in an extendable field: the object that
// replaces the value and what is needed to go back to a plain value.
struct MyLineEditExtension {
    QJsonObject data;
    QString restoreText;
    QString defaultText;
    QWidget* parentDialog = nullptr;
    MyLineEdit* owner = nullptr;
    // Index into the process-wide list of handlers.
    int kind = 0;
    bool active = false;
};

// One kind of extension, registered at start-up: the text an object shows in
// the field, and the dialog that edits it. The dialog gets the object to
// edit, the parent, the field's input type; it returns true when confirmed
// and sets removed when the user took the extension away.
struct MyLineEditExtensionHandler {
    std::function<QString(const QJsonObject& data)> display;
    std::function<bool(QJsonObject& data, QWidget* parent, int inputType, bool& removed)> open;
};

// The program's text and number field. It validates numbers as they are
// typed, marks an invalid value with a red underline and a hint instead of
// refusing it, normalises the text when the user leaves, and can stand for
// an object of the game logic instead of a literal (its extension).
class MyLineEdit : public QLineEdit
{
    Q_OBJECT
public:
    enum InputType { Text = 0, Integer = 1, Decimal = 2 };
    enum ErrorKind { NoError = 0, BelowMinimum = 1, AboveMaximum = 2 };

    explicit MyLineEdit(QWidget* parent = nullptr);
    ~MyLineEdit() override;

    // The registered extension handlers; kind 0 is the dynamic input.
    static QVector<MyLineEditExtensionHandler>& extensionHandlers();
    static int registerExtensionHandler(const MyLineEditExtensionHandler& handler);
    // Picks a colour for "Insert Color"; an invalid colour is a cancel. It
    // runs the program's colour picker over the field's dialog, which dims
    // meanwhile.
    static std::function<QColor(QWidget* parent, const QColor& initial)>& colorPicker();
    // Gives the entries of a standard edit menu their icons, matched by
    // their translated texts.
    static void decorateStandardMenu(QMenu* menu);

    void setCaption(const QString& text);
    QString caption() const { return captionText; }
    // A unit such as "%" or "°" shown at the right end of the value.
    void setSuffix(const QString& text);
    QString suffix() const { return suffixText; }
    // A warning of the form that stands where the range hint stands, such as
    // a name already in use; empty removes it.
    void setWarningText(const QString& text);
    QString warningText() const { return warning; }

    void setInputType(int type);
    int inputType() const { return type; }
    void setRange(double minimum, double maximum);
    double minimum() const { return minValue; }
    double maximum() const { return maxValue; }
    void setMaxDigits(int digits);
    int maxDigits() const { return digits; }
    void setDecimals(int count);
    int decimals() const { return decimalCount; }
    // The button's enabled state follows the field's validity.
    void setFollowerButton(QAbstractButton* button);
    void setNumberField(double minimum, double maximum, int digits, QAbstractButton* button = nullptr,
                        QValidator* validator = nullptr);
    void setPostProcess(const std::function<QString(const QString&)>& callback) { postProcess = callback; }
    void setValidityListener(const std::function<void(bool)>& callback) { validityListener = callback; }
    void setSkipNormalising(bool skip) { skipNormalising = skip; }
    void setColorInsertion(bool enabled) { colorInsertion = enabled; }

    // Sets the text without validation and counts it valid.
    void setValue(const QString& text);
    bool isValid() const { return valid; }
    int errorKind() const { return error; }
    // The hint the field shows in its right corner, empty while valid.
    QString hintText() const;

    void setExtendable(const QString& defaultText, int kind, QWidget* parentDialog);
    const MyLineEditExtension* extension() const { return record; }
    bool isExtended() const { return record && record->active; }

    void normalise();
    QJsonValue toJson() const;
    void fromJson(const QJsonValue& value, int defaultInt = 0, double defaultDouble = 0.0,
                  const QString& defaultString = QString());

    // The looks, each 0 to 300: focus (currState), invalid value
    // (currState2), the hint's flash (currState3) and hover (currState4).
    AnimatedLook* focusLook() const { return focus; }
    AnimatedLook* invalidLook() const { return invalid; }
    AnimatedLook* hintLook() const { return hint; }
    AnimatedLook* hoverLook() const { return hover; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public slots:
    void openColorPicker();
    void openExtendDialog();
    void clearExtend();
    void textHasChanged(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void placeText();
    void setValid(bool value);
    void showExtensionText();
    void buildValidator();
    QString hintFor(int kind) const;
    void flashHint();
    void fadeHint();

    QString captionText;
    QString suffixText;
    QString warning;
    QString extensionText;
    // The hint being shown, kept while it fades out.
    QString shownHint;
    int type = Integer;
    double minValue = 0;
    double maxValue = 9999;
    int digits = 4;
    int decimalCount = 1;
    bool valid = true;
    bool selectOnNextClick = false;
    bool skipNormalising = false;
    bool colorInsertion = false;
    bool extensionPressed = false;
    int error = NoError;
    int previousError = NoError;
    // Cursor and selection as they stood when the edit menu that chose
    // "Insert Color" opened; -1 otherwise.
    int menuCursor = -1;
    int menuSelectionStart = -1;
    int menuSelectionLength = 0;
    QPointer<QAbstractButton> follower;
    std::function<QString(const QString&)> postProcess;
    std::function<void(bool)> validityListener;
    QValidator* builtValidator = nullptr;
    MyLineEditExtension* record = nullptr;

    AnimatedLook* focus;
    AnimatedLook* invalid;
    AnimatedLook* hint;
    AnimatedLook* hover;
};
