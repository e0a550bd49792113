// A whole game through real mouse events on the main window, clicking the board by its
// coordinates: create a puzzle, place the five solution words, show the solution, be
// congratulated, clear; the pointer over the markers; and the board's pictures against the
// reference grabs of the window as it looked when the board was made of labels.
#include "windowfixture.h"

#include "board/mainmenu.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QImage>
#include <QMouseEvent>

namespace {

class PlayWindowTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        start();
        QTest::mouseClick(m_form->cmdcreate(), Qt::LeftButton);
        ASSERT_TRUE(grid().hasSolution());
        ASSERT_TRUE(m_notifier.messages().isEmpty());
    }

    QString cells() const {
        QString text;
        for (const QString& letter : board().Entries)
            text += letter.isEmpty() ? QStringLiteral(".") : letter;
        return text;
    }

    int struckTiles() const {
        int struck = 0;
        for (int i = 1; i <= 8; ++i)
            struck += board().tiles[i].decoyRevealed ? 1 : 0;
        return struck;
    }
};

TEST_F(PlayWindowTest, WholeGameWithTheMouse) {
    Form1& form = *m_form;
    QString solution;
    for (int p = 1; p <= 10; ++p)
        solution += grid().SolutionLetters[p];

    int placed = 0;
    for (int i = 1; i <= 8; ++i) {
        EXPECT_EQ(board().tiles[i].word, grid().CandidateWords[i]);
        const int k = directionOf(i);
        if (k == 0)
            continue;
        // Any mouse button selects.
        clickBoard(BoardPart::Tile, i, placed % 2 ? Qt::RightButton : Qt::LeftButton);
        EXPECT_EQ(board().tiles[i].status, TileStatus::Selected);
        clickBoard(BoardPart::Marker, k);
        EXPECT_EQ(board().tiles[i].status, TileStatus::Placed);
        EXPECT_EQ(board().tiles[i].reading, k);
        ++placed;
    }
    ASSERT_EQ(placed, 5);
    EXPECT_EQ(cells(), solution);

    // Full board, but the check only runs once the solution button has been released.
    EXPECT_FALSE(form.timer2().isActive());
    QTest::mousePress(form.cmdshowsol(), Qt::LeftButton);
    EXPECT_EQ(struckTiles(), 3);
    QTest::mouseRelease(form.cmdshowsol(), Qt::LeftButton);
    EXPECT_EQ(struckTiles(), 0);
    ASSERT_TRUE(form.timer2().isActive());
    EXPECT_EQ(form.timer2().interval(), 500);

    QMetaObject::invokeMethod(&form.timer2(), "timeout", Qt::DirectConnection);
    ASSERT_EQ(m_notifier.messages().size(), 1);
    EXPECT_EQ(m_notifier.messages()[0].text, QStringLiteral("All Done!"));
    EXPECT_EQ(m_notifier.messages()[0].style, QStringLiteral("vbhappy+vbok"));
    EXPECT_FALSE(form.timer2().isActive());

    m_notifier.queueAnswer(AnswerYes);
    QTest::mouseClick(form.cmdreset(), Qt::LeftButton);
    EXPECT_EQ(m_notifier.messages().last().text, QStringLiteral("Clear all User Entries?"));
    EXPECT_EQ(cells(), QStringLiteral(".........."));
    for (int i = 1; i <= 8; ++i) {
        EXPECT_EQ(board().tiles[i].word, grid().CandidateWords[i]);
        EXPECT_EQ(board().tiles[i].status, TileStatus::Available);
    }
}

// The board view's picture equals the reference grab `name` pixel for pixel; a different
// picture is written to the temporary folder for a look.
void expectBoardPicture(BoardView& view, const QString& name) {
    const QImage expected(QStringLiteral(PENTALINK_BOARD_REFERENCE_DIR "/") + name);
    ASSERT_FALSE(expected.isNull()) << name.toStdString();
    const QImage actual = view.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const bool same = actual == expected.convertToFormat(QImage::Format_RGB32);
    if (!same)
        actual.save(QDir::temp().filePath(QStringLiteral("actual-") + name));
    EXPECT_TRUE(same) << name.toStdString();
}

