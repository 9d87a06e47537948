#include "app/VelmoAbout.h"

#include "app/PathManager.h"
#include "theme/ThemeKey.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

VelmoAbout::VelmoAbout(QWidget* parent) : TrovDialog(parent)
{
    setObjectName(QStringLiteral("VelmoAbout"));
    const FormFrame frame = layOutForm(6);
    QWidget* content = frame.content;
    QFont face = font();
    if (!PathManager::programFontFamily().isEmpty())
        face.setFamily(PathManager::programFontFamily());
    face.setPixelSize(14);
    auto label = [content, &face](const char* name, const QString& text) {
        QLabel* made = new QLabel(text, content);
        made->setObjectName(QLatin1String(name));
        made->setFont(face);
        made->setTextFormat(Qt::RichText);
        made->setAlignment(Qt::AlignCenter);
        return made;
    };

    logo = label("logo", QString());
    logo->setPixmap(QPixmap(QStringLiteral(":/Icon.png")).scaled(128, 128, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    title = label("title", QStringLiteral("<span style=\"font-size:20pt;\"><b>%1</b></span>").arg(tr("Velmora")));
    author = label("author", QStringLiteral("<i>%1</i>").arg(tr("by Ostrel")));
    credits = label("credits", QStringLiteral("%1<br>%2").arg(tr("Special Thanks to the In-Dev Testers:"),
                                                            QStringLiteral("Brannoc, Ilse Varga, Quill, Tamsin Roe")));
    credits->setWordWrap(true);
    version = label("version", QStringLiteral("<i>%1</i>").arg(tr("Version %1").arg(QStringLiteral(VELMORA_VERSION))));
    version->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    for (QLabel* part : {logo, title, author})
        frame.contentLayout->addWidget(part);
    frame.contentLayout->addSpacing(10);
    frame.contentLayout->addWidget(credits);
    frame.contentLayout->addSpacing(10);

    QHBoxLayout* foot = new QHBoxLayout();
    foot->addWidget(version, 1);
    cancelButton = new QPushButton(tr("Close"), content);
    cancelButton->setObjectName(QStringLiteral("cancelButton"));
    cancelButton->setMinimumWidth(96);
    cancelButton->setDefault(true);
    colorButton(cancelButton, ThemeKey::CancelButton);
    foot->addWidget(cancelButton);
    frame.contentLayout->addLayout(foot);
    content->setMinimumWidth(360);

    QMetaObject::connectSlotsByName(this);
    setCenterWidget(content);
    setTitleBar(frame.titleBar);
    setDialogTitle(tr("About Velmora"));
    adjustSize();
    fixSize();
}

void VelmoAbout::on_cancelButton_clicked()
{
    reject();
}
