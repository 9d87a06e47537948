// Draws the artwork of the bundled sample project and the application's splash, icons and
// editor images.
// Build: g++ -std=c++17 -fPIC samplegen.cpp -o samplegen $(pkg-config --cflags --libs Qt5Gui Qt5Core)
// Run:   QT_QPA_PLATFORM=offscreen ./samplegen <repository root>
#include <QDir>
#include <QFileInfo>
#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QRadialGradient>
#include <QTransform>
#include <QtMath>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

QString g_root;
QString g_family = QStringLiteral("DejaVu Sans");
bool g_ok = true;

QImage blank(int w, int h)
{
    QImage img(w, h, QImage::Format_ARGB32_Premultiplied);
    img.fill(Qt::transparent);
    return img;
}

void save(const QImage &img, const QString &relPath)
{
    const QString path = g_root + QLatin1Char('/') + relPath;
    QDir().mkpath(QFileInfo(path).absolutePath());
    // Straight alpha and maximum compression keep the committed files small.
    if (!img.convertToFormat(QImage::Format_ARGB32).save(path, "PNG", 0)) {
        std::fprintf(stderr, "could not write %s\n", qPrintable(path));
        g_ok = false;
        return;
    }
    std::printf("%-55s %7lld bytes\n", qPrintable(relPath), QFileInfo(path).size());
}

// Rounds every channel to a coarser step. Smooth gradients otherwise defeat PNG's
// compression; at icon size the steps are invisible.
QImage posterize(const QImage &src, int step)
{
    QImage img = src.convertToFormat(QImage::Format_ARGB32);
    auto q = [step](int v) { return qMin(255, ((v + step / 2) / step) * step); };
    for (int y = 0; y < img.height(); ++y) {
        QRgb *line = reinterpret_cast<QRgb *>(img.scanLine(y));
        for (int x = 0; x < img.width(); ++x) {
            const QRgb c = line[x];
            const int a = q(qAlpha(c));
            line[x] = a == 0 ? 0 : qRgba(q(qRed(c)), q(qGreen(c)), q(qBlue(c)), a);
        }
    }
    return img;
}

void setupPainter(QPainter &p)
{
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
}

// ---------------------------------------------------------------- icons

const QColor kIconColours[8] = {
    QColor(220, 52, 52),   QColor(236, 132, 36), QColor(236, 204, 48), QColor(72, 180, 72),
    QColor(48, 196, 210),  QColor(60, 100, 220), QColor(150, 80, 210), QColor(180, 186, 196),
};

const QColor kWood(150, 96, 48);
const QColor kSteel(196, 204, 214);
const QColor kGold(232, 184, 48);

void shape(QPainter &p, const QPainterPath &path, const QColor &c, qreal outline = 1.4)
{
    const QRectF b = path.boundingRect();
    QLinearGradient g(b.topLeft(), b.bottomLeft());
    g.setColorAt(0, c.lighter(145));
    g.setColorAt(1, c.darker(135));
    p.setBrush(g);
    p.setPen(outline > 0 ? QPen(c.darker(280), outline, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin)
                         : QPen(Qt::NoPen));
    p.drawPath(path);
}

void shapeRect(QPainter &p, const QRectF &r, const QColor &c, qreal radius = 1)
{
    QPainterPath path;
    path.addRoundedRect(r, radius, radius);
    shape(p, path, c);
}

void shapeEllipse(QPainter &p, const QPointF &centre, qreal rx, qreal ry, const QColor &c)
{
    QPainterPath path;
    path.addEllipse(centre, rx, ry);
    shape(p, path, c);
}

void shine(QPainter &p, const QPointF &centre, qreal rx, qreal ry, int alpha = 150)
{
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 255, 255, alpha));
    p.drawEllipse(centre, rx, ry);
}

// Two passes give a line a dark rim, which keeps thin glyphs readable on any window.
void rimLine(QPainter &p, const QPainterPath &path, const QColor &c, qreal width)
{
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(c.darker(280), width + 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPath(path);
    p.setPen(QPen(c, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPath(path);
}

QPainterPath poly(std::initializer_list<QPointF> pts)
{
    QPainterPath path;
    path.addPolygon(QPolygonF(QVector<QPointF>(pts)));
    path.closeSubpath();
    return path;
}

void rotateAboutCentre(QPainter &p, qreal degrees)
{
    p.translate(16, 16);
    p.rotate(degrees);
    p.translate(-16, -16);
}

void iconOrb(QPainter &p, const QColor &c)
{
    QRadialGradient g(QPointF(12, 11), 14);
    g.setColorAt(0, c.lighter(190));
    g.setColorAt(0.5, c);
    g.setColorAt(1, c.darker(200));
    p.setBrush(g);
    p.setPen(QPen(c.darker(300), 1.2));
    p.drawEllipse(QPointF(16, 16), 11, 11);
    shine(p, QPointF(12, 11), 3.5, 2.5, 170);
}

void iconHeart(QPainter &p, const QColor &c)
{
    QPainterPath path;
    path.moveTo(16, 28);
    path.cubicTo(5, 20, 2, 12, 6.5, 7.5);
    path.cubicTo(10, 4, 14.5, 5.5, 16, 10);
    path.cubicTo(17.5, 5.5, 22, 4, 25.5, 7.5);
    path.cubicTo(30, 12, 27, 20, 16, 28);
    shape(p, path, c);
    shine(p, QPointF(10, 10.5), 2.6, 1.8);
}

void iconStar(QPainter &p, const QColor &c)
{
    QPolygonF pts;
    for (int i = 0; i < 10; ++i) {
        const qreal r = (i % 2) ? 5.6 : 13.5;
        const qreal a = -M_PI / 2 + i * M_PI / 5;
        pts << QPointF(16 + r * qCos(a), 17 + r * qSin(a));
    }
    QPainterPath path;
    path.addPolygon(pts);
    path.closeSubpath();
    shape(p, path, c);
    shine(p, QPointF(14, 12), 1.8, 1.4);
}

void iconSword(QPainter &p, const QColor &c)
{
    p.save();
    rotateAboutCentre(p, 45);
    shape(p, poly({{16, 1}, {18.6, 4.5}, {18.6, 20}, {13.4, 20}, {13.4, 4.5}}), kSteel);
    p.setPen(QPen(QColor(255, 255, 255, 170), 1));
    p.drawLine(QPointF(15.3, 5), QPointF(15.3, 19));
    shapeRect(p, QRectF(9, 19.5, 14, 3.4), c);
    shapeRect(p, QRectF(14.6, 23, 2.8, 5.5), kWood, 0.5);
    shapeEllipse(p, QPointF(16, 29.5), 2.2, 2.2, c);
    p.restore();
}

void iconAxe(QPainter &p, const QColor &c)
{
    p.save();
    rotateAboutCentre(p, 35);
    shapeRect(p, QRectF(14.6, 4, 2.8, 26), kWood, 1);
    QPainterPath head;
    head.moveTo(17, 6);
    head.lineTo(22, 2.5);
    head.quadTo(30, 10.5, 22, 19);
    head.lineTo(17, 15);
    head.closeSubpath();
    shape(p, head, c);
    shapeRect(p, QRectF(11, 6, 4, 8), c.darker(120), 1);
    p.restore();
}

void iconBow(QPainter &p, const QColor &c)
{
    QPainterPath limb;
    limb.moveTo(11, 3);
    limb.quadTo(31, 16, 11, 29);
    rimLine(p, limb, c, 2.6);
    p.setPen(QPen(QColor(235, 235, 235), 1));
    p.drawLine(QPointF(11, 3), QPointF(11, 29));
    QPainterPath shaft;
    shaft.moveTo(3, 16);
    shaft.lineTo(25, 16);
    rimLine(p, shaft, kWood.lighter(130), 1.4);
    shape(p, poly({{29, 16}, {24, 12.8}, {24, 19.2}}), kSteel, 1);
    shape(p, poly({{3, 16}, {1, 13}, {6, 13.5}, {7, 16}, {6, 18.5}, {1, 19}}), c.lighter(120), 0.8);
}

void iconStaff(QPainter &p, const QColor &c)
{
    QPainterPath rod;
    rod.moveTo(7, 29);
    rod.lineTo(21, 11);
    rimLine(p, rod, kWood, 2.4);
    QRadialGradient glow(QPointF(22.5, 8.5), 9);
    QColor halo = c.lighter(150);
    halo.setAlpha(140);
    glow.setColorAt(0, halo);
    halo.setAlpha(0);
    glow.setColorAt(1, halo);
    p.setPen(Qt::NoPen);
    p.setBrush(glow);
    p.drawEllipse(QPointF(22.5, 8.5), 9, 9);
    {
        QRadialGradient g(QPointF(21, 7), 7);
        g.setColorAt(0, c.lighter(190));
        g.setColorAt(1, c.darker(150));
        p.setBrush(g);
        p.setPen(QPen(c.darker(300), 1.1));
        p.drawEllipse(QPointF(22.5, 8.5), 5, 5);
        shine(p, QPointF(21, 7), 1.6, 1.2, 190);
    }
}

void iconShield(QPainter &p, const QColor &c)
{
    QPainterPath path;
    path.moveTo(16, 2.5);
    path.lineTo(27, 6.5);
    path.cubicTo(27.5, 18, 23, 25, 16, 29.5);
    path.cubicTo(9, 25, 4.5, 18, 5, 6.5);
    path.closeSubpath();
    shape(p, path, c);
    QPainterPath inner;
    inner.moveTo(16, 6);
    inner.lineTo(23.5, 8.8);
    inner.cubicTo(23.5, 17, 20.5, 22.5, 16, 25.5);
    inner.cubicTo(11.5, 22.5, 8.5, 17, 8.5, 8.8);
    inner.closeSubpath();
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(c.lighter(170), 1.3));
    p.drawPath(inner);
    shape(p, poly({{16, 10}, {19.5, 15}, {16, 21}, {12.5, 15}}), kGold, 1);
}

void iconHelmet(QPainter &p, const QColor &c)
{
    QPainterPath dome;
    dome.moveTo(5, 22);
    dome.cubicTo(5, 5, 27, 5, 27, 22);
    dome.lineTo(27, 26);
    dome.lineTo(5, 26);
    dome.closeSubpath();
    shape(p, dome, c);
    shapeRect(p, QRectF(4, 20, 24, 4), c.darker(125), 1);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(20, 20, 30));
    p.drawRoundedRect(QRectF(8, 14, 16, 3), 1.2, 1.2);
    shapeRect(p, QRectF(14.7, 13, 2.6, 12), kSteel, 0.6);
    shine(p, QPointF(11, 10), 2.5, 1.6);
}

void iconBoot(QPainter &p, const QColor &c)
{
    QPainterPath path;
    path.moveTo(9, 4);
    path.lineTo(19, 4);
    path.lineTo(19, 18);
    path.cubicTo(24, 19, 28, 21, 28, 25);
    path.lineTo(28, 28);
    path.lineTo(9, 28);
    path.closeSubpath();
    shape(p, path, c);
    shapeRect(p, QRectF(7.5, 3, 13, 4.5), c.lighter(130), 1);
    shapeRect(p, QRectF(9, 26, 19.5, 3), QColor(70, 50, 40), 1);
}

void iconRing(QPainter &p, const QColor &c)
{
    QPainterPath band;
    band.addEllipse(QPointF(16, 20), 9.5, 9);
    band.addEllipse(QPointF(16, 20), 6.5, 6);
    band.setFillRule(Qt::OddEvenFill);
    shape(p, band, kGold, 1.2);
    shape(p, poly({{16, 3}, {21, 8}, {16, 13}, {11, 8}}), c, 1.2);
    shine(p, QPointF(14.6, 6.8), 1.3, 1.0, 200);
}

void iconPotion(QPainter &p, const QColor &c)
{
    QPainterPath glass;
    glass.addEllipse(QPointF(16, 20), 9.5, 9.5);
    glass.addRect(QRectF(12.8, 6, 6.4, 7));
    glass = glass.simplified();
    QPainterPath liquid;
    liquid.addRect(QRectF(0, 15, 32, 20));
    liquid = liquid.intersected(glass);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(225, 240, 255, 110));
    p.drawPath(glass);
    shape(p, liquid, c, 0);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(40, 50, 70), 1.3));
    p.drawPath(glass);
    shapeRect(p, QRectF(12, 2.5, 8, 4.5), kWood, 1);
    shine(p, QPointF(11.5, 18), 1.6, 3, 170);
}

