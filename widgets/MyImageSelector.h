#pragma once

#include "widgets/FieldButton.h"

#include <QPixmap>
#include <QPointer>
#include <QStringList>

class QTimer;
class TrovDialog;

// The field of a project image: a caption, the image's name and a thumbnail
// of it. A click opens the image selector on the field's folder over the
// field's dialog, which dims meanwhile. For a sprite sheet the thumbnail
// steps through its frames: the property frame is the frame shown.
class MyImageSelector : public FieldButton
{
    Q_OBJECT
    Q_PROPERTY(int frame READ frame WRITE setFrame)
public:
    explicit MyImageSelector(QWidget* parent = nullptr);

    void setCaption(const QString& text);
    QString caption() const { return captionText; }
    // The folder the images are chosen from, and the suffixes of its images
    // ("png" unless set).
    void setFolder(const QString& folder);
    QString folder() const { return imageFolder; }
    void setSuffixes(const QStringList& suffixes);
    // The image by its path below the folder without the suffix; empty for none.
    void setImage(const QString& path);
    QString image() const { return imagePath; }
    // The dialog that dims while the selector runs; without one, the field's
    // own window when that is one of the program's dialogs.
    void setParentDialog(TrovDialog* dialog);

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
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void loadPicture();

    QString captionText;
    QString imageFolder;
    QStringList suffixes{QStringLiteral("png")};
    QString imagePath;
    QPixmap picture;
    QPointer<TrovDialog> parentDialog;
    QTimer* stepper;
    int frames = 1;
    int shownFrame = 0;
};
