#include "app/VelmoEasterEggGame.h"

#include "app/SettingsStore.h"
#include "theme/ProgramFolders.h"
#include "widgets/CustomTitleBar.h"
#include "widgets/MySlider.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QGraphicsEllipseItem>
#include <QGraphicsRectItem>
#include <QGraphicsScene>
#include <QGraphicsSimpleTextItem>
#include <QGraphicsView>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMediaPlayer>
#include <QMessageBox>
#include <QPushButton>
#include <QSoundEffect>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

#include <cmath>

int VelmoEasterEggGame::Volume = 10;
int VelmoEasterEggGame::Sensitivity = 4;

namespace {

const QSizeF SceneSize(400, 400);
const QSizeF PlayerSize(30, 30);
const int CircleSteps = 300;

// Which of the six surprises came up since the mask was last cleared, and
// the answers given to the one that asks.
int surprisesHad = 0;
int yesCount = 0;
int noCount = 0;
int cancelCount = 0;

QString soundPath(const char* file)
{
    return PathManager::shippedPath(QStringLiteral("Sounds/%1").arg(QLatin1String(file)));
}

QMessageBox::StandardButton box(QWidget* parent, QMessageBox::Icon icon, const QString& text,
                                QMessageBox::StandardButtons buttons = QMessageBox::Ok)
{
    QMessageBox message(icon, QStringLiteral("Yo"), text, buttons, parent);
    return QMessageBox::StandardButton(message.exec());
}

}

VelmoEasterEggGame::VelmoEasterEggGame(QWidget* parent, const Clock& givenClock)
    : TrovDialog(parent), clock(givenClock), random(QRandomGenerator::global()->generate())
{
    setObjectName(QStringLiteral("VelmoEasterEggGame"));
    if (!clock) {
        auto started = std::make_shared<QElapsedTimer>();
        started->start();
        clock = [started]() { return started->elapsed(); };
    }
    const FormFrame frame = layOutForm(8);
    QWidget* content = frame.content;

    scene = new QGraphicsScene(QRectF(QPointF(0, 0), SceneSize), this);
    scene->setBackgroundBrush(QColor(0x7d, 0x7d, 0xff));
    graphicsView = new QGraphicsView(scene, content);
    graphicsView->setObjectName(QStringLiteral("graphicsView"));
    graphicsView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    graphicsView->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    graphicsView->setMinimumSize(SceneSize.toSize() + QSize(2, 2));
    graphicsView->setRenderHint(QPainter::Antialiasing);
    // The keys belong to the game, never to a child.
    graphicsView->setFocusPolicy(Qt::NoFocus);
    frame.contentLayout->addWidget(graphicsView, 1);

    player = scene->addRect(QRectF(QPointF(0, 0), PlayerSize), QPen(Qt::NoPen), QColor(Qt::red));
    player->setPos(SceneSize.width() / 2, SceneSize.height() / 2);
    auto text = [this](const QString& shown, int pixelSize) {
        QGraphicsSimpleTextItem* item = scene->addSimpleText(shown);
        QFont font = item->font();
        font.setPixelSize(pixelSize);
        font.setBold(true);
        item->setFont(font);
        item->setBrush(Qt::white);
        item->setPen(QPen(Qt::black, 0.6));
        item->setZValue(10);
        return item;
    };
    introLabel = text(tr("Dodge all circles!!"), 22);
    scoreLabel = text(tr("Score: %1").arg(0), 16);
    controlsLabel = text(QStringLiteral("Move: [W] [A] [S] [D]"), 14);
    deadLabel = text(tr("DEAD"), 48);
    deadLabel->setBrush(QColor(Qt::red));
    deadLabel->hide();
    hintLabel = text(tr("(Hold CTRL to always get the game)"), 14);
    hintLabel->hide();

    QHBoxLayout* options = new QHBoxLayout();
    options->setSpacing(10);
    auto slider = [content](const char* name, const QString& caption, int minimum, int maximum, int value) {
        MySlider* made = new MySlider(content);
        made->setObjectName(QLatin1String(name));
        made->setCaption(caption);
        made->setRange(minimum, maximum);
        made->setValue(value);
        made->setFocusPolicy(Qt::NoFocus);
        return made;
    };
    VolumeSlider = slider("Volume", tr("Volume"), 0, 100, Volume);
    SensitivitySlider = slider("Sensitivity", tr("Sensitivity"), 1, 20, Sensitivity);
    options->addWidget(VolumeSlider);
    options->addWidget(SensitivitySlider);
    frame.contentLayout->addLayout(options);
    QHBoxLayout* buttons = new QHBoxLayout();
    buttons->addStretch();
    cancelButton = new QPushButton(tr("Close"), content);
    cancelButton->setObjectName(QStringLiteral("cancelButton"));
    cancelButton->setMinimumWidth(96);
    cancelButton->setFocusPolicy(Qt::NoFocus);
    colorButton(cancelButton, 16003);
    connect(cancelButton, &QPushButton::clicked, this, &QDialog::reject);
    buttons->addWidget(cancelButton);
    frame.contentLayout->addLayout(buttons);

    moveSpeed = Sensitivity / 40.0;
    setUpSounds();
    QMetaObject::connectSlotsByName(this);
    setFocusPolicy(Qt::StrongFocus);

    lastTime = clock();
    timer = new QTimer(this);
    timer->setInterval(1);
    connect(timer, &QTimer::timeout, this, &VelmoEasterEggGame::tick);
    timer->start();

    setCenterWidget(content);
    setTitleBar(frame.titleBar);
    setDialogTitle(tr("Circle Game"));
    adjustSize();
    fixSize();
    placeTexts();
}

