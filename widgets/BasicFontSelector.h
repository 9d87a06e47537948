#pragma once

#include "widgets/BasicSelector.h"

#include <QDir>
#include <QHash>

#include <functional>

class MyDialogOpener;

// Chooses a font file of the project below a folder, each listed in its own
// face and previewed in a sample. Its value is the file's path below the
// folder, suffix included; empty for the default font.
class BasicFontSelector : public BasicSelector
{
    Q_OBJECT
public:
    // Loads a font file below a folder for display and gives its family;
    // empty when the file can't be loaded.
    using FontLoader = std::function<QString(const QString& fileName, const QDir& folder)>;

    // defaultFont, if given, is the file the empty choice previews.
    BasicFontSelector(QString* font, bool* accepted, const QString& folder, const QStringList& suffixes = fontSuffixes(),
                      const QString& defaultFont = QString(), int width = 780, int height = 480,
                      QWidget* parent = nullptr);

    // The suffixes of the font files the game can use. "oft" is spelled so
    // in existing projects' settings and stays; ".otf" files aren't offered.
    static QStringList fontSuffixes();
    // The program installs its font loading here, which converts web fonts;
    // without it the list and the preview show the default face.
    static void setFontLoader(const FontLoader& loader);
    // The family of a font file below a folder through the installed loader;
    // empty without one or when the file can't be loaded.
    static QString loadFamily(const QString& fileName, const QDir& folder);
    // Shows a font value in its field: the value, or "(Default)" in italics.
    static void showFont(MyDialogOpener* field, const QString& font);

    // The family the file at a path below the folder was loaded under;
    // empty when it couldn't be loaded.
    QString familyOf(const QString& relativeFile) const { return families.value(relativeFile); }

protected:
    UltimateTreeItem* makeFileRow(const QString& relativeFile) override;
    void showPreview(const QString& relativeFile) override;

private:
    static FontLoader& loader();
    QString load(const QString& relativeFile);

    QString defaultFont;
    QHash<QString, QString> families;
};
