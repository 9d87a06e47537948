#include "logic/RMListSelector.h"

#include "logic/DynamicValueDisplay.h"
#include "logic/DynamicValueTables.h"
#include "logic/GameDataLabel.h"
#include "logic/RMCodeInput.h"
#include "logic/SwitchSelector.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/MyTabSystem.h"
#include "widgets/OwnerDimming.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// The tabs in the order of their "Type": the top row Number List,
// Variable Range, Basic, Items; the bottom row Actor, Enemy, Combined, Code.
enum ListType { NumberList, VariableRange, Basic, Items, Actor, Enemy, Combined, Code };

// Wide enough for three fields of a page in the longer languages.
const int DialogWidth = 720;

// "Data" of a list of members that carries a position, and one that reads
// a notetag; "Data" of a list of items that reads a notetag.
const int BasicPositions = 3;
const int BasicNotetags = 4;
const int ItemNotetags = 5;

// The first choice of an actor's or an enemy's list, and what it packs into
// "Data": three rows each for skills, equips, states and buffs, then the
// params and the notetags, then the remaining turns of states and buffs.
enum BattlerChoice { Skills, Equips, States, Buffs, Params, Notetags };
const int FirstParamData = 12;
const int NotetagData = 15;
const int StateTurnsData = 16;
const int BuffTurnsData = 17;
const int TurnsRow = 3;

const QVector<const char*>& basicData()
{
    static const QVector<const char*> rows = {QT_TR_NOOP("Indexes"), QT_TR_NOOP("IDs"), QT_TR_NOOP("Names"),
                                              QT_TR_NOOP("Positions"), QT_TR_NOOP("Notetag Datas")};
    return rows;
}

const QVector<const char*>& positions()
{
    static const QVector<const char*> rows = {QT_TR_NOOP("Top"),  QT_TR_NOOP("Middle"), QT_TR_NOOP("Bottom"),
                                              QT_TR_NOOP("Left"), QT_TR_NOOP("Center"), QT_TR_NOOP("Right")};
    return rows;
}

const QVector<const char*>& itemData()
{
    static const QVector<const char*> rows = {QT_TR_NOOP("IDs"),          QT_TR_NOOP("Names"),
                                              QT_TR_NOOP("Amounts"),      QT_TR_NOOP("Icon Indexes"),
                                              QT_TR_NOOP("Price"),        QT_TR_NOOP("Notetag Datas")};
    return rows;
}

const QVector<const char*>& battlerChoices()
{
    static const QVector<const char*> rows = {QT_TR_NOOP("Skills"), QT_TR_NOOP("Equips"), QT_TR_NOOP("States"),
                                              QT_TR_NOOP("Buffs"),  QT_TR_NOOP("Params"), QT_TR_NOOP("Notetag Datas")};
    return rows;
}

const QVector<const char*>& battlerKinds()
{
    static const QVector<const char*> rows = {QT_TR_NOOP("IDs"), QT_TR_NOOP("Names"), QT_TR_NOOP("Icon Indexes")};
    return rows;
}

const QVector<const char*>& battlerStates()
{
    static const QVector<const char*> rows = {QT_TR_NOOP("IDs"), QT_TR_NOOP("Names"), QT_TR_NOOP("Icon Indexes"),
                                              QT_TR_NOOP("Remaining Turns")};
    return rows;
}

const QVector<const char*>& paramTypes()
{
    static const QVector<const char*> rows = {QT_TR_NOOP("Params"), QT_TR_NOOP("EX-Params"),
                                              QT_TR_NOOP("SP-Params")};
    return rows;
}

}

RMListSelector::RMListSelector(QJsonObject* object, bool* accepted, QJsonObject* projectData, QWidget* parent)
    : TypeTabDialog(accepted, parent), object(object), projectData(projectData)
{
    setObjectName(QStringLiteral("RMListSelector"));
    tabs()->enableTwoRows();
    buildPages();
    read();
    showOpeners();
    // The least height the form needs: every page is a single row of fields.
    finishTabs(tr("List Input"), object->value(QStringLiteral("Type")).toInt(0), DialogWidth, 10);
    connect(tabs(), &MyTabSystem::currentChanged, this, &RMListSelector::updateConfirm);
    updateConfirm();
}

bool RMListSelector::pick(MyDialogOpener* opener, QJsonObject* value, QJsonObject* projectData, QWidget* parent)
{
    QJsonObject copy = *value;
    bool accepted = false;
    OwnerDimming::dim(parent);
    RMListSelector(&copy, &accepted, projectData, parent).exec();
    OwnerDimming::undim(parent);
    if (!accepted)
        return false;
    *value = copy;
    if (opener) {
        showList(opener, *value, projectData);
        opener->confirm();
    }
    return true;
}

