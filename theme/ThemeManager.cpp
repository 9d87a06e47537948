#include "theme/ThemeManager.h"

#include "theme/CachedColors.h"
#include "theme/ProgramFolders.h"
#include "theme/ThemeKey.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QPalette>
#include <QRegularExpression>
#include <QSaveFile>
#include <QSet>
#include <QStyle>
#include <QVariantMap>
#include <QWidget>

namespace {

ThemeTable& currentTable()
{
    static ThemeTable table;
    return table;
}

const QVector<ThemeTableRow> rows = {
    {QT_TRANSLATE_NOOP("", "Window"), QT_TRANSLATE_NOOP("", "Window Background"), ThemeKey::WindowBackground, 0x181822},
    {QT_TRANSLATE_NOOP("", "Window"), QT_TRANSLATE_NOOP("", "Window Top"), ThemeKey::WindowTop, 0x3c3c3c},
    {QT_TRANSLATE_NOOP("", "Window"), QT_TRANSLATE_NOOP("", "Window Bottom"), ThemeKey::WindowBottom, 0x232323},
    {QT_TRANSLATE_NOOP("", "Window"), QT_TRANSLATE_NOOP("", "Window Text"), ThemeKey::WindowText, 0xffffff},
    {QT_TRANSLATE_NOOP("", "Window"), QT_TRANSLATE_NOOP("", "Disabled Window Text"), ThemeKey::DisabledWindowText, 0x939393},
    {QT_TRANSLATE_NOOP("", "Basic"), QT_TRANSLATE_NOOP("", "Base"), ThemeKey::Base, 0x2a2a2a},
    {QT_TRANSLATE_NOOP("", "Basic"), QT_TRANSLATE_NOOP("", "Alternative Base"), ThemeKey::AlternativeBase, 0x424242},
    {QT_TRANSLATE_NOOP("", "Basic"), QT_TRANSLATE_NOOP("", "Tool-Tip Base"), ThemeKey::ToolTipBase, 0x232323},
    {QT_TRANSLATE_NOOP("", "Basic"), QT_TRANSLATE_NOOP("", "Tool-Tip Text"), ThemeKey::ToolTipText, 0xffffff},
    {QT_TRANSLATE_NOOP("", "Basic"), QT_TRANSLATE_NOOP("", "Dark"), ThemeKey::Dark, 0x232323},
    {QT_TRANSLATE_NOOP("", "Basic"), QT_TRANSLATE_NOOP("", "Shadow"), ThemeKey::Shadow, 0x141414},
    {QT_TRANSLATE_NOOP("", "Basic"), QT_TRANSLATE_NOOP("", "Button"), ThemeKey::Button, 0x353535},
    {QT_TRANSLATE_NOOP("", "Text"), QT_TRANSLATE_NOOP("", "Text"), ThemeKey::Text, 0xffffff},
    {QT_TRANSLATE_NOOP("", "Text"), QT_TRANSLATE_NOOP("", "Disabled Text"), ThemeKey::DisabledText, 0x939393},
    {QT_TRANSLATE_NOOP("", "Text"), QT_TRANSLATE_NOOP("", "Button Text"), ThemeKey::ButtonText, 0xffffff},
    {QT_TRANSLATE_NOOP("", "Text"), QT_TRANSLATE_NOOP("", "Disabled Button Text"), ThemeKey::DisabledButtonText, 0x939393},
    {QT_TRANSLATE_NOOP("", "Text"), QT_TRANSLATE_NOOP("", "Bright Text"), ThemeKey::BrightText, 0xff0000},
    {QT_TRANSLATE_NOOP("", "Text"), QT_TRANSLATE_NOOP("", "Link"), ThemeKey::Link, 0x2a82da},
    {QT_TRANSLATE_NOOP("", "Text"), QT_TRANSLATE_NOOP("", "Highlight"), ThemeKey::Highlight, 0x2078d0},
    {QT_TRANSLATE_NOOP("", "Text"), QT_TRANSLATE_NOOP("", "Disabled Highlight"), ThemeKey::DisabledHighlight, 0x505050},
    {QT_TRANSLATE_NOOP("", "Text"), QT_TRANSLATE_NOOP("", "Highlighted Text"), ThemeKey::HighlightedText, 0xffffff},
    {QT_TRANSLATE_NOOP("", "Text"), QT_TRANSLATE_NOOP("", "Disabled Highlighted Text"), ThemeKey::DisabledHighlightedText, 0x7f7f7f},
    {QT_TRANSLATE_NOOP("", "Button"), QT_TRANSLATE_NOOP("", "Button Base"), ThemeKey::ButtonBase, 0x3c3c3c},
    {QT_TRANSLATE_NOOP("", "Button"), QT_TRANSLATE_NOOP("", "Button Outline"), ThemeKey::ButtonOutline, 0x000000},
    {QT_TRANSLATE_NOOP("", "Button"), QT_TRANSLATE_NOOP("", "Confirm Button"), ThemeKey::ConfirmButton, 0x326464},
    {QT_TRANSLATE_NOOP("", "Button"), QT_TRANSLATE_NOOP("", "Cancel Button"), ThemeKey::CancelButton, 0x643c3c},
    {QT_TRANSLATE_NOOP("", "Button"), QT_TRANSLATE_NOOP("", "Restore Defaults Button"), ThemeKey::RestoreDefaultsButton, 0x64643c},
    {QT_TRANSLATE_NOOP("", "Button"), QT_TRANSLATE_NOOP("", "Options Button"), ThemeKey::OptionsButton, 0x4b3c4b},
    {QT_TRANSLATE_NOOP("", "Button"), QT_TRANSLATE_NOOP("", "Apply Button"), ThemeKey::ApplyButton, 0x3c5096},
    {QT_TRANSLATE_NOOP("", "Button"), QT_TRANSLATE_NOOP("", "Compile Button"), ThemeKey::CompileButton, 0x64503c},
    {QT_TRANSLATE_NOOP("", "Text Input"), QT_TRANSLATE_NOOP("", "Input UI Base"), ThemeKey::InputUIBase, 0x646464},
    {QT_TRANSLATE_NOOP("", "Text Input"), QT_TRANSLATE_NOOP("", "Input UI Hover"), ThemeKey::InputUIHover, 0x9c9c9c},
    {QT_TRANSLATE_NOOP("", "Text Input"), QT_TRANSLATE_NOOP("", "Input UI Primary"), ThemeKey::InputUIPrimary, 0x64ff64},
    {QT_TRANSLATE_NOOP("", "Text Input"), QT_TRANSLATE_NOOP("", "Input UI Negative"), ThemeKey::InputUINegative, 0xff6464},
    {QT_TRANSLATE_NOOP("", "Text Input"), QT_TRANSLATE_NOOP("", "Input UI Background"), ThemeKey::InputUIBackground, 0x282828},
    {QT_TRANSLATE_NOOP("", "Drop Down"), QT_TRANSLATE_NOOP("", "Drop Down UI Base"), ThemeKey::DropDownUIBase, 0x9c9c9c},
    {QT_TRANSLATE_NOOP("", "Drop Down"), QT_TRANSLATE_NOOP("", "Drop Down UI Hover"), ThemeKey::DropDownUIHover, 0x646464},
    {QT_TRANSLATE_NOOP("", "Drop Down"), QT_TRANSLATE_NOOP("", "Drop Down UI Primary"), ThemeKey::DropDownUIPrimary, 0x64ff64},
    {QT_TRANSLATE_NOOP("", "Drop Down"), QT_TRANSLATE_NOOP("", "Drop Down UI Arrow"), ThemeKey::DropDownUIArrow, 0xffffff},
    {QT_TRANSLATE_NOOP("", "Drop Down"), QT_TRANSLATE_NOOP("", "Drop Down UI Background"), ThemeKey::DropDownUIBackground, 0x282828},
    {QT_TRANSLATE_NOOP("", "Drop Down"), QT_TRANSLATE_NOOP("", "Drop Down UI List Background"), ThemeKey::DropDownUIListBackground, 0x2d2d2d},
    {QT_TRANSLATE_NOOP("", "Drop Down"), QT_TRANSLATE_NOOP("", "Drop Down UI List Border"), ThemeKey::DropDownUIListBorder, 0x000000},
    {QT_TRANSLATE_NOOP("", "Drop Down"), QT_TRANSLATE_NOOP("", "Drop Down UI List Scrollbar"), ThemeKey::DropDownUIListScrollbar, 0x5a5a5a},
    {QT_TRANSLATE_NOOP("", "Either Box"), QT_TRANSLATE_NOOP("", "Either UI Base"), ThemeKey::EitherUIBase, 0x646464},
    {QT_TRANSLATE_NOOP("", "Either Box"), QT_TRANSLATE_NOOP("", "Either UI Hover"), ThemeKey::EitherUIHover, 0x9c9c9c},
    {QT_TRANSLATE_NOOP("", "Either Box"), QT_TRANSLATE_NOOP("", "Either UI Primary"), ThemeKey::EitherUIPrimary, 0x64ff64},
    {QT_TRANSLATE_NOOP("", "Either Box"), QT_TRANSLATE_NOOP("", "Either UI Negative"), ThemeKey::EitherUINegative, 0xff6464},
    {QT_TRANSLATE_NOOP("", "Either Box"), QT_TRANSLATE_NOOP("", "Either UI Decorator"), ThemeKey::EitherUIDecorator, 0xffffff},
    {QT_TRANSLATE_NOOP("", "Either Box"), QT_TRANSLATE_NOOP("", "Either UI Background"), ThemeKey::EitherUIBackground, 0x282828},
    {QT_TRANSLATE_NOOP("", "Dialog Opener"), QT_TRANSLATE_NOOP("", "Dialog Opener UI Base"), ThemeKey::DialogOpenerUIBase, 0x646464},
    {QT_TRANSLATE_NOOP("", "Dialog Opener"), QT_TRANSLATE_NOOP("", "Dialog Opener UI Hover"), ThemeKey::DialogOpenerUIHover, 0x9c9c9c},
    {QT_TRANSLATE_NOOP("", "Dialog Opener"), QT_TRANSLATE_NOOP("", "Dialog Opener UI Primary"), ThemeKey::DialogOpenerUIPrimary, 0x64ff64},
    {QT_TRANSLATE_NOOP("", "Dialog Opener"), QT_TRANSLATE_NOOP("", "Dialog Opener UI Dots"), ThemeKey::DialogOpenerUIDots, 0xffffff},
    {QT_TRANSLATE_NOOP("", "Dialog Opener"), QT_TRANSLATE_NOOP("", "Dialog Opener UI Background"), ThemeKey::DialogOpenerUIBackground, 0x282828},
    {QT_TRANSLATE_NOOP("", "Check Box"), QT_TRANSLATE_NOOP("", "Check Box Base"), ThemeKey::CheckBoxBase, 0x0f0f0f},
    {QT_TRANSLATE_NOOP("", "Check Box"), QT_TRANSLATE_NOOP("", "Check Box Background"), ThemeKey::CheckBoxBackground, 0x2d2d2d},
    {QT_TRANSLATE_NOOP("", "Check Box"), QT_TRANSLATE_NOOP("", "Check Box Hover"), ThemeKey::CheckBoxHover, 0x191919},
    {QT_TRANSLATE_NOOP("", "Check Box"), QT_TRANSLATE_NOOP("", "Check Box Primary"), ThemeKey::CheckBoxPrimary, 0x64ff64},
    {QT_TRANSLATE_NOOP("", "Slider"), QT_TRANSLATE_NOOP("", "Slider Base"), ThemeKey::SliderBase, 0x646464},
    {QT_TRANSLATE_NOOP("", "Slider"), QT_TRANSLATE_NOOP("", "Slider Hover"), ThemeKey::SliderHover, 0x9c9c9c},
    {QT_TRANSLATE_NOOP("", "Slider"), QT_TRANSLATE_NOOP("", "Slider Outline"), ThemeKey::SliderOutline, 0x000000},
    {QT_TRANSLATE_NOOP("", "Slider"), QT_TRANSLATE_NOOP("", "Slider Background"), ThemeKey::SliderBackground, 0x414141},
    {QT_TRANSLATE_NOOP("", "Slider"), QT_TRANSLATE_NOOP("", "Slider Primary"), ThemeKey::SliderPrimary, 0x64c864},
    {QT_TRANSLATE_NOOP("", "Slider"), QT_TRANSLATE_NOOP("", "Slider Button Outline"), ThemeKey::SliderButtonOutline, 0x000000},
    {QT_TRANSLATE_NOOP("", "Slider"), QT_TRANSLATE_NOOP("", "Slider Button Inline"), ThemeKey::SliderButtonInline, 0x646464},
    {QT_TRANSLATE_NOOP("", "Slider"), QT_TRANSLATE_NOOP("", "Slider Button Top"), ThemeKey::SliderButtonTop, 0x4b4b4b},
    {QT_TRANSLATE_NOOP("", "Slider"), QT_TRANSLATE_NOOP("", "Slider Button Bottom"), ThemeKey::SliderButtonBottom, 0x2d2d2d},
    {QT_TRANSLATE_NOOP("", "Slider"), QT_TRANSLATE_NOOP("", "Slider Background"), ThemeKey::SliderBackgroundAlt, 0x282828},
    {QT_TRANSLATE_NOOP("", "Color Picker"), QT_TRANSLATE_NOOP("", "Color Picker Base"), ThemeKey::ColorPickerBase, 0x646464},
    {QT_TRANSLATE_NOOP("", "Color Picker"), QT_TRANSLATE_NOOP("", "Color Picker Hover"), ThemeKey::ColorPickerHover, 0x9c9c9c},
    {QT_TRANSLATE_NOOP("", "Color Picker"), QT_TRANSLATE_NOOP("", "Color Picker Outline 1"), ThemeKey::ColorPickerOutline1, 0x1e1e1e},
    {QT_TRANSLATE_NOOP("", "Color Picker"), QT_TRANSLATE_NOOP("", "Color Picker Outline 2"), ThemeKey::ColorPickerOutline2, 0xaaaaaa},
    {QT_TRANSLATE_NOOP("", "Color Picker"), QT_TRANSLATE_NOOP("", "Color Picker Select Outline"), ThemeKey::ColorPickerSelectOutline, 0x64ff64},
    {QT_TRANSLATE_NOOP("", "Color Picker"), QT_TRANSLATE_NOOP("", "Color Picker Button Background"), ThemeKey::ColorPickerButtonBackground, 0x282828},
    {QT_TRANSLATE_NOOP("", "Horizontal Line"), QT_TRANSLATE_NOOP("", "Horizontal Line Top"), ThemeKey::HorizontalLineTop, 0x282828},
    {QT_TRANSLATE_NOOP("", "Horizontal Line"), QT_TRANSLATE_NOOP("", "Horizontal Line Bottom"), ThemeKey::HorizontalLineBottom, 0x646464},
    {QT_TRANSLATE_NOOP("", "Group Box UI"), QT_TRANSLATE_NOOP("", "Group Box Background Top"), ThemeKey::GroupBoxBackgroundTop, 0x303030},
    {QT_TRANSLATE_NOOP("", "Group Box UI"), QT_TRANSLATE_NOOP("", "Group Box Background Bottom"), ThemeKey::GroupBoxBackgroundBottom, 0x424242},
    {QT_TRANSLATE_NOOP("", "Group Box UI"), QT_TRANSLATE_NOOP("", "Group Box Title Background Top"), ThemeKey::GroupBoxTitleBackgroundTop, 0x282828},
    {QT_TRANSLATE_NOOP("", "Group Box UI"), QT_TRANSLATE_NOOP("", "Group Box Title Background Bottom"), ThemeKey::GroupBoxTitleBackgroundBottom, 0x303030},
    {QT_TRANSLATE_NOOP("", "Group Box UI"), QT_TRANSLATE_NOOP("", "Group Box Title Border"), ThemeKey::GroupBoxTitleBorder, 0x646464},
    {QT_TRANSLATE_NOOP("", "Group Box UI"), QT_TRANSLATE_NOOP("", "Group Box Title Border Bottom"), ThemeKey::GroupBoxTitleBorderBottom, 0x303030},
    {QT_TRANSLATE_NOOP("", "List UI"), QT_TRANSLATE_NOOP("", "List Background Color 1"), ThemeKey::ListBackgroundColor1, 0x2b2b2b},
    {QT_TRANSLATE_NOOP("", "List UI"), QT_TRANSLATE_NOOP("", "List Background Color 2"), ThemeKey::ListBackgroundColor2, 0x222222},
    {QT_TRANSLATE_NOOP("", "List UI"), QT_TRANSLATE_NOOP("", "List Header Top"), ThemeKey::ListHeaderTop, 0x353535},
    {QT_TRANSLATE_NOOP("", "List UI"), QT_TRANSLATE_NOOP("", "List Header Bottom"), ThemeKey::ListHeaderBottom, 0x191919},
    {QT_TRANSLATE_NOOP("", "List UI"), QT_TRANSLATE_NOOP("", "List Header Border"), ThemeKey::ListHeaderBorder, 0x000000},
    {QT_TRANSLATE_NOOP("", "List UI"), QT_TRANSLATE_NOOP("", "List Header Border Bottom"), ThemeKey::ListHeaderBorderBottom, 0x4c4c4c},
    {QT_TRANSLATE_NOOP("", "List UI"), QT_TRANSLATE_NOOP("", "List Child Indicator"), ThemeKey::ListChildIndicator, 0x4c4c4c},
    {QT_TRANSLATE_NOOP("", "List UI"), QT_TRANSLATE_NOOP("", "List Child Arrow"), ThemeKey::ListChildArrow, 0xffffff},
    {QT_TRANSLATE_NOOP("", "List UI"), QT_TRANSLATE_NOOP("", "List Child Arrow Hover"), ThemeKey::ListChildArrowHover, 0x17eeff},
    {QT_TRANSLATE_NOOP("", "List UI"), QT_TRANSLATE_NOOP("", "List Item Bottom"), ThemeKey::ListItemBottom, 0x0a70d2},
    {QT_TRANSLATE_NOOP("", "List UI"), QT_TRANSLATE_NOOP("", "List Item Top"), ThemeKey::ListItemTop, 0x0054b7},
    {QT_TRANSLATE_NOOP("", "List UI"), QT_TRANSLATE_NOOP("", "List Item Outline 1"), ThemeKey::ListItemOutline1, 0x003264},
    {QT_TRANSLATE_NOOP("", "List UI"), QT_TRANSLATE_NOOP("", "List Item Outline 2"), ThemeKey::ListItemOutline2, 0x0064c8},
    {QT_TRANSLATE_NOOP("", "List UI"), QT_TRANSLATE_NOOP("", "List Item Hover"), ThemeKey::ListItemHover, 0x7d7d7d},
    {QT_TRANSLATE_NOOP("", "List UI"), QT_TRANSLATE_NOOP("", "Alternative List Header Background Top"), ThemeKey::AlternativeListHeaderBackgroundTop, 0x2d2d2d},
    {QT_TRANSLATE_NOOP("", "List UI"), QT_TRANSLATE_NOOP("", "Alternative List Header Background Bottom"), ThemeKey::AlternativeListHeaderBackgroundBottom, 0x191919},
    {QT_TRANSLATE_NOOP("", "List UI"), QT_TRANSLATE_NOOP("", "Alternative List Header Border"), ThemeKey::AlternativeListHeaderBorder, 0x000000},
    {QT_TRANSLATE_NOOP("", "Menu Bar and Items"), QT_TRANSLATE_NOOP("", "Menu Bar Item Selected Border"), ThemeKey::MenuBarItemSelectedBorder, 0x181818},
    {QT_TRANSLATE_NOOP("", "Menu Bar and Items"), QT_TRANSLATE_NOOP("", "Menu Bar Item Selected Top"), ThemeKey::MenuBarItemSelectedTop, 0x1a1a1a},
    {QT_TRANSLATE_NOOP("", "Menu Bar and Items"), QT_TRANSLATE_NOOP("", "Menu Bar Item Selected Bottom"), ThemeKey::MenuBarItemSelectedBottom, 0x262626},
    {QT_TRANSLATE_NOOP("", "Menu Bar and Items"), QT_TRANSLATE_NOOP("", "Menu Bar Item Pressed Border"), ThemeKey::MenuBarItemPressedBorder, 0x505050},
    {QT_TRANSLATE_NOOP("", "Menu Bar and Items"), QT_TRANSLATE_NOOP("", "Menu Bar Item Pressed Top"), ThemeKey::MenuBarItemPressedTop, 0x262626},
    {QT_TRANSLATE_NOOP("", "Menu Bar and Items"), QT_TRANSLATE_NOOP("", "Menu Bar Item Pressed Bottom"), ThemeKey::MenuBarItemPressedBottom, 0x1a1a1a},
    {QT_TRANSLATE_NOOP("", "Menu Bar and Items"), QT_TRANSLATE_NOOP("", "Menu Background Color"), ThemeKey::MenuBackgroundColor, 0x2d2d2d},
    {QT_TRANSLATE_NOOP("", "Menu Bar and Items"), QT_TRANSLATE_NOOP("", "Menu Item Selected Border"), ThemeKey::MenuItemSelectedBorder, 0x004ea0},
    {QT_TRANSLATE_NOOP("", "Menu Bar and Items"), QT_TRANSLATE_NOOP("", "Menu Item Selected Top"), ThemeKey::MenuItemSelectedTop, 0x2078d0},
    {QT_TRANSLATE_NOOP("", "Menu Bar and Items"), QT_TRANSLATE_NOOP("", "Menu Item Selected Bottom"), ThemeKey::MenuItemSelectedBottom, 0x0c64bc},
    {QT_TRANSLATE_NOOP("", "Menu Bar and Items"), QT_TRANSLATE_NOOP("", "Menu Icon Checked Top"), ThemeKey::MenuIconCheckedTop, 0x191919},
    {QT_TRANSLATE_NOOP("", "Menu Bar and Items"), QT_TRANSLATE_NOOP("", "Menu Icon Checked Bottom"), ThemeKey::MenuIconCheckedBottom, 0x353535},
    {QT_TRANSLATE_NOOP("", "Obscure Features"), QT_TRANSLATE_NOOP("", "Pic. Choice Base"), ThemeKey::PicChoiceBase, 0x7d7dff},
    {QT_TRANSLATE_NOOP("", "Obscure Features"), QT_TRANSLATE_NOOP("", "Pic. Choice Bottom"), ThemeKey::PicChoiceBottom, 0x5050b4},
    {QT_TRANSLATE_NOOP("", "Obscure Features"), QT_TRANSLATE_NOOP("", "Pic. Choice List Border"), ThemeKey::PicChoiceListBorder, 0x000000},
    {QT_TRANSLATE_NOOP("", "Obscure Features"), QT_TRANSLATE_NOOP("", "Tile Cursor Base"), ThemeKey::TileCursorBase, 0xffffff},
    {QT_TRANSLATE_NOOP("", "Obscure Features"), QT_TRANSLATE_NOOP("", "Tile Cursor Outline"), ThemeKey::TileCursorOutline, 0x000000},
    {QT_TRANSLATE_NOOP("", "Obscure Features"), QT_TRANSLATE_NOOP("", "List Drop Base"), ThemeKey::ListDropBase, 0x7d7dff},
    {QT_TRANSLATE_NOOP("", "Obscure Features"), QT_TRANSLATE_NOOP("", "List Drop Outline"), ThemeKey::ListDropOutline, 0x4141ff},
    {QT_TRANSLATE_NOOP("", "Obscure Features"), QT_TRANSLATE_NOOP("", "Menu Button Underline"), ThemeKey::MenuButtonUnderline, 0x64ff64},
    {QT_TRANSLATE_NOOP("", "Obscure Features"), QT_TRANSLATE_NOOP("", "Menu Button Select Line"), ThemeKey::MenuButtonSelectLine, 0x64ff64},
    {QT_TRANSLATE_NOOP("", "Component Editor"), QT_TRANSLATE_NOOP("", "Component Hover Color"), ThemeKey::ComponentHoverColor, 0x3232c8},
    {QT_TRANSLATE_NOOP("", "Component Editor"), QT_TRANSLATE_NOOP("", "Component Hover Color Outline"), ThemeKey::ComponentHoverColorOutline, 0x000000},
    {QT_TRANSLATE_NOOP("", "Component Editor"), QT_TRANSLATE_NOOP("", "Component Select Color 1"), ThemeKey::ComponentSelectColor1, 0x000000},
    {QT_TRANSLATE_NOOP("", "Component Editor"), QT_TRANSLATE_NOOP("", "Component Select Color 2"), ThemeKey::ComponentSelectColor2, 0xffffff},
    {QT_TRANSLATE_NOOP("", "Component Editor"), QT_TRANSLATE_NOOP("", "Component Select Button Base"), ThemeKey::ComponentSelectButtonBase, 0xffffff},
    {QT_TRANSLATE_NOOP("", "Component Editor"), QT_TRANSLATE_NOOP("", "Component Select Button Outline"), ThemeKey::ComponentSelectButtonOutline, 0x000000},
    {QT_TRANSLATE_NOOP("", "Other"), QT_TRANSLATE_NOOP("", "Status Bar Top"), ThemeKey::StatusBarTop, 0x353535},
    {QT_TRANSLATE_NOOP("", "Other"), QT_TRANSLATE_NOOP("", "Status Bar Bottom"), ThemeKey::StatusBarBottom, 0x1c1c1c},
    {QT_TRANSLATE_NOOP("", "Other"), QT_TRANSLATE_NOOP("", "Tool Bar Border Top"), ThemeKey::ToolBarBorderTop, 0x191919},
    {QT_TRANSLATE_NOOP("", "Other"), QT_TRANSLATE_NOOP("", "Tool Bar Border Bottom"), ThemeKey::ToolBarBorderBottom, 0x353535},
    {QT_TRANSLATE_NOOP("", "Other"), QT_TRANSLATE_NOOP("", "Tool Button Checked"), ThemeKey::ToolButtonChecked, 0x3c3c50},
    {QT_TRANSLATE_NOOP("", "Other"), QT_TRANSLATE_NOOP("", "Action Background Color"), ThemeKey::ActionBackgroundColor, 0x6464c8},
    {QT_TRANSLATE_NOOP("", "Other"), QT_TRANSLATE_NOOP("", "Dock Background Top"), ThemeKey::DockBackgroundTop, 0x191919},
    {QT_TRANSLATE_NOOP("", "Other"), QT_TRANSLATE_NOOP("", "Dock Background Bottom"), ThemeKey::DockBackgroundBottom, 0x353535},
    {QT_TRANSLATE_NOOP("", "Other"), QT_TRANSLATE_NOOP("", "Dock Border"), ThemeKey::DockBorder, 0x191919},
    {QT_TRANSLATE_NOOP("", "Other"), QT_TRANSLATE_NOOP("", "Main Frame Background Color"), ThemeKey::MainFrameBackgroundColor, 0x171717},
    {QT_TRANSLATE_NOOP("", "Other"), QT_TRANSLATE_NOOP("", "Main Frame Border"), ThemeKey::MainFrameBorder, 0x121212},
    {QT_TRANSLATE_NOOP("", "Other"), QT_TRANSLATE_NOOP("", "Main Frame Scroll Content Background"), ThemeKey::MainFrameScrollContentBackground, 0x171717},
    {QT_TRANSLATE_NOOP("", "Other"), QT_TRANSLATE_NOOP("", "Insert FrameBackground Top"), ThemeKey::InsertFrameBackgroundTop, 0x303030},
    {QT_TRANSLATE_NOOP("", "Other"), QT_TRANSLATE_NOOP("", "Insert FrameBackground Bottom"), ThemeKey::InsertFrameBackgroundBottom, 0x424242},
    {QT_TRANSLATE_NOOP("", "Other"), QT_TRANSLATE_NOOP("", "Insert Frame Border"), ThemeKey::InsertFrameBorder, 0x646464},
    {QT_TRANSLATE_NOOP("", "Other"), QT_TRANSLATE_NOOP("", "General Frame Background Color"), ThemeKey::GeneralFrameBackgroundColor, 0x2b2b2b},
    {QT_TRANSLATE_NOOP("", "Other"), QT_TRANSLATE_NOOP("", "General Frame Border"), ThemeKey::GeneralFrameBorder, 0x000000},
    {QT_TRANSLATE_NOOP("", "Other"), QT_TRANSLATE_NOOP("", "Confirmation Frame Background"), ThemeKey::ConfirmationFrameBackground, 0x121212},
    {QT_TRANSLATE_NOOP("", "Other"), QT_TRANSLATE_NOOP("", "Bordered Frame Border"), ThemeKey::BorderedFrameBorder, 0xb4b4b4},
    {QT_TRANSLATE_NOOP("", "Other"), QT_TRANSLATE_NOOP("", "Text Box Border"), ThemeKey::TextBoxBorder, 0x000000},
    {nullptr, nullptr, ThemeKey::InputUIUnnamed, 0xffffff},
    {nullptr, nullptr, ThemeKey::TextBoxUnnamed, 0x7db4ff},
};

QString themeFileName(const QString& name)
{
    return QStringLiteral("Themes/%1/Theme.json").arg(name);
}

QString shownPath(const QString& path)
{
    return QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath());
}

