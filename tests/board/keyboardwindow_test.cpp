// The main window from the keyboard alone, what a screen reader sees, the focus ring's contrast.
#include "windowfixture.h"

#include "board/boardaccessible.h"
#include "board/boardgeometry.h"
#include "board/keyboardplay.h"
#include "board/mainmenu.h"
#include "ui/contrast.h"
#include "ui/olecolor.h"

#include <QAccessible>
#include <QApplication>
#include <QMenu>

namespace {

QStringList g_alerts;
int g_focusedChild = -1;

class KeyboardWindowTest : public WindowTest {
protected:
    void SetUp() override {
        start();
        QApplication::setActiveWindow(m_form.get());
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_form.get()));
        BoardAccessibility::setEventObserver([](QAccessibleEvent& event) {
            if (event.type() == QAccessible::Alert)
                g_alerts << event.accessibleInterface()->text(QAccessible::Description);
            if (event.type() == QAccessible::Focus)
                g_focusedChild = event.child();
        });
        type(Qt::Key_N, Qt::ControlModifier); // Create
        ASSERT_TRUE(grid().hasSolution());
    }
    void TearDown() override {
        BoardAccessibility::setEventObserver({});
        g_alerts.clear();
    }

    void type(Qt::Key key, Qt::KeyboardModifiers mods = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, mods);
    }
    FocusItem focus() const { return m_form->keyboard().focus(); }
    void tabTo(const FocusItem& item) { // at most once round
        for (int n = 0; n < BoardFocus::ItemCount && !(focus() == item); ++n)
            type(Qt::Key_Tab);
        ASSERT_EQ(focus(), item);
    }
};

