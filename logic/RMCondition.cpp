#include "logic/RMCondition.h"

#include "logic/ConditionTables.h"
#include "logic/OpenConditionDialog.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/MyButton.h"
#include "widgets/MyGroupBox.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QJsonObject>
#include <QPushButton>
#include <QVBoxLayout>

RMCondition::RMCondition(QJsonObject* object, bool* accepted, QJsonObject* projectData, QWidget* parent)
    : TrovDialog(parent), object(object), accepted(accepted), projectData(projectData)
{
    setObjectName(QStringLiteral("RMCondition"));
    if (accepted)
        *accepted = false;
    const FormFrame frame = layOutForm();

    MyGroupBox* group = new MyGroupBox(tr("RPG Maker Conditions"), frame.content);
    group->setObjectName(QStringLiteral("groupBox"));
    QGridLayout* grid = new QGridLayout(group);
    grid->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 10, 10);
    grid->setHorizontalSpacing(9);
    grid->setVerticalSpacing(4);
    // The comparisons came last but stand above the code and the parameters.
    using namespace ConditionTables;
    const int columns[2][7] = {{Switch, Actor, Player, Button, NumberCompare, Other, CustomParamExists},
                               {Variable, Enemy, Gold, Inventory, TextCompare, Code, CustomParam}};
    kindButtons.resize(TypeCount);
    for (int column = 0; column < 2; ++column) {
        for (int row = 0; row < 7; ++row) {
            const Kind* kind = ConditionTables::kind(columns[column][row]);
            QPushButton* button = new QPushButton(QCoreApplication::translate("", kind->button), group);
            button->setObjectName(QLatin1String(kind->objectName));
            button->setCursor(Qt::PointingHandCursor);
            button->setFocusPolicy(Qt::NoFocus);
            button->setMinimumWidth(150);
            connect(button, &QPushButton::clicked, this, &RMCondition::whenCreateButtonClicked);
            grid->addWidget(button, row, column);
            kindButtons[kind->type] = button;
        }
    }
    frame.contentLayout->addWidget(group);

    cancelButton = new MyButton(frame.content);
    cancelButton->setObjectName(QStringLiteral("cancelButton"));
    cancelButton->setText(tr("Close"));
    cancelButton->setButtonColor(themeColor(ThemeKey::CancelButton));
    frame.contentLayout->addWidget(cancelButton);
    QMetaObject::connectSlotsByName(this);

    setCenterWidget(frame.content);
    setTitleBar(frame.titleBar);
    setDialogTitle(tr("RPG Maker Condition"));
    adjustSize();
    fixSize();
}

void RMCondition::whenCreateButtonClicked()
{
    const int type = kindButtons.indexOf(qobject_cast<QPushButton*>(sender()));
    if (type < 0)
        return;
    QJsonObject created = *object;
    created.insert(QStringLiteral("Type"), type);
    bool confirmed = false;
    openConditionDialog(&created, &confirmed, this, projectData);
    if (!confirmed)
        return;
    *object = created;
    if (accepted)
        *accepted = true;
    close();
}

void RMCondition::on_cancelButton_clicked()
{
    close();
}
