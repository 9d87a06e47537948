#include "widgets/BasicFontSelector.h"

#include "widgets/MyDialogOpener.h"
#include "widgets/UltimateTreeItem.h"

#include <QLabel>
#include <QPainter>

namespace {

// A row drawn in the face of its font.
class FontRow : public UltimateTreeItem
{
public:
    explicit FontRow(const QString& family) : family(family) {}

    void paintRow(QPainter* painter) override
    {
        painter->save();
        QFont face = painter->font();
        face.setFamily(family);
        painter->setFont(face);
        UltimateTreeItem::paintRow(painter);
        painter->restore();
    }

private:
    QString family;
};

}

BasicFontSelector::BasicFontSelector(QString* font, bool* accepted, const QString& folder,
                                     const QStringList& suffixes, const QString& defaultFont, int width, int height,
                                     QWidget* parent)
    : BasicSelector(font, accepted, folder, suffixes, width, height, parent), defaultFont(defaultFont)
{
    setObjectName(QStringLiteral("BasicFontSelector"));
    fillList(tr("(Default)"), QPixmap(QStringLiteral(":/resources/ListIcons/MiniIcon_Font.png")));
    finish(tr("Font Selector"), QSize(width, height));
}

QStringList BasicFontSelector::fontSuffixes()
{
    return {QStringLiteral("ttf"), QStringLiteral("oft"), QStringLiteral("woff"), QStringLiteral("woff2")};
}

BasicFontSelector::FontLoader& BasicFontSelector::loader()
{
    static FontLoader installed;
    return installed;
}

void BasicFontSelector::setFontLoader(const FontLoader& fontLoader)
{
    loader() = fontLoader;
}

QString BasicFontSelector::loadFamily(const QString& fileName, const QDir& folder)
{
    return fileName.isEmpty() || !loader() ? QString() : loader()(fileName, folder);
}

void BasicFontSelector::showFont(MyDialogOpener* field, const QString& font)
{
    field->setValue(font.isEmpty() ? tr("(Default)") : font);
    field->setItalic(font.isEmpty());
}

QString BasicFontSelector::load(const QString& relativeFile)
{
    if (relativeFile.isEmpty() || !loader())
        return QString();
    const auto known = families.constFind(relativeFile);
    if (known != families.constEnd())
        return known.value();
    const QString family = loader()(relativeFile, QDir(rootFolder()));
    families.insert(relativeFile, family);
    return family;
}

UltimateTreeItem* BasicFontSelector::makeFileRow(const QString& relativeFile)
{
    const QString family = load(relativeFile);
    if (!family.isEmpty())
        return new FontRow(family);
    // A file that doesn't load stays in the list, faded, so that a value
    // naming it can still be seen and changed.
    UltimateTreeItem* row = new UltimateTreeItem();
    row->setHalfOpacity(0, true);
    return row;
}

void BasicFontSelector::showPreview(const QString& relativeFile)
{
    QLabel* label = previewLabel();
    QFont face = font();
    if (!relativeFile.isEmpty() || !defaultFont.isEmpty()) {
        const QString family = load(relativeFile.isEmpty() ? defaultFont : relativeFile);
        if (family.isEmpty() && !relativeFile.isEmpty()) {
            face.setItalic(true);
            label->setFont(face);
            label->setText(tr("This font file can't be read."));
            return;
        }
        if (!family.isEmpty())
            face = QFont(family);
    }
    face.setPointSizeF(30 * zoom());
    label->setFont(face);
    label->setText(tr("ABCDEFGHIJKLMNO\nPQRSTUVWXYZ\nabcdefghijklmno\npqrstuvwxyz"));
}
