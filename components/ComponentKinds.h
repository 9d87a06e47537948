#pragma once

#include <QColor>
#include <QJsonObject>
#include <QPainter>
#include <QPixmap>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVector>

// The fourteen component kinds: the numeric "Type" of a component's JSON and
// what the rest of the program needs to know of each kind by that number.
namespace ComponentKinds {

enum Type : int {
    Text = 0,
    Shape = 1,
    Picture = 2,
    RepeatingPicture = 3,
    Gauge = 4,
    PictureGauge = 5,
    Group = 6,
    Window = 7,
    ActorFace = 8,
    Icon = 9,
    Custom = 10,
    CustomCollection = 11,
    AttachCollection = 12,
    Animation = 13,
};

// How a kind keeps its size in the document.
enum class SizeStorage {
    Scale,     // "ScaleX"/"ScaleY" against the natural size of its picture
    Size,      // "Width"/"Height" in its data object
    Fixed,     // always 50 by 50
    FromCustom // the size of a custom HUD, or computed from it
};

struct Kind {
    int type;
    // The selector button's text and object name.
    const char* label;
    const char* button;
    // The nested object that holds the kind's own keys.
    const char* dataKey;
    // The property dialog's title, with %1 for the component's "ID".
    const char* title;
    bool canHaveChildren;
    bool canResize;
    bool canRotate;
    SizeStorage size;
    // Handed to the property dialog and its add-on box: which properties the
    // kind can animate and which add-ons it takes (1 no scale or size
    // animation, 8 openness, 16 repeat offset).
    int capabilities;
};

const QVector<Kind>& all();
// The kind of a "Type", or null for a number that names none.
const Kind* find(int type);

QString label(int type);
// The capabilities of a kind; 0 for a number that names none.
int capabilities(int type);
QString dialogTitle(int type, int id);

// The kinds that store "Width" and "Height" in their data object: the size
// read with 100 for a missing side, and the live size written back.
QSize storedSize(const QJsonObject& json, const char* dataKey);
void writeStoredSize(QJsonObject& json, const char* dataKey, const QSize& size);

// What a kind draws in place of a picture that can't be found.
QColor unavailableGraphicsColor();
// A pixmap of that colour, of the size the kind gives for it; null for a
// size with no pixels.
QPixmap unavailableGraphics(const QSize& size);

}

// The IDs of the custom HUDs being expanded at this moment, shared by all
// custom kinds so that a custom HUD never expands inside itself.
extern QStringList customExpansionStack;