void iconDroplet(QPainter &p, const QColor &c)
{
    QPainterPath path;
    path.moveTo(16, 2.5);
    path.cubicTo(20, 10, 26, 14.5, 26, 20);
    path.cubicTo(26, 26, 21.5, 29.5, 16, 29.5);
    path.cubicTo(10.5, 29.5, 6, 26, 6, 20);
    path.cubicTo(6, 14.5, 12, 10, 16, 2.5);
    shape(p, path, c);
    shine(p, QPointF(11.5, 20), 1.6, 3.2, 160);
}

void iconCoin(QPainter &p, const QColor &c)
{
    shapeEllipse(p, QPointF(16, 16), 12.5, 12.5, c);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(c.darker(170), 1.2));
    p.drawEllipse(QPointF(16, 16), 9, 9);
    shape(p, poly({{16, 10}, {18.3, 16}, {16, 22}, {13.7, 16}}), c.lighter(150), 1);
    shine(p, QPointF(11, 10), 2.4, 1.6, 170);
}

void iconGem(QPainter &p, const QColor &c)
{
    shape(p, poly({{8, 11}, {12.5, 5}, {19.5, 5}, {24, 11}, {16, 28}}), c);
    p.setPen(QPen(c.lighter(175), 1));
    p.drawLine(QPointF(8.5, 11), QPointF(23.5, 11));
    p.drawLine(QPointF(12.5, 11), QPointF(16, 27));
    p.drawLine(QPointF(19.5, 11), QPointF(16, 27));
    p.drawLine(QPointF(12.5, 5.5), QPointF(14.5, 11));
    p.drawLine(QPointF(19.5, 5.5), QPointF(17.5, 11));
    shine(p, QPointF(13.5, 8), 1.5, 1.0, 200);
}

void iconKey(QPainter &p, const QColor &c)
{
    p.save();
    rotateAboutCentre(p, -45);
    QPainterPath bow;
    bow.addEllipse(QPointF(8, 16), 6, 6);
    bow.addEllipse(QPointF(8, 16), 2.4, 2.4);
    bow.setFillRule(Qt::OddEvenFill);
    QPainterPath body;
    body.addRect(QRectF(13, 14.4, 17, 3.2));
    body.addRect(QRectF(22, 17, 2.6, 4.5));
    body.addRect(QRectF(26.5, 17, 2.6, 6));
    body = body.simplified().united(bow);
    body.setFillRule(Qt::OddEvenFill);
    shape(p, body, c, 1.2);
    p.restore();
}

void iconBook(QPainter &p, const QColor &c)
{
    shapeRect(p, QRectF(8, 22, 19, 6), QColor(245, 240, 225), 1);
    p.setPen(QPen(QColor(170, 160, 140), 0.8));
    p.drawLine(QPointF(10, 24), QPointF(26, 24));
    p.drawLine(QPointF(10, 26), QPointF(26, 26));
    shapeRect(p, QRectF(6, 4, 20, 20), c, 2);
    shapeRect(p, QRectF(6, 4, 3.5, 24), c.darker(140), 1);
    shape(p, poly({{17.5, 9}, {21, 13.5}, {17.5, 18}, {14, 13.5}}), kGold, 1);
}

void iconScroll(QPainter &p, const QColor &c)
{
    shapeRect(p, QRectF(7.5, 7, 17, 18), QColor(238, 222, 180), 0.5);
    p.setPen(QPen(QColor(150, 130, 100), 1));
    for (int y = 11; y <= 21; y += 3)
        p.drawLine(QPointF(10.5, y), QPointF(y == 20 ? 17.0 : 21.5, y));
    shapeRect(p, QRectF(5, 3.5, 22, 5), c, 2.5);
    shapeRect(p, QRectF(5, 23.5, 22, 5), c, 2.5);
}

void iconBag(QPainter &p, const QColor &c)
{
    QPainterPath sack;
    sack.moveTo(11.5, 10);
    sack.cubicTo(3, 15, 3.5, 29, 16, 29);
    sack.cubicTo(28.5, 29, 29, 15, 20.5, 10);
    sack.closeSubpath();
    shape(p, sack, c);
    shape(p, poly({{10, 3}, {16, 7}, {22, 3}, {20.5, 10}, {11.5, 10}}), c.lighter(115), 1.2);
    shapeRect(p, QRectF(10.5, 8.5, 11, 3), kGold, 1);
    shine(p, QPointF(11, 18), 1.6, 3, 120);
}

void iconFlame(QPainter &p, const QColor &c)
{
    QPainterPath outer;
    outer.moveTo(16, 2);
    outer.cubicTo(22, 9, 27, 14, 26, 21);
    outer.cubicTo(25, 27, 20.5, 30, 16, 30);
    outer.cubicTo(11, 30, 6, 27, 6, 21);
    outer.cubicTo(6, 16, 9.5, 13.5, 11, 9);
    outer.cubicTo(13, 12, 13.5, 14, 14, 15.5);
    outer.cubicTo(15.5, 11, 14, 6, 16, 2);
    shape(p, outer, c);
    QPainterPath inner;
    inner.moveTo(16, 14);
    inner.cubicTo(19, 18, 21.5, 21, 21, 24);
    inner.cubicTo(20.5, 27, 18.5, 28, 16, 28);
    inner.cubicTo(13.5, 28, 11, 26.5, 11, 24);
    inner.cubicTo(11, 21, 14, 19, 16, 14);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 250, 210, 210));
    p.drawPath(inner);
}

void iconLightning(QPainter &p, const QColor &c)
{
    shape(p, poly({{19, 1.5}, {7, 18}, {14.5, 18}, {11, 30.5}, {25.5, 12}, {17.5, 12}, {22, 1.5}}), c);
}

void iconSnowflake(QPainter &p, const QColor &c)
{
    QPainterPath arms;
    for (int i = 0; i < 6; ++i) {
        const qreal a = i * M_PI / 3 - M_PI / 2;
        const QPointF dir(qCos(a), qSin(a));
        const QPointF side(-dir.y(), dir.x());
        const QPointF centre(16, 16);
        arms.moveTo(centre);
        arms.lineTo(centre + dir * 13);
        const QPointF fork = centre + dir * 8;
        arms.moveTo(fork);
        arms.lineTo(fork + dir * 3.5 + side * 3.5);
        arms.moveTo(fork);
        arms.lineTo(fork + dir * 3.5 - side * 3.5);
    }
    rimLine(p, arms, c.lighter(125), 1.8);
}

