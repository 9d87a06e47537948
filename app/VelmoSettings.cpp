#include "app/VelmoSettings.h"

#include "app/AppSettings.h"
#include "app/VelmoMainWindow.h"
#include "theme/MorvikCSVTranslator.h"
#include "theme/ThemeBuilder.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager_Velmo.h"
#include "widgets/AlertDialog.h"
#include "widgets/ConfirmationDialog.h"
#include "widgets/CustomTitleBar.h"
#include "widgets/DialogFlags.h"
#include "widgets/MyCheckBox.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/MySlider.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>

namespace {

void describe(QWidget* widget, const QString& title, const QString& description)
{
    widget->setProperty("mtt_title", title);
    widget->setProperty("mtt_desc", description);
}

MyGroupBox* group(QWidget* owner, const char* objectName, const QString& title, QLayout* layout)
{
    MyGroupBox* box = new MyGroupBox(title, owner);
    box->setObjectName(QLatin1String(objectName));
    layout->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 12, 12);
    layout->setSpacing(8);
    box->setLayout(layout);
    return box;
}

QPushButton* formButton(QWidget* owner, const char* objectName, const QString& text)
{
    QPushButton* button = new QPushButton(text, owner);
    button->setObjectName(QLatin1String(objectName));
    button->setMinimumHeight(28);
    TrovDialog::colorButton(button, ThemeKey::ButtonBase);
    return button;
}

MyCheckBox* checkBox(QWidget* owner, const char* objectName, const QString& label, const QString& title,
                     const QString& description, bool checked)
{
    MyCheckBox* box = new MyCheckBox(label, owner);
    box->setObjectName(QLatin1String(objectName));
    box->setNoAnimation(true);
    box->setChecked(checked);
    box->setNoAnimation(false);
    describe(box, title, description);
    return box;
}

}

VelmoSettings::VelmoSettings(double* darkenPercent, bool* confirmed, VelmoMainWindow* mainWindow)
    : TrovDialog(mainWindow), mainWindow(mainWindow), darkenPercent(darkenPercent), confirmed(confirmed),
      hybridOffered(AppSettings::customFramesOffered())
{
    setObjectName(QStringLiteral("VelmoSettings"));
    if (confirmed)
        *confirmed = false;
    language = mainWindow->getLanguage();
    const FormFrame frame = layOutForm();
    QWidget* content = frame.content;

    QGridLayout* groups = new QGridLayout();
    groups->setHorizontalSpacing(12);
    groups->setVerticalSpacing(12);
    groups->addWidget(buildLanguageGroup(content), 0, 0);
    groups->addWidget(buildWindowGroup(content), 1, 0);
    groups->addWidget(buildDialogGroup(content), 2, 0);
    groups->addWidget(buildThemeGroup(content), 0, 1);
    groups->addWidget(buildLocationGroup(content), 1, 1);
    groups->addWidget(buildBackgroundGroup(content), 2, 1);
    groups->setColumnMinimumWidth(0, 300);
    groups->setColumnMinimumWidth(1, 300);
    frame.contentLayout->addLayout(groups);

    restartRequired = new QLabel(tr("<i>Restart required for changes to apply.</i>"), content);
    restartRequired->setObjectName(QStringLiteral("restartRequired"));
    restartRequired->setAlignment(Qt::AlignCenter);
    frame.contentLayout->addWidget(restartRequired);
    frame.contentLayout->addLayout(confirmRow(content, confirmButton, cancelButton));
    // Hidden but kept in the layout's reckoning, so that the dialog's fixed
    // size has room for it when it shows.
    QSizePolicy keepRoom = restartRequired->sizePolicy();
    keepRoom.setRetainSizeWhenHidden(true);
    restartRequired->setSizePolicy(keepRoom);
    restartRequired->hide();

    QMetaObject::connectSlotsByName(this);
    updateLanguageButton();
    on_MainWindowStyle_whenChoiceChanges();

    setCenterWidget(content);
    setTitleBar(frame.titleBar);
    setConfirmButton(confirmButton);
    setDialogTitle(tr("Velmora Settings"));
    adjustSize();
    fixSize();
}

