#include "logic/RMCodeInput.h"

#include "widgets/BaseHighlighter.h"
#include "widgets/HaxeCodeEdit.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyGroupBox.h"
#include "widgets/OwnerDimming.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QJsonObject>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <map>
#include <string>

namespace {

struct CodeSize {
    const char* name;
    int width;
    int height;
};

const CodeSize Sizes[RMCodeInput::SizeCount] = {
    {QT_TR_NOOP("Small"), 430, 400},
    {QT_TR_NOOP("Medium"), 640, 480},
    {QT_TR_NOOP("Large"), 800, 600},
    {QT_TR_NOOP("Massive"), 1000, 800},
};

int bounded(int index)
{
    return qBound(0, index, RMCodeInput::SizeCount - 1);
}

}

RMCodeInput::RMCodeInput(QString* codeText, bool* accepted, int* sizeIndex, QWidget* parent)
    : PickerDialog(accepted, parent), target(codeText), sizeIndex(sizeIndex ? sizeIndex : &ownSizeIndex)
{
    setObjectName(QStringLiteral("RMCodeInput"));
    groupBox = new MyGroupBox(tr("Code"), content);
    groupBox->setObjectName(QStringLiteral("groupBox"));
    QVBoxLayout* boxLayout = new QVBoxLayout(groupBox);
    boxLayout->setContentsMargins(10, MyGroupBox::TitleHeight + 8, 10, 10);
    code = new HaxeCodeEdit(groupBox);
    code->setObjectName(QStringLiteral("code"));
    boxLayout->addWidget(code);
    contentLayout->addWidget(groupBox, 1);

    QHBoxLayout* buttons = new QHBoxLayout();
    buttons->setSpacing(8);
    sizeButton = new QPushButton(content);
    sizeButton->setObjectName(QStringLiteral("sizeButton"));
    sizeButton->setFocusPolicy(Qt::NoFocus);
    sizeButton->setMinimumWidth(96);
    sizeButton->setProperty("mtt_title", tr("Size"));
    sizeButton->setProperty("mtt_desc", tr("Makes the dialog the next size larger, or small again."));
    buttons->addWidget(sizeButton);
    addButtons(buttons);
    contentLayout->addLayout(buttons);

    // The editor shows the built-in colours, whatever a syntax export put over them.
    BaseHighlighter::applySyntaxColors(QJsonObject());
    if (target)
        code->setPlainText(*target);
    code->setLanguageMode(HaxeCodeEdit::JavaScript);
    *this->sizeIndex = bounded(*this->sizeIndex);
    sizeButton->setText(sizeName(*this->sizeIndex));

    // Cancel has a slot of its own.
    disconnect(cancelButton(), &QPushButton::clicked, this, &QDialog::reject);
    QMetaObject::connectSlotsByName(this);
    finish(tr("Text Input Code"), sizeAt(*this->sizeIndex));
}

bool RMCodeInput::pick(MyDialogOpener* opener, QString* codeText, QWidget* parent)
{
    bool accepted = false;
    int* remembered = sizeIndexOf(parent ? parent->metaObject() : nullptr);
    OwnerDimming::dim(parent);
    RMCodeInput(codeText, &accepted, remembered, parent).exec();
    OwnerDimming::undim(parent);
    if (accepted && opener) {
        opener->setValue(singleLine(*codeText));
        opener->confirm();
    }
    return accepted;
}

int* RMCodeInput::sizeIndexOf(const QMetaObject* dialogClass)
{
    // A map keeps its values in place, so the pointers stay good while
    // other classes join.
    static std::map<std::string, int> remembered;
    return &remembered[dialogClass ? dialogClass->className() : ""];
}

QString RMCodeInput::sizeName(int index)
{
    return tr(Sizes[bounded(index)].name);
}

QSize RMCodeInput::sizeAt(int index)
{
    const CodeSize& size = Sizes[bounded(index)];
    return QSize(size.width, size.height);
}

int RMCodeInput::nextSizeIndex(int index, bool fitScreen, int screenHeight)
{
    const int count = fitScreen && screenHeight < TallSizeScreenHeight ? SizeCount - 1 : SizeCount;
    return (bounded(index) + 1) % count;
}

QString RMCodeInput::singleLine(const QString& codeText)
{
    QString line = codeText;
    line.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    line.replace(QLatin1Char('\n'), QStringLiteral(" \u23CE "));
    return line;
}

void RMCodeInput::setScreenFit(bool on, int height)
{
    fitScreen = on;
    givenScreenHeight = height;
    // A remembered size the screen doesn't offer gives way to the largest it does.
    if (fitScreen && *sizeIndex == SizeCount - 1 && screenHeight() < TallSizeScreenHeight) {
        *sizeIndex = SizeCount - 2;
        applySize();
    }
}

int RMCodeInput::screenHeight() const
{
    if (givenScreenHeight > 0)
        return givenScreenHeight;
    const QScreen* screen = QGuiApplication::screenAt(pos());
    if (!screen)
        screen = this->screen();
    return screen ? screen->geometry().height() : TallSizeScreenHeight;
}

void RMCodeInput::applySize()
{
    sizeButton->setText(sizeName(*sizeIndex));
    // The size fix holds the new size as it held the first, and centres.
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    resize(sizeAt(*sizeIndex));
    fixSize();
    code->viewport()->update();
}

void RMCodeInput::on_sizeButton_clicked()
{
    *sizeIndex = nextSizeIndex(*sizeIndex, fitScreen, screenHeight());
    applySize();
}

void RMCodeInput::on_confirmButton_clicked()
{
    keepCode(code->toPlainText());
    acceptChoice();
}

void RMCodeInput::keepCode(const QString& text)
{
    if (target)
        *target = text;
}

void RMCodeInput::on_cancelButton_clicked()
{
    reject();
}

void RMCodeInput::firstShown()
{
    code->setFocusToEnd(true);
}
