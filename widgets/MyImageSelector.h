#pragma once

#include "widgets/PickerField.h"

#include <QPixmap>
#include <QStringList>

class QTimer;

// The field of a project image: a caption, the image's name and a thumbnail
// of it. A click opens the image selector on the field's folder over the
// field's dialog, which dims meanwhile. For a sprite sheet the thumbnail
// steps through its frames: the property frame is the frame shown.
class MyImageSelector : public PickerField
{
    Q_OBJECT
    Q_PROPERTY(int frame READ frame WRITE setFrame)
public:
    explicit MyImageSelector(QWidget* parent = nullptr);

    // The folder the images are chosen from, and the suffixes of its images
    // ("png" unless set).
    void setFolder(const QString& folder);
    QString folder() const { return imageFolder; }
    void setSuffixes(const QStringList& suffixes);
    // The image by its path below the folder without the suffix; empty for none.
    void setImage(const QString& path);
    QString image() const { return imagePath; }
    // A sprite sheet holds this many frames side by side; with more than one
    // the thumbnail steps through them.
    void setFrameCount(int count);
    int frameCount() const { return frames; }
    int frame() const { return shownFrame; }
    void setFrame(int frame);

    // The thumbnail's image as loaded; null when there is none.
    QPixmap thumbnail() const { return picture; }

signals:
    // An image was chosen and confirmed.
    void imageChanged(const QString& path);

public slots:
    void whenClicked();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void loadPicture();

    QString imageFolder;
    QStringList suffixes{QStringLiteral("png")};
    QString imagePath;
    QPixmap picture;
    QTimer* stepper;
    int frames = 1;
    int shownFrame = 0;
};
