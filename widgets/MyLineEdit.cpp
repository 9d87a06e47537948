#include "widgets/MyLineEdit.h"

#include "theme/Contrast.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/AnimatedLook.h"
#include "widgets/FormFieldPainter.h"
#include "widgets/MyColorPicker.h"

#include <QEvent>
#include <QFontMetrics>
#include <QAbstractButton>
#include <QAction>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QRegularExpressionValidator>
#include <QtMath>

namespace {

QString wholeNumber(double value)
{
    return QString::number(qlonglong(value));
}

}

MyLineEdit::MyLineEdit(QWidget* parent)
    : QLineEdit(parent),
      focus(new AnimatedLook(this, "currState", 300, 250, 300, QEasingCurve::OutCubic)),
      invalid(new AnimatedLook(this, "currState2", 300, 150, 150)),
      hint(new AnimatedLook(this, "currState3", 300, 150, 150)),
      hover(new AnimatedLook(this, "currState4", 300, 150, 150))
{
    hover->followPointer();
    QFont valueFont = font();
    valueFont.setPixelSize(15);
    setFont(valueFont);
    setFrame(false);
    // The field paints its own background under the text.
    QPalette transparentBase = palette();
    transparentBase.setColor(QPalette::Base, Qt::transparent);
    setPalette(transparentBase);
    setMinimumHeight(46);
    setInputType(Integer);
    connect(this, &QLineEdit::textEdited, this, &MyLineEdit::textHasChanged);
}

MyLineEdit::~MyLineEdit()
{
    delete record;
}

QVector<MyLineEditExtensionHandler>& MyLineEdit::extensionHandlers()
{
    static QVector<MyLineEditExtensionHandler> handlers;
    return handlers;
}

int MyLineEdit::registerExtensionHandler(const MyLineEditExtensionHandler& handler)
{
    extensionHandlers().append(handler);
    return extensionHandlers().size() - 1;
}

std::function<QColor(QWidget*, const QColor&)>& MyLineEdit::colorPicker()
{
    static std::function<QColor(QWidget*, const QColor&)> picker = [](QWidget* parent, const QColor& initial) {
        return MyColorPicker::pick(initial, tr("Insert Color"), parent, qobject_cast<TrovDialog*>(parent));
    };
    return picker;
}

void MyLineEdit::decorateStandardMenu(QMenu* menu)
{
    const struct {
        QString prefix;
        const char* icon;
    } icons[] = {
        {tr("&Undo"), ":/resources/MenuBarIcons/Undo.png"},
        {tr("&Redo"), ":/resources/MenuBarIcons/Redo.png"},
        {tr("Cu&t"), ":/resources/ContextIcons/Cut.png"},
        {tr("&Copy"), ":/resources/ContextIcons/Copy.png"},
        {tr("&Paste"), ":/resources/ContextIcons/Paste.png"},
        {tr("Delete"), ":/resources/ContextIcons/None.png"},
        {tr("Select All"), ":/resources/ContextIcons/SelectAll.png"},
    };
    for (QAction* action : menu->actions()) {
        for (const auto& entry : icons) {
            if (!action->isSeparator() && action->text().startsWith(entry.prefix)) {
                action->setIcon(QIcon(QLatin1String(entry.icon)));
                break;
            }
        }
    }
}

void MyLineEdit::setCaption(const QString& text)
{
    captionText = text;
    update();
}

void MyLineEdit::setSuffix(const QString& text)
{
    suffixText = text;
    placeText();
    update();
}

void MyLineEdit::setWarningText(const QString& text)
{
    if (text == warning)
        return;
    warning = text;
    if (warning.isEmpty()) {
        fadeHint();
    } else {
        shownHint = warning;
        flashHint();
    }
    update();
}

void MyLineEdit::setInputType(int newType)
{
    type = (newType == Integer || newType == Decimal) ? newType : Text;
    setMaxLength(type == Text ? 32767 : 10);
    buildValidator();
}

void MyLineEdit::buildValidator()
{
    delete builtValidator;
    builtValidator = nullptr;
    if (type == Text) {
        setValidator(nullptr);
        return;
    }
    // Separators and plus signs pass here so that a pasted "1,000" arrives
    // whole; the typing rules take them out again.
    const QString pattern = type == Integer ? QStringLiteral("[-+,0-9]*") : QStringLiteral("[-+,.0-9]*");
    builtValidator = new QRegularExpressionValidator(QRegularExpression(pattern), this);
    setValidator(builtValidator);
}

void MyLineEdit::setRange(double minimum, double maximum)
{
    minValue = minimum;
    maxValue = maximum;
}

void MyLineEdit::setMaxDigits(int count)
{
    digits = qMax(1, count);
}

