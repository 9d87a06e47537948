#include "logic/RMConditionDialog.h"

#include "logic/ConditionTables.h"
#include "logic/GameDataLabel.h"
#include "logic/RMDatabaseItemSelector.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyPopup.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyEitherBox.h"
#include "widgets/MyLineEdit.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QPushButton>
#include <QStackedWidget>

namespace {

void describe(QWidget* field, const char* name, const QString& caption, const QString& hint)
{
    field->setObjectName(QLatin1String(name));
    field->setProperty("mtt_title", caption);
    field->setProperty("mtt_desc", hint);
}

}

RMConditionDialog::RMConditionDialog(int type, QJsonObject* object, bool* accepted, QWidget* parent,
                                     QJsonObject* projectData)
    : PickerDialog(accepted, parent), projectData(projectData), type(type), object(object)
{
    const ConditionTables::Kind* kind = ConditionTables::kind(type);
    setDialogTitle(kind ? QCoreApplication::translate("", kind->title) : QString());
    contentLayout->setSpacing(8);
}

MyLineEdit* RMConditionDialog::lineEdit(const char* name, const QString& caption, const QString& hint)
{
    MyLineEdit* field = new MyLineEdit(content);
    describe(field, name, caption, hint);
    field->setInputType(MyLineEdit::Text);
    field->setCaption(caption);
    return field;
}

MyLineEdit* RMConditionDialog::integerEdit(const char* name, const QString& caption, const QString& hint,
                                           int minimum, int maximum, int digits, int validatorMinimum,
                                           int validatorMaximum)
{
    MyLineEdit* field = lineEdit(name, caption, hint);
    field->setInputType(MyLineEdit::Integer);
    field->setNumberField(minimum, maximum, digits, nullptr,
                          new QIntValidator(validatorMinimum, validatorMaximum, field));
    field->setValidityListener([this](bool) { updateConfirm(); });
    gatedFields.append(field);
    return field;
}

MyComboBox* RMConditionDialog::comboBox(const char* name, const QString& caption, const QString& hint,
                                        const QVector<const char*>& labels)
{
    MyComboBox* combo = new MyComboBox(content);
    describe(combo, name, caption, hint);
    combo->setCaption(caption);
    for (int index = 0; index < labels.size(); ++index)
        combo->addItem(QCoreApplication::translate("", labels.at(index)), index);
    return combo;
}

MyEitherBox* RMConditionDialog::eitherBox(const char* name, const QString& caption, const QString& hint,
                                          const QString& first, const QString& second)
{
    MyEitherBox* box = new MyEitherBox(content);
    describe(box, name, caption, hint);
    box->setPlaceholder(caption);
    box->setChoices(first, second);
    box->setChoice(true, true);
    return box;
}

MyDialogOpener* RMConditionDialog::opener(const char* name, const QString& caption, const QString& hint)
{
    MyDialogOpener* field = new MyDialogOpener(content);
    describe(field, name, caption, hint);
    field->setTitle(caption);
    return field;
}

MyComboBox* RMConditionDialog::operatorBox(const char* name, const QString& hint, int count, int op)
{
    MyComboBox* combo = comboBox(name, tr("Op."), hint, {});
    combo->setProperty("mtt_title", tr("Operator"));
    for (int index = 0; index < count; ++index)
        combo->addItem(ConditionTables::operatorText(index), index);
    combo->setCurrentIndex(op >= 0 && op < count ? op : 0, false);
    return combo;
}

MyLineEdit* RMConditionDialog::comparisonValue(const QString& hint, int digits)
{
    MyLineEdit* field =
        integerEdit("Value", tr("Comparison"), hint, -999999999, 999999999, digits, -999999999, 999999999);
    field->setProperty("mtt_title", tr("Comparison Value"));
    return field;
}

MyDialogOpener* RMConditionDialog::recordOpener(const char* name, const QString& caption, const QString& hint,
                                                const char* fileName, const char* titleWord, int* id)
{
    MyDialogOpener* field = opener(name, caption, hint);
    field->setValue(GameDataLabel::databaseEntry(projectData, QLatin1String(fileName), *id));
    connect(field, &QAbstractButton::clicked, this, [this, field, id, fileName, titleWord]() {
        RMDatabaseItemSelector::pick(field, id, projectData, QLatin1String(fileName),
                                     QCoreApplication::translate("", titleWord), this);
    });
    return field;
}

QWidget* RMConditionDialog::blankSpace()
{
    QWidget* blank = new QWidget(content);
    blank->setObjectName(QStringLiteral("blankSpace"));
    return blank;
}

QStackedWidget* RMConditionDialog::alternatives(std::initializer_list<QWidget*> fields)
{
    QStackedWidget* place = new QStackedWidget(content);
    for (QWidget* field : fields)
        place->addWidget(field);
    return place;
}

void RMConditionDialog::followChoice(MyComboBox* choice, QStackedWidget* place)
{
    place->setCurrentIndex(qMax(0, choice->currentIndex()));
    connect(choice, &MyComboBox::whenChoiceChanges, this, [this, choice, place]() {
        place->setCurrentIndex(qMax(0, choice->currentIndex()));
        updateConfirm();
    });
}

void RMConditionDialog::followChoice(MyEitherBox* choice, QStackedWidget* place)
{
    place->setCurrentIndex(choice->choice() ? 0 : 1);
    connect(choice, &MyEitherBox::whenChoiceChanges, this, [this, choice, place]() {
        place->setCurrentIndex(choice->choice() ? 0 : 1);
        updateConfirm();
    });
}

void RMConditionDialog::addField(QWidget* field)
{
    contentLayout->addWidget(field);
}

void RMConditionDialog::addRow(std::initializer_list<std::pair<QWidget*, int>> fields)
{
    QHBoxLayout* row = new QHBoxLayout();
    row->setSpacing(8);
    for (const std::pair<QWidget*, int>& field : fields)
        row->addWidget(field.first, field.second);
    contentLayout->addLayout(row);
}

void RMConditionDialog::finishForm(int width)
{
    setObjectName(QLatin1String(metaObject()->className()));
    contentLayout->addStretch(1);
    contentLayout->addSpacing(4);
    addButtons(contentLayout);
    // Cancel has a slot of its own.
    disconnect(cancelButton(), &QPushButton::clicked, this, &QDialog::reject);
    QMetaObject::connectSlotsByName(this);
    finish(windowTitle(), QSize(width > 0 ? width : 320, sizeHint().height()));
    updateConfirm();
}

void RMConditionDialog::updateConfirm()
{
    bool valid = true;
    for (MyLineEdit* field : gatedFields)
        valid = valid && (field->isHidden() || field->isValid());
    if (confirmButton())
        confirmButton()->setEnabled(valid);
}

void RMConditionDialog::on_confirmButton_clicked()
{
    QJsonObject built = result();
    built.insert(QStringLiteral("Type"), type);
    *object = built;
    acceptChoice();
}

void RMConditionDialog::on_cancelButton_clicked()
{
    reject();
}
