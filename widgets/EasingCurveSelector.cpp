#include "widgets/EasingCurveSelector.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/FormFieldPainter.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyGroupBox.h"
#include "widgets/MyPopup.h"
#include "widgets/UltimateTree.h"
#include "widgets/UltimateTreeItem.h"
#include "widgets/UltimateTreeWidget.h"

#include <QEasingCurve>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// The kinds in the order of their values; "Linear" stands alone at 0.
const char* const KindNames[] = {
    QT_TR_NOOP("Linear"),    QT_TR_NOOP("Quadratic"),
    QT_TR_NOOP("Cubic"),     QT_TR_NOOP("Quartic"),
    QT_TR_NOOP("Quintic"),   QT_TR_NOOP("Sine"),
    QT_TR_NOOP("Circular"),  QT_TR_NOOP("Exponential"),
    QT_TR_NOOP("Elastic"),   QT_TR_NOOP("Back"),
    QT_TR_NOOP("Bounce")};
const int KindCount = int(sizeof(KindNames) / sizeof(KindNames[0]));

const char* const DirectionNames[] = {QT_TR_NOOP("Ease-In"),
                                      QT_TR_NOOP("Ease-Out"),
                                      QT_TR_NOOP("Ease-In/Out")};

// Qt's curve of each kind, ease-in first; its ease-out and ease-in/out
// follow it directly in Qt's list.
const QEasingCurve::Type QtCurves[] = {QEasingCurve::Linear,  QEasingCurve::InQuad,    QEasingCurve::InCubic,
                                       QEasingCurve::InQuart, QEasingCurve::InQuint,   QEasingCurve::InSine,
                                       QEasingCurve::InCirc,  QEasingCurve::InExpo,    QEasingCurve::InElastic,
                                       QEasingCurve::InBack,  QEasingCurve::InBounce};

QEasingCurve curveOf(int value)
{
    if (value <= 0 || value > (KindCount - 1) * 3)
        return QEasingCurve(QEasingCurve::Linear);
    const int kind = (value - 1) / 3 + 1;
    return QEasingCurve(QEasingCurve::Type(QtCurves[kind] + (value - 1) % 3));
}

