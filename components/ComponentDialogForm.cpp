#include "components/ComponentDialogForm.h"

#include "components/ComponentKinds.h"
#include "components/ProjectImages.h"
#include "logic/AddonOrNotebox.h"
#include "scene/UIComponentBase.h"
#include "scene/UIComponentBaseDialog.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/CustomTitleBar.h"
#include "widgets/MyButton.h"
#include "widgets/MyColorPickerButton.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyEitherBox.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyImageSelector.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/MyTabSystem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QVBoxLayout>

namespace {

// What the size fields of a new component show, by kind.
QSize newSize(int type)
{
    return type == ComponentKinds::Gauge ? QSize(250, 30) : QSize(100, 100);
}

const int GroupSide = 50;

QGridLayout* fieldGrid(MyGroupBox* box)
{
    QGridLayout* fields = new QGridLayout(box);
    fields->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 12, 14);
    fields->setHorizontalSpacing(10);
    fields->setVerticalSpacing(8);
    return fields;
}

}

ComponentDialogForm::ComponentDialogForm(UIComponentBaseDialog* dialog, CustomTitleBar* titleBar, QWidget* content,
                                         QVBoxLayout* contentLayout, QJsonObject* json, int type,
                                         QJsonObject* projectData)
    : titleBar(titleBar), dialog(dialog), content(content), json(json), type(type)
{
    const ComponentKinds::Kind* kind = ComponentKinds::find(type);

    QHBoxLayout* columns = new QHBoxLayout();
    columns->setSpacing(12);
    leftColumn = new QVBoxLayout();
    leftColumn->setSpacing(12);
    MyGroupBox* basic = new MyGroupBox(UIComponentBaseDialog::tr("Basic Properties"), content);
    basic->setObjectName(QStringLiteral("basicProperties"));
    QGridLayout* fields = fieldGrid(basic);
    auto lineEdit = [basic](const char* objectName) {
        MyLineEdit* field = new MyLineEdit(basic);
        field->setObjectName(QLatin1String(objectName));
        field->setMinimumWidth(150);
        return field;
    };
    Name = lineEdit("Name");
    Conditions = new MyDialogOpener(basic);
    Conditions->setObjectName(QStringLiteral("Conditions"));
    X_Position = lineEdit("X_Position");
    Y_Position = lineEdit("Y_Position");
    if (kind && kind->size == ComponentKinds::SizeStorage::Scale) {
        Width_Scale = lineEdit("Width_Scale");
        Height_Scale = lineEdit("Height_Scale");
    } else if (kind) {
        Width = lineEdit("Width");
        Height = lineEdit("Height");
    }
    Rotation = lineEdit("Rotation");
    Opacity = lineEdit("Opacity");
    fields->addWidget(Name, 0, 0, 1, 2);
    fields->addWidget(Conditions, 1, 0, 1, 2);
    fields->addWidget(X_Position, 2, 0);
    fields->addWidget(Y_Position, 2, 1);
    int row = 3;
    if (MyLineEdit* first = Width_Scale ? Width_Scale : Width) {
        fields->addWidget(first, row, 0);
        fields->addWidget(Width_Scale ? Height_Scale : Height, row, 1);
        ++row;
    }
    fields->addWidget(Rotation, row, 0);
    fields->addWidget(Opacity, row, 1);
    fields->setRowStretch(row + 1, 1);
    leftColumn->addWidget(basic, 1);
    columns->addLayout(leftColumn, 3);
    // The custom kinds are chiefly their reference and its parameters, so
    // their own boxes lead and the basic box follows.
    propertyBoxesFirst = kind && kind->size == ComponentKinds::SizeStorage::FromCustom;

    MyTabSystem* lists = new MyTabSystem(content);
    lists->setObjectName(QStringLiteral("lists"));
    animations = new UltimateTreeWidget();
    animations->setObjectName(QStringLiteral("animations"));
    customProperties = new UltimateTreeWidget();
    customProperties->setObjectName(QStringLiteral("customProperties"));
    lists->addTab(UIComponentBaseDialog::tr("Animations"), animations);
    lists->addTab(UIComponentBaseDialog::tr("Custom Properties"), customProperties);
    addonOrNote = new AddonOrNotebox();
    lists->addTab(UIComponentBaseDialog::tr("Add-ons"), addonOrNote);
    lists->setCurrentIndex(0, true, true);
    // Wide enough for the three tab labels and the column titles in longer
    // languages than English.
    lists->setMinimumWidth(560);
    columns->addWidget(lists, 2);
    contentLayout->addLayout(columns, 1);

    QHBoxLayout* buttons = new QHBoxLayout();
    buttons->setSpacing(8);
    buttons->addStretch(1);
    confirmButton = new MyButton(content);
    confirmButton->setObjectName(QStringLiteral("confirmButton"));
    confirmButton->setText(UIComponentBaseDialog::tr("Confirm"));
    cancelButton = new MyButton(content);
    cancelButton->setObjectName(QStringLiteral("cancelButton"));
    cancelButton->setText(UIComponentBaseDialog::tr("Cancel"));
    for (MyButton* button : {confirmButton, cancelButton}) {
        button->setMinimumWidth(96);
        buttons->addWidget(button);
    }
    contentLayout->addLayout(buttons);

    confirmButton->setButtonColor(themeColor(ThemeKey::ConfirmButton));
    cancelButton->setButtonColor(themeColor(ThemeKey::CancelButton));
    dialog->setCenterWidget(content);
    dialog->setTitleBar(titleBar);
    dialog->setConfirmButton(confirmButton);
    dialog->setupAllWidgets(Name, Conditions, X_Position, Y_Position, Width_Scale, Height_Scale, Rotation, Opacity,
                            animations, customProperties, confirmButton, json, kind ? kind->title : "");
    if (Width)
        setUpSize();
    // The kinds that never turn (group, window and the custom kinds) take
    // neither rotation nor opacity from their dialog.
    if (kind && !kind->canRotate) {
        Rotation->setEnabled(false);
        Opacity->setEnabled(false);
    }
    addonOrNote->loadData(dataObject(), projectData, kind ? kind->capabilities : 0, dialog);
}

