#include "components/ProjectImages.h"

#include <QDateTime>
#include <QFileInfo>
#include <QHash>
#include <QImageReader>

namespace ProjectImages {

namespace {

struct Entry
{
    QDateTime modified;
    qint64 size = -1;
    QImage image;
    QPixmap pixmap;
    bool pixmapMade = false;
};

struct State
{
    PathHook hook;
    QHash<QString, Entry> entries;
    QStringList missing;
};

State& state()
{
    static State installed;
    return installed;
}

QString folderName(int kind)
{
    switch (kind) {
    case Faces:
        return QStringLiteral("img/faces");
    case Pictures:
        return QStringLiteral("img/pictures");
    case System:
        return QStringLiteral("img/system");
    default:
        return QString();
    }
}

void noteMissing(int kind, const QString& name)
{
    const QString shown = folderName(kind).isEmpty() ? name : folderName(kind) + QLatin1Char('/') + name;
    if (!state().missing.contains(shown))
        state().missing.append(shown);
}

// Images far beyond any game screen are refused rather than decoded, so a
// damaged header can't make the editor allocate gigabytes.
constexpr int largestSide = 16384;

Entry* entry(int kind, const QString& name)
{
    if (name.isEmpty())
        return nullptr;
    const QString file = path(kind, name);
    if (file.isEmpty()) {
        noteMissing(kind, name);
        return nullptr;
    }
    const QFileInfo info(file);
    Entry& cached = state().entries[file];
    if (!info.isFile()) {
        cached = Entry();
        noteMissing(kind, name);
        return nullptr;
    }
    if (cached.size != info.size() || cached.modified != info.lastModified()) {
        cached = Entry();
        cached.size = info.size();
        cached.modified = info.lastModified();
        QImageReader reader(file);
        const QSize size = reader.size();
        if (!size.isValid() || (size.width() <= largestSide && size.height() <= largestSide))
            cached.image = reader.read();
    }
    if (cached.image.isNull()) {
        noteMissing(kind, name);
        return nullptr;
    }
    return &cached;
}

}

void setPathHook(const PathHook& hook)
{
    state().hook = hook;
    clear();
}

QString path(int kind, const QString& name)
{
    return state().hook ? state().hook(kind, name) : QString();
}

QString folder(int kind)
{
    // The hook knows files, not folders: the folder of any name in it.
    const QString file = path(kind, QStringLiteral("_"));
    return file.isEmpty() ? QString() : QFileInfo(file).absolutePath();
}

QImage image(int kind, const QString& name)
{
    const Entry* found = entry(kind, name);
    return found ? found->image : QImage();
}

QPixmap pixmap(int kind, const QString& name)
{
    Entry* found = entry(kind, name);
    if (!found)
        return QPixmap();
    if (!found->pixmapMade) {
        found->pixmap = QPixmap::fromImage(found->image);
        found->pixmapMade = true;
    }
    return found->pixmap;
}

QStringList missing()
{
    return state().missing;
}

void clearMissing()
{
    state().missing.clear();
}

void clear()
{
    state().entries.clear();
    state().missing.clear();
}

}
