#include "logic/DynamicValueSelector.h"

#include "logic/DynamicValueDisplay.h"
#include "logic/DynamicValueTables.h"
#include "logic/GameDataLabel.h"
#include "logic/RMCodeInput.h"
#include "logic/RMDatabaseItemSelector.h"
#include "logic/RMListSelector.h"
#include "logic/RMNumberSelector.h"
#include "logic/RMTextSelector.h"
#include "logic/SwitchSelector.h"
#include "scene/UIComponentBaseDialog.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyEitherBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/MyTabSystem.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// The "Type" of each tab in public order: the top row (Plain, General,
// Switch, Variable, Item Count), then the bottom row (Actor Data, Enemy
// Data, Math, List, Code).
const int TabTypes[] = {0, 1, 2, 3, 6, 4, 5, 8, 9, 7};
const int TabCount = 10;

const int DialogWidth = 640;
// The height the dialog asks for; the form keeps it from collapsing further.
const int DialogHeight = 202;
const int OperatorWidth = 110;

const char* const DatabaseFiles[] = {"Items.json", "Weapons.json", "Armors.json"};

void fillInfo(MyComboBox* combo, const QVector<DynamicValueTables::InfoRow>& rows, bool text, int section = -1)
{
    for (const DynamicValueTables::InfoRow& row : rows) {
        if ((row.textOnly && !text) || (section >= 0 && DynamicValueTables::generalSection(row.value) != section))
            continue;
        combo->addItem(QCoreApplication::translate("", row.label), row.value);
    }
    combo->setCurrentIndex(0, false);
}

// The row of an "Info"; a value the combo doesn't have leaves it on its
// last row.
void selectInfo(MyComboBox* combo, int info)
{
    for (int i = 0; i < combo->count(); ++i) {
        if (combo->getData(i).toInt() == info) {
            combo->setCurrentIndex(i, false);
            return;
        }
    }
    combo->setCurrentIndex(combo->count() - 1, false);
}

}

int DynamicValueSelector::typeOfTab(int tab)
{
    return tab >= 0 && tab < TabCount ? TabTypes[tab] : 0;
}

int DynamicValueSelector::tabOfType(int type)
{
    for (int tab = 0; tab < TabCount; ++tab) {
        if (TabTypes[tab] == type)
            return tab;
    }
    return 0;
}

DynamicValueSelector::DynamicValueSelector(QJsonObject* object, bool* accepted, QJsonObject* projectData,
                                           bool numeric, QWidget* parent)
    : TypeTabDialog(accepted, parent), object(object), projectData(projectData), numeric(numeric),
      code(numeric ? QStringLiteral("return 0;") : QStringLiteral("return \"\";"))
{
    tabs()->enableTwoRows();
    buildPages();
    setUpFields();
    read();
    showPickers();
    finishTabs(numeric ? tr("Dynamic Number Input") : tr("Dynamic Text Input"),
               tabOfType(object->value(QStringLiteral("Type")).toInt(0)), DialogWidth, DialogHeight);
    connect(tabs(), &MyTabSystem::currentChanged, this, &DynamicValueSelector::updateConfirm);
    updateConfirm();
}

QWidget* DynamicValueSelector::page(const QVector<QWidget*>& fields, QWidget* narrow)
{
    QWidget* page = new QWidget();
    QVBoxLayout* column = new QVBoxLayout(page);
    column->setContentsMargins(8, 10, 8, 8);
    QHBoxLayout* row = new QHBoxLayout();
    row->setSpacing(10);
    for (QWidget* field : fields)
        row->addWidget(field, field == narrow ? 0 : 1);
    // An operator's word is short; the values beside it need the room.
    if (narrow)
        narrow->setFixedWidth(OperatorWidth);
    column->addLayout(row);
    column->addStretch();
    return page;
}

MyLineEdit* DynamicValueSelector::lineEdit(const char* name, const QString& caption, const QString& hint,
                                           bool integer)
{
    MyLineEdit* field = new MyLineEdit();
    field->setObjectName(QLatin1String(name));
    field->setInputType(integer ? MyLineEdit::Integer : MyLineEdit::Text);
    field->setCaption(caption);
    field->setProperty("mtt_title", caption);
    field->setProperty("mtt_desc", hint);
    if (integer)
        field->setValidityListener([this](bool) { updateConfirm(); });
    return field;
}