QWidget* VelmoSettings::buildLanguageGroup(QWidget* owner)
{
    QGridLayout* layout = new QGridLayout();
    MyGroupBox* box = group(owner, "editorThemeBox", tr("Editor Language"), layout);
    Language = formButton(box, "Language", QString());
    createCustomLang = formButton(box, "createCustomLang", tr("Create Lang."));
    disableLang = formButton(box, "disableLang", tr("Clear Lang."));
    layout->addWidget(Language, 0, 0, 1, 2);
    layout->addWidget(createCustomLang, 1, 0);
    layout->addWidget(disableLang, 1, 1);
    return box;
}

QWidget* VelmoSettings::buildWindowGroup(QWidget* owner)
{
    QVBoxLayout* layout = new QVBoxLayout();
    MyGroupBox* box = group(owner, "groupBox", tr("Main Window Options"), layout);
    MainWindowStyle = new MyComboBox(box);
    MainWindowStyle->setObjectName(QStringLiteral("MainWindowStyle"));
    MainWindowStyle->setCaption(tr("Main Window Style"));
    describe(MainWindowStyle, tr("Main Window Style"), tr("The type of main window used."));
    MainWindowStyle->addItem(tr("Frameless"), AppSettings::Frameless);
    if (hybridOffered)
        MainWindowStyle->addItem(tr("Hybrid"), AppSettings::Hybrid);
    MainWindowStyle->addItem(tr("Native"), AppSettings::Native);
    // The row of the window's own style; without "Hybrid" the rows are
    // fewer, and the stored style is found by its data.
    MainWindowStyle->selectByData(mainWindow->getWindowStyle());
    mainWindowNativeTitle = checkBox(box, "mainWindowNativeTitle", tr("Use Native Menu Bar"),
                                     tr("Use Native Menu Bar"), tr("If checked, the main window will use a native menu."),
                                     mainWindow->getNativeMenuBar());
    layout->addWidget(MainWindowStyle);
    layout->addWidget(mainWindowNativeTitle);
    return box;
}

QWidget* VelmoSettings::buildDialogGroup(QWidget* owner)
{
    QVBoxLayout* layout = new QVBoxLayout();
    MyGroupBox* box = group(owner, "groupBox_2", tr("Dialog Options"), layout);
    dialogNativeTitle = checkBox(box, "dialogNativeTitle", tr("Use Native Title Bar"), tr("Display Native Title Bar"),
                                 tr("If checked, dialogs will use native title bar."), dialogNativeTitleBar);
    dialogShowAnimation = checkBox(box, "dialogShowAnimation", tr("Show Dialog Animation"),
                                   tr("Show Dialog Animation"), tr("If checked, dialogs will use opening animation."),
                                   dialogOpenAnimated);
    dialogDarken = checkBox(box, "dialogDarken", tr("Darken Layered Dialogs"), tr("Darken Layered Dialogs"),
                            tr("If checked, parent dialogs will darken."), dialogDarkenLayers);
    dialogDarkenAnimate = checkBox(box, "dialogDarkenAnimate", tr("Animate Dialog Darken"), tr("Animate Dialog Darken"),
                                   tr("If checked, dialog darkening with animate."), dialogDarkenAnimated);
    // Where the program can't draw its own frames, the system's are the
    // only ones that work.
    if (!hybridOffered) {
        for (MyCheckBox* forced : {dialogNativeTitle, dialogShowAnimation}) {
            forced->setChecked(true);
            forced->setEnabled(false);
        }
    }
    for (MyCheckBox* toggle : {dialogNativeTitle, dialogShowAnimation, dialogDarken, dialogDarkenAnimate})
        layout->addWidget(toggle);
    return box;
}

