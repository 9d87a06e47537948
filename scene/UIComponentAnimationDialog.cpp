#include "scene/UIComponentAnimationDialog.h"

#include "scene/PropertyAnimationText.h"
#include "scene/UIComponentBaseDialog.h"
#include "widgets/EasingCurveSelector.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyEitherBox.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/OwnerDimming.h"

#include <QEvent>
#include <QGridLayout>
#include <QMouseEvent>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

enum PairKind { IntegerPair, ScalePair, OpacityPair, RotationPair };

// What the dialog shows for each "Property": its name in the combo, the
// fields of its values, the labels and tooltips of those, and the flags a
// kind must have clear and set to be offered it.
struct PropertyForm {
    const char* label;
    PairKind pair;
    const char* startLabel;
    const char* startTip;
    const char* endLabel;
    const char* endTip;
    int mustBeClear;
    int mustBeSet;
};

using Flag = UIComponentAnimationDialog::Flag;

const PropertyForm Forms[] = {
    {QT_TR_NOOP("X Position"), IntegerPair, QT_TR_NOOP("Start X-Pos"), QT_TR_NOOP("The starting X position."),
     QT_TR_NOOP("End X-Pos"), QT_TR_NOOP("The ending X position."), 0, 0},
    {QT_TR_NOOP("Y Position"), IntegerPair, QT_TR_NOOP("Start Y-Pos"), QT_TR_NOOP("The starting Y position."),
     QT_TR_NOOP("End Y-Pos"), QT_TR_NOOP("The ending Y position."), 0, 0},
    {QT_TR_NOOP("Width Scale"), ScalePair, QT_TR_NOOP("Start Width Scale"), QT_TR_NOOP("The starting width scale."),
     QT_TR_NOOP("End Width Scale"), QT_TR_NOOP("The ending width scale."), Flag::NoScaleOrSize, 0},
    {QT_TR_NOOP("Height Scale"), ScalePair, QT_TR_NOOP("Start Height Scale"),
     QT_TR_NOOP("The starting height scale."), QT_TR_NOOP("End Height Scale"), QT_TR_NOOP("The ending height scale."),
     Flag::NoScaleOrSize, 0},
    {QT_TR_NOOP("Width"), IntegerPair, QT_TR_NOOP("Start Width"), QT_TR_NOOP("The starting width."),
     QT_TR_NOOP("End Width"), QT_TR_NOOP("The ending width."), Flag::NoScaleOrSize, 0},
    {QT_TR_NOOP("Height"), IntegerPair, QT_TR_NOOP("Start Height"), QT_TR_NOOP("The starting height."),
     QT_TR_NOOP("End Height"), QT_TR_NOOP("The ending height."), Flag::NoScaleOrSize, 0},
    {QT_TR_NOOP("Rotation"), RotationPair, QT_TR_NOOP("Start Rotation"), QT_TR_NOOP("The starting rotation."),
     QT_TR_NOOP("End Rotation"), QT_TR_NOOP("The ending rotation."), Flag::NoRotation, 0},
    // The opacity fields carry the height's tooltips; documents and the
    // translations know them so.
    {QT_TR_NOOP("Opacity"), OpacityPair, QT_TR_NOOP("Start Opacity"), QT_TR_NOOP("The starting height."),
     QT_TR_NOOP("End Opacity"), QT_TR_NOOP("The ending height."), Flag::NoOpacity, 0},
    {QT_TR_NOOP("Openness"), OpacityPair, QT_TR_NOOP("Start Openness"), QT_TR_NOOP("The starting openness."),
     QT_TR_NOOP("End Openness"), QT_TR_NOOP("The ending openness."), 0, Flag::HasOpenness},
    {QT_TR_NOOP("Repeat Offset X"), IntegerPair, QT_TR_NOOP("Start Repeating Offset"),
     QT_TR_NOOP("The starting offset."), QT_TR_NOOP("End Repeating Offset"), QT_TR_NOOP("The ending offset."), 0,
     Flag::HasRepeatOffset},
    {QT_TR_NOOP("Repeat Offset Y"), IntegerPair, QT_TR_NOOP("Start Repeating Offset"),
     QT_TR_NOOP("The starting offset."), QT_TR_NOOP("End Repeating Offset"), QT_TR_NOOP("The ending offset."), 0,
     Flag::HasRepeatOffset},
    {QT_TR_NOOP("Brightness"), OpacityPair, QT_TR_NOOP("Start Brightness"), QT_TR_NOOP("The starting brightness."),
     QT_TR_NOOP("End Brightness"), QT_TR_NOOP("The ending brightness."), 0, 0},
    {QT_TR_NOOP("Hue"), RotationPair, QT_TR_NOOP("Start Hue"), QT_TR_NOOP("The starting hue."),
     QT_TR_NOOP("End Hue"), QT_TR_NOOP("The ending hue."), 0, 0},
};
const int FormCount = int(sizeof(Forms) / sizeof(Forms[0]));

