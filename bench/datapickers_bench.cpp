// Times the game-data pickers on a large project (tools/gen-project
// --entries 10000): opening each picker until it is shown and painted, and
// each keystroke in the filter field of the switch and database pickers with
// the refill of the list and its repaint. Prints medians and the slowest
// keystroke in milliseconds.
//   velmora-bench-datapickers PROJECT [runs]
#include "app/ProjectData.h"
#include "logic/GameDataList.h"
#include "logic/RMActorSelector.h"
#include "logic/RMCodeInput.h"
#include "logic/RMDatabaseItemSelector.h"
#include "logic/SwitchSelector.h"
#include "logic/VelmoAnimationStyle.h"
#include "logic/VelmoTextInputExtend.h"
#include "theme/ThemeManager.h"
#include "theme/VelmoStyle.h"
#include "widgets/MyLineEdit.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QJsonObject>
#include <QTest>
#include <QTextStream>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0.0 : values[values.size() / 2];
}

double elapsedMs(const QElapsedTimer& clock)
{
    return clock.nsecsElapsed() / 1e6;
}

// From construction to the first picture on the screen.
double openTime(const std::function<QDialog*()>& make)
{
    QElapsedTimer clock;
    clock.start();
    QDialog* dialog = make();
    dialog->show();
    dialog->repaint();
    QApplication::processEvents();
    const double ms = elapsedMs(clock);
    dialog->close();
    delete dialog;
    QApplication::processEvents();
    return ms;
}

struct Keys {
    // The key with the list's repaint, and until the list is whole again
    // (the rows beyond the first come in slices between events).
    std::vector<double> times;
    std::vector<double> whole;
    std::vector<double> slices;
};

// Types the text into the filter field and erases it again, a key at a
// time, each with the list's repaint.
void typeAndErase(MyLineEdit* field, GameDataList* rows, const QString& text, Keys& keys)
{
    UltimateTreeWidget* list = rows->widget();
    auto timed = [&](const std::function<void()>& key) {
        QElapsedTimer clock;
        clock.start();
        key();
        list->tree()->viewport()->repaint();
        keys.times.push_back(elapsedMs(clock));
        while (rows->isFilling()) {
            QElapsedTimer slice;
            slice.start();
            QApplication::processEvents();
            list->tree()->viewport()->repaint();
            keys.slices.push_back(elapsedMs(slice));
        }
        keys.whole.push_back(elapsedMs(clock));
    };
    for (const QChar c : text)
        timed([&] { QTest::keyClick(field, c.toLatin1()); });
    for (int i = 0; i < text.size(); ++i)
        timed([&] { QTest::keyClick(field, Qt::Key_Backspace); });
}

}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QTextStream out(stdout);
    if (argc < 2) {
        out << "usage: velmora-bench-datapickers PROJECT [runs]\n";
        return 2;
    }
    const int runs = argc > 2 ? qMax(1, QString::fromLocal8Bit(argv[2]).toInt()) : 5;
    Theme::installDefault();
    Theme::refreshCachedColors();
    QApplication::setStyle(new VelmoStyle());
    Theme::apply();

    QJsonObject projectData;
    ProjectData::ScreenSize screen;
    QElapsedTimer loadClock;
    loadClock.start();
    if (!ProjectData::load(QDir(QString::fromLocal8Bit(argv[1])), projectData, screen)) {
        out << "not a project: " << argv[1] << "\n";
        return 1;
    }
    out << "project data read in " << elapsedMs(loadClock) << " ms\n";
    VelmoTextInputExtend::install(&projectData);

    // Ids near the end, so that each list opens scrolled far down.
    int id = 9990;
    bool accepted = false;
    bool removed = false;
    QString code = QStringLiteral("return $gameVariables.value(12);");
    QJsonObject actor{{"Type", 0}, {"ID", 9990}};
    QJsonObject extension{{"Type", 1}, {"ID", 9990}};
    QJsonObject runType{{"Type", 1}, {"ID", 9990}};
    struct Picker {
        const char* name;
        std::function<QDialog*()> make;
    };
    const Picker pickers[] = {
        {"switch selector", [&] { return new SwitchSelector(&id, &accepted, &projectData, true, nullptr); }},
        {"variable selector", [&] { return new SwitchSelector(&id, &accepted, &projectData, false, nullptr); }},
        {"database selector (Classes.json)",
         [&] { return new RMDatabaseItemSelector(&id, &accepted, &projectData, "Classes.json", "Class", nullptr); }},
        {"database selector (Items.json)",
         [&] { return new RMDatabaseItemSelector(&id, &accepted, &projectData, "Items.json", "Item", nullptr); }},
        {"code input", [&] { return new RMCodeInput(&code, &accepted, nullptr, nullptr); }},
        {"actor input", [&] { return new RMActorSelector(&actor, &accepted, &projectData, nullptr); }},
        {"dynamic input",
         [&] { return new VelmoTextInputExtend(&extension, &accepted, &removed, &projectData, true, nullptr); }},
        {"animation run type", [&] { return new VelmoAnimationStyle(&runType, &accepted, &projectData, nullptr); }},
    };
    out << "\nopening, shown and painted (median of " << runs << ", ms)\n";
    for (const Picker& picker : pickers) {
        std::vector<double> times;
        for (int run = 0; run < runs; ++run)
            times.push_back(openTime(picker.make));
        out << "  " << picker.name << ": " << median(times) << "\n";
    }

    out << "\nkeystrokes in the filter field with the list's repaint (ms)\n";
    const QString typed[] = {QStringLiteral("1"), QStringLiteral("42"), QStringLiteral("ab"),
                             QStringLiteral("0999")};
    auto report = [&out](const char* name, Keys& keys) {
        out << "  " << name << ": key median " << median(keys.times) << ", slowest "
            << *std::max_element(keys.times.begin(), keys.times.end()) << " (" << keys.times.size()
            << " keys); slice of rows between events median " << median(keys.slices) << ", slowest "
            << (keys.slices.empty() ? 0.0 : *std::max_element(keys.slices.begin(), keys.slices.end()))
            << "; list whole again median " << median(keys.whole) << ", slowest "
            << *std::max_element(keys.whole.begin(), keys.whole.end()) << "\n";
    };
    {
        Keys keys;
        for (int run = 0; run < runs; ++run) {
            SwitchSelector dialog(&id, &accepted, &projectData, false, nullptr);
            dialog.show();
            QApplication::processEvents();
            for (const QString& text : typed)
                typeAndErase(dialog.filterField(), dialog.rowsOfEntries(), text, keys);
        }
        report("variable selector", keys);
    }
    {
        Keys keys;
        for (int run = 0; run < runs; ++run) {
            RMDatabaseItemSelector dialog(&id, &accepted, &projectData, "Classes.json", "Class", nullptr);
            dialog.show();
            QApplication::processEvents();
            for (const QString& text : typed)
                typeAndErase(dialog.filterField(), dialog.rowsOfList(), text, keys);
        }
        report("database selector (Classes.json)", keys);
    }
    return 0;
}
