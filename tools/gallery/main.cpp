// The widget gallery: every form widget of the program in each of its looks,
// side by side, so that a theme or a language can be checked at a glance.
// Usage: velmora-gallery [--theme NAME] [--language FILE.csv] [--screenshot FILE.png] [--alert]
//                        [--dialog selector|TYPE|TYPE:addons]
//                        [--picker color|image|font|easing|switch|variable|database|code|actor|dynamic|runtype
//                                  |conditions|condition-chooser|condition:TYPE
//                                  |addon-chooser|addon:TYPE
//                                  |text[:TYPE]|number[:TYPE]|list[:TYPE]
//                                  |hud|param|setter[:number]|hud-selector]
//                        [--project FOLDER]
// With --picker the picker dialog opens over the gallery on the project's
// pictures or fonts, and --screenshot takes its picture instead.
#include "app/PathManager.h"
#include "app/ProjectData.h"
#include "app/Startup.h"
#include "app/VelmoHUDDialog.h"
#include "app/VelmoHUDDialogParamInput.h"
#include "components/GameUIEditorSceneHelper.h"
#include "scene/UIComponentBaseDialog.h"
#include "components/ComponentKinds.h"
#include "components/VelmoUISelector.h"
#include "logic/AddonSelector.h"
#include "logic/HudCatalog.h"
#include "logic/OpenAddonDialog.h"
#include "logic/OpenConditionDialog.h"
#include "logic/RMActorSelector.h"
#include "logic/RMCodeInput.h"
#include "logic/RMCondition.h"
#include "logic/RMConditionList.h"
#include "logic/RMDatabaseItemSelector.h"
#include "logic/RMListSelector.h"
#include "logic/RMNumberSelector.h"
#include "logic/RMTextSelector.h"
#include "logic/SwitchSelector.h"
#include "logic/VelmoHUDDialogParamSetter.h"
#include "logic/VelmoHUDSelector.h"
#include "logic/VelmoAnimationStyle.h"
#include "logic/VelmoTextInputExtend.h"
#include "scene/CustomPropertyEdit.h"
#include "scene/UIComponentAnimationDialog.h"
#include "theme/MorvikCSVTranslator.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "theme/VelmoStyle.h"
#include "widgets/AlertDialog.h"
#include "widgets/AnimatedLook.h"
#include "widgets/ErrorInfoPopup.h"
#include "widgets/HaxeCodeEdit.h"
#include "widgets/BasicFontSelector.h"
#include "widgets/BasicImageSelector.h"
#include "widgets/EasingCurveSelector.h"
#include "widgets/InflateButton.h"
#include "widgets/InflateLabel.h"
#include "widgets/MicroButton.h"
#include "widgets/MyButton.h"
#include "widgets/MyCheckBox.h"
#include "widgets/MyColorPicker.h"
#include "widgets/MyColorPickerButton.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyComboInput.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyEitherBox.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyHorizontalLine.h"
#include "widgets/MyImageSelector.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPlainTextEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/MyRadioButton.h"
#include "widgets/MySlider.h"
#include "widgets/MyTabSystem.h"
#include "widgets/UltimateToolTip.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QGridLayout>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

#include <cstdio>
#include <functional>

namespace {

// What a game maker writes in the code input: a small RPG Maker MZ plugin.
const char* const PluginScript = R"(/*:
 * @target MZ
 * @plugindesc Shows the party's gold beside the HUD.
 *
 * @param Gold Icon
 * @type number
 * @default 313
 */
(() => {
	'use strict';
	const pluginName = "VelmoraGoldWindow";
	const params = PluginManager.parameters(pluginName);
	const iconIndex = Number(params['Gold Icon'] || 313); // 313: coin

	function Window_HudGold(rect) {
		this.initialize(rect);
	}

	Window_HudGold.prototype = Object.create(Window_Base.prototype);
	Window_HudGold.prototype.constructor = Window_HudGold;

	Window_HudGold.prototype.refresh = function() {
		const gold = $gameParty.gold();
		this.contents.clear();
		this.drawIcon(iconIndex, 0, 2);
		if (gold >= 10000) {
			this.changeTextColor(ColorManager.powerUpColor());
		}
		this.drawText(gold + " G", 36, 0, this.innerWidth - 36, "right");
	};

	const _Scene_Map_start = Scene_Map.prototype.start;
	Scene_Map.prototype.start = function() {
		_Scene_Map_start.call(this);
		switch ($gameVariables.value(12)) {
			case 0:
				this._hudGold = new Window_HudGold(new Rectangle(0, 0, 240, 64));
				break;
		}
	};
})();
)";

// The program's own texts, so that a language file translates them.
QString t(const char* text)
{
    return QCoreApplication::translate("", text);
}

const char* const StateNames[] = {"Normal", "Hover", "Pressed / open", "Focused / checked", "Disabled"};
enum State { Normal, Hover, Pressed, Focused, Disabled };

// The project whose pictures and fonts the pickers show.
QString projectFolder;

QString picturesFolder()
{
    return projectFolder + QStringLiteral("/img/pictures");
}

QString fontsFolder()
{
    return projectFolder + QStringLiteral("/fonts");
}

class Gallery : public QWidget
{
public:
    static const int CellWidth = 256;

