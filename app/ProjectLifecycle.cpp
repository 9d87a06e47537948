#include "app/ProjectLifecycle.h"

#include "app/DocumentWatcher.h"
#include "app/GameRunner.h"
#include "app/HudDocument.h"
#include "app/HudListController.h"
#include "app/JsonFile.h"
#include "app/ProjectData.h"
#include "app/RecoveryFile.h"
#include "app/RecoveryWriter.h"
#include "app/SettingsStore.h"
#include "app/Startup.h"
#include "scene/GameUIEditor.h"
#include "scene/GameUIEditorScene.h"
#include "scene/UsesCustomProperties.h"
#include "widgets/AlertDialog.h"
#include "widgets/ConfirmationDialog.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QApplication>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>
#include <QTimer>
#include <QWidget>

ProjectLifecycle::ProjectLifecycle(QWidget* window, HudListController* huds, GameUIEditor* editor)
    : QObject(window), window(window), huds(huds), editor(editor)
{
    documentWatcher = new DocumentWatcher(this);
    connect(documentWatcher, &DocumentWatcher::changedOnDisk, this, &ProjectLifecycle::whenDocumentChangedOnDisk);
    recovery = new RecoveryWriter(
        [this](QDir& project, RecoveryFile::Content& content) {
            if (!isProjectOpen || !changed)
                return false;
            this->huds->storeSceneIntoCurrent();
            project = projectDirectory;
            content.document = HudDocument::assemble(documentRoot, this->huds->entries(), &content.backgrounds);
            content.propertyOrders = projectData.value(UsesCustomProperties::OrdersFile).toObject();
            return true;
        },
        this);
}

QSize ProjectLifecycle::screenSize() const
{
    return huds->screenSize();
}

void ProjectLifecycle::setNotice(const QString& text)
{
    statusNotice = text;
    emit stateChanged();
}

void ProjectLifecycle::markChanged()
{
    changedOutsideUndo = true;
    changed = true;
    recovery->schedule();
    emit stateChanged();
}

void ProjectLifecycle::undoPositionChanged()
{
    changed = changedOutsideUndo || editor->editorScene()->undoPosition() != savedUndoPosition;
    if (changed)
        recovery->schedule();
    emit stateChanged();
}

void ProjectLifecycle::takeUndoPositionAsSaved(bool otherChanges)
{
    changedOutsideUndo = otherChanges;
    changed = otherChanges;
    savedUndoPosition = editor->editorScene()->undoPosition();
}

void ProjectLifecycle::keepChangedState(bool value)
{
    // The HUD's history starts afresh; the edits of the HUD left behind can
    // no longer be undone, so they count as other changes.
    takeUndoPositionAsSaved(value);
    emit stateChanged();
    // What the canvas held is now in the list: a good moment to keep it.
    recovery->writeNow();
}

QString ProjectLifecycle::locationProblem() const
{
    if (!location.isEmpty())
        return QString();
    if (!rejectedLocation.isEmpty())
        return tr("No game runtime (\"nwjs-win\" or \"nwjs-lin\") was found in the RPG Maker MZ location \"%1\".")
            .arg(QDir::toNativeSeparators(rejectedLocation));
    return tr("No RPG Maker MZ location is set: choose the folder of RPG Maker MZ, the one that holds "
              "\"nwjs-win\" or \"nwjs-lin\", in the settings.");
}

void ProjectLifecycle::setEditorLocation(const QString& folder)
{
    location = GameRunner::isValidLocation(folder) ? folder : QString();
    rejectedLocation = location.isEmpty() ? folder : QString();
    emit stateChanged();
}

void ProjectLifecycle::openStartProject()
{
    SettingsStore store;
    location = store.value(QStringLiteral("EditorLocation")).toString();
    if (!GameRunner::isValidLocation(location)) {
        rejectedLocation = location;
        location.clear();
    }
    if (store.contains(QStringLiteral("BackgroundDarken")))
        editor->editorScene()->setDarkness(store.value(QStringLiteral("BackgroundDarken")).toDouble());

    const Startup::CommandLineProject fromArguments = Startup::projectFromArguments(QCoreApplication::arguments());
    QString project = fromArguments.folder;
    QStringList notices = Startup::takeNotices() + fromArguments.problems;
    if (project.isEmpty()) {
        project = store.value(QStringLiteral("Project")).toString();
        if (!project.isEmpty() && !QFileInfo::exists(project))
            notices.append(tr("The last project, \"%1\", is no longer there.").arg(QDir::toNativeSeparators(project)));
    }
    openAt(project);
    // At start-up nobody asked for anything yet: the status bar tells.
    if (!openReport.message.isEmpty())
        notices.append(QStringList(openReport.message) + openReport.details);
    setNotice(notices.join(QLatin1Char(' ')));
}

