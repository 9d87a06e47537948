#pragma once

class QJsonObject;
class QWidget;

// The one way into the dialogs of the kinds of conditions: runs the dialog
// of the object's "Type" on it, with the parent dimmed meanwhile. accepted
// tells whether it was confirmed; a "Type" the program doesn't know opens
// nothing and leaves the object alone.
void openConditionDialog(QJsonObject* object, bool* accepted, QWidget* parent, QJsonObject* projectData);