    Gallery()
    {
        setObjectName(QStringLiteral("gallery"));
        setAutoFillBackground(true);
        grid = new QGridLayout(this);
        grid->setContentsMargins(16, 12, 16, 16);
        grid->setHorizontalSpacing(14);
        grid->setVerticalSpacing(10);
        for (int column = 0; column < 5; ++column)
            grid->setColumnMinimumWidth(column + 1, CellWidth);
        grid->setColumnMinimumWidth(0, 120);
        for (int state = Normal; state <= Disabled; ++state)
            grid->addWidget(heading(QString::fromLatin1(StateNames[state])), 0, state + 1);

        addRow(QStringLiteral("MyLineEdit"), [](int state) -> QWidget* {
            MyLineEdit* edit = new MyLineEdit;
            edit->setCaption(t("Value"));
            edit->setNumberField(1, 500, 4);
            edit->setValue(QStringLiteral("42"));
            if (state == Hover)
                edit->hoverLook()->jumpTo(300);
            if (state == Pressed) {
                // An invalid value: the red line and the range hint.
                edit->setText(QStringLiteral("501"));
                edit->textHasChanged(edit->text());
                edit->focusLook()->jumpTo(300);
            }
            if (state == Focused)
                edit->focusLook()->jumpTo(300);
            edit->setEnabled(state != Disabled);
            return edit;
        });
        addRow(QStringLiteral("MyLineEdit (text)"), [](int state) -> QWidget* {
            MyLineEdit* edit = new MyLineEdit;
            edit->setInputType(MyLineEdit::Text);
            edit->setCaption(t("Window Text"));
            edit->setValue(t("Open a project, or drop its \".rmmzproject\" file here."));
            edit->setCursorPosition(0);
            if (state == Hover)
                edit->hoverLook()->jumpTo(300);
            if (state == Pressed) {
                edit->setWarningText(QStringLiteral("Name already in use!"));
                edit->hintLook()->jumpTo(300);
            }
            if (state == Focused)
                edit->focusLook()->jumpTo(300);
            edit->setEnabled(state != Disabled);
            return edit;
        });
        addRow(QStringLiteral("MyComboBox"), [](int state) -> QWidget* {
            MyComboBox* combo = new MyComboBox;
            combo->setCaption(t("Map HUD"));
            combo->addItem(t("Battle HUD"), 0);
            combo->addItem(t("Open a project, or drop its \".rmmzproject\" file here."), 1);
            combo->addItem(QStringLiteral("(None)"), MyComboBox::ItalicData);
            combo->setCurrentIndex(state == Focused ? 2 : (state == Hover ? 1 : 0), false);
            if (state == Hover)
                combo->hoverLook()->jumpTo(300);
            if (state == Pressed)
                combo->pressLook()->jumpTo(300);
            combo->setEnabled(state != Disabled);
            return combo;
        });
        addRow(QStringLiteral("MyComboInput"), [](int state) -> QWidget* {
            MyComboInput* input = new MyComboInput;
            input->setCaption(t("Window Text"));
            input->setSuggestions({t("Map HUD"), t("Battle HUD")});
            input->setValue(t("Map HUD"));
            if (state == Hover)
                input->hoverLook()->jumpTo(300);
            if (state == Focused || state == Pressed)
                input->focusLook()->jumpTo(300);
            input->setEnabled(state != Disabled);
            return input;
        });
        addRow(QStringLiteral("MyEitherBox"), [](int state) -> QWidget* {
            MyEitherBox* either = new MyEitherBox;
            either->setPlaceholder(t("Value"));
            either->setChoices(QStringLiteral("ON"), QStringLiteral("OFF"));
            either->setChoice(state != Focused, true);
            if (state == Hover)
                either->hoverLook()->jumpTo(1000);
            if (state == Pressed) {
                either->hoverLook()->jumpTo(1000);
                either->setDown(true);
            }
            either->setEnabled(state != Disabled);
            return either;
        });
        addRow(QStringLiteral("MyDialogOpener"), [](int state) -> QWidget* {
            MyDialogOpener* opener = new MyDialogOpener;
            opener->setTitle(t("Open Project"));
            if (state == Focused) {
                opener->setValue(QStringLiteral("(None)"));
                opener->setItalic(true);
            } else {
                opener->setValue(QStringLiteral("[0001] ") + t("Open a project, or drop its \".rmmzproject\" file here."));
            }
            if (state == Hover)
                opener->hoverLook()->jumpTo(300);
            if (state == Pressed) {
                opener->pressLook()->jumpTo(300);
                opener->hoverLook()->jumpTo(300);
            }
            opener->setEnabled(state != Disabled);
            return opener;
        });
        addRow(QStringLiteral("MyColorPickerButton"), [](int state) -> QWidget* {
            MyColorPickerButton* button = new MyColorPickerButton;
            button->setCaption(t("Color Picker"));
            button->setColor(state == Focused ? QColor(0x32, 0x64, 0xc8) : QColor(0xa8, 0x75, 0x32));
            if (state == Hover)
                button->hoverLook()->jumpTo(100);
            if (state == Pressed) {
                button->pressLook()->jumpTo(300);
                button->hoverLook()->jumpTo(100);
            }
            button->setEnabled(state != Disabled);
            return button;
        });
        addRow(QStringLiteral("MyImageSelector"), [](int state) -> QWidget* {
            MyImageSelector* selector = new MyImageSelector;
            selector->setCaption(t("Image Selector"));
            selector->setFolder(picturesFolder());
            if (state != Focused)
                selector->setImage(state == Hover ? QStringLiteral("HudFrame") : QStringLiteral("Coin"));
            if (state == Hover)
                selector->hoverLook()->jumpTo(300);
            if (state == Pressed) {
                selector->pressLook()->jumpTo(300);
                selector->hoverLook()->jumpTo(300);
            }
            selector->setEnabled(state != Disabled);
            return selector;
        });
        addRow(QStringLiteral("Font field\nEasing field"), [](int state) -> QWidget* {
            QWidget* box = new QWidget;
            QVBoxLayout* layout = new QVBoxLayout(box);
            layout->setContentsMargins(0, 0, 0, 0);
            MyDialogOpener* font = new MyDialogOpener;
            font->setTitle(t("Font Selector"));
            BasicFontSelector::showFont(font, state == Focused ? QString() : QStringLiteral("DejaVuSerif-Latin.woff"));
            MyDialogOpener* easing = new MyDialogOpener;
            easing->setTitle(t("Easing Curve"));
            easing->setValue(EasingCurveSelector::display(state == Focused ? 0 : 3 * state + 2));
            for (MyDialogOpener* opener : {font, easing}) {
                if (state == Hover)
                    opener->hoverLook()->jumpTo(300);
                if (state == Pressed)
                    opener->pressLook()->jumpTo(300);
                layout->addWidget(opener);
            }
            box->setEnabled(state != Disabled);
            return box;
        });
        addRow(QStringLiteral("MySlider"), [](int state) -> QWidget* {
            QWidget* box = new QWidget;
            QVBoxLayout* layout = new QVBoxLayout(box);
            layout->setContentsMargins(0, 0, 0, 0);
            MySlider* framed = new MySlider;
            framed->setCaption(t("Value"));
            framed->setRange(0, 100);
            framed->setValue(state == Pressed ? 100 : 35);
            MySlider* compact = new MySlider;
            compact->setFramed(false);
            compact->setRange(0, 100);
            compact->setValue(state == Pressed ? 0 : 65);
            if (state == Hover || state == Pressed) {
                framed->setCurrState(8);
                compact->setCurrState(8);
            }
            layout->addWidget(framed);
            layout->addWidget(compact);
            box->setEnabled(state != Disabled);
            return box;
        });
        addRow(QStringLiteral("MyCheckBox\nMyRadioButton"), [](int state) -> QWidget* {
            QWidget* box = new QWidget;
            QVBoxLayout* layout = new QVBoxLayout(box);
            layout->setContentsMargins(4, 0, 0, 0);
            MyCheckBox* check = new MyCheckBox(t("Reload Project"));
            MyRadioButton* radio = new MyRadioButton(t("Open a project, or drop its \".rmmzproject\" file here."));
            check->setNoAnimation(true);
            if (state == Focused || state == Disabled || state == Pressed) {
                check->setChecked(true);
                radio->setChecked(true);
                radio->checkLook()->jumpTo(100);
            }
            if (state == Pressed) {
                check->setDown(true);
                radio->setDown(true);
            }
            if (state == Hover || state == Pressed) {
                check->hoverLook()->jumpTo(100);
                radio->hoverLook()->jumpTo(100);
            }
            layout->addWidget(check);
            layout->addWidget(radio);
            box->setEnabled(state != Disabled);
            return box;
        });
        addRow(QStringLiteral("MyButton"), [](int state) -> QWidget* {
            QWidget* box = new QWidget;
            QHBoxLayout* layout = new QHBoxLayout(box);
            layout->setContentsMargins(0, 4, 0, 6);
            MyButton* confirm = new MyButton(t("Open"));
            confirm->setObjectName(QStringLiteral("confirm"));
            confirm->setButtonColor(themeColor(ThemeKey::ConfirmButton));
            MyButton* cancel = new MyButton(t("Cancel"));
            cancel->setObjectName(QStringLiteral("cancel"));
            cancel->setButtonColor(themeColor(ThemeKey::CancelButton));
            if (state == Hover) {
                confirm->setFade(100);
                cancel->setFade(100);
            }
            if (state == Pressed)
                confirm->setDown(true);
            layout->addWidget(confirm);
            layout->addWidget(cancel);
            box->setEnabled(state != Disabled);
            return box;
        });
        addRow(QStringLiteral("InflateButton\nMicroButton"), [](int state) -> QWidget* {
            QWidget* box = new QWidget;
            QHBoxLayout* layout = new QHBoxLayout(box);
            layout->setContentsMargins(4, 0, 0, 0);
            InflateButton* undo = new InflateButton(QIcon(QStringLiteral(":/resources/MenuBarIcons/Undo.png")),
                                                    t("Undo"), QString());
            InflateButton* redo = new InflateButton(QIcon(QStringLiteral(":/resources/MenuBarIcons/Redo.png")),
                                                    t("Redo"), QString());
            MicroButton* add = new MicroButton(QIcon(QStringLiteral(":/resources/ButtonIcons/Add.png")));
            MicroButton* remove = new MicroButton(QIcon(QStringLiteral(":/resources/ButtonIcons/Remove.png")));
            if (state == Hover) {
                undo->setTransfer(1000);
                undo->setHover(1000);
                add->setAnimator(100);
            }
            if (state == Pressed) {
                undo->setDown(true);
                add->setDown(true);
            }
            if (state == Focused) {
                undo->setCheckable(true);
                undo->setChecked(true);
            }
            layout->addWidget(undo);
            layout->addWidget(redo);
            layout->addSpacing(10);
            layout->addWidget(add);
            layout->addWidget(remove);
            layout->addStretch();
            box->setEnabled(state != Disabled);
            return box;
        });
        addRow(QStringLiteral("InflateLabel"), [](int state) -> QWidget* {
            InflateLabel* label = new InflateLabel(t("Save Project"));
            label->setAlignment(Qt::AlignCenter);
            if (state == Hover)
                label->setHover(1000);
            if (state == Pressed)
                label->setTransfer(600);
            label->setEnabled(state != Disabled);
            return label;
        });

        // Panels that take a whole row.
        int row = grid->rowCount();
        grid->addWidget(rowLabel(QStringLiteral("MyGroupBox\nMyHorizontalLine\nMyPlainTextEdit")), row, 0);
        MyGroupBox* group = new MyGroupBox(t("Save Confirmation"));
        QVBoxLayout* groupLayout = new QVBoxLayout(group);
        groupLayout->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 12, 14);
        QLabel* text = new QLabel(t("Would you like to save before closing?"));
        groupLayout->addWidget(text);
        groupLayout->addWidget(new MyHorizontalLine);
        MyPlainTextEdit* plain = new MyPlainTextEdit;
        plain->setPlainText(QStringLiteral("// Insert code here.\nconst hud = $gameVelmora;"));
        plain->setCodeBox();
        plain->setFixedHeight(60);
        groupLayout->addWidget(plain);
        grid->addWidget(group, row, 1, 1, 2);
        MyGroupBox* disabledGroup = new MyGroupBox(t("HUD Delete Confirmation"));
        QVBoxLayout* disabledLayout = new QVBoxLayout(disabledGroup);
        disabledLayout->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 12, 14);
        disabledLayout->addWidget(new QLabel(t("Close")));
        disabledGroup->setEnabled(false);
        grid->addWidget(disabledGroup, row, 3);

        // The tooltip and an open drop-down are windows of their own; the
        // gallery shows pictures of them.
        group->setFixedWidth(2 * CellWidth + 14);
        disabledGroup->setFixedWidth(CellWidth);
        tipHolder = new QLabel;
        tipHolder->setFixedWidth(CellWidth);
        tipHolder->setMinimumHeight(90);
        grid->addWidget(tipHolder, row, 4);
        popupHolder = new QLabel;
        popupHolder->setFixedWidth(CellWidth);
        popupHolder->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        grid->addWidget(popupHolder, row, 5);

        row = grid->rowCount();
        grid->addWidget(rowLabel(QStringLiteral("MyTabSystem")), row, 0);
        grid->addWidget(tabs(MyTabSystem::Slide, false, false, 4), row, 1, 1, 2);
        grid->addWidget(tabs(MyTabSystem::Fade, true, false, 7), row, 3, 1, 2);
        grid->addWidget(tabs(MyTabSystem::Shrink, false, true, 5), row, 5);

        row = grid->rowCount();
        grid->addWidget(rowLabel(QStringLiteral("HaxeCodeEdit\nErrorInfoPopup")), row, 0);
        code = new HaxeCodeEdit;
        code->setLanguageMode(HaxeCodeEdit::JavaScript);
        code->setPlainText(QString::fromUtf8(PluginScript));
        // Two lines selected from the gutter, so that its marking shows.
        code->selectLines(12, 13);
        code->setFixedSize(3 * CellWidth + 2 * 14, 330);
        grid->addWidget(code, row, 1, 1, 3);
        errorHolder = new QLabel;
        errorHolder->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        grid->addWidget(errorHolder, row, 4, 1, 2);
    }

    // Takes the pictures of the tooltip and a drop-down once the window stands.
    void picturePopups()
    {
        QWidget* anchor = grid->itemAtPosition(1, 1)->widget();
        UltimateToolTip* tip = UltimateToolTip::showFor(anchor, t("Open Project"),
                                                        t("Reload Project") + QStringLiteral("\n\n") + t("Save Project"),
                                                        anchor->mapToGlobal(QPoint(10, 10)));
        QTimer::singleShot(250, this, [this, tip]() {
            tipHolder->setPixmap(tip->grab());
            tip->hide();
            tip->deleteLater();
        });
        // A combo of its own, hidden behind the holder, so that the rows of
        // combos keep their looks.
        MyComboBox* combo = new MyComboBox(popupHolder);
        combo->setGeometry(0, 0, popupHolder->width(), 46);
        combo->addItem(t("Battle HUD"), 0);
        combo->addItem(t("Open a project, or drop its \".rmmzproject\" file here."), 1);
        combo->addItem(t("Map HUD"), 2);
        combo->setMaxVisibleRows(2);
        combo->showPopup();
        // The error list over the bottom of the code input, as a script
        // check would fill it.
        code->verticalScrollBar()->setValue(0);
        ErrorInfoPopup* errors = code->errorPopup();
        errors->showErrors({{27, t("Save Project")}, {41, QStringLiteral("Unexpected token ')'")}});
        QTimer::singleShot(250, this, [this, errors]() {
            errorHolder->setPixmap(errors->grab());
            errors->hide();
        });
        QTimer::singleShot(300, this, [this, combo]() {
            if (MyPopup* popup = combo->popup()) {
                popupHolder->setPixmap(popup->grab());
                popup->hide();
            }
            combo->hide();
        });
    }

