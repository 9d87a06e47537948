#include "scene/UIComponentBaseDialog.h"

#include "scene/PropertyAnimationText.h"
#include "scene/UIComponentAnimationDialog.h"
#include "widgets/ClipboardIdentifiers.h"
#include "widgets/MyButton.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyLineEdit.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QAction>
#include <QDoubleValidator>
#include <QIcon>
#include <QIntValidator>
#include <QMenu>

namespace {

// The animation menu: add, edit, delete, separator, copy, cut, paste.
enum AnimationEntry { AddAnimation = 0, EditAnimation = 1, DeleteAnimation = 2 };

void describe(QWidget* field, const QString& title, const QString& description)
{
    field->setProperty("mtt_title", title);
    field->setProperty("mtt_desc", description);
}

}

UIComponentBaseDialog::ConditionsText UIComponentBaseDialog::showConditions;
UIComponentBaseDialog::ConditionsOpener UIComponentBaseDialog::openConditions;
UIComponentBaseDialog::DynamicValueOpener UIComponentBaseDialog::openDynamicValue;
UIComponentBaseDialog::DynamicValueText UIComponentBaseDialog::showDynamicValue;

UIComponentBaseDialog::UIComponentBaseDialog(int location, int componentId, int animationFlags, QWidget* parent,
                                             QJsonObject* projectData)
    : TrovDialog(parent),
      integerValidator(new QIntValidator(1, 999999, this)),
      coordinateValidator(new QIntValidator(-99999, 99999, this)),
      doubleValidator(new QDoubleValidator(0.0, 999999.0, 1, this)),
      location(location),
      componentId(componentId),
      animationFlags(animationFlags),
      projectData(projectData)
{
    doubleValidator->setNotation(QDoubleValidator::StandardNotation);
}

UIComponentBaseDialog::~UIComponentBaseDialog() = default;

QString UIComponentBaseDialog::customPropertiesKey() const
{
    return QStringLiteral("UILoc%1ID%2").arg(location).arg(componentId);
}

QString UIComponentBaseDialog::percentText(double fraction)
{
    return QString::number(fraction * 100, 'g', 6);
}

double UIComponentBaseDialog::fractionOf(const QString& percent)
{
    // Rounded to 15 digits, the quotient loses the binary noise of the
    // division: "12.3457" gives 0.123457, not 0.12345700000000001.
    return QString::number(percent.toDouble() / 100, 'g', 15).toDouble();
}

void UIComponentBaseDialog::followConfirm(MyLineEdit* field, QAbstractButton* confirm)
{
    field->setFollowerButton(confirm);
    gatedFields.append(field);
    // The field enables its button by its own validity alone; the others
    // have their say after it.
    field->setValidityListener([this, confirm](bool) { updateConfirm(confirm); });
}

void UIComponentBaseDialog::updateConfirm(QAbstractButton* confirm)
{
    bool valid = true;
    for (const MyLineEdit* field : qAsConst(gatedFields))
        valid = valid && field->isValid();
    confirm->setEnabled(valid);
}