VelmoEasterEggGame::~VelmoEasterEggGame()
{
    if (music)
        music->stop();
}

void VelmoEasterEggGame::setUpSounds()
{
    // Without the files the game plays silently; without a sound device the
    // players simply make no sound.
    const QString song = soundPath("TheSongThatMightPlayWhenYouFindTheSecretMiniGame.mp3");
    if (QFileInfo(song).isFile()) {
        music = new QMediaPlayer(this);
        music->setMedia(QUrl::fromLocalFile(song));
        music->play();
    }
    const QString fail = soundPath("Fail.wav");
    if (QFileInfo(fail).isFile()) {
        failSound = new QSoundEffect(this);
        failSound->setSource(QUrl::fromLocalFile(fail));
        failSound->setLoopCount(1);
    }
    setVolumes();
}

void VelmoEasterEggGame::setVolumes()
{
    if (music)
        music->setVolume(Volume);
    if (failSound)
        failSound->setVolume(Volume * 2 / 100.0);
}

void VelmoEasterEggGame::on_Volume_sliderMoved(int position)
{
    Volume = position;
    setVolumes();
}

void VelmoEasterEggGame::on_Sensitivity_sliderMoved(int position)
{
    Sensitivity = position;
    moveSpeed = Sensitivity / 40.0;
}

QPointF VelmoEasterEggGame::playerPosition() const
{
    return player->pos();
}

void VelmoEasterEggGame::keyPressEvent(QKeyEvent* event)
{
    if (event->isAutoRepeat()) {
        event->accept();
        return;
    }
    switch (event->key()) {
    case Qt::Key_D: horizontalInput += 1; break;
    case Qt::Key_A: horizontalInput -= 1; break;
    case Qt::Key_S: verticalInput += 1; break;
    case Qt::Key_W: verticalInput -= 1; break;
    default: TrovDialog::keyPressEvent(event); return;
    }
    event->accept();
}

void VelmoEasterEggGame::keyReleaseEvent(QKeyEvent* event)
{
    if (event->isAutoRepeat()) {
        event->accept();
        return;
    }
    switch (event->key()) {
    case Qt::Key_D: horizontalInput -= 1; break;
    case Qt::Key_A: horizontalInput += 1; break;
    case Qt::Key_S: verticalInput -= 1; break;
    case Qt::Key_W: verticalInput += 1; break;
    default: TrovDialog::keyReleaseEvent(event); return;
    }
    event->accept();
}

void VelmoEasterEggGame::focusInEvent(QFocusEvent* event)
{
    horizontalInput = verticalInput = 0;
    TrovDialog::focusInEvent(event);
}