private:
    QLabel* heading(const QString& text)
    {
        QLabel* label = new QLabel(text);
        QFont bold = label->font();
        bold.setBold(true);
        label->setFont(bold);
        return label;
    }

    QLabel* rowLabel(const QString& text)
    {
        QLabel* label = heading(text);
        label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        return label;
    }

    void addRow(const QString& name, const std::function<QWidget*(int)>& make)
    {
        const int row = grid->rowCount();
        grid->addWidget(rowLabel(name), row, 0);
        // A fixed width, so that long texts of a language show how they elide.
        for (int state = Normal; state <= Disabled; ++state) {
            QWidget* cell = make(state);
            cell->setFixedWidth(CellWidth);
            grid->addWidget(cell, row, state + 1);
        }
    }

    MyTabSystem* tabs(int style, bool twoRows, bool vertical, int count)
    {
        MyTabSystem* system = new MyTabSystem;
        system->setTransitionStyle(style);
        if (twoRows)
            system->enableTwoRows();
        system->setVertical(vertical);
        const char* const names[] = {"Value", "Map HUD", "Battle HUD", "Window Text", "Open Project",
                                     "Reload Project", "Save Project", "Close"};
        for (int i = 0; i < count; ++i) {
            QWidget* page = new QWidget;
            QVBoxLayout* layout = new QVBoxLayout(page);
            MyLineEdit* edit = new MyLineEdit;
            edit->setCaption(t(names[i % 8]));
            edit->setValue(QString::number(i + 1));
            layout->addWidget(edit);
            layout->addStretch();
            system->addTab(t(names[i % 8]), page);
        }
        system->setMinimumHeight(twoRows ? 150 : 124);
        system->setFixedWidth(vertical ? CellWidth : 2 * CellWidth + 14);
        return system;
    }

    QGridLayout* grid;
    QLabel* tipHolder;
    QLabel* popupHolder;
    HaxeCodeEdit* code;
    QLabel* errorHolder;
};

