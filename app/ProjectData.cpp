#include "app/ProjectData.h"

#include "app/JsonFile.h"
#include "app/JsonRecordNames.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPair>
#include <QThread>
#include <QVector>

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

namespace ProjectData {

const QStringList& fileNames()
{
    static const QStringList names = {
        QStringLiteral("System.json"), QStringLiteral("Actors.json"),
        QStringLiteral("Enemies.json"), QStringLiteral("Classes.json"),
        QStringLiteral("Skills.json"), QStringLiteral("Items.json"),
        QStringLiteral("Weapons.json"), QStringLiteral("Armors.json"),
        QStringLiteral("States.json"), QStringLiteral("Animations.json"),
        QStringLiteral("CommonEvents.json"),
    };
    return names;
}

ScreenSize screenSize(const QJsonObject& system)
{
    const QJsonObject advanced = system.value(QStringLiteral("advanced")).toObject();
    ScreenSize size;
    size.width = advanced.value(QStringLiteral("screenWidth")).toInt(DefaultScreenWidth);
    size.height = advanced.value(QStringLiteral("screenHeight")).toInt(DefaultScreenHeight);
    return size;
}

static QString problemOf(const QString& name, const QJsonDocument& document, const QString& reason,
                         bool missing, bool wantObject)
{
    if (document.isNull()) {
        if (missing)
            return QCoreApplication::translate("", "\"%1\" is missing.").arg(name);
        return QCoreApplication::translate("", "\"%1\" can't be read: %2.").arg(name, reason);
    }
    return wantObject ? QCoreApplication::translate("", "\"%1\" doesn't hold an object.").arg(name)
                      : QCoreApplication::translate("", "\"%1\" doesn't hold an array.").arg(name);
}

bool load(const QDir& projectDirectory, QJsonObject& projectData, ScreenSize& screen,
          QStringList* problems, const std::function<void()>& alongside, Reading reading)
{
    const QStringList& names = fileNames();
    const int count = names.size();
    QStringList paths;
    for (const QString& name : names)
        paths.append(projectDirectory.absoluteFilePath(QStringLiteral("data/%1").arg(name)));
    QVector<QJsonDocument> documents(count);
    QVector<QString> reasons(count);
    QVector<QByteArray> bytes(count);
    QVector<bool> readable(count);
    for (int i = 0; i < count; ++i)
        bytes[i] = JsonFile::readBytes(paths.at(i), &reasons[i], &readable[i]);

    // The database of a big project is tens of megabytes of JSON in files
    // that don't depend on each other, so they are parsed side by side, and
    // a big table (a Classes.json of tens of megabytes) in pieces of whole
    // records; the caller waits for all of it and sees nothing of the threads.
    struct Piece {
        int file;
        int offset;
        int length; // -1: the whole file
        QJsonArray elements;
        bool parsed = false;
    };
    QVector<Piece> pieces;
    constexpr int pieceSize = 4 * 1024 * 1024;
    for (int i = 0; i < count; ++i) {
        if (!readable[i])
            continue;
        // Names are read quickly enough whole; cutting pays only for a full parse.
        const QVector<QPair<int, int>> parts = i == 0 || reading == Reading::Names
            ? QVector<QPair<int, int>>()
            : JsonFile::arrayParts(bytes[i], bytes[i].size() / pieceSize + 1);
        if (parts.isEmpty())
            pieces.append({i, 0, -1, {}});
        for (const auto& part : parts)
            pieces.append({i, part.first, part.second, {}});
    }
    // Biggest first, so that no big piece is left to run alone at the end.
    std::stable_sort(pieces.begin(), pieces.end(), [&](const Piece& a, const Piece& b) {
        return (a.length < 0 ? bytes[a.file].size() : a.length) > (b.length < 0 ? bytes[b.file].size() : b.length);
    });
    std::atomic<int> next{0};
    std::atomic<bool> alongsideTaken{false};
    const auto work = [&]() {
        if (alongside && !alongsideTaken.exchange(true))
            alongside();
        for (int i = next++; i < pieces.size(); i = next++) {
            Piece& piece = pieces[i];
            if (piece.length < 0) {
                QJsonArray records;
                if (reading == Reading::Names && piece.file != 0 && JsonRecordNames::read(bytes[piece.file], &records))
                    documents[piece.file] = QJsonDocument(records);
                else
                    documents[piece.file] = JsonFile::parse(bytes[piece.file], &reasons[piece.file]);
                continue;
            }
            QByteArray text;
            text.reserve(piece.length + 2);
            text.append('[').append(bytes[piece.file].constData() + piece.offset, piece.length).append(']');
            const QJsonDocument part = QJsonDocument::fromJson(text);
            piece.elements = part.array();
            // An empty piece would let a stray comma through.
            piece.parsed = part.isArray() && !piece.elements.isEmpty();
        }
    };
    std::vector<std::thread> helpers;
    const int helperCount = qBound(0, QThread::idealThreadCount() - 1, pieces.size() + (alongside ? 1 : 0) - 1);
    for (int i = 0; i < helperCount; ++i)
        helpers.emplace_back(work);
    work();
    for (std::thread& helper : helpers)
        helper.join();

    // The pieces of a table joined in file order; a table with any piece
    // that didn't parse is parsed whole, for the parser's own error.
    std::stable_sort(pieces.begin(), pieces.end(),
                     [](const Piece& a, const Piece& b) { return a.file != b.file ? a.file < b.file : a.offset < b.offset; });
    for (int first = 0; first < pieces.size();) {
        int end = first;
        bool whole = true;
        while (end < pieces.size() && pieces[end].file == pieces[first].file) {
            whole = whole && pieces[end].length >= 0 && pieces[end].parsed;
            ++end;
        }
        const int file = pieces[first].file;
        if (pieces[first].length >= 0) {
            if (whole) {
                QJsonArray joined;
                for (int i = first; i < end; ++i) {
                    for (const QJsonValue& element : qAsConst(pieces[i].elements))
                        joined.append(element);
                }
                documents[file] = QJsonDocument(joined);
            } else {
                documents[file] = JsonFile::parse(bytes[file], &reasons[file]);
            }
        }
        first = end;
    }

    bool good = true;
    for (int i = 0; i < names.size(); ++i) {
        const bool wantObject = i == 0;
        const bool fits = wantObject ? documents[i].isObject() : documents[i].isArray();
        if (fits)
            continue;
        good = false;
        if (!problems)
            break;
        const QString& path = paths.at(i);
        const bool missing = !QFileInfo::exists(path) && !QFileInfo(path).isSymLink();
        problems->append(problemOf(names[i], documents[i], reasons[i], missing, wantObject));
    }
    if (!good)
        return false;

    projectData.insert(names[0], documents[0].object());
    for (int i = 1; i < names.size(); ++i)
        projectData.insert(names[i], documents[i].array());
    screen = screenSize(documents[0].object());
    return true;
}

QString graphicsFolder(PathManager::GraphicsType type)
{
    switch (type) {
    case PathManager::Pictures:
        return QStringLiteral("img/pictures");
    case PathManager::System:
        return QStringLiteral("img/system");
    case PathManager::Characters:
        return QStringLiteral("img/faces");
    default:
        return QString();
    }
}

}
