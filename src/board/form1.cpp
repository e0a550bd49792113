// The main window: layout, start-up, SetCol and the commands; see form1.h.
#include "board/form1.h"

#include "appearance/colourscheme.h"
#include "board/boardgeometry.h"
#include "board/buttonpictures.h"
#include "board/clicklabel.h"
#include "board/mainmenu.h"
#include "board/playboard.h"
#include "board/sessionwiring.h"
#include "board/stararea.h"
#include "core/appfolder.h"
#include "core/notifier.h"
#include "ui/aboutform.h"
#include "ui/boxcontrol.h"
#include "ui/fndialog.h"
#include "ui/form4.h"
#include "ui/msgform.h"
#include "ui/olecolor.h"
#include "ui/programicon.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QLabel>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>

using namespace BoardGeometry;

namespace {

constexpr int BackgroundColour = 2;
constexpr int MenuColour = 3;

void setBackground(QWidget* widget, const QColor& colour) {
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, colour);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
}

void setTextColour(QWidget* widget, const QColor& colour) {
    QPalette palette = widget->palette();
    palette.setColor(QPalette::WindowText, colour);
    widget->setPalette(palette);
}

// Gives the menu bar and every menu below it a solid background.
void setMenuColour(QMenuBar* bar, const QColor& colour) {
    const auto paint = [&colour](QWidget* widget) {
        QPalette palette = widget->palette();
        for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base, QPalette::Button})
            palette.setColor(role, colour);
        widget->setPalette(palette);
        widget->setAutoFillBackground(true);
    };
    paint(bar);
    for (QMenu* menu : bar->findChildren<QMenu*>())
        paint(menu);
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
    setWindowTitle(QStringLiteral("Pentalink  "));
    setWindowIcon(programIcon());
    // A fixed single frame with a minimise button and no maximise button.
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint);
    QFont windowFont(QStringLiteral("Arial"));
    windowFont.setPointSizeF(8.25);
    setFont(windowFont);

    m_menu = std::make_unique<MainMenu>(menuBar());
    buildLayout();
    buildButtons();
    connectCommands();
    startUp();
}

Form1::~Form1() = default;

