#pragma once

#include <QString>
#include <QStringList>

// Collects the texts that the program passes through translation: tr(),
// QCoreApplication::translate(), QT_TR_NOOP() and QT_TRANSLATE_NOOP() with
// literal strings. They make the base file a new translation starts from.
namespace TranslationBaseCollector {

// The texts of one source file's content, in order of appearance.
QStringList textsOf(const QString& source);

// The texts of every C++ source and header below the program's folders of a
// source tree, files in path order, each text once.
QStringList collect(const QString& sourceRoot);

// The base file: one line "text","text" per text, quotes doubled; texts
// that span lines are left out, since the file can't carry them.
QByteArray baseFile(const QStringList& texts);

}
