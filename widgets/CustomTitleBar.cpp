#include "widgets/CustomTitleBar.h"

#include "theme/Contrast.h"
#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/TitleBarButtons.h"

#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPaintEvent>
#include <QPainter>

namespace {

// The theme's frame colour, the one frameless windows are filled with; the
// built-in grey stands in before a theme exists.
QColor titleColor()
{
    const QColor color = themeColor(ThemeKey::WindowBottom);
    return color.isValid() ? color : QColor(0x2E, 0x2E, 0x2E);
}

}

CustomTitleBar::CustomTitleBar(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("CustomTitleBar"));
    setFixedHeight(30);
    gridLayout = new QGridLayout(this);
    gridLayout->setObjectName(QStringLiteral("gridLayout"));
    gridLayout->setContentsMargins(0, 0, 0, 0);
    gridLayout->setSpacing(0);
    draggable = new QWidget(this);
    draggable->setObjectName(QStringLiteral("draggable"));
    gridLayout->addWidget(draggable, 0, 0);

    horizontalLayout = new QHBoxLayout(draggable);
    horizontalLayout->setObjectName(QStringLiteral("horizontalLayout"));
    horizontalLayout->setContentsMargins(0, 0, 3, 0);
    horizontalLayout->setSpacing(0);
    // As wide as the close button, so that the title sits in the middle.
    horizontalLayout->addSpacerItem(new QSpacerItem(31, 10, QSizePolicy::Fixed, QSizePolicy::Minimum));
    titleLabel = new QLabel(draggable);
    titleLabel->setObjectName(QStringLiteral("title"));
    titleLabel->setAlignment(Qt::AlignCenter);
    titleLabel->setTextFormat(Qt::PlainText);
    horizontalLayout->addWidget(titleLabel, 1);
    closeButtonWidget = new TitleBarButtons(TitleBarButtons::Close, true, draggable);
    closeButtonWidget->setObjectName(QStringLiteral("closeButton"));
    closeButtonWidget->setToolTip(tr("Close"));
    horizontalLayout->addWidget(closeButtonWidget, 0, Qt::AlignVCenter);

    connect(closeButtonWidget, &QPushButton::clicked, this, [this]() {
        if (dialog)
            dialog->close();
    });
}

void CustomTitleBar::setDialog(QDialog* value)
{
    dialog = value;
}

void CustomTitleBar::setTitle(const QString& text)
{
    titleLabel->setText(text);
}

QString CustomTitleBar::title() const
{
    return titleLabel->text();
}

void CustomTitleBar::setActive(bool value)
{
    active = value;
    // An inactive title fades towards the bar, as far as it stays readable.
    const QColor bar = titleColor();
    const QColor faded = Contrast::readable(Contrast::over(palette().color(QPalette::WindowText), bar, 0.49), bar,
                                            Contrast::Text);
    titleLabel->setStyleSheet(active ? QString() : QStringLiteral("#title { color: %1; }").arg(faded.name()));
    closeButtonWidget->update();
    update();
}

void CustomTitleBar::setShownSeparator(bool shown)
{
    shownSeparator = shown;
    update();
}

void CustomTitleBar::collapse()
{
    draggable->hide();
    setFixedSize(0, 0);
}

void CustomTitleBar::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QColor fill = shownSeparator ? QColor(0x0B, 0x0B, 0x0B) : titleColor();
    painter.fillRect(event->rect(), fill);
    if (event->rect().top() == 0) {
        painter.setPen(active ? QColor(0x3C, 0x3C, 0x3C) : fill);
        painter.drawLine(0, 0, width() - 1, 0);
    }
}
