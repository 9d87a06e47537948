#include "TestEnvironment.h"

#include "app/PathManager.h"
#include "theme/ThemeManager.h"
#include "widgets/BasicFontSelector.h"
#include "widgets/BasicImageSelector.h"
#include "widgets/EasingCurveSelector.h"
#include "widgets/MyColorPickerButton.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QColorDialog>
#include <QDesktopServices>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>
#include <QVBoxLayout>

using TestEnvironment::answering;
using TestEnvironment::press;

namespace {

// Every row, folders opened, with its path as a user reads it: a child as
// "parent/child".
QList<QPair<QString, UltimateTreeItem*>> rows(UltimateTreeWidget* list)
{
    QList<QPair<QString, UltimateTreeItem*>> all;
    std::function<void(UltimateTreeItem*, const QString&)> add = [&](UltimateTreeItem* row, const QString& prefix) {
        all.append({prefix + row->text(0), row});
        for (int i = 0; i < row->childCount(); ++i)
            add(row->child(i), prefix + row->text(0) + QLatin1Char('/'));
    };
    for (int i = 0; i < list->tree()->rowCount(); ++i)
        add(list->tree()->row(i), QString());
    return all;
}

template <typename S> QStringList texts(S* selector)
{
    QStringList all;
    for (const auto& row : rows(selector->list()))
        all.append(row.first);
    return all;
}

template <typename S> QString currentText(S* selector)
{
    return selector->list()->tree()->currentRow()->text(0);
}

// Clicks (or double-clicks) the middle of the row with this text, at any depth.
template <typename S> void clickRow(S* selector, const char* text, bool twice = false)
{
    UltimateTreeWidget* list = selector->list();
    UltimateTreeItem* row = nullptr;
    for (const auto& each : rows(list))
        row = each.second->text(0) == QLatin1String(text) ? each.second : row;
    QVERIFY2(row, text);
    list->ensureRowVisible(row);
    const QPoint at = list->tree()->mapFromScene(QPointF(60, row->y() + row->rowHeight() / 2.0));
    if (twice)
        QTest::mouseDClick(list->tree()->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    else
        QTest::mouseClick(list->tree()->viewport(), Qt::LeftButton, Qt::NoModifier, at);
}

// An answer that waits for its dialog to show (opened rows glide to their
// places) and closes it when a failed check ends it early, so that a failure
// never leaves a modal dialog waiting for ever.
template <typename D = TrovDialog, typename F> TestEnvironment::Answer on(F body)
{
    return [body](TrovDialog* dialog) {
        QPointer<TrovDialog> guard(dialog);
        [&] {
            QVERIFY(QTest::qWaitForWindowExposed(dialog));
            QTest::qWait(150);
            body(qobject_cast<D*>(dialog));
        }();
        if (guard && guard->isVisible())
            guard->reject();
    };
}

// Runs a selector dialog on the value, answered by body.
template <typename D, typename V, typename F, typename... More> void run(V* value, bool* accepted, F body, More... more)
{
    answering([&] { D(value, accepted, more...).exec(); }, {on<D>(body)});
}

// Types a colour into the hexadecimal field of Qt's colour dialog (the one
// line edit that isn't part of a spin box), replacing what stands there.
QLineEdit* typeColor(QWidget* dialog, const QString& text)
{
    for (QLineEdit* field : dialog->findChild<QColorDialog*>()->findChildren<QLineEdit*>()) {
        if (qobject_cast<QAbstractSpinBox*>(field->parentWidget()))
            continue;
        QTest::mouseClick(field, Qt::LeftButton);
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(field, text);
        return field;
    }
    return nullptr;
}

TestEnvironment::Answer typeAndConfirm(const QString& text)
{
    return on([text](TrovDialog* dialog) {
        typeColor(dialog, text);
        press("confirmButton")(dialog);
    });
}

// Opens the field's edit menu as a right click does and clicks "Insert
// Color", inside an event loop as the program's clicks run: the menu deletes
// itself after the click, once the picker the click opened has ended.
void insertColorFromMenu(QWidget* target)
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&]() {
        const QPoint at(10, 10);
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, target->mapToGlobal(at));
        QApplication::sendEvent(target, &event);
        if (QMenu* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            for (QAction* action : menu->actions()) {
                if (action->text() == QLatin1String("Insert Color"))
                    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(action).center());
            }
        }
        loop.quit();
    });
    loop.exec();
}