const PropertyForm* formOf(int property)
{
    return property >= 0 && property < FormCount ? &Forms[property] : nullptr;
}

enum ReturnEasing { SameAsForward = 0, Inverted = 1, Custom = 2 };

// Where an animation starts when its entry doesn't say: on creation.
QJsonObject defaultActivateType()
{
    return QJsonObject{{QStringLiteral("Type"), 0}, {QStringLiteral("RunType"), 1}};
}

void describe(QWidget* field, const QString& title, const QString& description)
{
    field->setProperty("mtt_title", title);
    field->setProperty("mtt_desc", description);
}

MyDialogOpener* makeOpener(const char* objectName, const QString& title, const QString& description)
{
    MyDialogOpener* opener = new MyDialogOpener();
    opener->setObjectName(QLatin1String(objectName));
    opener->setTitle(title);
    describe(opener, title, description);
    return opener;
}

MyComboBox* makeCombo(const char* objectName, const QString& title, const QString& description)
{
    MyComboBox* combo = new MyComboBox();
    combo->setObjectName(QLatin1String(objectName));
    combo->setCaption(title);
    describe(combo, title, description);
    return combo;
}

}

UIComponentAnimationDialog::RunTypeOpener UIComponentAnimationDialog::openRunType;
UIComponentAnimationDialog::RunTypeText UIComponentAnimationDialog::runTypeText;

