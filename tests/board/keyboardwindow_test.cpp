// The main window played from the keyboard alone, headless: menu shortcuts, Tab, letters,
// Enter and a held Space on the solution button; what assistive technology sees of a board in
// mid-game; and the focus ring and the selected look against their ground in every shipped
// colour scheme.
#include "windowfixture.h"

#include "appearance/form6.h"
#include "board/boardaccessible.h"
#include "board/boardgeometry.h"
#include "board/keyboardplay.h"
#include "board/mainmenu.h"
#include "ui/contrast.h"
#include "ui/olecolor.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QMenu>

namespace {

// Every accessibility event while a test runs: kind, child, and the board's description then.
struct Heard {
    QAccessible::Event type;
    int child;
    QString description;
};
std::vector<Heard> g_heard;

void record(QAccessibleEvent& event) {
    QAccessibleInterface* iface = event.accessibleInterface();
    g_heard.push_back(
        {event.type(), event.child(), iface ? iface->text(QAccessible::Description) : QString()});
}

class KeyboardWindowTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        start();
        QApplication::setActiveWindow(m_form.get());
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_form.get()));
        g_heard.clear();
        BoardAccessibility::setEventObserver(record);
    }
    void TearDown() override {
        BoardAccessibility::setEventObserver({});
        WindowTest::TearDown();
    }

    // A key typed by the player: it goes to whatever has the window's focus.
    void type(Qt::Key key, Qt::KeyboardModifiers mods = Qt::NoModifier) {
        QWidget* target = QApplication::focusWidget();
        ASSERT_NE(target, nullptr);
        QTest::keyClick(target, key, mods);
    }
    FocusItem focus() const { return m_form->keyboard().focus(); }
    // Tabs until `item` has the focus (at most once round).
    void tabTo(const FocusItem& item) {
        for (int n = 0; n < BoardFocus::ItemCount && !(focus() == item); ++n)
            type(Qt::Key_Tab);
        ASSERT_EQ(focus(), item);
    }
    const StarGrid& grid() const { return m_form->session().grid(); }
    int readingOf(int tile) const {
        for (int k = 1; k <= 10; ++k) {
            if (grid().DecoyFlags[tile] == 0 &&
                grid().solutionWord(k) == grid().CandidateWords[tile])
                return k;
        }
        return 0;
    }
    bool heard(const QString& said) const {
        for (const Heard& h : g_heard) {
            if (h.type == QAccessible::Alert && h.description == said)
                return true;
        }
        return false;
    }
};

