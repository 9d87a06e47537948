#pragma once

#include <QJsonObject>
#include <QPoint>
#include <QWidget>

class MyGroupBox;
class QMenu;
class QPlainTextEdit;
class TrovDialog;
class UltimateTreeItem;
class UltimateTreeWidget;

// The add-ons of a component on its property dialog: one row per add-on
// with its kind and its one-line data, added through the chooser, edited in
// the kind's dialog, moved by dragging, and copied, cut and pasted between
// components under "VELMORAADDON" (a kind takes only the add-ons its
// capabilities allow). The component's "Note" is derived from the note
// add-ons whenever the box writes its keys. An entry the program can't edit
// (an unknown kind, something that isn't an object) keeps its row and its
// place and is written back as it came.
class AddonOrNotebox : public QWidget
{
    Q_OBJECT
public:
    explicit AddonOrNotebox(QWidget* parent = nullptr);

    // Reads "Addons" (or, with none, a lone "Note" as one note add-on) of
    // the component's data object.
    void loadData(const QJsonObject& data, QJsonObject* projectData, int capabilities, TrovDialog* parent);
    // Writes "Addons" in row order and "Note" from the note add-ons.
    void saveData(QJsonObject* data) const;

    UltimateTreeWidget* list() const { return addons; }
    // The "Note" the box would write now.
    QString derivedNote() const;
    QMenu* contextMenu() const { return menu; }

public slots:
    void CreateAddon();
    void EditAddon();
    void DeleteAddon();
    void on_addons_itemDoubleClicked(UltimateTreeItem* item, int column);
    void on_addons_customContextMenuRequested(const QPoint& pos);

private:
    void addEntry(const QJsonValue& entry);
    void showNote();

    UltimateTreeWidget* addons;
    MyGroupBox* noteBox;
    QPlainTextEdit* note;
    QMenu* menu;
    QJsonObject* projectData = nullptr;
    int capabilities = 0;
    TrovDialog* parentDialog = nullptr;
};
