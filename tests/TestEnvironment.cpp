#include "TestEnvironment.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QApplication>
#include <QHBoxLayout>
#include <QTextStream>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QScreen>
#include <QPointer>
#include <QPushButton>
#include <QSet>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>

#include "logic/DynamicValueSelector.h"
#include "widgets/MyTabSystem.h"
#include "widgets/MyTabSystemHeader.h"
#include "app/CommandLineTool.h"
#include "app/SettingsStore.h"
#include "app/VelmoMainWindow.h"
#include "components/GameUIEditorSceneHelper.h"
#include "components/VelmoUISelector.h"
#include "scene/UIComponentBase.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "widgets/DialogFlags.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/TrovDialog.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace TestEnvironment {

namespace {

QTemporaryDir* temporaryHome = nullptr;

}

void isolate()
{
    // Removed with all it holds when the test program ends, however many
    // projects and homes its tests made below it.
    if (!temporaryHome) {
        std::atexit([]() {
            delete temporaryHome;
            temporaryHome = nullptr;
        });
    } else {
        delete temporaryHome;
    }
    temporaryHome = new QTemporaryDir();
    const QByteArray root = temporaryHome->path().toLocal8Bit();
    qputenv("HOME", root);
    qputenv("XDG_CONFIG_HOME", root + "/config");
    qputenv("XDG_DATA_HOME", root + "/data");
    qputenv("XDG_CACHE_HOME", root + "/cache");
    qputenv("XDG_RUNTIME_DIR", root + "/runtime");
    QDir().mkpath(temporaryHome->path() + QStringLiteral("/runtime"));
    QFile::setPermissions(temporaryHome->path() + QStringLiteral("/runtime"),
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

void quietDialogs()
{
    dialogNativeTitleBar = false;
    dialogDarkenLayers = false;
    dialogDarkenAnimated = false;
    dialogOpenAnimated = false;
}

QString home()
{
    return temporaryHome->path();
}

QString newFolder(const QString& name)
{
    static int counter = 0;
    const QString path = QStringLiteral("%1/work/%2-%3").arg(home(), name).arg(++counter);
    QDir().mkpath(path);
    return path;
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("cannot write test file %s", qPrintable(path));
    file.write(bytes);
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    return file.readAll();
}

void copyTree(const QString& source, const QString& destination)
{
    QDirIterator it(source, QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString file = it.next();
        const QString target = destination + QLatin1Char('/') + QDir(source).relativeFilePath(file);
        QDir().mkpath(QFileInfo(target).absolutePath());
        QFile::copy(file, target);
    }
}

QByteArray compact(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

namespace {

double luminance(const QColor& color)
{
    auto channel = [](double c) { return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * channel(color.redF()) + 0.7152 * channel(color.greenF()) + 0.0722 * channel(color.blueF());
}

}

double contrast(const QColor& a, const QColor& b)
{
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

QString makeProject(const QString& name, int screenWidth, int screenHeight)
{
    const QString folder = newFolder(name);
    writeFile(folder + QStringLiteral("/game.rmmzproject"), "RPGMZ 1.9.0");
    const QJsonObject system{
        {QStringLiteral("gameTitle"), QStringLiteral("Test")},
        {QStringLiteral("advanced"),
         QJsonObject{{QStringLiteral("screenWidth"), screenWidth},
                     {QStringLiteral("screenHeight"), screenHeight},
                     {QStringLiteral("mainFontFilename"), QStringLiteral("mplus-1m-regular.woff")}}},
        {QStringLiteral("switches"), QJsonArray{QString(), QStringLiteral("Show HUD")}},
        {QStringLiteral("variables"), QJsonArray{QString(), QStringLiteral("Gold Goal")}},
    };
    writeFile(folder + QStringLiteral("/data/System.json"), QJsonDocument(system).toJson());
    const char* arrays[] = {"Actors", "Enemies", "Classes", "Skills", "Items", "Weapons",
                            "Armors", "States", "Animations", "CommonEvents"};
    for (const char* file : arrays) {
        const QJsonArray content{QJsonValue(),
                                 QJsonObject{{QStringLiteral("id"), 1},
                                             {QStringLiteral("name"), QStringLiteral("First %1").arg(QLatin1String(file))}}};
        writeFile(folder + QStringLiteral("/data/%1.json").arg(QLatin1String(file)), QJsonDocument(content).toJson());
    }
    return folder;
}

QString copySampleProject(const QString& name)
{
    const QString folder = newFolder(name);
    copyTree(QStringLiteral(VELMORA_SAMPLE_PROJECT), folder);
    return folder;
}

QString documentPath(const QString& project)
{
    return project + QStringLiteral("/data/plugin/VelmoraHUD.json");
}

QString makeProjectWithHuds(const QString& name, const QJsonArray& data)
{
    const QString project = makeProject(name);
    writeFile(documentPath(project),
              QJsonDocument(QJsonObject{{QStringLiteral("Map"), 0}, {QStringLiteral("Battle"), 1}, {QStringLiteral("Data"), data}})
                  .toJson());
    return project;
}

QJsonObject writtenDocument(const QString& project)
{
    return QJsonDocument::fromJson(readFile(documentPath(project))).object();
}

QJsonArray templateArray(const char* name)
{
    return QJsonDocument::fromJson(readFile(QCoreApplication::applicationDirPath() + QStringLiteral("/Default/")
                                            + QLatin1String(name)))
        .array();
}

VelmoMainWindow* showMainWindow(const QString& project)
{
    SettingsStore().setValue(QStringLiteral("Project"), project);
    VelmoMainWindow* window = new VelmoMainWindow(2, false, QString(), QString());
    window->resize(1100, 700);
    window->show();
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window))
        qWarning("window not active");
    return window;
}

Canvas::Canvas(GameUIEditorSceneHelperBase* helper)
{
    window.resize(1200, 800);
    QHBoxLayout* layout = new QHBoxLayout(&window);
    view = new GameUIEditor(&window);
    list = new UltimateTreeWidget(&window);
    layout->addWidget(view, 1);
    layout->addWidget(list);
    list->tree()->setRowHeight(20);
    list->tree()->setRelocationEnabled(true);
    list->tree()->startView();
    view->setup(helper, nullptr);
    view->bindList(list, nullptr, nullptr);
    scene = view->editorScene();
    scene->setScreenSize(816, 624);
}

QJsonObject shape(int id, int x, int y, int w, int h)
{
    return QJsonObject{{QStringLiteral("ID"), id},
                       {QStringLiteral("Type"), 1},
                       {QStringLiteral("Name"), QStringLiteral("Shape %1").arg(id)},
                       {QStringLiteral("X"), x},
                       {QStringLiteral("Y"), y},
                       {QStringLiteral("ShapeData"), QJsonObject{{QStringLiteral("Width"), w}, {QStringLiteral("Height"), h}}}};
}

CliResult runCli(const QStringList& arguments)
{
    CliResult result;
    QTextStream out(&result.out);
    QTextStream err(&result.err);
    result.code = CommandLineTool::execute(QStringList{QStringLiteral("velmora-cli")} + arguments, out, err);
    out.flush();
    err.flush();
    return result;
}

void moveWithButtons(QWidget* widget, const QPoint& point, Qt::MouseButtons buttons)
{
    QMouseEvent move(QEvent::MouseMove, point, widget->mapToGlobal(point), Qt::NoButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(widget, &move);
}

Seen answering(const std::function<void()>& trigger, QList<Answer> answers)
{
    Seen seen;
    QTimer timer;
    timer.setInterval(5);
    // The dialogs whose answer is under way: an answer runs from the event
    // loop rather than from the timer, so that one that opens a child dialog
    // (a kind's button in the component selector) waits inside it while the
    // child is answered.
    QSet<TrovDialog*> busy;
    QObject::connect(&timer, &QTimer::timeout, [&]() {
        TrovDialog* dialog = qobject_cast<TrovDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible() || answers.isEmpty() || busy.contains(dialog))
            return;
        seen.title = dialog->windowTitle();
        const QLabel* label = dialog->findChild<QLabel*>(QStringLiteral("label"));
        seen.text = label ? label->text() : QString();
        ++seen.count;
        // VELMORA_TEST_SHOTS names a folder that gets a picture of the screen
        // for each question, for a person to look at (under Xvfb).
        const QString shots = qEnvironmentVariable("VELMORA_TEST_SHOTS");
        if (!shots.isEmpty() && QGuiApplication::primaryScreen()) {
            static int shot = 0;
            (void)QTest::qWaitForWindowExposed(dialog);
            QTest::qWait(300);
            QGuiApplication::primaryScreen()->grabWindow(0).save(
                QStringLiteral("%1/%2-%3.png").arg(shots).arg(++shot).arg(seen.title.simplified().replace(QLatin1Char(' '), QLatin1Char('-'))));
        }
        busy.insert(dialog);
        const QPointer<TrovDialog> guarded(dialog);
        QMetaObject::invokeMethod(&timer, [&busy, answer = answers.takeFirst(), guarded, dialog]() {
            if (guarded)
                answer(guarded);
            busy.remove(dialog);
        }, Qt::QueuedConnection);
    });
    timer.start();
    trigger();
    timer.stop();
    return seen;
}

Answer press(const char* objectName)
{
    return [objectName](TrovDialog* dialog) {
        QPushButton* button = dialog->findChild<QPushButton*>(QLatin1String(objectName));
        QVERIFY2(button, objectName);
        QVERIFY2(button->isVisible(), objectName);
        QTest::mouseClick(button, Qt::LeftButton);
    };
}

Answer closeByFrame()
{
    return [](TrovDialog* dialog) { dialog->close(); };
}

Answer typing(const char* field, const QString& text)
{
    return [field, text](TrovDialog* dialog) {
        MyLineEdit* edit = dialog->findChild<MyLineEdit*>(QLatin1String(field));
        QVERIFY2(edit, field);
        QTest::mouseClick(edit, Qt::LeftButton);
        edit->selectAll();
        if (text.isEmpty())
            QTest::keyClick(edit, Qt::Key_Backspace);
        else
            QTest::keyClicks(edit, text);
    };
}

Answer choosing(const char* field, int index)
{
    return [field, index](TrovDialog* dialog) {
        MyComboBox* combo = dialog->findChild<MyComboBox*>(QLatin1String(field));
        QVERIFY2(combo, field);
        QTest::mouseClick(combo, Qt::LeftButton);
        QTRY_VERIFY(combo->popup());
        for (int i = combo->currentIndex(); i < index; ++i)
            QTest::keyClick(combo->popup(), Qt::Key_Down);
        for (int i = combo->currentIndex(); i > index; --i)
            QTest::keyClick(combo->popup(), Qt::Key_Up);
        QTest::keyClick(combo->popup(), Qt::Key_Return);
        QTRY_COMPARE(combo->currentIndex(), index);
    };
}

Answer clicking(const char* field)
{
    return [field](TrovDialog* dialog) {
        QWidget* widget = dialog->findChild<QWidget*>(QLatin1String(field));
        QVERIFY2(widget, field);
        QTest::mouseClick(widget, Qt::LeftButton);
    };
}

Answer pickingRow(const char* list, const QString& text)
{
    return [list, text](TrovDialog* dialog) {
        UltimateTreeWidget* widget = dialog->findChild<UltimateTreeWidget*>(QLatin1String(list));
        QVERIFY2(widget, list);
        UltimateTree* tree = widget->tree();
        QTRY_VERIFY(tree->rowCount() > 0);
        for (int index = 0; index < tree->rowCount(); ++index) {
            UltimateTreeItem* row = tree->row(index);
            if (row->text(0) == text) {
                QTest::mouseDClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier,
                                   tree->mapFromScene(QPointF(60, row->y() + row->rowHeight() / 2.0)));
                return;
            }
        }
        QFAIL(qPrintable(QStringLiteral("no row %1").arg(text)));
    };
}

Workbench::Workbench() : Canvas(new GameUIEditorSceneHelper<VelmoUISelector>())
{
    scene->setProjectData(&projectData);
    window.show();
    if (!QTest::qWaitForWindowExposed(&window))
        qWarning("canvas not shown");
    scene->setZoom(10);
    QApplication::processEvents();
}

UIComponentBase* Workbench::load(const QJsonArray& components)
{
    scene->clear();
    scene->loadFromJson(components);
    return scene->components().value(0);
}

UIComponentBase* Workbench::load(const QJsonObject& component)
{
    return load(QJsonArray{component});
}

QImage Workbench::render(int zoom)
{
    scene->setZoom(zoom);
    return scene->canvasImage(false).convertToFormat(QImage::Format_ARGB32);
}

QImage Workbench::render(const QJsonObject& component, int zoom)
{
    scene->setZoom(zoom);
    load(component);
    return render(zoom);
}

Seen Workbench::editRow(int index, const QList<Answer>& answers)
{
    UltimateTree* tree = list->tree();
    UltimateTreeItem* row = tree->row(index);
    const QPoint point = tree->mapFromScene(QPointF(60, row->y() + row->rowHeight() / 2.0));
    return answering([&]() { QTest::mouseDClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, point); },
                     answers);
}

Seen Workbench::create(const QPointF& spot, const QList<Answer>& answers)
{
    view->centerOn(spot);
    const QPoint point = view->mapFromScene(spot);
    return answering([&]() { QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, point); },
                     answers);
}