MyComboBox* DynamicValueSelector::comboBox(const char* name, const QString& caption, const QString& hint)
{
    MyComboBox* combo = new MyComboBox();
    combo->setObjectName(QLatin1String(name));
    combo->setCaption(caption);
    combo->setProperty("mtt_title", caption);
    combo->setProperty("mtt_desc", hint);
    return combo;
}

MyEitherBox* DynamicValueSelector::eitherBox(const char* name, const QString& caption, const QString& hint,
                                             const QString& first, const QString& second)
{
    MyEitherBox* box = new MyEitherBox();
    box->setObjectName(QLatin1String(name));
    box->setPlaceholder(caption);
    box->setProperty("mtt_title", caption);
    box->setProperty("mtt_desc", hint);
    box->setChoices(first, second);
    box->setChoice(true, true);
    return box;
}

void DynamicValueSelector::buildPages()
{
    plain = numeric ? lineEdit("Number", tr("Number"), tr("Normal number that doesn't change."), true)
                    : lineEdit("Text", tr("Plain Text"), tr("Normal text that doesn't change."), false);

    section = comboBox("Section", tr("Section"), tr("The info section."));
    mapData = comboBox("MapData", tr("Map Data"), tr("The map data to use."));
    playerData = comboBox("PlayerData", tr("Player Data"), tr("The player data to use."));
    metaData = comboBox("MetaData", tr("Meta Data"), tr("The meta data to use."));

    switchField = makeOpener("Switch", tr("Switch"), tr("The switch to use."));
    if (numeric) {
        onValue = lineEdit("OnNum", tr("On Number"), tr("The number to use if the switch is ON."), true);
        offValue = lineEdit("OffNum", tr("Off Number"), tr("The number to use if the switch is OFF."), true);
    } else {
        onValue = lineEdit("OnText", tr("On Text"), tr("The text to use if the switch is ON."), false);
        offValue = lineEdit("OffText", tr("Off Text"), tr("The text to use if the switch is OFF."), false);
    }
    variableField = makeOpener("Variable", tr("Variable"), tr("The variable to use."));

    actorType = eitherBox("ActorType", tr("Actor Type"), tr("The actor type to check."), tr("Any Actor"),
                          tr("Party Member"));
    partyIndex = lineEdit("PartyIndex", tr("Party Position"), tr("The position of the actor in the party (#1 - #4)."),
                          true);
    databaseActors = makeOpener("DatabaseActors", tr("Actor"), tr("The actor ID to use."));
    actorInfo = comboBox("ActorInfo", tr("Actor Info"), tr("The actor info to use."));
    enemyType = eitherBox("EnemyType", tr("Enemy Type"), tr("The enemy type to check."), tr("Any Enemy"),
                          tr("Troop Member"));
    troopIndex = lineEdit("TroopIndex", tr("Troop Position"), tr("The position of the enemy in the troop."), true);
    databaseEnemies = makeOpener("DatabaseEnemies", tr("Enemy"), tr("The enemy ID to use."));
    enemyInfo = comboBox("EnemyInfo", tr("Enemy Info"), tr("The enemy info to use."));

    inventory = comboBox("Inventory", tr("Condition"), tr("What to check the actor with."));
    itemCount = makeOpener("ItemCount", tr("Item"), tr("The item count to use."));
    weaponCount = makeOpener("WeaponCount", tr("Weapon"), tr("The weapon count to use."));
    armorCount = makeOpener("ArmorCount", tr("Armor"), tr("The armor count to use."));

    firstMath = makeOpener("FirstMath", tr("First Number"), tr("The first number in the operation."));
    mathOperator = comboBox("MathOperator", tr("Op."), tr("The operator used on the numbers."));
    mathOperator->setProperty("mtt_title", tr("Math Operator"));
    secondMath = makeOpener("SecondMath", tr("Second Number"), tr("The second number in the operation."));

    list = makeOpener("List", tr("List"), tr("The list used in the operation."));
    listOperator = comboBox("ListOperator", tr("Op."), tr("The operation used to construct the number."));
    listOperator->setProperty("mtt_title", tr("List Operator"));
    listOffset = lineEdit("ListOffset", tr("Freq."),
                          tr("The duration each number in the list is presented before changing."), true);
    listOffset->setProperty("mtt_title", tr("Change Frequency"));

    codeField = makeOpener("Code", tr("Code"),
                           numeric ? tr("Code for creating the number.") : tr("Code for creating the text."));
    display = lineEdit("Display", tr("Placeholder Text"), tr("The placeholder text displayed in the editor."), false);

    // Added alternately to the two rows: the top row reads Plain, General,
    // Switch, Variable, Item Count.
    MyTabSystem* system = tabs();
    system->addTab(numeric ? tr("Plain Number") : tr("Plain Text"), page({plain}));
    system->addTab(tr("Actor Data"), page({actorType, partyIndex, databaseActors, actorInfo}));
    system->addTab(tr("General"), page({section, mapData, playerData, metaData}));
    system->addTab(tr("Enemy Data"), page({enemyType, troopIndex, databaseEnemies, enemyInfo}));
    system->addTab(tr("Switch"), page({switchField, onValue, offValue}));
    system->addTab(tr("Math"), page({firstMath, mathOperator, secondMath}, mathOperator));
    system->addTab(tr("Variable"), page({variableField}));
    system->addTab(tr("List"), page({list, listOperator, listOffset}, listOperator));
    system->addTab(tr("Item Count"), page({inventory, itemCount, weaponCount, armorCount}));
    system->addTab(tr("Code"), page({codeField, display}));
}

