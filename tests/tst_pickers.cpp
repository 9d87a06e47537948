#include "TestEnvironment.h"

#include "app/PathManager.h"
#include "theme/ThemeManager.h"
#include "widgets/BasicFontSelector.h"
#include "widgets/BasicImageSelector.h"
#include "widgets/DialogFlags.h"
#include "widgets/DialogOverlay.h"
#include "widgets/EasingCurveSelector.h"
#include "widgets/MyColorPicker.h"
#include "widgets/MyColorPickerButton.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyImageSelector.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPlainTextEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/MySlider.h"
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
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTextCursor>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

using TestEnvironment::Answer;
using TestEnvironment::Seen;
using TestEnvironment::answering;
using TestEnvironment::press;

namespace {

// The point in the middle of a row's text, in its tree's viewport.
QPoint pointOf(UltimateTreeWidget* list, UltimateTreeItem* row)
{
    list->ensureRowVisible(row);
    return list->tree()->mapFromScene(QPointF(60, row->y() + row->rowHeight() / 2.0));
}

void clickRow(UltimateTreeWidget* list, UltimateTreeItem* row)
{
    QTest::mouseClick(list->tree()->viewport(), Qt::LeftButton, Qt::NoModifier, pointOf(list, row));
}

void doubleClickRow(UltimateTreeWidget* list, UltimateTreeItem* row)
{
    QTest::mouseDClick(list->tree()->viewport(), Qt::LeftButton, Qt::NoModifier, pointOf(list, row));
}

// The row with this text, at any depth.
UltimateTreeItem* findRow(UltimateTreeItem* row, const QString& text)
{
    if (row->text(0) == text)
        return row;
    for (int i = 0; i < row->childCount(); ++i) {
        if (UltimateTreeItem* found = findRow(row->child(i), text))
            return found;
    }
    return nullptr;
}

UltimateTreeItem* rowNamed(UltimateTreeWidget* list, const QString& text)
{
    for (int i = 0; i < list->tree()->rowCount(); ++i) {
        if (UltimateTreeItem* found = findRow(list->tree()->row(i), text))
            return found;
    }
    return nullptr;
}

// The list as a user reads it, folders opened: a child as "parent/child".
void collectTexts(UltimateTreeItem* row, const QString& prefix, QStringList& texts)
{
    texts.append(prefix + row->text(0));
    for (int i = 0; i < row->childCount(); ++i)
        collectTexts(row->child(i), prefix + row->text(0) + QLatin1Char('/'), texts);
}

QStringList texts(UltimateTreeWidget* list)
{
    QStringList all;
    for (int i = 0; i < list->tree()->rowCount(); ++i)
        collectTexts(list->tree()->row(i), QString(), all);
    return all;
}

QPushButton* button(QWidget* dialog, const char* name)
{
    return dialog->findChild<QPushButton*>(QLatin1String(name));
}

void settle(QWidget* dialog)
{
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
    // Rows that were opened glide to their places.
    QTest::qWait(150);
}

// The hexadecimal field of Qt's colour dialog: the one line edit that isn't
// part of a spin box.
QLineEdit* hexField(QWidget* dialog)
{
    const auto picker = dialog->findChild<QColorDialog*>();
    for (QLineEdit* edit : picker->findChildren<QLineEdit*>()) {
        if (!qobject_cast<QAbstractSpinBox*>(edit->parentWidget()))
            return edit;
    }
    return nullptr;
}

// An answer that closes its dialog when a failed check ends it early, so
// that a failure never leaves a modal dialog waiting for ever.
Answer act(const std::function<void(TrovDialog*)>& body)
{
    return [body](TrovDialog* dialog) {
        QPointer<TrovDialog> guard(dialog);
        body(dialog);
        if (guard && guard->isVisible())
            guard->reject();
    };
}

// Types a colour into the picker's hexadecimal field, replacing what stands there.
void typeColor(QWidget* dialog, const QString& text)
{
    QLineEdit* field = hexField(dialog);
    QVERIFY(field);
    QTest::mouseClick(field, Qt::LeftButton);
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, text);
}

