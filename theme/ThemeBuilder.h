#pragma once

#include "theme/ThemeManager.h"
#include "widgets/TrovDialog.h"

class MyColorPickerButton;
class MyLineEdit;
class MySlider;
class QPushButton;
class UltimateTreeItem;
class UltimateTreeWidget;

// The dialog in which a user makes or edits a theme: every named theme
// colour in its group, and for the selected one a colour button and sliders
// in RGB and HSL that stay in step. The program follows each change while
// the dialog is open, so the user sees the theme on the real thing;
// cancelling brings the theme that was shown back. On confirming, the whole
// table (the keys no group names included) and the name go to the caller,
// which saves and applies them.
class ThemeBuilder : public TrovDialog
{
    Q_OBJECT
public:
    // table is the result, name the start name and the result; usedNames
    // are the names of the existing themes. A used name other than the
    // start name is shown with a warning and asked about on confirming.
    ThemeBuilder(ThemeManager* manager, ThemeTable* table, bool* confirmed, QString* name, QStringList* usedNames,
                 QWidget* parent = nullptr);

    // The key of the selected colour; -1 on a group row.
    int currentKey() const;
    // The colours as edited so far.
    const ThemeTable& workingTable() const { return working; }
    // Selects the row of a colour key.
    void selectKey(int key);

    MyLineEdit* ThemeName;
    UltimateTreeWidget* colors;
    MyColorPickerButton* Color;
    MySlider* Red;
    MySlider* Green;
    MySlider* Blue;
    MySlider* Hue;
    MySlider* Saturation;
    MySlider* Lightness;
    QPushButton* confirmButton;
    QPushButton* cancelButton;

public slots:
    void on_colors_currentItemChanged(UltimateTreeItem* current, UltimateTreeItem* previous);
    void rgb_sliderMoved();
    void hsl_sliderMoved();
    void on_Color_colorChanged(const QColor& color);
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();
    void on_ThemeName_textChanged(const QString& text);

    void done(int result) override;

private:
    void fitListToNames();
    MySlider* addSlider(QWidget* owner, const char* objectName, const QString& caption, int maximum);
    void setSliders(const QColor& color);
    void setSlidersEnabled(bool on);
    // Takes a colour for the selected key and shows the program in it.
    void takeColor(const QColor& color);
    bool nameInUse(const QString& text) const;

    ThemeTable* result;
    bool* confirmed;
    QString* name;
    QString startName;
    QStringList usedNames;
    // The theme shown when the dialog opened, and the one being made.
    ThemeTable original;
    ThemeTable working;
    bool previewed = false;
    bool settingSliders = false;
    bool finished = false;
};
