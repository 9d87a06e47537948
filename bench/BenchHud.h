#pragma once

// What the scene benchmarks share: the median of a run's times, the canvas
// with its component list as the main window has them, and the HUD of 500
// components nested three deep that they work on.
#include "components/GameUIEditorSceneHelper.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <algorithm>
#include <vector>

namespace BenchHud {

inline double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

inline QJsonObject leaf(int& id, int kind)
{
    ++id;
    return QJsonObject{{"ID", id},
                       {"Type", kind},
                       {"Name", QStringLiteral("Component %1").arg(id)},
                       {"X", id % 700},
                       {"Y", id % 500},
                       {"ShapeData", QJsonObject{{"Width", 40}, {"Height", 20}, {"Color", "#ffffff"}}}};
}

// 20 windows, each with 4 groups of 5 components: 20 * (1 + 4 * (1 + 5)) = 500.
inline QJsonArray hud()
{
    int id = 0;
    QJsonArray top;
    for (int w = 0; w < 20; ++w) {
        QJsonObject window{{"ID", ++id}, {"Type", 7}, {"X", 40 * w}, {"Y", 30}, {"Expanded", w % 3 != 0}};
        QJsonArray groups;
        for (int g = 0; g < 4; ++g) {
            QJsonObject group{{"ID", ++id}, {"Type", 6}, {"X", 10 * g}, {"Y", 10}};
            QJsonArray leaves;
            for (int c = 0; c < 5; ++c)
                leaves.append(leaf(id, c % 6));
            group.insert("Children", leaves);
            groups.append(group);
        }
        window.insert("Children", groups);
        top.append(window);
    }
    return top;
}

// 400 texts with outlines among 100 shapes, spread over the canvas: plain
// texts and game values of several kinds, in five sizes, some squeezed.
inline QJsonArray textHud()
{
    const QJsonObject values[] = {
        {{"Type", 0}, {"Text", "HP 123 / 456"}},
        {{"Type", 1}, {"Info", 101}},
        {{"Type", 4}, {"ActorType", false}, {"Index", 1}, {"Info", 0}},
        {{"Type", 3}, {"ID", 14}},
        {{"Type", 7}, {"Code", "return 1;"}, {"Display", "Gold: 1,234"}},
    };
    QJsonArray array;
    for (int i = 0; i < 500; ++i) {
        QJsonObject component{{"ID", i + 1},
                              {"Name", QStringLiteral("Component %1").arg(i + 1)},
                              {"X", 40 + (i % 10) * 80},
                              {"Y", 12 + (i / 10) * 12}};
        if (i % 5 == 0) {
            component.insert("Type", 1);
            component.insert("ShapeData", QJsonObject{{"Width", 60}, {"Height", 10}, {"Shape", i % 2},
                                                      {"OutlineSize", 2}, {"Color", "#335577"}});
        } else {
            component.insert("Type", 0);
            component.insert("TextData", QJsonObject{{"Text", values[i % 5]},
                                                     {"FontSize", 14 + 4 * (i % 5)},
                                                     {"OutlineSize", 2 + i % 4},
                                                     {"OutlineOpacity", i % 3 == 0 ? 60 : 100},
                                                     {"MaxWidth", i % 7 == 0 ? 40 : 90},
                                                     {"Alignment", i % 3},
                                                     {"Color", "#ffffff"},
                                                     {"OutlineColor", "#000000"}});
        }
        array.append(component);
    }
    return array;
}

// The canvas and its list, shown, with an 816 x 624 screen and the real
// component factory.
struct Editor {
    Editor()
    {
        list.resize(300, 600);
        list.tree()->setRowHeight(20);
        list.tree()->setRelocationEnabled(true);
        list.tree()->setKeepSelectionLook(true);
        list.tree()->startView();
        view.resize(1000, 700);
        view.setup(new GameUIEditorSceneHelper<VelmoUISelector>(), nullptr);
        view.bindList(&list, nullptr, nullptr);
        list.show();
        view.show();
        QApplication::processEvents();
        scene()->setScreenSize(816, 624);
    }
    GameUIEditorScene* scene() const { return view.editorScene(); }

    UltimateTreeWidget list;
    GameUIEditor view;
};

}
