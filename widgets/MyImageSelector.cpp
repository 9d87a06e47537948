#include "widgets/MyImageSelector.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/BasicImageSelector.h"

#include <QPainter>
#include <QTimer>

namespace {

// The thumbnail's square at the right end of the field.
const int ThumbnailSide = 36;

}

MyImageSelector::MyImageSelector(QWidget* parent) : PickerField(300, parent), stepper(new QTimer(this))
{
    stepper->setInterval(200);
    connect(stepper, &QTimer::timeout, this, [this]() { setFrame((shownFrame + 1) % frames); });
    connect(this, &QPushButton::clicked, this, &MyImageSelector::whenClicked);
}

void MyImageSelector::setFolder(const QString& folder)
{
    imageFolder = folder;
    loadPicture();
}

void MyImageSelector::setSuffixes(const QStringList& list)
{
    suffixes = list;
    loadPicture();
}

void MyImageSelector::setImage(const QString& path)
{
    imagePath = path;
    loadPicture();
}

void MyImageSelector::setFrameCount(int count)
{
    frames = qMax(1, count);
    shownFrame = 0;
    if (frames > 1)
        stepper->start();
    else
        stepper->stop();
    update();
}

void MyImageSelector::setFrame(int frame)
{
    shownFrame = qBound(0, frame, frames - 1);
    update();
}

void MyImageSelector::loadPicture()
{
    const QString file = BasicImageSelector::fileOf(imageFolder, imagePath, suffixes);
    picture = file.isEmpty() ? QPixmap() : QPixmap(file);
    update();
}

void MyImageSelector::whenClicked()
{
    QString chosen = imagePath;
    bool accepted = false;
    runPicker([&]() { BasicImageSelector(&chosen, &accepted, imageFolder, suffixes, 780, 480, window()).exec(); });
    if (!accepted)
        return;
    setImage(chosen);
    emit imageChanged(imagePath);
}

void MyImageSelector::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor background = themeColor(ThemeKey::DialogOpenerUIBackground);
    const int w = paintField(painter,
                             {themeColor(ThemeKey::DialogOpenerUIBase), themeColor(ThemeKey::DialogOpenerUIHover),
                              background},
                             themeColor(ThemeKey::DialogOpenerUIPrimary), QString(), 44);
    const int textWidth = w - ThumbnailSide - 6;
    FormFieldPainter::caption(painter, this, textWidth, captionText, background, captionStrength());

    painter.save();
    painter.translate(5, -3);
    const bool none = imagePath.isEmpty();
    FormFieldPainter::setValueFont(painter, this, background, none);
    const QRect valueArea(2, 24, textWidth - 12, 19);
    painter.drawText(valueArea, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(none ? tr("None") : imagePath, Qt::ElideRight,
                                                      valueArea.width()));
    painter.restore();

    // The thumbnail on the canvas's checkerboard, the whole image or the
    // frame of a sheet that is shown, fitted into its square.
    const QRect box(w - ThumbnailSide - 4, 5, ThumbnailSide, ThumbnailSide);
    painter.save();
    painter.fillRect(box, QBrush(QPixmap(QStringLiteral(":/resources/Editor/Tile.png"))));
    if (!picture.isNull()) {
        QRect source = picture.rect();
        if (frames > 1)
            source = QRect(shownFrame * picture.width() / frames, 0, picture.width() / frames, picture.height());
        const QSize fitted = source.size().scaled(box.size(), Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
        QRect target(QPoint(0, 0), fitted);
        target.moveCenter(box.center());
        painter.setRenderHint(QPainter::SmoothPixmapTransform, fitted.width() < source.width());
        painter.drawPixmap(target, picture, source);
    }
    painter.setPen(themeColor(ThemeKey::DialogOpenerUIBase));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(box.adjusted(0, 0, -1, -1));
    painter.restore();
}
