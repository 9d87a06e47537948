#pragma once

class QJsonObject;
class QWidget;

// Opens the dialog of the add-on's "Type" on object, with the parent dimmed;
// accepted tells whether it was confirmed. A kind the program doesn't know
// opens nothing. capabilities are those of the component's kind.
void openAddonDialog(QJsonObject* object, bool* accepted, QJsonObject* projectData, int capabilities,
                     QWidget* parent);
