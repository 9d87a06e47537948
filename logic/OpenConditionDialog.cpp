#include "logic/OpenConditionDialog.h"

#include "logic/ConditionTables.h"
#include "logic/RMCondition_Actor.h"
#include "logic/RMCondition_Button.h"
#include "logic/RMCondition_Code.h"
#include "logic/RMCondition_CustomParam.h"
#include "logic/RMCondition_CustomParamExists.h"
#include "logic/RMCondition_Enemy.h"
#include "logic/RMCondition_Gold.h"
#include "logic/RMCondition_Inventory.h"
#include "logic/RMCondition_NumberCompare.h"
#include "logic/RMCondition_Other.h"
#include "logic/RMCondition_Player.h"
#include "logic/RMCondition_Switch.h"
#include "logic/RMCondition_TextCompare.h"
#include "logic/RMCondition_Variable.h"
#include "widgets/OwnerDimming.h"

#include <QApplication>
#include <QJsonObject>

namespace {

template <class Dialog>
void run(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData)
{
    Dialog(object, accepted, parent, projectData).exec();
}

}

void openConditionDialog(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData)
{
    if (accepted)
        *accepted = false;
    using Run = void (*)(QJsonObject*, bool*, QWidget*, QJsonObject*);
    static const Run dialogs[ConditionTables::TypeCount] = {
        run<RMCondition_Switch>,        run<RMCondition_Variable>,          run<RMCondition_Actor>,
        run<RMCondition_Enemy>,         run<RMCondition_Player>,            run<RMCondition_Gold>,
        run<RMCondition_Button>,        run<RMCondition_Inventory>,         run<RMCondition_Other>,
        run<RMCondition_Code>,          run<RMCondition_CustomParamExists>, run<RMCondition_CustomParam>,
        run<RMCondition_NumberCompare>, run<RMCondition_TextCompare>,
    };
    const int type = object->value(QStringLiteral("Type")).toInt(-1);
    if (type < 0 || type >= ConditionTables::TypeCount)
        return;
    // A busy cursor left by whatever led here would stand over the dialog.
    while (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
    OwnerDimming::dim(parent);
    dialogs[type](object, accepted, parent, projectData);
    OwnerDimming::undim(parent);
}
