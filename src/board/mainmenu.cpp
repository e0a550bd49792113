// The main window's menu bar; see mainmenu.h.
#include "board/mainmenu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

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
    // Captions carry no "&": no entry has a shortcut key.
    mnumain = addMenu(bar, "mnumain", QStringLiteral("File"));
    mnucolsch = addEntry(mnumain, "mnucolsch", QStringLiteral("Options"));
    mnudict = addEntry(mnumain, "mnudict", QStringLiteral("Load a Dictionary"));
    addSeparator(mnumain, "dash6");
    mnuhelp = addEntry(mnumain, "mnuhelp", QStringLiteral("Help"));
    mnuabout = addEntry(mnumain, "mnuabout", QStringLiteral("About"));
    addSeparator(mnumain, "dash2");
    cmdexitx = addEntry(mnumain, "cmdexitx", QStringLiteral("Exit"));
    addSeparator(mnumain, "dash1");
    can1 = addEntry(mnumain, "can1", QStringLiteral("Cancel"));

    mnudictx = addMenu(bar, "mnudictx", QStringLiteral("Puzzle"));
    mnucreate = addEntry(mnudictx, "mnucreate", QStringLiteral("Create"));
    mnuprint = addEntry(mnudictx, "mnuprint", QStringLiteral("Print"));
    addSeparator(mnudictx, "dash3");
    mnucopy2clip = mnudictx->addMenu(QStringLiteral("Copy to Clipboard"));
    mnucopy2clip->setObjectName(QStringLiteral("mnucopy2clip"));
    mnucopy2clip->menuAction()->setObjectName(QStringLiteral("mnucopy2clip"));
    mnu2clip[0] = addEntry(mnucopy2clip, "mnu2clip0", QStringLiteral("Puzzle"));
    mnu2clip[1] = addEntry(mnucopy2clip, "mnu2clip1", QStringLiteral("Solution"));
    mnu2clip[2] = addSeparator(mnucopy2clip, "mnu2clip2");
    mnu2clip[3] = addEntry(mnucopy2clip, "mnu2clip3", QStringLiteral("Cancel"));
    addSeparator(mnudictx, "dash5");
    can6 = addEntry(mnudictx, "can6", QStringLiteral("Cancel"));
}