void DynamicValueSelector::setUpFields()
{
    plain->setExtendable(numeric ? QStringLiteral("0") : QString(), 0, this);
    if (numeric) {
        for (MyLineEdit* field : {plain, onValue, offValue})
            field->setNumberField(-999999, 999999, 7, nullptr, new QIntValidator(-9999999, 9999999, field));
    }
    plain->setValue(numeric ? QStringLiteral("0") : QString());
    onValue->setExtendable(numeric ? QStringLiteral("0") : QStringLiteral("ON"), 0, this);
    onValue->setValue(numeric ? QStringLiteral("0") : QStringLiteral("ON"));
    offValue->setExtendable(numeric ? QStringLiteral("0") : QStringLiteral("OFF"), 0, this);
    offValue->setValue(numeric ? QStringLiteral("0") : QStringLiteral("OFF"));

    section->addItem(tr("Map Data"), 0);
    section->addItem(tr("Player Data"), 1);
    section->addItem(tr("Meta Data"), 2);
    section->setCurrentIndex(0, false);
    fillInfo(mapData, DynamicValueTables::generalInfo(), !numeric, 0);
    fillInfo(playerData, DynamicValueTables::generalInfo(), !numeric, 1);
    fillInfo(metaData, DynamicValueTables::generalInfo(), !numeric, 2);

    for (MyLineEdit* index : {partyIndex, troopIndex}) {
        index->setNumberField(1, 500, 4, nullptr, new QIntValidator(0, 9999, index));
        index->setExtendable(QStringLiteral("1"), 0, this);
        index->setValue(QStringLiteral("1"));
    }
    fillInfo(actorInfo, DynamicValueTables::actorInfo(), !numeric);
    fillInfo(enemyInfo, DynamicValueTables::enemyInfo(), !numeric);
    actorInfo->setMaxVisibleRows(8);
    enemyInfo->setMaxVisibleRows(8);

    inventory->addItem(tr("Item Count"), 0);
    inventory->addItem(tr("Weapon Count"), 1);
    inventory->addItem(tr("Armor Count"), 2);
    inventory->setCurrentIndex(0, false);

    const QVector<const char*>& math = DynamicValueTables::mathOperators();
    for (int op = 0; op < math.size(); ++op)
        mathOperator->addItem(QLatin1String(math.at(op)), op);
    mathOperator->setCurrentIndex(0, false);
    mathOperator->setMaxVisibleRows(8);
    const QVector<const char*>& operations = DynamicValueTables::listOperators();
    for (int op = 0; op < operations.size(); ++op)
        listOperator->addItem(QLatin1String(operations.at(op)), op);
    listOperator->setCurrentIndex(0, false);
    listOffset->setNumberField(1, 99999, 6, nullptr, new QIntValidator(0, 99999999, listOffset));
    listOffset->setExtendable(QStringLiteral("60"), 0, this);
    listOffset->setValue(QStringLiteral("60"));

    display->setValue(QStringLiteral("(code)"));
}