// The pairs of key and colour that can still be read from a theme file that
// isn't whole JSON, such as one cut short while it was written.
QJsonObject salvage(const QByteArray& bytes)
{
    static const QRegularExpression pair(QStringLiteral("\"(-?\\d+)\"\\s*:\\s*\"(#[0-9A-Fa-f]{6})\""));
    // Gathered in a map first, as toObject does: inserting into a JSON object
    // one key at a time is quadratic in a file of thousands of entries.
    QVariantMap object;
    QRegularExpressionMatchIterator it = pair.globalMatch(QString::fromUtf8(bytes));
    while (it.hasNext()) {
        const QRegularExpressionMatch match = it.next();
        object.insert(match.captured(1), match.captured(2));
    }
    return QJsonObject::fromVariantMap(object);
}

// The entries of a theme object that aren't a decimal key with a colour.
int badEntries(const QJsonObject& object)
{
    int bad = 0;
    for (auto it = object.begin(); it != object.end(); ++it) {
        bool numeric = false;
        it.key().toInt(&numeric);
        if (!numeric || !QColor::isValidColor(it.value().toString()))
            ++bad;
    }
    return bad;
}

bool readFile(const QString& name, QString* problem)
{
    if (name.isEmpty()) {
        Theme::installDefault();
        return true;
    }
    const QString path = Theme::filePath(name);
    const QFileInfo info(path);
    if (!info.exists()) {
        *problem = QCoreApplication::translate("", "The theme \"%1\" has no file \"%2\"; the default theme is used.")
                       .arg(name, shownPath(path));
        return false;
    }
    if (!info.isFile()) {
        *problem = QCoreApplication::translate("", "The theme file \"%1\" isn't a file; the default theme is used.")
                       .arg(shownPath(path));
        return false;
    }
    if (info.size() > Theme::MaximumFileSize) {
        *problem = QCoreApplication::translate("", "The theme file \"%1\" is far too large to be a theme (%2 bytes); "
                                                   "the default theme is used.")
                       .arg(shownPath(path))
                       .arg(info.size());
        return false;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *problem = QCoreApplication::translate("", "The theme file \"%1\" can't be read: %2.")
                       .arg(shownPath(path), file.errorString());
        return false;
    }
    const QByteArray bytes = file.read(Theme::MaximumFileSize + 1);
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError || !document.isObject()) {
        const QJsonObject rescued = salvage(bytes);
        Theme::readObject(rescued);
        *problem = QCoreApplication::translate("", "The theme file \"%1\" is damaged; %n colour(s) could be read "
                                                   "from it, the others stay as they were.", "", rescued.size())
                       .arg(shownPath(path));
        return true;
    }
    const QJsonObject object = document.object();
    Theme::readObject(object);
    if (const int bad = badEntries(object)) {
        *problem = QCoreApplication::translate("", "The theme file \"%1\" is damaged: %n entry(s) aren't a colour "
                                                   "key with a colour such as \"#2a82da\".", "", bad)
                       .arg(shownPath(path));
    }
    return true;
}

}