void ProjectLifecycle::openAt(const QString& path)
{
    openReport = OpenReport();
    statusNotice.clear();
    // The open project is left on purpose: its unsaved work was settled.
    if (isProjectOpen)
        recovery->remove(projectDirectory);
    documentWatcher->stop();
    if (path.isEmpty() || !QFileInfo::exists(path)) {
        projectData = QJsonObject();
        projectDirectory = QDir();
        isProjectOpen = false;
        if (!path.isEmpty()) {
            openReport.title = tr("Open Error");
            openReport.message = tr("\"%1\" doesn't exist.").arg(QDir::toNativeSeparators(path));
        }
    } else {
        const QFileInfo info(path);
        projectDirectory = QDir(info.isDir() ? info.absoluteFilePath() : info.absolutePath());
        projectData = QJsonObject();
        QStringList problems;
        if (!loadProjectData(&problems)) {
            openReport.title = tr("Open Error");
            openReport.message = tr("\"%1\" is not an RPG Maker MZ project that can be opened:")
                                     .arg(QDir::toNativeSeparators(projectDirectory.absolutePath()));
            // A folder that isn't a project at all misses every file; the
            // first few say enough.
            const int shown = 3;
            openReport.details = problems.mid(0, shown);
            if (problems.size() > shown)
                openReport.details.append(tr("... and %1 more.").arg(problems.size() - shown));
        }
        if (isProjectOpen)
            loadPropertyOrders();
        // Nothing of the project left behind is unsaved work of this one.
        takeUndoPositionAsSaved(false);
        if (!loadHUDs())
            return openAt(QString());
        takeUndoPositionAsSaved(false);
        if (isProjectOpen) {
            // A project opens with its screen fitted into the view.
            editor->fitZoom();
            documentWatcher->watch(JsonFile::pluginPath(projectDirectory, HudDocument::FileName));
            // Asked once the window is up and the opening has told its own news.
            if (RecoveryFile::isNewerThanDocument(projectDirectory))
                QTimer::singleShot(0, this, &ProjectLifecycle::offerRecovery);
        }
    }
    emit stateChanged();
}

void ProjectLifecycle::reportOpening()
{
    if (!openReport.message.isEmpty())
        AlertDialog::alert(openReport.message.toHtmlEscaped(), openReport.details, openReport.title, window);
}

bool ProjectLifecycle::loadProjectData(QStringList* problems)
{
    ProjectData::ScreenSize screen;
    isProjectOpen = ProjectData::load(projectDirectory, projectData, screen, problems);
    if (!isProjectOpen)
        return false;
    huds->setScreenSize(QSize(screen.width, screen.height));
    return true;
}

void ProjectLifecycle::loadPropertyOrders()
{
    // A missing or damaged file only loses the order: the properties
    // themselves live in the document, and their names sort the list then.
    const QJsonObject orders = JsonFile::readPlugin(projectDirectory, UsesCustomProperties::OrdersFile).object();
    projectData.insert(UsesCustomProperties::OrdersFile, orders);
}

bool ProjectLifecycle::savePropertyOrders(QString* reason)
{
    const QJsonObject orders = projectData.value(UsesCustomProperties::OrdersFile).toObject();
    // A project that never ordered a property gets no file of orders.
    if (orders.isEmpty()
        && !QFileInfo::exists(JsonFile::pluginPath(projectDirectory, UsesCustomProperties::OrdersFile)))
        return true;
    return JsonFile::writePlugin(projectDirectory, UsesCustomProperties::OrdersFile, orders, reason);
}

HudDocument ProjectLifecycle::readDocument() const
{
    return HudDocument::load(projectDirectory, HudDocument::storedBackgrounds(projectDirectory));
}

bool ProjectLifecycle::loadHUDs()
{
    const HudDocument document = readDocument();
    documentRoot = document.root;
    damagedHudFile = document.damagedFile;
    if (isProjectOpen && document.damagedFile) {
        openReport.title = tr("HUD Document Damaged");
        openReport.message = document.damageNotice();
    }
    huds->show(document);
    return true;
}

