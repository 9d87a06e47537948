#include "components/UIComponentCustomCollectionDialog.h"

#include "components/ComponentKinds.h"
#include "logic/RMListSelector.h"
#include "widgets/ConfirmationDialog.h"
#include "widgets/MyButton.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyEitherBox.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/OwnerDimming.h"

namespace {

// Up to this extent a collection saves without a word; above the second one
// the warning gets stronger.
const qint64 MassiveExtent = 5000;
const qint64 FreezingExtent = 50000;

}

UIComponentCustomCollectionDialog::UIComponentCustomCollectionDialog(QJsonObject* json, bool* accepted, bool flag,
                                                                     QWidget* owner, QJsonObject* projectData)
    : UIComponentBaseDialog(flag, json->value(QStringLiteral("ID")).toInt(0),
                            ComponentKinds::capabilities(ComponentKinds::CustomCollection), owner, projectData),
      json(json),
      accepted(accepted),
      shared(layOut(json)),
      hud(shared, this, true)
{
    setObjectName(QStringLiteral("UIComponentCustomCollectionDialog"));
    const QJsonObject data = shared.dataObject();
    listData = data.value(QStringLiteral("ListData"))
                   .toObject(QJsonObject{{"Type", 2}, {"MembersType", 0}, {"Data", 0}});
    projectileCreation = shared.addPropertyBox(tr("Custom Collection Properties"), "projectileCreation");
    ListData = shared.addOpener(
        "ListData", {QT_TR_NOOP("List Data"), QT_TR_NOOP("The list of data used to structure the collection.")}, 0,
        0, 2);
    RMListSelector::showList(ListData, listData, projectData);
    hud.addOpener(1, 0, 2);
    MaxRows = shared.addNumber("MaxRows", {QT_TR_NOOP("Max Rows"), QT_TR_NOOP("The maximum rows displayed.")}, 1, 999,
                               4, false, QStringLiteral("1"), data.value(QStringLiteral("MaxRows")), 2, 0);
    MaxColumns =
        shared.addNumber("MaxColumns", {QT_TR_NOOP("Max Columns"), QT_TR_NOOP("The maximum columns displayed.")}, 1,
                         999, 4, false, QStringLiteral("4"), data.value(QStringLiteral("MaxColumns")), 2, 1);
    HorizontalSpacing = shared.addNumber(
        "HorizontalSpacing", {QT_TR_NOOP("Horizontal Spacing"), QT_TR_NOOP("The horizontal spacing.")}, 0, 9999, 5,
        false, QStringLiteral("0"), data.value(QStringLiteral("HorizontalSpacing")), 3, 0);
    VerticalSpacing =
        shared.addNumber("VerticalSpacing", {QT_TR_NOOP("Vertical Spacing"), QT_TR_NOOP("The vertical spacing.")}, 0,
                         9999, 5, false, QStringLiteral("0"), data.value(QStringLiteral("VerticalSpacing")), 3, 1);
    HorizontalAlign = shared.addEither(
        "HorizontalAlign", {QT_TR_NOOP("Horizontal Align"), QT_TR_NOOP("The horizontal alignment.")},
        QT_TR_NOOP("Left"), QT_TR_NOOP("Right"), data.value(QStringLiteral("AlignLeft")).toBool(true), 4, 0);
    VerticalAlign =
        shared.addEither("VerticalAlign", {QT_TR_NOOP("Vertical Align"), QT_TR_NOOP("The vertical alignment.")},
                         QT_TR_NOOP("Up"), QT_TR_NOOP("Down"), data.value(QStringLiteral("AlignUp")).toBool(true), 4, 1);
    groupBox_5 = hud.addTable();
    hud.load(data);
    shared.finish();
}

ComponentDialogForm UIComponentCustomCollectionDialog::layOut(QJsonObject* json)
{
    const FormFrame frame = layOutForm();
    return ComponentDialogForm(this, frame.titleBar, frame.content, frame.contentLayout, json,
                               ComponentKinds::CustomCollection, projectData);
}

void UIComponentCustomCollectionDialog::on_ListData_clicked()
{
    RMListSelector::pick(ListData, &listData, projectData, this);
}

void UIComponentCustomCollectionDialog::on_CustomComponent_clicked()
{
    hud.pickHud();
}

void UIComponentCustomCollectionDialog::on_customParams_itemDoubleClicked(UltimateTreeItem* item, int)
{
    hud.editParam(item);
}

QString UIComponentCustomCollectionDialog::massiveWarning(qint64 maxRows, qint64 maxColumns, qint64 width,
                                                          qint64 height, qint64 horizontalSpacing,
                                                          qint64 verticalSpacing)
{
    const qint64 p = maxRows * (width + horizontalSpacing);
    const qint64 q = maxColumns * (height + verticalSpacing);
    if (p <= MassiveExtent && q <= MassiveExtent)
        return QString();
    if (p > FreezingExtent || q > FreezingExtent)
        return tr("Bruh, your collection is unbelievably massive.<br>This may freeze your computer.<br><br>Are you "
                  "SURE you want to make this happen?");
    return tr("The total size of this collection is massive<br>While you won't be prevented from doing so, creating "
              "something too massive may lag or crash the editor.<br><br>Are you sure you wish to save this?");
}

bool UIComponentCustomCollectionDialog::acceptsSize()
{
    // A number the game gives counts as the field's default.
    auto number = [](MyLineEdit* field, qint64 given) {
        return field->isExtended() ? given : field->text().toLongLong();
    };
    const QString warning =
        massiveWarning(number(MaxRows, 1), number(MaxColumns, 1), shared.Width->text().toLongLong(),
                       shared.Height->text().toLongLong(), number(HorizontalSpacing, 0), number(VerticalSpacing, 0));
    if (warning.isEmpty())
        return true;
    int answer = 1;
    OwnerDimming::dim(this);
    ConfirmationDialog(warning, tr("Warning: Massive Collection"), &answer, this, ConfirmationDialog::YesNo).exec();
    OwnerDimming::undim(this);
    return answer == 0;
}

void UIComponentCustomCollectionDialog::on_confirmButton_clicked()
{
    if (!shared.confirmButton->isEnabled() || !acceptsSize())
        return;
    if (accepted)
        *accepted = true;
    shared.applyCommonFields();
    QJsonObject data;
    hud.write(data);
    data.insert(QStringLiteral("ListData"), listData);
    data.insert(QStringLiteral("MaxRows"), shared.numberOf(MaxRows));
    data.insert(QStringLiteral("MaxColumns"), shared.numberOf(MaxColumns));
    data.insert(QStringLiteral("HorizontalSpacing"), shared.numberOf(HorizontalSpacing));
    data.insert(QStringLiteral("VerticalSpacing"), shared.numberOf(VerticalSpacing));
    data.insert(QStringLiteral("AlignLeft"), HorizontalAlign->choice());
    data.insert(QStringLiteral("AlignUp"), VerticalAlign->choice());
    shared.writeDataObject(data);
    accept();
}

void UIComponentCustomCollectionDialog::on_cancelButton_clicked()
{
    reject();
}
