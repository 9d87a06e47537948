#pragma once

#include "widgets/PickerDialog.h"

#include <QSet>
#include <QStringList>

class MySlider;
class QLabel;
class QPixmap;
class QScrollArea;
class UltimateTreeItem;
class UltimateTreeWidget;

// The base of the dialogs that choose a file of the project: the folder tree
// below a root folder with a first row for no file, a preview of the chosen
// file with its zoom, and a button that shows the folder in the desktop's
// file manager. The files are those with one of the given suffixes (as
// spelled); each row carries its path below the root, and a folder without
// such files anywhere below it has no row.
class BasicSelector : public PickerDialog
{
    Q_OBJECT
public:
    // Row ids of the list.
    enum RowKind { NoFileRow = 0, FileRow = 1, FolderRow = 2 };

    UltimateTreeWidget* list() const { return fileList; }
    MySlider* zoomSlider() const { return horizontalSlider; }
    QScrollArea* preview() const { return imageView; }
    QLabel* previewLabel() const { return shown; }
    QPushButton* explorerButton() const { return showInExplorer; }
    QString rootFolder() const { return root; }

    // The value the current row stands for: empty for no file, null while a
    // folder or nothing is current.
    QString currentValue() const;
    // The preview's scale, 1.0 for 100 %.
    double zoom() const;
    // The folder the explorer button shows for the current row.
    QString currentFolder() const;

protected:
    // path is the value to start from and is changed only when the dialog
    // is confirmed.
    BasicSelector(QString* path, bool* accepted, const QString& rootFolder, const QStringList& suffixes, int width,
                  int height, QWidget* parent);

    // Fills the list and selects the row of the value the dialog opened on;
    // the kind's constructor calls it once it stands.
    void fillList(const QString& noneText, const QPixmap& fileIcon);
    // What the file at a path below the root stands for; the path as it is.
    virtual QString valueOf(const QString& relativeFile) const;
    // A row for a file; a plain one unless the kind draws its rows itself.
    virtual UltimateTreeItem* makeFileRow(const QString& relativeFile);
    // Shows a file of the list, or the empty choice for an empty path.
    virtual void showPreview(const QString& relativeFile) = 0;

private slots:
    void on_fileList_currentItemChanged(UltimateTreeItem* current, UltimateTreeItem* previous);
    void on_fileList_itemDoubleClicked(UltimateTreeItem* item, int column);
    void on_horizontalSlider_valueChanged(int value);
    void on_showInExplorer_clicked();
    void on_confirmButton_clicked();

private:
    // Adds the rows of a folder's files, then of its sub-folders that hold
    // any; false when it holds nothing to list.
    bool addFolder(UltimateTreeItem* parentRow, const QString& relativeFolder, const QPixmap& fileIcon,
                   const QPixmap& folderIcon);
    UltimateTreeItem* rowOfValue(UltimateTreeItem* row, const QString& value) const;
    void refreshPreview();

    QString* path;
    QString root;
    QStringList suffixes;
    // The folders the walk has been through, by their real paths.
    QSet<QString> walked;
    UltimateTreeWidget* fileList;
    QScrollArea* imageView;
    QLabel* shown;
    MySlider* horizontalSlider;
    QPushButton* showInExplorer;
};
