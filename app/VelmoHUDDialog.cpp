#include "app/VelmoHUDDialog.h"

#include "app/HudDocument.h"
#include "app/VelmoHUDDialogParamInput.h"
#include "logic/EntryList.h"
#include "widgets/ClipboardIdentifiers.h"
#include "widgets/CustomTitleBar.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyEitherBox.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QJsonArray>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString KeyParams = QStringLiteral("Params");

void describe(QWidget* field, const QString& title, const QString& description)
{
    field->setProperty("mtt_title", title);
    field->setProperty("mtt_desc", description);
}

MyGroupBox* group(const QString& title, const char* name, QWidget* owner)
{
    MyGroupBox* box = new MyGroupBox(title, owner);
    box->setObjectName(QLatin1String(name));
    return box;
}

}

VelmoHUDDialog::VelmoHUDDialog(QJsonObject* object, bool* confirmed, int type, QWidget* parent)
    : TrovDialog(parent), object(object), confirmed(confirmed), type(type),
      background(object->value(HudDocument::KeyBackground).toString())
{
    setObjectName(QStringLiteral("VelmoHUDDialog"));
    if (confirmed)
        *confirmed = false;
    const FormFrame frame = layOutForm();
    QWidget* content = frame.content;
    QVBoxLayout* contentLayout = frame.contentLayout;

    MyGroupBox* settings = group(tr("HUD Settings"), "settingsBox", content);
    QGridLayout* fields = new QGridLayout(settings);
    fields->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 12, 14);
    fields->setHorizontalSpacing(10);
    fields->setVerticalSpacing(10);
    Name = new MyLineEdit(settings);
    Name->setObjectName(QStringLiteral("Name"));
    Name->setInputType(MyLineEdit::Text);
    Name->setCaption(tr("Name"));
    describe(Name, tr("Name"), tr("The name of the HUD."));
    Type = new MyEitherBox(settings);
    Type->setObjectName(QStringLiteral("Type"));
    Type->setPlaceholder(tr("Type"));
    Type->setChoices(tr("Component"), tr("HUD"));
    describe(Type, tr("Type"), tr("Whether this is a HUD or component."));
    auto sizeField = [&](const char* name, const QString& caption, const QString& description, const QString& key) {
        MyLineEdit* field = new MyLineEdit(settings);
        field->setObjectName(QLatin1String(name));
        field->setInputType(MyLineEdit::Integer);
        field->setCaption(caption);
        field->setNumberField(10, 5000, 7, nullptr, new QIntValidator(0, 9999999, field));
        field->setValue(QString::number(object->value(key).toInt(300)));
        describe(field, caption, description);
        connect(field, &QLineEdit::textChanged, this, &VelmoHUDDialog::updateConfirm);
        return field;
    };
    Width = sizeField("Width", tr("Width"), tr("The width of the component."), HudDocument::KeyWidth);
    Height = sizeField("Height", tr("Height"), tr("The height of the component."), HudDocument::KeyHeight);
    fields->addWidget(Name, 0, 0, 1, 2);
    fields->addWidget(Type, 1, 0, 1, 2);
    fields->addWidget(Width, 2, 0);
    fields->addWidget(Height, 2, 1);
    contentLayout->addWidget(settings);

    MyGroupBox* backgroundBox = group(tr("Background"), "backgroundBox", content);
    QHBoxLayout* backgroundRow = new QHBoxLayout(backgroundBox);
    backgroundRow->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 12, 14);
    backgroundRow->setSpacing(10);
    Background = new MyDialogOpener(backgroundBox);
    Background->setObjectName(QStringLiteral("Background"));
    Background->setTitle(tr("Editor Background"));
    describe(Background, tr("Editor Background"), tr("The background displayed in the editor."));
    Clear = new QPushButton(tr("(Clear)"), backgroundBox);
    Clear->setObjectName(QStringLiteral("Clear"));
    backgroundRow->addWidget(Background, 1);
    backgroundRow->addWidget(Clear, 0, Qt::AlignBottom);
    contentLayout->addWidget(backgroundBox);

    MyGroupBox* paramBox = group(tr("Parameters"), "paramBox", content);
    QVBoxLayout* paramLayout = new QVBoxLayout(paramBox);
    paramLayout->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 12, 14);
    buildParamList(paramBox);
    paramLayout->addWidget(Params);
    contentLayout->addWidget(paramBox, 1);

    contentLayout->addLayout(confirmRow(content, confirmButton, cancelButton));

    // The Map and Battle HUDs keep their names and stay HUDs.
    if (type == HudEntry::Map || type == HudEntry::Battle) {
        Name->setValue(type == HudEntry::Map ? tr("Map HUD") : tr("Battle HUD"));
        Name->setEnabled(false);
        Type->setEnabled(false);
    } else {
        Name->setValue(object->value(HudDocument::KeyName).toString());
    }
    Type->setChoice(!object->value(HudDocument::KeyIsHud).toBool(true), true);
    showBackground();
    QMetaObject::connectSlotsByName(this);
    on_Type_whenChoiceChanges();

    setCenterWidget(content);
    setTitleBar(frame.titleBar);
    setConfirmButton(confirmButton);
    setDialogTitle(tr("HUD Dialog"));
    content->setMinimumWidth(360);
    adjustSize();
    fixSize();
}

