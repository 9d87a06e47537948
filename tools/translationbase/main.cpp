// Writes resources/VelmoraTranslationBase.csv from the program's sources:
//   velmora-translationbase SOURCE_ROOT
#include "TranslationBaseCollector.h"

#include <QCoreApplication>
#include <QDir>
#include <QSaveFile>
#include <QTextStream>

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    QTextStream err(stderr);
    if (arguments.size() != 2) {
        err << "usage: velmora-translationbase SOURCE_ROOT\n";
        return 2;
    }
    const QString root = arguments.at(1);
    const QStringList texts = TranslationBaseCollector::collect(root);
    QSaveFile file(QDir(root).absoluteFilePath(QStringLiteral("resources/VelmoraTranslationBase.csv")));
    if (!file.open(QIODevice::WriteOnly)) {
        err << "cannot write " << file.fileName() << "\n";
        return 1;
    }
    file.write(TranslationBaseCollector::baseFile(texts));
    if (!file.commit()) {
        err << "cannot write " << file.fileName() << "\n";
        return 1;
    }
    QTextStream(stdout) << texts.size() << " texts written to " << file.fileName() << "\n";
    return 0;
}