QColor themeColor(int key)
{
    return currentTable().value(key);
}

namespace Theme {

const QVector<ThemeTableRow>& builtInRows()
{
    return rows;
}

ThemeTable builtInTable()
{
    ThemeTable table;
    for (const ThemeTableRow& row : rows)
        table.insert(row.key, QColor(row.color));
    return table;
}

const ThemeTable& table()
{
    return currentTable();
}

void setColor(int key, const QColor& color)
{
    currentTable().insert(key, color);
}

void resetToBuiltIn()
{
    currentTable() = builtInTable();
}

void installDefault()
{
    resetToBuiltIn();
    setColor(ThemeKey::WindowTop, QColor(0x3c, 0x3c, 0x4b));
}

QString filePath(const QString& name)
{
    return PathManager::readablePath(themeFileName(name));
}

bool load(const QString& name, QString* problem)
{
    QString found;
    const bool loaded = readFile(name, &found);
    if (problem)
        *problem = found;
    return loaded;
}

void readObject(const QJsonObject& object)
{
    for (auto it = object.begin(); it != object.end(); ++it) {
        QColor color;
        color.setNamedColor(it.value().toString());
        setColor(it.key().toInt(), color);
    }
}

QJsonObject toObject(const ThemeTable& table)
{
    // Gathered in a map first: a JSON object keeps its keys sorted as text,
    // so inserting them one by one in the table's numeric order moves the
    // object's storage on almost every insert, quadratic in a large file.
    QVariantMap object;
    for (auto it = table.begin(); it != table.end(); ++it)
        object.insert(QString::number(it.key()), it.value().name(QColor::HexRgb));
    return QJsonObject::fromVariantMap(object);
}

void refreshCachedColors()
{
    CachedColor::refresh();
}

void apply()
{
    refreshCachedColors();
    QApplication* application = qobject_cast<QApplication*>(QCoreApplication::instance());
    if (!application)
        return;
    QApplication::style()->polish(application);
    // A default palette goes through the style's palette polish, which fills
    // it from the table.
    QApplication::setPalette(QPalette());
    QEvent change(QEvent::ApplicationPaletteChange);
    QCoreApplication::sendEvent(application, &change);
    for (QWidget* widget : QApplication::allWidgets()) {
        QEvent widgetChange(QEvent::ApplicationPaletteChange);
        QCoreApplication::sendEvent(widget, &widgetChange);
    }
}

void replace(ThemeTable table)
{
    currentTable().swap(table);
    apply();
}

bool save(const ThemeTable& table, const QString& name, QString* error)
{
    const QString path = PathManager::writablePath(themeFileName(name));
    const QString folder = QFileInfo(path).absolutePath();
    if (!QDir().mkpath(folder)) {
        if (error)
            *error = QCoreApplication::translate("", "The folder \"%1\" can't be made.").arg(shownPath(folder));
        return false;
    }
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(QJsonDocument(toObject(table)).toJson(QJsonDocument::Compact));
        if (file.commit())
            return true;
    }
    if (error)
        *error = QStringLiteral("%1: %2").arg(shownPath(path), file.errorString());
    return false;
}