TEST_F(PlayWindowTest, BoardIsPaintedAsTheReferenceGrabsShowIt) {
    // One word placed, another selected; then the solution shown.
    int first = 0;
    for (int i = 1; i <= 8 && first == 0; ++i)
        first = directionOf(i) != 0 ? i : 0;
    clickBoard(BoardPart::Tile, first);
    clickBoard(BoardPart::Marker, directionOf(first));
    clickBoard(BoardPart::Tile, first == 1 ? 2 : 1);
    expectBoardPicture(m_form->boardView(), QStringLiteral("board-placed-selected.png"));
    QTest::mousePress(m_form->cmdshowsol(), Qt::LeftButton);
    expectBoardPicture(m_form->boardView(), QStringLiteral("board-solution.png"));
    QTest::mouseRelease(m_form->cmdshowsol(), Qt::LeftButton);
}

TEST_F(PlayWindowTest, AClickIsTheReleaseOfAButtonPressedOnAPartWhereverItEnds) {
    BoardView& view = m_form->boardView();
    const QPoint tile1 = BoardView::toWidget(centreOf(BoardPart::Tile, 1));
    const QPoint cell0 = BoardView::toWidget(centreOf(BoardPart::Cell, 0));
    // Pressed on a tile, released over a cell: the tile is selected.
    QTest::mousePress(&view, Qt::LeftButton, {}, tile1);
    EXPECT_EQ(board().SelectedWord, -1);
    QTest::mouseRelease(&view, Qt::LeftButton, {}, cell0);
    EXPECT_EQ(board().SelectedWord, 1);
    // Pressed on a cell, released over a tile: nothing.
    QTest::mousePress(&view, Qt::LeftButton, {}, cell0);
    QTest::mouseRelease(&view, Qt::LeftButton, {},
                        BoardView::toWidget(centreOf(BoardPart::Tile, 2)));
    EXPECT_EQ(board().SelectedWord, 1);
}

TEST_F(PlayWindowTest, CompletionTickWaitsWhileExitOrASchemeMessageIsOpen) {
    Form1& form = *m_form;
    for (int i = 1; i <= 8; ++i) {
        if (const int k = directionOf(i)) {
            clickBoard(BoardPart::Tile, i);
            clickBoard(BoardPart::Marker, k);
        }
    }
    QTest::mouseClick(form.cmdshowsol(), Qt::LeftButton);
    ASSERT_TRUE(form.timer2().isActive());
    const auto tick = [&form] {
        QMetaObject::invokeMethod(&form.timer2(), "timeout", Qt::DirectConnection);
    };
    m_notifier.duringMessage = tick;
    m_notifier.queueAnswer(AnswerNo);
    form.menu().exit->trigger();
    m_settings.ActiveSchemeFile = QStringLiteral("gone.col");
    form.Command2Click();
    m_notifier.duringMessage = {};
    EXPECT_EQ(m_notifier.texts(), QStringList({"Exit?", "Colour Scheme: gone.col not found"}));
    tick();
    EXPECT_EQ(m_notifier.texts().last(), QStringLiteral("All Done!"));
}

TEST_F(PlayWindowTest, PointerIsACrosshairOverMarkersOnlyWithASelection) {
    Form1& form = *m_form;
    BoardView& view = form.boardView();
    const auto moveTo = [&view](BoardPart part, int index) {
        const QPointF at = BoardView::toWidget(centreOf(part, index));
        QMouseEvent move(QEvent::MouseMove, at, view.mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QApplication::sendEvent(&view, &move);
    };
    moveTo(BoardPart::Marker, 1);
    EXPECT_NE(form.cursor().shape(), Qt::CrossCursor);
    clickBoard(BoardPart::Tile, 1);
    ASSERT_EQ(board().SelectedWord, 1);
    moveTo(BoardPart::Marker, 1);
    EXPECT_EQ(form.cursor().shape(), Qt::CrossCursor);
    moveTo(BoardPart::Cell, 4); // cells leave the pointer alone
    EXPECT_EQ(form.cursor().shape(), Qt::CrossCursor);
    moveTo(BoardPart::Tile, 2);
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
}

} // namespace
