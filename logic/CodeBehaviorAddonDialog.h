#pragma once

#include "logic/CodeAddonDialog.h"

// "Code Behavior Setup": code run at a point of the component's life.
class CodeBehaviorAddonDialog : public CodeAddonDialog
{
    Q_OBJECT
public:
    CodeBehaviorAddonDialog(QJsonObject* object, bool* accepted, QJsonObject* projectData, int capabilities,
                            QWidget* parent);

private slots:
    void on_confirmButton_clicked();
};