void ProjectLifecycle::chooseAndOpen()
{
    // Where the user worked last, or home: never a made-up file name.
    QString start = isProjectOpen ? projectDirectory.absolutePath()
                                  : SettingsStore().value(QStringLiteral("Project")).toString();
    if (start.isEmpty() || !QFileInfo(start).isDir())
        start = QDir::homePath();
    const QString chosen = QFileDialog::getOpenFileName(window, tr("RPG Maker MZ Project"), start,
                                                        QStringLiteral("RPG Maker Project (*.rmmzproject)"));
    if (chosen.isEmpty())
        return;
    openDropped(chosen);
}

void ProjectLifecycle::openDropped(const QString& path)
{
    if (!settleUnsavedChanges())
        return;
    openAt(path);
    reportOpening();
}

void ProjectLifecycle::reload()
{
    if (!isProjectOpen)
        return;
    QStringList problems;
    if (!loadProjectData(&problems)) {
        AlertDialog::alert(tr("Could not reload data!"), problems, tr("Reload Error"), window);
        isProjectOpen = true;
    }
    emit stateChanged();
}

void ProjectLifecycle::save()
{
    if (!isProjectOpen) {
        takeUndoPositionAsSaved(false);
        return;
    }
    huds->storeSceneIntoCurrent();

    QStringList backgrounds;
    const QJsonObject document = HudDocument::assemble(documentRoot, huds->entries(), &backgrounds);

    // A damaged file is copied aside once, before anything is written over it.
    QString reason;
    if (damagedHudFile && HudDocument::keepDamagedCopy(projectDirectory, &reason))
        damagedHudFile = false;
    const bool saved = !damagedHudFile && HudDocument::save(projectDirectory, document, false, QString(), &reason);

    SettingsStore store;
    QVariantMap allBackgrounds = store.value(QStringLiteral("Backgrounds")).toMap();
    allBackgrounds.insert(projectDirectory.absolutePath(), backgrounds);
    store.setValue(QStringLiteral("Backgrounds"), allBackgrounds);

    // The order of the custom properties is written whatever became of the
    // document, and the document whatever becomes of the order.
    QString ordersReason;
    const bool ordersSaved = savePropertyOrders(&ordersReason);

    if (saved) {
        documentRoot = document;
        documentRoot.remove(HudDocument::KeyData);
        documentWatcher->acknowledge();
    }
    const auto failed = [this](const QString& message, const QString& fileName, const QString& why) {
        AlertDialog::alert(message,
                           {QStringLiteral("%1: %2").arg(
                               QDir::toNativeSeparators(JsonFile::pluginPath(projectDirectory, fileName)), why)},
                           tr("Save Error"), window);
    };
    if (!saved)
        failed(tr("Could not save to \"VelmoraHUD.json\"!"), HudDocument::FileName, reason);
    if (!ordersSaved)
        failed(tr("Could not save to \"PropertyOrders.json\"!"), UsesCustomProperties::OrdersFile, ordersReason);
    if (saved && ordersSaved) {
        takeUndoPositionAsSaved(false);
        recovery->remove(projectDirectory);
    } else {
        // The project keeps its unsaved state, so closing still asks; the
        // recovery file keeps the work meanwhile.
        changed = true;
        recovery->writeNow();
    }
    emit stateChanged();
}

int ProjectLifecycle::askToSave(const QString& question)
{
    // 0 save, 1 don't save, 2 cancel; without changes nothing is asked.
    int outcome = 1;
    if (isProjectOpen && changed) {
        ConfirmationDialog dialog(question, tr("Save Confirmation"), &outcome, window);
        dialog.exec();
    }
    return outcome;
}

bool ProjectLifecycle::saveIfAsked(int outcome)
{
    if (outcome != 0)
        return true;
    save();
    // A save that failed leaves the work unsaved: don't throw it away.
    return !changed;
}

bool ProjectLifecycle::settleUnsavedChanges()
{
    const int outcome = askToSave(tr("Would you like to save before closing?"));
    return outcome != 2 && saveIfAsked(outcome);
}

void ProjectLifecycle::close()
{
    if (!isProjectOpen)
        return;
    const int outcome = askToSave(tr("Would you like to save before closing?"));
    if (outcome == 2)
        return;
    saveWindowState();
    if (!saveIfAsked(outcome))
        return;
    openAt(QString());
}

