#include "components/UIComponentCommonDialog.h"

#include "components/ComponentKinds.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/CustomTitleBar.h"
#include "widgets/MyButton.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyTabSystem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QGridLayout>
#include <QIntValidator>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

struct SizeDefaults {
    int width;
    int height;
};

// What the size fields of a new component show, by kind.
SizeDefaults newSize(int type)
{
    return type == ComponentKinds::Gauge ? SizeDefaults{250, 30} : SizeDefaults{100, 100};
}

const int GroupSide = 50;

}

UIComponentCommonDialog::UIComponentCommonDialog(QJsonObject* json, bool* accepted, bool flag, QWidget* owner,
                                                 QJsonObject* projectData)
    : UIComponentBaseDialog(flag, json->value(QStringLiteral("ID")).toInt(0),
                            ComponentKinds::capabilities(json->value(QStringLiteral("Type")).toInt(-1)), owner,
                            projectData),
      json(json),
      accepted(accepted),
      type(json->value(QStringLiteral("Type")).toInt(-1))
{
    setObjectName(QStringLiteral("UIComponentCommonDialog"));
    const ComponentKinds::Kind* kind = ComponentKinds::find(type);

    const FormFrame frame = layOutForm();
    titleBar = frame.titleBar;
    QWidget* content = frame.content;
    QVBoxLayout* contentLayout = frame.contentLayout;

    QHBoxLayout* columns = new QHBoxLayout();
    columns->setSpacing(12);
    MyGroupBox* basic = new MyGroupBox(tr("Basic Properties"), content);
    basic->setObjectName(QStringLiteral("basicProperties"));
    QGridLayout* fields = new QGridLayout(basic);
    fields->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 12, 14);
    fields->setHorizontalSpacing(10);
    fields->setVerticalSpacing(8);
    auto lineEdit = [basic](const char* objectName) {
        MyLineEdit* field = new MyLineEdit(basic);
        field->setObjectName(QLatin1String(objectName));
        field->setMinimumWidth(150);
        return field;
    };
    Name = lineEdit("Name");
    Conditions = new MyDialogOpener(basic);
    Conditions->setObjectName(QStringLiteral("Conditions"));
    X_Position = lineEdit("X_Position");
    Y_Position = lineEdit("Y_Position");
    if (kind && kind->size == ComponentKinds::SizeStorage::Scale) {
        Width_Scale = lineEdit("Width_Scale");
        Height_Scale = lineEdit("Height_Scale");
    } else if (kind && (kind->size == ComponentKinds::SizeStorage::Size
                        || kind->size == ComponentKinds::SizeStorage::Fixed)) {
        Width = lineEdit("Width");
        Height = lineEdit("Height");
    }
    Rotation = lineEdit("Rotation");
    Opacity = lineEdit("Opacity");
    fields->addWidget(Name, 0, 0, 1, 2);
    fields->addWidget(Conditions, 1, 0, 1, 2);
    fields->addWidget(X_Position, 2, 0);
    fields->addWidget(Y_Position, 2, 1);
    int row = 3;
    if (MyLineEdit* first = Width_Scale ? Width_Scale : Width) {
        fields->addWidget(first, row, 0);
        fields->addWidget(Width_Scale ? Height_Scale : Height, row, 1);
        ++row;
    }
    fields->addWidget(Rotation, row, 0);
    fields->addWidget(Opacity, row, 1);
    fields->setRowStretch(row + 1, 1);
    columns->addWidget(basic, 3);

    MyTabSystem* lists = new MyTabSystem(content);
    lists->setObjectName(QStringLiteral("lists"));
    animations = new UltimateTreeWidget();
    animations->setObjectName(QStringLiteral("animations"));
    customProperties = new UltimateTreeWidget();
    customProperties->setObjectName(QStringLiteral("customProperties"));
    lists->addTab(tr("Animations"), animations);
    lists->addTab(tr("Custom Properties"), customProperties);
    lists->setCurrentIndex(0, true, true);
    // Wide enough for both tab labels and the column titles in longer
    // languages than English.
    lists->setMinimumWidth(440);
    columns->addWidget(lists, 2);
    contentLayout->addLayout(columns, 1);

    QHBoxLayout* buttons = new QHBoxLayout();
    buttons->setSpacing(8);
    keptNote = new QLabel(content);
    keptNote->setObjectName(QStringLiteral("keptNote"));
    keptNote->setWordWrap(true);
    keptNote->setText(tr("The %1 properties of this component are kept as they are.")
                          .arg(ComponentKinds::label(type)));
    QPalette dim = keptNote->palette();
    QColor noteColor = themeColor(ThemeKey::Text);
    noteColor.setAlpha(170);
    dim.setColor(QPalette::WindowText, noteColor);
    keptNote->setPalette(dim);
    buttons->addWidget(keptNote, 1);
    confirmButton = new MyButton(content);
    confirmButton->setObjectName(QStringLiteral("confirmButton"));
    confirmButton->setText(tr("Confirm"));
    cancelButton = new MyButton(content);
    cancelButton->setObjectName(QStringLiteral("cancelButton"));
    cancelButton->setText(tr("Cancel"));
    for (MyButton* button : {confirmButton, cancelButton}) {
        button->setMinimumWidth(96);
        buttons->addWidget(button);
    }
    contentLayout->addLayout(buttons);

    confirmButton->setButtonColor(themeColor(ThemeKey::ConfirmButton));
    cancelButton->setButtonColor(themeColor(ThemeKey::CancelButton));
    setCenterWidget(content);
    setTitleBar(titleBar);
    setConfirmButton(confirmButton);
    setupAllWidgets(Name, Conditions, X_Position, Y_Position, Width_Scale, Height_Scale, Rotation, Opacity,
                    animations, customProperties, confirmButton, json, kind ? kind->title : "");
    if (Width)
        setUpSize(Width, Height);
    // The kinds that never turn (group, window and the custom kinds) take
    // neither rotation nor opacity from their dialog.
    if (kind && !kind->canRotate) {
        Rotation->setEnabled(false);
        Opacity->setEnabled(false);
    }
    QMetaObject::connectSlotsByName(this);
    adjustSize();
    fixSize();
}