void DynamicValueSelector::read()
{
    const QJsonObject& value = *object;
    const int type = value.value(QStringLiteral("Type")).toInt(0);
    switch (type) {
    case 0:
        plain->fromJson(value.value(numeric ? QStringLiteral("Number") : QStringLiteral("Text")));
        break;
    case 1: {
        const int info = value.value(QStringLiteral("Info")).toInt(0);
        if (info > 299)
            break;
        const int chosen = DynamicValueTables::generalSection(info);
        section->setCurrentIndex(chosen, false);
        (chosen == 0 ? mapData : chosen == 1 ? playerData : metaData)->selectByData(info);
        break;
    }
    case 2:
        switchId = value.value(QStringLiteral("ID")).toInt(1);
        if (numeric) {
            offValue->fromJson(value.value(QStringLiteral("OffNum")));
            onValue->fromJson(value.value(QStringLiteral("OnNum")));
        } else {
            offValue->fromJson(value.value(QStringLiteral("OffText")), 0, 0, QStringLiteral("OFF"));
            onValue->fromJson(value.value(QStringLiteral("OnText")), 0, 0, QStringLiteral("ON"));
        }
        break;
    case 3:
        variableId = value.value(QStringLiteral("ID")).toInt(1);
        break;
    case 4:
    case 5: {
        const bool actor = type == 4;
        const bool any = value.value(actor ? QStringLiteral("ActorType") : QStringLiteral("EnemyType")).toBool(false);
        (actor ? actorType : enemyType)->setChoice(any, true);
        if (any)
            (actor ? actorId : enemyId) = value.value(QStringLiteral("ID")).toInt(1);
        else
            (actor ? partyIndex : troopIndex)->fromJson(value.value(QStringLiteral("Index")), 1);
        selectInfo(actor ? actorInfo : enemyInfo, value.value(QStringLiteral("Info")).toInt(0));
        break;
    }
    case 6: {
        const int itemType = value.value(QStringLiteral("ItemType")).toInt(0);
        if (itemType < 0 || itemType > 2)
            break;
        inventory->setCurrentIndex(itemType, false);
        int* ids[] = {&itemId, &weaponId, &armorId};
        *ids[itemType] = value.value(QStringLiteral("ID")).toInt(1);
        break;
    }
    case 7:
        code = value.value(QStringLiteral("Code")).toString();
        display->fromJson(value.value(QStringLiteral("Display")), 0, 0, QStringLiteral("(code)"));
        break;
    case 8:
        if (value.value(QStringLiteral("FirstNum")).isObject())
            firstNum = value.value(QStringLiteral("FirstNum")).toObject();
        if (value.value(QStringLiteral("SecondNum")).isObject())
            secondNum = value.value(QStringLiteral("SecondNum")).toObject();
        mathOperator->setCurrentIndex(value.value(QStringLiteral("Op")).toInt(0), false);
        break;
    case 9: {
        if (value.value(QStringLiteral("ListData")).isObject())
            listData = value.value(QStringLiteral("ListData")).toObject();
        const int op = value.value(QStringLiteral("Op")).toInt(0);
        listOperator->setCurrentIndex(op, false);
        if (op != 0)
            listOffset->fromJson(value.value(QStringLiteral("Frequency")), 60);
        break;
    }
    default:
        break;
    }
    on_Section_whenChoiceChanges();
    on_Inventory_whenChoiceChanges();
    on_ActorType_whenChoiceChanges();
    on_EnemyType_whenChoiceChanges();
    on_MathOperator_whenChoiceChanges();
    on_ListOperator_whenChoiceChanges();
}

