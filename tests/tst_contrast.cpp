#include "TestEnvironment.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "theme/VelmoStyle.h"
#include "widgets/AnimatedLook.h"
#include "widgets/MyButton.h"
#include "widgets/MyCheckBox.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyTabSystemHeader.h"
#include "widgets/MyTabSystemHelper.h"
#include "widgets/TrovDialog.h"

#include <QApplication>
#include <QLabel>
#include <QMap>
#include <QPushButton>

namespace {

// The WCAG formula of the shared test helpers, written out from the
// definition so that the check doesn't lean on the program's own arithmetic.
double contrast(QRgb a, QRgb b)
{
    return TestEnvironment::contrast(QColor::fromRgb(a), QColor::fromRgb(b));
}

// What the rule asks of a pair.
const double TextMinimum = 4.5;
const double DisabledTextMinimum = 3.0;
const double IconMinimum = 3.0;

struct Pair {
    double ratio = 0;
    QRgb ink = 0;
    QRgb ground = 0;
};

// The background of a pixel: the pixel at the area's left edge in the same
// row, or the one at ground when given; the backgrounds here change at most
// from top to bottom.
QRgb groundOf(const QImage& image, const QRect& area, int y, const QPoint& ground)
{
    return image.pixel(ground.x() >= 0 ? ground : QPoint(area.left(), y));
}

// The pair text makes in an area of a picture. Text is drawn without
// antialiasing here, so its pixels have the colour the user sees whole: the
// colour most of the pixels that stand out from their background have is
// the ink. (An etched shadow, as disabled text has in some styles, covers
// fewer pixels than the text.)
Pair text(const QImage& image, const QRect& area, const QPoint& ground = QPoint(-1, -1))
{
    QMap<QPair<QRgb, QRgb>, int> counts;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const QRgb background = groundOf(image, area, y, ground);
        for (int x = area.left(); x <= area.right(); ++x) {
            if (image.pixel(x, y) != background)
                ++counts[qMakePair(image.pixel(x, y), background)];
        }
    }
    Pair pair;
    int most = 0;
    for (auto it = counts.constBegin(); it != counts.constEnd(); ++it) {
        if (it.value() > most) {
            most = it.value();
            pair = {contrast(it.key().first, it.key().second), it.key().first, it.key().second};
        }
    }
    return pair;
}

// The pair a symbol makes: drawn with antialiasing, its strongest pixel
// is where it covers the background whole.
Pair symbol(const QImage& image, const QRect& area, const QPoint& ground = QPoint(-1, -1))
{
    Pair best;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const QRgb background = groundOf(image, area, y, ground);
        for (int x = area.left(); x <= area.right(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            const double ratio = contrast(pixel, background);
            if (ratio > best.ratio)
                best = {ratio, pixel, background};
        }
    }
    return best;
}

enum State { Normal, Hover, Pressed, Disabled };
const char* const StateNames[] = {"normal", "hover", "pressed", "disabled"};

double textMinimum(State state)
{
    return state == Disabled ? DisabledTextMinimum : TextMinimum;
}

// The picture of a widget, or of an area of it, as plain pixels.
QImage shot(QWidget* widget, const QRect& area = QRect())
{
    return widget->grab(area.isNull() ? widget->rect() : area).toImage().convertToFormat(QImage::Format_RGB32);
}

// A dialog's surface: the window colour of the palette, as in every dialog.
class Surface : public QWidget
{
public:
    Surface()
    {
        setAutoFillBackground(true);
        resize(420, 160);
    }

    // The picture of a child as it stands on the surface, with the focus
    // on none of the children.
    QImage picture(QWidget* child)
    {
        show();
        child->show();
        setFocus();
        QCoreApplication::processEvents();
        return shot(this, child->geometry());
    }
};

}

class TestContrast : public QObject
{
    Q_OBJECT

private:
    QString theme;
    QStringList failures;

    void check(const QString& what, State state, const Pair& pair, double minimum)
    {
        const QString line = QStringLiteral("%1 | %2 | %3 | %4 on %5 | %6 (at least %7)")
                                 .arg(theme, what, QLatin1String(StateNames[state]),
                                      QColor(pair.ink).name(), QColor(pair.ground).name())
                                 .arg(pair.ratio, 0, 'f', 2)
                                 .arg(minimum, 0, 'f', 1);
        if (pair.ratio < minimum)
            failures << line;
    }

    void checkText(const QString& what, State state, const QImage& image, const QRect& area)
    {
        check(what, state, text(image, area), textMinimum(state));
    }