void UIComponentBaseDialog::setupAllWidgets(MyLineEdit* name, MyDialogOpener* conditionsOpener, MyLineEdit* x,
                                            MyLineEdit* y, MyLineEdit* scaleX, MyLineEdit* scaleY,
                                            MyLineEdit* rotation, MyLineEdit* opacity,
                                            UltimateTreeWidget* animations, UltimateTreeWidget* customProperties,
                                            MyButton* confirm, QJsonObject* json, const char* defaultName)
{
    struct NumberField {
        MyLineEdit* field;
        const char* title;
        const char* description;
        QValidator* validator;
        double minimum;
        double maximum;
        int digits;
        const char* suffix;
        QString value;
    };
    const NumberField numbers[] = {
        {x, QT_TR_NOOP("X-Pos"), QT_TR_NOOP("The X coordinate of the component."), coordinateValidator, -99999,
         99999, 6, "", QString::number(json->value(QStringLiteral("X")).toInt(0))},
        {y, QT_TR_NOOP("Y-Pos"), QT_TR_NOOP("The Y coordinate of the component."), coordinateValidator, -99999,
         99999, 6, "", QString::number(json->value(QStringLiteral("Y")).toInt(0))},
        {scaleX, QT_TR_NOOP("Width Scale"), QT_TR_NOOP("The X scale of the component."), doubleValidator, 1, 500, 4,
         "%", percentText(json->value(QStringLiteral("ScaleX")).toDouble(1.0))},
        {scaleY, QT_TR_NOOP("Height Scale"), QT_TR_NOOP("The Y scale of the component."), doubleValidator, 1, 500, 4,
         "%", percentText(json->value(QStringLiteral("ScaleY")).toDouble(1.0))},
        {rotation, QT_TR_NOOP("Rotation"), QT_TR_NOOP("The rotation of the sprite."), coordinateValidator, -360, 360,
         4, "\u00B0", QString::number(json->value(QStringLiteral("Rotation")).toInt(0))},
        {opacity, QT_TR_NOOP("Opacity"), QT_TR_NOOP("The transparency of the sprite."), doubleValidator, 0, 100, 4,
         "%", percentText(json->value(QStringLiteral("Opacity")).toDouble(1.0))},
    };
    for (const NumberField& number : numbers) {
        if (!number.field)
            continue;
        MyLineEdit* field = number.field;
        field->setInputType(number.validator == doubleValidator ? MyLineEdit::Decimal : MyLineEdit::Integer);
        field->setDecimals(1);
        field->setCaption(tr(number.title));
        field->setSuffix(QString::fromUtf8(number.suffix));
        describe(field, tr(number.title), tr(number.description));
        field->setNumberField(number.minimum, number.maximum, number.digits, nullptr, number.validator);
        followConfirm(field, confirm);
        field->setValue(number.value);
    }

    const int id = json->value(QStringLiteral("ID")).toInt(1);
    if (name) {
        name->setInputType(MyLineEdit::Text);
        name->setCaption(tr("Name"));
        describe(name, tr("Name"), tr("The name of the component."));
        name->setValue(json->value(QStringLiteral("Name")).toString(tr(defaultName).arg(id)));
    }
    if (conditionsOpener) {
        conditionsOpener->setTitle(tr("Display Conditions"));
        describe(conditionsOpener, tr("Display Conditions"),
                 tr("The conditions required for this component to appear."));
        conditions = json->value(QStringLiteral("Conditions")).toArray();
        if (showConditions)
            showConditions(conditionsOpener, conditions);
        // The list opens over this dialog, which dims under it like under
        // any other field's dialog, not over the window that this one covers.
        connect(conditionsOpener, &QAbstractButton::clicked, this, [this, conditionsOpener]() {
            if (openConditions)
                openConditions(this, conditionsOpener, &conditions, this);
        });
    }
    if (animations)
        setUpAnimationList(animations, json->value(QStringLiteral("Animations")).toArray());
    if (customProperties)
        setUpCustomPropertyList(customProperties, json->value(QStringLiteral("CustomProperties")).toObject());
    setDialogTitle(tr(defaultName).arg(id));
}

QMenu* UIComponentBaseDialog::recordMenu(const char* objectName, const QString& addText,
                                         void (UIComponentBaseDialog::*add)(), void (UIComponentBaseDialog::*edit)(),
                                         void (UIComponentBaseDialog::*remove)())
{
    QMenu* menu = new QMenu(this);
    menu->setObjectName(QLatin1String(objectName));
    QAction* addAction = menu->addAction(QIcon(QStringLiteral(":/resources/ContextIcons/Add.png")), addText);
    QAction* editAction = menu->addAction(QIcon(QStringLiteral(":/resources/ContextIcons/Edit.png")), tr("Edit ..."));
    QAction* removeAction =
        menu->addAction(QIcon(QStringLiteral(":/resources/ContextIcons/Remove.png")), tr("Delete ..."));
    connect(addAction, &QAction::triggered, this, add);
    connect(editAction, &QAction::triggered, this, edit);
    connect(removeAction, &QAction::triggered, this, remove);
    return menu;
}

void UIComponentBaseDialog::fillAnimationRow(UltimateTreeItem* row, const QJsonObject& record)
{
    const QStringList texts = PropertyAnimationText::rowTexts(record);
    for (int column = 0; column < texts.size(); ++column)
        row->setText(column, texts.at(column));
}

UltimateTreeItem* UIComponentBaseDialog::animationRow(QJsonObject* record)
{
    UltimateTreeItem* row = new UltimateTreeItem();
    row->setId(0);
    row->setUserData(record);
    fillAnimationRow(row, *record);
    return row;
}

