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
    const MessageFrame frame = layOutMessage(text, Qt::AlignCenter, 280);
    textLabel = frame.label;
    QWidget* content = frame.content;
    QVBoxLayout* contentLayout = frame.contentLayout;

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
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);

    setCenterWidget(content);
    setTitleBar(frame.titleBar);
    setDialogTitle(title);
    adjustSize();
    fixSize();
}

void AlertDialog::alert(const QString& text, const QString& title, QWidget* parent)
{
    AlertDialog dialog(text, title, parent);
    dialog.exec();
}

void AlertDialog::alert(const QString& text, const QStringList& details, const QString& title, QWidget* parent)
{
    QString message = text;
    for (const QString& detail : details) {
        if (!detail.isEmpty())
            message += QStringLiteral("<br>") + detail.toHtmlEscaped();
    }
    alert(message, title, parent);
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