QWidget* VelmoSettings::buildThemeGroup(QWidget* owner)
{
    QGridLayout* layout = new QGridLayout();
    MyGroupBox* box = group(owner, "editorThemeBox_2", tr("Editor Theme"), layout);
    Theme = new MyComboBox(box);
    Theme->setObjectName(QStringLiteral("Theme"));
    Theme->setCaption(tr("Theme"));
    Theme->setMaxVisibleRows(8);
    describe(Theme, tr("Theme"), tr("The theme Velmora uses."));
    createCustomTheme = formButton(box, "createCustomTheme", tr("Create Theme"));
    editTheme = formButton(box, "editTheme", tr("Edit Theme"));
    deleteTheme = formButton(box, "deleteTheme", tr("Delete Theme"));
    layout->addWidget(Theme, 0, 0, 1, 3);
    layout->addWidget(createCustomTheme, 1, 0);
    layout->addWidget(editTheme, 1, 1);
    layout->addWidget(deleteTheme, 1, 2);
    fillThemes();
    return box;
}

QWidget* VelmoSettings::buildLocationGroup(QWidget* owner)
{
    QHBoxLayout* layout = new QHBoxLayout();
    MyGroupBox* box = group(owner, "groupBox_4", tr("MZ Editor Location"), layout);
    EditorLocation = new MyLineEdit(box);
    EditorLocation->setObjectName(QStringLiteral("EditorLocation"));
    EditorLocation->setInputType(MyLineEdit::Text);
    EditorLocation->setCaption(tr("Editor Location"));
    EditorLocation->setPlaceholderText(tr("None"));
    describe(EditorLocation, tr("Editor Location"), tr("The location of the MZ executable."));
    EditorLocation->setValue(QDir::toNativeSeparators(mainWindow->getEditorLocation()));
    pushButton = formButton(box, "pushButton", tr("Browse"));
    layout->addWidget(EditorLocation, 1);
    layout->addWidget(pushButton, 0, Qt::AlignBottom);
    return box;
}

QWidget* VelmoSettings::buildBackgroundGroup(QWidget* owner)
{
    QVBoxLayout* layout = new QVBoxLayout();
    MyGroupBox* box = group(owner, "backgroundOptionsBox", tr("Background Options"), layout);
    Background_Darken = new MySlider(box);
    Background_Darken->setObjectName(QStringLiteral("Background_Darken"));
    Background_Darken->setCaption(tr("Background Darken"));
    Background_Darken->setRange(0, 100);
    describe(Background_Darken, tr("Background Darken"), tr("The darken ratio applied to backgrounds."));
    Background_Darken->setValue(darkenPercent ? int(*darkenPercent) : 0);
    layout->addWidget(Background_Darken);
    return box;
}

int VelmoSettings::styleOfRow(int row) const
{
    // Without "Hybrid" the second row is "Native".
    if (!hybridOffered && row == 1)
        return AppSettings::Native;
    return row;
}

QStringList VelmoSettings::themeNames() const
{
    QStringList names;
    for (int row = 1; row < Theme->count(); ++row)
        names.append(Theme->itemText(row));
    return names;
}

void VelmoSettings::fillThemes()
{
    Theme->clearItems();
    Theme->addItem(tr("Dark Blue Tint (Default)"), 0);
    QStringList names = ::Theme::names();
    names.sort(Qt::CaseInsensitive);
    for (const QString& name : names)
        Theme->addItem(name, ::Theme::filePath(name));
    const QString current = mainWindow->getTheme();
    if (current.isEmpty() || names.indexOf(current) < 0)
        Theme->setCurrentIndex(0, false);
    else
        Theme->selectByText(current, false);
    editTheme->setEnabled(Theme->currentIndex() > 0);
    deleteTheme->setEnabled(Theme->currentIndex() > 0);
}

void VelmoSettings::updateLanguageButton()
{
    if (language.isEmpty()) {
        Language->setText(tr("None"));
        disableLang->setEnabled(false);
    } else {
        Language->setText(QFileInfo(language).fileName());
        disableLang->setEnabled(true);
    }
    updateRestartRequired();
}

