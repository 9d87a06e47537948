#include "widgets/BasicImageSelector.h"

#include <QFileInfo>
#include <QImage>
#include <QLabel>
#include <QPainter>

BasicImageSelector::BasicImageSelector(QString* path, bool* accepted, const QString& folder,
                                       const QStringList& suffixes, int width, int height, QWidget* parent)
    : BasicSelector(path, accepted, folder, suffixes, width, height, parent)
{
    setObjectName(QStringLiteral("BasicImageSelector"));
    fillList(tr("None"), QPixmap(QStringLiteral(":/resources/ListIcons/MiniIcon_Image.png")));
    finish(tr("Image Selector"), QSize(width, height));
}

QString BasicImageSelector::fileOf(const QString& folder, const QString& value, const QStringList& suffixes)
{
    if (value.isEmpty())
        return QString();
    for (const QString& suffix : suffixes) {
        const QString file = QStringLiteral("%1/%2.%3").arg(folder, value, suffix);
        if (QFileInfo(file).isFile())
            return file;
    }
    return QString();
}

QString BasicImageSelector::valueOf(const QString& relativeFile) const
{
    const QFileInfo file(relativeFile);
    return file.path() == QLatin1String(".") ? file.completeBaseName()
                                              : file.path() + QLatin1Char('/') + file.completeBaseName();
}

void BasicImageSelector::showPreview(const QString& relativeFile)
{
    QLabel* label = previewLabel();
    if (relativeFile.isEmpty()) {
        label->clear();
        return;
    }
    const QImage image(rootFolder() + QLatin1Char('/') + relativeFile);
    if (image.isNull()) {
        label->setText(tr("This image can't be read."));
        return;
    }
    // On the canvas's checkerboard, so that transparent parts show as such;
    // enlarged pixel art keeps its hard edges.
    const double scale = zoom();
    const QSize size = (QSizeF(image.size()) * scale).toSize().expandedTo(QSize(1, 1));
    QPixmap picture(size);
    QPainter painter(&picture);
    painter.fillRect(picture.rect(), QBrush(QPixmap(QStringLiteral(":/resources/Editor/Tile.png"))));
    painter.setRenderHint(QPainter::SmoothPixmapTransform, scale < 1.0);
    painter.drawImage(picture.rect(), image);
    painter.end();
    label->setPixmap(picture);
}
