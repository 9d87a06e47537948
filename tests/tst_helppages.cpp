#include "TestEnvironment.h"

#include "app/SettingsStore.h"
#include "app/VelmoAbout.h"
#include "app/VelmoComponentListHelp.h"
#include "app/VelmoControls.h"
#include "app/VelmoEasterEggGame.h"
#include "theme/ProgramFolders.h"
#include "theme/VelmoStyle.h"
#include "widgets/DialogFlags.h"

#include <QApplication>
#include <QGraphicsSimpleTextItem>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTextDocumentFragment>
#include <QTimer>

namespace {

// The game on a clock the test turns by hand.
struct Game {
    Game() : game(nullptr, [this]() { return now; })
    {
        game.seed(7);
        game.show();
        game.activateWindow();
        if (!QTest::qWaitForWindowActive(&game))
            qWarning("game not active");
    }
    // Lets ms milliseconds pass for the game.
    void run(qint64 ms)
    {
        now += ms;
        game.tick();
    }
    qint64 now = 1000;
    VelmoEasterEggGame game;
};

// Answers the message boxes that come up while trigger runs with button,
// and records their texts.
QStringList answerBoxes(const std::function<void()>& trigger, QMessageBox::StandardButton button)
{
    QStringList texts;
    QTimer timer;
    timer.setInterval(5);
    QObject::connect(&timer, &QTimer::timeout, [&]() {
        QMessageBox* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || !box->isVisible())
            return;
        texts.append(box->text());
        QAbstractButton* answer = box->button(box->standardButtons() & button ? button : QMessageBox::Ok);
        if (!answer)
            answer = box->buttons().first();
        answer->click();
    });
    timer.start();
    trigger();
    return texts;
}

}

