#include "app/AppSettings.h"

#include "app/SettingsStore.h"
#include "widgets/DialogFlags.h"

#include <QOperatingSystemVersion>

namespace AppSettings {

bool isWindows10OrLater()
{
    const QOperatingSystemVersion current = QOperatingSystemVersion::current();
    return current.type() == QOperatingSystemVersion::Windows
        && current >= QOperatingSystemVersion::Windows10;
}

bool customFramesOffered()
{
    return QOperatingSystemVersion::current().type() != QOperatingSystemVersion::Windows || isWindows10OrLater();
}

void load(int& windowStyle, bool& nativeMenuBar, QString& theme, QString& language)
{
    SettingsStore store;

    bool ok = false;
    int mask = store.value(QStringLiteral("editor")).toInt(&ok);
    if (!ok)
        mask = NativeTitleBarBit | OpenAnimatedBit;
    // Settings of the earlier layout get the opening animation switched on.
    if (!store.contains(QStringLiteral("settingsVersion")))
        mask |= OpenAnimatedBit;

    dialogNativeTitleBar = mask & NativeTitleBarBit;
    dialogDarkenLayers = mask & DarkenLayersBit;
    dialogDarkenAnimated = mask & DarkenAnimatedBit;
    dialogOpenAnimated = mask & OpenAnimatedBit;
    nativeMenuBar = mask & NativeMenuBarBit;

    const int storedStyle = store.value(QStringLiteral("windowStyle")).toInt(&ok);
    if (!ok) {
        if (isWindows10OrLater()) {
            windowStyle = Hybrid;
            nativeMenuBar = false;
        } else {
            windowStyle = Native;
        }
    } else {
        windowStyle = storedStyle;
        // A native menu bar only goes with the native frame.
        if (storedStyle != Native)
            nativeMenuBar = false;
    }

    theme = store.value(QStringLiteral("theme")).toString();
    language = store.value(QStringLiteral("language")).toString();
}

void save(int windowStyle, bool nativeMenuBar, const QString& theme, const QString& language)
{
    int mask = 0;
    if (dialogNativeTitleBar)
        mask |= NativeTitleBarBit;
    if (dialogDarkenLayers)
        mask |= DarkenLayersBit;
    if (nativeMenuBar)
        mask |= NativeMenuBarBit;
    if (dialogDarkenAnimated)
        mask |= DarkenAnimatedBit;
    if (dialogOpenAnimated)
        mask |= OpenAnimatedBit;

    SettingsStore store;
    store.setValue(QStringLiteral("editor"), mask);
    store.setValue(QStringLiteral("windowStyle"), windowStyle);
    store.setValue(QStringLiteral("theme"), theme);
    store.setValue(QStringLiteral("language"), language);
    store.setValue(QStringLiteral("settingsVersion"), 1);
}

}
