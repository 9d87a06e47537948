#include "components/CustomHudFields.h"

#include "components/ComponentDialogForm.h"
#include "logic/HudCatalog.h"
#include "logic/HudParameters.h"
#include "logic/VelmoHUDDialogParamSetter.h"
#include "logic/VelmoHUDSelector.h"
#include "scene/UIComponentBaseDialog.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QJsonArray>

namespace {

// What the size fields show without a HUD or without a size in it.
const int UnknownSide = 300;
const int FieldWidth = 200;

}

CustomHudFields::CustomHudFields(ComponentDialogForm& form, QWidget* dialog, bool listAllowed)
    : form(form), dialog(dialog), listAllowed(listAllowed)
{
}

MyDialogOpener* CustomHudFields::addOpener(int row, int column, int columnSpan)
{
    customComponent = form.addOpener("CustomComponent",
                                     {QT_TR_NOOP("Custom Component"), QT_TR_NOOP("The custom component to use.")},
                                     row, column, columnSpan);
    return customComponent;
}

MyGroupBox* CustomHudFields::addTable()
{
    // The fields of the property box above get room for their captions and
    // for the box's title in longer languages than English; the table below
    // takes the same width.
    QGridLayout* fields = form.propertyGrid();
    for (int i = 0; i < fields->count(); ++i) {
        if (QWidget* field = fields->itemAt(i)->widget())
            field->setMinimumWidth(FieldWidth);
    }
    QWidget* above = fields->parentWidget();
    QFont titleFont = above->font();
    titleFont.setBold(true);
    // The title strip's insets and the shadow, as the box paints them.
    const int titleWidth = QFontMetrics(titleFont).horizontalAdvance(static_cast<QGroupBox*>(above)->title()) + 24;
    // Two columns of fields wide even when a field spans both, so that the
    // three kinds' dialogs look alike.
    const int twoColumns = 2 * FieldWidth + 32;
    above->setMinimumWidth(qMax(qMax(titleWidth, twoColumns), above->minimumSizeHint().width()));
    MyGroupBox* box = form.addPropertyBox(UIComponentBaseDialog::tr("Custom Parameters"), "groupBox_5");
    customParams = new UltimateTreeWidget(box);
    customParams->setObjectName(QStringLiteral("customParams"));
    customParams->setMinimumHeight(120);
    customParams->addHeader();
    UltimateTree* tree = customParams->tree();
    tree->setColumnCount(2);
    tree->setColumnTitle(0, UIComponentBaseDialog::tr("Parameter"));
    tree->setColumnTitle(1, UIComponentBaseDialog::tr("Value"));
    tree->setColumnWidth(0, 150);
    tree->setRowHeight(18);
    tree->setTextOffset(4);
    tree->setKeepSelectionLook(true);
    tree->setRowDeleter([](UltimateTreeItem* row) { delete row->userData(); });
    tree->startView();
    form.propertyGrid()->addWidget(customParams, 0, 0, 1, 2);
    return box;
}

void CustomHudFields::load(const QJsonObject& data)
{
    id = data.value(QStringLiteral("ID")).toString();
    params = data.value(QStringLiteral("Params")).toObject();
    HudCatalog::showIdentifier(customComponent, id);
    rebuildParams();
    updateSizeFields();
}

void CustomHudFields::pickHud()
{
    QString chosen = id;
    if (!VelmoHUDSelector::pick(customComponent, &chosen, VelmoHUDSelector::CustomComponents, dialog))
        return;
    if (chosen == id)
        return;
    params = QJsonObject();
    id = chosen;
    rebuildParams();
    updateSizeFields();
}

void CustomHudFields::rebuildParams()
{
    const QJsonArray definitions = HudParameters::definitionsOf(id);
    // A parameter added to the HUD since the component was made starts empty.
    params = HudParameters::withDefaults(definitions, params);
    UltimateTree* tree = customParams->tree();
    tree->clear();
    for (const QJsonValue& definition : definitions) {
        if (!definition.isObject())
            continue;
        UltimateTreeItem* row = new UltimateTreeItem();
        row->setUserData(new QJsonObject(definition.toObject()));
        row->setText(0, definition.toObject().value(QStringLiteral("Name")).toString());
        tree->addRow(row);
        showValue(row);
    }
}

void CustomHudFields::showValue(UltimateTreeItem* row)
{
    bool italic = false;
    row->setText(1, display(params.value(row->text(0)), listAllowed, &italic));
    row->setItalic(1, italic);
}

QString CustomHudFields::display(const QJsonValue& value, bool listAllowed, bool* italic)
{
    bool plain = true;
    QString text;
    if (value.isDouble()) {
        text = QString::number(value.toDouble(), 'g', 6);
    } else if (value.isString()) {
        text = value.toString();
    } else if (listAllowed && value.isBool() && value.toBool()) {
        text = UIComponentBaseDialog::tr("[LIST DATA]");
        plain = false;
    } else if (!listAllowed || value.isObject()) {
        text = UIComponentBaseDialog::tr("[DYNAMIC]");
        plain = !listAllowed;
    } else {
        text = UIComponentBaseDialog::tr("[UNKNOWN]");
        plain = false;
    }
    if (italic)
        *italic = !plain;
    return text;
}

void CustomHudFields::updateSizeFields()
{
    const QVector<HudCatalog::Row> rows = HudCatalog::rows();
    const HudCatalog::Row* hud = id.isEmpty() ? nullptr : HudCatalog::find(rows, id);
    const QJsonObject object = hud ? hud->object : QJsonObject();
    form.Width->setValue(QString::number(object.value(QStringLiteral("Width")).toInt(UnknownSide)));
    form.Height->setValue(QString::number(object.value(QStringLiteral("Height")).toInt(UnknownSide)));
}

void CustomHudFields::editParam(UltimateTreeItem* item)
{
    if (!item || !item->userData())
        return;
    const QJsonObject definition = *item->userData();
    const QString name = definition.value(QStringLiteral("Name")).toString();
    QJsonValue value = params.value(name);
    if (!VelmoHUDDialogParamSetter::pick(&value, definition.value(QStringLiteral("IsString")).toBool(false),
                                         listAllowed, name, dialog))
        return;
    params.insert(name, value);
    showValue(item);
}

void CustomHudFields::write(QJsonObject& data) const
{
    data.insert(QStringLiteral("Width"), form.Width->text().toInt());
    data.insert(QStringLiteral("Height"), form.Height->text().toInt());
    data.insert(QStringLiteral("Params"), params);
    data.insert(QStringLiteral("ID"), id);
}