void VelmoHUDDialog::buildParamList(QWidget* owner)
{
    Params = new UltimateTreeWidget(owner);
    Params->setObjectName(QStringLiteral("Params"));
    Params->setMinimumHeight(150);
    Params->addHeader();
    Params->setClipboardId(ClipboardIdentifiers::HudComponentParameter);
    UltimateTree* tree = Params->tree();
    tree->setColumnCount(1);
    tree->setColumnTitle(0, tr("Param Name"));
    tree->setColumnWidth(0, 150);
    tree->setRowHeight(18);
    tree->setTextOffset(4);
    tree->setFiller(true, QString());
    tree->setRelocationEnabled(true);
    tree->setKeepSelectionLook(true);
    tree->setRowDeleter([](UltimateTreeItem* row) { delete row->userData(); });
    Params->connectClipboardKeys();
    // Pasted parameters keep their names, clashes included.
    Params->setListFunctions(
        [](QJsonObject* record) { return record->value(QStringLiteral("Name")).toString(); },
        [](UltimateTreeItem* row, QJsonObject* record) {
            row->setText(0, record->value(QStringLiteral("Name")).toString());
        });
    // An entry that isn't a parameter keeps its place but doesn't travel.
    Params->setCopyCheck([](UltimateTreeItem* row) { return EntryList::holdsObject(row); });
    tree->startView();
    for (const QJsonValue& entry : object->value(KeyParams).toArray()) {
        UltimateTreeItem* row = EntryList::newRow(entry);
        row->setText(0, entry.toObject().value(QStringLiteral("Name")).toString());
        tree->addRow(row);
    }
    menu = EntryList::makeMenu(
        this, Params, QStringLiteral("paramMenu"),
        {tr("Add New Parameter"), tr("Edit Parameter"), tr("Delete Parameter"), QT_TR_NOOP("Copy Condition"),
         QT_TR_NOOP("Cut Condition"), QT_TR_NOOP("Paste Condition")},
        [this]() { createNewParam(); }, [this]() { editParam(); }, [this]() { deleteParam(); });
}

bool VelmoHUDDialog::isHud() const
{
    return !Type->choice();
}

void VelmoHUDDialog::on_Type_whenChoiceChanges()
{
    Width->setEnabled(!isHud());
    Height->setEnabled(!isHud());
    Params->setEnabled(!isHud());
    updateConfirm();
}

void VelmoHUDDialog::on_Name_textChanged(const QString&)
{
    updateConfirm();
}

void VelmoHUDDialog::updateConfirm()
{
    confirmButton->setEnabled(!Name->text().isEmpty() && Width->isValid() && Height->isValid());
}

void VelmoHUDDialog::showBackground()
{
    Background->setValue(background.isEmpty() ? tr("None") : QFileInfo(background).fileName());
    Background->setItalic(background.isEmpty());
}

void VelmoHUDDialog::on_Background_clicked()
{
    const QString folder = background.isEmpty() ? QDir::homePath() : QFileInfo(background).absolutePath();
    darken();
    const QString chosen =
        QFileDialog::getOpenFileName(this, tr("Placeholder Background"), folder, QStringLiteral("PNG (*.png)"));
    undarken();
    if (chosen.isEmpty())
        return;
    background = chosen;
    showBackground();
    Background->confirm();
}

void VelmoHUDDialog::on_Clear_clicked()
{
    background.clear();
    showBackground();
}

void VelmoHUDDialog::on_Params_itemDoubleClicked(UltimateTreeItem* item, int)
{
    createOrEditParam(item);
}

void VelmoHUDDialog::on_Params_customContextMenuRequested(const QPoint& pos)
{
    const UltimateTreeItem* row = Params->tree()->currentRow();
    EntryList::popUpMenu(Params, menu, pos, row && EntryList::holdsObject(row));
}

void VelmoHUDDialog::createOrEditParam(UltimateTreeItem* item)
{
    if (item && !EntryList::holdsObject(item))
        return;
    UltimateTree* tree = Params->tree();
    QStringList names;
    for (int i = 0; i < tree->rowCount(); ++i)
        names.append(tree->row(i)->text(0));
    QJsonObject edited = item ? *item->userData() : QJsonObject();
    bool accepted = false;
    darken();
    VelmoHUDDialogParamInput(&edited, &accepted, &names, this).exec();
    undarken();
    if (!accepted)
        return;
    if (item) {
        *item->userData() = edited;
    } else {
        item = EntryList::newRow(edited);
        tree->addRow(item);
        EntryList::selectLast(Params);
    }
    item->setText(0, edited.value(QStringLiteral("Name")).toString());
}

void VelmoHUDDialog::createNewParam()
{
    createOrEditParam(nullptr);
}

void VelmoHUDDialog::editParam()
{
    if (UltimateTreeItem* row = Params->tree()->currentRow())
        createOrEditParam(row);
}

void VelmoHUDDialog::deleteParam()
{
    if (UltimateTreeItem* row = Params->tree()->currentRow())
        Params->deleteRowSelectNext(row);
}

void VelmoHUDDialog::on_confirmButton_clicked()
{
    if (!confirmButton->isEnabled())
        return;
    QJsonObject result;
    result.insert(HudDocument::KeyName, Name->text());
    result.insert(HudDocument::KeyIsHud, isHud());
    if (!isHud()) {
        result.insert(HudDocument::KeyWidth, Width->text().toInt());
        result.insert(HudDocument::KeyHeight, Height->text().toInt());
    }
    QJsonArray params;
    const UltimateTree* tree = Params->tree();
    for (int i = 0; i < tree->rowCount(); ++i)
        params.append(EntryList::entry(tree->row(i)));
    result.insert(KeyParams, params);
    result.insert(HudDocument::KeyBackground, background);
    // The components and the identity stay as they were; a new HUD object
    // got its identifier before the dialog opened.
    for (const QString& key : {HudDocument::KeyHud, HudDocument::KeyId}) {
        if (object->contains(key))
            result.insert(key, object->value(key));
    }
    *object = result;
    if (confirmed)
        *confirmed = true;
    accept();
}

void VelmoHUDDialog::on_cancelButton_clicked()
{
    reject();
}
