#include "widgets/BasicSelector.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/AlertDialog.h"
#include "widgets/MySlider.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QCollator>
#include <QDesktopServices>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// The preview's scale at each step of the zoom slider.
const double ZoomSteps[] = {0.25, 0.5, 0.75, 1.0, 1.5, 2.0, 3.0, 4.0, 6.0, 8.0};
const int ZoomStepCount = int(sizeof(ZoomSteps) / sizeof(ZoomSteps[0]));
const int FullSize = 3;

QPixmap listIcon(const char* name)
{
    return QPixmap(QStringLiteral(":/resources/ListIcons/%1").arg(QLatin1String(name)));
}

QString relativePathOf(const UltimateTreeItem* row)
{
    return QString::fromUtf8(row->userBlock());
}

void sortByName(QStringList& names)
{
    QCollator collator;
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::sort(names.begin(), names.end(), collator);
}

}

BasicSelector::BasicSelector(QString* path, bool* accepted, const QString& rootFolder, const QStringList& suffixes,
                             int width, int height, QWidget* parent)
    : PickerDialog(accepted, parent), path(path), root(QDir::cleanPath(rootFolder)), suffixes(suffixes)
{
    QHBoxLayout* columns = new QHBoxLayout();
    columns->setSpacing(12);
    fileList = new UltimateTreeWidget(content);
    fileList->setObjectName(QStringLiteral("fileList"));
    fileList->setFixedWidth(250);
    UltimateTree* tree = fileList->tree();
    tree->setRowHeight(20);
    tree->setTextOffset(4);
    tree->setKeepSelectionLook(true);
    tree->startView();
    columns->addWidget(fileList);

    QVBoxLayout* previewColumn = new QVBoxLayout();
    previewColumn->setSpacing(10);
    imageView = new QScrollArea(content);
    imageView->setObjectName(QStringLiteral("imageView"));
    imageView->setWidgetResizable(true);
    imageView->setStyleSheet(QStringLiteral("#imageView { background-color: %1; border: 1px solid %2; }")
                                 .arg(themeColor(ThemeKey::GeneralFrameBackgroundColor).name(),
                                      themeColor(ThemeKey::GeneralFrameBorder).name()));
    shown = new QLabel(imageView);
    shown->setObjectName(QStringLiteral("previewLabel"));
    shown->setAlignment(Qt::AlignCenter);
    shown->setTextFormat(Qt::PlainText);
    shown->setStyleSheet(QStringLiteral("#previewLabel { background: transparent; }"));
    imageView->setWidget(shown);
    previewColumn->addWidget(imageView, 1);

    QHBoxLayout* tools = new QHBoxLayout();
    tools->setSpacing(10);
    horizontalSlider = new MySlider(content);
    horizontalSlider->setObjectName(QStringLiteral("horizontalSlider"));
    horizontalSlider->setCaption(tr("Zoom"));
    horizontalSlider->setProperty("mtt_title", tr("Zoom"));
    horizontalSlider->setProperty("mtt_desc", tr("The amount of zoom applied to the preview."));
    horizontalSlider->setRange(0, ZoomStepCount - 1);
    horizontalSlider->setPageStep(1);
    horizontalSlider->setValue(FullSize);
    tools->addWidget(horizontalSlider, 1);
    showInExplorer = new QPushButton(tr("Show in Explorer"), content);
    showInExplorer->setObjectName(QStringLiteral("showInExplorer"));
    showInExplorer->setIcon(QIcon(QStringLiteral(":/resources/MenuBarIcons/OpenExplorer.png")));
    showInExplorer->setFocusPolicy(Qt::NoFocus);
    tools->addWidget(showInExplorer, 0, Qt::AlignBottom);
    previewColumn->addLayout(tools);
    columns->addLayout(previewColumn, 1);
    contentLayout->addLayout(columns, 1);
    addButtons(contentLayout);
    resize(width, height);
}

void BasicSelector::fillList(const QString& noneText, const QPixmap& fileIcon)
{
    UltimateTree* tree = fileList->tree();
    UltimateTreeItem* none = new UltimateTreeItem();
    none->setId(NoFileRow);
    none->setText(0, noneText);
    none->setIcon(listIcon("MiniIcon_None.png"));
    none->setIconSize(16, 16);
    tree->addRow(none);
    addFolder(nullptr, QString(), fileIcon, listIcon("MiniIcon_Folder.png"));

    UltimateTreeItem* start = nullptr;
    if (!path->isEmpty()) {
        for (int i = 1; i < tree->rowCount() && !start; ++i)
            start = rowOfValue(tree->row(i), *path);
    }
    if (!start)
        start = none;
    for (UltimateTreeItem* folder = start->parentItem(); folder; folder = folder->parentItem())
        folder->expand();
    QMetaObject::connectSlotsByName(this);
    tree->setCurrentRow(start);
    fileList->ensureRowVisible(start);
}

