#include "theme/ThemeBuilder.h"

#include "widgets/ConfirmationDialog.h"
#include "widgets/CustomTitleBar.h"
#include "widgets/MyColorPickerButton.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MySlider.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace {

const int GroupRow = -1;

}

ThemeBuilder::ThemeBuilder(ThemeManager* manager, ThemeTable* table, bool* confirmed, QString* name,
                           QStringList* usedNames, QWidget* parent)
    : TrovDialog(parent), result(table), confirmed(confirmed), name(name), startName(name ? *name : QString()),
      usedNames(usedNames ? *usedNames : QStringList()), original(Theme::table()), working(Theme::table())
{
    setObjectName(QStringLiteral("ThemeBuilder"));
    if (confirmed)
        *confirmed = false;
    const FormFrame frame = layOutForm();
    QWidget* content = frame.content;

    ThemeName = new MyLineEdit(content);
    ThemeName->setObjectName(QStringLiteral("ThemeName"));
    ThemeName->setInputType(MyLineEdit::Text);
    ThemeName->setCaption(tr("Theme Name"));
    ThemeName->setProperty("mtt_title", tr("Theme Name"));
    ThemeName->setProperty("mtt_desc", tr("The name of the theme."));
    frame.contentLayout->addWidget(ThemeName);

    QHBoxLayout* columns = new QHBoxLayout();
    columns->setSpacing(12);
    MyGroupBox* listGroup = new MyGroupBox(tr("Theme Colors"), content);
    QVBoxLayout* listLayout = new QVBoxLayout(listGroup);
    listLayout->setContentsMargins(8, MyGroupBox::TitleHeight + 6, 8, 8);
    colors = new UltimateTreeWidget(listGroup);
    colors->setObjectName(QStringLiteral("colors"));
    colors->setMinimumSize(300, 420);
    UltimateTree* tree = colors->tree();
    tree->setKeepSelectionLook(true);
    tree->setTextOffset(20);
    tree->startView();
    if (manager) {
        for (const ThemeColorGroup& group : manager->colorGroups()) {
            UltimateTreeItem* top = new UltimateTreeItem();
            top->setId(GroupRow);
            top->setText(0, group.name);
            top->setBold(0, true);
            tree->addRow(top);
            for (const ThemeColorEntry& entry : group.entries) {
                UltimateTreeItem* row = new UltimateTreeItem();
                row->setId(entry.key);
                row->setText(0, entry.name);
                top->addChild(row);
            }
            top->expand();
        }
    }
    fitListToNames();
    listLayout->addWidget(colors);
    columns->addWidget(listGroup, 1);

    MyGroupBox* colorGroup = new MyGroupBox(tr("Color"), content);
    QVBoxLayout* colorLayout = new QVBoxLayout(colorGroup);
    colorLayout->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 12, 14);
    colorLayout->setSpacing(10);
    Color = new MyColorPickerButton(colorGroup);
    Color->setObjectName(QStringLiteral("Color"));
    Color->setCaption(tr("Color"));
    Color->setProperty("mtt_title", tr("Color"));
    Color->setProperty("mtt_desc", tr("The color assigned to the theme."));
    colorLayout->addWidget(Color);
    Red = addSlider(colorGroup, "Red", tr("Red"), 255);
    Green = addSlider(colorGroup, "Green", tr("Green"), 255);
    Blue = addSlider(colorGroup, "Blue", tr("Blue"), 255);
    Hue = addSlider(colorGroup, "Hue", tr("Hue"), 360);
    Saturation = addSlider(colorGroup, "Saturation", tr("Saturation"), 255);
    Lightness = addSlider(colorGroup, "Lightness", tr("Lightness"), 255);
    for (MySlider* slider : {Red, Green, Blue})
        connect(slider, &QSlider::valueChanged, this, &ThemeBuilder::rgb_sliderMoved);
    for (MySlider* slider : {Hue, Saturation, Lightness})
        connect(slider, &QSlider::valueChanged, this, &ThemeBuilder::hsl_sliderMoved);
    colorLayout->addStretch();
    colorGroup->setMinimumWidth(280);
    columns->addWidget(colorGroup);
    frame.contentLayout->addLayout(columns, 1);
    frame.contentLayout->addLayout(confirmRow(content, confirmButton, cancelButton));

    QMetaObject::connectSlotsByName(this);
    ThemeName->setValue(startName);
    on_ThemeName_textChanged(startName);
    if (tree->rowCount() > 0 && tree->row(0)->childCount() > 0)
        tree->setCurrentRow(tree->row(0)->child(0));
    else
        setSlidersEnabled(false);

    setCenterWidget(content);
    setTitleBar(frame.titleBar);
    setConfirmButton(confirmButton);
    setDialogTitle(tr("Theme Builder"));
    adjustSize();
    fixSize();
}

// The list is as wide as its longest colour name needs, so that no name is
// cut short, whichever language names them.
void ThemeBuilder::fitListToNames()
{
    UltimateTree* tree = colors->tree();
    int widest = 0;
    for (int group = 0; group < tree->rowCount(); ++group) {
        const UltimateTreeItem* top = tree->row(group);
        for (int child = 0; child < top->childCount(); ++child) {
            const UltimateTreeItem* row = top->child(child);
            // The row's indent and text offset, the name, and the room a row
            // keeps after its text.
            widest = qMax(widest, row->depth() * row->rowHeight() + tree->textOffsetFor(row)
                                      + tree->fontMetrics().horizontalAdvance(row->text(0)) + 8);
        }
    }
    const int chrome = 2 * tree->frameWidth() + style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, tree);
    colors->setMinimumWidth(qMax(colors->minimumWidth(), widest + chrome));
}