UIComponentAnimationDialog::UIComponentAnimationDialog(QJsonObject* json, bool* accepted, int animationFlags,
                                                       QWidget* parent)
    : PickerDialog(accepted, parent), json(json)
{
    setObjectName(QStringLiteral("UIComponentAnimationDialog"));

    Property = makeCombo("Property", tr("Property"), tr("The property that is animated."));
    for (int property = 0; property < FormCount; ++property) {
        if (offers(property, animationFlags))
            Property->addItem(tr(Forms[property].label), property);
    }
    Loop_Type = makeCombo("Loop_Type", tr("Loop Behavior"), tr("The way the loop occurs."));
    Loop_Type->addItem(tr("Run Once"), 0);
    Loop_Type->addItem(tr("Repeat"), 1);
    Loop_Type->addItem(tr("Back and Forth"), 2);
    Duration = makeValueField("Duration", MyLineEdit::Integer, 1, 999999, 6, QString());
    Duration->setCaption(tr("Duration"));
    describe(Duration, tr("Duration"), tr("The duration of the animation from start to end."));
    EasingCurve = makeOpener("EasingCurve", tr("Easing Curve"), tr("The easing curve of the animation."));

    const QString percent = QStringLiteral("%");
    const QString degrees = QString(QChar(0x00B0));
    Start_Int = makeValueField("Start_Int", MyLineEdit::Integer, -99999, 99999, 6, QString());
    End_Int = makeValueField("End_Int", MyLineEdit::Integer, -99999, 99999, 6, QString());
    Start_Scale = makeValueField("Start_Scale", MyLineEdit::Decimal, 0, 500, 4, percent);
    End_Scale = makeValueField("End_Scale", MyLineEdit::Decimal, 0, 500, 4, percent);
    Start_Opacity = makeValueField("Start_Opacity", MyLineEdit::Decimal, 0, 100, 4, percent);
    End_Opacity = makeValueField("End_Opacity", MyLineEdit::Decimal, 0, 100, 4, percent);
    Start_Rotation = makeValueField("Start_Rotation", MyLineEdit::Integer, -360, 360, 4, degrees);
    End_Rotation = makeValueField("End_Rotation", MyLineEdit::Integer, -360, 360, 4, degrees);

    MyGroupBox* basic = new MyGroupBox(tr("Basic Properties"), content);
    basic->setObjectName(QStringLiteral("basicProperties"));
    QGridLayout* basicLayout = new QGridLayout(basic);
    basicLayout->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 10, 10);
    basicLayout->setHorizontalSpacing(10);
    basicLayout->setVerticalSpacing(8);
    basicLayout->addWidget(Property, 0, 0);
    basicLayout->addWidget(Loop_Type, 0, 1);
    basicLayout->addWidget(Duration, 1, 0);
    basicLayout->addWidget(EasingCurve, 1, 1);
    // All pairs share one row; only the property's own is shown.
    QWidget* values = new QWidget(basic);
    values->setObjectName(QStringLiteral("values"));
    QGridLayout* valuesLayout = new QGridLayout(values);
    valuesLayout->setContentsMargins(0, 0, 0, 0);
    valuesLayout->setHorizontalSpacing(10);
    for (const ValuePair& pair : {ValuePair{Start_Int, End_Int}, ValuePair{Start_Scale, End_Scale},
                                  ValuePair{Start_Opacity, End_Opacity}, ValuePair{Start_Rotation, End_Rotation}}) {
        valuesLayout->addWidget(pair.start, 0, 0);
        valuesLayout->addWidget(pair.end, 0, 1);
    }
    basicLayout->addWidget(values, 2, 0, 1, 2);
    for (QGridLayout* grid : {basicLayout, valuesLayout}) {
        grid->setColumnStretch(0, 1);
        grid->setColumnStretch(1, 1);
    }
    contentLayout->addWidget(basic);

    RunType = makeOpener("RunType", tr("Activation Type"), tr("How the animation is activated."));
    ResetToStart = new MyEitherBox();
    ResetToStart->setObjectName(QStringLiteral("ResetToStart"));
    ResetToStart->setPlaceholder(tr("Reset Type"));
    ResetToStart->setChoices(tr("Continue from Current"), tr("Reset to Start"));
    describe(ResetToStart, tr("Reset Type"), tr("Whether the animation resets."));
    ReturnEasingType =
        makeCombo("ReturnEasingType", tr("Return Easing Type"), tr("The easing for the animation while playing backwards."));
    ReturnEasingType->addItem(tr("Same as Forward"), SameAsForward);
    ReturnEasingType->addItem(tr("Inverted"), Inverted);
    ReturnEasingType->addItem(tr("Custom"), Custom);
    CustomReturnEasing = makeOpener("CustomReturnEasing", tr("Custom Backwards Easing"),
                                    tr("The custom easing curve for backwards playing."));

    advancedProperties = new MyGroupBox(tr("Advanced Properties"), content);
    advancedProperties->setObjectName(QStringLiteral("advancedProperties"));
    QVBoxLayout* advancedLayout = new QVBoxLayout(advancedProperties);
    advancedLayout->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 10, 10);
    advancedBody = new QWidget(advancedProperties);
    advancedBody->setObjectName(QStringLiteral("advancedBody"));
    QGridLayout* bodyLayout = new QGridLayout(advancedBody);
    bodyLayout->setContentsMargins(0, 0, 0, 0);
    bodyLayout->setHorizontalSpacing(10);
    bodyLayout->setVerticalSpacing(8);
    bodyLayout->addWidget(RunType, 0, 0);
    bodyLayout->addWidget(ResetToStart, 0, 1);
    bodyLayout->addWidget(ReturnEasingType, 1, 0);
    bodyLayout->addWidget(CustomReturnEasing, 1, 1);
    bodyLayout->setColumnStretch(0, 1);
    bodyLayout->setColumnStretch(1, 1);
    advancedLayout->addWidget(advancedBody);
    // The title strip folds the group; the arrow at its end says which way.
    advancedToggle = new QToolButton(advancedProperties);
    advancedToggle->setObjectName(QStringLiteral("advancedToggle"));
    advancedToggle->setAutoRaise(true);
    advancedToggle->setFocusPolicy(Qt::NoFocus);
    advancedToggle->setArrowType(Qt::DownArrow);
    advancedToggle->setFixedSize(MyGroupBox::TitleHeight - 4, MyGroupBox::TitleHeight - 4);
    connect(advancedToggle, &QToolButton::clicked, this, [this]() { setAdvancedShown(advancedBody->isHidden()); });
    advancedProperties->installEventFilter(this);
    contentLayout->addWidget(advancedProperties);
    contentLayout->addStretch();

    QHBoxLayout* buttons = new QHBoxLayout();
    addButtons(buttons);
    contentLayout->addLayout(buttons);

    // Reading: the combo's rows leave out what the kind can't animate, so the
    // row is found by its data; a property left out selects nothing.
    const int property = json->value(QStringLiteral("Property")).toInt(0);
    Property->setCurrentIndex(-1, false);
    Property->selectByData(property);
    Loop_Type->setCurrentIndex(qBound(0, json->value(QStringLiteral("Type")).toInt(0), Loop_Type->count() - 1), false);
    Duration->setValue(QString::number(json->value(QStringLiteral("Duration")).toInt(60)));
    easingCurve = json->value(QStringLiteral("EasingCurve")).toInt(0);
    activateType = json->value(QStringLiteral("ActivateType")).toObject(defaultActivateType());
    ResetToStart->setChoice(!json->value(QStringLiteral("Reset")).toBool(false), true);
    const int returnEasing = json->value(QStringLiteral("ReturnEasing")).toInt(SameAsForward);
    ReturnEasingType->setCurrentIndex(qBound(0, returnEasing, ReturnEasingType->count() - 1), false);
    backwardsCurve = json->value(QStringLiteral("BackwardsEasingCurve")).toInt(0);
    readValues(Property->currentIndex() >= 0 ? property : -1);

    showEasing(EasingCurve, easingCurve);
    UpdateRunTypeText();

    // The kinds' dialogs close on cancel through their own slot.
    disconnect(cancelButton(), &QPushButton::clicked, this, &QDialog::reject);
    QMetaObject::connectSlotsByName(this);
    on_Property_whenChoiceChanges();
    on_ReturnEasingType_whenChoiceChanges();
    // Wide enough for the longest captions, "Start Repeating Offset" and its translations.
    finish(tr("UI Component Animation"), QSize(520, sizeHint().height()));
}

