#pragma once

#include "logic/CodeAddonDialog.h"

// "Code Property Setup": a property of the component computed by code. The
// properties offered are those of the component's kind; the default code
// follows the property while the user hasn't edited it.
class CodePropertyAddonDialog : public CodeAddonDialog
{
    Q_OBJECT
public:
    CodePropertyAddonDialog(QJsonObject* object, bool* accepted, QJsonObject* projectData, int capabilities,
                            QWidget* parent);

private slots:
    void on_PropertyType_whenChoiceChanges();
    void on_confirmButton_clicked();

private:
    int shownProperty = -1;
};
