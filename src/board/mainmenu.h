// The main window's menu bar: the File and Puzzle menus with the Copy to Clipboard submenu,
// in their fixed order, captions and separators. Every entry is a QAction named after its
// role (object names "mnucolsch", "mnudict", ...) so the window and the tests find them; the
// "Cancel" entries are there to close a menu and do nothing.
#pragma once

#include <QObject>

class QAction;
class QMenu;
class QMenuBar;

struct MainMenu {
    // Fills `bar` (which keeps ownership of everything created).
    explicit MainMenu(QMenuBar* bar);

    QMenu* mnumain = nullptr;      // "File"
    QMenu* mnudictx = nullptr;     // "Puzzle"
    QMenu* mnucopy2clip = nullptr; // "Copy to Clipboard"

    QAction* mnucolsch = nullptr; // "Options"
    QAction* mnudict = nullptr;   // "Load a Dictionary"
    QAction* mnuhelp = nullptr;   // "Help"
    QAction* mnuabout = nullptr;  // "About"
    QAction* cmdexitx = nullptr;  // "Exit"
    QAction* can1 = nullptr;      // "Cancel"

    QAction* mnucreate = nullptr; // "Create"
    QAction* mnuprint = nullptr;  // "Print"
    QAction* mnu2clip[4] = {};    // "Puzzle", "Solution", separator, "Cancel"
    QAction* can6 = nullptr;      // "Cancel"
};