void VelmoSettings::updateRestartRequired()
{
    const bool differs = mainWindowNativeTitle->isChecked() != mainWindow->getNativeMenuBar()
        || styleOfRow(MainWindowStyle->currentIndex()) != mainWindow->getWindowStyle()
        || language != mainWindow->getLanguage();
    restartRequired->setVisible(differs);
}

void VelmoSettings::on_MainWindowStyle_whenChoiceChanges()
{
    mainWindowNativeTitle->setEnabled(styleOfRow(MainWindowStyle->currentIndex()) == AppSettings::Native);
    updateRestartRequired();
}

void VelmoSettings::on_mainWindowNativeTitle_stateChanged(int)
{
    updateRestartRequired();
}

void VelmoSettings::showProblem(const QString& text, const QStringList& details)
{
    darken();
    AlertDialog::alert(text, details, tr("Velmora Settings"), this);
    undarken();
}

void VelmoSettings::applySelectedTheme()
{
    const int row = Theme->currentIndex();
    const QString name = row > 0 ? Theme->currentText() : QString();
    QString problem;
    // Each theme starts from the default, so that one theme's colours never
    // linger in the keys another leaves out.
    ::Theme::installDefault();
    const bool loaded = ::Theme::load(name, &problem);
    ::Theme::apply();
    colorButton(confirmButton, ThemeKey::ConfirmButton);
    colorButton(cancelButton, ThemeKey::CancelButton);
    for (QPushButton* button : {Language, createCustomLang, disableLang, createCustomTheme, editTheme, deleteTheme,
                                pushButton})
        colorButton(button, ThemeKey::ButtonBase);
    editTheme->setEnabled(row > 0);
    deleteTheme->setEnabled(row > 0);
    // The choice holds even if the dialog is cancelled.
    mainWindow->setTheme(loaded ? name : QString());
    if (!problem.isEmpty())
        showProblem(problem, {});
}

void VelmoSettings::on_Theme_whenChoiceChanges()
{
    applySelectedTheme();
}

bool VelmoSettings::buildTheme(QString* name, ThemeTable* table)
{
    QStringList used = themeNames();
    ThemeManager_Velmo manager;
    bool accepted = false;
    darken();
    ThemeBuilder builder(&manager, table, &accepted, name, &used, this);
    builder.exec();
    undarken();
    return accepted;
}

void VelmoSettings::on_createCustomTheme_clicked()
{
    QString name;
    ThemeTable table;
    if (!buildTheme(&name, &table))
        return;
    QString error;
    if (!::Theme::save(table, name, &error)) {
        showProblem(tr("The theme \"%1\" couldn't be saved.").arg(name), {error});
        return;
    }
    if (themeNames().contains(name)) {
        Theme->selectByText(name, true);
        applySelectedTheme();
        return;
    }
    Theme->addItem(name, ::Theme::filePath(name));
    Theme->setCurrentIndex(Theme->count() - 1);
}

void VelmoSettings::on_editTheme_clicked()
{
    const int row = Theme->currentIndex();
    if (row <= 0)
        return;
    const QString oldName = Theme->currentText();
    QString name = oldName;
    ThemeTable table;
    if (!buildTheme(&name, &table))
        return;
    QString error;
    if (name != oldName) {
        // The user agreed in the builder to replace a theme of that name.
        const int replaced = themeNames().indexOf(name) + 1;
        if (replaced > 0) {
            ::Theme::remove(name);
            Theme->removeItem(replaced);
        }
        if (!::Theme::rename(oldName, name, &error)) {
            showProblem(tr("The theme \"%1\" couldn't be renamed to \"%2\".").arg(oldName, name), {error});
            name = oldName;
        }
    }
    if (!::Theme::save(table, name, &error))
        showProblem(tr("The theme \"%1\" couldn't be saved.").arg(name), {error});
    fillThemes();
    Theme->selectByText(name, false);
    applySelectedTheme();
}

