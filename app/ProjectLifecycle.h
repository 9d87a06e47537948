#pragma once

#include <QDir>
#include <QJsonObject>
#include <QObject>
#include <QSize>
#include <QString>
#include <QStringList>

class DocumentWatcher;
class GameUIEditor;
class HudDocument;
class HudListController;
class QTimer;
class RecoveryWriter;
class QWidget;

// The life of the open project inside the main window: choosing and opening
// it, what counts as unsaved work, saving, reloading, closing, the recovery
// file and changes made to the document by other programs. The window owns it
// and shows what it reports.
class ProjectLifecycle : public QObject
{
    Q_OBJECT
public:
    // What the last opening has to tell the user, in plain text; empty when
    // all went well.
    struct OpenReport {
        QString title;
        QString message;
        QStringList details;
    };

    ProjectLifecycle(QWidget* window, HudListController* huds, GameUIEditor* editor);

    bool isOpen() const { return isProjectOpen; }
    bool isChanged() const { return changed; }
    const QDir& directory() const { return projectDirectory; }
    // At a fixed address for the whole run: pickers and dialogs keep a pointer.
    QJsonObject* data() { return &projectData; }
    const QJsonObject* data() const { return &projectData; }
    QSize screenSize() const;
    QString editorLocation() const { return location; }
    // A folder that holds no game runtime leaves the location empty.
    void setEditorLocation(const QString& folder);
    // What keeps the game from running for want of a runtime, in a sentence;
    // empty when the RPG Maker location holds one.
    QString locationProblem() const;
    const OpenReport& lastOpenReport() const { return openReport; }
    // What the status bar says beside the project, until the next opening.
    QString notice() const { return statusNotice; }
    void setNotice(const QString& text);

    // The start: the stored RPG Maker location and darken ratio, then the
    // project of the command line, else the one open last.
    void openStartProject();
    // The one entry for every opening; an empty or missing path closes.
    void openAt(const QString& path);
    // The file dialog, then the opening, after unsaved work was settled.
    void chooseAndOpen();
    // A project dropped on the window.
    void openDropped(const QString& path);
    void reload();
    void save();
    void close();
    // The window is closing: false when the user wants it to stay.
    bool closeApplication();

    // The unsaved-changes prompt: 0 save, 1 don't save, 2 cancel; 1 without
    // asking when nothing is unsaved.
    int askToSave(const QString& question);
    // Saves on outcome 0; false when that save failed.
    bool saveIfAsked(int outcome);

    // Marks unsaved changes, as every edit outside the canvas's undo history does.
    void markChanged();
    // The canvas moved along its undo history: the project is unsaved unless
    // it stands where it was saved and nothing else changed since.
    void undoPositionChanged();
    // Loading another HUD into the canvas is no edit: the state from before
    // comes back once the HUD is there.
    void keepChangedState(bool value);

signals:
    // Anything the window shows changed: the project, its unsaved state, the notice.
    void stateChanged();

private slots:
    // The document was changed by another program.
    void whenDocumentChangedOnDisk(bool removed);
    // Offers the recovery file of the open project when it is newer than the document.
    void offerRecovery();

private:
    bool loadProjectData(QStringList* problems = nullptr);
    bool loadHUDs();
    HudDocument readDocument() const;
    // The user's order of custom properties, "data/plugin/PropertyOrders.json",
    // into the project data, and back to the file on saving.
    void loadPropertyOrders();
    bool savePropertyOrders(QString* reason);
    // Shows what the last opening has to tell, after the user asked for it.
    void reportOpening();
    // Asks before the open project is replaced; false when cancelled.
    bool settleUnsavedChanges();
    void saveWindowState();

    QWidget* window;
    HudListController* huds;
    GameUIEditor* editor;

    QDir projectDirectory;
    QJsonObject projectData;
    QString location;
    // A stored location that holds no runtime, kept to say so.
    QString rejectedLocation;
    bool isProjectOpen = false;
    bool changed = false;
    // Unsaved work that the canvas's undo history can't take back: edits of
    // the HUD list, arrow-key moves, edits of another HUD.
    bool changedOutsideUndo = false;
    // Where the canvas's undo history stood when the project was last saved
    // (or the HUD loaded).
    quint64 savedUndoPosition = 0;

    // From here on the canvas's present state counts as the saved one.
    void takeUndoPositionAsSaved(bool otherChanges);

    // Root keys of the document other than "Data", written back on saving.
    QJsonObject documentRoot;
    // The project's document couldn't be taken as it stood; keep a copy on saving.
    bool damagedHudFile = false;
    OpenReport openReport;
    QString statusNotice;

    DocumentWatcher* documentWatcher = nullptr;
    RecoveryWriter* recovery = nullptr;
    // A question about the document on disk is up; another change waits for it.
    bool askingAboutDisk = false;
};
