#include "app/VelmoAbout.h"

VelmoAbout::VelmoAbout(QWidget* parent)
    : AlertDialog(QStringLiteral("<img src=\"%1\" width=\"96\" height=\"96\"><br>"
                                 "<span style=\"font-size:20pt;\"><b>%2</b></span><br><i>%3</i><br><br><i>%4</i>")
                      .arg(QStringLiteral(":/Icon.png"), tr("Velmora"), tr("by Ostrel"),
                           tr("Version %1").arg(QStringLiteral(VELMORA_VERSION))),
                  tr("About Velmora"), parent)
{
}
