// The main window: layout, start-up, SetCol and the commands; see form1.h.
#include "board/form1.h"

#include "appearance/colourscheme.h"
#include "appearance/form6.h"
#include "board/boardaccessible.h"
#include "board/boardcommands.h"
#include "board/boardgeometry.h"
#include "board/boardspeech.h"
#include "board/boardview.h"
#include "board/buttonpictures.h"
#include "board/keyboardplay.h"
#include "board/mainmenu.h"
#include "board/playboard.h"
#include "board/printcommand.h"
#include "board/sheetpainter.h"
#include "core/appfolder.h"
#include "core/notifier.h"
#include "ui/aboutform.h"
#include "ui/boxcontrol.h"
#include "ui/fndialog.h"
#include "ui/form4.h"
#include "ui/msgform.h"
#include "ui/olecolor.h"
#include "ui/programicon.h"
#include "ui/widgetcolours.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDir>
#include <QFontDatabase>
#include <QLabel>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>

using namespace BoardGeometry;

namespace {

constexpr int BackgroundColour = 2;
constexpr int MenuColour = 3;

void setTextColour(QWidget* widget, const QColor& colour) {
    QPalette palette = widget->palette();
    palette.setColor(QPalette::WindowText, colour);
    widget->setPalette(palette);
}

// Gives the menu bar and every menu below it a solid background of exactly `colour`, with
// black text in the window's font, the entry under the pointer or the keys in a darker shade,
// and each drop-down menu a one-pixel frame in a darker shade still so it stands off what
// lies below. A style sheet, because styles paint drop-down menus
// from a lightened palette colour; it reaches the drop-down menus because they are children
// of the bar. It names the font, because a style sheet set again would give the bar the
// application's font, and the fixed window would grow with it.
void setMenuColour(QMenuBar* bar, const QColor& colour) {
    const QFont font = bar->window()->font();
    bar->setStyleSheet(QStringLiteral("QMenuBar, QMenu { background-color: %1; color: black; "
                                      "font: %3pt \"%4\"; }"
                                      "QMenu { border: 1px solid %2; }"
                                      "QMenuBar::item:selected, QMenu::item:selected "
                                      "{ background-color: %5; }")
                           .arg(colour.name(), colour.darker(200).name())
                           .arg(font.pointSizeF())
                           .arg(font.family())
                           .arg(colour.darker(140).name()));
}

QFont boardFont(const QString& family, int pointSize, bool bold) {
    QFont font(family);
    font.setPointSize(pointSize);
    font.setBold(bold);
    font.setItalic(false);
    return font;
}

} // namespace

Form1::Form1(Settings& settings, ColourScheme& scheme, Notifier& notifier, MsgForm* msgForm,
             QWidget* parent)
    : QMainWindow(parent)
    , m_settings(settings)
    , m_scheme(scheme)
    , m_notifier(notifier)
    , m_msgForm(msgForm)
    , m_gate(notifier)
    , m_config(settings, m_gate)
    , m_session(std::make_unique<PuzzleSession>(&m_gate))
    , m_board(std::make_unique<PlayBoard>(m_session->grid(), m_gate, &m_session->eventPump())) {
    setObjectName(QStringLiteral("Form1"));
    // Scheme messages go through the gate too, so a completion tick never meets an open one.
    m_scheme.setNotifier(&m_gate);
    // The normal pointer shows while a message waits for the player, whatever work is going on.
    // A screen reader hears each message as it opens.
    m_gate.setOpenHook([this](bool opening, const QString& text) {
        if (opening) {
            QApplication::setOverrideCursor(Qt::ArrowCursor);
            m_boardView->announce(text);
        } else {
            QApplication::restoreOverrideCursor();
        }
    });
    setWindowTitle(QStringLiteral("Pentalink  "));
    setWindowIcon(programIcon());
    // A fixed single frame with a minimise button and no maximise button.
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint);
    QFont windowFont(QStringLiteral("Arial"));
    windowFont.setPointSizeF(8.25);
    setFont(windowFont);

    installBoardAccessibility();
    m_menu = std::make_unique<MainMenu>(menuBar());
    buildLayout();
    buildButtons();
    m_keyboard =
        new KeyboardPlay(m_boardView, {m_cmddict, m_cmdshowsol, m_cmdreset, m_cmdcreate}, this);
    connectCommands();
    startUp();
}

Form1::~Form1() {
    m_scheme.setNotifier(&m_notifier);
}