void RMListSelector::showList(MyDialogOpener* opener, const QJsonObject& value, const QJsonObject* projectData)
{
    opener->setValue(dynamicListDisplay(value, projectData));
    opener->setItalic(false);
}

int RMListSelector::battlerData(int first, int row)
{
    if (first > Params)
        return NotetagData;
    if (first == Params)
        return FirstParamData + row;
    if ((first == States || first == Buffs) && row == TurnsRow)
        return first == States ? StateTurnsData : BuffTurnsData;
    return 3 * first + row;
}

QWidget* RMListSelector::page(const QVector<QWidget*>& fields)
{
    QWidget* page = new QWidget();
    QVBoxLayout* column = new QVBoxLayout(page);
    column->setContentsMargins(8, 10, 8, 8);
    QHBoxLayout* row = new QHBoxLayout();
    row->setSpacing(10);
    for (QWidget* field : fields)
        row->addWidget(field, 1);
    column->addLayout(row);
    column->addStretch();
    return page;
}

MyLineEdit* RMListSelector::lineEdit(const char* name, const QString& caption, const QString& hint, bool integer)
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

MyComboBox* RMListSelector::comboBox(const char* name, const QString& caption, const QString& hint,
                                     const QVector<const char*>& rows)
{
    MyComboBox* combo = new MyComboBox();
    combo->setObjectName(QLatin1String(name));
    combo->setCaption(caption);
    combo->setProperty("mtt_title", caption);
    combo->setProperty("mtt_desc", hint);
    for (int row = 0; row < rows.size(); ++row)
        combo->addItem(QCoreApplication::translate("", rows.at(row)), row);
    combo->setCurrentIndex(0, false);
    return combo;
}

RMListSelector::Battler RMListSelector::battler(bool isActor)
{
    Battler fields;
    if (isActor) {
        fields.index = lineEdit("PartyIndex", tr("Party Position"),
                                tr("The position of the actor in the party (#1 - #4)."), true);
        fields.first = comboBox("ActorData1", tr("Actor Data"), tr("The data used from the actor."), battlerChoices());
    } else {
        fields.index = lineEdit("TroopIndex", tr("Troop Position"), tr("The position of the enemy in the troop."), true);
        fields.first = comboBox("EnemyData1", tr("Enemy Data"), tr("The data used from the enemy."), battlerChoices());
    }
    fields.index->setNumberField(1, 500, 4, nullptr, new QIntValidator(0, 9999, fields.index));
    fields.index->setExtendable(QStringLiteral("1"), 0, this);
    fields.index->setValue(QStringLiteral("1"));
    fields.kinds = comboBox(isActor ? "ActorData2" : "EnemyData2", tr("Data Type"), tr("The type of data used."),
                            battlerKinds());
    fields.states = comboBox(isActor ? "ActorStateData" : "EnemyStateData", tr("Data Type"),
                             tr("The type of data used."), battlerStates());
    fields.params = comboBox(isActor ? "ParamType" : "EnemyParamType", tr("Param Type"),
                             tr("The type of params listed."), paramTypes());
    fields.note = lineEdit(isActor ? "ActorNote" : "EnemyNote", tr("Notetag Name"), tr("The name of the notetag."),
                           false);
    return fields;
}

