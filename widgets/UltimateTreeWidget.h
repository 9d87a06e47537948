#pragma once

#include <QJsonObject>
#include <QList>
#include <QWidget>

#include <functional>

class QAction;
class QMenu;
class QVBoxLayout;
class UltimateTree;
class UltimateTreeHeader;
class UltimateTreeItem;

// Every list of the program: an UltimateTree with an optional header, whose
// rows carry JSON records that can be copied, cut and pasted through the
// clipboard under the list's identifier word.
class UltimateTreeWidget : public QWidget
{
    Q_OBJECT

public:
    using NameOfRecord = std::function<QString(QJsonObject*)>;
    using FillRow = std::function<void(UltimateTreeItem*, QJsonObject*)>;
    using CopyHook = std::function<void(UltimateTreeItem*)>;
    using DeleteCheck = std::function<bool(UltimateTreeItem*)>;

    explicit UltimateTreeWidget(QWidget* parent = nullptr);
    ~UltimateTreeWidget() override;

    UltimateTree* tree() const { return treeView; }
    UltimateTreeHeader* headerWidget() const { return header; }

    void addHeader();
    void setClipboardId(const QString& id) { clipboardId = id; }
    QString getClipboardId() const { return clipboardId; }

    // Row height 20, relocation, the selection kept when focus leaves, and a
    // deleter that frees each row's QJsonObject; starts the view.
    static void setupStandardDatabaseList(UltimateTreeWidget* list);
    // The same for lists of two kinds of rows: id 0 holds a QJsonObject, id 1 a
    // block from std::malloc.
    static void setupStandardDatabaseListEx(UltimateTreeWidget* list);
    // A two-column "Name"/"Value" list with a header and the "+" row.
    void setupNameValueList();

    // Appends a separator and the copy, cut and paste actions to a menu; a null
    // text gives "Copy ...", "Cut ...", "Paste ...".
    void setupContextActions(QMenu* menu, const char* copyText = nullptr, const char* cutText = nullptr,
                             const char* pasteText = nullptr);
    // Shows and names the copy, cut and paste actions for a row (or none) and
    // for what the clipboard holds.
    void updateContextActions(const QList<QAction*>& actions, UltimateTreeItem* row, const QString& name,
                              int copyIndex, int cutIndex, int pasteIndex);
    void connectClipboardKeys();
    void setListFunctions(const NameOfRecord& nameOfRecord, const FillRow& fillRow);
    void setCopyHook(const CopyHook& hook) { copyHook = hook; }
    void setDeleteCheck(const DeleteCheck& check) { deleteCheck = check; }
    // Asked before a copy; false leaves the clipboard alone.
    void setCopyCheck(const DeleteCheck& check) { copyCheck = check; }
    // Asked of a record on the clipboard before it is offered or pasted;
    // false leaves the list alone.
    void setPasteCheck(const std::function<bool(const QJsonObject&)>& check) { pasteCheck = check; }
    void setUniqueNames(bool on) { uniqueNames = on; }

    void scrollToBottom();
    void ensureRowVisible(UltimateTreeItem* row);
    void setEnabled(bool on);
    void emitContextMenu(const QPoint& point) { emit customContextMenuRequested(point); }

    // Whether the clipboard holds a record for this list: the identifier word
    // followed by a JSON object, which goes to record when given.
    bool clipboardRecord(QJsonObject* record = nullptr) const;
    // Removes a row, deletes it later, and makes its neighbour current.
    void deleteRowSelectNext(UltimateTreeItem* row);
    // The name a pasted record takes beside the names taken: the name itself
    // while it is free, else "base (n)" with n counting up, from the number a
    // name ending in " (n)" carries or from 2.
    static QString numberedName(const QString& name, const std::function<bool(const QString&)>& taken);

signals:
    void doubleClickedBlank();
    void currentItemChanged(UltimateTreeItem* current, UltimateTreeItem* previous);
    void itemDoubleClicked(UltimateTreeItem* item, int column);
    void itemExpanded(UltimateTreeItem* item);
    void itemCollapsed(UltimateTreeItem* item);
    void onDeleteKeyPress();
    void onCopyKeyPress();
    void onCutKeyPress();
    void onPasteKeyPress();
    void itemRelocated(UltimateTreeItem* item);
    // A row was pasted in, or deleted or cut out, through this widget.
    void rowsEdited();

public slots:
    void copyCurrentItem(UltimateTreeItem* row = nullptr);
    void cutCurrentItem(UltimateTreeItem* row = nullptr);
    void pasteCurrentItem();

private:
    QString clipboardId;
    QVBoxLayout* layout;
    UltimateTreeHeader* header = nullptr;
    UltimateTree* treeView;
    NameOfRecord nameOfRecord;
    FillRow fillRow;
    CopyHook copyHook;
    DeleteCheck deleteCheck;
    DeleteCheck copyCheck;
    std::function<bool(const QJsonObject&)> pasteCheck;
    bool uniqueNames = false;
};