// An add-on of one "Type", as a user might have made it.
QJsonObject addonSample(int type)
{
    const QByteArray samples[] = {
        R"j({"Type":0,"Note":"Shown on the map only.\nAsk Mira before moving it."})j",
        R"j({"Type":1,"FilterType":1,"Tone":"#a87532","Grey":35})j",
        R"j({"Type":2,"HoverType":0,"ID":2})j",
        R"j({"Type":3,"ClickType":1,"Code":"SceneManager.push(Scene_Menu);"})j",
        R"j({"Type":4,"Property":7,"Code":"return $gameParty.inBattle() ? 0.5 : 1.0;"})j",
        R"j({"Type":5,"Behavior":2,"Code":"// Insert code here."})j",
    };
    return QJsonDocument::fromJson(samples[qBound(0, type, 5)]).object();
}

// A component of the kind as a document has it, with a condition, two
// animations, two custom properties and an add-on of each kind, for its
// property dialog.
QJsonObject sampleComponent(int type)
{
    QJsonArray addons;
    for (int addon = 0; addon < 6; ++addon)
        addons.append(addonSample(addon));
    const ComponentKinds::Kind* kind = ComponentKinds::find(type);
    return QJsonObject{
        {kind ? kind->dataKey : "Data", QJsonObject{{"Addons", addons}}},
        {"ID", 7},
        {"Type", type},
        {"Name", "Gold Amount"},
        {"X", 704},
        {"Y", 36},
        {"Rotation", 0},
        {"Opacity", 0.85},
        {"ScaleX", 1.5},
        {"ScaleY", 1.5},
        {"Conditions", QJsonArray{QJsonObject{{"Type", 0}, {"ID", 1}, {"Value", true}}}},
        {"Animations", QJsonArray{QJsonObject{{"Property", 7}, {"StartOpacity", 0}, {"EndOpacity", 1}},
                                  QJsonObject{{"Property", 1}, {"StartY", 60}, {"EndY", 36}}}},
        {"CustomProperties", QJsonObject{{"Speed", "4"}, {"Note", "Shown on the map\nonly"}}},
    };
}

