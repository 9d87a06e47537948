#include "components/UIComponentAttachCollectionDialog.h"

#include "components/ComponentKinds.h"
#include "logic/RMCodeInput.h"
#include "widgets/MyButton.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPopup.h"

UIComponentAttachCollectionDialog::UIComponentAttachCollectionDialog(QJsonObject* json, bool* accepted, bool flag,
                                                                     QWidget* owner, QJsonObject* projectData)
    : UIComponentBaseDialog(flag, json->value(QStringLiteral("ID")).toInt(0),
                            ComponentKinds::capabilities(ComponentKinds::AttachCollection), owner, projectData),
      json(json),
      accepted(accepted),
      shared(layOut(json)),
      hud(shared, this, true)
{
    setObjectName(QStringLiteral("UIComponentAttachCollectionDialog"));
    const QJsonObject data = shared.dataObject();
    attachCollectionBox = shared.addPropertyBox(tr("Attach Collection Properties"), "attachCollectionBox");
    hud.addOpener(0, 0);
    CollectionType = shared.addChoice(
        "CollectionType",
        {QT_TR_NOOP("Attachment List"), QT_TR_NOOP("The list of objects the component attaches to.")},
        {tr("Party Characters"), tr("All Events"), tr("Party Battlers"), tr("Enemy Battlers"), tr("All Battlers")},
        data.value(QStringLiteral("List")), 0, 0, 1);
    PositionType = shared.addChoice(
        "PositionType",
        {QT_TR_NOOP("Position"), QT_TR_NOOP("The relative position the center of the component attaches.")},
        {tr("Top-Left"), tr("Top-Middle"), tr("Top-Right"), tr("Center-Left"), tr("Center"), tr("Center-Right"),
         tr("Bottom-Left"), tr("Bottom-Middle"), tr("Bottom-Right")},
        data.value(QStringLiteral("Position")), 1, 1, 0);
    ListData = shared.addChoice("ListData", {QT_TR_NOOP("List Data"), QT_TR_NOOP("The data retrieved from the list.")},
                                {tr("Indexes"), tr("IDs"), tr("Names"), tr("Notetags"), tr("Custom Code")},
                                data.value(QStringLiteral("Data")), 0, 1, 1);
    // The notetag's name and the code share one place: only one of them
    // means anything for a kind of data.
    NotetagInput = shared.addText("NotetagInput",
                                  {QT_TR_NOOP("Notetag Name"), QT_TR_NOOP("The name of the notetag.")}, QString(),
                                  data.value(QStringLiteral("Notetag")), 2, 0, 2);
    codeText = data.value(QStringLiteral("Code")).toString(QStringLiteral("// Use \"entity\" to access list item."));
    CodeInput = shared.addOpener("CodeInput",
                                 {QT_TR_NOOP("Custom Code"), QT_TR_NOOP("The code that retrieves the data.")}, 2, 0, 2);
    CodeInput->setValue(RMCodeInput::singleLine(codeText));
    groupBox_5 = hud.addTable();
    hud.load(data);
    on_ListData_whenChoiceChanges();
    shared.finish();
}

ComponentDialogForm UIComponentAttachCollectionDialog::layOut(QJsonObject* json)
{
    const FormFrame frame = layOutForm();
    return ComponentDialogForm(this, frame.titleBar, frame.content, frame.contentLayout, json,
                               ComponentKinds::AttachCollection, projectData);
}

void UIComponentAttachCollectionDialog::on_CustomComponent_clicked()
{
    hud.pickHud();
}

void UIComponentAttachCollectionDialog::on_ListData_whenChoiceChanges()
{
    const int kind = ListData->currentIndex();
    NotetagInput->setEnabled(false);
    NotetagInput->hide();
    CodeInput->hide();
    if (kind == CustomCode) {
        CodeInput->show();
    } else {
        NotetagInput->show();
        NotetagInput->setEnabled(kind == Notetags);
    }
}

void UIComponentAttachCollectionDialog::on_CodeInput_clicked()
{
    RMCodeInput::pick(CodeInput, &codeText, this);
}

void UIComponentAttachCollectionDialog::on_customParams_itemDoubleClicked(UltimateTreeItem* item, int)
{
    hud.editParam(item);
}

void UIComponentAttachCollectionDialog::on_confirmButton_clicked()
{
    if (!shared.confirmButton->isEnabled())
        return;
    if (accepted)
        *accepted = true;
    shared.applyCommonFields();
    QJsonObject data;
    hud.write(data);
    // "Data" is the choice as shown, since it decides which of the two
    // fields below is written.
    data.insert(QStringLiteral("Data"), ListData->currentIndex());
    data.insert(QStringLiteral("List"), shared.choiceOf(CollectionType));
    data.insert(QStringLiteral("Position"), shared.choiceOf(PositionType));
    if (ListData->currentIndex() == Notetags)
        data.insert(QStringLiteral("Notetag"), shared.numberOf(NotetagInput));
    else if (ListData->currentIndex() == CustomCode)
        data.insert(QStringLiteral("Code"), codeText);
    shared.writeDataObject(data);
    accept();
}

void UIComponentAttachCollectionDialog::on_cancelButton_clicked()
{
    reject();
}