void MyLineEdit::setDecimals(int count)
{
    decimalCount = qMax(0, count);
}

void MyLineEdit::setFollowerButton(QAbstractButton* button)
{
    follower = button;
    if (follower)
        follower->setEnabled(valid);
}

void MyLineEdit::setNumberField(double minimum, double maximum, int count, QAbstractButton* button,
                                QValidator* given)
{
    setRange(minimum, maximum);
    setMaxDigits(count);
    setFollowerButton(button);
    if (given) {
        delete builtValidator;
        builtValidator = nullptr;
        setValidator(given);
    }
}

void MyLineEdit::setValue(const QString& text)
{
    setText(text);
    error = NoError;
    setValid(true);
    fadeHint();
}

QString MyLineEdit::hintFor(int kind) const
{
    switch (kind) {
    case BelowMinimum:
        return QStringLiteral("< ") + QString::number(minValue, 'g', 6);
    case AboveMaximum:
        return QStringLiteral("> ") + QString::number(maxValue, 'g', 6);
    default:
        return tr("D.N.E.");
    }
}

QString MyLineEdit::hintText() const
{
    if (!warning.isEmpty())
        return warning;
    return valid ? QString() : hintFor(error);
}

void MyLineEdit::flashHint()
{
    // A flash in motion starts over from its mirror, so it keeps blinking.
    hint->runFor(hint->isRunning() ? 300 - hint->value() : 0, 300, 150);
}

void MyLineEdit::fadeHint()
{
    if (!warning.isEmpty())
        return;
    hint->run(false);
}

void MyLineEdit::setValid(bool value)
{
    valid = value;
    if (follower)
        follower->setEnabled(valid);
    if (validityListener)
        validityListener(valid);
    invalid->run(!valid);
}

void MyLineEdit::textHasChanged(const QString& typed)
{
    if (isExtended())
        return;
    if (type == Text) {
        if (!valid)
            setValid(true);
        return;
    }
    QString cleaned = typed;
    cleaned.remove(QLatin1Char(','));
    cleaned.remove(QLatin1Char('+'));
    const int allowed = digits + (cleaned.startsWith(QLatin1Char('-')) ? 1 : 0);
    if (cleaned.length() > allowed && !cleaned.contains(QLatin1Char('.')))
        cleaned = cleaned.left(allowed);
    if (cleaned != typed) {
        const int cursor = cursorPosition() - (typed.length() - cleaned.length());
        setText(cleaned);
        setCursorPosition(qBound(0, cursor, cleaned.length()));
    }

    bool parsed = false;
    const double number = cleaned.toDouble(&parsed);
    int kind = NoError;
    if (parsed && number < minValue)
        kind = BelowMinimum;
    else if (parsed && number > maxValue)
        kind = AboveMaximum;
    const bool nowValid = parsed && kind == NoError;

    const bool wasValid = valid;
    if (kind != error) {
        previousError = error;
        error = kind;
    }
    if (!nowValid && (wasValid || shownHint != hintFor(error))) {
        shownHint = hintFor(error);
        if (warning.isEmpty())
            flashHint();
    } else if (nowValid && !wasValid) {
        fadeHint();
    }
    setValid(nowValid);
    update();
}

void MyLineEdit::normalise()
{
    if (isExtended())
        return;
    QString result = text();
    result.remove(QLatin1Char(','));
    if (type == Text) {
        if (result.isEmpty() && postProcess)
            result = postProcess(result);
    } else if (type == Integer) {
        bool parsed = false;
        const qlonglong number = result.toLongLong(&parsed);
        if (!parsed || number < minValue)
            result = wholeNumber(qCeil(minValue));
        else if (number > maxValue)
            result = wholeNumber(qFloor(maxValue));
        else
            result = QString::number(number);
    } else {
        bool parsed = false;
        double number = result.toDouble(&parsed);
        if (!parsed || number < minValue)
            number = minValue;
        else if (number > maxValue)
            number = maxValue;
        result = QString::number(number, 'f', decimalCount);
    }
    if (result != text())
        setText(result);
    if (error != NoError)
        previousError = error;
    error = NoError;
    setValid(true);
    fadeHint();
}

QJsonValue MyLineEdit::toJson() const
{
    if (isExtended())
        return record->data;
    switch (type) {
    case Integer:
        return QJsonValue(qint64(text().toLongLong()));
    case Decimal:
        return text().toDouble();
    default:
        return text();
    }
}

