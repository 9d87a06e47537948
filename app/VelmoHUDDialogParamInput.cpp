#include "app/VelmoHUDDialogParamInput.h"

#include "widgets/MyEitherBox.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyLineEdit.h"

#include <QHBoxLayout>
#include <QPushButton>

VelmoHUDDialogParamInput::VelmoHUDDialogParamInput(QJsonObject* object, bool* confirmed, QStringList* usedNames,
                                                   QWidget* parent)
    : PickerDialog(confirmed, parent), object(object), usedNames(usedNames),
      ownName(object->value(QStringLiteral("Name")).toString())
{
    setObjectName(QStringLiteral("VelmoHUDDialogParamInput"));
    MyGroupBox* group = new MyGroupBox(tr("Custom Parameter"), content);
    group->setObjectName(QStringLiteral("paramBox"));
    QHBoxLayout* row = new QHBoxLayout(group);
    row->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 12, 14);
    row->setSpacing(10);

    ParamName = new MyLineEdit(group);
    ParamName->setObjectName(QStringLiteral("ParamName"));
    ParamName->setInputType(MyLineEdit::Text);
    ParamName->setCaption(tr("Parameter Name"));
    ParamName->setProperty("mtt_title", tr("Parameter Name"));
    ParamName->setProperty("mtt_desc", tr("The name of the parameter."));
    ParamName->setValue(ownName);
    ParamName->setPostProcess([this](const QString& text) { return repairedName(text); });
    row->addWidget(ParamName, 1);

    NumOrString = new MyEitherBox(group);
    NumOrString->setObjectName(QStringLiteral("NumOrString"));
    NumOrString->setPlaceholder(tr("Type"));
    NumOrString->setProperty("mtt_title", tr("Type"));
    NumOrString->setProperty("mtt_desc", tr("The parameter type."));
    NumOrString->setChoices(tr("Text"), tr("Number"));
    NumOrString->setChoice(object->value(QStringLiteral("IsString")).toBool(false), true);
    NumOrString->setMinimumWidth(140);
    row->addWidget(NumOrString);
    contentLayout->addWidget(group);

    addButtons(contentLayout);
    // Cancel has a slot of its own.
    disconnect(cancelButton(), &QPushButton::clicked, this, &QDialog::reject);
    QMetaObject::connectSlotsByName(this);
    on_ParamName_textChanged(ParamName->text());
    content->setMinimumWidth(380);
    finish(tr("Custom Parameter Dialog"));
}

bool VelmoHUDDialogParamInput::isInUse(const QString& name) const
{
    return !name.isEmpty() && name != ownName && usedNames && usedNames->contains(name);
}

QString VelmoHUDDialogParamInput::repairedName(const QString& name) const
{
    if (!name.isEmpty() && !isInUse(name))
        return name;
    QString candidate;
    for (int number = 2;; ++number) {
        candidate = tr("%1 (%2)").arg(name).arg(number);
        if (!isInUse(candidate))
            return candidate;
    }
}

void VelmoHUDDialogParamInput::on_ParamName_textChanged(const QString& text)
{
    const bool inUse = isInUse(text);
    ParamName->setWarningText(inUse ? tr("Name already in use!") : QString());
    confirmButton()->setEnabled(!text.isEmpty() && !inUse);
}

void VelmoHUDDialogParamInput::on_confirmButton_clicked()
{
    if (!confirmButton()->isEnabled())
        return;
    *object = QJsonObject{{QStringLiteral("Name"), ParamName->text()},
                          {QStringLiteral("IsString"), NumOrString->choice()}};
    acceptChoice();
}

void VelmoHUDDialogParamInput::on_cancelButton_clicked()
{
    reject();
}
