#pragma once

#include "logic/TypeTabDialog.h"

#include <QHash>
#include <QJsonValue>

class MyColorPickerButton;
class MyLineEdit;
class QJsonObject;

// "Color Filter Input": one filter over the component, by tab: its hue, a
// tone with its greyness, a blended colour with its opacity, or its
// brightness. The numbers can be left to the game (extension objects).
class ColorFilterAddonDialog : public TypeTabDialog
{
    Q_OBJECT
public:
    ColorFilterAddonDialog(QJsonObject* object, bool* accepted, QJsonObject* projectData, int capabilities,
                           QWidget* parent);

    MyLineEdit* hue() const { return Hue; }
    MyColorPickerButton* tone() const { return Tone; }
    MyLineEdit* toneGrey() const { return ToneGrey; }
    MyColorPickerButton* blend() const { return Blend; }
    MyLineEdit* blendOpacity() const { return BlendOpacity; }
    MyLineEdit* brightness() const { return Brightness; }

private slots:
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();

private:
    // A number field of a page; a stored value shows in it, else the
    // initial text.
    MyLineEdit* number(const char* objectName, const QString& caption, const QString& hint, int maximum,
                       const QString& initial, const char* key);
    MyColorPickerButton* color(const char* objectName, const QString& caption, const QString& hint, const char* key);

    // What a field writes: its number, its extension, or an extension it
    // can't show (no handler installed) as it came.
    QJsonValue numberOf(MyLineEdit* field) const;
    // A colour as it came while the user left it unchanged.
    QString colorOf(MyColorPickerButton* field, const char* key) const;

    QJsonObject* object;
    QHash<MyLineEdit*, QJsonValue> kept;
    // A stored filter reads its missing numbers as 0; a new one starts at
    // the initial texts.
    bool stored;
    MyLineEdit* Hue;
    MyColorPickerButton* Tone;
    MyLineEdit* ToneGrey;
    MyColorPickerButton* Blend;
    MyLineEdit* BlendOpacity;
    MyLineEdit* Brightness;
};
