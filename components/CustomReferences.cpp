#include "components/CustomReferences.h"

#include "components/ComponentKinds.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QQueue>

namespace CustomReferences {

namespace {

struct Reference {
    QJsonObject component;
    QString target;
};

// The reference of a custom kind's component; false for other kinds.
bool referenceOf(const QJsonObject& component, QString* target)
{
    const int type = component.value(QStringLiteral("Type")).toInt(-1);
    if (type != ComponentKinds::Custom && type != ComponentKinds::CustomCollection
        && type != ComponentKinds::AttachCollection)
        return false;
    const char* dataKey = ComponentKinds::find(type)->dataKey;
    *target = component.value(QLatin1String(dataKey)).toObject().value(QStringLiteral("ID")).toString();
    return true;
}

void collect(const QJsonArray& components, QVector<Reference>& into)
{
    for (const QJsonValue& value : components) {
        const QJsonObject component = value.toObject();
        QString target;
        if (referenceOf(component, &target))
            into.append(Reference{component, target});
        collect(component.value(QStringLiteral("Children")).toArray(), into);
    }
}

Problem problemOf(const HudCatalog::Row& row, const Reference& reference)
{
    return Problem{HudCatalog::nameOf(row), reference.component.value(QStringLiteral("Name")).toString(),
                   reference.component.value(QStringLiteral("ID")).toVariant().toString(), reference.target,
                   QStringList()};
}

// The row a reference expands, as the canvas finds it: the first that
// answers to it; -1 for none.
int rowIndex(const QVector<HudCatalog::Row>& rows, const QString& identifier)
{
    for (int i = 0; i < rows.size(); ++i) {
        if (HudCatalog::identifierOf(rows.at(i)) == identifier)
            return i;
    }
    return -1;
}

}

QVector<Problem> missing(const QVector<HudCatalog::Row>& rows)
{
    QVector<Problem> problems;
    for (const HudCatalog::Row& row : rows) {
        QVector<Reference> references;
        collect(row.object.value(QStringLiteral("HUD")).toArray(), references);
        for (const Reference& reference : qAsConst(references)) {
            if (rowIndex(rows, reference.target) < 0)
                problems.append(problemOf(row, reference));
        }
    }
    return problems;
}

QVector<Problem> cycles(const QVector<HudCatalog::Row>& rows)
{
    // Which rows each row's components expand, in order.
    QVector<QVector<int>> edges(rows.size());
    QVector<QVector<Reference>> references(rows.size());
    for (int i = 0; i < rows.size(); ++i) {
        collect(rows.at(i).object.value(QStringLiteral("HUD")).toArray(), references[i]);
        for (const Reference& reference : qAsConst(references[i])) {
            const int target = rowIndex(rows, reference.target);
            if (target >= 0 && !edges[i].contains(target))
                edges[i].append(target);
        }
    }
    QVector<Problem> problems;
    for (int i = 0; i < rows.size(); ++i) {
        for (const Reference& reference : qAsConst(references[i])) {
            const int start = rowIndex(rows, reference.target);
            if (start < 0)
                continue;
            // The shortest way from the referenced HUD back to this one.
            QHash<int, int> cameFrom{{start, -1}};
            QQueue<int> queue;
            queue.enqueue(start);
            while (!queue.isEmpty() && !cameFrom.contains(i)) {
                const int at = queue.dequeue();
                for (int next : qAsConst(edges[at])) {
                    if (!cameFrom.contains(next)) {
                        cameFrom.insert(next, at);
                        queue.enqueue(next);
                    }
                }
            }
            if (!cameFrom.contains(i))
                continue;
            QStringList way;
            for (int at = i; at >= 0; at = cameFrom.value(at))
                way.prepend(HudCatalog::nameOf(rows.at(at)));
            way.prepend(HudCatalog::nameOf(rows.at(i)));
            Problem problem = problemOf(rows.at(i), reference);
            problem.cycle = way;
            problems.append(problem);
        }
    }
    return problems;
}

QString describe(const Problem& problem)
{
    QString what;
    if (problem.cycle.isEmpty()) {
        what = QStringLiteral("\"%1\"").arg(problem.reference);
    } else {
        QStringList quoted;
        for (const QString& name : problem.cycle)
            quoted << QStringLiteral("\"%1\"").arg(name);
        what = quoted.join(QStringLiteral(" -> "));
    }
    return QStringLiteral("%1: HUD \"%2\", component \"%3\" (ID %4)")
        .arg(what, problem.hud, problem.componentName, problem.componentId);
}

}
