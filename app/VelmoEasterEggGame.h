#pragma once

#include "widgets/TrovDialog.h"

#include <QList>
#include <QRandomGenerator>

#include <functional>

class QGraphicsEllipseItem;
class QGraphicsRectItem;
class QGraphicsScene;
class QGraphicsSimpleTextItem;
class QGraphicsView;
class QMediaPlayer;
class QPushButton;
class QSoundEffect;
class QTimer;
class MySlider;

// A small dodging game hidden behind the window menu's own entry: a red
// square moved with W, A, S and D among drifting circles. One step of play
// runs per elapsed millisecond; the score grows with the time survived.
class VelmoEasterEggGame : public TrovDialog
{
    Q_OBJECT
public:
    // The clock the game reads, in milliseconds.
    using Clock = std::function<qint64()>;

    explicit VelmoEasterEggGame(QWidget* parent = nullptr, const Clock& clock = Clock());
    ~VelmoEasterEggGame() override;

    // The window menu's entry: one of six little surprises, each once
    // before any repeats, one of which offers the game; with Ctrl held the
    // game is offered straight away.
    static void reach(QWidget* parent, bool straightToGame);
    // Offers the game with the best score so far, runs it on "Yes" and
    // keeps a new best score.
    static void offerGame(QWidget* parent);
    // Keeps the score as "HighScore" when it beats the stored one.
    static void recordScore(double score);

    // The options kept across runs of the game in this process.
    static int Volume;
    static int Sensitivity;

    struct Circle {
        QGraphicsEllipseItem* item;
        double horizontalSpeed;
        double verticalSpeed;
        double diameter;
        int stepsLeft;
    };

    // Reads the clock and runs the steps for the time passed since the
    // last tick.
    void tick();
    // One step of play.
    void step();
    // Puts a circle with its top left corner at position.
    void spawnCircle(const QPointF& position, double diameter, double horizontalSpeed, double verticalSpeed);
    void seed(quint32 value) { random.seed(value); }

    double score() const { return points; }
    bool isDead() const { return dead; }
    double speed() const { return moveSpeed; }
    QPointF playerPosition() const;
    const QList<Circle>& circleList() const { return circles; }
    QGraphicsSimpleTextItem* deadText() const { return deadLabel; }
    QGraphicsSimpleTextItem* hintText() const { return hintLabel; }
    QGraphicsSimpleTextItem* scoreText() const { return scoreLabel; }
    bool hasMusic() const { return music != nullptr; }

    QGraphicsView* graphicsView;
    MySlider* VolumeSlider;
    MySlider* SensitivitySlider;
    QPushButton* cancelButton;

public slots:
    void on_Volume_sliderMoved(int position);
    void on_Sensitivity_sliderMoved(int position);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void setUpSounds();
    void setVolumes();
    void spawnRandomCircle();
    void placeTexts();
    void die();

    Clock clock;
    QRandomGenerator random;
    QMediaPlayer* music = nullptr;
    QSoundEffect* failSound = nullptr;
    QGraphicsScene* scene;
    QGraphicsRectItem* player;
    QGraphicsSimpleTextItem* introLabel;
    QGraphicsSimpleTextItem* scoreLabel;
    QGraphicsSimpleTextItem* controlsLabel;
    QGraphicsSimpleTextItem* deadLabel;
    QGraphicsSimpleTextItem* hintLabel;
    QTimer* timer;
    QList<Circle> circles;
    qint64 lastTime = 0;
    qint64 accumulator = 0;
    double horizontalInput = 0;
    double verticalInput = 0;
    double moveSpeed = 0;
    double points = 0;
    bool dead = false;
};
