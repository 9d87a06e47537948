#pragma once

#include <QString>

// Application settings that exist before any project is open: the "editor"
// bit mask with its dialog booleans, the window style, the theme and the
// language. Window-state keys belong to the main window.
namespace AppSettings {

enum EditorBit {
    NativeTitleBarBit = 1,
    DarkenLayersBit = 2,
    NativeMenuBarBit = 4,
    DarkenAnimatedBit = 8,
    OpenAnimatedBit = 16,
};

enum WindowStyle { Frameless = 0, Hybrid = 1, Native = 2 };

// True only on Windows 10 or later; any other system family counts as false.
bool isWindows10OrLater();
// Whether the program can draw its own window frames and dialog title bars:
// on Windows 10 or later, and on every other system, where Qt's frameless
// windows stand in for the Windows facilities. Windows before 10 keeps the
// system's frames.
bool customFramesOffered();

// Reads the store, migrates an older layout and sets the dialog booleans.
void load(int& windowStyle, bool& nativeMenuBar, QString& theme, QString& language);

// Writes "editor", "windowStyle", "theme", "language", "settingsVersion" in that order.
void save(int windowStyle, bool nativeMenuBar, const QString& theme, const QString& language);

}
