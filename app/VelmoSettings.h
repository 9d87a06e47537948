#pragma once

#include "theme/ThemeManager.h"
#include "widgets/TrovDialog.h"

class MyCheckBox;
class MyComboBox;
class MyLineEdit;
class MySlider;
class QLabel;
class QPushButton;
class VelmoMainWindow;

// The application-wide settings: window kind, dialog behaviour, theme,
// language, the RPG Maker MZ location and the background darkening.
//
// The theme applies the moment it is chosen and stays chosen even when the
// dialog is cancelled; the dialog flags, location and darkening apply on
// confirming; window kind, native menu bar and language are stored on
// confirming and take effect at the next start, which the dialog says.
class VelmoSettings : public TrovDialog
{
    Q_OBJECT
public:
    // darkenPercent: the background darkening in percent, shown and, on
    // confirming, replaced.
    VelmoSettings(double* darkenPercent, bool* confirmed, VelmoMainWindow* mainWindow);

    // The window style a row of MainWindowStyle stands for.
    int styleOfRow(int row) const;

    QPushButton* Language;
    QPushButton* createCustomLang;
    QPushButton* disableLang;
    MyComboBox* MainWindowStyle;
    MyCheckBox* mainWindowNativeTitle;
    MyCheckBox* dialogNativeTitle;
    MyCheckBox* dialogShowAnimation;
    MyCheckBox* dialogDarken;
    MyCheckBox* dialogDarkenAnimate;
    MyComboBox* Theme;
    QPushButton* createCustomTheme;
    QPushButton* editTheme;
    QPushButton* deleteTheme;
    MyLineEdit* EditorLocation;
    QPushButton* pushButton;
    MySlider* Background_Darken;
    QLabel* restartRequired;
    QPushButton* confirmButton;
    QPushButton* cancelButton;

public slots:
    void on_MainWindowStyle_whenChoiceChanges();
    void on_mainWindowNativeTitle_stateChanged(int state);
    void on_confirmButton_clicked();
    void on_cancelButton_clicked();
    void on_pushButton_clicked();
    void on_createCustomTheme_clicked();
    void on_editTheme_clicked();
    void on_deleteTheme_clicked();
    void on_Theme_whenChoiceChanges();
    void on_Language_clicked();
    void on_createCustomLang_clicked();
    void on_disableLang_clicked();

private:
    QWidget* buildLanguageGroup(QWidget* owner);
    QWidget* buildWindowGroup(QWidget* owner);
    QWidget* buildDialogGroup(QWidget* owner);
    QWidget* buildThemeGroup(QWidget* owner);
    QWidget* buildLocationGroup(QWidget* owner);
    QWidget* buildBackgroundGroup(QWidget* owner);
    void updateLanguageButton();
    void updateRestartRequired();
    void fillThemes();
    // Runs the theme builder from name; the chosen name and table on
    // confirming.
    bool buildTheme(QString* name, ThemeTable* table);
    // Applies the theme of the selected row, telling the user when its
    // file is damaged.
    void applySelectedTheme();
    QStringList themeNames() const;
    // A folder to start a file dialog in: folder when it exists, else the
    // desktop, else home.
    static QString startFolder(const QString& folder);
    void showProblem(const QString& text, const QStringList& details);

    QString language;
    VelmoMainWindow* mainWindow;
    double* darkenPercent;
    bool* confirmed;
    bool hybridOffered;
};
