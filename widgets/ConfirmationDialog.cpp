#include "widgets/ConfirmationDialog.h"

#include "theme/ThemeKey.h"
#include "widgets/CustomTitleBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

ConfirmationDialog::ConfirmationDialog(const QStringList& lines, const QString& title, int* result, QWidget* parent,
                                       int mode, Qt::Alignment alignment)
    : ConfirmationDialog(lines.join(QStringLiteral("<br>")), title, result, parent, mode, alignment)
{
}

ConfirmationDialog::ConfirmationDialog(const QString& text, const QString& title, int* result, QWidget* parent,
                                       int mode, Qt::Alignment alignment)
    : TrovDialog(parent), result(result)
{
    setObjectName(QStringLiteral("ConfirmationDialog"));
    if (result)
        *result = 2;

    const MessageFrame frame = layOutMessage(text, alignment, 300);
    textLabel = frame.label;
    QWidget* content = frame.content;
    QVBoxLayout* contentLayout = frame.contentLayout;

    QHBoxLayout* buttons = new QHBoxLayout();
    buttons->setSpacing(8);
    confirmButton = new QPushButton(tr("Yes"), content);
    confirmButton->setObjectName(QStringLiteral("confirmButton"));
    cancelButton = new QPushButton(tr("No"), content);
    cancelButton->setObjectName(QStringLiteral("cancelButton"));
    endButton = new QPushButton(tr("Cancel"), content);
    endButton->setObjectName(QStringLiteral("endButton"));
    buttons->addStretch();
    for (QPushButton* button : {confirmButton, cancelButton, endButton}) {
        button->setMinimumWidth(84);
        buttons->addWidget(button);
    }
    buttons->addStretch();
    confirmButton->setDefault(true);
    colorButton(confirmButton, ThemeKey::ConfirmButton);
    colorButton(cancelButton, ThemeKey::CancelButton);
    if (mode == YesNo) {
        endButton->hide();
        buttons->removeWidget(endButton);
    }
    contentLayout->addLayout(buttons);
    QMetaObject::connectSlotsByName(this);

    setCenterWidget(content);
    setTitleBar(frame.titleBar);
    setConfirmButton(confirmButton);
    setDialogTitle(title);
    adjustSize();
    fixSize();
}

void ConfirmationDialog::answer(int value)
{
    if (result)
        *result = value;
    close();
}

void ConfirmationDialog::on_confirmButton_clicked()
{
    answer(0);
}

void ConfirmationDialog::on_cancelButton_clicked()
{
    answer(1);
}

void ConfirmationDialog::on_endButton_clicked()
{
    answer(2);
}