void VelmoSettings::on_deleteTheme_clicked()
{
    const int row = Theme->currentIndex();
    if (row <= 0)
        return;
    const QString name = Theme->currentText();
    int answer = 2;
    darken();
    ConfirmationDialog ask(tr("Delete the theme \"%1\"? Its file is removed for good.").arg(name),
                           tr("Delete Theme"), &answer, this, ConfirmationDialog::YesNo);
    ask.exec();
    undarken();
    if (answer != 0)
        return;
    QString error;
    if (!::Theme::remove(name, &error)) {
        showProblem(error, {QDir::toNativeSeparators(::Theme::filePath(name))});
        return;
    }
    // A shipped theme of the same name may still be there; the list says so.
    fillThemes();
    Theme->setCurrentIndex(qMax(0, themeNames().indexOf(name) + 1));
}

QString VelmoSettings::startFolder(const QString& folder)
{
    if (!folder.isEmpty() && QFileInfo(folder).isDir())
        return folder;
    const QString desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    if (!desktop.isEmpty() && QFileInfo(desktop).isDir())
        return desktop;
    return QDir::homePath();
}

void VelmoSettings::on_Language_clicked()
{
    darken();
    const QString chosen = QFileDialog::getOpenFileName(this, tr("Open Translation File"),
                                                        startFolder(QFileInfo(language).absolutePath()),
                                                        tr("CSV (*.csv)"));
    undarken();
    if (chosen.isEmpty())
        return;
    language = chosen;
    updateLanguageButton();
    MorvikCSVTranslator::installLanguage(language);
}

void VelmoSettings::on_createCustomLang_clicked()
{
    const QString proposed = startFolder(QString()) + QStringLiteral("/VelmoraTranslationBase.csv");
    darken();
    const QString chosen = QFileDialog::getSaveFileName(this, tr("Save Translation File"), proposed, tr("CSV (*.csv)"));
    undarken();
    if (chosen.isEmpty())
        return;
    QFile base(QStringLiteral(":/VelmoraTranslationBase.csv"));
    QFile target(chosen);
    if (!base.open(QIODevice::ReadOnly) || !target.open(QIODevice::WriteOnly | QIODevice::Truncate)
        || target.write(base.readAll()) < 0) {
        showProblem(tr("The translation file couldn't be written."),
                    {QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(chosen), target.errorString())});
    }
}

void VelmoSettings::on_disableLang_clicked()
{
    language.clear();
    updateLanguageButton();
}

void VelmoSettings::on_pushButton_clicked()
{
    darken();
    const QString chosen = QFileDialog::getExistingDirectory(this, tr("MZ Executable Directory"),
                                                             startFolder(EditorLocation->text()));
    undarken();
    if (!chosen.isEmpty())
        EditorLocation->setValue(QDir::toNativeSeparators(chosen));
}

void VelmoSettings::on_confirmButton_clicked()
{
    mainWindow->setWindowStyle(styleOfRow(MainWindowStyle->currentIndex()));
    mainWindow->setNativeMenuBar(mainWindowNativeTitle->isChecked());
    dialogNativeTitleBar = dialogNativeTitle->isChecked();
    dialogOpenAnimated = dialogShowAnimation->isChecked();
    dialogDarkenLayers = dialogDarken->isChecked();
    dialogDarkenAnimated = dialogDarkenAnimate->isChecked();
    // A folder without the game runtime leaves the location empty.
    mainWindow->setEditorLocation(QDir::fromNativeSeparators(EditorLocation->text().trimmed()));
    mainWindow->setLanguage(language);
    MorvikCSVTranslator::installLanguage(language);
    if (darkenPercent)
        *darkenPercent = Background_Darken->value();
    if (confirmed)
        *confirmed = true;
    accept();
}

void VelmoSettings::on_cancelButton_clicked()
{
    reject();
}
