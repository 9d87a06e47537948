#include "logic/CodeAddonDialog.h"

#include "logic/RMCodeInput.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyPopup.h"
#include "widgets/MyDialogOpener.h"

#include <QJsonObject>
#include <QPushButton>
#include <QVBoxLayout>

CodeAddonDialog::CodeAddonDialog(QJsonObject* object, bool* accepted, QWidget* parent)
    : PickerDialog(accepted, parent), object(object)
{
}

void CodeAddonDialog::addFields(const char* choiceName, const QString& caption, const QString& title,
                                const QString& hint)
{
    combo = new MyComboBox(content);
    combo->setObjectName(QLatin1String(choiceName));
    combo->setCaption(caption);
    combo->setProperty("mtt_title", title);
    combo->setProperty("mtt_desc", hint);
    Code = new MyDialogOpener(content);
    Code->setObjectName(QStringLiteral("Code"));
    Code->setTitle(tr("Custom Code"));
    Code->setProperty("mtt_title", tr("Custom Code"));
    Code->setProperty("mtt_desc", tr("The code called when behavior occurs."));
    contentLayout->addWidget(combo);
    contentLayout->addWidget(Code);
    contentLayout->addStretch(1);
}

void CodeAddonDialog::setCode(const QString& code)
{
    text = code;
    Code->setValue(RMCodeInput::singleLine(text));
}

void CodeAddonDialog::finishForm(const QString& title)
{
    addButtons(contentLayout);
    disconnect(cancelButton(), &QPushButton::clicked, this, &QDialog::reject);
    QMetaObject::connectSlotsByName(this);
    finish(title, QSize(380, sizeHint().height()));
}

void CodeAddonDialog::confirmAs(int type, const char* choiceKey, int value)
{
    *object = QJsonObject{
        {QStringLiteral("Type"), type}, {QLatin1String(choiceKey), value}, {QStringLiteral("Code"), text}};
    acceptChoice();
}

void CodeAddonDialog::on_Code_clicked()
{
    RMCodeInput::pick(Code, &text, this);
}

void CodeAddonDialog::on_cancelButton_clicked()
{
    reject();
}