MyGroupBox* ComponentDialogForm::addPropertyBox(const QString& title, const char* objectName)
{
    MyGroupBox* box = new MyGroupBox(title, content);
    box->setObjectName(QLatin1String(objectName));
    grid = fieldGrid(box);
    if (propertyBoxesFirst)
        leftColumn->insertWidget(leadingBoxes++, box, 1);
    else
        leftColumn->addWidget(box, 1);
    return box;
}

void ComponentDialogForm::describe(QWidget* field, Label label, int row, int column, int columnSpan)
{
    field->setProperty("mtt_title", UIComponentBaseDialog::tr(label.title));
    field->setProperty("mtt_desc", UIComponentBaseDialog::tr(label.description));
    field->setMinimumWidth(150);
    grid->addWidget(field, row, column, 1, columnSpan);
}

MyLineEdit* ComponentDialogForm::addNumber(const char* objectName, Label label, double minimum, double maximum,
                                           int digits, bool decimal, const QString& defaultText,
                                           const QJsonValue& value, int row, int column, int columnSpan)
{
    MyLineEdit* field = new MyLineEdit(grid->parentWidget());
    field->setObjectName(QLatin1String(objectName));
    field->setInputType(decimal ? MyLineEdit::Decimal : MyLineEdit::Integer);
    field->setCaption(UIComponentBaseDialog::tr(label.title));
    if (decimal)
        field->setSuffix(QStringLiteral("%"));
    field->setNumberField(minimum, maximum, digits);
    dialog->followConfirm(field, confirmButton);
    // Extension kind 0: the dynamic input.
    field->setExtendable(defaultText, 0, dialog);
    if (value.isDouble()) {
        field->setValue(decimal ? QString::number(value.toDouble(), 'g', 6)
                                : QString::number(UIComponentBase::readInteger(value)));
    } else {
        showExtendable(field, value, defaultText);
    }
    describe(field, label, row, column, columnSpan);
    return field;
}