namespace {

// The folder of a theme the user may change: the user's own, or the one
// beside the executable when the program writes there.
QString changeableFolder(const QString& name)
{
    const QString relative = QStringLiteral("Themes/%1").arg(name);
    const QString own = PathManager::inUserFolder(relative);
    if (QFileInfo(own).isDir())
        return own;
    if (PathManager::writesBesideExecutable(QStringLiteral("Themes"))) {
        const QString beside = PathManager::besideExecutable(relative);
        if (QFileInfo(beside).isDir())
            return beside;
    }
    return QString();
}

}

bool rename(const QString& from, const QString& to, QString* error)
{
    const QString folder = changeableFolder(from);
    if (folder.isEmpty()) {
        if (error)
            *error = QCoreApplication::translate("", "The theme \"%1\" can't be changed here.").arg(from);
        return false;
    }
    if (names().contains(to)) {
        if (error)
            *error = QCoreApplication::translate("", "A theme named \"%1\" exists already.").arg(to);
        return false;
    }
    const QString target = QFileInfo(folder).absolutePath() + QLatin1Char('/') + to;
    if (!QDir().rename(folder, target)) {
        if (error)
            *error = QCoreApplication::translate("", "\"%1\" can't be renamed to \"%2\".")
                         .arg(shownPath(folder), to);
        return false;
    }
    return true;
}

bool remove(const QString& name, QString* error)
{
    const QString folder = changeableFolder(name);
    if (folder.isEmpty() || !QDir(folder).removeRecursively()) {
        if (error)
            *error = QCoreApplication::translate("", "The theme \"%1\" can't be deleted.").arg(name);
        return false;
    }
    return true;
}

QStringList names()
{
    QStringList found;
    QSet<QString> seen;
    for (const QString& folder : PathManager::readableFolders(QStringLiteral("Themes"))) {
        QDirIterator it(folder, QDir::Dirs | QDir::NoDotAndDotDot);
        while (it.hasNext()) {
            it.next();
            const QString name = it.fileInfo().fileName();
            if (!seen.contains(name)) {
                seen.insert(name);
                found.append(name);
            }
        }
    }
    return found;
}

}