void iconLeaf(QPainter &p, const QColor &c)
{
    QPainterPath leaf;
    leaf.moveTo(5, 27);
    leaf.cubicTo(5, 12, 14, 4.5, 28, 4.5);
    leaf.cubicTo(28, 19, 20, 27, 5, 27);
    shape(p, leaf, c);
    QPainterPath vein;
    vein.moveTo(3, 29);
    vein.cubicTo(12, 20, 18, 14, 24, 8.5);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(c.lighter(170), 1.3, Qt::SolidLine, Qt::RoundCap));
    p.drawPath(vein);
}

void iconSun(QPainter &p, const QColor &c)
{
    QPainterPath rays;
    for (int i = 0; i < 8; ++i) {
        const qreal a = i * M_PI / 4;
        const QPointF tip(16 + 14 * qCos(a), 16 + 14 * qSin(a));
        const QPointF l(16 + 8 * qCos(a - 0.32), 16 + 8 * qSin(a - 0.32));
        const QPointF r(16 + 8 * qCos(a + 0.32), 16 + 8 * qSin(a + 0.32));
        rays.addPolygon(QPolygonF({l, tip, r}));
        rays.closeSubpath();
    }
    shape(p, rays, c, 1.1);
    shapeEllipse(p, QPointF(16, 16), 7.5, 7.5, c.lighter(120));
    shine(p, QPointF(13.5, 13), 2, 1.5, 170);
}

void iconMoon(QPainter &p, const QColor &c)
{
    QPainterPath full;
    full.addEllipse(QPointF(15, 16), 12, 12);
    QPainterPath bite;
    bite.addEllipse(QPointF(21, 12), 10, 10);
    shape(p, full.subtracted(bite), c);
}

void iconArrowUp(QPainter &p, const QColor &c)
{
    shape(p, poly({{16, 3}, {28, 15}, {21, 15}, {21, 29}, {11, 29}, {11, 15}, {4, 15}}), c);
}

void iconArrowDown(QPainter &p, const QColor &c)
{
    shape(p, poly({{16, 29}, {28, 17}, {21, 17}, {21, 3}, {11, 3}, {11, 17}, {4, 17}}), c);
}

void iconSkull(QPainter &p, const QColor &c)
{
    QColor bone = QColor((c.red() + 3 * 240) / 4, (c.green() + 3 * 236) / 4, (c.blue() + 3 * 220) / 4);
    QPainterPath head;
    head.addEllipse(QPointF(16, 13.5), 11, 10.5);
    head.addRoundedRect(QRectF(10, 17, 12, 11), 3, 3);
    shape(p, head.simplified(), bone);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(35, 25, 35));
    p.drawEllipse(QPointF(11.8, 15), 3.2, 3.4);
    p.drawEllipse(QPointF(20.2, 15), 3.2, 3.4);
    p.drawPolygon(QPolygonF({QPointF(16, 18.5), QPointF(14.3, 21.5), QPointF(17.7, 21.5)}));
    p.setPen(QPen(QColor(35, 25, 35), 1));
    for (qreal x = 13; x <= 19.5; x += 2.2)
        p.drawLine(QPointF(x, 24), QPointF(x, 27.5));
}

void iconCrown(QPainter &p, const QColor &c)
{
    shape(p, poly({{4.5, 25}, {4.5, 10}, {10, 17}, {16, 5.5}, {22, 17}, {27.5, 10}, {27.5, 25}}), kGold);
    shapeRect(p, QRectF(4, 23.5, 24, 5), kGold.darker(115), 1);
    shapeEllipse(p, QPointF(16, 26), 2, 2, c);
    shapeEllipse(p, QPointF(9.5, 26), 1.6, 1.6, c);
    shapeEllipse(p, QPointF(22.5, 26), 1.6, 1.6, c);
    shapeEllipse(p, QPointF(16, 5.5), 1.8, 1.8, c.lighter(130));
}

// Rows 1 and up hold two glyphs each, in the eight colours of kIconColours:
// index = 16 + glyph * 8 + colour. Row 0 holds the empty icon and fifteen orbs.
void makeIconSet()
{
    using Glyph = void (*)(QPainter &, const QColor &);
    const std::vector<Glyph> glyphs = {
        iconHeart,  iconStar,      iconSword,     iconAxe,     iconBow,    iconStaff,    iconShield,
        iconHelmet, iconBoot,      iconRing,      iconPotion,  iconDroplet, iconCoin,    iconGem,
        iconKey,    iconBook,      iconScroll,    iconBag,     iconFlame,  iconLightning, iconSnowflake,
        iconLeaf,   iconSun,       iconMoon,      iconArrowUp, iconArrowDown, iconSkull, iconCrown,
    };
    const int rows = 1 + int(glyphs.size() + 1) / 2;
    QImage img = blank(512, rows * 32);
    QPainter p(&img);
    setupPainter(p);
    for (int i = 1; i < 16; ++i) {
        p.save();
        p.translate((i % 16) * 32, 0);
        iconOrb(p, QColor::fromHsv((i - 1) * 360 / 15, i % 3 == 0 ? 120 : 200, 230));
        p.restore();
    }
    for (size_t g = 0; g < glyphs.size(); ++g) {
        for (int c = 0; c < 8; ++c) {
            const int index = 16 + int(g) * 8 + c;
            p.save();
            p.translate((index % 16) * 32, (index / 16) * 32);
            p.setClipRect(0, 0, 32, 32);
            glyphs[g](p, kIconColours[c]);
            p.restore();
        }
    }
    p.end();
    save(posterize(img, 12), QStringLiteral("examples/SampleProject/img/system/IconSet.png"));
}

// ---------------------------------------------------------------- window skin

// The game reads the text colours from the centre pixel of each cell, and a few
// entries by role: 16 system, 17 crisis, 18 death, 19 gauge back, 20-21 HP,
// 22-23 MP, 24 power up, 25 power down, 26-27 time, 28-29 TP.
const QRgb kTextColours[32] = {
    0xffffff, 0x40a8f0, 0xf07060, 0x78e070, 0x90b0ff, 0xd8a0f0, 0xa0f0e8, 0xd0d0d0,
    0x808890, 0x3070d0, 0xd03030, 0x30a040, 0x4060c0, 0xb060d0, 0x50c8c0, 0xf0e070,
    0x88c8ff, 0xffe060, 0xff3850, 0x101828, 0xe86030, 0xf8b040, 0x2878e8, 0x70c8ff,
    0x68e888, 0xb05878, 0x58a0c8, 0x90e0f0, 0x40b868, 0xb0f060, 0xe8c8a0, 0x605848,
};

void makeWindowSkin()
{
    QImage img = blank(192, 192);
    QPainter p(&img);
    setupPainter(p);

    // Background, stretched over the window's inside; the game tints it with the window tone.
    {
        QLinearGradient g(0, 0, 0, 96);
        g.setColorAt(0, QColor(44, 66, 120));
        g.setColorAt(1, QColor(14, 22, 52));
        p.fillRect(QRect(0, 0, 96, 96), g);
    }
    // Pattern, tiled over the background: faint diagonal weave that repeats seamlessly.
    {
        p.save();
        p.setClipRect(QRect(0, 96, 96, 96));
        p.setPen(QPen(QColor(255, 255, 255, 18), 1));
        for (int k = -96; k < 192; k += 12)
            p.drawLine(QPointF(k, 96), QPointF(k + 96, 192));
        p.setPen(QPen(QColor(160, 200, 255, 12), 1));
        for (int k = 0; k < 192 + 96; k += 24)
            p.drawLine(QPointF(k, 96), QPointF(k - 96, 192));
        p.restore();
    }
    // Frame: 24-pixel corners, edges that stretch; the middle stays empty because
    // the scroll arrows live there.
    {
        p.save();
        p.setClipRect(QRect(96, 0, 96, 96));
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(QColor(8, 12, 28, 200), 4));
        p.drawRoundedRect(QRectF(98, 2, 92, 92), 7, 7);
        p.setPen(QPen(QColor(150, 196, 255), 2));
        p.drawRoundedRect(QRectF(99, 3, 90, 90), 6, 6);
        p.setPen(QPen(QColor(230, 240, 255, 110), 1));
        p.drawRoundedRect(QRectF(102.5, 6.5, 83, 83), 3.5, 3.5);
        const QPointF corners[4] = {{104, 8}, {184, 8}, {104, 88}, {184, 88}};
        for (const QPointF &c : corners) {
            QPainterPath d = poly({{c.x(), c.y() - 4}, {c.x() + 4, c.y()}, {c.x(), c.y() + 4}, {c.x() - 4, c.y()}});
            shape(p, d, QColor(240, 200, 90), 1);
        }
        p.restore();
    }
    // Scroll arrows at (132, 24) and (132, 60), 24 by 12 each.
    {
        const QColor arrow(230, 240, 255);
        shape(p, poly({{144, 25}, {153, 34}, {135, 34}}), arrow, 1.2);
        shape(p, poly({{144, 71}, {153, 62}, {135, 62}}), arrow, 1.2);
    }
    // Cursor, a 9-slice with 4-pixel borders; its centre pixel (120, 120) is also the pending colour.
    {
        QLinearGradient g(0, 96, 0, 144);
        g.setColorAt(0, QColor(180, 220, 255, 120));
        g.setColorAt(1, QColor(110, 170, 255, 90));
        p.setBrush(g);
        p.setPen(QPen(QColor(200, 230, 255, 230), 2));
        p.drawRoundedRect(QRectF(97, 97, 46, 46), 3, 3);
    }
    // Pause sign: four 24x24 frames of a bobbing triangle at (144, 96).
    {
        for (int f = 0; f < 4; ++f) {
            const qreal ox = 144 + (f % 2) * 24;
            const qreal oy = 96 + (f / 2) * 24;
            const qreal bob = (f == 1 || f == 2) ? 1.5 : (f == 3 ? 3 : 0);
            const qreal squeeze = f == 3 ? 1.5 : 0;
            shape(p, poly({{ox + 5 + squeeze, oy + 7 + bob}, {ox + 19 - squeeze, oy + 7 + bob}, {ox + 12, oy + 17 + bob}}),
                  QColor(250, 220, 110), 1.2);
        }
    }
    // Text colour palette: 8x4 cells of 12x12 from (96, 144).
    for (int n = 0; n < 32; ++n) {
        const QRect cell(96 + (n % 8) * 12, 144 + (n / 8) * 12, 12, 12);
        p.fillRect(cell, QColor::fromRgb(kTextColours[n]));
    }
    p.end();
    save(img, QStringLiteral("examples/SampleProject/img/system/Window.png"));
}

