#pragma once

// What the scene benchmarks share: the median of a run's times and the HUD
// of 500 components nested three deep that they work on.
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

// 20 windows, each with 4 groups of 5 components, and 4 more components of
// its own: 20 * (1 + 4 * 6 + 0) = 500.
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

}