void installHudSample();

// The component selector ("selector") or the property dialog of a kind (its
// "Type"), shown alone; with a file, pictured there.
int showDialog(const QString& which, const QString& shot)
{
    static QJsonObject projectData;
    const int type = which.section(QLatin1Char(':'), 0, 0).toInt();
    QJsonObject json = sampleComponent(type);
    // The custom kinds use the sample's "Party Row" with a value of each sort.
    if (which != QLatin1String("selector") && type >= ComponentKinds::Custom && type <= ComponentKinds::AttachCollection) {
        installHudSample();
        const char* dataKey = ComponentKinds::find(type)->dataKey;
        QJsonObject data = json.value(QLatin1String(dataKey)).toObject();
        data.insert("ID", "31405");
        data.insert("Params", QJsonObject{{"Actor Index", type == ComponentKinds::Custom ? QJsonValue(2) : QJsonValue(true)},
                                          {"Title", "Hero of the Realm"},
                                          {"Gauge Colour", QJsonObject{{"Type", 1}, {"Info", 8}}}});
        data.insert("Data", 4);
        data.insert("Code", "// Use \"entity\" to access list item.\nreturn entity.hp;");
        json.insert(QLatin1String(dataKey), data);
    }
    bool accepted = false;
    QScopedPointer<TrovDialog> dialog;
    if (which == QLatin1String("selector"))
        dialog.reset(new VelmoUISelector(&json, &accepted, 6, true, &projectData, nullptr));
    else
        dialog.reset(GameUIEditorSceneHelper<VelmoUISelector>::makeDialog(json, &accepted, true, nullptr, &projectData)
                         .release());
    if (!dialog)
        return 1;
    // "TYPE:addons" opens on the add-on list.
    if (which.endsWith(QLatin1String(":addons"))) {
        if (MyTabSystem* lists = dialog->findChild<MyTabSystem*>(QStringLiteral("lists")))
            lists->setCurrentIndex(2, true, true);
    }
    if (shot.isEmpty())
        return dialog->exec();
    dialog->show();
    QTimer::singleShot(700, dialog.data(), [&dialog, shot]() {
        if (!dialog->grab().save(shot))
            std::fprintf(stderr, "could not write %s\n", qPrintable(shot));
        QApplication::quit();
    });
    return QApplication::exec();
}