MySlider* ThemeBuilder::addSlider(QWidget* owner, const char* objectName, const QString& caption, int maximum)
{
    MySlider* slider = new MySlider(owner);
    slider->setObjectName(QLatin1String(objectName));
    slider->setCaption(caption);
    slider->setRange(0, maximum);
    slider->setProperty("mtt_title", caption);
    slider->setProperty("mtt_desc", tr("The %1 value for the color.").arg(caption));
    owner->layout()->addWidget(slider);
    return slider;
}

int ThemeBuilder::currentKey() const
{
    const UltimateTreeItem* row = colors->tree()->currentRow();
    return row ? row->id() : GroupRow;
}

void ThemeBuilder::selectKey(int key)
{
    UltimateTree* tree = colors->tree();
    for (int i = 0; i < tree->rowCount(); ++i) {
        UltimateTreeItem* group = tree->row(i);
        for (int j = 0; j < group->childCount(); ++j) {
            if (group->child(j)->id() == key) {
                tree->setCurrentRow(group->child(j));
                colors->ensureRowVisible(group->child(j));
                return;
            }
        }
    }
}

void ThemeBuilder::setSlidersEnabled(bool on)
{
    for (QWidget* widget : {static_cast<QWidget*>(Color), static_cast<QWidget*>(Red), static_cast<QWidget*>(Green),
                            static_cast<QWidget*>(Blue), static_cast<QWidget*>(Hue),
                            static_cast<QWidget*>(Saturation), static_cast<QWidget*>(Lightness)})
        widget->setEnabled(on);
}

void ThemeBuilder::setSliders(const QColor& color)
{
    settingSliders = true;
    Red->setValue(color.red());
    Green->setValue(color.green());
    Blue->setValue(color.blue());
    // A grey has no hue (-1): the slider shows 0.
    Hue->setValue(qMax(0, color.hslHue()));
    Saturation->setValue(color.hslSaturation());
    Lightness->setValue(color.lightness());
    settingSliders = false;
}

void ThemeBuilder::on_colors_currentItemChanged(UltimateTreeItem* current, UltimateTreeItem*)
{
    // The colour of the row left behind is in the working table already:
    // every change lands there as it is made.
    if (current && current->id() != GroupRow) {
        setSlidersEnabled(true);
        const QColor color = working.value(current->id());
        Color->setColor(color);
        setSliders(color);
    } else {
        setSliders(Qt::black);
        setSlidersEnabled(false);
    }
}

void ThemeBuilder::takeColor(const QColor& color)
{
    const int key = currentKey();
    if (key == GroupRow || !color.isValid())
        return;
    Color->setColor(color);
    if (working.value(key) == color)
        return;
    working.insert(key, color);
    previewed = true;
    Theme::replace(working);
}

void ThemeBuilder::rgb_sliderMoved()
{
    if (settingSliders)
        return;
    const QColor color(Red->value(), Green->value(), Blue->value());
    settingSliders = true;
    Hue->setValue(qMax(0, color.hslHue()));
    Saturation->setValue(color.hslSaturation());
    Lightness->setValue(color.lightness());
    settingSliders = false;
    takeColor(color);
}

void ThemeBuilder::hsl_sliderMoved()
{
    if (settingSliders)
        return;
    QColor color;
    color.setHsl(Hue->value() % 360, Saturation->value(), Lightness->value(), 255);
    settingSliders = true;
    Red->setValue(color.red());
    Green->setValue(color.green());
    Blue->setValue(color.blue());
    settingSliders = false;
    takeColor(color.toRgb());
}

void ThemeBuilder::on_Color_colorChanged(const QColor& color)
{
    setSliders(color);
    takeColor(color);
}

bool ThemeBuilder::nameInUse(const QString& text) const
{
    return text != startName && usedNames.contains(text);
}

void ThemeBuilder::on_ThemeName_textChanged(const QString& text)
{
    ThemeName->setWarningText(nameInUse(text) ? tr("Theme already exists!") : QString());
    // A name is a folder's name: it can't be empty nor hold a path.
    const QString trimmed = text.trimmed();
    confirmButton->setEnabled(!trimmed.isEmpty() && !text.contains(QLatin1Char('/'))
                              && !text.contains(QLatin1Char('\\')) && trimmed != QLatin1String(".")
                              && trimmed != QLatin1String(".."));
}

void ThemeBuilder::on_confirmButton_clicked()
{
    if (!confirmButton->isEnabled())
        return;
    const QString chosen = ThemeName->text();
    if (nameInUse(chosen)) {
        int answer = 2;
        darken();
        ConfirmationDialog ask(tr("A theme named \"%1\" exists already. Replace it with this one?").arg(chosen),
                               tr("Theme Builder"), &answer, this, ConfirmationDialog::YesNo);
        ask.exec();
        undarken();
        if (answer != 0)
            return;
    }
    if (result)
        *result = working;
    if (name)
        *name = chosen;
    if (confirmed)
        *confirmed = true;
    finished = true;
    accept();
}

void ThemeBuilder::on_cancelButton_clicked()
{
    reject();
}

void ThemeBuilder::done(int outcome)
{
    // However the dialog ends without confirming, the theme that was
    // shown comes back.
    if (!finished && previewed) {
        Theme::replace(original);
        previewed = false;
    }
    TrovDialog::done(outcome);
}