void VelmoEasterEggGame::focusOutEvent(QFocusEvent* event)
{
    horizontalInput = verticalInput = 0;
    TrovDialog::focusOutEvent(event);
}

void VelmoEasterEggGame::changeEvent(QEvent* event)
{
    // Keys released in another window never come back here.
    if (event->type() == QEvent::ActivationChange)
        horizontalInput = verticalInput = 0;
    TrovDialog::changeEvent(event);
}

void VelmoEasterEggGame::tick()
{
    if (dead)
        return;
    const qint64 now = clock();
    accumulator += now - lastTime;
    lastTime = now;
    // The accumulator counts milliseconds; one step each.
    while (accumulator > 0) {
        accumulator -= 1;
        step();
        if (dead)
            break;
    }
}

void VelmoEasterEggGame::step()
{
    const QRectF bounds = scene->sceneRect();
    QPointF position = player->pos() + QPointF(horizontalInput, verticalInput) * moveSpeed;
    position.setX(qBound(0.0, position.x(), bounds.width() - PlayerSize.width()));
    position.setY(qBound(0.0, position.y(), bounds.height() - PlayerSize.height() + 1));
    player->setPos(position);

    if (introLabel) {
        if (introLabel->y() < 1000) {
            introLabel->moveBy(0, 0.05);
        } else {
            delete introLabel;
            introLabel = nullptr;
        }
    }

    points += 1.0 / 360.0;
    scoreLabel->setText(tr("Score: %1").arg(int(std::floor(points))));

    const QRectF body(player->pos(), PlayerSize);
    for (int i = 0; i < circles.size(); ++i) {
        Circle& circle = circles[i];
        --circle.stepsLeft;
        circle.item->moveBy(circle.horizontalSpeed, circle.verticalSpeed);
        const double radius = circle.diameter / 2;
        const QPointF centre = circle.item->pos() + QPointF(radius, radius);
        // The nearest point of the square to the circle's centre.
        const QPointF nearest(qBound(body.left(), centre.x(), body.right()),
                              qBound(body.top(), centre.y(), body.bottom()));
        const QPointF apart = centre - nearest;
        if (std::hypot(apart.x(), apart.y()) <= radius) {
            die();
            return;
        }
        if (circle.stepsLeft <= 0) {
            delete circle.item;
            circles.removeAt(i--);
        }
    }

    if (random.bounded(1000) < int(std::floor(points / 10)) + 3)
        spawnRandomCircle();
}

void VelmoEasterEggGame::die()
{
    deadLabel->show();
    deadLabel->setZValue(20);
    if (points >= 120) {
        hintLabel->show();
        hintLabel->setZValue(20);
    }
    if (music)
        music->stop();
    if (failSound)
        failSound->play();
    dead = true;
}

void VelmoEasterEggGame::spawnCircle(const QPointF& position, double diameter, double horizontalSpeed,
                                     double verticalSpeed)
{
    const QColor color(random.bounded(255), random.bounded(255), random.bounded(255));
    QGraphicsEllipseItem* item = scene->addEllipse(QRectF(0, 0, diameter, diameter), QPen(Qt::NoPen), color);
    item->setPos(position);
    circles.append(Circle{item, horizontalSpeed, verticalSpeed, diameter, CircleSteps});
}

void VelmoEasterEggGame::spawnRandomCircle()
{
    const QRectF bounds = scene->sceneRect();
    const double diameter = 10 + random.bounded(20);
    const double horizontal = random.bounded(0.1) - 0.05;
    const double vertical = random.bounded(0.1) - 0.05;
    QPointF position;
    if (random.bounded(2) == 0) {
        // From a side; the far side lies the height away, as the game
        // always had it.
        position.setX(random.bounded(2) == 0 ? -100 : 100 + bounds.height());
        position.setY(random.bounded(bounds.height()));
    } else {
        position.setX(random.bounded(bounds.width()));
        position.setY(random.bounded(2) == 0 ? -100 : 100 + bounds.height());
    }
    spawnCircle(position, diameter, horizontal, vertical);
}

