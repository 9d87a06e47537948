#include "TestEnvironment.h"

#include "TranslationBaseCollector.h"
#include "theme/MorvikCSVTranslator.h"

#include <QCoreApplication>

class TestTranslator : public QObject
{
    Q_OBJECT

private:
    static QString csvFile(const QByteArray& bytes)
    {
        const QString path = TestEnvironment::newFolder(QStringLiteral("csv")) + QStringLiteral("/language.csv");
        TestEnvironment::writeFile(path, bytes);
        return path;
    }

private slots:
    void cleanup() { MorvikCSVTranslator::removeLanguage(); }

    void fieldGrammar_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QStringList>("fields");
        QTest::newRow("plain") << "Open,Öffnen" << QStringList{"Open", "Öffnen"};
        QTest::newRow("comma in quotes") << "\"Yes, please\",\"Ja, bitte\"" << QStringList{"Yes, please", "Ja, bitte"};
        QTest::newRow("doubled quote") << "\"Say \"\"hi\"\"\",x" << QStringList{"Say \"hi\"", "x"};
        QTest::newRow("after closing quote") << "\"abc\"def,ghi" << QStringList{"abcef", "ghi"};
        QTest::newRow("quote inside unquoted") << "ab\"c,d\"e,f" << QStringList{"abc,d", "f"};
        QTest::newRow("one field") << "lonely" << QStringList{"lonely"};
        QTest::newRow("empty fields") << ",," << QStringList{"", "", ""};
        QTest::newRow("wide characters") << QStringLiteral("日本,x") << QStringList{QString(2, QChar(0)), "x"};
        // Full-width quote and comma are no delimiters; they stand as NUL.
        QTest::newRow("wide delimiters") << QStringLiteral("a\uff0cb,\uff02c") << QStringList{QStringLiteral("a") + QChar(0) + "b", QString(QChar(0)) + "c"};
        QTest::newRow("latin-1 kept") << QStringLiteral("Größe,Taille à") << QStringList{"Größe", "Taille à"};
    }

    void fieldGrammar()
    {
        QFETCH(QString, line);
        QFETCH(QStringList, fields);
        QCOMPARE(MorvikCSVTranslator::parseLine(line), fields);
    }

    void fileParsing()
    {
        // The literal's own length, so that the bytes after the NUL reach the parser.
        static const char bytes[] =
            "Open,Offen\r\n\r\n\r\nSave,Sichern\rlonely\n\nOpen,\xc3\x96" "ffnen\nClose,Zu\0Hidden,Versteckt\nMore,Mehr\n";
        const QByteArray file(bytes, sizeof(bytes) - 1);
        QVERIFY(file.contains("More,Mehr"));
        const QMap<QString, QString> table = MorvikCSVTranslator::parse(file);
        QCOMPARE(table.size(), 3);
        // A later line replaces an earlier one; the one-field line is skipped.
        QCOMPARE(table.value(QStringLiteral("Open")), QStringLiteral("Öffnen"));
        QCOMPARE(table.value(QStringLiteral("Save")), QStringLiteral("Sichern"));
        QCOMPARE(table.value(QStringLiteral("Close")), QStringLiteral("Zu"));
        // Everything after a NUL byte is gone.
        QVERIFY(!table.contains(QStringLiteral("Hidden")));
        QVERIFY(!table.contains(QStringLiteral("More")));
        QVERIFY(!table.contains(QStringLiteral("lonely")));
        QVERIFY(MorvikCSVTranslator::parse(QByteArray()).isEmpty());
    }

    void translating()
    {
        const QString path = csvFile("Open Project,Projekt \xc3\xb6" "ffnen\n\xe6\x97\xa5\xe6\x9c\xac,Japan\n\"Size, big\",Gr\xc3\xb6\xc3\x9f" "e\n");
        MorvikCSVTranslator translator(path);
        QVERIFY(!translator.isEmpty());
        QCOMPARE(translator.translate("Any", "Open Project"), QStringLiteral("Projekt öffnen"));
        QCOMPARE(translator.translate(nullptr, "Size, big", "disambiguation", 3), QStringLiteral("Größe"));
        // Not in the file: the source text itself.
        QCOMPARE(translator.translate("", "Close Project"), QStringLiteral("Close Project"));
        // CJK keys never match.
        QCOMPARE(translator.translate("", "日本"), QStringLiteral("日本"));

        MorvikCSVTranslator missing(path + QStringLiteral(".gone"));
        QVERIFY(missing.isEmpty());
        QCOMPARE(missing.translate("", "Open Project"), QStringLiteral("Open Project"));
    }

    void installingALanguage()
    {
        const QString german = QStringLiteral(VELMORA_EXAMPLES "/translations/German.csv");
        MorvikCSVTranslator::installLanguage(german);
        QVERIFY(MorvikCSVTranslator::current());
        QCOMPARE(QCoreApplication::translate("", "Close Project"), QStringLiteral("Projekt schließen"));
        // Context doesn't matter: a class's tr() finds the same text.
        QCOMPARE(QCoreApplication::translate("VelmoMainWindow", "Save"), QStringLiteral("Speichern"));

        // Installing again replaces the translator rather than stacking one.
        MorvikCSVTranslator::installLanguage(csvFile("Save,Sauvegarder\n"));
        QCOMPARE(QCoreApplication::translate("", "Save"), QStringLiteral("Sauvegarder"));
        QCOMPARE(QCoreApplication::translate("", "Close Project"), QStringLiteral("Close Project"));

        MorvikCSVTranslator::installLanguage(QString());
        QVERIFY(!MorvikCSVTranslator::current());
        QCOMPARE(QCoreApplication::translate("", "Save"), QStringLiteral("Save"));
    }

    void collectingTexts()
    {
        const QString source = QStringLiteral(
            "label->setText(tr(\"Plain\"));\n"
            "QString s = tr(\"Joined \" \"text\");\n"
            "QCoreApplication::translate(\"Ctx\", \"Quoted \\\"word\\\"\");\n"
            "static const char* n = QT_TR_NOOP(\"Noop\");\n"
            "QT_TRANSLATE_NOOP(\"\", \"Context noop\"), str(\"not this\"), tr(\"With\\ttab\", \"disambiguation\");\n"
            "tr(\"Arrow \\u2192\"); tr(variable);\n");
        QCOMPARE(TranslationBaseCollector::textsOf(source),
                 QStringList({"Plain", "Joined text", "Quoted \"word\"", "Noop", "Context noop", "With\ttab",
                              QStringLiteral("Arrow \u2192")}));
        QCOMPARE(TranslationBaseCollector::baseFile({"a", "Two\nlines", "Say \"hi\""}),
                 QByteArray("\"a\",\"a\"\n\"Say \"\"hi\"\"\",\"Say \"\"hi\"\"\"\n"));
    }

    void baseFileHoldsEveryText()
    {
        QFile resource(QStringLiteral(":/VelmoraTranslationBase.csv"));
        QVERIFY(resource.open(QIODevice::ReadOnly));
        const QMap<QString, QString> base = MorvikCSVTranslator::parse(resource.readAll());
        const QStringList texts = TranslationBaseCollector::collect(QStringLiteral(VELMORA_SOURCE_ROOT));
        QVERIFY(texts.size() > 150);
        QStringList missing;
        for (const QString& text : texts) {
            // Texts with line breaks or beyond Latin-1 can't be carried by the file.
            bool latin1 = !text.contains(QLatin1Char('\n'));
            for (const QChar c : text)
                latin1 = latin1 && c.unicode() <= 255;
            if (latin1 && base.value(text) != text)
                missing.append(text);
        }
        QVERIFY2(missing.isEmpty(),
                 qPrintable(QStringLiteral("run velmora-translationbase; missing: ") + missing.join(QStringLiteral(" | "))));

        // The German example translates texts the program has, nothing else.
        QFile germanFile(QStringLiteral(VELMORA_EXAMPLES "/translations/German.csv"));
        QVERIFY(germanFile.open(QIODevice::ReadOnly));
        const QMap<QString, QString> german = MorvikCSVTranslator::parse(germanFile.readAll());
        for (auto it = german.begin(); it != german.end(); ++it)
            QVERIFY2(base.contains(it.key()), qPrintable(it.key()));
    }

    // A character beyond Latin-1 in a translation reaches the program as a
    // NUL: typographic quotes around a name cut a window title short at the
    // name ("Parameter " for the setter of "Label"). The German example keeps
    // to Latin-1, and so the parameter's name shows in the setter's title.
    void germanExampleKeepsToLatin1()
    {
        QFile germanFile(QStringLiteral(VELMORA_EXAMPLES "/translations/German.csv"));
        QVERIFY(germanFile.open(QIODevice::ReadOnly));
        const QMap<QString, QString> german = MorvikCSVTranslator::parse(germanFile.readAll());
        QStringList cut;
        for (auto it = german.begin(); it != german.end(); ++it) {
            if (it.value().contains(QChar(0)))
                cut.append(it.key());
        }
        QVERIFY2(cut.isEmpty(), qPrintable(cut.join(QStringLiteral(" | "))));

        MorvikCSVTranslator::installLanguage(QStringLiteral(VELMORA_EXAMPLES "/translations/German.csv"));
        const QString title = QCoreApplication::translate("VelmoHUDDialogParamSetter", "\"%1\" Parameter")
                                  .arg(QStringLiteral("Label"));
        MorvikCSVTranslator::installLanguage(QString());
        QCOMPARE(title, QStringLiteral("Parameter \"Label\""));
    }
};

VELMORA_TEST_MAIN(TestTranslator, QCoreApplication)
#include "tst_translator.moc"
