#include "app/VelmoHUDDialog.h"

#include "app/HudDocument.h"
#include "widgets/CustomTitleBar.h"
#include "widgets/MyEitherBox.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyLineEdit.h"

#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>

VelmoHUDDialog::VelmoHUDDialog(QJsonObject* object, bool* confirmed, int type, QWidget* parent)
    : TrovDialog(parent), object(object), confirmed(confirmed), type(type)
{
    setObjectName(QStringLiteral("VelmoHUDDialog"));
    if (confirmed)
        *confirmed = false;
    const FormFrame frame = layOutForm();
    CustomTitleBar* bar = frame.titleBar;
    QWidget* content = frame.content;
    QVBoxLayout* contentLayout = frame.contentLayout;

    MyGroupBox* group = new MyGroupBox(tr("HUD Settings"), content);
    QGridLayout* fields = new QGridLayout(group);
    fields->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 12, 14);
    fields->setHorizontalSpacing(10);
    fields->setVerticalSpacing(10);
    auto describe = [](QWidget* field, const QString& title, const QString& description) {
        field->setProperty("mtt_title", title);
        field->setProperty("mtt_desc", description);
    };
    Name = new MyLineEdit(group);
    Name->setObjectName(QStringLiteral("Name"));
    Name->setInputType(MyLineEdit::Text);
    Name->setCaption(tr("Name"));
    describe(Name, tr("Name"), tr("The name of the HUD."));
    Type = new MyEitherBox(group);
    Type->setObjectName(QStringLiteral("Type"));
    Type->setPlaceholder(tr("Type"));
    Type->setChoices(tr("Component"), tr("HUD"));
    describe(Type, tr("Type"), tr("Whether this is a HUD or component."));
    auto sizeField = [&](const char* name, const QString& caption, const QString& description, const QString& key) {
        MyLineEdit* field = new MyLineEdit(group);
        field->setObjectName(QLatin1String(name));
        field->setInputType(MyLineEdit::Integer);
        field->setCaption(caption);
        field->setRange(10, 5000);
        field->setValue(QString::number(object->value(key).toInt(300)));
        describe(field, caption, description);
        connect(field, &QLineEdit::textChanged, this, &VelmoHUDDialog::updateConfirm);
        return field;
    };
    Width = sizeField("Width", tr("Width"), tr("The width of the component."), HudDocument::KeyWidth);
    Height = sizeField("Height", tr("Height"), tr("The height of the component."), HudDocument::KeyHeight);
    fields->addWidget(Name, 0, 0, 1, 2);
    fields->addWidget(Type, 1, 0, 1, 2);
    fields->addWidget(Width, 2, 0);
    fields->addWidget(Height, 2, 1);
    contentLayout->addWidget(group);

    contentLayout->addLayout(confirmRow(content, confirmButton, cancelButton));

    // The Map and Battle HUDs keep their names and stay HUDs.
    if (type == HudEntry::Map || type == HudEntry::Battle) {
        Name->setValue(type == HudEntry::Map ? tr("Map HUD") : tr("Battle HUD"));
        Name->setEnabled(false);
        Type->setEnabled(false);
    } else {
        Name->setValue(object->value(HudDocument::KeyName).toString());
    }
    Type->setChoice(!object->value(HudDocument::KeyIsHud).toBool(true), true);
    QMetaObject::connectSlotsByName(this);
    on_Type_whenChoiceChanges();

    setCenterWidget(content);
    setTitleBar(bar);
    setConfirmButton(confirmButton);
    setDialogTitle(tr("HUD Dialog"));
    content->setMinimumWidth(340);
    adjustSize();
    fixSize();
}

bool VelmoHUDDialog::isHud() const
{
    return !Type->choice();
}

void VelmoHUDDialog::on_Type_whenChoiceChanges()
{
    Width->setEnabled(!isHud());
    Height->setEnabled(!isHud());
    updateConfirm();
}

void VelmoHUDDialog::on_Name_textChanged(const QString&)
{
    updateConfirm();
}

void VelmoHUDDialog::updateConfirm()
{
    confirmButton->setEnabled(!Name->text().isEmpty() && Width->isValid() && Height->isValid());
}

void VelmoHUDDialog::on_confirmButton_clicked()
{
    if (!confirmButton->isEnabled())
        return;
    QJsonObject result;
    if (type == HudEntry::Custom)
        result.insert(HudDocument::KeyName, Name->text());
    result.insert(HudDocument::KeyIsHud, isHud());
    if (!isHud()) {
        result.insert(HudDocument::KeyWidth, Width->text().toInt());
        result.insert(HudDocument::KeyHeight, Height->text().toInt());
    }
    for (const QString& key : {QStringLiteral("Params"), HudDocument::KeyBackground, HudDocument::KeyHud,
                               HudDocument::KeyId}) {
        if (object->contains(key))
            result.insert(key, object->value(key));
    }
    *object = result;
    if (confirmed)
        *confirmed = true;
    accept();
}

void VelmoHUDDialog::on_cancelButton_clicked()
{
    reject();
}