void RMListSelector::buildPages()
{
    minNumber = lineEdit("MinNumber", tr("Starting Number"), tr("The starting number of the list."), true);
    maxNumber = lineEdit("MaxNumber", tr("Ending Number"), tr("The number that ends the list."), true);
    for (MyLineEdit* bound : {minNumber, maxNumber}) {
        const QString initial = bound == minNumber ? QStringLiteral("0") : QStringLiteral("5");
        bound->setNumberField(-999999, 999999, 7, nullptr, new QIntValidator(-99999999, 99999999, bound));
        bound->setExtendable(initial, 0, this);
        bound->setValue(initial);
    }

    startVariableField = makeOpener("StartVariable", tr("Starting Variable"), tr("The starting variable of the list."));
    endVariableField = makeOpener("EndVariable", tr("Ending Variable"), tr("The variable that ends the list."));

    memberType = comboBox("MemberType", tr("Members Source"), tr("The source of the member list."),
                          DynamicValueTables::listMembers());
    basicData = comboBox("BasicData", tr("Member Data"), tr("The data used from the members."), ::basicData());
    positionType = comboBox("PositionType", tr("Position Type"), tr("The position used."), positions());
    basicNote = lineEdit("BasicNote", tr("Notetag Name"), tr("The name of the notetag."), false);

    itemType = comboBox("ItemType", tr("Item Type"), tr("The type of items listed."),
                        DynamicValueTables::listItemTypes());
    itemData = comboBox("ItemData", tr("Item Data"), tr("The data used from the items."), ::itemData());
    itemNote = lineEdit("ItemNote", tr("Notetag Name"), tr("The name of the notetag."), false);

    actor = battler(true);
    enemy = battler(false);

    startList = makeOpener("StartList", tr("First List"), tr("The first list to be combined."));
    endList = makeOpener("EndList", tr("Second List"), tr("The list appended to the first list."));
    codeField = makeOpener("Code", tr("Code"), tr("Code for creating the list."));

    // Added alternately to the two rows, so that the tab's index is "Type".
    MyTabSystem* system = tabs();
    system->addTab(tr("Number List"), page({minNumber, maxNumber}));
    system->addTab(tr("Actor"), page({actor.index, actor.first, actor.kinds, actor.states, actor.params, actor.note}));
    system->addTab(tr("Variable Range"), page({startVariableField, endVariableField}));
    system->addTab(tr("Enemy"), page({enemy.index, enemy.first, enemy.kinds, enemy.states, enemy.params, enemy.note}));
    system->addTab(tr("Basic"), page({memberType, basicData, positionType, basicNote}));
    system->addTab(tr("Combined"), page({startList, endList}));
    system->addTab(tr("Items"), page({itemType, itemData, itemNote}));
    system->addTab(tr("Code"), page({codeField}));
}

void RMListSelector::read()
{
    const QJsonObject& value = *object;
    switch (value.value(QStringLiteral("Type")).toInt(0)) {
    case NumberList:
        // A bound the value lacks keeps the field's own start.
        if (value.contains(QStringLiteral("Start")))
            minNumber->fromJson(value.value(QStringLiteral("Start")));
        if (value.contains(QStringLiteral("End")))
            maxNumber->fromJson(value.value(QStringLiteral("End")), 5);
        break;
    case VariableRange:
        startVariable = value.value(QStringLiteral("Start")).toInt(1);
        endVariable = value.value(QStringLiteral("End")).toInt(2);
        break;
    case Basic: {
        memberType->setCurrentIndex(value.value(QStringLiteral("MembersType")).toInt(0), false);
        const int data = value.value(QStringLiteral("Data")).toInt(0);
        basicData->setCurrentIndex(data, false);
        if (data == BasicPositions)
            positionType->setCurrentIndex(value.value(QStringLiteral("Position")).toInt(0), false);
        else if (data == BasicNotetags)
            basicNote->setValue(value.value(QStringLiteral("Notetag")).toString());
        break;
    }
    case Items: {
        itemType->setCurrentIndex(value.value(QStringLiteral("ItemType")).toInt(0), false);
        const int data = value.value(QStringLiteral("Data")).toInt(0);
        itemData->setCurrentIndex(data, false);
        if (data == ItemNotetags)
            itemNote->setValue(value.value(QStringLiteral("Notetag")).toString());
        break;
    }
    case Actor:
        readBattler(actor, value);
        break;
    case Enemy:
        readBattler(enemy, value);
        break;
    case Combined:
        if (value.value(QStringLiteral("List1")).isObject())
            list1 = value.value(QStringLiteral("List1")).toObject();
        if (value.value(QStringLiteral("List2")).isObject())
            list2 = value.value(QStringLiteral("List2")).toObject();
        break;
    case Code:
        code = value.value(QStringLiteral("Code")).toString();
        break;
    default:
        break;
    }
    on_BasicData_whenChoiceChanges();
    on_ItemData_whenChoiceChanges();
    showBattler(actor);
    showBattler(enemy);
}

void RMListSelector::readBattler(const Battler& fields, const QJsonObject& value)
{
    fields.index->fromJson(value.value(QStringLiteral("Index")), 1);
    const int data = value.value(QStringLiteral("Data")).toInt(0);
    if (data >= 0 && data < FirstParamData) {
        fields.first->setCurrentIndex(data / 3, false);
        // Only the states' rows go to the combo that shows for them; a buff
        // reopens with its row in the hidden combo, as it always has.
        (data / 3 == States ? fields.states : fields.kinds)->setCurrentIndex(data % 3, false);
    } else if (data < NotetagData && data >= FirstParamData) {
        fields.first->setCurrentIndex(Params, false);
        fields.params->setCurrentIndex(data - FirstParamData, false);
    } else if (data == NotetagData) {
        fields.first->setCurrentIndex(Notetags, false);
        fields.note->setValue(value.value(QStringLiteral("Notetag")).toString());
    } else if (data == StateTurnsData || data == BuffTurnsData) {
        fields.first->setCurrentIndex(data == StateTurnsData ? States : Buffs, false);
        fields.states->setCurrentIndex(TurnsRow, false);
    }
}

