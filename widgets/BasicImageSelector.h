#pragma once

#include "widgets/BasicSelector.h"

// Chooses an image of the project below a folder. Its value is the image's
// path below that folder without the suffix, as the game names its images
// ("Window", "Faces/Hero"); empty for none.
class BasicImageSelector : public BasicSelector
{
    Q_OBJECT
public:
    BasicImageSelector(QString* path, bool* accepted, const QString& folder,
                       const QStringList& suffixes = {QStringLiteral("png")}, int width = 780, int height = 480,
                       QWidget* parent = nullptr);

    // The file an image value names below folder: the first of the suffixes
    // that exists; empty when there is none.
    static QString fileOf(const QString& folder, const QString& value, const QStringList& suffixes);

protected:
    QString valueOf(const QString& relativeFile) const override;
    void showPreview(const QString& relativeFile) override;
};