void DynamicValueSelector::showPickers()
{
    switchField->setValue(GameDataLabel::switchEntry(projectData, switchId));
    variableField->setValue(GameDataLabel::variableEntry(projectData, variableId));
    databaseActors->setValue(GameDataLabel::databaseEntry(projectData, QStringLiteral("Actors.json"), actorId));
    databaseEnemies->setValue(GameDataLabel::databaseEntry(projectData, QStringLiteral("Enemies.json"), enemyId));
    const int ids[] = {itemId, weaponId, armorId};
    MyDialogOpener* counts[] = {itemCount, weaponCount, armorCount};
    for (int i = 0; i < 3; ++i)
        counts[i]->setValue(GameDataLabel::databaseEntry(projectData, QLatin1String(DatabaseFiles[i]), ids[i]));
    codeField->setValue(RMCodeInput::singleLine(code));
    showDynamicNumber(firstMath, firstNum, projectData);
    showDynamicNumber(secondMath, secondNum, projectData);
    RMListSelector::showList(list, listData, projectData);
}

void DynamicValueSelector::on_Switch_clicked()
{
    SwitchSelector::pick(switchField, &switchId, projectData, true, this);
}

void DynamicValueSelector::on_Variable_clicked()
{
    SwitchSelector::pick(variableField, &variableId, projectData, false, this);
}

void DynamicValueSelector::on_Section_whenChoiceChanges()
{
    const int chosen = section->currentIndex();
    mapData->setVisible(chosen == 0);
    playerData->setVisible(chosen == 1);
    metaData->setVisible(chosen != 0 && chosen != 1);
    update();
}

void DynamicValueSelector::on_Inventory_whenChoiceChanges()
{
    const int chosen = inventory->currentIndex();
    itemCount->setVisible(chosen == 0);
    weaponCount->setVisible(chosen == 1);
    armorCount->setVisible(chosen == 2);
    update();
}

void DynamicValueSelector::on_ActorType_whenChoiceChanges()
{
    databaseActors->setVisible(actorType->choice());
    partyIndex->setVisible(!actorType->choice());
    updateConfirm();
}

void DynamicValueSelector::on_EnemyType_whenChoiceChanges()
{
    databaseEnemies->setVisible(enemyType->choice());
    troopIndex->setVisible(!enemyType->choice());
    updateConfirm();
}

void DynamicValueSelector::on_DatabaseActors_clicked()
{
    RMDatabaseItemSelector::pick(databaseActors, &actorId, projectData, QStringLiteral("Actors.json"), tr("Actor"),
                                 this);
}

void DynamicValueSelector::on_DatabaseEnemies_clicked()
{
    RMDatabaseItemSelector::pick(databaseEnemies, &enemyId, projectData, QStringLiteral("Enemies.json"),
                                 tr("Enemy"), this);
}

void DynamicValueSelector::on_ItemCount_clicked()
{
    RMDatabaseItemSelector::pick(itemCount, &itemId, projectData, QLatin1String(DatabaseFiles[0]), tr("Item"), this);
}

void DynamicValueSelector::on_WeaponCount_clicked()
{
    RMDatabaseItemSelector::pick(weaponCount, &weaponId, projectData, QLatin1String(DatabaseFiles[1]), tr("Weapon"),
                                 this);
}

void DynamicValueSelector::on_ArmorCount_clicked()
{
    RMDatabaseItemSelector::pick(armorCount, &armorId, projectData, QLatin1String(DatabaseFiles[2]), tr("Armor"),
                                 this);
}

void DynamicValueSelector::on_Code_clicked()
{
    RMCodeInput::pick(codeField, &code, this);
}

void DynamicValueSelector::on_List_clicked()
{
    RMListSelector::pick(list, &listData, projectData, this);
}

void DynamicValueSelector::on_FirstMath_clicked()
{
    RMNumberSelector::pick(firstMath, &firstNum, projectData, this);
}

void DynamicValueSelector::on_SecondMath_clicked()
{
    RMNumberSelector::pick(secondMath, &secondNum, projectData, this);
}

void DynamicValueSelector::on_MathOperator_whenChoiceChanges()
{
    // The operators from "Sqrt." on take one number.
    secondMath->setEnabled(mathOperator->currentIndex() < DynamicValueTables::SqrtOperator);
}

void DynamicValueSelector::on_ListOperator_whenChoiceChanges()
{
    // A sum shows all numbers at once, so it has no frequency.
    listOffset->setEnabled(listOperator->currentIndex() != 0);
    updateConfirm();
}

void DynamicValueSelector::updateConfirm()
{
    QPushButton* confirm = confirmButton();
    QWidget* current = tabs()->page(tabs()->currentIndex());
    if (!confirm || !current)
        return;
    bool valid = true;
    for (const MyLineEdit* field : current->findChildren<MyLineEdit*>()) {
        if (field->isEnabled() && !field->isHidden() && !field->isValid())
            valid = false;
    }
    confirm->setEnabled(valid);
}