bool BasicSelector::addFolder(UltimateTreeItem* parentRow, const QString& relativeFolder, const QPixmap& fileIcon,
                              const QPixmap& folderIcon)
{
    const QString folder = relativeFolder.isEmpty() ? root : root + QLatin1Char('/') + relativeFolder;
    // A linked folder that leads back up the tree is walked only once.
    if (relativeFolder.isEmpty())
        walked.clear();
    walked.insert(QFileInfo(folder).canonicalFilePath());
    QStringList files;
    QStringList folders;
    QDirIterator entries(folder, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot);
    while (entries.hasNext()) {
        entries.next();
        const QFileInfo entry = entries.fileInfo();
        if (entry.isDir()) {
            if (!walked.contains(entry.canonicalFilePath()))
                folders.append(entry.fileName());
        } else if (suffixes.contains(entry.suffix())) {
            files.append(entry.fileName());
        }
    }
    sortByName(files);
    sortByName(folders);
    auto below = [&relativeFolder](const QString& name) {
        return relativeFolder.isEmpty() ? name : relativeFolder + QLatin1Char('/') + name;
    };
    auto place = [this, parentRow](UltimateTreeItem* row) {
        if (parentRow)
            parentRow->addChild(row);
        else
            fileList->tree()->addRow(row);
    };

    for (const QString& name : files) {
        UltimateTreeItem* row = makeFileRow(below(name));
        row->setId(FileRow);
        row->setUserBlock(below(name).toUtf8());
        row->setText(0, QFileInfo(name).completeBaseName());
        row->setIcon(fileIcon);
        row->setIconSize(16, 16);
        place(row);
    }
    bool any = !files.isEmpty();
    for (const QString& name : folders) {
        UltimateTreeItem* row = new UltimateTreeItem();
        row->setId(FolderRow);
        row->setUserBlock(below(name).toUtf8());
        row->setText(0, name);
        row->setIcon(folderIcon);
        row->setIconSize(16, 16);
        row->setCanHaveChildren(true);
        if (!addFolder(row, below(name), fileIcon, folderIcon)) {
            delete row;
            continue;
        }
        place(row);
        any = true;
    }
    return any;
}

UltimateTreeItem* BasicSelector::rowOfValue(UltimateTreeItem* row, const QString& value) const
{
    if (row->id() == FileRow && valueOf(relativePathOf(row)) == value)
        return row;
    for (int i = 0; i < row->childCount(); ++i) {
        if (UltimateTreeItem* found = rowOfValue(row->child(i), value))
            return found;
    }
    return nullptr;
}

QString BasicSelector::valueOf(const QString& relativeFile) const
{
    return relativeFile;
}

UltimateTreeItem* BasicSelector::makeFileRow(const QString&)
{
    return new UltimateTreeItem();
}

QString BasicSelector::currentValue() const
{
    const UltimateTreeItem* row = fileList->tree()->currentRow();
    if (!row || row->id() == FolderRow)
        return QString();
    if (row->id() == NoFileRow)
        return QStringLiteral("");
    return valueOf(relativePathOf(row));
}

double BasicSelector::zoom() const
{
    return ZoomSteps[qBound(0, horizontalSlider->value(), ZoomStepCount - 1)];
}

QString BasicSelector::currentFolder() const
{
    const UltimateTreeItem* row = fileList->tree()->currentRow();
    if (!row || row->id() == NoFileRow)
        return root;
    const QString relative = relativePathOf(row);
    return root + QLatin1Char('/') + (row->id() == FolderRow ? relative : QFileInfo(relative).path());
}

void BasicSelector::refreshPreview()
{
    const UltimateTreeItem* row = fileList->tree()->currentRow();
    showPreview(row && row->id() == FileRow ? relativePathOf(row) : QString());
}

void BasicSelector::on_fileList_currentItemChanged(UltimateTreeItem* current, UltimateTreeItem*)
{
    // A folder is no choice.
    confirmButton()->setEnabled(current && current->id() != FolderRow);
    refreshPreview();
}

void BasicSelector::on_fileList_itemDoubleClicked(UltimateTreeItem* item, int)
{
    // The list itself opens and closes a folder.
    if (item && item->id() != FolderRow)
        on_confirmButton_clicked();
}

void BasicSelector::on_horizontalSlider_valueChanged(int)
{
    refreshPreview();
}

void BasicSelector::on_showInExplorer_clicked()
{
    const QString folder = QDir::cleanPath(currentFolder());
    auto explain = [this](const QString& text, const QStringList& details) {
        darken();
        AlertDialog::alert(text, details, tr("Explorer Error"), this);
        undarken();
    };
    if (!QFileInfo(folder).isDir())
        explain(tr("Target directory does not exist!"), {});
    else if (!QDesktopServices::openUrl(QUrl::fromLocalFile(folder)))
        explain(tr("No file manager could be started to show the folder. Its path, to copy:"),
                {QDir::toNativeSeparators(folder)});
}

void BasicSelector::on_confirmButton_clicked()
{
    const QString value = currentValue();
    if (value.isNull())
        return;
    *path = value;
    acceptChoice();
}
