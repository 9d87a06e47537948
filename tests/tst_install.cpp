#include "TestEnvironment.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QImage>
#include <QJsonDocument>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

// Velmora as "cmake --install" lays it out: the programs run from the install
// alone, find their shipped files under share/velmora, write nothing below
// the prefix, and come with a desktop entry, a file type, a software centre
// description and manual pages that agree with the programs.
class TestInstall : public QObject
{
    Q_OBJECT

    using Run = TestEnvironment::CliResult;
    const QString appId = QStringLiteral("io.github.ostrel_vane.velmora");
    // The DESTDIR of the install, and the prefix (/usr) inside it.
    QString root;
    QString prefix;
    // The home of the installed programs, which lies outside both.
    QString home;

    // An environment that holds nothing from the build tree: the system's
    // PATH, a home and XDG folders of the test's own, no window system.
    QProcessEnvironment cleanEnvironment() const
    {
        QProcessEnvironment environment;
        environment.insert(QStringLiteral("PATH"), QStringLiteral("/usr/bin:/bin"));
        environment.insert(QStringLiteral("LANG"), QStringLiteral("C.UTF-8"));
        environment.insert(QStringLiteral("HOME"), home);
        for (const char* folder : {"CONFIG_HOME=/config", "DATA_HOME=/data", "CACHE_HOME=/cache", "RUNTIME_DIR=/runtime"}) {
            const QStringList pair = QString::fromLatin1(folder).split(QLatin1Char('='));
            environment.insert(QStringLiteral("XDG_") + pair.at(0), home + pair.at(1));
        }
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        // A sanitizer build keeps its settings.
        const QProcessEnvironment outer = QProcessEnvironment::systemEnvironment();
        for (const char* key : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS"}) {
            if (outer.contains(QLatin1String(key)))
                environment.insert(QLatin1String(key), outer.value(QLatin1String(key)));
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

    // What find prints for each entry below a folder (by default the path
    // of each file), sorted.
    QStringList findBelow(const QString& folder, const QStringList& tests = {"-type", "f", "-printf", "%P\\n"}) const
    {
        QStringList entries = run(tool(QStringLiteral("find")), QStringList{folder, QStringLiteral("-mindepth"), QStringLiteral("1")} + tests)
                                  .out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        entries.sort();
        return entries;
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

    // What goes where: the programs, and the shipped files beside each
    // other as in the build tree.
    void installedLayout()
    {
        QCOMPARE(findBelow(prefix + QStringLiteral("/bin")), QStringList({QStringLiteral("velmora"), QStringLiteral("velmora-cli")}));
        QStringList shipped;
        for (const QString folder : {QStringLiteral("Default"), QStringLiteral("Themes")}) {
            for (const QString& file : findBelow(QStringLiteral(VELMORA_SOURCE_ROOT "/") + folder))
                shipped.append(folder + QLatin1Char('/') + file);
        }
        for (const QString& file : QDir(QStringLiteral(VELMORA_SOURCE_ROOT "/examples/translations"))
                                       .entryList({QStringLiteral("*.csv")}, QDir::Files))
            shipped.append(QStringLiteral("translations/") + file);
        shipped.sort();
        QCOMPARE(findBelow(shared(QStringLiteral("velmora"))), shipped);
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
        const Run check = installed(QStringLiteral("velmora-cli"), {QStringLiteral("check"), project});
        QCOMPARE(check.code, 0);
        QVERIFY2(check.out.contains(QStringLiteral("from the templates")), qPrintable(check.out));
        QCOMPARE(check.out, run(builtCli, {QStringLiteral("check"), project}).out);

        // The pictures match the built program's, pixel for pixel: the same
        // templates, pictures and fonts (its web fonts through the cache).
        const QString builtPictures = TestEnvironment::newFolder(QStringLiteral("built-render"));
        QCOMPARE(run(builtCli, {QStringLiteral("render"), project, QStringLiteral("--out"), builtPictures}).code, 0);
        const QString pictures = TestEnvironment::newFolder(QStringLiteral("installed-render"));
        const Run render = installed(QStringLiteral("velmora-cli"),
                                     {QStringLiteral("render"), project, QStringLiteral("--out"), pictures});
        QVERIFY2(render.code == 0, qPrintable(render.err));
        const QStringList written = findBelow(pictures);
        QCOMPARE(written, QStringList({QStringLiteral("Battle HUD.png"), QStringLiteral("Map HUD.png")}));
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
        const QStringList before = findBelow(root, QStringList{"-printf", "%P %s %T@ %m\\n"});
        newHome();

        // A web font of the sample project fills the font cache.
        const QString project = projectWithWebFont(QStringLiteral("installed-edit"));
        const QString pictures = TestEnvironment::newFolder(QStringLiteral("cache-render"));
        QCOMPARE(installed(QStringLiteral("velmora-cli"), {QStringLiteral("render"), project, QStringLiteral("--out"), pictures}).code, 0);
        QVERIFY(!findBelow(home + QStringLiteral("/cache/Ostrel Vane/Velmora 2/FontCache")).isEmpty());

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

        QCOMPARE(findBelow(root, QStringList{"-printf", "%P %s %T@ %m\\n"}), before);
    }

    // The desktop entry and the software centre description pass their
    // validators without a remark; the release listed is this version.
    void desktopFilesValidate()
    {
        const QString desktopValidator = tool(QStringLiteral("desktop-file-validate"));
        const QString metainfoValidator = tool(QStringLiteral("appstreamcli"));
        if (desktopValidator.isEmpty() || metainfoValidator.isEmpty())
            QSKIP("desktop-file-validate or appstreamcli (Debian's desktop-file-utils, appstream) is not installed");
        // Hints left out: the entry belongs to two main categories on purpose.
        Run result = run(desktopValidator, {QStringLiteral("--no-hints"),
                                            shared(QStringLiteral("applications/%1.desktop").arg(appId))});
        QVERIFY2(result.code == 0 && result.out.isEmpty() && result.err.isEmpty(), qPrintable(result.out + result.err));
        const QString metainfo = shared(QStringLiteral("metainfo/%1.metainfo.xml").arg(appId));
        result = run(metainfoValidator, {QStringLiteral("validate"), QStringLiteral("--no-net"),
                                         QStringLiteral("--pedantic"), QStringLiteral("--explain"), metainfo});
        QVERIFY2(result.code == 0, qPrintable(result.out + result.err));
        QVERIFY2(!QRegularExpression(QStringLiteral("^[EWIP]: "), QRegularExpression::MultilineOption)
                      .match(result.out + result.err).hasMatch(),
                 qPrintable(result.out + result.err));
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
                     .match(entry).hasMatch(),
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

    // Every command and option of the programs' help is in their manual
    // page, as a word of its own.
    void manPagesNameEveryOption()
    {
        for (const QString program : {QStringLiteral("velmora"), QStringLiteral("velmora-cli")}) {
            const Run help = installed(program, {QStringLiteral("--help")});
            QCOMPARE(help.code, 0);
            // The page as a reader sees the words: no font changes, plain hyphens.
            QString page = run(tool(QStringLiteral("gzip")), {QStringLiteral("-dc"), shared(QStringLiteral("man/man1/%1.1.gz").arg(program))}).out;
            page.remove(QRegularExpression(QStringLiteral("\\\\f[BIRP]")));
            page.replace(QStringLiteral("\\-"), QStringLiteral("-"));
            QVERIFY(page.contains(QStringLiteral("Velmora " VELMORA_VERSION)));
            // A command starts a line "  <command> PROJECT" of the help.
            QStringList words;
            QRegularExpressionMatchIterator it = QRegularExpression(QStringLiteral("^  ([a-z]+) PROJECT|--[a-z][a-z-]*"),
                                                                    QRegularExpression::MultilineOption).globalMatch(help.out);
            while (it.hasNext()) {
                const QRegularExpressionMatch match = it.next();
                words.append(match.captured(1).isEmpty() ? match.captured(0) : match.captured(1));
            }
            QVERIFY(words.contains(QStringLiteral("--version")));
            QVERIFY(program == QStringLiteral("velmora") || words.contains(QStringLiteral("resave")));
            for (const QString& word : words) {
                const QRegularExpression alone(QStringLiteral("(^|[^A-Za-z0-9-])%1($|[^A-Za-z0-9-])").arg(QRegularExpression::escape(word)),
                                               QRegularExpression::MultilineOption);
                QVERIFY2(alone.match(page).hasMatch(), qPrintable(program + QLatin1Char(' ') + word));
            }
        }
    }
};

VELMORA_TEST_MAIN(TestInstall, QGuiApplication)

#include "tst_install.moc"
