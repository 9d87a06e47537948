#include "app/VelmoComponentListHelp.h"

#include "theme/ThemeKey.h"
#include "widgets/MyGroupBox.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QList>
#include <QPair>
#include <QPushButton>
#include <QStringList>
#include <QVBoxLayout>

VelmoComponentListHelp::VelmoComponentListHelp(QWidget* parent) : TrovDialog(parent)
{
    setObjectName(QStringLiteral("VelmoComponentListHelp"));
    const FormFrame frame = layOutForm();
    QWidget* content = frame.content;
    MyGroupBox* group = new MyGroupBox(tr("Component List Controls"), content);
    group->setObjectName(QStringLiteral("groupBox"));
    QVBoxLayout* groupLayout = new QVBoxLayout(group);
    groupLayout->setContentsMargins(14, MyGroupBox::TitleHeight + 10, 14, 12);
    label = new QLabel(keyTable(), group);
    label->setObjectName(QStringLiteral("label"));
    label->setTextFormat(Qt::RichText);
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setWeight(57);
    label->setFont(fixed);
    groupLayout->addWidget(label);
    frame.contentLayout->addWidget(group);

    QHBoxLayout* foot = new QHBoxLayout();
    foot->addStretch();
    cancelButton = new QPushButton(tr("Close"), content);
    cancelButton->setObjectName(QStringLiteral("cancelButton"));
    cancelButton->setMinimumWidth(96);
    cancelButton->setDefault(true);
    colorButton(cancelButton, ThemeKey::CancelButton);
    foot->addWidget(cancelButton);
    frame.contentLayout->addLayout(foot);

    QMetaObject::connectSlotsByName(this);
    setCenterWidget(content);
    setTitleBar(frame.titleBar);
    setDialogTitle(tr("Component List Help"));
    adjustSize();
    fixSize();
}

QString VelmoComponentListHelp::keyTable()
{
    const QList<QPair<const char*, const char*>> lines{
        {QT_TR_NOOP("Move Items in List"), QT_TR_NOOP("RIGHT-CLICK + DRAG")},
        {QT_TR_NOOP("Refresh List"), QT_TR_NOOP("SHIFT + R")},
        {QT_TR_NOOP("Show/Hide Component"), QT_TR_NOOP("CTRL + Q")},
        {nullptr, nullptr},
        {QT_TR_NOOP("Copy Component"), QT_TR_NOOP("CTRL + C")},
        {QT_TR_NOOP("Cut Component"), QT_TR_NOOP("CTRL + X")},
        {QT_TR_NOOP("Paste Component"), QT_TR_NOOP("CTRL + V")},
        {QT_TR_NOOP("Delete Component"), QT_TR_NOOP("DEL")}};
    // Names padded with blanks so the keys stand in one column of the fixed face.
    int width = 0;
    for (const auto& line : lines)
        width = qMax(width, line.first ? tr(line.first).size() : 0);
    QStringList rows;
    for (const auto& line : lines) {
        const QString name = line.first ? tr(line.first) : QString();
        rows.append(line.first ? QStringLiteral("\u2022 %1%2%3")
                                     .arg(name.toHtmlEscaped(), QString(width - name.size() + 2, QLatin1Char(' ')),
                                          tr(line.second).toHtmlEscaped())
                               : QString());
    }
    return QStringLiteral("<pre>%1</pre>").arg(rows.join(QStringLiteral("<br>")));
}

void VelmoComponentListHelp::on_cancelButton_clicked()
{
    reject();
}