TEST_F(KeyboardWindowTest, AGameWithKeysAlone) {
    Form1& form = *m_form;
    // A solution word: typed letters to its tile, Space, Tab to its marker, Enter places it.
    const int i = 2; // heck, at start 7
    const QString word = grid().CandidateWords[i];
    for (int n = 0; n < 8 && !(focus() == FocusItem::tile(i)); ++n)
        QTest::keyClicks(QApplication::focusWidget(), word.left(1));
    type(Qt::Key_Space);
    EXPECT_EQ(board().SelectedWord, i);
    tabTo(FocusItem::marker(directionOf(i)));
    type(Qt::Key_Return);
    EXPECT_TRUE(
        g_alerts.contains(QStringLiteral("%1 placed at start %2").arg(word).arg(directionOf(i))));
    EXPECT_TRUE(form.boardView().focusRingVisible());

    tabTo(FocusItem::button(BoardButton::ShowSolution));
    EXPECT_FALSE(form.boardView().focusRingVisible());
    ASSERT_EQ(QApplication::focusWidget(), form.cmdshowsol());
    QTest::keyPress(form.cmdshowsol(), Qt::Key_Space, Qt::ControlModifier); // Ctrl too
    EXPECT_TRUE(board().solutionShown);
    QTest::keyPress(form.cmdshowsol(), Qt::Key_Space); // a second press while held: no change
    QTest::keyRelease(form.cmdshowsol(), Qt::Key_Space);
    EXPECT_FALSE(board().solutionShown);

    type(Qt::Key_Tab, Qt::ShiftModifier);
    type(Qt::Key_Right);
    type(Qt::Key_Right);
    type(Qt::Key_K, Qt::ControlModifier); // with Ctrl held, no letter jump to "keep"
    ASSERT_EQ(focus(), FocusItem::button(BoardButton::Reset));
    m_notifier.queueAnswer(AnswerYes);
    type(Qt::Key_Return);
    EXPECT_EQ(board().Entries[0], QString());
    EXPECT_TRUE(g_alerts.contains(QStringLiteral("Clear all User Entries?")));
    m_notifier.queueAnswer(AnswerNo);
    type(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(m_notifier.texts(), QStringList({"Clear all User Entries?", "Exit?"}));

    // F10 opens the first menu, Alt with a caption's first letter its menu, its first entry lit.
    for (const auto& [key, mods, opened] :
         {std::tuple(Qt::Key_F10, Qt::NoModifier, form.menu().fileMenu),
          std::tuple(Qt::Key_P, Qt::AltModifier, form.menu().puzzleMenu)}) {
        type(key, mods);
        EXPECT_TRUE(opened->isVisible());
        EXPECT_EQ(opened->activeAction(), opened->actions().value(0));
        opened->hide();
    }
}

// Hidden widgets and unnamed reachable controls or buttons below `node` (menus aside).
QStringList unnamedOrHidden(QAccessibleInterface* node) {
    QStringList found;
    if (node->role() == QAccessible::PopupMenu)
        return found;
    const QWidget* widget = qobject_cast<const QWidget*>(node->object());
    if ((widget && !widget->isVisible()) ||
        ((node->state().focusable || node->role() == QAccessible::Button) &&
         node->text(QAccessible::Name).isEmpty()))
        found << (widget ? widget->objectName() : QString::number(node->role()));
    for (int i = 0; i < node->childCount(); ++i)
        found << unnamedOrHidden(node->child(i));
    return found;
}

TEST_F(KeyboardWindowTest, TheAccessibleTreeOfABoardInMidGame) {
    clickBoard(BoardPart::Tile, 2); // heck
    clickBoard(BoardPart::Marker, 7);
    clickBoard(BoardPart::Tile, 5); // peek
    m_form->keyboard().focusOn(FocusItem::marker(7));

    QAccessibleInterface* root = QAccessible::queryAccessibleInterface(&m_form->boardView());
    EXPECT_EQ(root->role(), QAccessible::Pane);
    // Each child by role and state: c cell, t tile, x disabled, s selected, m marker, * focused.
    QString tree;
    for (int n = 0; n < root->childCount(); ++n) {
        QAccessibleInterface* child = root->child(n);
        EXPECT_EQ(root->indexOfChild(child), n);
        const QAccessible::State s = child->state();
        tree += QString(n == 10 || n == 18 ? " " : "") +
                (child->role() == QAccessible::Cell ? u'c'
                 : n >= 18                          ? u'm'
                 : s.selected                       ? u's'
                 : s.disabled                       ? u'x'
                                                    : u't') +
                (s.focused ? "*" : "");
    }
    EXPECT_EQ(tree, "cccccccccc txttsttt mmmmmmm*mmm");
    EXPECT_TRUE(root->child(24)->text(QAccessible::Name).startsWith("start 7, holds heck"));
    EXPECT_EQ(root->focusChild(), root->child(24));
    const QPoint t3 = root->child(12)->rect().center();
    EXPECT_EQ(root->childAt(t3.x(), t3.y()), root->child(12));
    m_form->keyboard().focusOn(FocusItem::tile(8));
    type(Qt::Key_Tab);
    EXPECT_EQ(g_focusedChild, 18); // marker 1
    EXPECT_EQ(unnamedOrHidden(QAccessible::queryAccessibleInterface(m_form.get())).join(u','), "");
}

TEST_F(KeyboardWindowTest, FocusRingAndSelectedLookStandOutInEveryShippedScheme) {
    clickBoard(BoardPart::Tile, 2); // selected: a flat border on the tile's face
    const QStringList names = m_scheme.ListSchemeNames().value_or(QStringList());
    ASSERT_GE(names.size(), 8);
    const QRect tile2 = BoardGeometry::toPixels(BoardGeometry::tileRect(2));
    const int y = tile2.center().y(), left = tile2.left();
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        m_settings.ActiveSchemeFile = name + QStringLiteral(".col");
        m_form->Command2Click();
        const QColor ground = OleTranslateColor(m_scheme.SchemeColours[2]);
        const QColor face = OleTranslateColor(m_scheme.SchemeColours[4]);
        m_form->keyboard().focusOn(FocusItem::tile(2));
        const QImage board = m_form->boardView().grab().toImage();
        // The ring: two pixels left of the tile, then ground; the selected border, then face.
        for (int x = left - 2; x < left + SelectedBorderPixels; ++x)
            EXPECT_GE(contrastRatio(board.pixelColor(x, y), x < left ? ground : face), 3.0) << x;
        EXPECT_EQ(board.pixelColor(left - 3, y), ground);
        EXPECT_EQ(board.pixelColor(left + SelectedBorderPixels, y), face);
        m_form->keyboard().focusOn(FocusItem::button(BoardButton::Create));
        const QImage button = m_form->cmdcreate()->grab().toImage();
        for (const int bx : {0, 1})
            EXPECT_GE(contrastRatio(button.pixelColor(bx, button.height() / 2), face), 3.0) << bx;
    }
    EXPECT_TRUE(m_notifier.messages().isEmpty());
}

} // namespace
