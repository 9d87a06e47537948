#include "TestEnvironment.h"

#include "app/SettingsStore.h"
#include "app/VelmoEasterEggGame.h"
#include "theme/ProgramFolders.h"
#include "theme/VelmoStyle.h"
#include "widgets/DialogFlags.h"

#include <QApplication>
#include <QGraphicsSimpleTextItem>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

namespace {

// The game on a clock the test turns by hand.
struct Game {
    Game() : game(nullptr, [this]() { return now; })
    {
        game.seed(7);
        game.show();
        game.activateWindow();
        (void)QTest::qWaitForWindowActive(&game);
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

    // W moves up, A left, S down, D right, W and S together cancel; losing
    // the focus stops the square until the keys come again. A circle in its
    // way ends the game: "DEAD" shows, and the score stops.
    void keysMoveThePlayerIntoACircle()
    {
        Game play;
        VelmoEasterEggGame& game = play.game;
        QVERIFY(!game.hasMusic());
        const QPointF start = game.playerPosition();
        const double speed = VelmoEasterEggGame::Sensitivity / 40.0;
        QTest::keyPress(&game, Qt::Key_D);
        play.run(100);
        QTest::keyRelease(&game, Qt::Key_D);
        QTest::keyPress(&game, Qt::Key_W);
        QTest::keyPress(&game, Qt::Key_S);
        play.run(100);
        QTest::keyRelease(&game, Qt::Key_W);
        play.run(40);
        QCOMPARE(game.playerPosition(), start + QPointF(100 * speed, 40 * speed));
        // Focus away: S is still down on the keyboard, but the game no longer counts it.
        QFocusEvent out(QEvent::FocusOut);
        QApplication::sendEvent(&game, &out);
        play.run(50);
        QCOMPARE(game.playerPosition(), start + QPointF(100 * speed, 40 * speed));

        // A circle of 20 at rest, 20 right of the square: at 0.1 a
        // millisecond, dead between 190 and 210 ms.
        QTest::keyPress(&game, Qt::Key_D);
        game.spawnCircle(game.playerPosition() + QPointF(30 + 20, 5), 20, 0, 0);
        play.run(190);
        QVERIFY(!game.isDead());
        play.run(20);
        QVERIFY(game.isDead() && game.deadText()->isVisible());
        const double score = game.score();
        play.run(10000);
        QCOMPARE(game.score(), score);
    }

    // The best score is kept only when beaten.
    void highScoreKeepsTheBest()
    {
        SettingsStore().remove(QStringLiteral("HighScore"));
        VelmoEasterEggGame::recordScore(41.9);
        QCOMPARE(SettingsStore().value(QStringLiteral("HighScore")).toInt(), 41);
        VelmoEasterEggGame::recordScore(12.0);
        QCOMPARE(SettingsStore().value(QStringLiteral("HighScore")).toInt(), 41);
    }

    // Six uses without Ctrl bring each surprise once, the game's offer
    // (naming the best score) among them; the counters of the choice persist.
    void sixSurprisesEachOnce()
    {
        QStringList seen;
        for (int use = 0; use < 6; ++use)
            seen += answerBoxes([] { VelmoEasterEggGame::reach(nullptr, false); }, QMessageBox::No);
        QCOMPARE(seen.size(), 6);
        QCOMPARE(QSet<QString>(seen.begin(), seen.end()).size(), 6);
        QVERIFY(seen.contains(QStringLiteral("Highscore: 41.")));
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
