#pragma once

#include <QColor>

// Copies of the theme colours that widgets painting very often read without a
// table search. Refreshed whenever a theme is applied.
namespace CachedColor {

extern QColor TileCursorBase;
extern QColor TileCursorOutline;
extern QColor InputUIBase;
extern QColor InputUIHover;
extern QColor InputUIPrimary;
extern QColor InputUINegative;
extern QColor InputUIUnnamed;
extern QColor InputUIBackground;
extern QColor DropDownUIHover;
extern QColor DropDownUIBase;
extern QColor DropDownUIPrimary;
extern QColor DropDownUIArrow;
extern QColor DropDownUIBackground;
extern QColor DropDownUIListBackground;
extern QColor DropDownUIListBorder;
extern QColor DropDownUIListScrollbar;
extern QColor EitherUIBase;
extern QColor EitherUIHover;
extern QColor EitherUIPrimary;
extern QColor EitherUINegative;
extern QColor EitherUIDecorator;
extern QColor EitherUIBackground;
extern QColor DialogOpenerUIBase;
extern QColor DialogOpenerUIHover;
extern QColor DialogOpenerUIPrimary;
extern QColor DialogOpenerUIDots;
extern QColor DialogOpenerUIBackground;
extern QColor CheckBoxBase;
extern QColor CheckBoxBackground;
extern QColor CheckBoxHover;
extern QColor CheckBoxPrimary;
extern QColor SliderBase;
extern QColor SliderHover;
extern QColor SliderOutline;
extern QColor SliderBackground;
extern QColor SliderPrimary;
extern QColor SliderButtonOutline;
extern QColor SliderButtonInline;
extern QColor SliderButtonTop;
extern QColor SliderButtonBottom;
extern QColor SliderBackgroundAlt;
extern QColor ColorPickerBase;
extern QColor ColorPickerHover;
extern QColor ColorPickerOutline1;
extern QColor ColorPickerOutline2;
extern QColor ColorPickerSelectOutline;
extern QColor ColorPickerButtonBackground;
extern QColor ListDropBase;
extern QColor ListDropOutline;
extern QColor MenuButtonUnderline;
extern QColor MenuButtonSelectLine;
extern QColor TextBoxUnnamed;
extern QColor HorizontalLineTop;
extern QColor HorizontalLineBottom;
extern QColor ButtonBase;
extern QColor ButtonOutline;
extern QColor ListBackgroundColor1;
extern QColor ListBackgroundColor2;
extern QColor ListHeaderTop;
extern QColor ListHeaderBottom;
extern QColor ListHeaderBorder;
extern QColor ListHeaderBorderBottom;
extern QColor ListChildIndicator;
extern QColor ListChildArrow;
extern QColor ListChildArrowHover;
extern QColor ListItemBottom;
extern QColor ListItemTop;
extern QColor ListItemOutline1;
extern QColor ListItemOutline2;
extern QColor ListItemHover;
extern QColor ComponentHoverColor;
extern QColor ComponentHoverColorOutline;
extern QColor ComponentSelectColor1;
extern QColor ComponentSelectColor2;
extern QColor ComponentSelectButtonBase;
extern QColor ComponentSelectButtonOutline;
extern QColor PicChoiceListBorder;
extern QColor PicChoiceBase;
extern QColor PicChoiceBottom;
// Copies every cached colour from the theme table.
void refresh();

}
