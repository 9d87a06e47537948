#include "logic/AddonSelector.h"

#include "logic/AddonTables.h"
#include "logic/OpenAddonDialog.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/MyButton.h"
#include "widgets/MyGroupBox.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QJsonObject>
#include <QPushButton>
#include <QVBoxLayout>

AddonSelector::AddonSelector(QJsonObject* object, bool* accepted, QJsonObject* projectData, int capabilities,
                             QWidget* parent)
    : TrovDialog(parent), object(object), accepted(accepted), projectData(projectData), capabilities(capabilities)
{
    setObjectName(QStringLiteral("AddonSelector"));
    if (accepted)
        *accepted = false;
    const FormFrame frame = layOutForm();
    MyGroupBox* group = new MyGroupBox(tr("Component Add-ons"), frame.content);
    group->setObjectName(QStringLiteral("groupBox"));
    QGridLayout* grid = new QGridLayout(group);
    grid->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 10, 10);
    grid->setHorizontalSpacing(9);
    grid->setVerticalSpacing(4);
    using namespace AddonTables;
    const int columns[2][3] = {{Note, Hover, CodeProperty}, {ColorFilter, Click, CodeBehavior}};
    kindButtons.resize(TypeCount);
    for (int column = 0; column < 2; ++column) {
        for (int row = 0; row < 3; ++row) {
            const Kind* kind = AddonTables::kind(columns[column][row]);
            QPushButton* button = new QPushButton(QCoreApplication::translate("", kind->button), group);
            button->setObjectName(QLatin1String(kind->objectName));
            button->setCursor(Qt::PointingHandCursor);
            button->setFocusPolicy(Qt::NoFocus);
            button->setMinimumWidth(150);
            connect(button, &QPushButton::clicked, this, &AddonSelector::whenCreateButtonClicked);
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
    setDialogTitle(tr("Component Add-on Selector"));
    adjustSize();
    fixSize();
}

void AddonSelector::whenCreateButtonClicked()
{
    const int type = kindButtons.indexOf(qobject_cast<QPushButton*>(sender()));
    if (type < 0)
        return;
    QJsonObject created{{QStringLiteral("Type"), type}};
    bool confirmed = false;
    openAddonDialog(&created, &confirmed, projectData, capabilities, this);
    if (!confirmed)
        return;
    *object = created;
    if (accepted)
        *accepted = true;
    close();
}

void AddonSelector::on_cancelButton_clicked()
{
    close();
}