// A value of one "Type" for the dynamic text or number input ("number:8" is math).
QJsonObject dynamicSample(const QString& which)
{
    const bool numeric = which.startsWith(QLatin1String("number"));
    const int type = which.section(QLatin1Char(':'), 1).toInt();
    const QByteArray samples[] = {
        numeric ? R"j({"Type":0,"Number":250})j" : R"j({"Type":0,"Text":"Quest Log"})j",
        R"j({"Type":1,"Info":101})j",
        numeric ? R"j({"Type":2,"ID":3,"OnNum":1,"OffNum":{"Type":1,"ID":4}})j"
                : R"j({"Type":2,"ID":3,"OnText":"Open","OffText":"Closed"})j",
        R"j({"Type":3,"ID":2})j",
        R"j({"Type":4,"ActorType":false,"Index":1,"Info":3})j",
        R"j({"Type":5,"EnemyType":true,"ID":1,"Info":1})j",
        R"j({"Type":6,"ItemType":1,"ID":2})j",
        R"j({"Type":7,"Code":"const gold = $gameParty.gold();\nreturn gold;","Display":"(gold)"})j",
        R"j({"Type":8,"FirstNum":{"Type":4,"ActorType":false,"Index":1,"Info":3},"SecondNum":{"Type":0,"Number":2},"Op":3})j",
        R"j({"Type":9,"ListData":{"Type":2,"MembersType":0,"Data":0},"Op":1,"Frequency":90})j",
    };
    return QJsonDocument::fromJson(samples[qBound(0, type, 9)]).object();
}

// A list value of one "Type" for the list input ("list:4" is an actor's list).
QJsonObject listSample(const QString& which)
{
    const int type = which.section(QLatin1Char(':'), 1).toInt();
    const QByteArray samples[] = {
        R"j({"Type":0,"Start":1,"End":{"Type":1,"ID":2}})j",
        R"j({"Type":1,"Start":2,"End":4})j",
        R"j({"Type":2,"MembersType":2,"Data":3,"Position":4})j",
        R"j({"Type":3,"ItemType":2,"Data":5,"Notetag":"Rarity"})j",
        R"j({"Type":4,"Index":1,"Data":16})j",
        R"j({"Type":5,"Index":2,"Data":13})j",
        R"j({"Type":6,"List1":{"Type":2,"MembersType":0,"Data":2},"List2":{"Type":0,"Start":1,"End":3}})j",
        R"j({"Type":7,"Code":"const ids = $gameParty.members().map(a => a.actorId());\nreturn ids;"})j",
    };
    return QJsonDocument::fromJson(samples[qBound(0, type, 7)]).object();
}

// A custom component with its parameters, as the HUD dialog edits it.
QJsonObject hudSample()
{
    return QJsonDocument::fromJson(R"j({"Name":"Party Row","IsHUD":false,"ID":"31405","Width":240,"Height":64,
        "Background":"/home/user/Pictures/party-row.png","HUD":[],
        "Params":[{"Name":"Actor Index","IsString":false},{"Name":"Title","IsString":true},
                  {"Name":"Gauge Colour","IsString":true}]})j")
        .object();
}

// The HUD list of a project, for the HUD selector.
void installHudSample()
{
    HudCatalog::setSource([]() {
        QVector<HudCatalog::Row> rows{{HudCatalog::Map, QJsonObject(), false},
                                      {HudCatalog::Battle, QJsonObject(), false},
                                      {HudCatalog::Custom, hudSample(), false},
                                      {HudCatalog::Custom,
                                       QJsonObject{{"Name", "Quest Tracker"}, {"ID", "20116"}, {"IsHUD", true}}, true},
                                      {HudCatalog::Custom,
                                       QJsonObject{{"Name", "Boss Bar"}, {"ID", "55021"}, {"IsHUD", false}}, false}};
        return rows;
    });
}

// A condition of one "Type", as a user might have made it.
QJsonObject conditionSample(int type)
{
    const QByteArray samples[] = {
        R"j({"Type":0,"ID":1,"Value":true})j",
        R"j({"Type":1,"ID":2,"Op":3,"Value":100})j",
        R"j({"Type":2,"ActorType":true,"Actor":1,"Check":3,"ID":2})j",
        R"j({"Type":3,"EnemyType":false,"Enemy":2,"Check":1,"ID":1})j",
        R"j({"Type":4,"State":8})j",
        R"j({"Type":5,"Op":3,"Value":500})j",
        R"j({"Type":6,"Key":0,"State":2})j",
        R"j({"Type":7,"Check":0,"ID":1})j",
        R"j({"Type":8,"Check":1})j",
        R"j({"Type":9,"Code":"// Shown while the party is small.\nreturn $gameParty.size() < 3;"})j",
        R"j({"Type":10,"Param":"ShowQuest"})j",
        R"j({"Type":11,"Param":"Mood","IsString":true,"Op":1,"Value":"angry"})j",
        R"j({"Type":12,"Number1":{"Type":4,"ActorType":false,"Index":1,"Info":3},"Op":2,"Number2":{"Type":3,"ID":2}})j",
        R"j({"Type":13,"Text1":{"Info":8,"Type":1},"Op":1,"Text2":{"Text":"Harbor Town","Type":0}})j",
    };
    return QJsonDocument::fromJson(samples[qBound(0, type, 13)]).object();
}

