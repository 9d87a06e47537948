#include "TestEnvironment.h"

#include "FuzzTargets.h"

#include <QDir>
#include <QFileInfo>

// The fuzz targets without libFuzzer: every input kept under
// tests/fuzz/<target>/ (each one crashed, hung or broke a promise about the
// data once, and was fixed) and the starting inputs made from the source
// tree's documents go through the same function as in tools/fuzz.sh. A broken
// promise aborts with its reason; a crash is a crash here too.
class TestFuzzReplay : public QObject
{
    Q_OBJECT

private slots:
    // A folder of kept inputs under a name no target answers to would never
    // be replayed.
    void everyCaseFolderNamesATarget()
    {
        const QDir cases(QStringLiteral(VELMORA_FUZZ_CASES));
        for (const QString& folder : cases.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            QVERIFY2(FuzzTargets::find(folder), qPrintable(folder));
    }

    void replay_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<QByteArray>("bytes");
        for (const FuzzTargets::Target& target : FuzzTargets::all()) {
            const QString name = QString::fromLatin1(target.name);
            const QDir folder(QStringLiteral(VELMORA_FUZZ_CASES "/") + name);
            for (const QFileInfo& file : folder.entryInfoList(QDir::Files, QDir::Name)) {
                QTest::newRow(qPrintable(QStringLiteral("%1/%2").arg(name, file.fileName())))
                    << name << TestEnvironment::readFile(file.absoluteFilePath());
            }
            const QVector<QByteArray> inputs = FuzzTargets::seeds(name, {QStringLiteral(VELMORA_SAMPLE_PROJECT)});
            // Every target has something to start from.
            QVERIFY2(!inputs.isEmpty(), target.name);
            for (int i = 0; i < inputs.size(); ++i)
                QTest::newRow(qPrintable(QStringLiteral("%1 seed %2").arg(name).arg(i))) << name << inputs.at(i);
        }
    }

    void replay()
    {
        QFETCH(QString, target);
        QFETCH(QByteArray, bytes);
        FuzzTargets::find(target)->run(bytes);
    }
};

VELMORA_TEST_MAIN(TestFuzzReplay, QApplication)
#include "tst_fuzzreplay.moc"
