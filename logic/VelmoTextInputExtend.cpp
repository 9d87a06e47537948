#include "logic/VelmoTextInputExtend.h"

#include "logic/GameDataLabel.h"
#include "logic/RMCodeInput.h"
#include "logic/SwitchSelector.h"
#include "widgets/MyButton.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyLineEdit.h"
#include "widgets/OwnerDimming.h"

VelmoTextInputExtend::VelmoTextInputExtend(QJsonObject* object, bool* accepted, bool* removed,
                                           QJsonObject* projectData, bool numeric, QWidget* parent)
    : TypeTabDialog(accepted, parent), object(object), removed(removed), projectData(projectData)
{
    setObjectName(QStringLiteral("VelmoTextInputExtend"));
    if (removed)
        *removed = false;
    const int type = object->value(QStringLiteral("Type")).toInt(Param);

    ParamName = new MyLineEdit();
    ParamName->setObjectName(QStringLiteral("ParamName"));
    ParamName->setInputType(MyLineEdit::Text);
    ParamName->setCaption(tr("Param Name"));
    ParamName->setProperty("mtt_title", tr("Param Name"));
    ParamName->setProperty("mtt_desc", tr("Name of custom parameter to use."));
    VariableField = makeOpener("Variable", tr("Variable"), tr("The variable to use."));
    CodeField = makeOpener("Code", tr("Code"), tr("Code for creating the value."));
    addTypePage(tr("Param"), ParamName);
    addTypePage(tr("Variable"), VariableField);
    addTypePage(tr("Code"), CodeField);

    ParamName->setValue(object->value(QStringLiteral("Param")).toString());
    variableId = object->value(QStringLiteral("ID")).toInt(1);
    codeText = object->value(QStringLiteral("Code")).toString(defaultCode(numeric));
    VariableField->setValue(GameDataLabel::variableEntry(projectData, variableId));
    CodeField->setValue(RMCodeInput::singleLine(codeText));

    normalizeButton = new MyButton(tr("Normalize"));
    normalizeButton->setObjectName(QStringLiteral("normalizeButton"));
    normalizeButton->setProperty("mtt_title", tr("Normalize"));
    normalizeButton->setProperty("mtt_desc", tr("Returns the field to a plain value."));
    finishTabs(tr("Dynamic Input"), type, 420, 0, normalizeButton);
}

QString VelmoTextInputExtend::defaultCode(bool numeric)
{
    return numeric ? QStringLiteral("return 0;") : QStringLiteral("return \"\";");
}

QString VelmoTextInputExtend::display(const QJsonObject& object)
{
    switch (object.value(QStringLiteral("Type")).toInt(Param)) {
    case Variable:
        return tr("Variable: [%1]").arg(GameDataLabel::paddedId(object.value(QStringLiteral("ID")).toInt(0)));
    case Code:
        return tr("Code: %1").arg(RMCodeInput::singleLine(object.value(QStringLiteral("Code")).toString()));
    default:
        return tr("Param: %1").arg(object.value(QStringLiteral("Param")).toString());
    }
}

void VelmoTextInputExtend::install(QJsonObject* projectData)
{
    MyLineEditExtensionHandler handler;
    handler.display = &VelmoTextInputExtend::display;
    handler.open = [projectData](QJsonObject& data, QWidget* parent, int inputType, bool& removed) {
        bool accepted = false;
        OwnerDimming::dim(parent);
        VelmoTextInputExtend(&data, &accepted, &removed, projectData, inputType != MyLineEdit::Text, parent).exec();
        OwnerDimming::undim(parent);
        return accepted;
    };
    // Kind 0 is the dynamic input wherever it was registered from.
    QVector<MyLineEditExtensionHandler>& handlers = MyLineEdit::extensionHandlers();
    if (handlers.isEmpty())
        handlers.append(handler);
    else
        handlers[0] = handler;
}

void VelmoTextInputExtend::on_Variable_clicked()
{
    SwitchSelector::pick(VariableField, &variableId, projectData, false, this);
}

void VelmoTextInputExtend::on_Code_clicked()
{
    RMCodeInput::pick(CodeField, &codeText, this);
}

void VelmoTextInputExtend::on_normalizeButton_clicked()
{
    if (removed)
        *removed = true;
    reject();
}

void VelmoTextInputExtend::on_confirmButton_clicked()
{
    const int type = currentType();
    QJsonObject result{{QStringLiteral("Type"), type}};
    switch (type) {
    case Variable:
        result.insert(QStringLiteral("ID"), variableId);
        break;
    case Code:
        result.insert(QStringLiteral("Code"), codeText);
        break;
    default:
        result.insert(QStringLiteral("Param"), ParamName->text());
        break;
    }
    *object = result;
    acceptChoice();
}

void VelmoTextInputExtend::on_cancelButton_clicked()
{
    reject();
}