QJsonObject Workbench::reloaded()
{
    const QByteArray saved = QJsonDocument(scene->toJson()).toJson();
    scene->clear();
    scene->loadFromJson(QJsonDocument::fromJson(saved).array());
    return scene->components().isEmpty() ? QJsonObject() : scene->components().first()->data();
}

QStringList rowTexts(UltimateTreeWidget* list, int column)
{
    QStringList texts;
    for (int i = 0; i < list->tree()->rowCount(); ++i)
        texts << list->tree()->row(i)->text(column);
    return texts;
}

void clickRow(UltimateTreeWidget* list, int index, bool twice)
{
    UltimateTree* tree = list->tree();
    const bool plus = index >= tree->rowCount();
    UltimateTreeItem* row = tree->row(plus ? tree->rowCount() - 1 : index);
    if (!plus)
        list->ensureRowVisible(row);
    const QPoint at = tree->mapFromScene(QPointF(40, row->y() + row->rowHeight() * (plus ? 1.5 : 0.5)));
    if (twice)
        QTest::mouseDClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    else
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, at);
}

QJsonObject json(const char* text)
{
    return QJsonDocument::fromJson(QByteArray(text)).object();
}

UIComponentBase* Workbench::createChecked(const QList<Answer>& answers, const char* dataKey,
                                         const QJsonObject& expected)
{
    create(QPointF(300, 200), answers);
    if (!QTest::qCompare(scene->components().size(), 1, "components", "1", __FILE__, __LINE__))
        return nullptr;
    const QJsonObject made = scene->toJson().at(0).toObject();
    if (!QTest::qCompare(compact(made.value(QLatin1String(dataKey)).toObject()), compact(expected), dataKey,
                         "expected", __FILE__, __LINE__))
        return nullptr;
    reloaded();
    if (!QTest::qCompare(compact(scene->toJson().at(0).toObject()), compact(made), "reloaded", "made", __FILE__,
                         __LINE__))
        return nullptr;
    return scene->components().first();
}

