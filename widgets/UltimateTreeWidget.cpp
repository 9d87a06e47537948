#include "widgets/UltimateTreeWidget.h"

#include "widgets/ClipboardIdentifiers.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeHeader.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeItemFiller.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSet>
#include <QVBoxLayout>


UltimateTreeWidget::UltimateTreeWidget(QWidget* parent)
    : QWidget(parent), layout(new QVBoxLayout(this)), treeView(new UltimateTree(this))
{
    qRegisterMetaType<UltimateTreeItem*>();
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(treeView);
    treeView->setOwner(this);
    connect(treeView, &UltimateTree::currentItemChanged, this, &UltimateTreeWidget::currentItemChanged);
    connect(treeView, &UltimateTree::itemDoubleClicked, this, &UltimateTreeWidget::itemDoubleClicked);
    connect(treeView, &UltimateTree::itemExpanded, this, &UltimateTreeWidget::itemExpanded);
    connect(treeView, &UltimateTree::itemCollapsed, this, &UltimateTreeWidget::itemCollapsed);
    connect(treeView, &UltimateTree::itemRelocated, this, &UltimateTreeWidget::itemRelocated);
    connect(treeView, &UltimateTree::onDeleteKeyPress, this, &UltimateTreeWidget::onDeleteKeyPress);
    connect(treeView, &UltimateTree::onCopyKeyPress, this, &UltimateTreeWidget::onCopyKeyPress);
    connect(treeView, &UltimateTree::onCutKeyPress, this, &UltimateTreeWidget::onCutKeyPress);
    connect(treeView, &UltimateTree::onPasteKeyPress, this, &UltimateTreeWidget::onPasteKeyPress);
    connect(treeView, &UltimateTree::emptySpaceDoubleClicked, this, &UltimateTreeWidget::doubleClickedBlank);
    connect(treeView, &UltimateTree::contextMenuRequested, this, &UltimateTreeWidget::customContextMenuRequested);
}

UltimateTreeWidget::~UltimateTreeWidget()
{
    // Rows go while their deleter and its captures still exist.
    treeView->clear();
}

void UltimateTreeWidget::addHeader()
{
    if (!header) {
        header = new UltimateTreeHeader(treeView, this);
        header->setMinimumSize(0, 20);
        header->setMaximumSize(16777215, 20);
    }
    layout->removeWidget(header);
    layout->removeWidget(treeView);
    layout->addWidget(header);
    layout->addWidget(treeView);
}

void UltimateTreeWidget::setupStandardDatabaseList(UltimateTreeWidget* list)
{
    UltimateTree* tree = list->tree();
    tree->setRowHeight(20);
    tree->setRelocationEnabled(true);
    tree->setKeepSelectionLook(true);
    tree->setRowDeleter([](UltimateTreeItem* row) { delete row->userData(); });
    tree->startView();
}

void UltimateTreeWidget::setupStandardDatabaseListEx(UltimateTreeWidget* list)
{
    UltimateTree* tree = list->tree();
    tree->setRowHeight(20);
    tree->setRelocationEnabled(true);
    tree->setKeepSelectionLook(true);
    // Rows of id 1 carry their plain block by value; only the JSON records
    // of rows of id 0 are on the heap.
    tree->setRowDeleter([](UltimateTreeItem* row) {
        if (row->id() == 0)
            delete row->userData();
    });
    tree->startView();
}

void UltimateTreeWidget::setupNameValueList()
{
    addHeader();
    treeView->setColumnCount(2);
    treeView->setColumnTitle(0, tr("Name"));
    treeView->setColumnTitle(1, tr("Value"));
    treeView->setFiller(true, QString());
    treeView->setRowHeight(20);
    treeView->setTextOffset(4);
    treeView->setRelocationEnabled(true);
    treeView->startView();
}

void UltimateTreeWidget::setupContextActions(QMenu* menu, const char* copyText, const char* cutText,
                                             const char* pasteText)
{
    menu->addSeparator();
    QAction* copy = menu->addAction(QIcon(QStringLiteral(":/resources/ContextIcons/Copy.png")),
                                    copyText ? tr(copyText) : tr("Copy ..."));
    QAction* cut = menu->addAction(QIcon(QStringLiteral(":/resources/ContextIcons/Cut.png")),
                                   cutText ? tr(cutText) : tr("Cut ..."));
    QAction* paste = menu->addAction(QIcon(QStringLiteral(":/resources/ContextIcons/Paste.png")),
                                     pasteText ? tr(pasteText) : tr("Paste ..."));
    connect(copy, &QAction::triggered, this, [this]() { copyCurrentItem(); });
    connect(cut, &QAction::triggered, this, [this]() { cutCurrentItem(); });
    connect(paste, &QAction::triggered, this, &UltimateTreeWidget::pasteCurrentItem);
}

bool UltimateTreeWidget::clipboardRecord(QJsonObject* record) const
{
    QJsonObject found;
    if (!ClipboardIdentifiers::readObject(QApplication::clipboard()->text(), clipboardId, &found))
        return false;
    if (pasteCheck && !pasteCheck(found))
        return false;
    if (record)
        *record = found;
    return true;
}

