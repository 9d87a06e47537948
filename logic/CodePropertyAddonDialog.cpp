#include "logic/CodePropertyAddonDialog.h"

#include "logic/AddonTables.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyPopup.h"

#include <QCoreApplication>
#include <QJsonObject>

namespace {

QString defaultCode(int value)
{
    const AddonTables::Property* property = AddonTables::property(value);
    return property ? QLatin1String(property->defaultCode) : QString();
}

}

CodePropertyAddonDialog::CodePropertyAddonDialog(QJsonObject* object, bool* accepted, QJsonObject*,
                                                 int capabilities, QWidget* parent)
    : CodeAddonDialog(object, accepted, parent)
{
    setObjectName(QStringLiteral("CodePropertyAddonDialog"));
    addFields("PropertyType", tr("Property"), tr("Property"), tr("The property modifed by the code."));
    const QVector<AddonTables::Property> offered = AddonTables::offeredProperties(capabilities);
    for (const AddonTables::Property& entry : offered)
        choice()->addItem(QCoreApplication::translate("", entry.label), entry.value);
    // A property the kind doesn't offer (a pasted or older add-on) or one
    // this program doesn't know stays choosable, so that opening the add-on
    // doesn't change it.
    const int stored = object->value(QStringLiteral("Property")).toInt(offered.first().value);
    bool found = false;
    for (const AddonTables::Property& entry : offered)
        found = found || entry.value == stored;
    if (!found) {
        const AddonTables::Property* known = AddonTables::property(stored);
        choice()->addItem(known ? QCoreApplication::translate("", known->label) : QString::number(stored), stored);
    }
    choice()->selectByData(stored);
    shownProperty = choice()->currentData();
    setCode(object->value(QStringLiteral("Code")).toString(defaultCode(shownProperty)));
    finishForm(tr("Code Property Setup"));
}

void CodePropertyAddonDialog::on_PropertyType_whenChoiceChanges()
{
    const int chosen = choice()->currentData();
    if (codeText() == defaultCode(shownProperty))
        setCode(defaultCode(chosen));
    shownProperty = chosen;
}

void CodePropertyAddonDialog::on_confirmButton_clicked()
{
    confirmAs(AddonTables::CodeProperty, "Property", choice()->currentData());
}