void Form1::buildLayout() {
    m_client = new QWidget(this);
    m_client->setObjectName(QStringLiteral("client"));
    m_client->setFixedSize(toPixels(ClientWidth), toPixels(ClientHeight));
    m_client->setMouseTracking(true);
    setCentralWidget(m_client);
    setMouseTracking(true);

    m_starArea = new StarArea(m_client);

    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        auto* tile = new ClickLabel(i, m_client);
        tile->setObjectName(QStringLiteral("pw%1").arg(i));
        tile->setGeometry(toPixels(Tiles[i]));
        tile->setAlignment(Qt::AlignCenter);
        tile->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        tile->setAutoFillBackground(true);
        m_tiles[i] = tile;
    }

    m_label2 = new QLabel(m_client);
    m_label2->setObjectName(QStringLiteral("Label2"));
    m_label2->setGeometry(toPixels(StatusLine));
    m_label2->setFrameStyle(QFrame::Box | QFrame::Plain);
    m_label2->setAutoFillBackground(true);

    // The file-name picker has no visible part in this window.
    m_gf1 = new FNDialog(m_client);
    m_gf1->setObjectName(QStringLiteral("gf1"));
    m_gf1->hide();

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
    connect(menu.mnudict, &QAction::triggered, this, &Form1::dictionaryCommand);
    connect(menu.mnucreate, &QAction::triggered, this, &Form1::createCommand);
    connect(menu.cmdexitx, &QAction::triggered, this, &Form1::exitCommand);
    connect(menu.mnucolsch, &QAction::triggered, this,
            [this] { notAvailableYet(QStringLiteral("The Options window")); });
    connect(menu.mnuhelp, &QAction::triggered, this, &Form1::helpCommand);
    connect(menu.mnuabout, &QAction::triggered, this, &Form1::aboutCommand);
    connect(menu.mnuprint, &QAction::triggered, this,
            [this] { notAvailableYet(QStringLiteral("Printing")); });
    for (int i : {0, 1}) {
        connect(menu.mnu2clip[i], &QAction::triggered, this,
                [this] { notAvailableYet(QStringLiteral("Copying to the clipboard")); });
    }

    connect(m_cmdcreate, &BoxControl::MouseUp, this, [this] { createCommand(); });
    connect(m_cmddict, &BoxControl::MouseUp, this, [this] { dictionaryCommand(); });
    connect(m_cmdshowsol, &BoxControl::MouseDown, this, [this] { play(Move::solutionPress()); });
    connect(m_cmdshowsol, &BoxControl::MouseUp, this, [this] { play(Move::solutionRelease()); });
    connect(m_cmdreset, &BoxControl::MouseUp, this, [this] { play(Move::clearEntries()); });
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        connect(m_tiles[i], &ClickLabel::released, this, [this](int t) { play(Move::tile(t)); });
        connect(m_tiles[i], &ClickLabel::hovered, this, [this] { setCursor(Qt::ArrowCursor); });
    }
    for (int k = 1; k <= StarGrid::DirectionCount; ++k) {
        ClickLabel* marker = m_starArea->marker(k);
        connect(marker, &ClickLabel::released, this, [this](int m) { play(Move::marker(m)); });
        connect(marker, &ClickLabel::hovered, this, &Form1::markerHovered);
    }
    connect(m_starArea, &StarArea::hovered, this, [this] { setCursor(Qt::ArrowCursor); });

    PuzzleSession& session = *m_session;
    connect(&session, &PuzzleSession::waitPointerChanged, this, [this](bool waiting) {
        if (waiting)
            QApplication::setOverrideCursor(Qt::BusyCursor);
        else
            QApplication::restoreOverrideCursor();
    });
    connectToSession(session, *m_board);
    connect(&session, &PuzzleSession::boardEnabledChanged, m_starArea, &QWidget::setEnabled);
    connect(m_board.get(), &PlayBoard::changed, this, &Form1::renderPlay);
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
                m_label2->setText(text);
                m_label2->setToolTip(toolTip);
            });

    m_timer1.setSingleShot(true);
    m_timer1.setInterval(50);
    connect(&m_timer1, &QTimer::timeout, this, &Form1::timer1Tick);
}

void Form1::startUp() {
    m_settings.BoardFontName = QStringLiteral("Arial");
    m_settings.BoardFontSize = 18;
    m_settings.AppFolder = AppFolder();

    if (m_msgForm) {
        // Until a scheme is applied the message window looks like a plain list background.
        const QColor listBackground = QApplication::palette().color(QPalette::Base);
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

    for (int c = 0; c < StarGrid::CellCount; ++c) {
        QLabel* cell = m_starArea->cell(c);
        cell->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        cell->setFont(boardFont(m_settings.BoardFontName, 18, true));
        cell->clear();
    }
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        m_tiles[i]->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        m_tiles[i]->setFont(boardFont(m_settings.BoardFontName, 14, false));
    }
    m_session->grid().SelectedWord = -1;

    ReadcfgFile();
    m_scheme.LoadColourScheme(m_settings.ActiveSchemeFile);
    SetCol();

    m_session->setDictionaryPath(startupDictionaryPath(m_settings));
    m_settings.DictionaryPath = m_session->DictionaryPath();

    QApplication::setOverrideCursor(Qt::BusyCursor);
    m_timer1.start();

    resize(sizeHint());
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}

