#include "logic/AddonSelector.h"

#include "logic/AddonTables.h"
#include "logic/OpenAddonDialog.h"

#include <QJsonObject>

AddonSelector::AddonSelector(QJsonObject* object, bool* accepted, QJsonObject* projectData, int capabilities,
                             QWidget* parent)
    : KindChooser(object, accepted, projectData, parent), capabilities(capabilities)
{
    setObjectName(QStringLiteral("AddonSelector"));
    using namespace AddonTables;
    const int columns[2][3] = {{Note, Hover, CodeProperty}, {ColorFilter, Click, CodeBehavior}};
    QVector<QVector<KindButton>> buttons(2);
    for (int column = 0; column < 2; ++column) {
        for (int type : columns[column]) {
            const Kind* kind = AddonTables::kind(type);
            buttons[column].append({kind->type, kind->button, kind->objectName});
        }
    }
    layOutKinds(tr("Component Add-ons"), buttons, TypeCount, tr("Close"), tr("Component Add-on Selector"));
}

bool AddonSelector::runKindDialog(int type, QJsonObject* created)
{
    *created = QJsonObject{{QStringLiteral("Type"), type}};
    bool confirmed = false;
    openAddonDialog(created, &confirmed, projectData, capabilities, this);
    return confirmed;
}