void Form1::buildLayout() {
    m_client = new QWidget(this);
    m_client->setObjectName(QStringLiteral("client"));
    m_client->setFixedSize(toPixels(ClientWidth), toPixels(ClientHeight));
    m_client->setMouseTracking(true);
    setCentralWidget(m_client);
    setMouseTracking(true);

    m_boardView = new BoardView(*m_board, m_client);

    m_statusLine = new QLabel(m_client);
    m_statusLine->setObjectName(QStringLiteral("Label2"));
    m_statusLine->setGeometry(toPixels(StatusLine));
    m_statusLine->setFrameStyle(QFrame::Box | QFrame::Plain);
    m_statusLine->setAutoFillBackground(true);
    m_statusLine->setAccessibleDescription(QStringLiteral("Dictionary"));

    // The file-name picker has no visible part in this window.
    m_filePicker = new FNDialog(m_client);
    m_filePicker->setObjectName(QStringLiteral("gf1"));
    m_filePicker->hide();

    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

void Form1::buildButtons() {
    const auto make = [this](const char* name, const QRect& place, ButtonPicture picture,
                             const QString& tip) {
        auto* button = new BoxControl(m_client);
        button->setObjectName(QString::fromLatin1(name));
        button->setGeometry(toPixels(place));
        button->setCaption(QString());
        button->setPicture(buttonPicture(picture));
        button->setToolTip(tip);
        button->setAccessibleName(tip);
        return button;
    };
    m_cmddict = make("cmddict", DictButton, ButtonPicture::OpenFolder,
                     QStringLiteral("Open a Dictionary File"));
    m_cmdshowsol =
        make("cmdshowsol", ShowSolButton, ButtonPicture::PageTick, QStringLiteral("Show Solution"));
    m_cmdreset = make("cmdreset", ResetButton, ButtonPicture::PageArrows,
                      QStringLiteral("Clear User Entries"));
    m_cmdcreate = make("cmdcreate", CreateButton, ButtonPicture::PageStar,
                       QStringLiteral("Create a New Puzzle"));
}

void Form1::connectCommands() {
    MainMenu& menu = *m_menu;
    connect(menu.loadDictionary, &QAction::triggered, this, &Form1::dictionaryCommand);
    connect(menu.create, &QAction::triggered, this, &Form1::createCommand);
    connect(menu.exit, &QAction::triggered, this, &Form1::exitCommand);
    connect(menu.options, &QAction::triggered, this, &Form1::optionsCommand);
    connect(menu.help, &QAction::triggered, this, &Form1::helpCommand);
    connect(menu.about, &QAction::triggered, this, &Form1::aboutCommand);
    connect(menu.print, &QAction::triggered, this, &Form1::printCommand);
    for (int i : {0, 1}) {
        connect(menu.copyEntries[static_cast<size_t>(i)], &QAction::triggered, this,
                [this, i] { CopyPuzzlePicture(i); });
    }

    connect(m_cmdcreate, &BoxControl::MouseUp, this, [this] { createCommand(); });
    connect(m_cmddict, &BoxControl::MouseUp, this, [this] { dictionaryCommand(); });
    connect(m_cmdshowsol, &BoxControl::MouseDown, this, [this] { play(Move::solutionPress()); });
    connect(m_cmdshowsol, &BoxControl::MouseUp, this, [this] { play(Move::solutionRelease()); });
    connect(m_cmdreset, &BoxControl::MouseUp, this, [this] { play(Move::clearEntries()); });
    connect(m_boardView, &BoardView::moveMade, this, &Form1::play);
    connect(m_keyboard, &KeyboardPlay::moveMade, this, &Form1::play);

    PuzzleSession& session = *m_session;
    connect(&session, &PuzzleSession::waitPointerChanged, this, [this](bool waiting) {
        if (waiting)
            QApplication::setOverrideCursor(Qt::BusyCursor);
        else
            QApplication::restoreOverrideCursor();
    });
    // The completion check runs exactly while the rules say so.
    m_timer2.setInterval(500);
    connect(m_board.get(), &PlayBoard::completionCheckChanged, this, [this](bool running) {
        if (running)
            m_timer2.start();
        else
            m_timer2.stop();
    });
    connect(&m_timer2, &QTimer::timeout, m_board.get(), &PlayBoard::completionTick);
    connect(&session, &PuzzleSession::dictionaryStatusChanged, this,
            [this](const QString& text, const QString& toolTip) {
                m_statusLine->setText(text);
                m_statusLine->setToolTip(toolTip);
                m_statusLine->setAccessibleName(text);
                QAccessibleEvent event(m_statusLine, QAccessible::NameChanged);
                BoardAccessibility::send(event);
            });

    m_timer1.setSingleShot(true);
    m_timer1.setInterval(50);
    connect(&m_timer1, &QTimer::timeout, this, &Form1::timer1Tick);
}

void Form1::startUp() {
    m_settings.BoardFontName = QStringLiteral("Arial");
    m_settings.BoardFontSize = 18;
    m_form6 = new Form6(m_settings, m_scheme, m_gate, this);
    m_form6->model().setCommand2([this] { Command2Click(); });
    m_form6->model().fillFontList(QFontDatabase::families());
    m_settings.AppFolder = AppFolder();

    if (m_msgForm) {
        // Until a scheme is applied the message window looks like a plain list: black on
        // white, whatever the desktop's theme (a dark list ground would hide the black text).
        const QColor listBackground = Qt::white;
        m_msgForm->setWindowTitle(QStringLiteral("Pentalink"));
        m_msgForm->setBackColor(listBackground);
        m_msgForm->setButtonColor(listBackground);
        m_msgForm->setFontSize(9);
        m_msgForm->setFontName(QStringLiteral("Arial"));
        m_msgForm->setFontBold(false);
        m_msgForm->setForeColor(Qt::black);
    }
    m_settings.TextColour = Settings::DefaultTextColour;
    m_settings.SchemeCollectionPath = m_settings.AppFolder + QStringLiteral("all.col");
    m_form6->model().fillSchemeList();

    // The status line's text is black whatever the desktop's palette says.
    setTextColour(m_statusLine, Qt::black);

    ReadcfgFile();
    // Laying out the Options window's picker selects its first colour into colour 2; start
    // from the built-in colours instead, so a scheme that cannot be loaded still leaves a
    // usable window.
    m_scheme.SchemeColours = ColourScheme::BuiltInXp;
    m_scheme.LoadColourScheme(m_settings.ActiveSchemeFile);
    SetCol();

    m_session->setDictionaryPath(startupDictionaryPath(m_settings));
    m_settings.DictionaryPath = m_session->DictionaryPath();

    QApplication::setOverrideCursor(Qt::BusyCursor);
    m_timer1.start();

    resize(sizeHint());
    // Keys go to the board from the start; its ring shows once a key is used.
    m_boardView->setFocus(Qt::OtherFocusReason);
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}

void Form1::timer1Tick() {
    if (m_session->isBusy()) {
        // A create request is still showing its message: load once it has been answered.
        m_timer1.start();
        return;
    }
    m_session->LoadDictionary(m_session->DictionaryPath());
    m_timer1.stop();
    QApplication::restoreOverrideCursor();
}

QColor Form1::colour(int index) const {
    return OleTranslateColor(m_scheme.SchemeColours[index]);
}

void Form1::SetCol() {
    m_scheme.ButtonColourIndex = 4;
    const QColor background = colour(BackgroundColour);
    const QColor button = colour(m_scheme.ButtonColourIndex);
    const QColor text = OleTranslateColor(m_settings.TextColour);

    setBackground(this, background);
    setBackground(m_client, background);
    for (BoxControl* b : {m_cmdcreate, m_cmdreset, m_cmdshowsol, m_cmddict})
        b->setBackColor(m_scheme.SchemeColours[m_scheme.ButtonColourIndex]);
    setBackground(m_statusLine, background);
    QFont statusFont = m_statusLine->font();
    statusFont.setFamily(m_settings.BoardFontName);
    m_statusLine->setFont(statusFont);

    // The board: star area and cells in the background colour, tiles in the button colour,
    // lines and tile words in the text colour; cell letters in the board font, bold.
    BoardStyle style;
    style.ground = background;
    style.tileFace = button;
    style.text = text;
    style.letters = Qt::black;
    style.markers = Qt::black;
    style.letterFont = boardFont(m_settings.BoardFontName, m_settings.BoardFontSize, true);
    style.tileFont = boardFont(m_settings.BoardFontName, 12, false);
    style.markerFont = boardFont(QStringLiteral("Arial"), 12, true);
    m_boardView->setBoardStyle(style);

    if (!m_settings.ActiveSchemeFile.toUpper().contains(QStringLiteral("DEFAULT")))
        setMenuColour(menuBar(), colour(MenuColour));

    if (m_msgForm) {
        m_msgForm->setBackColor(background);
        m_msgForm->setButtonColor(button);
        m_msgForm->setForeColor(text);
    }
}

void Form1::Command2Click() {
    m_scheme.LoadColourScheme(m_settings.ActiveSchemeFile);
    SetCol();
}

void Form1::ReadcfgFile() {
    m_config.ReadcfgFile();
}

void Form1::SavecfgFile() {
    m_settings.DictionaryPath = m_session->DictionaryPath();
    m_config.SavecfgFile();
}

void Form1::createCommand() {
    createPuzzle(*m_session, *m_board);
}

void Form1::dictionaryCommand() {
    if (m_session->isBusy())
        return;
    const QString folder = QDir::currentPath();
    m_filePicker->setTitle(QStringLiteral("Select a Dictionary file"));
    m_filePicker->setFileTypes(QStringLiteral("*.txt;*.dic"));
    m_filePicker->setFileTypesName(QStringLiteral("Dictionary File"));
    m_filePicker->setDefaultDir(m_settings.AppFolder);
    const QString answer = m_filePicker->GetFileName(QStringLiteral("OPEN"));
    QDir::setCurrent(folder);
    if (answer.isEmpty())
        return;
    openDictionary(*m_session, *m_board, answer);
}

void Form1::optionsCommand() {
    m_form6->exec();
    letEventsRun();
}

void Form1::exitCommand() {
    if (m_exiting)
        return;
    if (m_session->isBusy()) {
        // A running search is abandoned first (a load runs on); the question comes once it has
        // returned.
        m_session->abandonSearch();
        QTimer::singleShot(0, this, &Form1::exitCommand);
        return;
    }
    const int answer =
        m_gate.MsgboxA(QStringLiteral("Exit?"), QStringLiteral("vbQuestion + vbYesNo"));
    letEventsRun();
    if (answer != AnswerYes)
        return;
    m_exiting = true;
    SavecfgFile();
    // Every other window of the program has a title of its own: close them all first.
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window != this && window->windowTitle() != windowTitle() && window->isVisible())
            window->close();
    }
    close();
}

