#pragma once

#include <QString>

// How a database entry and a range of entries are shown in pickers and
// summaries: "[0007] Potion" and "[0001 - 0020]".
namespace GameDataLabel {

QString entry(int id, const QString& name);
QString range(int first, int last);

}
