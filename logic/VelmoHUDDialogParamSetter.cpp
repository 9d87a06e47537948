#include "logic/VelmoHUDDialogParamSetter.h"

#include "theme/ThemeKey.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/OwnerDimming.h"

#include <QHBoxLayout>
#include <QIntValidator>
#include <QPushButton>

VelmoHUDDialogParamSetter::VelmoHUDDialogParamSetter(QJsonValue* value, bool isString, bool listAllowed,
                                                     bool* confirmed, const QString& name, QWidget* parent)
    : PickerDialog(confirmed, parent), value(value), listOn(value->isBool() && value->toBool())
{
    setObjectName(QStringLiteral("VelmoHUDDialogParamSetter"));
    MyGroupBox* group = new MyGroupBox(tr("Custom Parameter Input"), content);
    group->setObjectName(QStringLiteral("paramBox"));
    QHBoxLayout* row = new QHBoxLayout(group);
    row->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 12, 14);
    row->setSpacing(10);

    field = new MyLineEdit(group);
    const QString caption = isString ? tr("Text Value") : tr("Number Value");
    field->setObjectName(isString ? QStringLiteral("Text") : QStringLiteral("Number"));
    field->setCaption(caption);
    field->setProperty("mtt_title", caption);
    field->setProperty("mtt_desc", tr("The value assigned to the parameter."));
    if (isString) {
        field->setInputType(MyLineEdit::Text);
        field->setExtendable(QString(), 0, this);
        field->setValue(QString());
    } else {
        field->setInputType(MyLineEdit::Integer);
        field->setNumberField(-9999999, 9999999, 8, nullptr, new QIntValidator(-999999999, 999999999, field));
        field->setExtendable(QStringLiteral("0"), 0, this);
        field->setValue(QStringLiteral("0"));
    }
    // The list's own value leaves the field on its default.
    if (!listOn)
        field->fromJson(*value);
    row->addWidget(field, 1);

    useListData = new QPushButton(group);
    useListData->setObjectName(QStringLiteral("useListData"));
    useListData->setMinimumWidth(80);
    useListData->setVisible(listAllowed);
    row->addWidget(useListData, 0, Qt::AlignBottom);
    contentLayout->addWidget(group);

    addButtons(contentLayout);
    // Cancel has a slot of its own.
    disconnect(cancelButton(), &QPushButton::clicked, this, &QDialog::reject);
    QMetaObject::connectSlotsByName(this);
    field->setFollowerButton(confirmButton());
    showToggle();
    content->setMinimumWidth(360);
    finish(tr("\"%1\" Parameter").arg(name));
}

bool VelmoHUDDialogParamSetter::pick(QJsonValue* value, bool isString, bool listAllowed, const QString& name,
                                     QWidget* parent)
{
    bool confirmed = false;
    QJsonValue working = *value;
    OwnerDimming::dim(parent);
    VelmoHUDDialogParamSetter(&working, isString, listAllowed, &confirmed, name, parent).exec();
    OwnerDimming::undim(parent);
    if (confirmed)
        *value = working;
    return confirmed;
}

void VelmoHUDDialogParamSetter::showToggle()
{
    useListData->setText(listOn ? tr("List") : tr("Custom"));
    colorButton(useListData, listOn ? ThemeKey::ApplyButton : ThemeKey::CompileButton);
    field->setEnabled(!listOn);
    // An invalid number holds the confirmation only while it is the value.
    confirmButton()->setEnabled(listOn || field->isValid());
}

void VelmoHUDDialogParamSetter::on_useListData_clicked()
{
    listOn = !listOn;
    showToggle();
}

void VelmoHUDDialogParamSetter::on_confirmButton_clicked()
{
    if (!listOn && !field->isValid())
        return;
    *value = listOn ? QJsonValue(true) : field->toJson();
    acceptChoice();
}

void VelmoHUDDialogParamSetter::on_cancelButton_clicked()
{
    reject();
}
