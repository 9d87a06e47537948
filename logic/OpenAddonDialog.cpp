#include "logic/OpenAddonDialog.h"

#include "logic/AddonTables.h"
#include "logic/ClickAddonDialog.h"
#include "logic/CodeBehaviorAddonDialog.h"
#include "logic/CodePropertyAddonDialog.h"
#include "logic/ColorFilterAddonDialog.h"
#include "logic/HoverAddonDialog.h"
#include "logic/NoteAddonDialog.h"
#include "widgets/OwnerDimming.h"

#include <QJsonObject>

namespace {

template <class Dialog>
void run(QJsonObject* object, bool* accepted, QJsonObject* projectData, int capabilities, QWidget* parent)
{
    Dialog(object, accepted, projectData, capabilities, parent).exec();
}

}

void openAddonDialog(QJsonObject* object, bool* accepted, QJsonObject* projectData, int capabilities,
                     QWidget* parent)
{
    if (accepted)
        *accepted = false;
    using Run = void (*)(QJsonObject*, bool*, QJsonObject*, int, QWidget*);
    static const Run dialogs[AddonTables::TypeCount] = {
        run<NoteAddonDialog>,  run<ColorFilterAddonDialog>,  run<HoverAddonDialog>,
        run<ClickAddonDialog>, run<CodePropertyAddonDialog>, run<CodeBehaviorAddonDialog>,
    };
    const int type = object->value(QStringLiteral("Type")).toInt(-1);
    if (type < 0 || type >= AddonTables::TypeCount)
        return;
    OwnerDimming::dim(parent);
    dialogs[type](object, accepted, projectData, capabilities, parent);
    OwnerDimming::undim(parent);
}