// Three stacked bands, front (frame) on top, then fill, then back.
void makeGaugeSkin()
{
    const int w = 120, b = 24;
    QImage img = blank(w, 3 * b);
    QPainter p(&img);
    setupPainter(p);
    const QRectF bar(1.5, 4.5, w - 3, b - 9);
    // Front: rim and gloss, open in the middle so the fill shows through.
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(10, 14, 30), 3));
    p.drawRoundedRect(bar, 7, 7);
    p.setPen(QPen(QColor(220, 230, 250), 1.5));
    p.drawRoundedRect(bar, 7, 7);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 255, 255, 70));
    p.drawRoundedRect(QRectF(5, 7, w - 10, 3), 1.5, 1.5);
    // Fill.
    {
        QLinearGradient g(0, b + bar.top(), 0, b + bar.bottom());
        g.setColorAt(0, QColor(255, 150, 110));
        g.setColorAt(1, QColor(200, 40, 50));
        p.setBrush(g);
        p.drawRoundedRect(bar.translated(0, b).adjusted(1, 1, -1, -1), 6, 6);
    }
    // Back.
    p.setBrush(QColor(20, 24, 40, 220));
    p.drawRoundedRect(bar.translated(0, 2 * b), 7, 7);
    p.end();
    save(img, QStringLiteral("examples/SampleProject/img/system/GaugeSkin.png"));
}

// ---------------------------------------------------------------- faces

enum class Hair { Short, Long, Spiky, Bob, Ponytail, Hood, Bald };
enum class Extra { None, Glasses, WizardHat, Headband, Beard, Scar, Circlet, Bandana };
enum class Mood { Smile, Calm, Grin, Serious, Open };

struct Face {
    QColor skin, hair, eyes, clothes;
    Hair hair_style;
    Extra extra;
    Mood mood;
    bool pointedEars;
};

void soft(QPainter &p, const QPainterPath &path, const QColor &c, qreal outline = 2)
{
    const QRectF b = path.boundingRect();
    QLinearGradient g(b.topLeft(), b.bottomLeft());
    g.setColorAt(0, c.lighter(118));
    g.setColorAt(1, c.darker(118));
    p.setBrush(g);
    p.setPen(outline > 0 ? QPen(c.darker(230), outline, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin) : QPen(Qt::NoPen));
    p.drawPath(path);
}

QPainterPath headPath()
{
    QPainterPath h;
    h.moveTo(39, 56);
    h.cubicTo(39, 24, 105, 24, 105, 56);
    h.cubicTo(105, 86, 90, 104, 72, 104);
    h.cubicTo(54, 104, 39, 86, 39, 56);
    return h;
}

QPainterPath fringe(qreal left, qreal right, qreal top, qreal tipY, int tips, qreal depth)
{
    // A cap over the skull whose lower edge is a row of soft points.
    QPainterPath f;
    f.moveTo(left, tipY + 10);
    f.cubicTo(left - 4, top, right + 4, top, right, tipY + 10);
    const qreal step = (right - left) / tips;
    for (int i = tips; i > 0; --i) {
        const qreal x1 = left + step * i;
        const qreal x0 = left + step * (i - 1);
        f.quadTo((x0 + x1) / 2, tipY - depth, x0, tipY + (i == 1 ? 10 : 0));
    }
    f.closeSubpath();
    return f;
}