bool ProjectLifecycle::closeApplication()
{
    const int outcome = askToSave(tr("Would you like to save before closing?"));
    if (outcome == 2)
        return false;
    saveWindowState();
    if (!saveIfAsked(outcome))
        return false;
    if (isProjectOpen)
        recovery->remove(projectDirectory);
    return true;
}

void ProjectLifecycle::saveWindowState()
{
    SettingsStore store;
    store.setValue(QStringLiteral("Project"), isProjectOpen ? projectDirectory.absolutePath() : QString());
    store.setValue(QStringLiteral("Geometry"), window->normalGeometry());
    store.setValue(QStringLiteral("IsMaximized"), window->isMaximized());
    store.setValue(QStringLiteral("EditorLocation"), location);
    store.setValue(QStringLiteral("BackgroundDarken"), editor->editorScene()->darkness());
}

void ProjectLifecycle::offerRecovery()
{
    RecoveryFile::Content kept;
    if (!isProjectOpen || changed || !RecoveryFile::isNewerThanDocument(projectDirectory)
        || !RecoveryFile::read(projectDirectory, &kept))
        return;
    int answer = 1;
    ConfirmationDialog dialog(
        QStringList{tr("Velmora was closed with unsaved changes to this project."),
                    tr("They were kept on %1.").arg(QLocale().toString(kept.written, QLocale::ShortFormat)),
                    tr("Restore them?")},
        tr("Recover Unsaved Changes"), &answer, window, ConfirmationDialog::YesNo);
    dialog.exec();
    if (answer != 0) {
        // Kept for the moment; the next save removes it.
        setNotice(tr("The unsaved changes were not restored."));
        return;
    }
    HudDocument document;
    document.setDocument(kept.document, kept.backgrounds);
    documentRoot = document.root;
    // A recovery file from before the orders were kept has none: the
    // project's own file stays in force then.
    if (!kept.propertyOrders.isEmpty())
        projectData.insert(UsesCustomProperties::OrdersFile, kept.propertyOrders);
    huds->show(document);
    // Restored work is unsaved work until the user saves it.
    takeUndoPositionAsSaved(true);
    setNotice(tr("The unsaved changes were restored; save to keep them."));
}

void ProjectLifecycle::whenDocumentChangedOnDisk(bool removed)
{
    if (!isProjectOpen || askingAboutDisk)
        return;
    if (QApplication::activeModalWidget()) {
        // Not in the middle of another question: ask when it is answered.
        QTimer::singleShot(300, this, [this, removed]() { whenDocumentChangedOnDisk(removed); });
        return;
    }
    if (removed) {
        // The list still holds the whole document; saving writes it again.
        statusNotice = tr("\"VelmoraHUD.json\" was removed by another program; saving writes it again.");
        markChanged();
        return;
    }
    const HudDocument document = readDocument();
    if (document.damagedFile) {
        statusNotice = tr("\"VelmoraHUD.json\" was changed by another program but can't be read (%1); "
                          "the HUDs stay as they were.").arg(document.damage);
        markChanged();
        return;
    }
    if (changed) {
        int answer = 1;
        askingAboutDisk = true;
        ConfirmationDialog dialog(QStringList{tr("\"VelmoraHUD.json\" was changed by another program."),
                                              tr("Reload it and lose your unsaved changes?")},
                                  tr("Document Changed on Disk"), &answer, window, ConfirmationDialog::YesNo);
        dialog.exec();
        askingAboutDisk = false;
        if (answer != 0) {
            setNotice(tr("Your unsaved changes were kept; saving writes them over the other program's version."));
            return;
        }
    }
    const UltimateTree* tree = huds->widget()->tree();
    const int currentIndex = tree->currentRow() ? tree->indexOfRow(tree->currentRow()) : -1;
    documentRoot = document.root;
    damagedHudFile = false;
    takeUndoPositionAsSaved(false);
    huds->show(document);
    // The same place in the list, when the list still has it.
    if (currentIndex >= 0 && currentIndex < tree->rowCount())
        huds->widget()->tree()->setCurrentRow(tree->row(currentIndex));
    recovery->remove(projectDirectory);
    setNotice(tr("\"VelmoraHUD.json\" was changed by another program and has been reloaded."));
}