void MyLineEdit::fromJson(const QJsonValue& value, int defaultInt, double defaultDouble, const QString& defaultString)
{
    if (value.isObject() && record && record->kind >= 0 && record->kind < extensionHandlers().size()) {
        record->data = value.toObject();
        record->active = true;
        setReadOnly(true);
        setCursor(Qt::PointingHandCursor);
        showExtensionText();
        return;
    }
    if (record && record->active) {
        record->active = false;
        setReadOnly(false);
        setCursor(Qt::IBeamCursor);
    }
    switch (type) {
    case Integer:
        setText(QString::number(qint64(value.isDouble() ? value.toDouble() : defaultInt)));
        break;
    case Decimal:
        setText(QString::number(value.toDouble(defaultDouble), 'g', 6));
        break;
    default:
        setText(value.toString(defaultString));
        break;
    }
    normalise();
}

void MyLineEdit::setExtendable(const QString& defaultText, int kind, QWidget* parentDialog)
{
    if (record)
        return;
    record = new MyLineEditExtension;
    record->defaultText = defaultText;
    record->kind = kind;
    record->parentDialog = parentDialog;
    record->owner = this;
}

void MyLineEdit::showExtensionText()
{
    const QVector<MyLineEditExtensionHandler>& handlers = extensionHandlers();
    if (!record || record->kind < 0 || record->kind >= handlers.size() || !handlers.at(record->kind).display)
        extensionText.clear();
    else
        extensionText = handlers.at(record->kind).display(record->data);
    update();
}

void MyLineEdit::openExtendDialog()
{
    const QVector<MyLineEditExtensionHandler>& handlers = extensionHandlers();
    if (!record || record->kind < 0 || record->kind >= handlers.size() || !handlers.at(record->kind).open)
        return;
    normalise();
    if (!isExtended() && !text().isEmpty())
        record->restoreText = text();
    QJsonObject data = record->data;
    bool removed = false;
    QWidget* parent = record->parentDialog ? record->parentDialog : window();
    const bool confirmed = handlers.at(record->kind).open(data, parent, type, removed);
    if (removed) {
        if (isExtended())
            clearExtend();
        return;
    }
    if (!confirmed)
        return;
    record->data = data;
    record->active = true;
    setReadOnly(true);
    setCursor(Qt::PointingHandCursor);
    showExtensionText();
}

void MyLineEdit::clearExtend()
{
    if (!record)
        return;
    record->active = false;
    setReadOnly(false);
    setCursor(Qt::IBeamCursor);
    setText(record->restoreText.isEmpty() ? record->defaultText : record->restoreText);
    selectAll();
    normalise();
    if (hasFocus())
        focus->run(true);
    update();
}

void MyLineEdit::openColorPicker()
{
    const QColor color = colorPicker()(window(), Qt::white);
    if (menuCursor >= 0) {
        if (menuSelectionLength > 0)
            setSelection(menuSelectionStart, menuSelectionLength);
        else
            setCursorPosition(menuCursor);
        menuCursor = -1;
    }
    if (!color.isValid())
        return;
    // The field's whole text goes in again before the colour: the field has
    // always done this, and texts written with it rely on it.
    insert(text() + color.name());
}

QSize MyLineEdit::sizeHint() const
{
    return QSize(160, 46);
}

QSize MyLineEdit::minimumSizeHint() const
{
    return QSize(60, 46);
}

void MyLineEdit::placeText()
{
    // The text stands in the lower part of the 46-pixel field, wherever the
    // field is centred, and stops short of the unit. The margins count from
    // where the style puts the contents, which a style sheet's padding may
    // already have moved: the text stands in the same place either way.
    const int top = (height() - 46) / 2;
    int right = 8;
    if (!suffixText.isEmpty()) {
        QFont valueFont = font();
        valueFont.setPixelSize(15);
        right += QFontMetrics(valueFont).horizontalAdvance(suffixText) + 8;
    }
    const QRect wanted = rect().adjusted(7, top + 17, -right, -qMax(0, height() - top - 44));
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QRect contents = style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
    setTextMargins(qMax(0, wanted.left() - contents.left()), qMax(0, wanted.top() - contents.top()),
                   qMax(0, contents.right() - wanted.right()), qMax(0, contents.bottom() - wanted.bottom()));
}

void MyLineEdit::resizeEvent(QResizeEvent* event)
{
    placeText();
    QLineEdit::resizeEvent(event);
}

void MyLineEdit::changeEvent(QEvent* event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange)
        placeText();
}

void MyLineEdit::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    if (isExtended())
        return;
    selectAll();
    selectOnNextClick = true;
    focus->run(true);
}

void MyLineEdit::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    // A context menu or another window taking the focus leaves the field as it is.
    if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason)
        return;
    if (!skipNormalising)
        normalise();
    focus->run(false);
}