void UltimateTreeWidget::updateContextActions(const QList<QAction*>& actions, UltimateTreeItem* row,
                                              const QString& name, int copyIndex, int cutIndex, int pasteIndex)
{
    QAction* copy = actions.value(copyIndex);
    QAction* cut = actions.value(cutIndex);
    QAction* paste = actions.value(pasteIndex);
    if (copy) {
        copy->setVisible(row != nullptr);
        if (row && !name.isEmpty())
            copy->setText(tr("Copy \"%1\"").arg(name));
    }
    if (cut) {
        cut->setVisible(row != nullptr);
        if (row && !name.isEmpty())
            cut->setText(tr("Cut \"%1\"").arg(name));
    }
    if (paste) {
        QJsonObject record;
        const bool offered = clipboardRecord(&record);
        paste->setVisible(offered);
        if (offered) {
            if (nameOfRecord) {
                const QString recordName = nameOfRecord(&record);
                if (!recordName.isEmpty())
                    paste->setText(tr("Paste \"%1\"").arg(recordName));
            } else {
                paste->setText(tr("Paste"));
            }
        }
    }
}

void UltimateTreeWidget::connectClipboardKeys()
{
    connect(this, &UltimateTreeWidget::onCopyKeyPress, this, [this]() { copyCurrentItem(); });
    connect(this, &UltimateTreeWidget::onCutKeyPress, this, [this]() { cutCurrentItem(); });
    connect(this, &UltimateTreeWidget::onPasteKeyPress, this, &UltimateTreeWidget::pasteCurrentItem);
}

void UltimateTreeWidget::setListFunctions(const NameOfRecord& name, const FillRow& fill)
{
    nameOfRecord = name;
    fillRow = fill;
}

void UltimateTreeWidget::copyCurrentItem(UltimateTreeItem* row)
{
    if (copyHook)
        copyHook(row);
    if (!row)
        row = treeView->currentRow();
    if (!row || !row->userData() || (copyCheck && !copyCheck(row)))
        return;
    QApplication::clipboard()->setText(ClipboardIdentifiers::compose(clipboardId, *row->userData()));
}

void UltimateTreeWidget::cutCurrentItem(UltimateTreeItem* row)
{
    if (!row)
        row = treeView->currentRow();
    if (!row)
        return;
    if (deleteCheck && !deleteCheck(row))
        return;
    copyCurrentItem(row);
    deleteRowSelectNext(row);
}

void UltimateTreeWidget::deleteRowSelectNext(UltimateTreeItem* row)
{
    if (!row)
        return;
    UltimateTreeItem* parent = row->parentItem();
    const int index = parent ? parent->indexOfChild(row) : treeView->indexOfRow(row);
    treeView->deleteRow(row);
    const int count = parent ? parent->childCount() : treeView->rowCount();
    UltimateTreeItem* next = nullptr;
    if (count > 0) {
        const int target = qMin(index, count - 1);
        next = parent ? parent->child(target) : treeView->row(target);
    } else if (parent) {
        next = parent;
    }
    if (next)
        treeView->setCurrentRow(next);
    else if (treeView->fillerItem())
        treeView->setCurrentRow(treeView->fillerItem());
    else
        treeView->setCurrentRow(nullptr);
    emit rowsEdited();
}

void UltimateTreeWidget::pasteCurrentItem()
{
    QJsonObject record;
    if (!clipboardRecord(&record))
        return;
    if (uniqueNames) {
        QSet<QString> names;
        for (int i = 0; i < treeView->rowCount(); ++i) {
            if (QJsonObject* existing = treeView->row(i)->userData())
                names.insert(existing->value(QStringLiteral("Name")).toString());
        }
        record.insert(QStringLiteral("Name"),
                      numberedName(record.value(QStringLiteral("Name")).toString(),
                                   [&names](const QString& name) { return names.contains(name); }));
    }
    QJsonObject* object = new QJsonObject(record);
    UltimateTreeItem* row = new UltimateTreeItem();
    row->setId(0);
    row->setUserData(object);
    if (fillRow)
        fillRow(row, object);
    UltimateTreeItem* current = treeView->currentRow();
    if (current && current->parentItem())
        current->parentItem()->insertChildAfter(row, current);
    else if (current)
        treeView->insertRowAfter(row, current);
    else
        treeView->addRow(row);
    emit rowsEdited();
}

QString UltimateTreeWidget::numberedName(const QString& name, const std::function<bool(const QString&)>& taken)
{
    static const QRegularExpression numbered(QStringLiteral(" \\((\\d+)\\)$"));
    const QRegularExpressionMatch match = numbered.match(name);
    int number = 2;
    QString base = name;
    if (match.hasMatch()) {
        number = match.captured(1).toInt();
        base = name.left(match.capturedStart());
    }
    QString candidate = name;
    while (taken(candidate)) {
        candidate = QStringLiteral("%1 (%2)").arg(base).arg(number);
        ++number;
    }
    return candidate;
}

void UltimateTreeWidget::scrollToBottom()
{
    treeView->verticalScrollBar()->setValue(treeView->verticalScrollBar()->maximum());
}

void UltimateTreeWidget::ensureRowVisible(UltimateTreeItem* row)
{
    if (row && row->scene())
        treeView->ensureVisible(row, 50, 50);
}

void UltimateTreeWidget::setEnabled(bool on)
{
    QWidget::setEnabled(on);
}