void RMListSelector::showBattler(const Battler& fields)
{
    const int first = fields.first->currentIndex();
    fields.kinds->setVisible(first == Skills || first == Equips);
    fields.states->setVisible(first == States || first == Buffs);
    fields.params->setVisible(first == Params);
    fields.note->setVisible(first == Notetags);
    update();
}

void RMListSelector::showOpeners()
{
    startVariableField->setValue(GameDataLabel::variableEntry(projectData, startVariable));
    endVariableField->setValue(GameDataLabel::variableEntry(projectData, endVariable));
    showList(startList, list1, projectData);
    showList(endList, list2, projectData);
    codeField->setValue(RMCodeInput::singleLine(code));
}

void RMListSelector::on_BasicData_whenChoiceChanges()
{
    positionType->setVisible(basicData->currentIndex() == BasicPositions);
    basicNote->setVisible(basicData->currentIndex() == BasicNotetags);
    update();
}

void RMListSelector::on_ItemData_whenChoiceChanges()
{
    itemNote->setVisible(itemData->currentIndex() == ItemNotetags);
    update();
}

void RMListSelector::on_ActorData1_whenChoiceChanges()
{
    showBattler(actor);
}

void RMListSelector::on_EnemyData1_whenChoiceChanges()
{
    showBattler(enemy);
}

void RMListSelector::on_StartVariable_clicked()
{
    SwitchSelector::pick(startVariableField, &startVariable, projectData, false, this);
}

void RMListSelector::on_EndVariable_clicked()
{
    SwitchSelector::pick(endVariableField, &endVariable, projectData, false, this);
}

void RMListSelector::on_StartList_clicked()
{
    pick(startList, &list1, projectData, this);
}

void RMListSelector::on_EndList_clicked()
{
    pick(endList, &list2, projectData, this);
}

void RMListSelector::on_Code_clicked()
{
    RMCodeInput::pick(codeField, &code, this);
}

void RMListSelector::updateConfirm()
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

void RMListSelector::writeBattler(const Battler& fields, QJsonObject& value) const
{
    const int first = fields.first->currentIndex();
    const MyComboBox* dependent = first == Skills || first == Equips ? fields.kinds
                                  : first == States || first == Buffs ? fields.states
                                                                      : fields.params;
    value.insert(QStringLiteral("Index"), fields.index->toJson());
    value.insert(QStringLiteral("Data"), battlerData(first, dependent->currentIndex()));
    if (first == Notetags)
        value.insert(QStringLiteral("Notetag"), fields.note->text());
}

QJsonObject RMListSelector::result() const
{
    const int type = currentType();
    QJsonObject value{{QStringLiteral("Type"), type}};
    switch (type) {
    case NumberList:
        value.insert(QStringLiteral("Start"), minNumber->toJson());
        value.insert(QStringLiteral("End"), maxNumber->toJson());
        break;
    case VariableRange:
        value.insert(QStringLiteral("Start"), startVariable);
        value.insert(QStringLiteral("End"), endVariable);
        break;
    case Basic: {
        const int data = basicData->currentIndex();
        value.insert(QStringLiteral("MembersType"), memberType->currentIndex());
        value.insert(QStringLiteral("Data"), data);
        if (data == BasicPositions)
            value.insert(QStringLiteral("Position"), positionType->currentIndex());
        else if (data == BasicNotetags)
            value.insert(QStringLiteral("Notetag"), basicNote->text());
        break;
    }
    case Items: {
        const int data = itemData->currentIndex();
        value.insert(QStringLiteral("ItemType"), itemType->currentIndex());
        value.insert(QStringLiteral("Data"), data);
        if (data == ItemNotetags)
            value.insert(QStringLiteral("Notetag"), itemNote->text());
        break;
    }
    case Actor:
        writeBattler(actor, value);
        break;
    case Enemy:
        writeBattler(enemy, value);
        break;
    case Combined:
        value.insert(QStringLiteral("List1"), list1);
        value.insert(QStringLiteral("List2"), list2);
        break;
    default:
        value.insert(QStringLiteral("Code"), code);
        break;
    }
    return value;
}

void RMListSelector::on_confirmButton_clicked()
{
    if (!confirmButton()->isEnabled())
        return;
    *object = result();
    acceptChoice();
}

void RMListSelector::on_cancelButton_clicked()
{
    reject();
}