void MyLineEdit::mousePressEvent(QMouseEvent* event)
{
    if (isExtended()) {
        if (event->button() == Qt::LeftButton) {
            extensionPressed = true;
            focus->run(true);
        }
        QLineEdit::mousePressEvent(event);
        return;
    }
    QLineEdit::mousePressEvent(event);
    if (selectOnNextClick && event->button() == Qt::LeftButton) {
        selectOnNextClick = false;
        selectAll();
    }
}

void MyLineEdit::mouseReleaseEvent(QMouseEvent* event)
{
    QLineEdit::mouseReleaseEvent(event);
    if (!extensionPressed || event->button() != Qt::LeftButton)
        return;
    extensionPressed = false;
    if (rect().contains(event->pos()))
        openExtendDialog();
    if (!hasFocus() || isExtended())
        focus->run(false);
}

void MyLineEdit::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    decorateStandardMenu(menu);
    if (type == Text && colorInsertion && !isExtended()) {
        menu->addSeparator();
        // The menu takes the focus and gives it back, which selects the
        // whole text; the colour goes where the cursor stood when it opened.
        const int cursor = cursorPosition();
        const int start = selectionStart();
        const int length = selectedText().length();
        menu->addAction(tr("Insert Color"), this, [this, cursor, start, length]() {
            menuCursor = cursor;
            menuSelectionStart = start;
            menuSelectionLength = length;
            openColorPicker();
        });
    }
    if (record) {
        menu->addSeparator();
        menu->addAction(QIcon(QStringLiteral(":/resources/ContextIcons/Extend.png")), tr("Select Dynamic Value"), this,
                        &MyLineEdit::openExtendDialog);
        if (isExtended())
            menu->addAction(QIcon(QStringLiteral(":/resources/ContextIcons/TextMode.png")),
                            tr("Return Input to Normal"), this, &MyLineEdit::clearExtend);
    }
    menu->popup(event->globalPos());
}

void MyLineEdit::paintEvent(QPaintEvent* event)
{
    const bool ownText = !isEnabled() || isExtended();
    {
        QPainter painter(this);
        const int w = FormFieldPainter::begin(painter, this);
        const bool enabled = isEnabled();
        const double hovered = enabled ? hover->value() : 0.0;
        const double focused = enabled ? focus->value() : 0.0;
        const QColor background = themeColor(ThemeKey::InputUIBackground);
        const QColor negative = themeColor(ThemeKey::InputUINegative);
        FormFieldPainter::frame(painter, w, {themeColor(ThemeKey::InputUIBase), themeColor(ThemeKey::InputUIHover), background},
                                hovered / 300.0);
        FormFieldPainter::underline(painter, w, focused,
                                    Contrast::over(negative, themeColor(ThemeKey::InputUIPrimary), invalid->value() / 300.0));
        const double hintState = enabled ? hint->value() : 0.0;
        const QString hintShown = warning.isEmpty() ? shownHint : warning;
        const bool hintVisible = hintState > 0 && !hintShown.isEmpty();
        QFont hintFont = painter.font();
        hintFont.setPointSize(10);
        // A caption beside a hint ends short of it.
        const int captionWidth = hintVisible ? qMax(22, w - QFontMetrics(hintFont).horizontalAdvance(hintShown) - 2) : w;
        FormFieldPainter::caption(painter, this, captionWidth, captionText, background, (hovered + 400) / 700.0);

        if (hintVisible) {
            painter.save();
            painter.setFont(hintFont);
            // The hint is text the user must read: at full strength once it
            // stands, in a red that keeps 4.5:1 on the field.
            painter.setOpacity(painter.opacity() * hintState / 300.0);
            painter.setPen(Contrast::readable(negative, background, Contrast::Text));
            const double slide = (300 - hintState) / 20.0;
            painter.drawText(QRectF(8, 3, w - 16 + slide, 20), Qt::AlignRight | Qt::AlignTop, hintShown);
            painter.restore();
        }

        if (!suffixText.isEmpty()) {
            painter.save();
            // The unit in the value's own colour, which keeps its contrast.
            FormFieldPainter::setValueFont(painter, this, background);
            const int h = painter.fontMetrics().height();
            painter.drawText(QRect(8, 38 - h, w - 16, 19), Qt::AlignRight | Qt::AlignVCenter, suffixText);
            painter.restore();
        }

        if (ownText) {
            FormFieldPainter::setValueFont(painter, this, background);
            const int h = painter.fontMetrics().height();
            const QString shown = isExtended()
                ? painter.fontMetrics().elidedText(extensionText, Qt::ElideRight, w - 23)
                : text();
            painter.drawText(QRect(8, 38 - h, w - 12, 19), Qt::AlignLeft | Qt::AlignVCenter, shown);
        }
    }
    if (!ownText)
        QLineEdit::paintEvent(event);
}
