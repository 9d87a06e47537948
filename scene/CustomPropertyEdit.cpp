#include "scene/CustomPropertyEdit.h"

#include "widgets/HaxeCodeEdit.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/OwnerDimming.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

CustomPropertyEdit::CustomPropertyEdit(QString* name, QString* value, const QStringList& takenNames, bool* accepted,
                                       QWidget* parent)
    : PickerDialog(accepted, parent), name(name), value(value), ownName(*name), takenNames(takenNames)
{
    setObjectName(QStringLiteral("CustomPropertyEdit"));

    MyGroupBox* propertyGroup = new MyGroupBox(tr("Property"), content);
    propertyGroup->setObjectName(QStringLiteral("propertyGroup"));
    QVBoxLayout* propertyLayout = new QVBoxLayout(propertyGroup);
    propertyLayout->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 10, 10);
    Property_Name = new MyLineEdit(propertyGroup);
    Property_Name->setObjectName(QStringLiteral("Property_Name"));
    Property_Name->setInputType(MyLineEdit::Text);
    Property_Name->setCaption(tr("Name"));
    Property_Name->setProperty("mtt_title", tr("Name"));
    Property_Name->setProperty("mtt_desc", tr("The name of the property."));
    propertyLayout->addWidget(Property_Name);
    contentLayout->addWidget(propertyGroup);

    MyGroupBox* contentsGroup = new MyGroupBox(tr("Property Contents"), content);
    contentsGroup->setObjectName(QStringLiteral("contentsGroup"));
    QVBoxLayout* contentsLayout = new QVBoxLayout(contentsGroup);
    contentsLayout->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 10, 10);
    contents = new HaxeCodeEdit(contentsGroup);
    contents->setObjectName(QStringLiteral("contents"));
    contents->setLanguageMode(HaxeCodeEdit::PlainText);
    contentsLayout->addWidget(contents);
    contentLayout->addWidget(contentsGroup, 1);

    QHBoxLayout* buttons = new QHBoxLayout();
    addButtons(buttons);
    contentLayout->addLayout(buttons);

    Property_Name->setValue(*name);
    contents->setPlainText(*value);
    shownValue = contents->toPlainText();

    disconnect(cancelButton(), &QPushButton::clicked, this, &QDialog::reject);
    QMetaObject::connectSlotsByName(this);
    on_Property_Name_textChanged(Property_Name->text());
    finish(tr("Custom Property"), QSize(400, 360));
    Property_Name->setFocus();
}

bool CustomPropertyEdit::edit(QString* name, QString* value, const QStringList& takenNames, QWidget* owner)
{
    bool accepted = false;
    OwnerDimming::dim(owner);
    CustomPropertyEdit(name, value, takenNames, &accepted, owner).exec();
    OwnerDimming::undim(owner);
    return accepted;
}

void CustomPropertyEdit::on_Property_Name_textChanged(const QString& arg1)
{
    const bool taken = arg1 != ownName && takenNames.contains(arg1);
    Property_Name->setWarningText(taken ? tr("Property already exists!") : QString());
    confirmButton()->setEnabled(!arg1.isEmpty() && !taken);
}

void CustomPropertyEdit::on_confirmButton_clicked()
{
    // Ctrl+Return reaches here with the button disabled, too.
    if (!confirmButton()->isEnabled())
        return;
    *name = Property_Name->text();
    // The editor shows "\r\n" as one break and gives back "\n": a value
    // left as it was keeps its own line ends.
    if (contents->toPlainText() != shownValue)
        *value = contents->toPlainText();
    acceptChoice();
}

void CustomPropertyEdit::on_cancelButton_clicked()
{
    reject();
}