bool UIComponentAnimationDialog::edit(QJsonObject* json, int animationFlags, QWidget* owner)
{
    bool accepted = false;
    OwnerDimming::dim(owner);
    UIComponentAnimationDialog(json, &accepted, animationFlags, owner).exec();
    OwnerDimming::undim(owner);
    return accepted;
}

bool UIComponentAnimationDialog::offers(int property, int animationFlags)
{
    const PropertyForm* form = formOf(property);
    return form && (animationFlags & form->mustBeClear) == 0
           && (animationFlags & form->mustBeSet) == form->mustBeSet;
}

int UIComponentAnimationDialog::invertedCurve(int curve)
{
    if (curve <= 0)
        return curve;
    switch ((curve - 1) % 3) {
    case 0:
        return curve + 1;
    case 1:
        return curve - 1;
    default:
        return curve;
    }
}

MyLineEdit* UIComponentAnimationDialog::makeValueField(const char* objectName, int inputType, double minimum,
                                                       double maximum, int digits, const QString& suffix)
{
    MyLineEdit* field = new MyLineEdit();
    field->setObjectName(QLatin1String(objectName));
    field->setInputType(inputType);
    field->setDecimals(1);
    field->setSuffix(suffix);
    field->setNumberField(minimum, maximum, digits);
    field->setValidityListener([this](bool) { updateConfirm(); });
    return field;
}

