#pragma once

#include <QTranslator>

// Translator of the program's texts from a CSV file of "English,Translation"
// pairs.
//
// Start-up layer until CSV translation lands: it records the file it was made
// for and translates nothing, so every text stays English.
class MorvikCSVTranslator : public QTranslator
{
    Q_OBJECT
public:
    explicit MorvikCSVTranslator(const QString& path, QObject* parent = nullptr);

    QString path() const { return filePath; }
    bool isEmpty() const override { return true; }
    QString translate(const char* context, const char* sourceText, const char* disambiguation = nullptr,
                      int n = -1) const override;

private:
    QString filePath;
};