Answer typeAndConfirm(const QString& text)
{
    return act([text](TrovDialog* dialog) {
        settle(dialog);
        typeColor(dialog, text);
        QTest::mouseClick(button(dialog, "confirmButton"), Qt::LeftButton);
    });
}

// Clicks the middle of the swatch of a colour among the picker's basic
// colours, found by looking at the swatches as drawn.
void clickSwatch(QWidget* dialog, QRgb color)
{
    for (QWidget* well : dialog->findChild<QColorDialog*>()->findChildren<QWidget*>()) {
        if (!QByteArray(well->metaObject()->className()).contains("Well") || !well->isVisible())
            continue;
        const QImage drawn = well->grab().toImage();
        QRect found;
        for (int y = 0; y < drawn.height(); ++y) {
            for (int x = 0; x < drawn.width(); ++x) {
                if ((drawn.pixel(x, y) & 0xffffff) == (color & 0xffffff))
                    found |= QRect(x, y, 1, 1);
            }
        }
        if (found.isEmpty())
            continue;
        const QPoint centre = found.center() * (double(well->width()) / drawn.width());
        QTest::mouseClick(well, Qt::LeftButton, Qt::NoModifier, centre);
        return;
    }
    QFAIL("no swatch of the colour");
}

// A dialog of the program that holds the fields under test, shown and active.
struct Host {
    TrovDialog dialog;
    QVBoxLayout* layout;
    Host()
    {
        layout = new QVBoxLayout(&dialog);
        dialog.resize(360, 260);
    }
    void show()
    {
        dialog.show();
        QApplication::setActiveWindow(&dialog);
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
    }
    template <typename W> W* add(W* widget)
    {
        layout->addWidget(widget);
        return widget;
    }
};

