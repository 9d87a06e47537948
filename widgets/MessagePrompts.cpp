#include "widgets/MessagePrompts.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

namespace MessagePrompts {

void alert(QWidget* parent, const QString& title, const QString& text)
{
    QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Ok, parent);
    box.setObjectName(QStringLiteral("AlertDialog"));
    box.exec();
}

int askToSave(QWidget* parent, const QString& title, const QString& text)
{
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::NoButton, parent);
    box.setObjectName(QStringLiteral("ConfirmationDialog"));
    QPushButton* save = box.addButton(QCoreApplication::translate("", "Save"), QMessageBox::AcceptRole);
    QPushButton* dontSave = box.addButton(QCoreApplication::translate("", "Don't Save"), QMessageBox::DestructiveRole);
    QPushButton* cancel = box.addButton(QCoreApplication::translate("", "Cancel"), QMessageBox::RejectRole);
    save->setObjectName(QStringLiteral("saveButton"));
    dontSave->setObjectName(QStringLiteral("dontSaveButton"));
    cancel->setObjectName(QStringLiteral("cancelButton"));
    box.setDefaultButton(save);
    box.setEscapeButton(cancel);
    box.exec();
    if (box.clickedButton() == save)
        return Save;
    if (box.clickedButton() == dontSave)
        return DontSave;
    return Cancel;
}

bool confirm(QWidget* parent, const QString& title, const QString& text)
{
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No, parent);
    box.setObjectName(QStringLiteral("ConfirmationDialog"));
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

}