// A dialog of the program that holds the field under test, shown and active.
struct Host {
    TrovDialog dialog;
    template <typename W> W* add(W* widget)
    {
        (new QVBoxLayout(&dialog))->addWidget(widget);
        dialog.resize(360, 260);
        dialog.show();
        QApplication::setActiveWindow(&dialog);
        [&] { QVERIFY(QTest::qWaitForWindowActive(&dialog)); }();
        return widget;
    }
};

void writePng(const QString& path, int width, int height)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(qRgb(200, 40, 40));
    QVERIFY(image.save(path));
}

// Catches what "Show in Explorer" asks the desktop to open.
class UrlCatcher : public QObject
{
    Q_OBJECT
public:
    QList<QUrl> opened;
public slots:
    void open(const QUrl& url) { opened.append(url); }
};

}

class TestPickers : public QObject
{
    Q_OBJECT

    QString pictures;
    QString fonts;
    UrlCatcher catcher;

private slots:
    void initTestCase()
    {
        // Converted web fonts go to a cache beside the executable; here that
        // is a folder of the test's own.
        PathManager::setExecutableFolder(TestEnvironment::newFolder(QStringLiteral("program")));
        BasicFontSelector::setFontLoader([](const QString& fileName, const QDir& folder) {
            PathManager::getFont(fileName, folder, false);
            return PathManager::loadedFontFamily(fileName);
        });
        QDesktopServices::setUrlHandler(QStringLiteral("file"), &catcher, "open");

        // Pictures in nested folders, beside an empty folder, a folder of
        // other files and a file that isn't an image at all.
        pictures = TestEnvironment::newFolder(QStringLiteral("project/img/pictures"));
        writePng(pictures + QStringLiteral("/Coin.png"), 24, 24);
        writePng(pictures + QStringLiteral("/Back.png"), 200, 100);
        writePng(pictures + QStringLiteral("/Bars/Hp.png"), 120, 12);
        writePng(pictures + QStringLiteral("/Bars/Deep/Mp.png"), 40, 10);
        QDir().mkpath(pictures + QStringLiteral("/Empty/Emptier"));
        TestEnvironment::writeFile(pictures + QStringLiteral("/Notes/readme.txt"), "not a picture");
        TestEnvironment::writeFile(pictures + QStringLiteral("/Torn.png"), "\x89PNG torn off");
        // A link that leads back to the folder itself.
        QVERIFY(QFile::link(pictures, pictures + QStringLiteral("/Bars/Loop")));

        // The sample project's fonts (a TTF, a WOFF and a WOFF2), one that is
        // damaged, one in a sub-folder, an empty folder and a text file.
        fonts = TestEnvironment::newFolder(QStringLiteral("project/fonts"));
        TestEnvironment::copyTree(QStringLiteral(VELMORA_SAMPLE_PROJECT "/fonts"), fonts);
        TestEnvironment::writeFile(fonts + QStringLiteral("/Broken.ttf"), QByteArray(600, 'x'));
        TestEnvironment::writeFile(fonts + QStringLiteral("/Extra/Nested.ttf"),
                                   TestEnvironment::readFile(fonts + QStringLiteral("/DejaVuSans.ttf")));
        QDir().mkpath(fonts + QStringLiteral("/Unused"));
    }

    void init()
    {
        Theme::installDefault();
        Theme::refreshCachedColors();
        TestEnvironment::quietDialogs();
        catcher.opened.clear();
    }

