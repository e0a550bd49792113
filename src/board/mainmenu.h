// The main window's menu bar: the File and Puzzle menus with the Copy to Clipboard submenu,
// in their fixed order, captions and separators. The members are named for what they do;
// every menu and entry keeps its historic name as its object name ("mnudictx" for the Puzzle
// menu, ...; docs/historic-names.md maps them), so the window and the tests find them either
// way. The "Cancel" entries are there to close a menu and do nothing. Shortcuts: Ctrl+N
// Create, Ctrl+O Load a Dictionary, Ctrl+P Print, Ctrl+C Copy to Clipboard > Puzzle, F1 Help,
// Ctrl+Q Exit; F10 or Alt+F opens the File menu, Alt+P the Puzzle menu.
#pragma once

#include <QObject>

#include <array>

class QAction;
class QMenu;
class QMenuBar;

struct MainMenu {
    // Fills `bar` (which keeps ownership of everything created).
    explicit MainMenu(QMenuBar* bar);

    QMenu* fileMenu = nullptr;   // "File"
    QMenu* puzzleMenu = nullptr; // "Puzzle"
    QMenu* copyMenu = nullptr;   // "Copy to Clipboard", in the Puzzle menu

    QAction* options = nullptr;        // "Options"
    QAction* loadDictionary = nullptr; // "Load a Dictionary"
    QAction* help = nullptr;           // "Help"
    QAction* about = nullptr;          // "About"
    QAction* exit = nullptr;           // "Exit"
    QAction* fileCancel = nullptr;     // "Cancel"

    QAction* create = nullptr;       // "Create"
    QAction* print = nullptr;        // "Print"
    QAction* puzzleCancel = nullptr; // "Cancel"
    // The Copy to Clipboard entries by index: 0 "Puzzle" and 1 "Solution" (the index is the
    // picture's ShowSolution), 2 a separator, 3 "Cancel".
    std::array<QAction*, 4> copyEntries{};
};
