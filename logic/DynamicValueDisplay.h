#pragma once

#include <QString>

class MyDialogOpener;
class QJsonObject;

// The one-line texts of the game's dynamic values, as fields and summaries
// show them: a dynamic text or number ("Actor HP", "[0005] Gold", "5 (+) 3")
// and a list value ("0 ~ 5", "Party Members List"). They never run anything;
// projectData (the database, by file name) gives the names of switches,
// variables and records and may be null.
QString dynamicTextDisplay(const QJsonObject& object, const QJsonObject* projectData);
QString dynamicNumberDisplay(const QJsonObject& object, const QJsonObject* projectData);
QString dynamicListDisplay(const QJsonObject& object, const QJsonObject* projectData);

// An opener shows the value's text, in italics unless it is a plain value.
void showDynamicText(MyDialogOpener* opener, const QJsonObject& object, const QJsonObject* projectData);
void showDynamicNumber(MyDialogOpener* opener, const QJsonObject& object, const QJsonObject* projectData);
