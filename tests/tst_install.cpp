#include "TestEnvironment.h"

#include "app/PathManager.h"
#include "theme/ProgramFolders.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QImage>
#include <QJsonDocument>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QStandardPaths>

// Velmora as "cmake --install" lays it out: the programs run from the install
// alone, find their shipped files under share/velmora, write nothing below
// the prefix, and come with a desktop entry, a file type, a software centre
// description, icons, manual pages and completion that agree with the
// programs.
class TestInstall : public QObject
{
    Q_OBJECT

    const QString appId = QStringLiteral("io.github.ostrel_vane.velmora");
    // The DESTDIR of the install, and the prefix (/usr) inside it.
    QString root;
    QString prefix;
    // The home of the installed programs, which lies outside both.
    QString home;

    struct Run {
        int code = -1;
        QString out;
        QString err;
    };

    // An environment that holds nothing from the build tree: the system's
    // PATH, a home and XDG folders of the test's own, no window system.
    QProcessEnvironment cleanEnvironment() const
    {
        QProcessEnvironment environment;
        environment.insert(QStringLiteral("PATH"), QStringLiteral("/usr/bin:/bin"));
        environment.insert(QStringLiteral("LANG"), QStringLiteral("C.UTF-8"));
        environment.insert(QStringLiteral("HOME"), home);
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home + QStringLiteral("/config"));
        environment.insert(QStringLiteral("XDG_DATA_HOME"), home + QStringLiteral("/data"));
        environment.insert(QStringLiteral("XDG_CACHE_HOME"), home + QStringLiteral("/cache"));
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), home + QStringLiteral("/runtime"));
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        // A sanitizer build keeps its settings.
        const QProcessEnvironment outer = QProcessEnvironment::systemEnvironment();
        for (const QString& key : {QStringLiteral("ASAN_OPTIONS"), QStringLiteral("UBSAN_OPTIONS"),
                                   QStringLiteral("LSAN_OPTIONS")}) {
            if (outer.contains(key))
                environment.insert(key, outer.value(key));
        }
        return environment;
    }

    // Runs a program in the test's home, in a clean environment unless told.
    Run run(const QString& program, const QStringList& arguments, QProcessEnvironment environment = {}) const
    {
        QProcess process;
        process.setProcessEnvironment(environment.isEmpty() ? cleanEnvironment() : environment);
        process.setWorkingDirectory(home);
        process.start(program, arguments);
        Run result;
        if (!process.waitForStarted() || !process.waitForFinished(60000)) {
            process.kill();
            process.waitForFinished();
            result.err = QStringLiteral("%1 did not run to its end: %2").arg(program, process.errorString());
            return result;
        }
        result.code = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
        result.out = QString::fromUtf8(process.readAllStandardOutput());
        result.err = QString::fromUtf8(process.readAllStandardError());
        return result;
    }

    Run installed(const QString& program, const QStringList& arguments) const
    {
        return run(prefix + QStringLiteral("/bin/") + program, arguments);
    }

    // A copy of the sample project whose number font is a web font: drawing
    // it unpacks the font into the font cache.
    static QString projectWithWebFont(const QString& name)
    {
        const QString project = TestEnvironment::copySampleProject(name);
        const QString systemFile = project + QStringLiteral("/data/System.json");
        QJsonObject system = QJsonDocument::fromJson(TestEnvironment::readFile(systemFile)).object();
        QJsonObject advanced = system.value(QStringLiteral("advanced")).toObject();
        advanced.insert(QStringLiteral("numberFontFilename"), QStringLiteral("DejaVuSerif-Latin.woff"));
        system.insert(QStringLiteral("advanced"), advanced);
        TestEnvironment::writeFile(systemFile, QJsonDocument(system).toJson());
        return project;
    }

    // A fresh home for the installed programs.
    void newHome()
    {
        home = TestEnvironment::newFolder(QStringLiteral("installed-home"));
        QDir().mkpath(home + QStringLiteral("/runtime"));
        QFile::setPermissions(home + QStringLiteral("/runtime"),
                              QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    }

    // A tool of the system, or an empty path when it isn't installed.
    static QString tool(const QString& name) { return QStandardPaths::findExecutable(name); }

    QString shared(const QString& relative) const { return prefix + QStringLiteral("/share/") + relative; }

    // The options (--name) named in a usage text.
    static QSet<QString> optionsIn(const QString& text)
    {
        QSet<QString> options;
        QRegularExpressionMatchIterator it = QRegularExpression(QStringLiteral("--[a-z][a-z-]*")).globalMatch(text);
        while (it.hasNext())
            options.insert(it.next().captured(0));
        return options;
    }

    // velmora-cli's help, cut into the block of each command ("" for the
    // rest): a command block starts at a line "  <command> PROJECT".
    QMap<QString, QString> commandBlocks() const
    {
        const Run help = installed(QStringLiteral("velmora-cli"), {QStringLiteral("--help")});
        QMap<QString, QString> blocks;
        QString current;
        const QRegularExpression commandLine(QStringLiteral("^  ([a-z]+) PROJECT"));
        for (const QString& line : help.out.split(QLatin1Char('\n'))) {
            const QRegularExpressionMatch match = commandLine.match(line);
            if (match.hasMatch())
                current = match.captured(1);
            else if (!line.startsWith(QLatin1Char(' ')))
                current.clear();
            blocks[current] += line + QLatin1Char('\n');
        }
        return blocks;
    }

    // A manual page's text as a reader sees the words: no font changes, plain
    // hyphens.
    QString manText(const QString& gzipped) const
    {
        QString text = run(tool(QStringLiteral("gzip")), {QStringLiteral("-dc"), gzipped}).out;
        text.remove(QRegularExpression(QStringLiteral("\\\\f[BIRP]")));
        text.replace(QStringLiteral("\\-"), QStringLiteral("-"));
        return text;
    }

    static bool containsWord(const QString& text, const QString& word)
    {
        return QRegularExpression(QStringLiteral("(^|[^A-Za-z0-9-])%1($|[^A-Za-z0-9-])")
                                      .arg(QRegularExpression::escape(word)),
                                  QRegularExpression::MultilineOption)
            .match(text)
            .hasMatch();
    }

    // What bash completion offers for a command line whose last word is
    // being typed.
    QStringList completions(const QStringList& words) const
    {
        QString script = QStringLiteral(
            "source \"$1\"; shift\n"
            "fn=$(complete -p velmora-cli | sed -n 's/.*-F \\([^ ]*\\) .*/\\1/p')\n"
            "[ -n \"$fn\" ] || { echo 'no completion for velmora-cli' >&2; exit 1; }\n"
            "COMP_WORDS=(velmora-cli \"$@\"); COMP_CWORD=$#\n"
            "COMP_LINE=\"${COMP_WORDS[*]}\"; COMP_POINT=${#COMP_LINE}\n"
            "\"$fn\" velmora-cli \"${COMP_WORDS[COMP_CWORD]}\" \"${COMP_WORDS[COMP_CWORD-1]}\"\n"
            "printf '%s\\n' \"${COMPREPLY[@]}\"\n");
        const Run result = run(tool(QStringLiteral("bash")),
                               QStringList{QStringLiteral("--norc"), QStringLiteral("--noprofile"), QStringLiteral("-c"),
                                           script, QStringLiteral("bash"),
                                           shared(QStringLiteral("bash-completion/completions/velmora-cli"))}
                                   + words);
        if (result.code != 0)
            return {QStringLiteral("(failed: %1)").arg(result.err)};
        QStringList offered = result.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        offered.sort();
        return offered;
    }

    // What find prints for each entry below a folder, sorted.
    QStringList findBelow(const QString& folder, const QStringList& tests) const
    {
        const QStringList arguments = QStringList{folder, QStringLiteral("-mindepth"), QStringLiteral("1")} + tests;
        QStringList entries = run(tool(QStringLiteral("find")), arguments).out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        entries.sort();
        return entries;
    }

    QStringList filesBelow(const QString& folder) const
    {
        return findBelow(folder,
                         {QStringLiteral("-type"), QStringLiteral("f"), QStringLiteral("-printf"), QStringLiteral("%P\\n")});
    }

    // Every entry below a folder with what a write would change.
    QStringList snapshot(const QString& folder) const
    {
        return findBelow(folder, {QStringLiteral("-printf"), QStringLiteral("%P %s %T@ %m\\n")});
    }

    // Takes the write permission from every entry below folder, or gives it
    // back to the owner.
    void setWritable(const QString& folder, bool writable) const
    {
        run(tool(QStringLiteral("chmod")),
            {QStringLiteral("-R"), writable ? QStringLiteral("u+w") : QStringLiteral("a-w"), folder});
    }

private slots:
    void initTestCase()
    {
        root = TestEnvironment::newFolder(QStringLiteral("destdir"));
        prefix = root + QStringLiteral("/usr");
        newHome();

        QProcess install;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("DESTDIR"), root);
        install.setProcessEnvironment(environment);
        install.setProcessChannelMode(QProcess::MergedChannels);
        install.start(QStringLiteral(VELMORA_CMAKE),
                      {QStringLiteral("--install"), QStringLiteral(VELMORA_BUILD_DIR), QStringLiteral("--prefix"),
                       QStringLiteral("/usr")});
        QVERIFY(install.waitForFinished(120000));
        QVERIFY2(install.exitCode() == 0, install.readAll().constData());
    }

    void cleanupTestCase()
    {
        if (!root.isEmpty())
            setWritable(root, true);
    }

    // What goes where: the programs, the shipped files beside each other as
    // in the build tree, and the desktop's files at the places it reads.
    void installedLayout()
    {
        QCOMPARE(filesBelow(prefix + QStringLiteral("/bin")),
                 QStringList({QStringLiteral("velmora"), QStringLiteral("velmora-cli")}));
        QStringList shipped;
        for (const QString folder : {QStringLiteral("Default"), QStringLiteral("Themes")}) {
            for (const QString& file : filesBelow(QStringLiteral(VELMORA_SOURCE_ROOT "/") + folder))
                shipped.append(folder + QLatin1Char('/') + file);
        }
        for (const QString& file : QDir(QStringLiteral(VELMORA_SOURCE_ROOT "/examples/translations"))
                                       .entryList({QStringLiteral("*.csv")}, QDir::Files))
            shipped.append(QStringLiteral("translations/") + file);
        shipped.sort();
        QCOMPARE(filesBelow(shared(QStringLiteral("velmora"))), shipped);

        // The files no other test reads when the desktop's tools are missing.
        for (const QString& file : {QStringLiteral("icons/hicolor/scalable/apps/%1.svg").arg(appId),
                                    QStringLiteral("metainfo/%1.metainfo.xml").arg(appId),
                                    QStringLiteral("mime/packages/%1.xml").arg(appId),
                                    QStringLiteral("doc/velmora/copyright")})
            QVERIFY2(QFileInfo(shared(file)).isFile(), qPrintable(file));
    }

    // The installed programs, started with nothing of the build tree around
    // them, answer as the built ones do: the templates and fonts are found.
    void installedProgramsRunFromThePrefix()
    {
        for (const QString program : {QStringLiteral("velmora"), QStringLiteral("velmora-cli")})
            QCOMPARE(installed(program, {QStringLiteral("--version")}).out,
                     program + QStringLiteral(" " VELMORA_VERSION "\n"));

        // The sample project has no HUD document yet: what check counts comes
        // from the templates, so an install that misses them counts nothing.
        const QString project = projectWithWebFont(QStringLiteral("installed-check"));
        const QString builtCli = QCoreApplication::applicationDirPath() + QStringLiteral("/velmora-cli");
        const Run built = run(builtCli, {QStringLiteral("check"), project});
        const Run check = installed(QStringLiteral("velmora-cli"), {QStringLiteral("check"), project});
        QCOMPARE(check.code, 0);
        QVERIFY2(check.out.contains(QStringLiteral("from the templates")), qPrintable(check.out));
        QVERIFY(!check.out.contains(QStringLiteral("Components: 0\n")));
        QCOMPARE(check.out, built.out);

        // The pictures match the built program's, pixel for pixel: the same
        // templates, pictures and fonts (its web fonts through the cache).
        const QString builtPictures = TestEnvironment::newFolder(QStringLiteral("built-render"));
        QCOMPARE(run(builtCli, {QStringLiteral("render"), project, QStringLiteral("--out"), builtPictures}).code, 0);
        const QString pictures = TestEnvironment::newFolder(QStringLiteral("installed-render"));
        const Run render = installed(QStringLiteral("velmora-cli"),
                                     {QStringLiteral("render"), project, QStringLiteral("--out"), pictures});
        QVERIFY2(render.code == 0, qPrintable(render.err));
        const QStringList written = filesBelow(pictures);
        QCOMPARE(written, QStringList({QStringLiteral("Battle HUD.png"), QStringLiteral("Map HUD.png")}));
        QCOMPARE(written, filesBelow(builtPictures));
        for (const QString& file : written)
            QCOMPARE(QImage(pictures + QLatin1Char('/') + file), QImage(builtPictures + QLatin1Char('/') + file));
    }

    // An installed program never writes below its prefix, not even as root
    // (to whom a read-only folder is writable): a save, a user theme, the
    // font cache and the settings all go to the user's folders.
    void installedProgramNeverWritesBelowItsPrefix()
    {
        // The editor with a user inside, in the installed editor's place: the
        // same start-up and library as velmora.
        const QString editor = prefix + QStringLiteral("/bin/velmora-test-editor");
        QVERIFY(QFile::copy(QStringLiteral(VELMORA_TEST_EDITOR), editor));
        setWritable(root, false);
        const QStringList before = snapshot(root);
        newHome();

        // A web font of the sample project fills the font cache.
        const QString project = projectWithWebFont(QStringLiteral("installed-edit"));
        const QString pictures = TestEnvironment::newFolder(QStringLiteral("cache-render"));
        const Run render = installed(QStringLiteral("velmora-cli"),
                                     {QStringLiteral("render"), project, QStringLiteral("--out"), pictures});
        QCOMPARE(render.code, 0);
        QVERIFY(!filesBelow(home + QStringLiteral("/cache/Ostrel Vane/Velmora 2/FontCache")).isEmpty());

        // The editor opens the copy under a shipped theme, saves an edit,
        // writes a user theme and closes.
        TestEnvironment::writeFile(home + QStringLiteral("/config/Ostrel Vane/Velmora 2.conf"),
                                   "[General]\ntheme=Red Tint\n");
        const QString log = home + QStringLiteral("/user.log");
        QProcessEnvironment environment = cleanEnvironment();
        environment.insert(QStringLiteral("VELMORA_TEST_USER"), QStringLiteral("save"));
        environment.insert(QStringLiteral("VELMORA_TEST_USER_LOG"), log);
        environment.insert(QStringLiteral("VELMORA_TEST_USER_HUD"),
                           QStringLiteral("{\"Name\":\"Installed\",\"IsHUD\":true,\"HUD\":[]}"));
        const Run edit = run(editor, {project}, environment);
        QVERIFY2(edit.code == 0, qPrintable(edit.err));
        const QByteArray seen = TestEnvironment::readFile(log);
        QVERIFY2(seen.contains("saved\ntheme written\n"), seen.constData());

        QVERIFY(TestEnvironment::readFile(TestEnvironment::documentPath(project)).contains("\"Name\":\"Installed\""));
        QVERIFY(QFileInfo(home + QStringLiteral("/data/Ostrel Vane/Velmora 2/Themes/Mine/Theme.json")).isFile());
        // The shipped theme was found under share/velmora, so it is kept.
        QVERIFY(TestEnvironment::readFile(home + QStringLiteral("/config/Ostrel Vane/Velmora 2.conf"))
                    .contains("theme=Red Tint"));

        QCOMPARE(snapshot(root), before);
    }

    // A program in an install writes to the user's folders even when its
    // bin folder can be written (as it is to root).
    void installedProgramWritesToTheUserFolders()
    {
        const QString installRoot = TestEnvironment::newFolder(QStringLiteral("fake-prefix"));
        const QString bin = installRoot + QStringLiteral("/bin");
        QDir().mkpath(bin);
        TestEnvironment::copyTree(QStringLiteral(VELMORA_SOURCE_ROOT "/Default"),
                                  installRoot + QStringLiteral("/share/velmora/Default"));
        PathManager::setExecutableFolder(bin);
        QVERIFY(QFileInfo(bin).isWritable());
        QVERIFY(PathManager::runsFromInstall());
        QVERIFY(PathManager::writablePath(QStringLiteral("Themes/Mine/Theme.json"))
                    .startsWith(PathManager::userDataFolder()));
        QVERIFY(PathManager::fontCacheFile(0).startsWith(PathManager::userCacheFolder()));
        PathManager::setExecutableFolder(QString());
    }

    void desktopEntryValidates()
    {
        const QString validator = tool(QStringLiteral("desktop-file-validate"));
        if (validator.isEmpty())
            QSKIP("desktop-file-validate (Debian's desktop-file-utils) is not installed");
        // Hints left out: the entry belongs to two main categories on purpose.
        const Run result = run(validator, {QStringLiteral("--no-hints"),
                                           shared(QStringLiteral("applications/%1.desktop").arg(appId))});
        QVERIFY2(result.code == 0 && result.out.isEmpty() && result.err.isEmpty(), qPrintable(result.out + result.err));
    }

    void metainfoValidates()
    {
        const QString validator = tool(QStringLiteral("appstreamcli"));
        if (validator.isEmpty())
            QSKIP("appstreamcli (Debian's appstream) is not installed");
        const QString metainfo = shared(QStringLiteral("metainfo/%1.metainfo.xml").arg(appId));
        const Run result = run(validator, {QStringLiteral("validate"), QStringLiteral("--no-net"),
                                           QStringLiteral("--pedantic"), QStringLiteral("--explain"), metainfo});
        QVERIFY2(result.code == 0, qPrintable(result.out + result.err));
        // Not even a pedantic remark or a note.
        QVERIFY2(!QRegularExpression(QStringLiteral("^[EWIP]: "), QRegularExpression::MultilineOption)
                      .match(result.out + result.err)
                      .hasMatch(),
                 qPrintable(result.out + result.err));
        // The release listed is this version.
        QVERIFY(TestEnvironment::readFile(metainfo).contains("<release version=\"" VELMORA_VERSION "\""));
    }

    // The file type is registered for "*.rmmzproject", and the desktop entry
    // opens it with the file's path.
    void projectFilesOpenInVelmora()
    {
        const QString type = QStringLiteral("application/x-rmmzproject");
        const QString entry = QString::fromUtf8(
            TestEnvironment::readFile(shared(QStringLiteral("applications/%1.desktop").arg(appId))));
        QVERIFY2(entry.contains(QStringLiteral("\nExec=velmora %f\n")), qPrintable(entry));
        QVERIFY2(QRegularExpression(QStringLiteral("^MimeType=(.*;)?%1;").arg(type), QRegularExpression::MultilineOption)
                     .match(entry)
                     .hasMatch(),
                 qPrintable(entry));

        const QString updater = tool(QStringLiteral("update-mime-database"));
        if (updater.isEmpty())
            QSKIP("update-mime-database (Debian's shared-mime-info) is not installed");
        const QString database = TestEnvironment::newFolder(QStringLiteral("mime"));
        QDir().mkpath(database + QStringLiteral("/packages"));
        QVERIFY(QFile::copy(shared(QStringLiteral("mime/packages/%1.xml").arg(appId)),
                            database + QStringLiteral("/packages/%1.xml").arg(appId)));
        const Run update = run(updater, {database});
        QVERIFY2(update.code == 0, qPrintable(update.err));
        const QByteArray globs = TestEnvironment::readFile(database + QStringLiteral("/globs2"));
        QVERIFY2(globs.contains(":" + type.toUtf8() + ":*.rmmzproject\n"), globs.constData());
    }

    // Every option and command of the programs' help is in their manual page.
    void manPagesNameEveryOption()
    {
        for (const QString program : {QStringLiteral("velmora"), QStringLiteral("velmora-cli")}) {
            const Run help = installed(program, {QStringLiteral("--help")});
            QCOMPARE(help.code, 0);
            const QString page = manText(shared(QStringLiteral("man/man1/%1.1.gz").arg(program)));
            QVERIFY(page.contains(QStringLiteral("Velmora " VELMORA_VERSION)));
            const QSet<QString> options = optionsIn(help.out);
            QVERIFY(options.contains(QStringLiteral("--version")));
            for (const QString& option : options)
                QVERIFY2(containsWord(page, option), qPrintable(program + QLatin1Char(' ') + option));
        }
        const QString page = manText(shared(QStringLiteral("man/man1/velmora-cli.1.gz")));
        const QMap<QString, QString> blocks = commandBlocks();
        QCOMPARE(QStringList(blocks.keys()),
                 QStringList({QString(), QStringLiteral("check"), QStringLiteral("outline"), QStringLiteral("render"),
                              QStringLiteral("resave")}));
        for (const QString& command : blocks.keys()) {
            if (!command.isEmpty())
                QVERIFY2(page.contains(QStringLiteral("velmora-cli ") + command), qPrintable(command));
        }
    }

    // Completion offers the commands, and after a command exactly the
    // options its help names.
    void completionFollowsTheHelp()
    {
        const QMap<QString, QString> blocks = commandBlocks();
        QStringList first = blocks.keys();
        first.removeAll(QString());
        for (const QString& option : optionsIn(blocks.value(QString())))
            first.append(option);
        first.sort();
        QCOMPARE(completions({QString()}), first);

        for (const QString& command : blocks.keys()) {
            if (command.isEmpty())
                continue;
            QStringList options = optionsIn(blocks.value(command)).values();
            options.sort();
            QCOMPARE(completions({command, QStringLiteral("Project"), QStringLiteral("--")}), options);
        }
        // The project: folders and marker files.
        const QString project = TestEnvironment::copySampleProject(QStringLiteral("complete"));
        QStringList offered = completions({QStringLiteral("check"), project + QStringLiteral("/g")});
        QCOMPARE(offered, QStringList{project + QStringLiteral("/game.rmmzproject")});
    }
};

VELMORA_TEST_MAIN(TestInstall, QGuiApplication)

#include "tst_install.moc"
