// The main window `Form1`: the board (star and word tiles), the status line, the four
// picture buttons and the menu bar, on a fixed layout. It owns the puzzle session (word list,
// puzzle record, generator) for the whole run, runs the start-up sequence, applies the colour
// scheme (SetCol) and turns menu choices and clicks into commands. It holds no game rules:
// the puzzle session and the play model decide, the window renders their state.
#pragma once

#include "board/messagegate.h"
#include "board/pageprinter.h"
#include "board/playmove.h"
#include "board/puzzlesheet.h"
#include "core/configfile.h"
#include "core/puzzlesession.h"
#include "core/settings.h"
#include "ui/schemelook.h"

#include <QMainWindow>
#include <QTimer>

#include <memory>

class AboutForm;
class BoardView;
class BoxControl;
class ColourScheme;
class FNDialog;
class Form4;
class KeyboardPlay;
class Form6;
class MsgForm;
class Notifier;
class PlayBoard;
class QLabel;
struct MainMenu;

class Form1 : public QMainWindow {
    Q_OBJECT
public:
    // The window works on the program-wide `settings` and `scheme` and asks the player through
    // `notifier`; all three must outlive it. `msgForm` (may be null) is the message window whose
    // colours SetCol keeps in step with the scheme. The constructor runs the start-up sequence
    // up to arming Timer1; the dictionary loads on Timer1's first tick once the window shows.
    Form1(Settings& settings, ColourScheme& scheme, Notifier& notifier, MsgForm* msgForm,
          QWidget* parent = nullptr);
    ~Form1() override;

    // Applies the active scheme and the board font to the window, its menus and the message
    // window.
    void SetCol();
    // The hidden button "Trigger SetCol": reloads the active scheme from the collection, then
    // SetCol. The Options window's Apply calls it.
    void Command2Click();
    // Reads the configuration file into the settings (start-up), and writes it (Exit).
    void ReadcfgFile();
    void SavecfgFile();

    // The commands of the menus and buttons.
    void createCommand();
    void dictionaryCommand();
    void exitCommand();
    // File > Options: the Options window, modal; pending events run once it is closed.
    void optionsCommand();
    // Help shows the help window with the program folder's "pentalink.htm" and returns at
    // once (modeless); About shows the About window and returns when it has closed.
    void helpCommand();
    void aboutCommand();
    // Print: asks, then puts the puzzle and its solution on one page (printer, or a PDF file
    // without one) and says how it went.
    void printCommand();
    // Copy to Clipboard: the puzzle (0) or its solution (1) as a 304 x 367 picture.
    void CopyPuzzlePicture(int ShowSolution);

    PuzzleSession& session() { return *m_session; }
    QTimer& timer2() { return m_timer2; }
    FNDialog& filePicker() { return *m_filePicker; }
    Form6* optionsWindow() const { return m_form6; }
    QTimer& timer1() { return m_timer1; }
    MainMenu& menu() { return *m_menu; }
    // Where the printed page goes (tests choose the printer and the documents folder).
    PagePrinter& pagePrinter() { return m_pagePrinter; }
    BoardView& boardView() { return *m_boardView; }
    KeyboardPlay& keyboard() { return *m_keyboard; }
    QLabel* statusLine() const { return m_statusLine; }
    BoxControl* cmddict() const { return m_cmddict; }
    BoxControl* cmdshowsol() const { return m_cmdshowsol; }
    BoxControl* cmdreset() const { return m_cmdreset; }
    BoxControl* cmdcreate() const { return m_cmdcreate; }
    // The help and About windows, created on first use (null before).
    Form4* helpWindow() const { return m_form4; }
    AboutForm* aboutWindow() const { return m_aboutForm; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void buildLayout();
    void buildButtons();
    void connectCommands();
    void startUp();
    void timer1Tick();
    void letEventsRun();
    QColor colour(int index) const;
    // The scheme colours the help and About windows take when they become active.
    SchemeLook schemeLook() const;

    // The puzzle as the board shows it now, for the page and the picture.
    SheetContent sheet() const;

    // Hands a player's action or a command's effect on the board to the play rules.
    void play(const Move& move);

    Settings& m_settings;
    ColourScheme& m_scheme;
    Notifier& m_notifier; // reached only through m_gate
    MsgForm* m_msgForm;
    // Every message of the window, its rules and the colour scheme passes this gate, so the
    // completion check can tell when a message is already open.
    MessageGate m_gate;
    ConfigFile m_config;
    std::unique_ptr<PuzzleSession> m_session;
    std::unique_ptr<PlayBoard> m_board;
    std::unique_ptr<MainMenu> m_menu;

    QWidget* m_client = nullptr;
    BoardView* m_boardView = nullptr;
    KeyboardPlay* m_keyboard = nullptr;
    QLabel* m_statusLine = nullptr;
    BoxControl* m_cmddict = nullptr;
    BoxControl* m_cmdshowsol = nullptr;
    BoxControl* m_cmdreset = nullptr;
    BoxControl* m_cmdcreate = nullptr;
    FNDialog* m_filePicker = nullptr;
    Form6* m_form6 = nullptr; // created at start-up, hidden rather than closed
    Form4* m_form4 = nullptr;
    AboutForm* m_aboutForm = nullptr;

    PagePrinter m_pagePrinter;
    // The clipboard picture's font, which one composition leaves to the next.
    SheetFont m_pictureFont;
    bool m_printing = false;

    QTimer m_timer1;
    QTimer m_timer2;
    bool m_exiting = false;
};