QJsonObject DynamicValueSelector::result() const
{
    const int type = typeOfTab(tabs()->currentIndex());
    QJsonObject value{{QStringLiteral("Type"), type}};
    switch (type) {
    case 0:
        value.insert(numeric ? QStringLiteral("Number") : QStringLiteral("Text"), plain->toJson());
        break;
    case 1: {
        const int chosen = section->currentIndex();
        value.insert(QStringLiteral("Info"),
                     (chosen == 0 ? mapData : chosen == 1 ? playerData : metaData)->currentData());
        break;
    }
    case 2:
        value.insert(QStringLiteral("ID"), switchId);
        value.insert(numeric ? QStringLiteral("OffNum") : QStringLiteral("OffText"), offValue->toJson());
        value.insert(numeric ? QStringLiteral("OnNum") : QStringLiteral("OnText"), onValue->toJson());
        break;
    case 3:
        value.insert(QStringLiteral("ID"), variableId);
        break;
    case 4:
    case 5: {
        const bool actor = type == 4;
        const bool any = (actor ? actorType : enemyType)->choice();
        value.insert(actor ? QStringLiteral("ActorType") : QStringLiteral("EnemyType"), any);
        if (any)
            value.insert(QStringLiteral("ID"), actor ? actorId : enemyId);
        else
            value.insert(QStringLiteral("Index"), (actor ? partyIndex : troopIndex)->toJson());
        value.insert(QStringLiteral("Info"), (actor ? actorInfo : enemyInfo)->currentData());
        break;
    }
    case 6: {
        const int itemType = inventory->currentIndex();
        const int ids[] = {itemId, weaponId, armorId};
        value.insert(QStringLiteral("ItemType"), itemType);
        value.insert(QStringLiteral("ID"), itemType >= 0 && itemType <= 2 ? ids[itemType] : 0);
        break;
    }
    case 7:
        value.insert(QStringLiteral("Code"), code);
        value.insert(QStringLiteral("Display"), display->text());
        break;
    case 8:
        value.insert(QStringLiteral("FirstNum"), firstNum);
        value.insert(QStringLiteral("SecondNum"), secondNum);
        value.insert(QStringLiteral("Op"), mathOperator->currentIndex());
        break;
    default: {
        const int op = listOperator->currentIndex();
        value.insert(QStringLiteral("ListData"), listData);
        value.insert(QStringLiteral("Op"), op);
        if (op != 0)
            value.insert(QStringLiteral("Frequency"), listOffset->toJson());
        break;
    }
    }
    return value;
}

void DynamicValueSelector::on_confirmButton_clicked()
{
    if (!confirmButton()->isEnabled())
        return;
    *object = result();
    acceptChoice();
}

void DynamicValueSelector::on_cancelButton_clicked()
{
    reject();
}

void DynamicValueSelector::picked(MyDialogOpener* opener, QJsonObject* value, const QJsonObject& result,
                                  QJsonObject* projectData, bool numeric)
{
    *value = result;
    if (!opener)
        return;
    if (numeric)
        showDynamicNumber(opener, result, projectData);
    else
        showDynamicText(opener, result, projectData);
    opener->confirm();
}

void DynamicValueSelector::install(QJsonObject* projectData)
{
    if (!projectData) {
        UIComponentBaseDialog::openDynamicValue = nullptr;
        UIComponentBaseDialog::showDynamicValue = nullptr;
        return;
    }
    UIComponentBaseDialog::openDynamicValue = [projectData](MyDialogOpener* opener, QJsonObject* value, bool numeric,
                                                            QWidget* parentDialog) {
        return numeric ? RMNumberSelector::pick(opener, value, projectData, parentDialog)
                       : RMTextSelector::pick(opener, value, projectData, parentDialog);
    };
    UIComponentBaseDialog::showDynamicValue = [projectData](MyDialogOpener* opener, const QJsonObject& value,
                                                            bool numeric) {
        if (numeric)
            showDynamicNumber(opener, value, projectData);
        else
            showDynamicText(opener, value, projectData);
    };
}
