#include "logic/VelmoAnimationStyle.h"

#include "logic/GameDataLabel.h"
#include "logic/RMCodeInput.h"
#include "logic/SwitchSelector.h"
#include "scene/UIComponentAnimationDialog.h"
#include "scene/UIComponentBaseDialog.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyPopup.h"
#include "widgets/MyDialogOpener.h"

namespace {

const char* const RunTypeNames[VelmoAnimationStyle::RunTypeCount] = {
    QT_TR_NOOP("Manual"),       QT_TR_NOOP("On Create"),
    QT_TR_NOOP("On Show/Hide"), QT_TR_NOOP("On Hover/Unhover"),
    QT_TR_NOOP("On Click/Release"),
};

// The property dialog of the component the animation belongs to, when the
// run type was opened from one.
UIComponentBaseDialog* componentDialogAbove(QWidget* widget)
{
    for (QWidget* up = widget; up; up = up->parentWidget()) {
        if (UIComponentBaseDialog* dialog = qobject_cast<UIComponentBaseDialog*>(up))
            return dialog;
    }
    return nullptr;
}

}

VelmoAnimationStyle::VelmoAnimationStyle(QJsonObject* object, bool* accepted, QJsonObject* projectData,
                                         QWidget* parent)
    : TypeTabDialog(accepted, parent), object(object), projectData(projectData)
{
    setObjectName(QStringLiteral("VelmoAnimationStyle"));
    const int type = object->value(QStringLiteral("Type")).toInt(Basic);

    BasicField = new MyComboBox();
    BasicField->setObjectName(QStringLiteral("Basic"));
    BasicField->setCaption(tr("Basic Run Type"));
    BasicField->setProperty("mtt_title", tr("Basic Run Type"));
    BasicField->setProperty("mtt_desc", tr("Basic options for running the animation."));
    for (int runType = 0; runType < RunTypeCount; ++runType)
        BasicField->addItem(runTypeName(runType), runType);
    BasicField->setCurrentIndex(OnCreate, false);
    SwitchField = makeOpener("Switch", tr("Switch"), tr("The switch to use."));
    CodeField = makeOpener("Code", tr("Code"), tr("Code for running the animation."));
    OtherField = makeOpener("Other", tr("Other Conditions"), tr("A list of conditions that control the animation."));
    addTypePage(tr("Basic"), BasicField);
    addTypePage(tr("Switch"), SwitchField);
    addTypePage(tr("Code"), CodeField);
    addTypePage(tr("Other"), OtherField);

    codeText = QStringLiteral("return false;");
    switch (type) {
    case Basic:
        BasicField->setCurrentIndex(qBound(0, object->value(QStringLiteral("RunType")).toInt(Manual), RunTypeCount - 1),
                                    false);
        break;
    case Switch:
        switchId = object->value(QStringLiteral("ID")).toInt(1);
        break;
    case Code:
        codeText = object->value(QStringLiteral("Code")).toString(codeText);
        break;
    case Other:
        otherConditions = object->value(QStringLiteral("Conditions")).toArray();
        break;
    }
    SwitchField->setValue(GameDataLabel::switchEntry(projectData, switchId));
    CodeField->setValue(RMCodeInput::singleLine(codeText));
    showOtherConditions();
    finishTabs(tr("Animation Run Type"), type, 440, 183);
}

void VelmoAnimationStyle::install(QJsonObject* projectData)
{
    if (!projectData) {
        UIComponentAnimationDialog::openRunType = nullptr;
        UIComponentAnimationDialog::runTypeText = nullptr;
        return;
    }
    UIComponentAnimationDialog::openRunType = [projectData](QJsonObject* activateType, QWidget* parent) {
        bool accepted = false;
        VelmoAnimationStyle(activateType, &accepted, projectData, parent).exec();
        return accepted;
    };
    UIComponentAnimationDialog::runTypeText = &VelmoAnimationStyle::display;
}

QString VelmoAnimationStyle::runTypeName(int runType)
{
    if (runType < 0 || runType >= RunTypeCount)
        return QString();
    return tr(RunTypeNames[runType]);
}

QString VelmoAnimationStyle::display(const QJsonObject& object)
{
    switch (object.value(QStringLiteral("Type")).toInt(Basic)) {
    case Switch:
        return tr("Switch: [%1]").arg(GameDataLabel::paddedId(object.value(QStringLiteral("ID")).toInt(0)));
    case Code:
        return tr("Code: %1").arg(RMCodeInput::singleLine(object.value(QStringLiteral("Code")).toString()));
    case Other:
        return tr("%1 Other Conditions").arg(object.value(QStringLiteral("Conditions")).toArray().size());
    default:
        return runTypeName(object.value(QStringLiteral("RunType")).toInt(Manual));
    }
}

void VelmoAnimationStyle::showOtherConditions()
{
    if (UIComponentBaseDialog::showConditions)
        UIComponentBaseDialog::showConditions(OtherField, otherConditions);
    else
        OtherField->setValue(display(QJsonObject{{QStringLiteral("Type"), Other},
                                                 {QStringLiteral("Conditions"), otherConditions}}));
}

void VelmoAnimationStyle::on_Switch_clicked()
{
    SwitchSelector::pick(SwitchField, &switchId, projectData, true, this);
}

void VelmoAnimationStyle::on_Code_clicked()
{
    RMCodeInput::pick(CodeField, &codeText, this);
}

void VelmoAnimationStyle::on_Other_clicked()
{
    if (UIComponentBaseDialog::openConditions)
        UIComponentBaseDialog::openConditions(componentDialogAbove(parentWidget()), OtherField, &otherConditions,
                                              this);
}

void VelmoAnimationStyle::on_confirmButton_clicked()
{
    const int type = currentType();
    QJsonObject result{{QStringLiteral("Type"), type}};
    switch (type) {
    case Switch:
        result.insert(QStringLiteral("ID"), switchId);
        break;
    case Code:
        result.insert(QStringLiteral("Code"), codeText);
        break;
    case Other:
        result.insert(QStringLiteral("Conditions"), otherConditions);
        break;
    default:
        result.insert(QStringLiteral("RunType"), BasicField->currentData());
        break;
    }
    *object = result;
    acceptChoice();
}

void VelmoAnimationStyle::on_cancelButton_clicked()
{
    reject();
}
