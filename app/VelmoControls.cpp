#include "app/VelmoControls.h"

#include <QLabel>
#include <QRandomGenerator64>
#include <QScrollArea>
#include <QVBoxLayout>

VelmoControls::VelmoControls(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("VelmoControls"));
    QVBoxLayout* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    QScrollArea* mainFrame = new QScrollArea(this);
    mainFrame->setObjectName(QStringLiteral("mainFrame"));
    mainFrame->setWidgetResizable(true);
    mainFrame->setFrameShape(QFrame::NoFrame);
    QWidget* scrollAreaWidgetContents = new QWidget();
    scrollAreaWidgetContents->setObjectName(QStringLiteral("scrollAreaWidgetContents"));
    QVBoxLayout* contentsLayout = new QVBoxLayout(scrollAreaWidgetContents);
    contentsLayout->setContentsMargins(10, 10, 10, 10);
    label = new QLabel(scrollAreaWidgetContents);
    label->setObjectName(QStringLiteral("label"));
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setTextFormat(Qt::RichText);
    contentsLayout->addWidget(label);
    mainFrame->setWidget(scrollAreaWidgetContents);
    layout->addWidget(mainFrame);

    // A little joke drawn anew on every start.
    const QStringList words{tr("Kaioken"), tr("x10"), tr("Super"), tr("Velmora"), tr("Thicc")};
    const QString word = words.at(qMin(int(QRandomGenerator64::global()->generateDouble() * words.size()),
                                       words.size() - 1));
    const QList<QPair<const char*, QString>> entries{
        {QT_TR_NOOP("Right-Click + Drag"), tr("Move Items on List")},
        {QT_TR_NOOP("Double-Click"), tr("Create Component")},
        {QT_TR_NOOP("Delete"), tr("Destroy Component")},
        {QT_TR_NOOP("CTRL+ Q"), tr("Show/Hide Component")},
        {QT_TR_NOOP("Arrow Keys"), tr("Pixel Shift")},
        {QT_TR_NOOP("CTRL + Arrow Keys"), tr("%1 Pixel Shift").arg(word)},
        {QT_TR_NOOP("Hold CTRL"), tr("Disable Snapping")},
        {QT_TR_NOOP("CTRL + Scroll-Up"), tr("Zoom In")},
        {QT_TR_NOOP("CTRL + Scroll-Down"), tr("Zoom Out")},
        {QT_TR_NOOP("Scroll-Wheel"), tr("Vertical Scroll")},
        {QT_TR_NOOP("SHIFT + Scroll-Wheel"), tr("Horizontal Scroll")}};
    QString text;
    for (const auto& entry : entries)
        text += QStringLiteral("<b>[%1]</b><br>%2<br><br>").arg(tr(entry.first), entry.second);
    label->setText(text);
}
