#include "logic/KindChooser.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/MyButton.h"
#include "widgets/MyGroupBox.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QJsonObject>
#include <QPushButton>
#include <QVBoxLayout>

KindChooser::KindChooser(QJsonObject* object, bool* accepted, QJsonObject* projectData, QWidget* parent)
    : TrovDialog(parent), object(object), projectData(projectData), accepted(accepted)
{
    if (accepted)
        *accepted = false;
}

void KindChooser::layOutKinds(const QString& groupTitle, const QVector<QVector<KindButton>>& columns, int typeCount,
                              const QString& closeText, const QString& dialogTitle)
{
    const FormFrame frame = layOutForm();
    MyGroupBox* group = new MyGroupBox(groupTitle, frame.content);
    group->setObjectName(QStringLiteral("groupBox"));
    QGridLayout* grid = new QGridLayout(group);
    grid->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 10, 10);
    grid->setHorizontalSpacing(9);
    grid->setVerticalSpacing(4);
    kindButtons.resize(typeCount);
    for (int column = 0; column < columns.size(); ++column) {
        for (int row = 0; row < columns[column].size(); ++row) {
            const KindButton& kind = columns[column][row];
            QPushButton* button = new QPushButton(QCoreApplication::translate("", kind.text), group);
            button->setObjectName(QLatin1String(kind.objectName));
            button->setCursor(Qt::PointingHandCursor);
            button->setFocusPolicy(Qt::NoFocus);
            button->setMinimumWidth(150);
            connect(button, &QPushButton::clicked, this, &KindChooser::whenCreateButtonClicked);
            grid->addWidget(button, row, column);
            kindButtons[kind.type] = button;
        }
    }
    frame.contentLayout->addWidget(group);

    cancelButton = new MyButton(frame.content);
    cancelButton->setObjectName(QStringLiteral("cancelButton"));
    cancelButton->setText(closeText);
    cancelButton->setButtonColor(themeColor(ThemeKey::CancelButton));
    frame.contentLayout->addWidget(cancelButton);
    QMetaObject::connectSlotsByName(this);

    setCenterWidget(frame.content);
    setTitleBar(frame.titleBar);
    setDialogTitle(dialogTitle);
    adjustSize();
    fixSize();
}

void KindChooser::whenCreateButtonClicked()
{
    const int type = kindButtons.indexOf(qobject_cast<QPushButton*>(sender()));
    if (type < 0)
        return;
    QJsonObject created;
    if (!runKindDialog(type, &created))
        return;
    *object = created;
    if (accepted)
        *accepted = true;
    close();
}

void KindChooser::on_cancelButton_clicked()
{
    close();
}
