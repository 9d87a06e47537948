#include "logic/TypeTabDialog.h"

#include "widgets/MyDialogOpener.h"
#include "widgets/MyTabSystem.h"

#include <QHBoxLayout>
#include <QVariant>
#include <QPushButton>
#include <QVBoxLayout>

TypeTabDialog::TypeTabDialog(bool* accepted, QWidget* parent) : PickerDialog(accepted, parent)
{
    tabSystem = new MyTabSystem(content);
    tabSystem->setObjectName(QStringLiteral("tabs"));
    contentLayout->addWidget(tabSystem, 1);
}

int TypeTabDialog::currentType() const
{
    return qMax(0, tabSystem->currentIndex());
}

void TypeTabDialog::addTypePage(const QString& label, QWidget* field)
{
    QWidget* page = new QWidget();
    QVBoxLayout* layout = new QVBoxLayout(page);
    layout->setContentsMargins(8, 10, 8, 8);
    layout->addWidget(field);
    layout->addStretch();
    tabSystem->addTab(label, page);
}

MyDialogOpener* TypeTabDialog::makeOpener(const char* objectName, const QString& caption, const QString& hint)
{
    MyDialogOpener* opener = new MyDialogOpener();
    opener->setObjectName(QLatin1String(objectName));
    opener->setTitle(caption);
    opener->setProperty("mtt_title", caption);
    opener->setProperty("mtt_desc", hint);
    return opener;
}

void TypeTabDialog::finishTabs(const QString& title, int type, int width, int height, QWidget* leadingButton)
{
    QHBoxLayout* buttons = new QHBoxLayout();
    buttons->setSpacing(8);
    if (leadingButton) {
        leadingButton->setParent(content);
        // As wide as the other buttons, or as its text needs in a longer language.
        leadingButton->setMinimumWidth(qMax(96, leadingButton->sizeHint().width() + 20));
        buttons->addWidget(leadingButton);
    }
    addButtons(buttons);
    contentLayout->addLayout(buttons);
    // The kinds' dialogs close on cancel through their own slot.
    disconnect(cancelButton(), &QPushButton::clicked, this, &QDialog::reject);
    QMetaObject::connectSlotsByName(this);
    tabSystem->setCurrentIndex(type >= 0 && type < tabSystem->count() ? type : 0, true, true);
    adjustSize();
    finish(title, QSize(width, height > 0 ? height : sizeHint().height()));
}
