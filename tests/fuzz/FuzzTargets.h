#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

// The program's readers of outside input, each as one function over raw
// bytes: libFuzzer drives them (tools/fuzz.sh), and tst_fuzzreplay runs every
// input kept under tests/fuzz/<target>/ through the same function. A function
// returns normally for any input the program copes with; when the program
// crashes, hangs or breaks a promise about the data (a save that reads back
// different, a lost key, an object that changes when applied again) it
// aborts with a message naming what went wrong.
namespace FuzzTargets {

using Function = void (*)(const QByteArray& bytes);

struct Target {
    // The folder name under tests/fuzz/ and the executable's "fuzz-<name>".
    const char* name;
    Function run;
};

const QVector<Target>& all();
// The target of that name, or null.
const Target* find(const QString& name);

// Starting inputs of a target, made from the documents of the source tree
// (the test documents, the shipped themes and languages) and of the given
// project folders (the sample project, projects of tools/gen-project).
QVector<QByteArray> seeds(const QString& target, const QStringList& projects);

// The offscreen application with its home, settings and data folders in a
// temporary folder, made once; nothing when an application already exists.
void ensureApplication();

// The bytes as "data/plugin/VelmoraHUD.json" of a project through
// HudDocument::load. A document that loads is assembled, saved and loaded
// again, and must come back the same; a damaged one must be kept whole as
// the backup before the save writes over it.
void hudDocument(const QByteArray& bytes);

// The first byte picks one of the eleven data files, the rest is its content
// in an otherwise valid project, through ProjectData::load.
void projectData(const QByteArray& bytes);

// The first byte picks the kind (0 to 13; 14 and 15 keep the object's own
// "Type") and the canvas zoom; the rest is the component's JSON object. It goes
// through the scene helper's createComponent, is painted, and data() fed back
// through setData must give the same object.
void component(const QByteArray& bytes);

// The first byte picks the clipboard identifier, whether the text starts
// with it and where the paste lands; the rest is the JSON behind it, pasted
// into the list that takes that identifier.
void clipboard(const QByteArray& bytes);

// The bytes as a user theme's "Theme.json", loaded, applied and saved again.
void theme(const QByteArray& bytes);

// The bytes as a language's CSV file for MorvikCSVTranslator.
void translator(const QByteArray& bytes);

// The bytes through the WOFF 1.0 and WOFF 2.0 decoders.
void woff(const QByteArray& bytes);
void woff2(const QByteArray& bytes);

}