void Form1::timer1Tick() {
    renderPlay(); // no puzzle yet: empty tiles
    m_session->LoadDictionary(m_session->DictionaryPath());
    m_session->grid().SelectedWord = -1;
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
    setBackground(m_starArea, background);
    setBackground(m_label2, background);
    QFont statusFont = m_label2->font();
    statusFont.setFamily(m_settings.BoardFontName);
    m_label2->setFont(statusFont);

    for (int c = 0; c < StarGrid::CellCount; ++c) {
        QLabel* cell = m_starArea->cell(c);
        cell->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        setBackground(cell, background);
        cell->raise();
        cell->setFont(boardFont(m_settings.BoardFontName, m_settings.BoardFontSize, true));
    }
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        setBackground(m_tiles[i], button);
        m_tiles[i]->raise();
        m_tiles[i]->setFont(boardFont(m_settings.BoardFontName, 12, false));
    }
    m_starArea->setLineColour(text);

    if (!m_settings.ActiveSchemeFile.toUpper().contains(QStringLiteral("DEFAULT")))
        setMenuColour(menuBar(), colour(MenuColour));

    m_starArea->setFont(boardFont(m_settings.BoardFontName, m_settings.BoardFontSize, false));

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
    m_session->createPuzzle();
}

void Form1::dictionaryCommand() {
    if (m_session->isBusy())
        return;
    const QString folder = QDir::currentPath();
    m_gf1->setTitle(QStringLiteral("Select a Dictionary file"));
    m_gf1->setFileTypes(QStringLiteral("*.txt;*.dic"));
    m_gf1->setFileTypesName(QStringLiteral("Dictionary File"));
    m_gf1->setDefaultDir(m_settings.AppFolder);
    const QString answer = m_gf1->GetFileName(QStringLiteral("OPEN"));
    QDir::setCurrent(folder);
    if (answer.isEmpty())
        return;
    m_session->openDictionary(answer);
}

void Form1::exitCommand() {
    if (m_exiting)
        return;
    const int answer =
        m_notifier.MsgboxA(QStringLiteral("Exit?"), QStringLiteral("vbQuestion + vbYesNo"));
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

void Form1::closeEvent(QCloseEvent* event) {
    // Closing by the frame ends the program without saving; only Exit saves.
    if (m_session->isBusy()) {
        // The search lets events run; let it finish before the session goes away.
        event->ignore();
        QTimer::singleShot(50, this, &QWidget::close);
        return;
    }
    event->accept();
}

void Form1::mouseMoveEvent(QMouseEvent* event) {
    QMainWindow::mouseMoveEvent(event);
    setCursor(Qt::ArrowCursor);
}

void Form1::notAvailableYet(const QString& what) {
    m_notifier.MsgboxA(what + QStringLiteral(" is not available yet."),
                       QStringLiteral("vbok+vbinformation"));
    letEventsRun();
}

void Form1::letEventsRun() {
    QCoreApplication::processEvents();
}

void Form1::play(const Move& move) {
    m_board->apply(move);
}

void Form1::markerHovered() {
    // A crosshair over a marker says "a click places the selected word here".
    if (m_session->grid().SelectedWord != -1)
        setCursor(Qt::CrossCursor);
}

void Form1::renderPlay() {
    const PlayState& state = m_board->state();
    for (int c = 0; c < StarGrid::CellCount; ++c)
        m_starArea->cell(c)->setText(state.Entries[c]);

    const QColor background = colour(BackgroundColour);
    const QColor button = colour(m_scheme.ButtonColourIndex);
    const QColor text = OleTranslateColor(m_settings.TextColour);
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        const Tile& t = state.tiles[i];
        ClickLabel* tile = m_tiles[i];
        tile->setText(t.caption);
        tile->setFrameStyle(t.look.border == TileBorder::Flat ? QFrame::Box | QFrame::Plain
                                                              : QFrame::Panel | QFrame::Sunken);
        setBackground(tile, button);
        setTextColour(tile, t.look.text == TileText::Faded ? background : text);
        QFont font = tile->font();
        font.setStrikeOut(t.look.struckOut);
        tile->setFont(font);
        tile->setEnabled(t.look.enabled);
    }
}
