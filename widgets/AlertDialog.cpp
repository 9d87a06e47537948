#include "widgets/AlertDialog.h"

#include "theme/ThemeKey.h"
#include "widgets/CustomTitleBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

AlertDialog::AlertDialog(const QString& text, const QString& title, QWidget* parent) : TrovDialog(parent)
{
    setObjectName(QStringLiteral("AlertDialog"));
    QVBoxLayout* verticalLayout = new QVBoxLayout(this);
    verticalLayout->setContentsMargins(0, 0, 0, 0);
    verticalLayout->setSpacing(0);
    CustomTitleBar* titleBar = new CustomTitleBar(this);
    verticalLayout->addWidget(titleBar);

    QWidget* content = new QWidget(this);
    content->setObjectName(QStringLiteral("content"));
    QVBoxLayout* contentLayout = new QVBoxLayout(content);
    contentLayout->setContentsMargins(14, 14, 14, 12);
    contentLayout->setSpacing(14);
    textLabel = new QLabel(content);
    textLabel->setObjectName(QStringLiteral("label"));
    textLabel->setTextFormat(Qt::RichText);
    textLabel->setWordWrap(true);
    textLabel->setAlignment(Qt::AlignCenter);
    textLabel->setMinimumWidth(280);
    textLabel->setText(text);
    contentLayout->addWidget(textLabel, 1);

    QHBoxLayout* buttons = new QHBoxLayout();
    ok = new QPushButton(tr("OK"), content);
    ok->setObjectName(QStringLiteral("okButton"));
    ok->setMinimumWidth(96);
    ok->setDefault(true);
    colorButton(ok, ThemeKey::ConfirmButton);
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addStretch();
    contentLayout->addLayout(buttons);
    verticalLayout->addWidget(content, 1);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);

    setCenterWidget(content);
    setTitleBar(titleBar);
    setDialogTitle(title);
    adjustSize();
    fixSize();
}

void AlertDialog::alert(const QString& text, const QString& title, QWidget* parent)
{
    AlertDialog dialog(text, title, parent);
    dialog.exec();
}

void AlertDialog::setErrorText(bool leftAligned)
{
    QFont font(QStringLiteral("Consolas"));
    font.setStyleHint(QFont::TypeWriter);
    font.setWeight(57);
    font.setPointSizeF(textLabel->font().pointSizeF() + 1);
    textLabel->setFont(font);
    if (leftAligned)
        textLabel->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}