void writePng(const QString& path, int width, int height, QRgb color = qRgb(200, 40, 40))
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(color);
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
        dialogOpenAnimated = false;
        dialogDarkenLayers = false;
        dialogDarkenAnimated = false;
        catcher.opened.clear();
    }

    void cleanupTestCase() { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    // Easing curves.

    void easingNames_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("shown");
        QTest::newRow("0") << 0 << QStringLiteral("Linear");
        QTest::newRow("below 0") << -4 << QStringLiteral("Linear");
        QTest::newRow("1") << 1 << QStringLiteral("Quadratic Ease-In");
        QTest::newRow("2") << 2 << QStringLiteral("Quadratic Ease-Out");
        QTest::newRow("3") << 3 << QStringLiteral("Quadratic Ease-In/Out");
        QTest::newRow("4") << 4 << QStringLiteral("Cubic Ease-In");
        QTest::newRow("17") << 17 << QStringLiteral("Circular Ease-Out");
        QTest::newRow("21") << 21 << QStringLiteral("Exponential Ease-In/Out");
        QTest::newRow("25") << 25 << QStringLiteral("Back Ease-In");
        QTest::newRow("30") << 30 << QStringLiteral("Bounce Ease-In/Out");
        QTest::newRow("31") << 31 << QString();
        QTest::newRow("far out") << 1000 << QString();
    }

    void easingNames()
    {
        QFETCH(int, value);
        QFETCH(QString, shown);
        QCOMPARE(EasingCurveSelector::display(value), shown);
    }

    // Every value comes back as it went in when the dialog is just confirmed.
    void easingValuesRoundTrip()
    {
        for (int start = 0; start <= 30; ++start) {
            int value = start;
            bool accepted = false;
            const Seen seen = answering([&] { EasingCurveSelector(&value, &accepted).exec(); },
                                        {press("confirmButton")});
            QCOMPARE(seen.title, QStringLiteral("Easing Curve"));
            QVERIFY2(accepted, qPrintable(QString::number(start)));
            QCOMPARE(value, start);
        }
    }

    void easingChosenWithListAndCombo()
    {
        int value = 0;
        bool accepted = false;
        answering([&] { EasingCurveSelector(&value, &accepted).exec(); },
                  {act([](TrovDialog* dialog) {
                      settle(dialog);
                      auto selector = qobject_cast<EasingCurveSelector*>(dialog);
                      MyComboBox* type = selector->easingType();
                      // Linear has no direction.
                      QVERIFY(!type->isEnabled());
                      clickRow(selector->list(), rowNamed(selector->list(), QStringLiteral("Cubic")));
                      QVERIFY(type->isEnabled());
                      QTest::mouseClick(type, Qt::LeftButton);
                      QTRY_VERIFY(type->popup());
                      QTest::keyClick(type->popup(), Qt::Key_Down);
                      QTest::keyClick(type->popup(), Qt::Key_Return);
                      QCOMPARE(type->currentText(), QStringLiteral("Ease-Out"));
                      QTest::keyClick(dialog, Qt::Key_Return, Qt::ControlModifier);
                  })});
        QVERIFY(accepted);
        QCOMPARE(value, 5);
        QCOMPARE(EasingCurveSelector::display(value), QStringLiteral("Cubic Ease-Out"));

        // Opened on it, the dialog stands on it; the arrow keys walk the
        // kinds, and the direction stays.
        answering([&] { EasingCurveSelector(&value, &accepted).exec(); },
                  {act([](TrovDialog* dialog) {
                      settle(dialog);
                      auto selector = qobject_cast<EasingCurveSelector*>(dialog);
                      QCOMPARE(selector->list()->tree()->currentRow()->text(0), QStringLiteral("Cubic"));
                      QCOMPARE(selector->easingType()->currentText(), QStringLiteral("Ease-Out"));
                      clickRow(selector->list(), rowNamed(selector->list(), QStringLiteral("Cubic")));
                      QTest::keyClick(selector->list()->tree(), Qt::Key_Down);
                      QTest::keyClick(selector->list()->tree(), Qt::Key_Down);
                      QTest::mouseClick(button(dialog, "confirmButton"), Qt::LeftButton);
                  })});
        QCOMPARE(value, 11);
        QCOMPARE(EasingCurveSelector::display(value), QStringLiteral("Quintic Ease-Out"));

        // Back to linear by a double click on its row, whatever the direction.
        answering([&] { EasingCurveSelector(&value, &accepted).exec(); },
                  {act([](TrovDialog* dialog) {
                      settle(dialog);
                      auto selector = qobject_cast<EasingCurveSelector*>(dialog);
                      doubleClickRow(selector->list(), rowNamed(selector->list(), QStringLiteral("Linear")));
                  })});
        QVERIFY(accepted);
        QCOMPARE(value, 0);
    }

    void easingCancelKeepsTheValue()
    {
        int value = 26;
        bool accepted = true;
        answering([&] { EasingCurveSelector(&value, &accepted).exec(); },
                  {act([](TrovDialog* dialog) {
                      settle(dialog);
                      auto selector = qobject_cast<EasingCurveSelector*>(dialog);
                      clickRow(selector->list(), rowNamed(selector->list(), QStringLiteral("Sine")));
                      QTest::mouseClick(button(dialog, "cancelButton"), Qt::LeftButton);
                  })});
        QVERIFY(!accepted);
        QCOMPARE(value, 26);
        answering([&] { EasingCurveSelector(&value, &accepted).exec(); }, {TestEnvironment::closeByFrame()});
        QVERIFY(!accepted);
        QCOMPARE(value, 26);
    }

    // Colours.

    // The same colour picked from the swatches and typed by hand, in capitals
    // or not, ends up as the same JSON string.
    void colorTypedOrPickedIsOneString()
    {
        Host host;
        MyColorPickerButton* field = host.add(new MyColorPickerButton);
        field->setCaption(QStringLiteral("Text Color"));
        field->setColor(QColor(Qt::white));
        QSignalSpy changed(field, &MyColorPickerButton::colorChanged);
        host.show();

        Seen seen = answering([&] { QTest::mouseClick(field, Qt::LeftButton); },
                              {act([](TrovDialog* dialog) {
                                  settle(dialog);
                                  clickSwatch(dialog, qRgb(255, 0, 0));
                                  QTest::mouseClick(button(dialog, "confirmButton"), Qt::LeftButton);
                              })});
        QCOMPARE(seen.title, QStringLiteral("Text Color"));
        const QString picked = field->color().name();
        QCOMPARE(picked, QStringLiteral("#ff0000"));
        QCOMPARE(changed.count(), 1);

        field->setColor(QColor(Qt::white));
        answering([&] { QTest::mouseClick(field, Qt::LeftButton); }, {typeAndConfirm(QStringLiteral("#FF0000"))});
        QCOMPARE(field->color().name(), picked);
        answering([&] { QTest::mouseClick(field, Qt::LeftButton); }, {typeAndConfirm(QStringLiteral("#a87532"))});
        QCOMPARE(field->color().name(), QStringLiteral("#a87532"));
        QCOMPARE(changed.count(), 3);

        // Return in the field confirms, as in every dialog.
        answering([&] { QTest::mouseClick(field, Qt::LeftButton); },
                  {act([](TrovDialog* dialog) {
                      settle(dialog);
                      typeColor(dialog, QStringLiteral("#336699"));
                      QTest::keyClick(hexField(dialog), Qt::Key_Return);
                      QVERIFY(!dialog->isVisible());
                  })});
        QCOMPARE(field->color().name(), QStringLiteral("#336699"));
    }

    void colorCancelChangesNothing()
    {
        Host host;
        MyColorPickerButton* field = host.add(new MyColorPickerButton);
        field->setColor(QColor(QStringLiteral("#a83232")));
        QSignalSpy changed(field, &MyColorPickerButton::colorChanged);
        host.show();

        // The picker opens on the field's colour.
        answering([&] { QTest::mouseClick(field, Qt::LeftButton); },
                  {act([](TrovDialog* dialog) {
                      settle(dialog);
                      QCOMPARE(dialog->findChild<QColorDialog*>()->currentColor().name(), QStringLiteral("#a83232"));
                      typeColor(dialog, QStringLiteral("#123456"));
                      QTest::mouseClick(button(dialog, "cancelButton"), Qt::LeftButton);
                  })});
        // Escape in Qt's own fields closes the whole picker, not just the
        // part inside the frame.
        answering([&] { QTest::mouseClick(field, Qt::LeftButton); },
                  {act([](TrovDialog* dialog) {
                      settle(dialog);
                      typeColor(dialog, QStringLiteral("#654321"));
                      QTest::keyClick(hexField(dialog), Qt::Key_Escape);
                      QVERIFY(!dialog->isVisible());
                  })});
        QCOMPARE(field->color().name(), QStringLiteral("#a83232"));
        QCOMPARE(changed.count(), 0);
    }

    // The field's dialog dims while the picker runs and clears afterwards.
    void colorFieldDimsItsDialog()
    {
        dialogDarkenLayers = true;
        Host host;
        MyColorPickerButton* field = host.add(new MyColorPickerButton);
        host.show();
        bool dimmed = false;
        answering([&] { QTest::mouseClick(field, Qt::LeftButton); },
                  {act([&](TrovDialog* dialog) {
                      dimmed = host.dialog.overlay() && host.dialog.overlay()->isVisible();
                      QTest::mouseClick(button(dialog, "cancelButton"), Qt::LeftButton);
                  })});
        QVERIFY(dimmed);
        QTRY_VERIFY(!host.dialog.overlay());
    }

    // "Insert Color" of a line edit puts the field's whole text and then
    // the colour at the cursor, as the field always did.
    void insertColorInLineEdit()
    {
        Host host;
        MyLineEdit* edit = host.add(new MyLineEdit);
        edit->setInputType(MyLineEdit::Text);
        edit->setColorInsertion(true);
        host.show();
        edit->setValue(QStringLiteral("abc"));
        edit->setFocus();
        edit->setCursorPosition(3);
        const Seen seen = answering([&] { insertColorFromMenu(edit); }, {typeAndConfirm(QStringLiteral("#ff0000"))});
        QCOMPARE(seen.title, QStringLiteral("Insert Color"));
        QCOMPARE(edit->text(), QStringLiteral("abcabc#ff0000"));

        // Cancelled, the text stays.
        answering([&] { insertColorFromMenu(edit); }, {press("cancelButton")});
        QCOMPARE(edit->text(), QStringLiteral("abcabc#ff0000"));

        // Where the cursor stands, not at the end.
        edit->setValue(QStringLiteral("xy"));
        edit->setCursorPosition(1);
        answering([&] { insertColorFromMenu(edit); }, {typeAndConfirm(QStringLiteral("#00ff00"))});
        QCOMPARE(edit->text(), QStringLiteral("xxy#00ff00y"));
    }

    // The text box puts just the colour at its cursor.
    void insertColorInTextBox()
    {
        Host host;
        MyPlainTextEdit* box = host.add(new MyPlainTextEdit);
        host.show();
        box->setPlainText(QStringLiteral("\\C[] and more"));
        box->setFocus();
        QTextCursor cursor = box->textCursor();
        cursor.setPosition(3);
        box->setTextCursor(cursor);
        answering([&] { insertColorFromMenu(box); }, {typeAndConfirm(QStringLiteral("#00FF80"))});
        QCOMPARE(box->toPlainText(), QStringLiteral("\\C[#00ff80] and more"));
    }

    // Images.

    void imageTreeOfTheProject()
    {
        QString image = QStringLiteral("Bars/Deep/Mp");
        bool accepted = false;
        answering([&] { BasicImageSelector(&image, &accepted, pictures).exec(); },
                  {act([this](TrovDialog* dialog) {
                      settle(dialog);
                      auto selector = qobject_cast<BasicImageSelector*>(dialog);
                      QCOMPARE(dialog->windowTitle(), QStringLiteral("Image Selector"));
                      // "None" first, then the files, then the folders that
                      // hold pictures; no row for the empty folder, the
                      // folder without pictures or the link back up.
                      QCOMPARE(texts(selector->list()),
                               QStringList({QStringLiteral("None"), QStringLiteral("Back"), QStringLiteral("Coin"),
                                            QStringLiteral("Torn"), QStringLiteral("Bars"), QStringLiteral("Bars/Hp"),
                                            QStringLiteral("Bars/Deep"), QStringLiteral("Bars/Deep/Mp")}));
                      // The current picture is chosen, its folders open.
                      UltimateTreeItem* current = selector->list()->tree()->currentRow();
                      QCOMPARE(current->text(0), QStringLiteral("Mp"));
                      QVERIFY(current->parentItem()->isExpanded());
                      QVERIFY(current->parentItem()->parentItem()->isExpanded());
                      QCOMPARE(selector->previewLabel()->pixmap(Qt::ReturnByValue).size(), QSize(40, 10));

                      // Another picture: the preview follows, and grows with the zoom.
                      clickRow(selector->list(), rowNamed(selector->list(), QStringLiteral("Back")));
                      QCOMPARE(selector->previewLabel()->pixmap(Qt::ReturnByValue).size(), QSize(200, 100));
                      MySlider* zoom = selector->zoomSlider();
                      QTest::mouseClick(zoom, Qt::LeftButton, Qt::NoModifier, QPoint(zoom->width() - 4, 30));
                      QTRY_COMPARE(zoom->value(), zoom->maximum());
                      QTRY_VERIFY(selector->previewLabel()->pixmap(Qt::ReturnByValue).width() > 200 * 4);
                      QCOMPARE(selector->previewLabel()->pixmap(Qt::ReturnByValue).width(), int(200 * selector->zoom()));

                      // A folder is no choice; "None" empties the preview.
                      clickRow(selector->list(), rowNamed(selector->list(), QStringLiteral("Bars")));
                      QVERIFY(!button(dialog, "confirmButton")->isEnabled());
                      clickRow(selector->list(), rowNamed(selector->list(), QStringLiteral("None")));
                      QVERIFY(button(dialog, "confirmButton")->isEnabled());
                      QVERIFY(selector->previewLabel()->pixmap(Qt::ReturnByValue).isNull());

                      // A file that isn't a picture says so.
                      clickRow(selector->list(), rowNamed(selector->list(), QStringLiteral("Torn")));
                      QCOMPARE(selector->previewLabel()->text(), QStringLiteral("This image can't be read."));

                      doubleClickRow(selector->list(), rowNamed(selector->list(), QStringLiteral("Hp")));
                  })});
        QVERIFY(accepted);
        QCOMPARE(image, QStringLiteral("Bars/Hp"));

        // "None" is the empty value.
        answering([&] { BasicImageSelector(&image, &accepted, pictures).exec(); },
                  {act([](TrovDialog* dialog) {
                      settle(dialog);
                      auto selector = qobject_cast<BasicImageSelector*>(dialog);
                      QCOMPARE(selector->list()->tree()->currentRow()->text(0), QStringLiteral("Hp"));
                      clickRow(selector->list(), rowNamed(selector->list(), QStringLiteral("None")));
                      QTest::mouseClick(button(dialog, "confirmButton"), Qt::LeftButton);
                  })});
        QVERIFY(accepted);
        QCOMPARE(image, QString(QStringLiteral("")));
        QVERIFY(!image.isNull());
    }

    void imageCancelAndMissingPicture()
    {
        // A value whose file is gone opens on "None"; cancelled, it stays.
        QString image = QStringLiteral("Gone");
        bool accepted = true;
        answering([&] { BasicImageSelector(&image, &accepted, pictures).exec(); },
                  {act([](TrovDialog* dialog) {
                      settle(dialog);
                      auto selector = qobject_cast<BasicImageSelector*>(dialog);
                      QCOMPARE(selector->list()->tree()->currentRow()->text(0), QStringLiteral("None"));
                      clickRow(selector->list(), rowNamed(selector->list(), QStringLiteral("Coin")));
                      QTest::mouseClick(button(dialog, "cancelButton"), Qt::LeftButton);
                  })});
        QVERIFY(!accepted);
        QCOMPARE(image, QStringLiteral("Gone"));
    }

    void showInExplorer()
    {
        // The folder of the chosen picture opens.
        QString image = QStringLiteral("Bars/Deep/Mp");
        bool accepted = false;
        answering([&] { BasicImageSelector(&image, &accepted, pictures).exec(); },
                  {act([](TrovDialog* dialog) {
                      settle(dialog);
                      QTest::mouseClick(button(dialog, "showInExplorer"), Qt::LeftButton);
                      QTest::mouseClick(button(dialog, "cancelButton"), Qt::LeftButton);
                  })});
        QCOMPARE(catcher.opened.size(), 1);
        QCOMPARE(catcher.opened.first().toLocalFile(), pictures + QStringLiteral("/Bars/Deep"));

        // A project without the folder lists only "None" and says that the
        // folder isn't there.
        const QString missing = TestEnvironment::home() + QStringLiteral("/nowhere/img/pictures");
        Seen alert;
        answering([&] { BasicImageSelector(&image, &accepted, missing).exec(); },
                  {act([&alert](TrovDialog* dialog) {
                      settle(dialog);
                      auto selector = qobject_cast<BasicImageSelector*>(dialog);
                      QCOMPARE(texts(selector->list()), QStringList({QStringLiteral("None")}));
                      alert = answering([&] { QTest::mouseClick(button(dialog, "showInExplorer"), Qt::LeftButton); },
                                        {press("okButton")});
                      QTest::mouseClick(button(dialog, "cancelButton"), Qt::LeftButton);
                  })});
        QCOMPARE(alert.title, QStringLiteral("Explorer Error"));
        QCOMPARE(alert.text, QStringLiteral("Target directory does not exist!"));
        QCOMPARE(catcher.opened.size(), 1);
        QCOMPARE(image, QStringLiteral("Bars/Deep/Mp"));
    }

    void imageField()
    {
        Host host;
        MyImageSelector* field = host.add(new MyImageSelector);
        field->setCaption(QStringLiteral("Window Skin"));
        field->setFolder(pictures);
        field->setImage(QStringLiteral("Bars/Hp"));
        QSignalSpy changed(field, &MyImageSelector::imageChanged);
        host.show();
        QCOMPARE(field->thumbnail().size(), QSize(120, 12));

        // Cancelled: nothing changes.
        answering([&] { QTest::mouseClick(field, Qt::LeftButton); },
                  {act([](TrovDialog* dialog) {
                      settle(dialog);
                      auto selector = qobject_cast<BasicImageSelector*>(dialog);
                      QCOMPARE(selector->list()->tree()->currentRow()->text(0), QStringLiteral("Hp"));
                      clickRow(selector->list(), rowNamed(selector->list(), QStringLiteral("Coin")));
                      QTest::mouseClick(button(dialog, "cancelButton"), Qt::LeftButton);
                  })});
        QCOMPARE(field->image(), QStringLiteral("Bars/Hp"));
        QCOMPARE(changed.count(), 0);

        answering([&] { QTest::mouseClick(field, Qt::LeftButton); },
                  {act([](TrovDialog* dialog) {
                      settle(dialog);
                      auto selector = qobject_cast<BasicImageSelector*>(dialog);
                      clickRow(selector->list(), rowNamed(selector->list(), QStringLiteral("Back")));
                      QTest::keyClick(dialog, Qt::Key_Return, Qt::ControlModifier);
                  })});
        QCOMPARE(field->image(), QStringLiteral("Back"));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(field->thumbnail().size(), QSize(200, 100));

        // A sheet of four frames steps through them and starts again.
        field->setFrameCount(4);
        QCOMPARE(field->property("frame").toInt(), 0);
        QTRY_COMPARE(field->property("frame").toInt(), 3);
        QTRY_COMPARE(field->property("frame").toInt(), 0);
        field->setFrameCount(1);
        QCOMPARE(field->property("frame").toInt(), 0);
    }

    // Fonts.

    void fontListAndPreview()
    {
        QString font = QStringLiteral("DejaVuSerif-Latin.woff");
        bool accepted = false;
        answering([&] { BasicFontSelector(&font, &accepted, fonts).exec(); },
                  {act([](TrovDialog* dialog) {
                      settle(dialog);
                      auto selector = qobject_cast<BasicFontSelector*>(dialog);
                      QCOMPARE(dialog->windowTitle(), QStringLiteral("Font Selector"));
                      QCOMPARE(texts(selector->list()),
                               QStringList({QStringLiteral("(Default)"), QStringLiteral("Broken"),
                                            QStringLiteral("DejaVuSans"), QStringLiteral("DejaVuSansMono-Latin"),
                                            QStringLiteral("DejaVuSerif-Latin"), QStringLiteral("Extra"),
                                            QStringLiteral("Extra/Nested")}));
                      QCOMPARE(selector->list()->tree()->currentRow()->text(0), QStringLiteral("DejaVuSerif-Latin"));

                      // Each font in its own face, web fonts included.
                      QCOMPARE(selector->familyOf(QStringLiteral("DejaVuSerif-Latin.woff")), QStringLiteral("DejaVu Serif"));
                      QCOMPARE(selector->familyOf(QStringLiteral("DejaVuSansMono-Latin.woff2")),
                               QStringLiteral("DejaVu Sans Mono"));
                      QCOMPARE(selector->familyOf(QStringLiteral("DejaVuSans.ttf")), QStringLiteral("DejaVu Sans"));
                      QVERIFY(selector->familyOf(QStringLiteral("Broken.ttf")).isEmpty());

                      QLabel* sample = selector->previewLabel();
                      QCOMPARE(sample->text(),
                               QStringLiteral("ABCDEFGHIJKLMNO\nPQRSTUVWXYZ\nabcdefghijklmno\npqrstuvwxyz"));
                      QCOMPARE(sample->font().family(), QStringLiteral("DejaVu Serif"));
                      QCOMPARE(sample->font().pointSizeF(), 30.0);

                      clickRow(selector->list(), rowNamed(selector->list(), QStringLiteral("DejaVuSansMono-Latin")));
                      QCOMPARE(sample->font().family(), QStringLiteral("DejaVu Sans Mono"));
                      MySlider* zoom = selector->zoomSlider();
                      QTest::mouseClick(zoom, Qt::LeftButton, Qt::NoModifier, QPoint(zoom->width() / 2, 30));
                      QTRY_VERIFY(sample->font().pointSizeF() > 30.0);
                      QCOMPARE(sample->font().pointSizeF(), 30.0 * selector->zoom());

                      // A damaged file is listed and says it can't be read.
                      clickRow(selector->list(), rowNamed(selector->list(), QStringLiteral("Broken")));
                      QCOMPARE(sample->text(), QStringLiteral("This font file can't be read."));

                      // The arrow keys walk the list; Ctrl+Return confirms.
                      clickRow(selector->list(), rowNamed(selector->list(), QStringLiteral("DejaVuSans")));
                      QTest::keyClick(selector->list()->tree(), Qt::Key_Down);
                      QTest::keyClick(dialog, Qt::Key_Return, Qt::ControlModifier);
                  })});
        QVERIFY(accepted);
        QCOMPARE(font, QStringLiteral("DejaVuSansMono-Latin.woff2"));

        answering([&] { BasicFontSelector(&font, &accepted, fonts).exec(); },
                  {act([](TrovDialog* dialog) {
                      settle(dialog);
                      auto selector = qobject_cast<BasicFontSelector*>(dialog);
                      // A double click opens a folder.
                      UltimateTreeItem* folder = rowNamed(selector->list(), QStringLiteral("Extra"));
                      QVERIFY(!folder->isExpanded());
                      doubleClickRow(selector->list(), folder);
                      QVERIFY(folder->isExpanded());
                      QTest::qWait(150);
                      doubleClickRow(selector->list(), rowNamed(selector->list(), QStringLiteral("Nested")));
                  })});
        QCOMPARE(font, QStringLiteral("Extra/Nested.ttf"));
    }

    void fontDefaultAndCancel()
    {
        // The empty choice previews the game's main font.
        QString font;
        bool accepted = true;
        answering([&] {
            BasicFontSelector(&font, &accepted, fonts, BasicFontSelector::fontSuffixes(),
                              QStringLiteral("DejaVuSerif-Latin.woff"))
                .exec();
        },
                  {act([](TrovDialog* dialog) {
                      settle(dialog);
                      auto selector = qobject_cast<BasicFontSelector*>(dialog);
                      QCOMPARE(selector->list()->tree()->currentRow()->text(0), QStringLiteral("(Default)"));
                      QCOMPARE(selector->previewLabel()->font().family(), QStringLiteral("DejaVu Serif"));
                      clickRow(selector->list(), rowNamed(selector->list(), QStringLiteral("DejaVuSans")));
                      QTest::mouseClick(button(dialog, "cancelButton"), Qt::LeftButton);
                  })});
        QVERIFY(!accepted);
        QVERIFY(font.isEmpty());

        MyDialogOpener field;
        BasicFontSelector::showFont(&field, QString());
        QCOMPARE(field.value(), QStringLiteral("(Default)"));
        QVERIFY(field.isItalic());
        BasicFontSelector::showFont(&field, QStringLiteral("DejaVuSans.ttf"));
        QCOMPARE(field.value(), QStringLiteral("DejaVuSans.ttf"));
        QVERIFY(!field.isItalic());
    }

private:
    // Opens the field's edit menu as a right click does and clicks "Insert
    // Color". It runs inside an event loop, as the program's clicks do: the
    // menu deletes itself after the click, and only an outer loop lets it
    // wait until the picker that the click opened has ended.
    static void insertColorFromMenu(QWidget* field)
    {
        QEventLoop loop;
        QTimer::singleShot(0, &loop, [&]() {
            clickInsertColor(field);
            loop.quit();
        });
        loop.exec();
    }

    static void clickInsertColor(QWidget* field)
    {
        QWidget* target = qobject_cast<QPlainTextEdit*>(field) ? qobject_cast<QPlainTextEdit*>(field)->viewport() : field;
        const QPoint at(10, 10);
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, target->mapToGlobal(at));
        QApplication::sendEvent(target, &event);
        QMenu* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QAction* insert = nullptr;
        for (QAction* action : menu->actions()) {
            if (action->text() == QLatin1String("Insert Color"))
                insert = action;
        }
        QVERIFY(insert);
        QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(insert).center());
    }
};

VELMORA_TEST_MAIN(TestPickers, QApplication)
#include "tst_pickers.moc"