void drawFace(QPainter &p, const Face &f)
{
    const QColor hairDark = f.hair.darker(150);
    // Hair that falls behind head and shoulders.
    if (f.hair_style == Hair::Long) {
        QPainterPath back;
        back.moveTo(34, 60);
        back.cubicTo(26, 20, 118, 20, 110, 60);
        back.cubicTo(114, 90, 120, 118, 116, 138);
        back.lineTo(28, 138);
        back.cubicTo(24, 118, 30, 90, 34, 60);
        soft(p, back, f.hair.darker(115));
    } else if (f.hair_style == Hair::Bob) {
        QPainterPath back;
        back.moveTo(33, 60);
        back.cubicTo(27, 18, 117, 18, 111, 60);
        back.cubicTo(114, 80, 112, 96, 104, 102);
        back.lineTo(40, 102);
        back.cubicTo(32, 96, 30, 80, 33, 60);
        soft(p, back, f.hair.darker(115));
    } else if (f.hair_style == Hair::Ponytail) {
        QPainterPath tail;
        tail.moveTo(96, 34);
        tail.cubicTo(128, 30, 132, 70, 122, 100);
        tail.cubicTo(118, 84, 110, 62, 96, 50);
        tail.closeSubpath();
        soft(p, tail, f.hair.darker(110));
    } else if (f.hair_style == Hair::Hood) {
        QPainterPath hood;
        hood.moveTo(28, 120);
        hood.cubicTo(18, 10, 126, 10, 116, 120);
        hood.closeSubpath();
        soft(p, hood, f.clothes.darker(125));
    }

    // Shoulders and clothes.
    {
        QPainterPath body;
        body.moveTo(8, 144);
        body.cubicTo(12, 118, 38, 108, 56, 106);
        body.lineTo(88, 106);
        body.cubicTo(106, 108, 132, 118, 136, 144);
        body.closeSubpath();
        soft(p, body, f.clothes);
        QPainterPath collar;
        collar.moveTo(56, 106);
        collar.lineTo(72, 130);
        collar.lineTo(88, 106);
        collar.lineTo(80, 106);
        collar.lineTo(72, 118);
        collar.lineTo(64, 106);
        collar.closeSubpath();
        soft(p, collar, f.clothes.lighter(150), 1.5);
    }
    // Neck.
    {
        QPainterPath neck;
        neck.addRect(QRectF(61, 90, 22, 20));
        soft(p, neck, f.skin.darker(112), 1.5);
    }
    // Ears.
    if (f.pointedEars) {
        soft(p, poly({{42, 56}, {22, 44}, {40, 74}}), f.skin);
        soft(p, poly({{102, 56}, {122, 44}, {104, 74}}), f.skin);
    } else {
        QPainterPath ears;
        ears.addEllipse(QPointF(40, 68), 6, 9);
        ears.addEllipse(QPointF(104, 68), 6, 9);
        soft(p, ears, f.skin);
    }
    // Head.
    soft(p, headPath(), f.skin);

    // Blush.
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(240, 110, 120, 55));
    p.drawEllipse(QPointF(52, 82), 7, 4);
    p.drawEllipse(QPointF(92, 82), 7, 4);

    // Eyes.
    const qreal eyeY = 70;
    const qreal eyeX[2] = {57, 87};
    for (qreal x : eyeX) {
        if (f.mood == Mood::Grin) {
            // Closed, laughing eyes.
            QPainterPath arc;
            arc.moveTo(x - 7, eyeY + 2);
            arc.quadTo(x, eyeY - 7, x + 7, eyeY + 2);
            p.setBrush(Qt::NoBrush);
            p.setPen(QPen(QColor(40, 30, 30), 2.5, Qt::SolidLine, Qt::RoundCap));
            p.drawPath(arc);
            continue;
        }
        const qreal h = f.mood == Mood::Serious ? 6 : 8;
        p.setPen(QPen(QColor(50, 40, 40), 1.2));
        p.setBrush(QColor(252, 252, 255));
        p.drawEllipse(QPointF(x, eyeY), 7, h);
        QRadialGradient iris(QPointF(x, eyeY - 2), 6);
        iris.setColorAt(0, f.eyes.lighter(150));
        iris.setColorAt(1, f.eyes.darker(150));
        p.setPen(Qt::NoPen);
        p.setBrush(iris);
        p.drawEllipse(QPointF(x, eyeY + 1), 4.6, h - 1.5);
        p.setBrush(QColor(20, 15, 25));
        p.drawEllipse(QPointF(x, eyeY + 1), 2, 2.8);
        p.setBrush(Qt::white);
        p.drawEllipse(QPointF(x - 1.8, eyeY - 2), 1.6, 1.6);
        // Upper lid.
        QPainterPath lid;
        lid.moveTo(x - 8, eyeY - h + 3);
        lid.quadTo(x, eyeY - h - 3, x + 8, eyeY - h + 3);
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(QColor(40, 30, 30), 2.4, Qt::SolidLine, Qt::RoundCap));
        p.drawPath(lid);
    }
    // Brows.
    {
        const qreal tilt = f.mood == Mood::Serious ? 4 : (f.mood == Mood::Open ? -3 : 0);
        p.setPen(QPen(hairDark, 3, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(49, 57 - tilt), QPointF(63, 57 + tilt));
        p.drawLine(QPointF(81, 57 + tilt), QPointF(95, 57 - tilt));
    }
    // Nose.
    p.setPen(QPen(f.skin.darker(150), 1.6, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(72, 78), QPointF(70, 84));
    // Mouth.
    {
        QPainterPath m;
        switch (f.mood) {
        case Mood::Smile:
            m.moveTo(64, 91);
            m.quadTo(72, 97, 80, 91);
            break;
        case Mood::Calm:
            m.moveTo(66, 93);
            m.quadTo(72, 95, 78, 93);
            break;
        case Mood::Serious:
            m.moveTo(66, 94);
            m.lineTo(78, 93);
            break;
        case Mood::Grin:
        case Mood::Open: {
            QPainterPath open;
            open.moveTo(63, 90);
            open.quadTo(72, 92, 81, 90);
            open.quadTo(72, 102, 63, 90);
            p.setPen(QPen(QColor(90, 30, 40), 1.5));
            p.setBrush(QColor(170, 60, 70));
            p.drawPath(open);
            break;
        }
        }
        if (!m.isEmpty()) {
            p.setBrush(Qt::NoBrush);
            p.setPen(QPen(QColor(110, 50, 50), 2, Qt::SolidLine, Qt::RoundCap));
            p.drawPath(m);
        }
    }

    // Front hair.
    switch (f.hair_style) {
    case Hair::Short:
        soft(p, fringe(36, 108, 6, 48, 5, 6), f.hair);
        break;
    case Hair::Long:
    case Hair::Bob:
        soft(p, fringe(35, 109, 4, 50, 6, 4), f.hair);
        break;
    case Hair::Ponytail:
        soft(p, fringe(37, 107, 8, 46, 4, 8), f.hair);
        soft(p, poly({{92, 30}, {100, 24}, {104, 34}, {96, 40}}), f.clothes.lighter(140), 1.5);
        break;
    case Hair::Spiky: {
        QPainterPath spikes;
        spikes.moveTo(34, 62);
        const QPointF tips[] = {{26, 30}, {42, 30}, {44, 6}, {62, 24}, {74, 0}, {84, 22}, {104, 6}, {102, 30}, {120, 32}};
        const QPointF roots[] = {{38, 40}, {46, 32}, {56, 28}, {70, 24}, {80, 24}, {92, 28}, {100, 32}, {106, 40}};
        for (int i = 0; i < 8; ++i) {
            spikes.lineTo(tips[i]);
            spikes.lineTo(roots[i]);
        }
        spikes.lineTo(tips[8]);
        spikes.lineTo(110, 62);
        spikes.lineTo(104, 46);
        spikes.lineTo(92, 52);
        spikes.lineTo(84, 42);
        spikes.lineTo(72, 52);
        spikes.lineTo(62, 42);
        spikes.lineTo(52, 52);
        spikes.lineTo(40, 46);
        spikes.closeSubpath();
        soft(p, spikes, f.hair);
        break;
    }
    case Hair::Hood: {
        QPainterPath rim;
        rim.moveTo(30, 110);
        rim.cubicTo(20, 12, 124, 12, 114, 110);
        rim.lineTo(104, 110);
        rim.cubicTo(112, 30, 32, 30, 40, 110);
        rim.closeSubpath();
        soft(p, rim, f.clothes);
        soft(p, fringe(42, 102, 30, 50, 4, 5), f.hair);
        break;
    }
    case Hair::Bald:
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(255, 255, 255, 70));
        p.drawEllipse(QPointF(60, 36), 10, 5);
        break;
    }

    // Accessories.
    switch (f.extra) {
    case Extra::None:
        break;
    case Extra::Glasses:
        p.setBrush(QColor(200, 230, 255, 50));
        p.setPen(QPen(QColor(60, 50, 50), 2.2));
        p.drawEllipse(QPointF(57, 70), 11, 10);
        p.drawEllipse(QPointF(87, 70), 11, 10);
        p.drawLine(QPointF(68, 69), QPointF(76, 69));
        break;
    case Extra::WizardHat: {
        QPainterPath cone;
        cone.moveTo(36, 42);
        cone.cubicTo(56, 34, 70, 12, 96, 2);
        cone.cubicTo(92, 18, 100, 30, 108, 42);
        cone.closeSubpath();
        soft(p, cone, f.clothes.darker(110));
        QPainterPath brim;
        brim.addEllipse(QPointF(72, 44), 48, 9);
        soft(p, brim, f.clothes.darker(120));
        soft(p, poly({{70, 22}, {74, 30}, {70, 38}, {66, 30}}), QColor(250, 220, 100), 1.5);
        break;
    }
    case Extra::Headband:
        soft(p, poly({{37, 44}, {107, 44}, {108, 52}, {36, 52}}), f.clothes.lighter(130), 1.5);
        soft(p, poly({{106, 46}, {124, 40}, {120, 54}}), f.clothes.lighter(130), 1.5);
        break;
    case Extra::Beard: {
        QPainterPath beard;
        beard.moveTo(42, 74);
        beard.cubicTo(46, 92, 56, 118, 72, 124);
        beard.cubicTo(88, 118, 98, 92, 102, 74);
        beard.cubicTo(96, 92, 86, 88, 72, 88);
        beard.cubicTo(58, 88, 48, 92, 42, 74);
        soft(p, beard, f.hair);
        p.setPen(QPen(QColor(90, 40, 40), 2, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(66, 95), QPointF(78, 95));
        break;
    }
    case Extra::Scar:
        p.setPen(QPen(f.skin.darker(160), 2, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(86, 58), QPointF(96, 84));
        p.drawLine(QPointF(88, 68), QPointF(93, 66));
        p.drawLine(QPointF(90, 75), QPointF(95, 73));
        break;
    case Extra::Circlet:
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(QColor(230, 190, 70), 2.5));
        p.drawArc(QRectF(38, 36, 68, 24), 200 * 16, 140 * 16);
        soft(p, poly({{72, 50}, {77, 56}, {72, 62}, {67, 56}}), f.eyes, 1.5);
        break;
    case Extra::Bandana: {
        QPainterPath cap;
        cap.moveTo(36, 50);
        cap.cubicTo(34, 12, 110, 12, 108, 50);
        cap.cubicTo(90, 44, 54, 44, 36, 50);
        soft(p, cap, f.clothes.lighter(120));
        soft(p, poly({{104, 44}, {126, 54}, {114, 60}, {102, 50}}), f.clothes.lighter(120), 1.5);
        break;
    }
    }
}

void makeFaceSheet(const QString &name, const std::vector<Face> &faces)
{
    QImage img = blank(576, 288);
    QPainter p(&img);
    setupPainter(p);
    for (size_t i = 0; i < faces.size() && i < 8; ++i) {
        p.save();
        p.translate(double(i % 4) * 144, double(i / 4) * 144);
        p.setClipRect(0, 0, 144, 144);
        drawFace(p, faces[i]);
        p.restore();
    }
    p.end();
    save(img, QStringLiteral("examples/SampleProject/img/faces/%1.png").arg(name));
}

void makeFaces()
{
    const QColor fair(250, 222, 200), light(240, 206, 176), tan(214, 164, 120), deep(150, 100, 70), pale(252, 232, 222);
    makeFaceSheet(QStringLiteral("Actor1"), {
        {fair, QColor(120, 74, 40), QColor(60, 120, 220), QColor(50, 90, 170), Hair::Short, Extra::None, Mood::Smile, false},
        {pale, QColor(240, 200, 90), QColor(60, 170, 90), QColor(180, 50, 60), Hair::Long, Extra::Circlet, Mood::Calm, false},
        {tan, QColor(200, 60, 40), QColor(210, 150, 40), QColor(60, 120, 60), Hair::Spiky, Extra::Scar, Mood::Grin, false},
        {light, QColor(120, 70, 160), QColor(150, 80, 200), QColor(100, 60, 140), Hair::Bob, Extra::Glasses, Mood::Calm, false},
        {light, QColor(200, 200, 206), QColor(110, 110, 130), QColor(60, 50, 130), Hair::Bald, Extra::WizardHat, Mood::Serious, false},
        {pale, QColor(230, 236, 244), QColor(40, 190, 200), QColor(40, 130, 90), Hair::Long, Extra::None, Mood::Calm, true},
        {fair, QColor(236, 130, 40), QColor(130, 80, 40), QColor(220, 180, 50), Hair::Ponytail, Extra::None, Mood::Open, false},
        {deep, QColor(30, 28, 34), QColor(120, 70, 40), QColor(150, 156, 170), Hair::Short, Extra::Headband, Mood::Serious, false},
    });
    makeFaceSheet(QStringLiteral("Actor2"), {
        {fair, QColor(240, 140, 180), QColor(220, 80, 130), QColor(240, 240, 250), Hair::Bob, Extra::None, Mood::Smile, false},
        {tan, QColor(30, 150, 140), QColor(30, 110, 100), QColor(200, 120, 40), Hair::Spiky, Extra::Bandana, Mood::Grin, false},
        {light, QColor(60, 40, 30), QColor(90, 60, 40), QColor(110, 40, 50), Hair::Hood, Extra::None, Mood::Serious, false},
        {deep, QColor(210, 210, 214), QColor(100, 100, 110), QColor(70, 80, 110), Hair::Bald, Extra::Beard, Mood::Calm, false},
        {pale, QColor(30, 30, 60), QColor(200, 40, 60), QColor(30, 30, 40), Hair::Long, Extra::None, Mood::Serious, false},
        {fair, QColor(250, 236, 170), QColor(60, 140, 230), QColor(90, 170, 220), Hair::Ponytail, Extra::Headband, Mood::Smile, false},
        {tan, QColor(90, 60, 130), QColor(230, 180, 60), QColor(70, 40, 100), Hair::Short, Extra::Glasses, Mood::Open, true},
        {light, QColor(170, 90, 50), QColor(70, 150, 70), QColor(120, 90, 60), Hair::Short, Extra::Beard, Mood::Grin, false},
    });
}

// ---------------------------------------------------------------- pictures

void makePictures()
{
    // Panel for a status block.
    {
        QImage img = blank(300, 100);
        QPainter p(&img);
        setupPainter(p);
        const QRectF r(3, 3, 294, 94);
        QLinearGradient g(r.topLeft(), r.bottomLeft());
        g.setColorAt(0, QColor(36, 56, 104, 225));
        g.setColorAt(1, QColor(10, 16, 40, 225));
        p.setBrush(g);
        p.setPen(QPen(QColor(6, 10, 24, 230), 4));
        p.drawRoundedRect(r, 14, 14);
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(QColor(140, 190, 255), 2));
        p.drawRoundedRect(r, 14, 14);
        p.setPen(QPen(QColor(255, 255, 255, 60), 1));
        p.drawRoundedRect(r.adjusted(5, 5, -5, -5), 10, 10);
        QLinearGradient gloss(0, 8, 0, 40);
        gloss.setColorAt(0, QColor(255, 255, 255, 40));
        gloss.setColorAt(1, QColor(255, 255, 255, 0));
        p.setPen(Qt::NoPen);
        p.setBrush(gloss);
        p.drawRoundedRect(QRectF(9, 8, 282, 32), 9, 9);
        shape(p, poly({{150, 0}, {157, 7}, {150, 14}, {143, 7}}), QColor(240, 200, 90), 1.2);
        shape(p, poly({{150, 86}, {157, 93}, {150, 100}, {143, 93}}), QColor(240, 200, 90), 1.2);
        p.end();
        save(img, QStringLiteral("examples/SampleProject/img/pictures/HudFrame.png"));
    }
    // Gauge back and fill share the same outline so they stack exactly.
    const QRectF bar(1, 1, 198, 14);
    {
        QImage img = blank(200, 16);
        QPainter p(&img);
        setupPainter(p);
        QLinearGradient g(0, 1, 0, 15);
        g.setColorAt(0, QColor(8, 10, 20, 235));
        g.setColorAt(1, QColor(34, 40, 64, 235));
        p.setBrush(g);
        p.setPen(QPen(QColor(160, 180, 220), 1.2));
        p.drawRoundedRect(bar, 7, 7);
        p.end();
        save(img, QStringLiteral("examples/SampleProject/img/pictures/GaugeBack.png"));
    }
    {
        QImage img = blank(200, 16);
        QPainter p(&img);
        setupPainter(p);
        QLinearGradient g(0, 0, 200, 0);
        g.setColorAt(0, QColor(200, 40, 60));
        g.setColorAt(1, QColor(255, 170, 70));
        p.setBrush(g);
        p.setPen(Qt::NoPen);
        p.drawRoundedRect(bar.adjusted(1.5, 1.5, -1.5, -1.5), 5.5, 5.5);
        p.setBrush(QColor(255, 255, 255, 80));
        p.drawRoundedRect(QRectF(6, 3.5, 188, 3), 1.5, 1.5);
        p.end();
        save(img, QStringLiteral("examples/SampleProject/img/pictures/GaugeFill.png"));
    }
    {
        QImage img = blank(48, 48);
        QPainter p(&img);
        setupPainter(p);
        p.scale(1.5, 1.5);
        iconCoin(p, kGold);
        p.end();
        save(img, QStringLiteral("examples/SampleProject/img/pictures/Coin.png"));
    }
}