void UIComponentCommonDialog::setUpSize(MyLineEdit* width, MyLineEdit* height)
{
    const ComponentKinds::Kind* kind = ComponentKinds::find(type);
    if (kind->size == ComponentKinds::SizeStorage::Fixed) {
        for (MyLineEdit* field : {width, height}) {
            field->setCaption(field == width ? tr("Width") : tr("Height"));
            field->setValue(QString::number(GroupSide));
            field->setEnabled(false);
        }
        return;
    }
    const QJsonObject data = json->value(QLatin1String(kind->dataKey)).toObject();
    const SizeDefaults defaults = newSize(type);
    const bool repeat = type == ComponentKinds::RepeatingPicture;
    struct Side {
        MyLineEdit* field;
        const char* title;
        const char* description;
        const char* key;
        int fallback;
    };
    const Side sides[] = {
        {width, QT_TR_NOOP("Width"),
         repeat ? QT_TR_NOOP("The width of the repeating picture.") : QT_TR_NOOP("The width of the window."), "Width",
         defaults.width},
        {height, QT_TR_NOOP("Height"),
         repeat ? QT_TR_NOOP("The height of the repeating picture.") : QT_TR_NOOP("The height of the window."),
         "Height", defaults.height},
    };
    for (const Side& side : sides) {
        side.field->setInputType(MyLineEdit::Integer);
        side.field->setCaption(tr(side.title));
        side.field->setProperty("mtt_title", tr(side.title));
        side.field->setProperty("mtt_desc", tr(side.description));
        side.field->setNumberField(0, 99999, 6, nullptr, integerValidator);
        followConfirm(side.field, confirmButton);
        side.field->setValue(QString::number(data.value(QLatin1String(side.key)).toInt(side.fallback)));
    }
    // A picture gauge is as high as a third of its skin.
    height->setEnabled(type != ComponentKinds::PictureGauge);
}

void UIComponentCommonDialog::on_confirmButton_clicked()
{
    if (!confirmButton->isEnabled())
        return;
    if (accepted)
        *accepted = true;
    applyCommonFields(Name, Conditions, X_Position, Y_Position, Width_Scale, Height_Scale, Rotation, Opacity,
                      animations, json);
    const ComponentKinds::Kind* kind = ComponentKinds::find(type);
    if (kind) {
        QJsonObject data = json->value(QLatin1String(kind->dataKey)).toObject();
        if (Width && kind->size == ComponentKinds::SizeStorage::Size) {
            data.insert(QStringLiteral("Width"), Width->text().toInt());
            data.insert(QStringLiteral("Height"), Height->text().toInt());
        }
        json->insert(QLatin1String(kind->dataKey), data);
    }
    accept();
}

void UIComponentCommonDialog::on_cancelButton_clicked()
{
    reject();
}
