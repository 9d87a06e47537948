#include "app/FolderOpener.h"

#include <QDesktopServices>
#include <QPointer>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace FolderOpener {

void open(const QString& folder, QObject* context, const std::function<void()>& failed)
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    const QString launcher = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (!launcher.isEmpty()) {
        // No parent: the launcher may stay for as long as the file manager it
        // started runs, and the editor's end must not take that down.
        QProcess* process = new QProcess();
        process->setProgram(launcher);
        process->setArguments({folder});
        process->setStandardOutputFile(QProcess::nullDevice());
        process->setStandardErrorFile(QProcess::nullDevice());
        const QPointer<QObject> alive(context);
        QObject::connect(process, &QProcess::errorOccurred, process, [process, alive, failed](QProcess::ProcessError) {
            if (process->state() == QProcess::NotRunning) {
                if (alive)
                    failed();
                process->deleteLater();
            }
        });
        QObject::connect(process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), process,
                         [process, alive, failed](int code, QProcess::ExitStatus status) {
                             // xdg-open answers 3 when no tool was found, 4 when the action failed.
                             if ((status != QProcess::NormalExit || code != 0) && alive)
                                 failed();
                             process->deleteLater();
                         });
        process->start();
        return;
    }
#endif
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(folder)))
        failed();
}

}