void VelmoEasterEggGame::placeTexts()
{
    const QRectF bounds = scene->sceneRect();
    if (introLabel && introLabel->y() <= 0) {
        const QRectF intro = introLabel->boundingRect();
        introLabel->setPos((bounds.width() - intro.width()) / 2, -intro.height());
    }
    scoreLabel->setPos(6, 4);
    const QRectF controls = controlsLabel->boundingRect();
    controlsLabel->setPos(6, bounds.height() - controls.height() - 4);
    const QRectF deadRect = deadLabel->boundingRect();
    deadLabel->setPos((bounds.width() - deadRect.width()) / 2, (bounds.height() - deadRect.height()) / 2);
    const QRectF hintRect = hintLabel->boundingRect();
    hintLabel->setPos((bounds.width() - hintRect.width()) / 2, deadLabel->y() + 50 + deadRect.height() / 2);
}

void VelmoEasterEggGame::resizeEvent(QResizeEvent* event)
{
    TrovDialog::resizeEvent(event);
    if (graphicsView->viewport()->width() > 0)
        scene->setSceneRect(QRectF(QPointF(0, 0), graphicsView->viewport()->size()));
    placeTexts();
}

void VelmoEasterEggGame::showEvent(QShowEvent* event)
{
    TrovDialog::showEvent(event);
    scene->setSceneRect(QRectF(QPointF(0, 0), graphicsView->viewport()->size()));
    placeTexts();
    setFocus();
}

void VelmoEasterEggGame::recordScore(double score)
{
    SettingsStore store;
    const int best = int(std::floor(score));
    if (best > store.value(QStringLiteral("HighScore")).toInt())
        store.setValue(QStringLiteral("HighScore"), best);
}

void VelmoEasterEggGame::offerGame(QWidget* parent)
{
    const QVariant stored = SettingsStore().value(QStringLiteral("HighScore"));
    QMessageBox ask(QMessageBox::Question, QStringLiteral("Play?"),
                    stored.isValid() ? QStringLiteral("Highscore: %1.").arg(stored.toInt())
                                     : QStringLiteral("Would you like to play a game?"),
                    QMessageBox::Yes | QMessageBox::No, parent);
    if (ask.exec() != QMessageBox::Yes)
        return;
    VelmoEasterEggGame game(parent);
    game.exec();
    recordScore(game.score());
}

void VelmoEasterEggGame::reach(QWidget* parent, bool straightToGame)
{
    if (straightToGame) {
        offerGame(parent);
        return;
    }
    // One of the six not had yet, each as likely; all had, all come back.
    if (surprisesHad == 0x3f)
        surprisesHad = 0;
    QList<int> left;
    for (int outcome = 0; outcome < 6; ++outcome) {
        if (!(surprisesHad & (1 << outcome)))
            left.append(outcome);
    }
    const int outcome = left.at(QRandomGenerator::global()->bounded(left.size()));
    surprisesHad |= 1 << outcome;
    switch (outcome) {
    case 0:
        box(parent, QMessageBox::Critical, QStringLiteral("Bam! Error popup! :D"));
        break;
    case 1: {
        const bool first = yesCount + noCount + cancelCount == 0;
        const QString text = first ? QStringLiteral("Make your choice. Make it wisely.")
                                   : QStringLiteral("Make your choice. Make it wisely.\nYes: %1\nNo: %2\nCancel: %3")
                                         .arg(yesCount)
                                         .arg(noCount)
                                         .arg(cancelCount);
        const QMessageBox::StandardButton answer =
            box(parent, QMessageBox::NoIcon, text, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        if (answer == QMessageBox::Yes)
            ++yesCount;
        else if (answer == QMessageBox::No)
            ++noCount;
        else
            ++cancelCount;
        break;
    }
    case 2:
        box(parent, QMessageBox::NoIcon, QStringLiteral("Heh. You did the thing."));
        break;
    case 3:
        box(parent, QMessageBox::Warning, QStringLiteral("WARNING WARNING... jk, idk..."));
        break;
    case 4:
        box(parent, QMessageBox::Information, QStringLiteral("REEEEEEEEEEEEEEEEEEEEE"));
        break;
    default:
        offerGame(parent);
        break;
    }
}