QColor pixel(const QImage& image, int x, int y)
{
    return QColor::fromRgba(image.pixel(x, y));
}

void retype(MyLineEdit* edit, const QString& text)
{
    QTest::mouseClick(edit, Qt::LeftButton);
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty())
        QTest::keyClick(edit, Qt::Key_Delete);
    else
        QTest::keyClicks(edit, text);
}

void choose(MyComboBox* combo, int row)
{
    QTest::mouseClick(combo, Qt::LeftButton);
    QTRY_VERIFY(combo->popup());
    for (int i = combo->currentIndex(); i < row; ++i)
        QTest::keyClick(combo->popup(), Qt::Key_Down);
    for (int i = combo->currentIndex(); i > row; --i)
        QTest::keyClick(combo->popup(), Qt::Key_Up);
    QTest::keyClick(combo->popup(), Qt::Key_Return);
    QTRY_COMPARE(combo->currentIndex(), row);
}

void clickTab(TypeTabDialog* dialog, int index)
{
    MyTabSystem* tabs = dialog->tabs();
    const int perRow = tabs->count() / 2;
    MyTabSystemHeader* row = index < perRow ? tabs->header() : tabs->secondHeader();
    QTest::mouseClick(row, Qt::LeftButton, Qt::NoModifier, row->tabRect(index % perRow).center());
    QTRY_COMPARE(tabs->currentIndex(), index);
    QTRY_VERIFY(!tabs->isAnimating());
}

bool nearColor(const QColor& actual, const QColor& expected, int tolerance)
{
    return qAbs(actual.red() - expected.red()) <= tolerance && qAbs(actual.green() - expected.green()) <= tolerance
        && qAbs(actual.blue() - expected.blue()) <= tolerance && qAbs(actual.alpha() - expected.alpha()) <= tolerance;
}

}
