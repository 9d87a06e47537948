#include "widgets/PickerDialog.h"

#include "widgets/CustomTitleBar.h"

#include <QPushButton>
#include <QVBoxLayout>

PickerDialog::PickerDialog(bool* accepted, QWidget* parent) : TrovDialog(parent), accepted(accepted)
{
    if (accepted)
        *accepted = false;
    QVBoxLayout* verticalLayout = new QVBoxLayout(this);
    verticalLayout->setContentsMargins(0, 0, 0, 0);
    verticalLayout->setSpacing(0);
    bar = new CustomTitleBar(this);
    verticalLayout->addWidget(bar);
    content = new QWidget(this);
    content->setObjectName(QStringLiteral("content"));
    verticalLayout->addWidget(content, 1);
    contentLayout = new QVBoxLayout(content);
    contentLayout->setContentsMargins(14, 14, 14, 12);
    contentLayout->setSpacing(12);
}

void PickerDialog::addButtons(QBoxLayout* layout)
{
    layout->addLayout(confirmRow(content, confirm, cancel));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void PickerDialog::finish(const QString& title, const QSize& size)
{
    setCenterWidget(content);
    setTitleBar(bar);
    setConfirmButton(confirm);
    setDialogTitle(title);
    if (size.isValid())
        resize(size);
    else
        adjustSize();
    fixSize();
}

void PickerDialog::acceptChoice()
{
    if (accepted)
        *accepted = true;
    accept();
}
