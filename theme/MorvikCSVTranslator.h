#pragma once

#include <QMap>
#include <QTranslator>

// Translates the program's texts from a two-column CSV file: the English text
// in the first field, its translation in the second. Context, disambiguation
// and plural are ignored, so one English text has one translation everywhere.
//
// The file is read as UTF-8 and cut at the first NUL byte. Records are lines
// (any run of CR and LF ends one). Only Latin-1 text comes through: a
// character above 255 can't be a delimiter and stands as a NUL in its field.
class MorvikCSVTranslator : public QTranslator
{
    Q_OBJECT
public:
    // A file that can't be read gives a translator that changes nothing.
    explicit MorvikCSVTranslator(const QString& path, QObject* parent = nullptr);

    QString translate(const char* context, const char* sourceText, const char* disambiguation = nullptr,
                      int n = -1) const override;
    bool isEmpty() const override { return translations.isEmpty(); }

    const QMap<QString, QString>& table() const { return translations; }

    // The fields of one line by the file's grammar.
    static QStringList parseLine(const QString& line);
    // The source-to-translation table of a whole file's text.
    static QMap<QString, QString> parse(const QByteArray& bytes);

    // Replaces the application's translator with one for the file; an empty
    // path leaves the program untranslated.
    static void installLanguage(const QString& path);
    static void removeLanguage();
    static MorvikCSVTranslator* current();

private:
    QMap<QString, QString> translations;
};