TEST_F(KeyboardWindowTest, AWholeGameWithKeysAlone) {
    Form1& form = *m_form;
    // The menus show their shortcuts, and they work.
    const MainMenu& menu = form.menu();
    const struct {
        QAction* action;
        QKeySequence keys;
    } shortcuts[] = {
        {menu.create, QKeySequence(Qt::CTRL | Qt::Key_N)},
        {menu.loadDictionary, QKeySequence(Qt::CTRL | Qt::Key_O)},
        {menu.print, QKeySequence(Qt::CTRL | Qt::Key_P)},
        {menu.copyEntries[0], QKeySequence(Qt::CTRL | Qt::Key_C)},
        {menu.help, QKeySequence(Qt::Key_F1)},
        {menu.exit, QKeySequence(Qt::CTRL | Qt::Key_Q)},
    };
    for (const auto& s : shortcuts)
        EXPECT_EQ(s.action->shortcut(), s.keys) << s.action->text().toStdString();
    type(Qt::Key_N, Qt::ControlModifier);
    ASSERT_TRUE(grid().hasSolution());

    // Each solution word: its first letter until its tile has the focus, Space selects it,
    // Tab to its marker, Enter places it.
    int placed = 0;
    for (int i = 1; i <= 8; ++i) {
        const int k = readingOf(i);
        if (k == 0)
            continue;
        const QString word = grid().CandidateWords[i];
        for (int n = 0; n < 8 && !(focus() == FocusItem::tile(i)); ++n)
            QTest::keyClicks(QApplication::focusWidget(), word.left(1));
        ASSERT_EQ(focus(), FocusItem::tile(i));
        type(Qt::Key_Space);
        EXPECT_EQ(board().SelectedWord, i);
        tabTo(FocusItem::marker(k));
        type(Qt::Key_Return);
        EXPECT_EQ(board().tiles[i].status, TileStatus::Placed);
        EXPECT_TRUE(heard(QStringLiteral("%1 placed at start %2").arg(word).arg(k)));
        ++placed;
    }
    ASSERT_EQ(placed, 5);
    EXPECT_TRUE(form.boardView().focusRingVisible());

    // Space held on the solution button shows the solution until it is released.
    tabTo(FocusItem::button(BoardButton::ShowSolution));
    EXPECT_FALSE(form.boardView().focusRingVisible());
    EXPECT_EQ(QApplication::focusWidget(), form.cmdshowsol());
    QTest::keyPress(form.cmdshowsol(), Qt::Key_Space);
    EXPECT_TRUE(board().solutionShown);
    QTest::keyPress(form.cmdshowsol(), Qt::Key_Space, {}, -1); // auto-repeat changes nothing
    EXPECT_TRUE(board().solutionShown);
    QTest::keyRelease(form.cmdshowsol(), Qt::Key_Space);
    EXPECT_FALSE(board().solutionShown);
    ASSERT_TRUE(form.timer2().isActive());
    QMetaObject::invokeMethod(&form.timer2(), "timeout", Qt::DirectConnection);
    EXPECT_EQ(m_notifier.texts().last(), QStringLiteral("All Done!"));
    EXPECT_TRUE(heard(QStringLiteral("All Done!")));

    // Shift+Tab, then the arrows, to the clear button; Enter, and the question answered Yes.
    type(Qt::Key_Tab, Qt::ShiftModifier);
    ASSERT_EQ(focus(), FocusItem::button(BoardButton::Dictionary));
    type(Qt::Key_Right);
    type(Qt::Key_Right);
    ASSERT_EQ(focus(), FocusItem::button(BoardButton::Reset));
    m_notifier.queueAnswer(AnswerYes);
    type(Qt::Key_Return);
    EXPECT_EQ(m_notifier.texts().last(), QStringLiteral("Clear all User Entries?"));
    for (int i = 1; i <= 8; ++i)
        EXPECT_EQ(board().tiles[i].status, TileStatus::Available);

    // Ctrl+Q asks "Exit?"; No keeps the window.
    m_notifier.queueAnswer(AnswerNo);
    type(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(m_notifier.texts().last(), QStringLiteral("Exit?"));
    EXPECT_TRUE(form.isVisible());

    // F10 opens the first menu, Alt with a caption's first letter its menu.
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers mods;
        QMenu* menu;
    } openers[] = {{Qt::Key_F10, {}, menu.fileMenu},
                   {Qt::Key_F, Qt::AltModifier, menu.fileMenu},
                   {Qt::Key_P, Qt::AltModifier, menu.puzzleMenu}};
    for (const auto& o : openers) {
        type(o.key, o.mods);
        EXPECT_TRUE(o.menu->isVisible()) << o.menu->title().toStdString();
        // Its first entry is lit, and looks it.
        EXPECT_EQ(o.menu->activeAction(), o.menu->actions().value(0));
        const QImage shown = o.menu->grab().toImage();
        const auto at = [&o](int n) {
            const QRect entry = o.menu->actionGeometry(o.menu->actions()[n]);
            return QPoint(entry.left() + 2, entry.center().y());
        };
        EXPECT_NE(shown.pixel(at(0)), shown.pixel(at(1)));
        o.menu->hide();
    }
    EXPECT_EQ(menu.fileMenu->title(), QStringLiteral("File"));
}