SchemeLook Form1::schemeLook() const {
    return {m_scheme.SchemeColours[BackgroundColour],
            m_scheme.SchemeColours[m_scheme.ButtonColourIndex]};
}

void Form1::helpCommand() {
    if (!m_form4) {
        m_form4 = new Form4(this);
        m_form4->setSchemeLook([this] { return schemeLook(); });
    }
    m_form4->setPagePath(m_settings.AppFolder + QStringLiteral("pentalink.htm"));
    // A help window left minimised comes back as it was before.
    m_form4->setWindowState(m_form4->windowState() & ~Qt::WindowMinimized);
    m_form4->show();
    m_form4->raise();
    m_form4->activateWindow();
    letEventsRun();
}

void Form1::aboutCommand() {
    if (!m_aboutForm) {
        m_aboutForm = new AboutForm(this);
        m_aboutForm->setSchemeLook([this] { return schemeLook(); });
    }
    m_aboutForm->exec();
    letEventsRun();
}

SheetContent Form1::sheet() const {
    return sheetContent(m_session->grid(), m_board->state(), m_settings.BoardFontName);
}

void Form1::printCommand() {
    if (m_printing)
        return;
    m_printing = true;
    ::printCommand(
        m_gate, [this] { letEventsRun(); },
        [this] { return m_pagePrinter.print(composePage(sheet()), m_settings.AppFolder); });
    m_printing = false;
}

void Form1::CopyPuzzlePicture(int ShowSolution) {
    const QImage picture =
        puzzlePicture(composePuzzlePicture(ShowSolution, sheet(), m_pictureFont));
    QGuiApplication::clipboard()->setImage(picture);
}

void Form1::closeEvent(QCloseEvent* event) {
    // Closing by the frame ends the program at once, without saving (only Exit saves): a
    // running search is abandoned and returns before its next attempt, a running load stops
    // at its next look at the event loop; the window (and the session, which it owns) lives
    // on until the event loop ends.
    m_session->abandonWork();
    event->accept();
}

void Form1::mouseMoveEvent(QMouseEvent* event) {
    QMainWindow::mouseMoveEvent(event);
    setCursor(Qt::ArrowCursor);
}

void Form1::letEventsRun() {
    QCoreApplication::processEvents();
}

void Form1::play(const Move& move) {
    const BoardState before = m_board->state();
    m_board->apply(move);
    m_boardView->announce(BoardSpeech::announcement(move, before, m_board->state()));
}