// A drawing of the chosen curve: time runs to the right, progress upwards.
class CurvePreview : public QWidget
{
public:
    explicit CurvePreview(QWidget* parent) : QWidget(parent) { setMinimumSize(160, 120); }
    void setValue(int shown)
    {
        value = shown;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        // Room above and below, since elastic and back curves overshoot.
        const QRectF area = QRectF(rect()).adjusted(10, height() * 0.22, -10, -height() * 0.22);
        painter.fillRect(rect(), themeColor(ThemeKey::InputUIBackground));
        painter.setPen(QPen(themeColor(ThemeKey::InputUIBase), 1, Qt::DashLine));
        painter.drawLine(area.bottomLeft(), area.bottomRight());
        painter.drawLine(area.topLeft(), area.topRight());
        painter.setPen(QPen(themeColor(ThemeKey::InputUIBase), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
        if (value < 0)
            return;
        const QEasingCurve curve = curveOf(value);
        QPainterPath path(area.bottomLeft());
        const int steps = 120;
        for (int i = 1; i <= steps; ++i) {
            const double t = double(i) / steps;
            path.lineTo(area.left() + t * area.width(), area.bottom() - curve.valueForProgress(t) * area.height());
        }
        painter.setPen(QPen(themeColor(ThemeKey::InputUIPrimary), 2));
        painter.drawPath(path);
    }

private:
    int value = -1;
};

}

EasingCurveSelector::EasingCurveSelector(int* value, bool* accepted, QWidget* parent)
    : PickerDialog(accepted, parent), value(value)
{
    setObjectName(QStringLiteral("EasingCurveSelector"));
    QHBoxLayout* columns = new QHBoxLayout();
    columns->setSpacing(12);

    QVBoxLayout* listColumn = new QVBoxLayout();
    listColumn->setSpacing(2);
    listHeader = new QWidget(content);
    listHeader->setObjectName(QStringLiteral("listHeader"));
    QHBoxLayout* headerLayout = new QHBoxLayout(listHeader);
    headerLayout->setContentsMargins(4, 2, 2, 2);
    titleLabel = new QLabel(QStringLiteral("<b>%1</b>").arg(tr("Easing Curves")), listHeader);
    titleLabel->setObjectName(QStringLiteral("titleLabel"));
    headerLayout->addWidget(titleLabel, 1);
    listColumn->addWidget(listHeader);
    myList = new UltimateTreeWidget(content);
    myList->setObjectName(QStringLiteral("myList"));
    myList->setMinimumSize(190, 11 * 20 + 24);
    UltimateTree* tree = myList->tree();
    tree->setRowHeight(20);
    tree->setTextOffset(4);
    tree->setKeepSelectionLook(true);
    tree->startView();
    for (int kind = 0; kind < KindCount; ++kind) {
        UltimateTreeItem* row = new UltimateTreeItem();
        // Linear stands apart from the kinds that come in threes.
        row->setId(kind - 1);
        row->setText(0, tr(KindNames[kind]));
        tree->addRow(row);
    }
    listColumn->addWidget(myList, 1);
    columns->addLayout(listColumn);

    MyGroupBox* group = new MyGroupBox(tr("Easing Properties"), content);
    group->setObjectName(QStringLiteral("easingProperties"));
    QVBoxLayout* groupLayout = new QVBoxLayout(group);
    groupLayout->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 12, 14);
    groupLayout->setSpacing(10);
    Easing = new MyComboBox(group);
    Easing->setObjectName(QStringLiteral("Easing"));
    Easing->setCaption(tr("Easing Type"));
    Easing->setProperty("mtt_title", tr("Easing Type"));
    Easing->setProperty("mtt_desc", tr("The easing style used for the curve."));
    for (int direction = 0; direction < 3; ++direction)
        Easing->addItem(tr(DirectionNames[direction]), direction);
    groupLayout->addWidget(Easing);
    CurvePreview* preview = new CurvePreview(group);
    preview->setObjectName(QStringLiteral("curvePreview"));
    curve = preview;
    groupLayout->addWidget(curve, 1);
    group->setMinimumWidth(250);
    columns->addWidget(group, 1);
    contentLayout->addLayout(columns, 1);
    addButtons(contentLayout);

    // Open on the value's kind and direction.
    const int start = *value;
    const int kind = start <= 0 ? 0 : (start - 1) / 3 + 1;
    Easing->setCurrentIndex(start <= 0 ? 0 : (start - 1) % 3, false);
    tree->setCurrentRow(tree->row(kind < KindCount ? kind : 0));
    Easing->setEnabled(kind != 0);
    QMetaObject::connectSlotsByName(this);
    showCurve();
    finish(tr("Easing Curve"));
}

QString EasingCurveSelector::display(int value)
{
    if (value <= 0)
        return tr(KindNames[0]);
    const int kind = (value - 1) / 3 + 1;
    if (kind >= KindCount)
        return QString();
    return QStringLiteral("%1 %2").arg(tr(KindNames[kind]), tr(DirectionNames[(value - 1) % 3]));
}

int EasingCurveSelector::chosenValue() const
{
    const UltimateTreeItem* row = myList->tree()->currentRow();
    if (!row)
        return -1;
    if (row->id() < 0)
        return 0;
    return row->id() * 3 + qMax(0, Easing->currentIndex()) + 1;
}

void EasingCurveSelector::showCurve()
{
    static_cast<CurvePreview*>(curve)->setValue(chosenValue());
    confirmButton()->setEnabled(chosenValue() >= 0);
}

void EasingCurveSelector::on_myList_currentItemChanged(UltimateTreeItem* current, UltimateTreeItem*)
{
    Easing->setEnabled(current && current->id() >= 0);
    showCurve();
}

void EasingCurveSelector::on_myList_itemDoubleClicked(UltimateTreeItem*, int)
{
    on_confirmButton_clicked();
}

void EasingCurveSelector::on_Easing_whenChoiceChanges()
{
    showCurve();
}

void EasingCurveSelector::on_confirmButton_clicked()
{
    const int chosen = chosenValue();
    if (chosen < 0)
        return;
    *value = chosen;
    acceptChoice();
}