    void cleanupTestCase() { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    // Values out of the table show nothing rather than a neighbour's name;
    // every value in it comes back as it went in when just confirmed.
    void easingValuesRoundTrip()
    {
        QCOMPARE(EasingCurveSelector::display(-4), QStringLiteral("Linear"));
        QCOMPARE(EasingCurveSelector::display(31), QString());
        for (int start : {0, 17, 30}) {
            int value = start;
            bool accepted = false;
            answering([&] { EasingCurveSelector(&value, &accepted).exec(); }, {press("confirmButton")});
            QVERIFY2(accepted, qPrintable(QString::number(start)));
            QCOMPARE(value, start);
        }
    }

    void easingChosenWithListAndCombo()
    {
        int value = 0;
        bool accepted = false;
        run<EasingCurveSelector>(&value, &accepted, [](EasingCurveSelector* selector) {
            MyComboBox* type = selector->easingType();
            clickRow(selector, "Cubic");
            QTest::mouseClick(type, Qt::LeftButton);
            QTRY_VERIFY(type->popup());
            QTest::keyClick(type->popup(), Qt::Key_Down);
            QTest::keyClick(type->popup(), Qt::Key_Return);
            QTest::keyClick(selector, Qt::Key_Return, Qt::ControlModifier);
        });
        QVERIFY(accepted);
        QCOMPARE(EasingCurveSelector::display(value), QStringLiteral("Cubic Ease-Out"));

        // Back to linear by a double click on its row, whatever the direction.
        run<EasingCurveSelector>(&value, &accepted, [](EasingCurveSelector* s) { clickRow(s, "Linear", true); });
        QCOMPARE(value, 0);
    }

    // A colour typed in capitals ends up as the same JSON string as the
    // same colour typed in small letters; Return in the field confirms.
    // Escape in Qt's own fields closes the whole picker and changes nothing.
    void colorPicker()
    {
        Host host;
        MyColorPickerButton* field = host.add(new MyColorPickerButton);
        answering([&] { QTest::mouseClick(field, Qt::LeftButton); }, {typeAndConfirm(QStringLiteral("#FF0000"))});
        QCOMPARE(field->color().name(), QStringLiteral("#ff0000"));
        answering([&] { QTest::mouseClick(field, Qt::LeftButton); }, {on([](TrovDialog* dialog) {
                      QTest::keyClick(typeColor(dialog, QStringLiteral("#336699")), Qt::Key_Return);
                  })});
        QCOMPARE(field->color().name(), QStringLiteral("#336699"));

        QSignalSpy changed(field, &MyColorPickerButton::colorChanged);
        answering([&] { QTest::mouseClick(field, Qt::LeftButton); }, {on([](TrovDialog* dialog) {
                      QTest::keyClick(typeColor(dialog, QStringLiteral("#654321")), Qt::Key_Escape);
                      QVERIFY(!dialog->isVisible());
                  })});
        QCOMPARE(field->color().name(), QStringLiteral("#336699"));
        QCOMPARE(changed.count(), 0);
    }

    // "Insert Color" of a line edit puts the field's whole text and then
    // the colour at the cursor, as the field always did.
    void insertColor()
    {
        Host host;
        MyLineEdit* edit = host.add(new MyLineEdit);
        edit->setInputType(MyLineEdit::Text);
        edit->setColorInsertion(true);
        edit->setValue(QStringLiteral("xy"));
        edit->setFocus();
        edit->setCursorPosition(1);
        answering([&] { insertColorFromMenu(edit); }, {typeAndConfirm(QStringLiteral("#00ff00"))});
        QCOMPARE(edit->text(), QStringLiteral("xxy#00ff00y"));
    }

    void imageTreeOfTheProject()
    {
        QString image = QStringLiteral("Bars/Deep/Mp");
        bool accepted = false;
        run<BasicImageSelector>(&image, &accepted, [](BasicImageSelector* selector) {
            // "None" first, then the files, then the folders that hold
            // pictures; no row for the empty folder, the folder without
            // pictures or the link back up.
            QCOMPARE(texts(selector),
                     QStringList({QStringLiteral("None"), QStringLiteral("Back"), QStringLiteral("Coin"),
                                  QStringLiteral("Torn"), QStringLiteral("Bars"), QStringLiteral("Bars/Hp"),
                                  QStringLiteral("Bars/Deep"), QStringLiteral("Bars/Deep/Mp")}));
            QCOMPARE(currentText(selector), QStringLiteral("Mp"));
            // A folder is no choice.
            clickRow(selector, "Bars");
            QVERIFY(!selector->findChild<QPushButton*>(QStringLiteral("confirmButton"))->isEnabled());
            // A file that isn't a picture says so.
            clickRow(selector, "Torn");
            QCOMPARE(selector->previewLabel()->text(), QStringLiteral("This image can't be read."));
            // "Show in Explorer" opens the folder of the chosen picture.
            clickRow(selector, "Mp");
            press("showInExplorer")(selector);
            clickRow(selector, "Hp", true);
        }, pictures);
        QVERIFY(accepted);
        QCOMPARE(image, QStringLiteral("Bars/Hp"));
        QCOMPARE(catcher.opened.size(), 1);
        QCOMPARE(catcher.opened.first().toLocalFile(), pictures + QStringLiteral("/Bars/Deep"));

        // "None" is the empty value.
        run<BasicImageSelector>(&image, &accepted, [](BasicImageSelector* selector) {
            clickRow(selector, "None");
            press("confirmButton")(selector);
        }, pictures);
        QVERIFY(accepted);
        QCOMPARE(image, QString(QStringLiteral("")));
    }

    void fontListAndPreview()
    {
        QString font = QStringLiteral("DejaVuSerif-Latin.woff");
        bool accepted = false;
        run<BasicFontSelector>(&font, &accepted, [](BasicFontSelector* selector) {
            QCOMPARE(texts(selector),
                     QStringList({QStringLiteral("(Default)"), QStringLiteral("Broken"), QStringLiteral("DejaVuSans"),
                                  QStringLiteral("DejaVuSansMono-Latin"), QStringLiteral("DejaVuSerif-Latin"),
                                  QStringLiteral("Extra"), QStringLiteral("Extra/Nested")}));
            QCOMPARE(currentText(selector), QStringLiteral("DejaVuSerif-Latin"));
            // Each font in its own face, web fonts included.
            QCOMPARE(selector->familyOf(QStringLiteral("DejaVuSansMono-Latin.woff2")), QStringLiteral("DejaVu Sans Mono"));
            QVERIFY(selector->familyOf(QStringLiteral("Broken.ttf")).isEmpty());
            // A damaged file is listed and says it can't be read.
            clickRow(selector, "Broken");
            QCOMPARE(selector->previewLabel()->text(), QStringLiteral("This font file can't be read."));
            // The arrow keys walk the list; Ctrl+Return confirms.
            clickRow(selector, "DejaVuSans");
            QTest::keyClick(selector->list()->tree(), Qt::Key_Down);
            QTest::keyClick(selector, Qt::Key_Return, Qt::ControlModifier);
        }, fonts);
        QVERIFY(accepted);
        QCOMPARE(font, QStringLiteral("DejaVuSansMono-Latin.woff2"));

        // A double click opens a folder rather than choosing it.
        run<BasicFontSelector>(&font, &accepted, [](BasicFontSelector* selector) {
            clickRow(selector, "Extra", true);
            QTest::qWait(150);
            clickRow(selector, "Nested", true);
        }, fonts);
        QCOMPARE(font, QStringLiteral("Extra/Nested.ttf"));
    }
};

VELMORA_TEST_MAIN(TestPickers, QApplication)
#include "tst_pickers.moc"