// ---------------------------------------------------------------- application art

// The canvas' transparency checkerboard: two greys in 8-pixel squares. It shows
// under a HUD without a background and, dimmed, around the canvas.
void makeEditorTile()
{
    QImage img(16, 16, QImage::Format_ARGB32);
    img.fill(QColor(0xc4, 0xc4, 0xc4));
    QPainter p(&img);
    p.fillRect(0, 0, 8, 8, QColor(0x9c, 0x9c, 0x9c));
    p.fillRect(8, 8, 8, 8, QColor(0x9c, 0x9c, 0x9c));
    p.end();
    save(img, QStringLiteral("resources/Editor/Tile.png"));
}

// The title bar's command icons, cut from the Material Design icon font
// (Debian's fonts-material-design-icons-iconfont, Apache-2.0). The tool buttons
// show their icons at 24 pixels and grow on hover, so the files are drawn at
// twice that. Light glyphs suit the dark title bar; a dark rim keeps them
// readable on a light theme's.
const char *const kMaterialIconFont =
    "/usr/share/fonts/truetype/material-design-icons-iconfont/MaterialIcons-Regular.ttf";

struct MenuBarIcon
{
    const char *file;
    ushort glyph;
    QRgb colour;
};

// One glyph of the Material icon font as a light shape with a dark rim, its em
// square filling the image so that the font's own alignment holds.
void glyphIcon(const QString &family, const MenuBarIcon &icon, int size, const QString &path)
{
    const QColor rim(0x1a, 0x1c, 0x22);
    QFont font(family);
    font.setPixelSize(size);
    const QFontMetricsF metrics(font);
    const QString text = QString(QChar(icon.glyph));
    QPainterPath shape;
    shape.addText(QPointF((size - metrics.horizontalAdvance(text)) / 2, (size - metrics.height()) / 2 + metrics.ascent()),
                  font, text);
    QImage img = blank(size, size);
    QPainter p(&img);
    setupPainter(p);
    p.setPen(QPen(rim, size / 12.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(rim);
    p.drawPath(shape);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(icon.colour));
    p.drawPath(shape);
    p.end();
    save(img, path);
}

void makeMenuBarIcons()
{
    const int id = QFontDatabase::addApplicationFont(QString::fromLatin1(kMaterialIconFont));
    if (id < 0 || QFontDatabase::applicationFontFamilies(id).isEmpty()) {
        std::fprintf(stderr, "%s is missing: install the Debian package fonts-material-design-icons-iconfont\n",
                     kMaterialIconFont);
        g_ok = false;
        return;
    }
    const QString family = QFontDatabase::applicationFontFamilies(id).first();
    const QRgb light = qRgb(0xee, 0xf0, 0xf4), go = qRgb(0x8c, 0xe6, 0x9a), halt = qRgb(0xff, 0x9c, 0x94);
    const MenuBarIcon icons[] = {
        {"OpenProject.png", 0xe2c8, light},     // folder_open
        {"ReloadProject.png", 0xe5d5, light},   // refresh
        {"SaveProject.png", 0xe161, light},     // save
        {"CloseProject.png", 0xeb83, light},    // folder_off
        {"Undo.png", 0xe166, light},            // undo
        {"Redo.png", 0xe15a, light},            // redo
        {"RunGame.png", 0xe037, go},            // play_arrow
        {"StopGame.png", 0xe047, halt},         // stop
        {"OpenExplorer.png", 0xe675, light},    // drive_file_move
        {"Settings.png", 0xe8b8, light},        // settings
        {"ZoomIn.png", 0xe8ff, light},          // zoom_in
        {"ZoomOut.png", 0xe900, light},         // zoom_out
        {"FitZoom.png", 0xea10, light},         // fit_screen
        // Help menu entries, which have no tool button.
        {"About.png", 0xe88e, light},           // info
        {"Tutorial.png", 0xf06a, light},        // smart_display
        {"Update.png", 0xe8d7, light},          // system_update_alt
    };
    for (const MenuBarIcon &icon : icons)
        glyphIcon(family, icon, 48, QStringLiteral("resources/MenuBarIcons/%1").arg(QLatin1String(icon.file)));

    // The context menu's show and hide entries of the component list, in the
    // same style at the context icons' size.
    glyphIcon(family, {"Show.png", 0xe8f4, light}, 32, QStringLiteral("resources/ContextIcons/Show.png"));      // visibility
    glyphIcon(family, {"Hide.png", 0xe8f5, light}, 32, QStringLiteral("resources/ContextIcons/Hide.png"));      // visibility_off
}

void makeSplash()
{
    QImage img = blank(600, 340);
    QPainter p(&img);
    setupPainter(p);
    QLinearGradient bg(0, 0, 600, 340);
    bg.setColorAt(0, QColor(8, 14, 36));
    bg.setColorAt(0.55, QColor(18, 40, 88));
    bg.setColorAt(1, QColor(30, 70, 130));
    p.fillRect(img.rect(), bg);

    // Soft light blobs for depth.
    const struct { qreal x, y, r; int a; } blobs[] = {{480, 60, 180, 50}, {90, 300, 160, 35}, {560, 300, 120, 30}};
    for (const auto &b : blobs) {
        QRadialGradient g(QPointF(b.x, b.y), b.r);
        g.setColorAt(0, QColor(120, 180, 255, b.a));
        g.setColorAt(1, QColor(120, 180, 255, 0));
        p.setPen(Qt::NoPen);
        p.setBrush(g);
        p.drawEllipse(QPointF(b.x, b.y), b.r, b.r);
    }

    // A small HUD motif: three gauges of different lengths.
    const struct { qreal fill; QColor a, b; } gauges[] = {
        {0.82, QColor(230, 60, 70), QColor(255, 160, 90)},
        {0.56, QColor(50, 110, 230), QColor(110, 200, 255)},
        {0.34, QColor(60, 180, 90), QColor(170, 240, 120)},
    };
    for (int i = 0; i < 3; ++i) {
        const QRectF r(64, 232 + i * 20, 190, 10);
        p.setPen(QPen(QColor(180, 200, 240, 150), 1));
        p.setBrush(QColor(5, 10, 25, 170));
        p.drawRoundedRect(r, 5, 5);
        QLinearGradient g(r.topLeft(), r.topRight());
        g.setColorAt(0, gauges[i].a);
        g.setColorAt(1, gauges[i].b);
        p.setPen(Qt::NoPen);
        p.setBrush(g);
        p.drawRoundedRect(QRectF(r.x() + 1.5, r.y() + 1.5, (r.width() - 3) * gauges[i].fill, r.height() - 3), 3.5, 3.5);
    }
    // Diamond mark, echoing the application icon.
    {
        const QPointF c(520, 232);
        QPainterPath d = poly({{c.x(), c.y() - 44}, {c.x() + 44, c.y()}, {c.x(), c.y() + 44}, {c.x() - 44, c.y()}});
        p.setPen(QPen(QColor(240, 200, 90, 200), 2));
        p.setBrush(QColor(240, 200, 90, 30));
        p.drawPath(d);
        QPainterPath d2 = poly({{c.x(), c.y() - 24}, {c.x() + 24, c.y()}, {c.x(), c.y() + 24}, {c.x() - 24, c.y()}});
        p.setBrush(QColor(240, 200, 90, 160));
        p.drawPath(d2);
    }

    QFont title(g_family);
    title.setPixelSize(84);
    title.setBold(true);
    title.setLetterSpacing(QFont::AbsoluteSpacing, 2);
    const QRect titleRect(60, 60, 500, 100);
    p.setFont(title);
    p.setPen(QColor(0, 0, 0, 120));
    p.drawText(titleRect.translated(3, 4), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Velmora"));
    {
        QLinearGradient g(0, 70, 0, 150);
        g.setColorAt(0, QColor(255, 255, 255));
        g.setColorAt(1, QColor(170, 210, 255));
        p.setPen(QPen(QBrush(g), 1));
        p.drawText(titleRect, Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Velmora"));
    }
    p.setPen(QPen(QColor(240, 200, 90), 2));
    p.drawLine(QPointF(64, 168), QPointF(330, 168));
    QFont sub(g_family);
    sub.setPixelSize(20);
    p.setFont(sub);
    p.setPen(QColor(190, 215, 250));
    p.drawText(QRect(64, 176, 480, 30), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("HUD Editor for RPG Maker MZ"));
    p.end();
    save(img, QStringLiteral("resources/SplashScreen.png"));
}

void makeAppIcon()
{
    QImage img = blank(256, 256);
    QPainter p(&img);
    setupPainter(p);
    const QRectF box(8, 8, 240, 240);
    QLinearGradient bg(box.topLeft(), box.bottomRight());
    bg.setColorAt(0, QColor(44, 92, 180));
    bg.setColorAt(1, QColor(14, 24, 64));
    p.setBrush(bg);
    p.setPen(QPen(QColor(150, 190, 255), 4));
    p.drawRoundedRect(box, 52, 52);

    const QPointF c(128, 132);
    const QRectF ring(c.x() - 78, c.y() - 78, 156, 156);
    // Gauge ring: a dim track and a bright partial arc.
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(5, 10, 30, 160), 20, Qt::SolidLine, Qt::RoundCap));
    p.drawArc(ring, 225 * 16, -270 * 16);
    QConicalGradient arc(c, 225);
    arc.setColorAt(0, QColor(255, 210, 100));
    arc.setColorAt(0.75, QColor(90, 220, 255));
    arc.setColorAt(1, QColor(90, 220, 255));
    p.setPen(QPen(QBrush(arc), 14, Qt::SolidLine, Qt::RoundCap));
    p.drawArc(ring, 225 * 16, -190 * 16);

    QPainterPath d = poly({{c.x(), c.y() - 48}, {c.x() + 40, c.y()}, {c.x(), c.y() + 48}, {c.x() - 40, c.y()}});
    QLinearGradient gold(c.x(), c.y() - 48, c.x(), c.y() + 48);
    gold.setColorAt(0, QColor(255, 230, 140));
    gold.setColorAt(1, QColor(210, 140, 30));
    p.setBrush(gold);
    p.setPen(QPen(QColor(90, 50, 10), 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPath(d);
    p.setPen(QPen(QColor(255, 250, 220, 200), 3));
    p.drawLine(QPointF(c.x(), c.y() - 40), QPointF(c.x(), c.y() + 40));
    p.drawLine(QPointF(c.x() - 32, c.y()), QPointF(c.x() + 32, c.y()));
    p.end();
    save(img, QStringLiteral("resources/Icon.png"));
}

// One interface icon, drawn at 32 by 32 so that it stays crisp when shown at
// 16 or 18 pixels.
void icon(const QString &path, const std::function<void(QPainter &)> &draw)
{
    QImage img = blank(32, 32);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    draw(p);
    p.end();
    save(img, path);
}

// Small interface icons of the editor.
void makeUiIcons()
{
    const QColor green(0x5c, 0xc8, 0x6e), red(0xe0, 0x5a, 0x5a), paper(0xe8, 0xec, 0xf2), ink(0x2a, 0x2e, 0x38),
        blue(0x5a, 0x9c, 0xe6), gold(0xe6, 0xb8, 0x4c);
    auto plus = [green](QPainter &p) {
        p.setPen(QPen(green.darker(160), 2));
        p.setBrush(green);
        p.drawRoundedRect(QRectF(12.5, 4.5, 7, 23), 2, 2);
        p.drawRoundedRect(QRectF(4.5, 12.5, 23, 7), 2, 2);
        p.setPen(Qt::NoPen);
        p.drawRect(QRectF(13.5, 13.5, 5, 5));
    };
    auto minus = [red](QPainter &p) {
        p.setPen(QPen(red.darker(160), 2));
        p.setBrush(red);
        p.drawRoundedRect(QRectF(4.5, 12.5, 23, 7), 2, 2);
    };
    auto sheet = [paper, ink](QPainter &p, const QRectF &r) {
        p.setPen(QPen(ink, 1.6));
        p.setBrush(paper);
        p.drawRoundedRect(r, 2, 2);
        p.setPen(QPen(ink.lighter(250), 1.4));
        for (qreal y = r.top() + 6; y < r.bottom() - 3; y += 4)
            p.drawLine(QPointF(r.left() + 4, y), QPointF(r.right() - 4, y));
    };
    for (const QString &folder : {QStringLiteral("ContextIcons"), QStringLiteral("ButtonIcons")}) {
        icon(QStringLiteral("resources/%1/Add.png").arg(folder), plus);
        icon(QStringLiteral("resources/%1/Remove.png").arg(folder), minus);
    }
    icon(QStringLiteral("resources/ContextIcons/Edit.png"), [gold, ink](QPainter &p) {
        p.translate(16, 16);
        p.rotate(45);
        p.setPen(QPen(ink, 1.6));
        p.setBrush(gold);
        p.drawRect(QRectF(-4, -13, 8, 19));
        p.setBrush(QColor(0xf0, 0xd8, 0xb0));
        const QPointF tip[] = {{-4, 6}, {4, 6}, {0, 13}};
        p.drawPolygon(tip, 3);
        p.setBrush(QColor(0xe0, 0x8c, 0x8c));
        p.drawRect(QRectF(-4, -15, 8, 4));
    });
    icon(QStringLiteral("resources/ContextIcons/Copy.png"), [sheet](QPainter &p) {
        sheet(p, QRectF(3.5, 3.5, 17, 20));
        sheet(p, QRectF(11.5, 8.5, 17, 20));
    });
    icon(QStringLiteral("resources/ContextIcons/Cut.png"), [ink, blue](QPainter &p) {
        p.setPen(QPen(QColor(0xb4, 0xbc, 0xc8), 4, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(10, 3), QPointF(20, 20));
        p.drawLine(QPointF(22, 3), QPointF(12, 20));
        p.setPen(QPen(ink, 1.2));
        p.drawLine(QPointF(10, 3), QPointF(20, 20));
        p.drawLine(QPointF(22, 3), QPointF(12, 20));
        p.setPen(QPen(blue.darker(120), 3.4));
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(QPointF(9.5, 24), 4.5, 4.5);
        p.drawEllipse(QPointF(22.5, 24), 4.5, 4.5);
    });
    icon(QStringLiteral("resources/ContextIcons/Paste.png"), [ink, gold, sheet](QPainter &p) {
        p.setPen(QPen(ink, 1.6));
        p.setBrush(gold.darker(130));
        p.drawRoundedRect(QRectF(4.5, 5.5, 19, 24), 2, 2);
        p.setBrush(QColor(0x9c, 0xa4, 0xb0));
        p.drawRoundedRect(QRectF(9.5, 2.5, 9, 6), 1.5, 1.5);
        sheet(p, QRectF(13.5, 12.5, 15, 17));
    });
    icon(QStringLiteral("resources/ButtonIcons/Hint.png"), [blue](QPainter &p) {
        p.setPen(QPen(blue.darker(170), 2));
        p.setBrush(blue);
        p.drawEllipse(QPointF(16, 16), 12.5, 12.5);
        p.setPen(QPen(Qt::white, 3.4, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(16, 14.5), QPointF(16, 22.5));
        p.drawPoint(QPointF(16, 9.5));
    });
}

// The rotation handle's cursors: a circular arrow around the pointer's hot
// spot, open while hovering and filled while held.
void makeEditorCursors()
{
    auto cursor = [](const QString &path, bool held) {
        QImage img = blank(32, 32);
        QPainter p(&img);
        p.setRenderHint(QPainter::Antialiasing);
        QPainterPath arc;
        arc.arcMoveTo(QRectF(6, 6, 20, 20), 120);
        arc.arcTo(QRectF(6, 6, 20, 20), 120, 300);
        const QPolygonF head({QPointF(2.5, 9), QPointF(12.5, 8.5), QPointF(8, 17.5)});
        const QColor fill = held ? QColor(0x30, 0x30, 0x38) : Qt::white;
        const QColor edge = held ? Qt::white : QColor(0x20, 0x20, 0x28);
        for (const auto &pen : {QPen(edge, 6, Qt::SolidLine, Qt::FlatCap), QPen(fill, 3, Qt::SolidLine, Qt::FlatCap)}) {
            p.setPen(pen);
            p.setBrush(Qt::NoBrush);
            p.drawPath(arc);
        }
        p.setPen(QPen(edge, 1.5));
        p.setBrush(fill);
        p.drawPolygon(head);
        p.setPen(Qt::NoPen);
        p.setBrush(edge);
        p.drawEllipse(QPointF(16, 16), 2, 2);
        p.end();
        save(img, path);
    };
    cursor(QStringLiteral("resources/Editor/Cursor_Rotate_Open.png"), false);
    cursor(QStringLiteral("resources/Editor/Cursor_Rotate.png"), true);
}

// The icons of the edit menus of the form fields and the mark of the check
// box. The check mark is dark so that it reads on the primary colour that
// fills a checked box in every shipped theme.
void makeFieldIcons()
{
    const QColor ink(0x2a, 0x2e, 0x38), blue(0x5a, 0x9c, 0xe6), red(0xe0, 0x5a, 0x5a), paper(0xe8, 0xec, 0xf2),
        violet(0xa0, 0x78, 0xe0);
    icon(QStringLiteral("resources/ContextIcons/None.png"), [red](QPainter &p) {
        p.setPen(QPen(red.darker(160), 7, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(8, 8), QPointF(24, 24));
        p.drawLine(QPointF(24, 8), QPointF(8, 24));
        p.setPen(QPen(red, 4, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(8, 8), QPointF(24, 24));
        p.drawLine(QPointF(24, 8), QPointF(8, 24));
    });
    icon(QStringLiteral("resources/ContextIcons/SelectAll.png"), [ink, blue, paper](QPainter &p) {
        p.setPen(QPen(ink, 1.6, Qt::DashLine));
        p.setBrush(Qt::NoBrush);
        p.drawRoundedRect(QRectF(3.5, 5.5, 25, 21), 2, 2);
        p.setPen(Qt::NoPen);
        p.setBrush(blue);
        p.drawRect(QRectF(7, 10, 18, 4));
        p.drawRect(QRectF(7, 17, 12, 4));
        p.setBrush(paper);
        p.drawRect(QRectF(7, 10, 2, 4));
    });
    icon(QStringLiteral("resources/ContextIcons/Extend.png"), [violet, ink](QPainter &p) {
        p.setPen(QPen(ink, 1.6));
        p.setBrush(violet);
        const QPointF bolt[] = {{18, 2}, {6, 18}, {15, 18}, {12, 30}, {26, 12}, {17, 12}, {20, 2}};
        p.drawPolygon(bolt, 7);
    });
    icon(QStringLiteral("resources/ContextIcons/TextMode.png"), [ink, paper](QPainter &p) {
        p.setPen(QPen(ink, 1.6));
        p.setBrush(paper);
        p.drawRoundedRect(QRectF(3.5, 3.5, 25, 25), 3, 3);
        p.setPen(QPen(ink, 3.4, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(10, 10), QPointF(22, 10));
        p.drawLine(QPointF(16, 10), QPointF(16, 23));
    });
    QImage check = blank(14, 14);
    {
        QPainter p(&check);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(QPen(QColor(0x10, 0x14, 0x10, 230), 2.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const QPointF mark[] = {{2.5, 7.5}, {5.5, 10.5}, {11.5, 3.5}};
        p.drawPolyline(mark, 3);
    }
    save(check, QStringLiteral("resources/Decor/checkbox.png"));
}

// The small icons of the file pickers' lists: no file, a folder, an image
// and a font, drawn for rows of 16 pixels.
void makeListIcons()
{
    const QColor ink(0x2a, 0x2e, 0x38), red(0xe0, 0x5a, 0x5a), paper(0xe8, 0xec, 0xf2), gold(0xe6, 0xb8, 0x4c),
        blue(0x5a, 0x9c, 0xe6), green(0x5c, 0xc8, 0x6e);
    icon(QStringLiteral("resources/ListIcons/MiniIcon_None.png"), [red](QPainter &p) {
        p.setPen(QPen(red.darker(160), 4));
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(QPointF(16, 16), 11, 11);
        p.drawLine(QPointF(8.5, 23.5), QPointF(23.5, 8.5));
        p.setPen(QPen(red, 2.4));
        p.drawEllipse(QPointF(16, 16), 11, 11);
        p.drawLine(QPointF(8.5, 23.5), QPointF(23.5, 8.5));
    });
    icon(QStringLiteral("resources/ListIcons/MiniIcon_Folder.png"), [ink, gold](QPainter &p) {
        p.setPen(QPen(ink, 1.6));
        p.setBrush(gold.darker(125));
        QPainterPath back;
        back.moveTo(3.5, 8.5);
        back.lineTo(12.5, 8.5);
        back.lineTo(15.5, 5.5);
        back.lineTo(28.5, 5.5);
        back.lineTo(28.5, 26.5);
        back.lineTo(3.5, 26.5);
        back.closeSubpath();
        p.drawPath(back);
        p.setBrush(gold);
        p.drawRoundedRect(QRectF(3.5, 11.5, 25, 15), 1.5, 1.5);
    });
    icon(QStringLiteral("resources/ListIcons/MiniIcon_Image.png"), [ink, paper, blue, green, gold](QPainter &p) {
        p.setPen(QPen(ink, 1.6));
        p.setBrush(blue.lighter(130));
        p.drawRoundedRect(QRectF(3.5, 5.5, 25, 21), 2, 2);
        p.setPen(Qt::NoPen);
        p.setBrush(gold);
        p.drawEllipse(QPointF(22, 11.5), 3, 3);
        p.setBrush(green.darker(115));
        const QPointF hills[] = {{5, 25}, {13, 13}, {19, 21}, {22, 18}, {27, 25}};
        p.drawPolygon(hills, 5);
        p.setPen(QPen(paper, 1));
        p.setBrush(Qt::NoBrush);
        p.drawRoundedRect(QRectF(5, 7, 22, 18), 1, 1);
    });
    icon(QStringLiteral("resources/ListIcons/MiniIcon_Font.png"), [ink, paper](QPainter &p) {
        p.setPen(QPen(ink, 1.6));
        p.setBrush(paper);
        p.drawRoundedRect(QRectF(3.5, 3.5, 25, 25), 3, 3);
        QFont font(g_family);
        font.setPixelSize(20);
        font.setBold(true);
        QPainterPath glyph;
        glyph.addText(QPointF(9, 24), font, QStringLiteral("A"));
        p.setPen(Qt::NoPen);
        p.setBrush(ink);
        p.drawPath(glyph);
    });
}

void loadFonts()
{
    const QStringList candidates = {
        QStringLiteral("/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf"),
        QStringLiteral("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"),
        g_root + QStringLiteral("/examples/SampleProject/fonts/DejaVuSans.ttf"),
    };
    for (const QString &file : candidates) {
        const int id = QFontDatabase::addApplicationFont(file);
        if (id >= 0 && !QFontDatabase::applicationFontFamilies(id).isEmpty())
            g_family = QFontDatabase::applicationFontFamilies(id).first();
    }
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: samplegen <repository root>\n");
        return 2;
    }
    g_root = QDir(QString::fromLocal8Bit(argv[1])).absolutePath();
    loadFonts();
    makeIconSet();
    makeWindowSkin();
    makeGaugeSkin();
    makeFaces();
    makePictures();
    makeEditorTile();
    makeMenuBarIcons();
    makeSplash();
    makeAppIcon();
    makeUiIcons();
    makeEditorCursors();
    makeFieldIcons();
    makeListIcons();
    return g_ok ? 0 : 1;
}
