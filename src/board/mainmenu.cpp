// The main window's menu bar; see mainmenu.h.
#include "board/mainmenu.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>

namespace {

QAction* addEntry(QMenu* menu, const char* name, const QString& caption) {
    QAction* action = menu->addAction(caption);
    action->setObjectName(QString::fromLatin1(name));
    return action;
}

QAction* addSeparator(QMenu* menu, const char* name) {
    QAction* action = menu->addSeparator();
    action->setObjectName(QString::fromLatin1(name));
    return action;
}

QMenu* addMenu(QMenuBar* bar, const char* name, const QString& caption) {
    QMenu* menu = bar->addMenu(caption);
    menu->setObjectName(QString::fromLatin1(name));
    return menu;
}

} // namespace

MainMenu::MainMenu(QMenuBar* bar) {
    // Captions carry no "&": no entry has an access key.
    fileMenu = addMenu(bar, "mnumain", QStringLiteral("File"));
    options = addEntry(fileMenu, "mnucolsch", QStringLiteral("Options"));
    loadDictionary = addEntry(fileMenu, "mnudict", QStringLiteral("Load a Dictionary"));
    addSeparator(fileMenu, "dash6");
    help = addEntry(fileMenu, "mnuhelp", QStringLiteral("Help"));
    about = addEntry(fileMenu, "mnuabout", QStringLiteral("About"));
    addSeparator(fileMenu, "dash2");
    exit = addEntry(fileMenu, "cmdexitx", QStringLiteral("Exit"));
    addSeparator(fileMenu, "dash1");
    fileCancel = addEntry(fileMenu, "can1", QStringLiteral("Cancel"));

    puzzleMenu = addMenu(bar, "mnudictx", QStringLiteral("Puzzle"));
    create = addEntry(puzzleMenu, "mnucreate", QStringLiteral("Create"));
    print = addEntry(puzzleMenu, "mnuprint", QStringLiteral("Print"));
    addSeparator(puzzleMenu, "dash3");
    copyMenu = puzzleMenu->addMenu(QStringLiteral("Copy to Clipboard"));
    copyMenu->setObjectName(QStringLiteral("mnucopy2clip"));
    copyMenu->menuAction()->setObjectName(QStringLiteral("mnucopy2clip"));
    // A braced list runs its calls in order, so the entries appear as listed.
    copyEntries = {addEntry(copyMenu, "mnu2clip0", QStringLiteral("Puzzle")),
                   addEntry(copyMenu, "mnu2clip1", QStringLiteral("Solution")),
                   addSeparator(copyMenu, "mnu2clip2"),
                   addEntry(copyMenu, "mnu2clip3", QStringLiteral("Cancel"))};
    addSeparator(puzzleMenu, "dash5");
    puzzleCancel = addEntry(puzzleMenu, "can6", QStringLiteral("Cancel"));

    // Keyboard shortcuts as desktops have them, shown beside the entries.
    create->setShortcut(QKeySequence::New);
    loadDictionary->setShortcut(QKeySequence::Open);
    print->setShortcut(QKeySequence::Print);
    copyEntries[0]->setShortcut(QKeySequence::Copy);
    help->setShortcut(QKeySequence(Qt::Key_F1));
    exit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));

    // The menus open from the keyboard as on other desktop programs: F10 the first, Alt with
    // a caption's first letter its own. The captions carry no "&", so nothing is underlined.
    const struct {
        QKeySequence keys;
        QMenu* menu;
    } openers[] = {
        {QKeySequence(Qt::Key_F10), fileMenu},
        {QKeySequence(Qt::ALT | Qt::Key_F), fileMenu},
        {QKeySequence(Qt::ALT | Qt::Key_P), puzzleMenu},
    };
    for (const auto& opener : openers) {
        auto* shortcut = new QShortcut(opener.keys, bar);
        // Opened with its first entry lit, so Enter and the arrow keys go on from there.
        QObject::connect(shortcut, &QShortcut::activated, bar, [bar, menu = opener.menu] {
            bar->setActiveAction(menu->menuAction());
            menu->setActiveAction(menu->actions().value(0));
        });
    }
}