class TestHelpPages : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QApplication::setStyle(new VelmoStyle());
        dialogOpenAnimated = false;
        // No sounds beside this program: the game must play silently.
        PathManager::setExecutableFolder(TestEnvironment::newFolder(QStringLiteral("program")));
    }

    void controlsShowAJokeWord()
    {
        VelmoControls controls;
        const QString text = controls.label->text();
        // The joke word is one of the five.
        const QRegularExpression shift(QStringLiteral("<br>(\\w+) Pixel Shift<br>"));
        const QString word = shift.match(text).captured(1);
        QVERIFY2(QStringList({"Kaioken", "x10", "Super", "Velmora", "Thicc"}).contains(word), qPrintable(text));
    }

    void aboutAndListHelpClose()
    {
        VelmoAbout about;
        about.show();
        QVERIFY(QTest::qWaitForWindowExposed(&about));
        QVERIFY(about.version->text().contains(QStringLiteral("Version " VELMORA_VERSION)));
        QTest::mouseClick(about.cancelButton, Qt::LeftButton);
        QVERIFY(!about.isVisible());

        VelmoComponentListHelp help;
        help.show();
        QVERIFY(QTest::qWaitForWindowExposed(&help));
        // The keys stand in one column: each line's key begins at the same place.
        const QString plain = QTextDocumentFragment::fromHtml(help.label->text()).toPlainText();
        QList<int> columns;
        for (const char* key : {"RIGHT-CLICK + DRAG", "SHIFT + R", "CTRL + Q", "CTRL + C", "CTRL + X", "CTRL + V", "DEL"}) {
            const QString line = plain.split(QLatin1Char('\n')).filter(QLatin1String(key)).value(0);
            QVERIFY2(!line.isEmpty(), key);
            columns.append(line.indexOf(QLatin1String(key)));
        }
        QCOMPARE(columns.count(columns.first()), columns.size());
        QTest::keyClick(&help, Qt::Key_Escape);
        QVERIFY(!help.isVisible());
    }

    // W moves up, A left, S down, D right; W and S together cancel, and
    // losing the focus stops the square until the keys come again.
    void keysMoveThePlayer()
    {
        Game play;
        VelmoEasterEggGame& game = play.game;
        QVERIFY(!game.hasMusic());
        const QPointF start = game.playerPosition();
        const double speed = VelmoEasterEggGame::Sensitivity / 40.0;
        QTest::keyPress(&game, Qt::Key_D);
        play.run(100);
        QCOMPARE(game.playerPosition(), start + QPointF(100 * speed, 0));
        QTest::keyRelease(&game, Qt::Key_D);
        QTest::keyPress(&game, Qt::Key_W);
        QTest::keyPress(&game, Qt::Key_S);
        play.run(100);
        QCOMPARE(game.playerPosition(), start + QPointF(100 * speed, 0));
        QTest::keyRelease(&game, Qt::Key_W);
        play.run(40);
        QCOMPARE(game.playerPosition(), start + QPointF(100 * speed, 40 * speed));
        // Focus away and back: S is still down on the keyboard, but the
        // game no longer counts it.
        QFocusEvent out(QEvent::FocusOut);
        QApplication::sendEvent(&game, &out);
        play.run(50);
        QCOMPARE(game.playerPosition(), start + QPointF(100 * speed, 40 * speed));
        // Held against the edge, it stays inside the scene.
        QTest::keyPress(&game, Qt::Key_A);
        play.run(100000);
        QCOMPARE(game.playerPosition().x(), 0.0);
        QVERIFY(game.score() > 200);
        QVERIFY(!game.isDead());
    }

    // A circle in the square's way ends the game: "DEAD" shows, the score
    // stops, the hint shows only after a long game, and closing leaves.
    void collisionEndsTheGame()
    {
        Game play;
        VelmoEasterEggGame& game = play.game;
        QTest::keyPress(&game, Qt::Key_D);
        play.run(100);
        // A circle of 20 at rest, 20 right of the square (a circle lasts
        // 300 steps).
        game.spawnCircle(game.playerPosition() + QPointF(30 + 20, 5), 20, 0, 0);
        // 20 pixels to close at 0.1 a millisecond: dead between 190 and 210 ms.
        play.run(190);
        QVERIFY(!game.isDead());
        play.run(20);
        QVERIFY(game.isDead());
        QVERIFY(game.deadText()->isVisible());
        QVERIFY(!game.hintText()->isVisible());
        const double score = game.score();
        play.run(10000);
        QCOMPARE(game.score(), score);
        QCOMPARE(game.scoreText()->text(), QStringLiteral("Score: %1").arg(int(score)));
        QTest::mouseClick(game.cancelButton, Qt::LeftButton);
        QVERIFY(!game.isVisible());

        // After two minutes of play the hint shows too.
        Game longPlay;
        longPlay.run(121 * 360);
        QVERIFY(longPlay.game.score() >= 120);
        longPlay.game.spawnCircle(longPlay.game.playerPosition(), 20, 0, 0);
        longPlay.run(1);
        QVERIFY(longPlay.game.isDead());
        QVERIFY(longPlay.game.hintText()->isVisible());
    }

    // A circle that has run its 300 steps leaves.
    void circlesLeaveAfterTheirSteps()
    {
        Game play;
        play.game.spawnCircle(QPointF(-100, -100), 10, 0.01, 0);
        const QGraphicsEllipseItem* mine = play.game.circleList().last().item;
        auto present = [&]() {
            for (const VelmoEasterEggGame::Circle& circle : play.game.circleList()) {
                if (circle.item == mine)
                    return true;
            }
            return false;
        };
        play.run(299);
        QVERIFY(present());
        play.run(1);
        QVERIFY(!present());
    }

    // The best score is kept only when beaten.
    void highScoreKeepsTheBest()
    {
        SettingsStore().remove(QStringLiteral("HighScore"));
        VelmoEasterEggGame::recordScore(41.9);
        QCOMPARE(SettingsStore().value(QStringLiteral("HighScore")).toInt(), 41);
        VelmoEasterEggGame::recordScore(12.0);
        QCOMPARE(SettingsStore().value(QStringLiteral("HighScore")).toInt(), 41);
        // The prompt names it; "No" runs no game.
        const QStringList texts = answerBoxes([] { VelmoEasterEggGame::offerGame(nullptr); }, QMessageBox::No);
        QCOMPARE(texts, QStringList{QStringLiteral("Highscore: 41.")});
    }

    // Six uses without Ctrl bring each surprise once, the game's offer
    // among them; the counters of the choice persist.
    void sixSurprisesEachOnce()
    {
        QStringList seen;
        for (int use = 0; use < 6; ++use)
            seen += answerBoxes([] { VelmoEasterEggGame::reach(nullptr, false); }, QMessageBox::No);
        QCOMPARE(seen.size(), 6);
        for (const QString& text : {QStringLiteral("Bam! Error popup! :D"), QStringLiteral("Make your choice. Make it wisely."),
                                    QStringLiteral("Heh. You did the thing."), QStringLiteral("WARNING WARNING... jk, idk..."),
                                    QStringLiteral("REEEEEEEEEEEEEEEEEEEEE"), QStringLiteral("Highscore: 41.")})
            QVERIFY2(seen.contains(text), qPrintable(text));
        // The next round: the choice now counts the earlier "No".
        QStringList again;
        for (int use = 0; use < 6; ++use)
            again += answerBoxes([] { VelmoEasterEggGame::reach(nullptr, false); }, QMessageBox::No);
        QVERIFY(again.contains(QStringLiteral("Make your choice. Make it wisely.\nYes: 0\nNo: 1\nCancel: 0")));
        // With Ctrl the game is offered straight away.
        QCOMPARE(answerBoxes([] { VelmoEasterEggGame::reach(nullptr, true); }, QMessageBox::No),
                 QStringList{QStringLiteral("Highscore: 41.")});
    }
};

VELMORA_TEST_MAIN(TestHelpPages, QApplication)
#include "tst_helppages.moc"