UIComponentAnimationDialog::ValuePair UIComponentAnimationDialog::pairOf(int property) const
{
    const PropertyForm* form = formOf(property);
    switch (form ? form->pair : IntegerPair) {
    case ScalePair:
        return {Start_Scale, End_Scale};
    case OpacityPair:
        return {Start_Opacity, End_Opacity};
    case RotationPair:
        return {Start_Rotation, End_Rotation};
    default:
        return {Start_Int, End_Int};
    }
}

bool UIComponentAnimationDialog::isFractionPair(const ValuePair& pair) const
{
    return pair.start == Start_Scale || pair.start == Start_Opacity;
}

void UIComponentAnimationDialog::readValues(int property)
{
    // Every pair shows the value its own kind of key falls back to; the
    // property's pair then shows what the entry holds.
    const ValuePair pairs[] = {{Start_Int, End_Int}, {Start_Scale, End_Scale}, {Start_Opacity, End_Opacity},
                               {Start_Rotation, End_Rotation}};
    for (const ValuePair& pair : pairs) {
        const QString fallback = isFractionPair(pair) ? UIComponentBaseDialog::percentText(1.0) : QStringLiteral("0");
        pair.start->setValue(fallback);
        pair.end->setValue(fallback);
    }
    const PropertyAnimationText::Property* keys = PropertyAnimationText::property(property);
    if (!keys)
        return;
    const ValuePair pair = pairOf(property);
    const auto shown = [&](const char* key) {
        const QJsonValue value = json->value(QLatin1String(key));
        if (isFractionPair(pair))
            return UIComponentBaseDialog::percentText(value.toDouble(keys->fallback));
        return QString::number(value.toInt(int(keys->fallback)));
    };
    pair.start->setValue(shown(keys->startKey));
    pair.end->setValue(shown(keys->endKey));
}

void UIComponentAnimationDialog::showEasing(MyDialogOpener* opener, int curve)
{
    opener->setValue(EasingCurveSelector::display(curve));
}

void UIComponentAnimationDialog::updateConfirm()
{
    QPushButton* confirm = confirmButton();
    if (!confirm)
        return;
    bool valid = Property->currentIndex() >= 0 && Duration->isValid();
    if (valid) {
        const ValuePair pair = pairOf(Property->currentData());
        valid = pair.start->isValid() && pair.end->isValid();
    }
    confirm->setEnabled(valid);
}

void UIComponentAnimationDialog::on_Property_whenChoiceChanges()
{
    for (MyLineEdit* field :
         {Start_Int, End_Int, Start_Scale, End_Scale, Start_Opacity, End_Opacity, Start_Rotation, End_Rotation})
        field->hide();
    const PropertyForm* form = Property->currentIndex() >= 0 ? formOf(Property->currentData()) : nullptr;
    if (form) {
        const ValuePair pair = pairOf(Property->currentData());
        pair.start->setCaption(tr(form->startLabel));
        describe(pair.start, tr(form->startLabel), tr(form->startTip));
        pair.end->setCaption(tr(form->endLabel));
        describe(pair.end, tr(form->endLabel), tr(form->endTip));
        pair.start->show();
        pair.end->show();
    }
    updateConfirm();
}

void UIComponentAnimationDialog::on_EasingCurve_clicked()
{
    int curve = easingCurve;
    bool accepted = false;
    darken();
    EasingCurveSelector(&curve, &accepted, this).exec();
    undarken();
    if (!accepted)
        return;
    easingCurve = curve;
    showEasing(EasingCurve, easingCurve);
    EasingCurve->confirm();
    // The backwards curve follows the forward one unless it is a curve of its own.
    on_ReturnEasingType_whenChoiceChanges();
}

void UIComponentAnimationDialog::on_RunType_clicked()
{
    if (!openRunType)
        return;
    QJsonObject edited = activateType;
    darken();
    const bool accepted = openRunType(&edited, this);
    undarken();
    if (!accepted)
        return;
    activateType = edited;
    UpdateRunTypeText();
    RunType->confirm();
}

void UIComponentAnimationDialog::UpdateRunTypeText()
{
    RunType->setValue(runTypeText ? runTypeText(activateType) : QString());
}