void UIComponentBaseDialog::setUpAnimationList(UltimateTreeWidget* animations, const QJsonArray& records)
{
    animationList = animations;
    UltimateTree* tree = animations->tree();
    animations->addHeader();
    animations->setClipboardId(ClipboardIdentifiers::PropertyAnimation);
    tree->setColumnCount(3);
    tree->setColumnTitle(0, tr("Property"));
    tree->setColumnTitle(1, tr("Start"));
    tree->setColumnTitle(2, tr("End"));
    // The property names are the longest texts; their column grows with its
    // title in languages that need more room than "Property".
    tree->setColumnWidth(0, qMax(100, animations->fontMetrics().horizontalAdvance(tr("Property")) + 24), false);
    tree->setColumnWidth(1, 62, false);
    tree->setFiller(true, QString());
    tree->setRowHeight(18);
    tree->setTextOffset(4);
    tree->setRelocationEnabled(true);
    animations->connectClipboardKeys();
    animations->setListFunctions(
        [](QJsonObject* record) { return PropertyAnimationText::rowTexts(*record).value(0); },
        [](UltimateTreeItem* row, QJsonObject* record) { fillAnimationRow(row, *record); });
    tree->startView();
    QList<UltimateTreeItem*> rows;
    rows.reserve(records.size());
    for (const QJsonValue& value : records) {
        if (value.isObject())
            rows.append(animationRow(new QJsonObject(value.toObject())));
    }
    tree->addRows(rows);

    animationMenu = recordMenu("animationMenu", tr("Add New Animation"), &UIComponentBaseDialog::newAnimationProperty,
                               &UIComponentBaseDialog::editAnimationProperty,
                               &UIComponentBaseDialog::deleteAnimationProperty);
    animations->setupContextActions(animationMenu);

    connect(animations, &QWidget::customContextMenuRequested, this,
            &UIComponentBaseDialog::whenAnimations_customContextMenuRequested);
    connect(animations, &UltimateTreeWidget::itemDoubleClicked, this,
            &UIComponentBaseDialog::whenAnimations_itemDoubleClicked);
    connect(animations, &UltimateTreeWidget::onDeleteKeyPress, this,
            &UIComponentBaseDialog::deleteAnimationProperty);
}

void UIComponentBaseDialog::setUpCustomPropertyList(UltimateTreeWidget* customProperties, const QJsonObject& values)
{
    customPropertyList = customProperties;
    customProperties->setupNameValueList();
    // The clipboard entries are the pairs' own, not the list's records.
    QMenu* propertyMenu =
        recordMenu("customPropertyMenu", tr("Add New Property"), &UIComponentBaseDialog::newCustomProperty,
                   &UIComponentBaseDialog::editCustomProperty, &UIComponentBaseDialog::deleteCustomProperty);
    propertyMenu->addSeparator();
    QAction* copy =
        propertyMenu->addAction(QIcon(QStringLiteral(":/resources/ContextIcons/Copy.png")), tr("Copy ..."));
    QAction* cut = propertyMenu->addAction(QIcon(QStringLiteral(":/resources/ContextIcons/Cut.png")), tr("Cut ..."));
    QAction* paste =
        propertyMenu->addAction(QIcon(QStringLiteral(":/resources/ContextIcons/Paste.png")), tr("Paste ..."));
    connect(copy, &QAction::triggered, this, &UIComponentBaseDialog::copyCustomProperty);
    connect(cut, &QAction::triggered, this, &UIComponentBaseDialog::cutCustomProperty);
    connect(paste, &QAction::triggered, this, &UIComponentBaseDialog::pasteCustomProperty);

    setProperties(values);
    setPropertyOrders(projectData);
    attachList(this, customProperties, propertyMenu);
    loadProperties();

    connect(customProperties, &UltimateTreeWidget::onDeleteKeyPress, this,
            &UIComponentBaseDialog::deleteCustomProperty);
    connect(customProperties, &UltimateTreeWidget::onCopyKeyPress, this, &UIComponentBaseDialog::copyCustomProperty);
    connect(customProperties, &UltimateTreeWidget::onCutKeyPress, this, &UIComponentBaseDialog::cutCustomProperty);
    connect(customProperties, &UltimateTreeWidget::onPasteKeyPress, this,
            &UIComponentBaseDialog::pasteCustomProperty);
    connect(customProperties, &QWidget::customContextMenuRequested, this,
            &UIComponentBaseDialog::whenCustomProperties_customContextMenuRequested);
    connect(customProperties, &UltimateTreeWidget::itemDoubleClicked, this,
            &UIComponentBaseDialog::whenCustomProperties_itemDoubleClicked);
}

