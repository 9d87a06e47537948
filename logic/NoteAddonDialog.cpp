#include "logic/NoteAddonDialog.h"

#include "logic/AddonTables.h"
#include "widgets/MyPlainTextEdit.h"

#include <QJsonObject>
#include <QPushButton>
#include <QVBoxLayout>

NoteAddonDialog::NoteAddonDialog(QJsonObject* object, bool* accepted, QJsonObject*, int, QWidget* parent)
    : PickerDialog(accepted, parent), object(object)
{
    setObjectName(QStringLiteral("NoteAddonDialog"));
    Note = new MyPlainTextEdit(content);
    Note->setObjectName(QStringLiteral("Note"));
    Note->setProperty("mtt_title", tr("Note"));
    Note->setProperty("mtt_desc", tr("A note for the developer; the game ignores it."));
    Note->setMinimumSize(380, 200);
    Note->setPlainText(object->value(QStringLiteral("Note")).toString());
    contentLayout->addWidget(Note, 1);
    addButtons(contentLayout);
    disconnect(cancelButton(), &QPushButton::clicked, this, &QDialog::reject);
    QMetaObject::connectSlotsByName(this);
    finish(tr("Notebox Input"));
    Note->setFocus();
}

void NoteAddonDialog::on_confirmButton_clicked()
{
    *object = QJsonObject{{QStringLiteral("Type"), AddonTables::Note}, {QStringLiteral("Note"), Note->toPlainText()}};
    acceptChoice();
}

void NoteAddonDialog::on_cancelButton_clicked()
{
    reject();
}