void UIComponentAnimationDialog::on_ReturnEasingType_whenChoiceChanges()
{
    const int returnEasing = ReturnEasingType->currentData();
    CustomReturnEasing->setEnabled(returnEasing == Custom);
    switch (returnEasing) {
    case Custom:
        showEasing(CustomReturnEasing, backwardsCurve);
        break;
    case Inverted:
        showEasing(CustomReturnEasing, invertedCurve(easingCurve));
        break;
    default:
        showEasing(CustomReturnEasing, easingCurve);
        break;
    }
}

void UIComponentAnimationDialog::on_CustomReturnEasing_clicked()
{
    int curve = backwardsCurve;
    bool accepted = false;
    darken();
    EasingCurveSelector(&curve, &accepted, this).exec();
    undarken();
    if (!accepted)
        return;
    backwardsCurve = curve;
    showEasing(CustomReturnEasing, backwardsCurve);
    CustomReturnEasing->confirm();
}

void UIComponentAnimationDialog::on_confirmButton_clicked()
{
    // Ctrl+Return reaches here with the button disabled, too.
    if (!confirmButton()->isEnabled())
        return;
    const int property = Property->currentData();
    const PropertyAnimationText::Property* keys = PropertyAnimationText::property(property);
    if (!keys)
        return;
    QJsonObject result;
    result.insert(QStringLiteral("Property"), property);
    result.insert(QStringLiteral("Type"), Loop_Type->currentIndex());
    result.insert(QStringLiteral("Duration"), Duration->text().toInt());
    result.insert(QStringLiteral("EasingCurve"), easingCurve);
    result.insert(QStringLiteral("ActivateType"), activateType);
    result.insert(QStringLiteral("Reset"), !ResetToStart->choice());
    const int returnEasing = ReturnEasingType->currentData();
    result.insert(QStringLiteral("ReturnEasing"), returnEasing);
    if (returnEasing == Custom)
        result.insert(QStringLiteral("BackwardsEasingCurve"), backwardsCurve);
    const ValuePair pair = pairOf(property);
    if (isFractionPair(pair)) {
        result.insert(QLatin1String(keys->startKey), UIComponentBaseDialog::fractionOf(pair.start->text()));
        result.insert(QLatin1String(keys->endKey), UIComponentBaseDialog::fractionOf(pair.end->text()));
    } else {
        result.insert(QLatin1String(keys->startKey), pair.start->text().toInt());
        result.insert(QLatin1String(keys->endKey), pair.end->text().toInt());
    }
    *json = result;
    acceptChoice();
}

void UIComponentAnimationDialog::on_cancelButton_clicked()
{
    reject();
}

void UIComponentAnimationDialog::setAdvancedShown(bool shown)
{
    if (shown == !advancedBody->isHidden())
        return;
    // The dialog keeps a fixed size: it grows and shrinks by the body's height.
    const int change = advancedBody->height();
    advancedBody->setVisible(shown);
    advancedToggle->setArrowType(shown ? Qt::DownArrow : Qt::RightArrow);
    const int height = this->height() + (shown ? change : -change);
    setFixedSize(width(), height);
}

void UIComponentAnimationDialog::firstShown()
{
    // The group boxes know their title's room only once the style sheet
    // reached them; the form then asks for a little more height.
    const int needed = layout()->totalHeightForWidth(width()) > 0 ? layout()->totalHeightForWidth(width())
                                                                  : layout()->totalSizeHint().height();
    if (needed > height())
        setFixedSize(width(), needed);
}

bool UIComponentAnimationDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == advancedProperties) {
        if (event->type() == QEvent::Resize) {
            advancedToggle->move(advancedProperties->width() - advancedToggle->width() - 4, 2);
        } else if (event->type() == QEvent::MouseButtonRelease) {
            const QMouseEvent* mouse = static_cast<QMouseEvent*>(event);
            if (mouse->button() == Qt::LeftButton && mouse->pos().y() < MyGroupBox::TitleHeight) {
                setAdvancedShown(advancedBody->isHidden());
                return true;
            }
        }
    }
    return PickerDialog::eventFilter(watched, event);
}
