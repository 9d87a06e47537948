#include "components/VelmoUISelector.h"

#include "components/ComponentKinds.h"
#include "components/GameUIEditorSceneHelper.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/CustomTitleBar.h"
#include "widgets/MyButton.h"
#include "widgets/MyGroupBox.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// The property dialogs of the registry, for a selector run without a helper.
GameUIEditorSceneHelperBase* registryHelper()
{
    static GameUIEditorSceneHelper<VelmoUISelector> helper;
    return &helper;
}

}

VelmoUISelector::VelmoUISelector(QJsonObject* json, bool* accepted, int id, bool flag, QJsonObject* projectData,
                                 TrovDialog* parentDialog, GameUIEditorSceneHelperBase* helper)
    // Without a dialog to open over, the selector stands over the window the
    // user works in.
    : TrovDialog(parentDialog ? static_cast<QWidget*>(parentDialog) : QApplication::activeWindow()),
      json(json),
      accepted(accepted),
      id(id),
      flag(flag),
      projectData(projectData),
      helper(helper ? helper : registryHelper())
{
    setObjectName(QStringLiteral("VelmoUISelector"));
    setWindowTitle(QStringLiteral("Dialog"));
    resize(370, 352);
    const FormFrame frame = layOutForm();
    titleBar = frame.titleBar;
    QWidget* content = frame.content;
    QVBoxLayout* boxes = frame.contentLayout;

    kindButtons.resize(ComponentKinds::all().size());
    // Each box holds two columns of buttons, named and labelled by the kind table.
    auto box = [this, content, boxes](const char* objectName, const QString& title,
                               std::initializer_list<std::initializer_list<int>> columns) {
        MyGroupBox* group = new MyGroupBox(title, content);
        group->setObjectName(QLatin1String(objectName));
        QHBoxLayout* row = new QHBoxLayout(group);
        row->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 10, 10);
        row->setSpacing(9);
        for (const std::initializer_list<int>& types : columns) {
            QVBoxLayout* column = new QVBoxLayout();
            column->setSpacing(4);
            for (const int type : types) {
                const ComponentKinds::Kind* kind = ComponentKinds::find(type);
                QPushButton* button = new QPushButton(ComponentKinds::label(type), group);
                button->setObjectName(QLatin1String(kind->button));
                button->setCursor(Qt::PointingHandCursor);
                button->setFocusPolicy(Qt::NoFocus);
                connect(button, &QPushButton::clicked, this, &VelmoUISelector::whenCreateButtonClicked);
                column->addWidget(button);
                kindButtons[type] = button;
            }
            row->addLayout(column);
        }
        boxes->addWidget(group);
        return group;
    };
    using namespace ComponentKinds;
    groupBox_2 = box("groupBox_2", tr("UI Components"),
                     {{Text, Shape, ActorFace, Icon, Group}, {Picture, RepeatingPicture, Gauge, PictureGauge, Window}});
    proCompsBox =
        box("proCompsBox", tr("Pro UI Components"), {{Custom, Animation}, {CustomCollection, AttachCollection}});
    text = kindButtons[Text];
    shape = kindButtons[Shape];
    picture = kindButtons[Picture];
    repeatingPicture = kindButtons[RepeatingPicture];
    gauge = kindButtons[Gauge];
    pictureGauge = kindButtons[PictureGauge];
    container = kindButtons[Group];
    window = kindButtons[Window];
    actorFace = kindButtons[ActorFace];
    icon = kindButtons[Icon];
    custom = kindButtons[Custom];
    customCollection = kindButtons[CustomCollection];
    attachCollection = kindButtons[AttachCollection];
    animation = kindButtons[Animation];
    for (QPushButton* wide : {container, window, animation})
        wide->setMinimumWidth(148);

    cancelButton = new MyButton(content);
    cancelButton->setObjectName(QStringLiteral("cancelButton"));
    cancelButton->setText(tr("Close"));
    cancelButton->setButtonColor(themeColor(ThemeKey::CancelButton));
    boxes->addWidget(cancelButton);
    QMetaObject::connectSlotsByName(this);

    setCenterWidget(content);
    setTitleBar(titleBar);
    setDialogTitle(tr("HUD Component Selector"));
    // The form's size, unless its buttons need more in the language and the
    // fonts at hand.
    resize(qMax(width(), minimumSizeHint().width()), qMax(255, minimumSizeHint().height()));
    fixSize();
}

void VelmoUISelector::on_cancelButton_clicked()
{
    close();
}

void VelmoUISelector::whenCreateButtonClicked()
{
    QObject* button = sender();
    QJsonObject created = *json;
    created.insert(QStringLiteral("ID"), id + 1);
    const int type = kindButtons.indexOf(qobject_cast<QPushButton*>(button));
    if (type < 0)
        return;
    created.insert(QStringLiteral("Type"), type);
    bool confirmed = false;
    helper->editComponent(created, &confirmed, this, nullptr, flag, projectData);
    if (!confirmed)
        return;
    *json = created;
    if (accepted)
        *accepted = true;
    close();
}
