#include "TestEnvironment.h"

#include "app/VelmoMainTitleBar.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "theme/VelmoStyle.h"
#include "widgets/AnimatedLook.h"
#include "widgets/CustomTitleBar.h"
#include "widgets/InflateLabel.h"
#include "widgets/MyButton.h"
#include "widgets/MyCheckBox.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyEitherBox.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/MyRadioButton.h"
#include "widgets/MyTabSystemHeader.h"
#include "widgets/MyTabSystemHelper.h"
#include "widgets/TitleBarButtons.h"
#include "widgets/TrovDialog.h"
#include "widgets/UltimateToolTip.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeHeader.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QHash>
#include <QLabel>
#include <QMenu>
#include <QPushButton>

#include <cmath>
#include <functional>

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
    QHash<QPair<QRgb, QRgb>, int> counts;
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

enum State { Normal, Hover, Pressed, Disabled, Error };
const char* const StateNames[] = {"normal", "hover", "pressed", "disabled", "error"};

double textMinimum(State state)
{
    return state == Disabled ? DisabledTextMinimum : TextMinimum;
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
    // on focus, or on none of the children.
    QImage picture(QWidget* child, QWidget* focus = nullptr)
    {
        show();
        child->show();
        if (focus)
            focus->setFocus();
        else
            setFocus();
        QCoreApplication::processEvents();
        return grab(child->geometry()).toImage().convertToFormat(QImage::Format_RGB32);
    }
};

}

class TestContrast : public QObject
{
    Q_OBJECT

private:
    QString theme;
    QStringList failures;
    QStringList report;

    void check(const QString& what, State state, const Pair& pair, double minimum)
    {
        const QString line = QStringLiteral("%1 | %2 | %3 | %4 on %5 | %6 (at least %7)")
                                 .arg(theme, what, QLatin1String(StateNames[state]),
                                      QColor(pair.ink).name(), QColor(pair.ground).name())
                                 .arg(pair.ratio, 0, 'f', 2)
                                 .arg(minimum, 0, 'f', 1);
        report << line;
        if (pair.ratio < minimum)
            failures << line;
    }

    void field(const QString& what, State state, QWidget* widget)
    {
        Surface surface;
        widget->setParent(&surface);
        widget->setGeometry(10, 10, 270, 46);
        widget->setEnabled(state != Disabled);
        // A focused field selects all its text.
        const bool selected = state == Pressed && qobject_cast<MyLineEdit*>(widget);
        const QImage image = surface.picture(widget, selected ? widget : nullptr);
        // The value below, the caption above, both clear of the outline,
        // the underline and the marks at the right end.
        const QRect valueArea(3, 22, 230, 21);
        if (selected) {
            const QRgb highlight = widget->palette().color(QPalette::Highlight).rgb();
            QRect selection;
            for (int y = valueArea.top(); y <= valueArea.bottom(); ++y)
                for (int x = valueArea.left(); x <= valueArea.right(); ++x)
                    if (image.pixel(x, y) == highlight)
                        selection |= QRect(x, y, 1, 1);
            QVERIFY2(!selection.isEmpty(), "no selection to be seen");
            check(what + QStringLiteral(" selected value"), state, text(image, selection, selection.topLeft()),
                  TextMinimum);
        } else {
            check(what + QStringLiteral(" value"), state, text(image, valueArea), textMinimum(state));
        }
        check(what + QStringLiteral(" caption"), state, text(image, QRect(3, 2, 120, 17)), textMinimum(state));
    }

    void fields(State state)
    {
        MyLineEdit* number = new MyLineEdit;
        number->setCaption(QStringLiteral("Value"));
        number->setNumberField(1, 500, 4);
        number->setValue(QStringLiteral("42"));
        MyComboBox* combo = new MyComboBox;
        combo->setCaption(QStringLiteral("Map HUD"));
        combo->addItem(QStringLiteral("Battle HUD"), 0);
        combo->setCurrentIndex(0, false);
        MyDialogOpener* opener = new MyDialogOpener;
        opener->setTitle(QStringLiteral("Open Project"));
        opener->setValue(QStringLiteral("[0001] Harold"));
        MyEitherBox* either = new MyEitherBox;
        either->setPlaceholder(QStringLiteral("Value"));
        either->setChoices(QStringLiteral("ON"), QStringLiteral("OFF"));
        if (state == Hover) {
            number->hoverLook()->jumpTo(300);
            combo->hoverLook()->jumpTo(300);
            opener->hoverLook()->jumpTo(300);
            either->hoverLook()->jumpTo(1000);
        } else if (state == Pressed) {
            number->focusLook()->jumpTo(300);
            combo->pressLook()->jumpTo(300);
            opener->pressLook()->jumpTo(300);
            opener->hoverLook()->jumpTo(300);
        }
        field(QStringLiteral("MyLineEdit"), state, number);
        field(QStringLiteral("MyComboBox"), state, combo);
        field(QStringLiteral("MyDialogOpener"), state, opener);
        field(QStringLiteral("MyEitherBox"), state, either);
    }