TEST_F(KeyboardWindowTest, TheAccessibleTreeOfABoardInMidGame) {
    type(Qt::Key_N, Qt::ControlModifier);
    ASSERT_TRUE(grid().hasSolution());
    int first = 1;
    while (readingOf(first) == 0)
        ++first;
    const int k = readingOf(first);
    const int other = first == 1 ? 2 : 1;
    clickBoard(BoardPart::Tile, first);
    clickBoard(BoardPart::Marker, k);
    clickBoard(BoardPart::Tile, other);
    m_form->keyboard().focusOn(FocusItem::marker(k));

    QAccessibleInterface* root = QAccessible::queryAccessibleInterface(&m_form->boardView());
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->role(), QAccessible::Pane);
    ASSERT_EQ(root->childCount(), 28);
    const BoardState& b = board();
    for (int c = 0; c < 10; ++c) {
        QAccessibleInterface* cell = root->child(c);
        EXPECT_EQ(cell->role(), QAccessible::Cell);
        const QString letter = b.Entries[c].isEmpty() ? QStringLiteral("empty") : b.Entries[c];
        EXPECT_TRUE(cell->text(QAccessible::Name)
                        .startsWith(QStringLiteral("cell %1, %2, ").arg(c + 1).arg(letter)));
        EXPECT_EQ(root->indexOfChild(cell), c);
    }
    for (int i = 1; i <= 8; ++i) {
        QAccessibleInterface* tile = root->child(9 + i);
        const QString status = i == first   ? QStringLiteral("placed")
                               : i == other ? QStringLiteral("selected")
                                            : QStringLiteral("available");
        EXPECT_EQ(tile->role(), QAccessible::Button);
        EXPECT_EQ(tile->text(QAccessible::Name),
                  QStringLiteral("word %1, %2").arg(grid().CandidateWords[i], status));
        EXPECT_EQ(tile->state().selected, i == other);
        EXPECT_EQ(tile->state().disabled, i == first);
        EXPECT_FALSE(tile->state().focused);
    }
    for (int m = 1; m <= 10; ++m) {
        QAccessibleInterface* marker = root->child(17 + m);
        const QString holds = m == k ? QStringLiteral("holds ") + grid().CandidateWords[first]
                                     : QStringLiteral("empty");
        EXPECT_TRUE(marker->text(QAccessible::Name)
                        .startsWith(QStringLiteral("start %1, %2, ").arg(m).arg(holds)));
        EXPECT_EQ(marker->state().focused, m == k);
    }
    EXPECT_EQ(root->focusChild(), root->child(17 + k));
    EXPECT_EQ(
        root->childAt(root->child(12)->rect().center().x(), root->child(12)->rect().center().y()),
        root->child(12));

    // Focus events follow the keyboard, onto the board's children and onto the buttons.
    m_form->keyboard().focusOn(FocusItem::tile(8));
    g_heard.clear();
    type(Qt::Key_Tab);
    ASSERT_FALSE(g_heard.empty());
    EXPECT_EQ(g_heard.back().type, QAccessible::Focus);
    EXPECT_EQ(g_heard.back().child, 18); // marker 1
    const struct {
        QWidget* widget;
        const char* name;
    } named[] = {
        {m_form->cmddict(), "Open a Dictionary File"},
        {m_form->cmdshowsol(), "Show Solution"},
        {m_form->cmdreset(), "Clear User Entries"},
        {m_form->cmdcreate(), "Create a New Puzzle"},
        {m_form->statusLine(), nullptr},
    };
    for (const auto& n : named) {
        QAccessibleInterface* iface = QAccessible::queryAccessibleInterface(n.widget);
        const QString expected =
            n.name ? QString::fromLatin1(n.name) : m_form->statusLine()->text();
        EXPECT_FALSE(expected.isEmpty());
        EXPECT_EQ(iface->text(QAccessible::Name), expected);
        if (n.name) {
            EXPECT_EQ(iface->role(), QAccessible::Button);
        }
    }
}