// The game-data pickers on the project's database; false for a name that
// isn't one of them.
bool runGameDataPicker(const QString& picker, QWidget* parent)
{
    static QJsonObject projectData;
    ProjectData::ScreenSize screen;
    ProjectData::load(QDir(projectFolder), projectData, screen);
    VelmoTextInputExtend::install(&projectData);
    bool accepted = false;
    bool removed = false;
    int id = 3;
    if (picker == QLatin1String("switch") || picker == QLatin1String("variable")) {
        SwitchSelector(&id, &accepted, &projectData, picker == QLatin1String("switch"), parent).exec();
    } else if (picker == QLatin1String("database")) {
        RMDatabaseItemSelector(&id, &accepted, &projectData, QStringLiteral("Actors.json"), t("Actor"), parent).exec();
    } else if (picker == QLatin1String("code")) {
        QString code = QString::fromUtf8(PluginScript);
        RMCodeInput(&code, &accepted, nullptr, parent).exec();
    } else if (picker == QLatin1String("actor")) {
        QJsonObject actor{{"Type", 0}, {"ID", 1}};
        RMActorSelector(&actor, &accepted, &projectData, parent).exec();
    } else if (picker == QLatin1String("dynamic")) {
        QJsonObject extension{{"Type", 1}, {"ID", 2}};
        VelmoTextInputExtend(&extension, &accepted, &removed, &projectData, true, parent).exec();
    } else if (picker == QLatin1String("runtype")) {
        QJsonObject runType{{"Type", 0}, {"RunType", 2}};
        VelmoAnimationStyle(&runType, &accepted, &projectData, parent).exec();
    } else if (picker == QLatin1String("conditions")) {
        QJsonArray conditions;
        for (const int type : {0, 5, 2, 12, 9, 7})
            conditions.append(conditionSample(type));
        RMConditionList(&conditions, &accepted, &projectData, parent).exec();
    } else if (picker == QLatin1String("condition-chooser")) {
        QJsonObject condition;
        RMCondition(&condition, &accepted, &projectData, parent).exec();
    } else if (picker.startsWith(QLatin1String("condition:"))) {
        QJsonObject condition = conditionSample(picker.section(QLatin1Char(':'), 1).toInt());
        openConditionDialog(&condition, &accepted, parent, &projectData);
    } else if (picker.startsWith(QLatin1String("animation"))) {
        // "animation:N" shows an entry of property N, on a window that can
        // animate everything.
        VelmoAnimationStyle::install(&projectData);
        const int property = picker.section(QLatin1Char(':'), 1).toInt();
        QJsonObject entry{{"Property", property}, {"Type", 2}, {"Duration", 90}, {"EasingCurve", 5},
                          {"ActivateType", QJsonObject{{"Type", 0}, {"RunType", 3}}}, {"Reset", true},
                          {"ReturnEasing", 1}, {"StartX", -40}, {"EndX", 120}, {"StartScaleWidth", 0.5},
                          {"EndScaleWidth", 1.25}, {"StartOpacity", 0}, {"EndOpacity", 1}, {"StartRotation", -90},
                          {"EndRotation", 90}, {"StartOffset", 8}, {"EndOffset", 64}};
        UIComponentAnimationDialog(&entry, &accepted, UIComponentAnimationDialog::HasOpenness
                                                          | UIComponentAnimationDialog::HasRepeatOffset,
                                   parent)
            .exec();
    } else if (picker == QLatin1String("property")) {
        QString name = QStringLiteral("Greeting");
        QString value = QStringLiteral("Welcome back,\nhero!");
        CustomPropertyEdit(&name, &value, {name, QStringLiteral("Speed")}, &accepted, parent).exec();
    } else if (picker == QLatin1String("addon-chooser")) {
        QJsonObject addon;
        AddonSelector(&addon, &accepted, &projectData, ComponentKinds::capabilities(ComponentKinds::Window), parent)
            .exec();
    } else if (picker.startsWith(QLatin1String("addon:"))) {
        QJsonObject addon = addonSample(picker.section(QLatin1Char(':'), 1).toInt());
        openAddonDialog(&addon, &accepted, &projectData, ComponentKinds::capabilities(ComponentKinds::Window), parent);
    } else if (picker.startsWith(QLatin1String("text"))) {
        QJsonObject value = dynamicSample(picker);
        RMTextSelector(&value, &accepted, &projectData, parent).exec();
    } else if (picker.startsWith(QLatin1String("number"))) {
        QJsonObject value = dynamicSample(picker);
        RMNumberSelector(&value, &accepted, &projectData, parent).exec();
    } else if (picker.startsWith(QLatin1String("list"))) {
        QJsonObject value = listSample(picker);
        RMListSelector(&value, &accepted, &projectData, parent).exec();
    } else if (picker == QLatin1String("hud")) {
        QJsonObject hud = hudSample();
        VelmoHUDDialog(&hud, &accepted, 0, parent).exec();
    } else if (picker == QLatin1String("param")) {
        QJsonObject parameter{{"Name", "Title"}, {"IsString", true}};
        QStringList names{QStringLiteral("Actor Index"), QStringLiteral("Title")};
        VelmoHUDDialogParamInput(&parameter, &accepted, &names, parent).exec();
    } else if (picker.startsWith(QLatin1String("setter"))) {
        const bool number = picker.endsWith(QLatin1String(":number"));
        QJsonValue value = number ? QJsonValue(QJsonObject{{"Type", 1}, {"ID", 2}}) : QJsonValue("Hero");
        VelmoHUDDialogParamSetter(&value, !number, true, &accepted, number ? t("Actor Index") : t("Title"), parent)
            .exec();
    } else if (picker == QLatin1String("hud-selector")) {
        installHudSample();
        QString identifier = QStringLiteral("31405");
        VelmoHUDSelector(&identifier, &accepted, VelmoHUDSelector::CustomComponents, parent).exec();
    } else {
        return false;
    }
    return true;
}

}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    initVelmoraResources();
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Velmora widget gallery"));
    parser.addHelpOption();
    parser.addOption({QStringLiteral("theme"), QStringLiteral("Theme to show (default: the built-in one)."),
                      QStringLiteral("name")});
    parser.addOption({QStringLiteral("language"), QStringLiteral("Translation CSV file."), QStringLiteral("file")});
    parser.addOption({QStringLiteral("screenshot"), QStringLiteral("Write a picture of the gallery and quit."),
                      QStringLiteral("file")});
    parser.addOption({QStringLiteral("picker"),
                      QStringLiteral("Open a picker over the gallery: color, image, font, easing, switch, variable, "
                                     "database, code, actor, dynamic, runtype, animation (with :PROPERTY), "
                                     "property, the dynamic text or number input (text, number, with :TYPE for a "
                                     "value of that \"Type\"), the condition list (conditions), its chooser "
                                     "(condition-chooser), a kind's dialog (condition:TYPE), the list input (list, "
                                     "with :TYPE), the HUD dialog (hud), its parameter (param), the parameter "
                                     "setter (setter, setter:number) or the HUD selector (hud-selector)."),
                      QStringLiteral("kind")});
    parser.addOption({QStringLiteral("project"),
                      QStringLiteral("The project whose pictures and fonts the pickers show (default: the sample)."),
                      QStringLiteral("folder")});
    parser.addOption({QStringLiteral("alert"),
                      QStringLiteral("Show an alert over the gallery, to see the dialog frame the window manager gives.")});
    parser.addOption({QStringLiteral("dialog"),
                      QStringLiteral("Show a dialog instead: \"selector\", or a component \"Type\" (0 to 13) for "
                                     "its property dialog."),
                      QStringLiteral("which")});
    parser.process(application);

    Theme::installDefault();
    const QString theme = parser.value(QStringLiteral("theme"));
    if (!theme.isEmpty() && !Theme::load(theme))
        std::fprintf(stderr, "theme \"%s\" not found, showing the default\n", qPrintable(theme));
    Theme::refreshCachedColors();
    if (parser.isSet(QStringLiteral("language")))
        MorvikCSVTranslator::installLanguage(parser.value(QStringLiteral("language")));
    QApplication::setStyle(new VelmoStyle());
    Theme::apply();
    projectFolder = parser.isSet(QStringLiteral("project")) ? parser.value(QStringLiteral("project"))
                                                            : QStringLiteral(VELMORA_SAMPLE_PROJECT);
    BasicFontSelector::setFontLoader([](const QString& fileName, const QDir& folder) {
        PathManager::getFont(fileName, folder, false);
        return PathManager::loadedFontFamily(fileName);
    });
    if (parser.isSet(QStringLiteral("dialog")))
        return showDialog(parser.value(QStringLiteral("dialog")), parser.value(QStringLiteral("screenshot")));

    Gallery* gallery = new Gallery;
    QScrollArea scroll;
    scroll.setWidget(gallery);
    scroll.setWidgetResizable(true);
    scroll.setWindowTitle(QStringLiteral("Velmora widget gallery"));
    // The window fits the screen, a frame of the window manager included;
    // the gallery scrolls within it.
    QSize size = gallery->sizeHint() + QSize(24, 24);
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        size = size.boundedTo(screen->availableGeometry().size() - QSize(16, 48));
    scroll.resize(size);
    scroll.show();
    // No field starts focused: the focused look has a column of its own.
    scroll.setFocus();

    QTimer::singleShot(100, gallery, [gallery]() { gallery->picturePopups(); });
    if (parser.isSet(QStringLiteral("alert"))) {
        QTimer::singleShot(400, gallery, [&scroll]() {
            AlertDialog::alert(t("Would you like to save before closing?"), t("Save Confirmation"), &scroll);
        });
    }
    const QString shot = parser.value(QStringLiteral("screenshot"));
    const QString picker = parser.value(QStringLiteral("picker"));
    if (!picker.isEmpty()) {
        QTimer::singleShot(400, gallery, [&scroll, picker, shot]() {
            // The picture is taken while the dialog runs, then it is closed.
            if (!shot.isEmpty()) {
                QTimer::singleShot(900, [shot]() {
                    QWidget* dialog = QApplication::activeModalWidget();
                    if (dialog && !dialog->grab().save(shot))
                        std::fprintf(stderr, "could not write %s\n", qPrintable(shot));
                    if (dialog)
                        dialog->close();
                });
            }
            bool accepted = false;
            if (picker == QLatin1String("color")) {
                MyColorPicker::pick(QColor(0xa8, 0x75, 0x32), t("Color Picker"), &scroll, nullptr);
            } else if (picker == QLatin1String("image")) {
                QString image = QStringLiteral("HudFrame");
                BasicImageSelector(&image, &accepted, picturesFolder(), {QStringLiteral("png")}, 780, 480, &scroll).exec();
            } else if (picker == QLatin1String("font")) {
                QString font = QStringLiteral("DejaVuSerif-Latin.woff");
                BasicFontSelector(&font, &accepted, fontsFolder(), BasicFontSelector::fontSuffixes(), QString(), 780,
                                  480, &scroll)
                    .exec();
            } else if (picker == QLatin1String("easing")) {
                int value = 14;
                EasingCurveSelector(&value, &accepted, &scroll).exec();
            } else if (!runGameDataPicker(picker, &scroll)) {
                std::fprintf(stderr, "unknown picker \"%s\"\n", qPrintable(picker));
            }
            if (!shot.isEmpty())
                QApplication::quit();
        });
    }
    if (!shot.isEmpty() && picker.isEmpty()) {
        QTimer::singleShot(900, gallery, [gallery, shot]() {
            gallery->resize(gallery->sizeHint());
            if (!gallery->grab().save(shot))
                std::fprintf(stderr, "could not write %s\n", qPrintable(shot));
            QApplication::quit();
        });
    }
    return application.exec();
}