void UIComponentBaseDialog::applyCommonFields(MyLineEdit* name, MyDialogOpener* conditionsOpener, MyLineEdit* x,
                                              MyLineEdit* y, MyLineEdit* scaleX, MyLineEdit* scaleY,
                                              MyLineEdit* rotation, MyLineEdit* opacity,
                                              UltimateTreeWidget* animations, QJsonObject* json)
{
    if (x)
        json->insert(QStringLiteral("X"), x->text().toInt());
    if (y)
        json->insert(QStringLiteral("Y"), y->text().toInt());
    if (rotation)
        json->insert(QStringLiteral("Rotation"), rotation->text().toInt());
    if (scaleX)
        json->insert(QStringLiteral("ScaleX"), fractionOf(scaleX->text()));
    if (scaleY)
        json->insert(QStringLiteral("ScaleY"), fractionOf(scaleY->text()));
    json->insert(QStringLiteral("Opacity"), opacity ? fractionOf(opacity->text()) : 1.0);
    if (name)
        json->insert(QStringLiteral("Name"), name->text());
    if (conditionsOpener) {
        if (conditions.isEmpty())
            json->remove(QStringLiteral("Conditions"));
        else
            json->insert(QStringLiteral("Conditions"), conditions);
    }
    if (customPropertyList)
        json->insert(QStringLiteral("CustomProperties"), collectProperties());
    if (animations) {
        QJsonArray records;
        const UltimateTree* tree = animations->tree();
        for (int i = 0; i < tree->rowCount(); ++i) {
            if (const QJsonObject* record = tree->row(i)->userData())
                records.append(*record);
        }
        json->insert(QStringLiteral("Animations"), records);
    }
}

// ---------------------------------------------------------------- animations

void UIComponentBaseDialog::whenAnimations_customContextMenuRequested(QPoint pos)
{
    if (!animationList || !animationMenu)
        return;
    UltimateTreeItem* row = animationList->tree()->currentRow();
    const QString name = row ? row->text(0) : QString();
    const QList<QAction*> actions = animationMenu->actions();
    QAction* edit = actions.at(EditAnimation);
    QAction* remove = actions.at(DeleteAnimation);
    edit->setText(row ? tr("Edit \"%1\"").arg(name) : tr("Edit ..."));
    remove->setText(row ? tr("Delete \"%1\"").arg(name) : tr("Delete ..."));
    edit->setVisible(row != nullptr);
    remove->setVisible(row != nullptr);
    animationList->updateContextActions(actions, row, name, 4, 5, 6);
    animationList->tree()->setPopupOpen(true);
    animationMenu->popup(pos);
}

void UIComponentBaseDialog::whenAnimations_itemDoubleClicked(UltimateTreeItem* item, int)
{
    if (item)
        editAnimationProperty();
    else
        newAnimationProperty();
}

void UIComponentBaseDialog::newAnimationProperty()
{
    if (!animationList)
        return;
    QJsonObject record;
    if (!UIComponentAnimationDialog::edit(&record, animationFlags, this))
        return;
    UltimateTreeItem* row = animationRow(new QJsonObject(record));
    UltimateTree* tree = animationList->tree();
    if (UltimateTreeItem* current = tree->currentRow())
        tree->insertRowAfter(row, current);
    else
        tree->addRow(row);
    tree->setCurrentRow(row);
    animationList->ensureRowVisible(row);
}

void UIComponentBaseDialog::editAnimationProperty()
{
    UltimateTreeItem* row = animationList ? animationList->tree()->currentRow() : nullptr;
    if (!row || !row->userData())
        return;
    QJsonObject record = *row->userData();
    if (!UIComponentAnimationDialog::edit(&record, animationFlags, this))
        return;
    *row->userData() = record;
    fillAnimationRow(row, record);
}

void UIComponentBaseDialog::deleteAnimationProperty()
{
    if (animationList)
        animationList->deleteRowSelectNext(animationList->tree()->currentRow());
}

// ---------------------------------------------------------------- custom properties

void UIComponentBaseDialog::whenCustomProperties_customContextMenuRequested(QPoint pos)
{
    updateMenu(pos);
}

void UIComponentBaseDialog::whenCustomProperties_itemDoubleClicked(UltimateTreeItem* item, int)
{
    if (item)
        editCustomProperty();
    else
        newCustomProperty();
}

void UIComponentBaseDialog::newCustomProperty()
{
    newProperty(this);
}

void UIComponentBaseDialog::editCustomProperty()
{
    editProperty(this);
}

void UIComponentBaseDialog::deleteCustomProperty()
{
    deleteProperty();
}

void UIComponentBaseDialog::copyCustomProperty()
{
    copyProperty();
}

void UIComponentBaseDialog::cutCustomProperty()
{
    cutProperty();
}

void UIComponentBaseDialog::pasteCustomProperty()
{
    pasteProperty();
}