// What a screen reader finds wrong below `node`: a hidden widget, or a control a player can
// reach (or a button) without a name. Drop-down menus show when opened.
QStringList unnamedOrHidden(QAccessibleInterface* node) {
    QStringList found;
    if (node->role() == QAccessible::PopupMenu)
        return found;
    const QAccessible::State state = node->state();
    const QString name = node->text(QAccessible::Name);
    const QObject* object = node->object();
    const QString what = object ? object->objectName() : QString::number(node->role());
    if (object && object->isWidgetType() && !static_cast<const QWidget*>(object)->isVisible())
        found << what + QStringLiteral(" hidden");
    if ((state.focusable || node->role() == QAccessible::Button) && name.isEmpty())
        found << what + QStringLiteral(" unnamed");
    for (int i = 0; i < node->childCount(); ++i)
        found << unnamedOrHidden(node->child(i));
    return found;
}

TEST_F(KeyboardWindowTest, EveryReachableControlIsNamedAndNothingHiddenIsInTheTree) {
    Form6& options = *m_form->optionsWindow();
    options.show();
    m_msgForm.prepare(QStringLiteral("Exit?"), QStringLiteral("vbQuestion + vbYesNo"));
    m_msgForm.show();
    for (QWidget* window : {static_cast<QWidget*>(m_form.get()), static_cast<QWidget*>(&options),
                            static_cast<QWidget*>(&m_msgForm)}) {
        EXPECT_EQ(unnamedOrHidden(QAccessible::queryAccessibleInterface(window)).join(u','), "")
            << window->objectName().toStdString();
    }
    for (BoxControl* button : {options.applyButton(), m_msgForm.button(1)}) {
        EXPECT_EQ(QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name),
                  button->Caption());
    }
    m_msgForm.hide();
    options.hide();
}

TEST_F(KeyboardWindowTest, FocusRingAndSelectedLookStandOutInEveryShippedScheme) {
    type(Qt::Key_N, Qt::ControlModifier);
    clickBoard(BoardPart::Tile, 2); // selected: a flat border on the tile's face
    const QStringList names = m_scheme.ListSchemeNames().value_or(QStringList());
    ASSERT_GE(names.size(), 8);
    using namespace BoardGeometry;
    const QRect tile2 = toPixels(tileRect(2));
    const int y = tile2.center().y();
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        m_settings.ActiveSchemeFile = name + QStringLiteral(".col");
        m_form->Command2Click();
        const QColor ground = OleTranslateColor(m_scheme.SchemeColours[2]);
        const QColor face = OleTranslateColor(m_scheme.SchemeColours[4]);

        m_form->keyboard().focusOn(FocusItem::tile(2));
        const QImage board = m_form->boardView().grab().toImage();
        // The ring: the two pixels left of the tile; the ground beyond it.
        for (const int x : {tile2.left() - 1, tile2.left() - 2}) {
            EXPECT_GE(contrastRatio(board.pixelColor(x, y), ground), 3.0) << x;
            EXPECT_EQ(board.pixelColor(tile2.left() - 3, y), ground);
        }
        // The selected look: the tile's wide border against its face.
        for (int x = tile2.left(); x < tile2.left() + SelectedBorderPixels; ++x)
            EXPECT_GE(contrastRatio(board.pixelColor(x, y), face), 3.0);
        EXPECT_EQ(board.pixelColor(tile2.left() + SelectedBorderPixels, y), face);

        m_form->keyboard().focusOn(FocusItem::button(BoardButton::Create));
        const QImage button = m_form->cmdcreate()->grab().toImage();
        for (const int x : {0, 1})
            EXPECT_GE(contrastRatio(button.pixelColor(x, button.height() / 2), face), 3.0) << x;
    }
    EXPECT_TRUE(m_notifier.messages().isEmpty()) << m_notifier.texts().join(u'|').toStdString();
}

} // namespace