MyLineEdit* ComponentDialogForm::addText(const char* objectName, Label label, const QString& defaultText,
                                         const QJsonValue& value, int row, int column, int columnSpan)
{
    MyLineEdit* field = new MyLineEdit(grid->parentWidget());
    field->setObjectName(QLatin1String(objectName));
    field->setInputType(MyLineEdit::Text);
    field->setCaption(UIComponentBaseDialog::tr(label.title));
    field->setExtendable(defaultText, 0, dialog);
    if (value.isString())
        field->setValue(value.toString());
    else
        showExtendable(field, value, defaultText);
    describe(field, label, row, column, columnSpan);
    return field;
}

void ComponentDialogForm::showExtendable(MyLineEdit* field, const QJsonValue& value, const QString& defaultText)
{
    field->setValue(defaultText);
    if (!value.isObject())
        return;
    field->fromJson(value);
    if (!field->isExtended()) {
        keptValues.insert(field, value);
        field->setEnabled(false);
    }
}

MyColorPickerButton* ComponentDialogForm::addColor(const char* objectName, Label label, const QString& value, int row,
                                                   int column)
{
    MyColorPickerButton* field = new MyColorPickerButton(grid->parentWidget());
    field->setObjectName(QLatin1String(objectName));
    field->setCaption(UIComponentBaseDialog::tr(label.title));
    field->setParentDialog(dialog);
    field->setColor(QColor(value));
    describe(field, label, row, column);
    return field;
}

MyComboBox* ComponentDialogForm::addChoice(const char* objectName, Label label, const QStringList& items,
                                           const QJsonValue& value, int defaultIndex, int row, int column,
                                           int columnSpan)
{
    MyComboBox* field = new MyComboBox(grid->parentWidget());
    int index = UIComponentBase::readInteger(value, defaultIndex);
    if (index < 0 || index >= items.size()) {
        // Past the last item, a value acts as the last one (the alignments
        // from 2 up are all right-aligned).
        index = index < 0 ? defaultIndex : items.size() - 1;
        keptChoices.insert(field, KeptChoice{index, value});
    }
    field->setObjectName(QLatin1String(objectName));
    field->setCaption(UIComponentBaseDialog::tr(label.title));
    for (const QString& item : items)
        field->addItem(item);
    field->setCurrentIndex(index, false);
    describe(field, label, row, column, columnSpan);
    return field;
}

MyEitherBox* ComponentDialogForm::addEither(const char* objectName, Label label, const char* first,
                                            const char* second, bool value, int row, int column)
{
    MyEitherBox* field = new MyEitherBox(grid->parentWidget());
    field->setObjectName(QLatin1String(objectName));
    field->setPlaceholder(UIComponentBaseDialog::tr(label.title));
    field->setChoices(UIComponentBaseDialog::tr(first), UIComponentBaseDialog::tr(second));
    field->setChoice(value, true);
    describe(field, label, row, column);
    return field;
}

MyDialogOpener* ComponentDialogForm::addOpener(const char* objectName, Label label, int row, int column,
                                               int columnSpan)
{
    MyDialogOpener* field = new MyDialogOpener(grid->parentWidget());
    field->setObjectName(QLatin1String(objectName));
    field->setTitle(UIComponentBaseDialog::tr(label.title));
    describe(field, label, row, column, columnSpan);
    return field;
}

MyImageSelector* ComponentDialogForm::addImage(const char* objectName, Label label, int kind, const QString& name,
                                               int row, int column, int columnSpan)
{
    MyImageSelector* field = new MyImageSelector(grid->parentWidget());
    field->setObjectName(QLatin1String(objectName));
    field->setCaption(UIComponentBaseDialog::tr(label.title));
    field->setParentDialog(dialog);
    field->setFolder(ProjectImages::folder(kind));
    field->setImage(name);
    describe(field, label, row, column, columnSpan);
    return field;
}