    // The fields, toggles and tabs of a dialog on its surface. The line edit
    // stands for the fields, which all draw their value and caption with the
    // same pairs.
    void dialogWidgets(State state)
    {
        Surface surface;
        surface.resize(640, 260);
        MyLineEdit* number = new MyLineEdit(&surface);
        number->setCaption(QStringLiteral("Value"));
        number->setNumberField(1, 500, 4);
        number->setValue(QStringLiteral("42"));
        number->setGeometry(10, 10, 270, 46);
        MyCheckBox* box = new MyCheckBox(QStringLiteral("Reload Project"), &surface);
        box->setNoAnimation(true);
        box->setChecked(true);
        box->setGeometry(10, 70, 200, 20);
        MyGroupBox* group = new MyGroupBox(QStringLiteral("Save Confirmation"), &surface);
        group->setGeometry(10, 100, 300, 80);
        MyTabSystemHeader* header = new MyTabSystemHeader(&surface);
        header->addTab(QStringLiteral("Value"));
        header->addTab(QStringLiteral("Map HUD"));
        header->setGeometry(10, 190, 400, MyTabSystemHeader::RowHeight);
        header->tab(0)->setSelected(true, true);
        if (state == Hover) {
            number->hoverLook()->jumpTo(300);
            box->hoverLook()->jumpTo(100);
            header->tab(1)->setHoverState(50);
        }
        surface.setEnabled(state != Disabled);
        // A field's value below, its caption above, both clear of the
        // outline, the underline and the marks at the right end.
        const struct {
            const char* what;
            QWidget* widget;
            QRect area;
        } texts[] = {{"MyLineEdit value", number, QRect(3, 22, 230, 21)},
                     {"MyLineEdit caption", number, QRect(3, 2, 120, 17)},
                     {"MyCheckBox label", box, QRect(19, 1, 170, 18)},
                     {"MyGroupBox title", group, QRect(3, 2, 250, MyGroupBox::TitleHeight - 4)},
                     {"tab, selected", header, header->tabRect(0).adjusted(3, 3, -3, -4)},
                     {"tab", header, header->tabRect(1).adjusted(3, 3, -3, -4)}};
        for (const auto& look : texts)
            checkText(QLatin1String(look.what), state, surface.picture(look.widget), look.area);
        // The mark on the fill of a checked box.
        if (state != Disabled)
            check(QStringLiteral("MyCheckBox mark"), state, symbol(surface.picture(box), QRect(5, 5, 9, 9), QPoint(3, 3)), IconMinimum);
    }

    void buttons(State state)
    {
        const QList<QPair<const char*, int>> kinds = {
            {"plain", ThemeKey::ButtonBase}, {"confirm", ThemeKey::ConfirmButton}, {"cancel", ThemeKey::CancelButton}};
        // The form's own buttons and the dialogs' confirm and cancel buttons,
        // coloured in two ways.
        for (const bool dialogButton : {false, true}) {
            for (const auto& kind : kinds) {
                Surface surface;
                QPushButton* button = dialogButton ? new QPushButton(QStringLiteral("Cancel"), &surface)
                                                   : new MyButton(QStringLiteral("Cancel"), &surface);
                button->setObjectName(QStringLiteral("button"));
                if (dialogButton)
                    TrovDialog::colorButton(button, kind.second);
                else
                    static_cast<MyButton*>(button)->setButtonColor(themeColor(kind.second));
                button->setGeometry(10, 10, 120, 30);
                button->setEnabled(state != Disabled);
                if (state == Hover) {
                    // The pointer comes in from beside the button, as the
                    // style sheet follows real pointer moves only.
                    surface.show();
                    QVERIFY(QTest::qWaitForWindowExposed(&surface));
                    QTest::mouseMove(&surface, QPoint(400, 150));
                    QTest::mouseMove(button, button->rect().center());
                    QTRY_VERIFY(button->underMouse());
                    if (!dialogButton)
                        static_cast<MyButton*>(button)->setFade(100);
                }
                if (state == Pressed)
                    button->setDown(true);
                checkText(QLatin1String(dialogButton ? "dialog button " : "MyButton ") + QLatin1String(kind.first),
                          state, surface.picture(button), QRect(5, 6, 110, 18));
            }
        }
    }

private slots:
    void initTestCase()
    {
        QApplication::setStyle(new VelmoStyle());
        // Text without antialiasing shows its colour whole in its pixels.
        QFont font = QApplication::font();
        font.setStyleStrategy(QFont::NoAntialias);
        QApplication::setFont(font);
    }

    // Every pair of colours that carries meaning, in every state a user
    // sees, under the built-in default theme and each shipped theme: text at
    // least 4.5:1 against what it stands on, disabled text 3:1, icons and the
    // window buttons 3:1.
    void meaningfulPairsStandOut_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("default") << QString();
        QTest::newRow("Light") << QStringLiteral("Light");
    }

    void meaningfulPairsStandOut()
    {
        QFETCH(QString, name);
        Theme::installDefault();
        QVERIFY(Theme::load(name));
        Theme::apply();
        theme = name.isEmpty() ? QStringLiteral("default") : name;
        failures.clear();
        for (const State state : {Normal, Hover, Pressed, Disabled}) {
            buttons(state);
            // A press changes no other colours of a dialog.
            if (state != Pressed)
                dialogWidgets(state);
        }
        QVERIFY2(failures.isEmpty(), qPrintable(QLatin1Char('\n') + failures.join(QLatin1Char('\n'))));
    }
};

VELMORA_TEST_MAIN(TestContrast, QApplication)
#include "tst_contrast.moc"
