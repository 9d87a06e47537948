#include "logic/ColorFilterAddonDialog.h"

#include "logic/AddonTables.h"
#include "widgets/MyColorPickerButton.h"
#include "widgets/MyLineEdit.h"

#include <QJsonObject>
#include <QVBoxLayout>

namespace {

QWidget* pair(QWidget* first, QWidget* second)
{
    QWidget* page = new QWidget();
    QVBoxLayout* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(first);
    layout->addWidget(second);
    return page;
}

}

ColorFilterAddonDialog::ColorFilterAddonDialog(QJsonObject* object, bool* accepted, QJsonObject*, int,
                                               QWidget* parent)
    : TypeTabDialog(accepted, parent), object(object), stored(object->contains(QStringLiteral("FilterType")))
{
    setObjectName(QStringLiteral("ColorFilterAddonDialog"));
    Hue = number("Hue", tr("Hue"), tr("The hue of the component."), 360, QStringLiteral("0"), "Hue");
    Tone = color("Tone", tr("Tone"), tr("The tone of the component."), "Tone");
    ToneGrey = number("ToneGrey", tr("Tone Greyness"), tr("The grey ratio of the tone."), 100, QStringLiteral("0"),
                      "Grey");
    Blend = color("Blend", tr("Blend"), tr("The color blended into the component."), "Blend");
    BlendOpacity = number("BlendOpacity", tr("Blend Opacity"), tr("The opacity of the blend."), 100,
                          QStringLiteral("0"), "Opacity");
    Brightness = number("Brightness", tr("Brightness"), tr("The brightness of the component."), 100,
                        QStringLiteral("100"), "Brightness");
    addTypePage(tr("Hue"), Hue);
    addTypePage(tr("Tone"), pair(Tone, ToneGrey));
    addTypePage(tr("Blend"), pair(Blend, BlendOpacity));
    addTypePage(tr("Brightness"), Brightness);
    finishTabs(tr("Color Filter Input"), object->value(QStringLiteral("FilterType")).toInt(0), 380);
    for (MyLineEdit* field : {Hue, ToneGrey, BlendOpacity, Brightness})
        field->setFollowerButton(confirmButton());
}

MyLineEdit* ColorFilterAddonDialog::number(const char* objectName, const QString& caption, const QString& hint,
                                           int maximum, const QString& initial, const char* key)
{
    MyLineEdit* field = new MyLineEdit();
    field->setObjectName(QLatin1String(objectName));
    field->setInputType(MyLineEdit::Integer);
    field->setCaption(caption);
    field->setProperty("mtt_title", caption);
    field->setProperty("mtt_desc", hint);
    field->setNumberField(0, maximum, 4);
    // Extension kind 0: the dynamic input.
    field->setExtendable(initial, 0, this);
    const QJsonValue value = object->value(QLatin1String(key));
    if (value.isObject()) {
        field->setValue(initial);
        field->fromJson(value);
        if (!field->isExtended()) {
            kept.insert(field, value);
            field->setEnabled(false);
        }
    } else {
        field->setValue(stored || value.isDouble() ? QString::number(value.toInt(0)) : initial);
    }
    return field;
}

MyColorPickerButton* ColorFilterAddonDialog::color(const char* objectName, const QString& caption,
                                                   const QString& hint, const char* key)
{
    MyColorPickerButton* field = new MyColorPickerButton();
    field->setObjectName(QLatin1String(objectName));
    field->setCaption(caption);
    field->setProperty("mtt_title", caption);
    field->setProperty("mtt_desc", hint);
    field->setParentDialog(this);
    field->setColor(QColor(object->value(QLatin1String(key)).toString(QStringLiteral("#000000"))));
    return field;
}

QJsonValue ColorFilterAddonDialog::numberOf(MyLineEdit* field) const
{
    return kept.value(field, field->toJson());
}

QString ColorFilterAddonDialog::colorOf(MyColorPickerButton* field, const char* key) const
{
    const QString before = object->value(QLatin1String(key)).toString();
    return QColor(before) == field->color() ? before : field->color().name();
}

void ColorFilterAddonDialog::on_confirmButton_clicked()
{
    if (!confirmButton()->isEnabled())
        return;
    const int type = currentType();
    QJsonObject result{{QStringLiteral("Type"), AddonTables::ColorFilter}, {QStringLiteral("FilterType"), type}};
    switch (type) {
    case 1:
        result.insert(QStringLiteral("Tone"), colorOf(Tone, "Tone"));
        result.insert(QStringLiteral("Grey"), numberOf(ToneGrey));
        break;
    case 2:
        result.insert(QStringLiteral("Blend"), colorOf(Blend, "Blend"));
        result.insert(QStringLiteral("Opacity"), numberOf(BlendOpacity));
        break;
    case 3:
        result.insert(QStringLiteral("Brightness"), numberOf(Brightness));
        break;
    default:
        result.insert(QStringLiteral("Hue"), numberOf(Hue));
        break;
    }
    *object = result;
    acceptChoice();
}

void ColorFilterAddonDialog::on_cancelButton_clicked()
{
    reject();
}