QJsonValue ComponentDialogForm::numberOf(MyLineEdit* field) const
{
    const auto kept = keptValues.constFind(field);
    if (kept != keptValues.constEnd())
        return kept.value();
    return field->toJson();
}

QJsonValue ComponentDialogForm::choiceOf(MyComboBox* field) const
{
    const auto kept = keptChoices.constFind(field);
    if (kept != keptChoices.constEnd() && field->currentIndex() == kept->shownIndex)
        return kept->value;
    return field->currentIndex();
}

void ComponentDialogForm::finish()
{
    QMetaObject::connectSlotsByName(dialog);
    dialog->adjustSize();
    dialog->fixSize();
}

void ComponentDialogForm::setUpSize()
{
    const ComponentKinds::Kind* kind = ComponentKinds::find(type);
    // A group is always 50 by 50; a custom kind shows its custom HUD's size,
    // which its dialog fills in. Neither is edited.
    if (kind->size == ComponentKinds::SizeStorage::Fixed || kind->size == ComponentKinds::SizeStorage::FromCustom) {
        for (MyLineEdit* field : {Width, Height}) {
            const QString title =
                field == Width ? UIComponentBaseDialog::tr("Width") : UIComponentBaseDialog::tr("Height");
            field->setCaption(title);
            field->setProperty("mtt_title", title);
            if (kind->size == ComponentKinds::SizeStorage::Fixed)
                field->setValue(QString::number(GroupSide));
            field->setEnabled(false);
        }
        return;
    }
    const QJsonObject data = dataObject();
    const QSize defaults = newSize(type);
    const bool repeat = type == ComponentKinds::RepeatingPicture;
    struct Side {
        MyLineEdit* field;
        const char* title;
        const char* description;
        const char* key;
        int fallback;
    };
    const Side sides[] = {
        {Width, QT_TR_NOOP("Width"),
         repeat ? QT_TR_NOOP("The width of the repeating picture.") : QT_TR_NOOP("The width of the window."), "Width",
         defaults.width()},
        {Height, QT_TR_NOOP("Height"),
         repeat ? QT_TR_NOOP("The height of the repeating picture.") : QT_TR_NOOP("The height of the window."),
         "Height", defaults.height()},
    };
    for (const Side& side : sides) {
        side.field->setInputType(MyLineEdit::Integer);
        side.field->setCaption(UIComponentBaseDialog::tr(side.title));
        side.field->setProperty("mtt_title", UIComponentBaseDialog::tr(side.title));
        side.field->setProperty("mtt_desc", UIComponentBaseDialog::tr(side.description));
        side.field->setNumberField(0, 99999, 6, nullptr, dialog->sizeValidator());
        dialog->followConfirm(side.field, confirmButton);
        side.field->setValue(QString::number(data.value(QLatin1String(side.key)).toInt(side.fallback)));
    }
    // A picture gauge is as high as a third of its skin.
    Height->setEnabled(type != ComponentKinds::PictureGauge);
}

QJsonObject ComponentDialogForm::dataObject() const
{
    const ComponentKinds::Kind* kind = ComponentKinds::find(type);
    return kind ? json->value(QLatin1String(kind->dataKey)).toObject() : QJsonObject();
}

void ComponentDialogForm::applyCommonFields()
{
    dialog->applyCommonFields(Name, Conditions, X_Position, Y_Position, Width_Scale, Height_Scale, Rotation, Opacity,
                              animations, json);
}

void ComponentDialogForm::writeDataObject(QJsonObject data, const QSize& size) const
{
    const ComponentKinds::Kind* kind = ComponentKinds::find(type);
    if (!kind)
        return;
    if (Width && kind->size == ComponentKinds::SizeStorage::Size) {
        data.insert(QStringLiteral("Width"), size.isValid() ? size.width() : Width->text().toInt());
        data.insert(QStringLiteral("Height"), size.isValid() ? size.height() : Height->text().toInt());
    }
    addonOrNote->saveData(&data);
    json->insert(QLatin1String(kind->dataKey), data);
}