    void errors()
    {
        // A value out of range: the red line and the hint "> 500" at the
        // right of the caption; a form's own warning stands in the same place.
        for (const bool warning : {false, true}) {
            Surface surface;
            MyLineEdit* edit = new MyLineEdit(&surface);
            edit->setGeometry(10, 10, 270, 46);
            edit->setCaption(QStringLiteral("Value"));
            edit->setNumberField(1, 500, 4);
            if (warning) {
                edit->setInputType(MyLineEdit::Text);
                edit->setValue(QStringLiteral("Map HUD"));
                edit->setWarningText(QStringLiteral("Name already in use!"));
            } else {
                edit->setText(QStringLiteral("501"));
                edit->textHasChanged(edit->text());
            }
            edit->hintLook()->jumpTo(300);
            const QImage image = surface.picture(edit);
            check(warning ? QStringLiteral("MyLineEdit warning") : QStringLiteral("MyLineEdit range hint"), Error,
                  text(image, QRect(130, 2, 136, 19)), TextMinimum);
        }
    }

    void buttons(State state)
    {
        const QList<QPair<const char*, int>> kinds = {{"plain", ThemeKey::ButtonBase},
                                                       {"confirm", ThemeKey::ConfirmButton},
                                                       {"cancel", ThemeKey::CancelButton},
                                                       {"restore defaults", ThemeKey::RestoreDefaultsButton},
                                                       {"options", ThemeKey::OptionsButton},
                                                       {"apply", ThemeKey::ApplyButton},
                                                       {"compile", ThemeKey::CompileButton}};
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
                const QImage image = surface.picture(button);
                check(QLatin1String(dialogButton ? "dialog button " : "MyButton ") + QLatin1String(kind.first), state,
                      text(image, QRect(5, 6, 110, 18)), textMinimum(state));
            }
        }
    }

    void toggles(State state)
    {
        Surface surface;
        MyCheckBox* box = new MyCheckBox(QStringLiteral("Reload Project"), &surface);
        MyRadioButton* radio = new MyRadioButton(QStringLiteral("Reload Project"), &surface);
        box->setNoAnimation(true);
        box->setChecked(true);
        radio->setChecked(true);
        radio->checkLook()->jumpTo(100);
        if (state == Hover || state == Pressed) {
            box->hoverLook()->jumpTo(100);
            radio->hoverLook()->jumpTo(100);
        }
        if (state == Pressed) {
            box->setDown(true);
            radio->setDown(true);
        }
        box->setGeometry(10, 10, 200, 20);
        radio->setGeometry(10, 40, 200, 20);
        box->setEnabled(state != Disabled);
        radio->setEnabled(state != Disabled);
        for (QAbstractButton* button : {static_cast<QAbstractButton*>(box), static_cast<QAbstractButton*>(radio)}) {
            const QImage image = surface.picture(button);
            const QString name = QLatin1String(button->metaObject()->className());
            check(name + QStringLiteral(" label"), state, text(image, QRect(19, 1, 170, 18)), textMinimum(state));
            // The mark on the fill of a checked box.
            if (state != Disabled)
                check(name + QStringLiteral(" mark"), state, symbol(image, QRect(5, 5, 9, 9), QPoint(3, 3)),
                      IconMinimum);
        }
    }

    void windowText(State state)
    {
        Surface surface;
        QLabel* label = new QLabel(QStringLiteral("Would you like to save before closing?"), &surface);
        label->setGeometry(10, 10, 300, 24);
        label->setEnabled(state != Disabled);
        check(QStringLiteral("QLabel"), state, text(surface.picture(label), QRect(0, 0, 300, 24)),
              textMinimum(state));
    }

    void windowButtons(State state)
    {
        VelmoMainTitleBar bar(0, false);
        bar.resize(700, 29);
        bar.show();
        bar.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&bar));
        for (TitleBarButtons* button : {bar.minimizeButton(), bar.maximizeButton(), bar.closeButton()}) {
            button->setAnimator(state == Normal ? 0 : 10);
            button->setDown(state == Pressed);
            const QImage image = bar.grab(button->geometry()).toImage().convertToFormat(QImage::Format_RGB32);
            check(QStringLiteral("window button ") + button->toolTip(), state,
                  symbol(image, QRect(1, 1, button->width() - 2, button->height() - 2)), IconMinimum);
        }
    }

    void dialogTitle(bool active)
    {
        CustomTitleBar bar;
        bar.setTitle(QStringLiteral("Save Confirmation"));
        bar.resize(300, 30);
        bar.show();
        bar.setActive(active);
        QCoreApplication::processEvents();
        const QImage image = bar.grab().toImage().convertToFormat(QImage::Format_RGB32);
        QLabel* title = bar.findChild<QLabel*>(QStringLiteral("title"));
        QVERIFY(title);
        const QRect label = title->geometry().intersected(QRect(QPoint(0, 0), bar.size()));
        check(QStringLiteral("dialog title") + (active ? QString() : QStringLiteral(" (inactive)")), Normal,
              text(image, QRect(1, 2, label.right() + 1, 26)), TextMinimum);
        TitleBarButtons* close = bar.closeButton();
        for (const State state : {Normal, Hover, Pressed}) {
            close->setAnimator(state == Normal ? 0 : 10);
            close->setDown(state == Pressed);
            const QRect area = close->geometry().translated(close->parentWidget()->mapTo(&bar, QPoint(0, 0)));
            const QImage shot = bar.grab(area).toImage().convertToFormat(QImage::Format_RGB32);
            check(QStringLiteral("dialog close button") + (active ? QString() : QStringLiteral(" (inactive)")), state,
                  symbol(shot, QRect(1, 1, area.width() - 2, area.height() - 2)), IconMinimum);
        }
    }

    void listRows()
    {
        UltimateTreeWidget list;
        list.resize(300, 220);
        list.tree()->startView();
        list.tree()->setColumnCount(1);
        list.tree()->setColumnWidth(0, 280);
        list.tree()->setColumnTitle(0, QStringLiteral("Name"));
        list.addHeader();
        for (const char* name : {"Map HUD", "Battle HUD", "Gauge", "Window"}) {
            UltimateTreeItem* row = new UltimateTreeItem();
            row->setText(0, QLatin1String(name));
            list.tree()->addRow(row);
        }
        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        list.tree()->setFocus();
        list.tree()->setCurrentRow(list.tree()->row(2));
        QTest::mouseMove(list.tree()->viewport(), QPoint(40, list.tree()->row(1)->y() + 10));
        QTest::qWait(400);
        const QImage image = list.tree()->viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QImage header = list.headerWidget()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        check(QStringLiteral("list header"), Normal, text(header, QRect(3, 3, 200, header.height() - 5)),
              TextMinimum);
        const char* const looks[] = {"first stripe", "hovered", "selected", "second stripe"};
        for (int i = 0; i < 4; ++i) {
            UltimateTreeItem* row = list.tree()->row(i);
            const QRect area(4, int(row->y()) + 3, 200, row->rowHeight() - 6);
            check(QStringLiteral("list row, ") + QLatin1String(looks[i]), i == 1 ? Hover : i == 2 ? Pressed : Normal,
                  text(image, area), TextMinimum);
        }
    }

    void panels(State state)
    {
        Surface surface;
        MyGroupBox* group = new MyGroupBox(QStringLiteral("Save Confirmation"), &surface);
        group->setGeometry(10, 10, 300, 80);
        group->setEnabled(state != Disabled);
        QLabel* inside = new QLabel(QStringLiteral("Would you like to save before closing?"), group);
        inside->setGeometry(10, MyGroupBox::TitleHeight + 10, 280, 24);
        const QImage picture = surface.picture(group);
        check(QStringLiteral("MyGroupBox title"), state, text(picture, QRect(3, 2, 250, MyGroupBox::TitleHeight - 4)),
              textMinimum(state));
        check(QStringLiteral("QLabel in MyGroupBox"), state, text(picture, inside->geometry()), textMinimum(state));

        InflateLabel* label = new InflateLabel(QStringLiteral("Save Project"), &surface);
        label->setGeometry(10, 100, 200, 24);
        label->setTransfer(1000);
        label->setHover(state == Hover ? 1000 : 0);
        label->setEnabled(state != Disabled);
        check(QStringLiteral("InflateLabel"), state, text(surface.picture(label), QRect(0, 0, 200, 24)),
              textMinimum(state));
    }

    void tabs(State state)
    {
        Surface surface;
        MyTabSystemHeader* header = new MyTabSystemHeader(&surface);
        header->addTab(QStringLiteral("Value"));
        header->addTab(QStringLiteral("Map HUD"));
        header->setGeometry(10, 10, 400, MyTabSystemHeader::RowHeight);
        header->setEnabled(state != Disabled);
        header->tab(0)->setSelected(true, true);
        header->tab(1)->setHoverState(state == Hover ? 50 : 0);
        const QImage image = surface.picture(header);
        for (int i = 0; i < 2; ++i) {
            const QRect area = header->tabRect(i).adjusted(3, 3, -3, -4);
            check(i == 0 ? QStringLiteral("tab, selected") : QStringLiteral("tab"), state, text(image, area),
                  textMinimum(state));
        }
    }

    void menu()
    {
        QMenu menu;
        menu.addAction(QStringLiteral("Copy"));
        QAction* selected = menu.addAction(QStringLiteral("Paste"));
        menu.addAction(QStringLiteral("Delete"))->setEnabled(false);
        menu.popup(QPoint(100, 100));
        QVERIFY(QTest::qWaitForWindowExposed(&menu));
        menu.setActiveAction(selected);
        QCoreApplication::processEvents();
        const QImage image = menu.grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QList<QAction*> actions = menu.actions();
        for (int i = 0; i < actions.size(); ++i) {
            const QRect item = menu.actionGeometry(actions.at(i));
            const State state = i == 1 ? Hover : actions.at(i)->isEnabled() ? Normal : Disabled;
            check(QStringLiteral("menu entry"), state, text(image, item.adjusted(3, 2, -3, -2)), textMinimum(state));
        }
        menu.close();
    }

    void tips()
    {
        QWidget owner;
        owner.resize(100, 40);
        owner.show();
        UltimateToolTip* tip = UltimateToolTip::showFor(&owner, QStringLiteral("Open Project"),
                                                        QStringLiteral("Opens a project folder."), QPoint(50, 50));
        QVERIFY(tip);
        QTest::qWait(200);
        const QImage image = tip->grab().toImage().convertToFormat(QImage::Format_RGB32);
        // Inside the grey frame, which stands in a shadow: the title bar in
        // the upper part, the description below it.
        QRect frame;
        const QRgb grey = qRgb(0x66, 0x66, 0x66);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) == grey)
                    frame |= QRect(x, y, 1, 1);
        QVERIFY(frame.height() > 20);
        const QRect inside = frame.adjusted(2, 2, -2, -2);
        const int middle = inside.top() + inside.height() * 2 / 5;
        check(QStringLiteral("tool-tip title"), Normal,
              text(image, QRect(inside.left(), inside.top(), inside.width(), middle - inside.top() - 2)), TextMinimum);
        check(QStringLiteral("tool-tip text"), Normal,
              text(image, QRect(inside.left(), middle + 4, inside.width(), inside.bottom() - middle - 4)), TextMinimum);
        tip->hide();
        tip->deleteLater();

        // The system's tool-tips (menu entries, plain widgets) draw with the
        // palette's tool-tip pair.
        const QPalette palette = QApplication::palette();
        const QRgb ink = palette.color(QPalette::ToolTipText).rgb();
        const QRgb ground = palette.color(QPalette::ToolTipBase).rgb();
        check(QStringLiteral("system tool-tip"), Normal, Pair{contrast(ink, ground), ink, ground}, TextMinimum);
    }

    void popupRows()
    {
        MyComboBox owner;
        owner.resize(270, 46);
        MyPopup popup(&owner, {QStringLiteral("Map HUD"), QStringLiteral("Battle HUD")}, 0, 0);
        popup.resize(270, 2 * MyPopup::RowHeight);
        popup.setHighlightState(50);
        const QImage image = popup.grab().toImage().convertToFormat(QImage::Format_RGB32);
        check(QStringLiteral("drop-down row, highlighted"), Hover, text(image, QRect(6, 2, 200, 20)), TextMinimum);
        check(QStringLiteral("drop-down row"), Normal, text(image, QRect(6, 26, 200, 20)), TextMinimum);
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
        QTest::newRow("Red Tint") << QStringLiteral("Red Tint");
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
        report.clear();
        for (const State state : {Normal, Hover, Pressed, Disabled}) {
            fields(state);
            buttons(state);
            toggles(state);
            if (state != Pressed)
                windowText(state);
            if (state != Disabled)
                windowButtons(state);
            if (state != Pressed) {
                panels(state);
                tabs(state);
            }
        }
        menu();
        tips();
        errors();
        dialogTitle(true);
        dialogTitle(false);
        listRows();
        popupRows();
        // VELMORA_CONTRAST_REPORT prints every pair measured, for a person
        // who tunes a theme.
        if (qEnvironmentVariableIsSet("VELMORA_CONTRAST_REPORT"))
            qInfo().noquote() << report.join(QLatin1Char('\n'));
        QVERIFY2(failures.isEmpty(), qPrintable(QLatin1Char('\n') + failures.join(QLatin1Char('\n'))));
    }
};

VELMORA_TEST_MAIN(TestContrast, QApplication)
#include "tst_contrast.moc"
