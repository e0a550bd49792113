// One game by mouse: what makes a click, the pointer, reference pictures, "All Done!" held back.
#include "windowfixture.h"

#include "board/mainmenu.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QImage>
#include <QMouseEvent>

namespace {

// The board equals the reference picture `name`; a different one is saved to the temp folder.
void expectBoardPicture(BoardView& view, const QString& name) {
    const QImage expected(QStringLiteral(PENTALINK_BOARD_REFERENCE_DIR "/") + name);
    ASSERT_FALSE(expected.isNull()) << name.toStdString();
    const QImage actual = view.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const bool same = actual == expected.convertToFormat(QImage::Format_RGB32);
    if (!same)
        actual.save(QDir::temp().filePath(QStringLiteral("actual-") + name));
    EXPECT_TRUE(same) << name.toStdString();
}

using PlayWindowTest = WindowTest;

TEST_F(PlayWindowTest, OneGameWithTheMouse) {
    Form1& form = start();
    BoardView& view = form.boardView();
    QTest::mouseClick(form.cmdcreate(), Qt::LeftButton);
    int first = 1; // the first tile with a word of the solution
    while (directionOf(first) == 0)
        ++first;
    const auto at = [](BoardPart part, int index) {
        return BoardView::toWidget(centreOf(part, index));
    };
    const auto pointerOver = [&](BoardPart part, int index) {
        QMouseEvent move(QEvent::MouseMove, at(part, index), view.mapToGlobal(at(part, index)),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&view, &move);
        return form.cursor().shape();
    };

    // A click is the release of a button pressed on a part, wherever it ends.
    EXPECT_NE(pointerOver(BoardPart::Marker, 1), Qt::CrossCursor);
    QTest::mousePress(&view, Qt::LeftButton, {}, at(BoardPart::Tile, first));
    EXPECT_EQ(board().SelectedWord, -1);
    QTest::mouseRelease(&view, Qt::LeftButton, {}, at(BoardPart::Cell, 0));
    EXPECT_EQ(board().SelectedWord, first);
    QTest::mousePress(&view, Qt::LeftButton, {}, at(BoardPart::Cell, 0));
    QTest::mouseRelease(&view, Qt::LeftButton, {}, at(BoardPart::Tile, 8));
    EXPECT_EQ(board().SelectedWord, first);
    // With a selection the pointer is a crosshair over the markers; cells leave it alone.
    EXPECT_EQ(pointerOver(BoardPart::Marker, 1), Qt::CrossCursor);
    EXPECT_EQ(pointerOver(BoardPart::Cell, 4), Qt::CrossCursor);
    EXPECT_EQ(pointerOver(BoardPart::Tile, 2), Qt::ArrowCursor);

    // One word placed, another selected (any button selects); then the solution shown.
    clickBoard(BoardPart::Marker, directionOf(first));
    clickBoard(BoardPart::Tile, first == 1 ? 2 : 1, Qt::RightButton);
    expectBoardPicture(view, QStringLiteral("board-placed-selected.png"));
    QTest::mousePress(form.cmdshowsol(), Qt::LeftButton);
    expectBoardPicture(view, QStringLiteral("board-solution.png"));
    QTest::mouseRelease(form.cmdshowsol(), Qt::LeftButton);
    EXPECT_EQ(std::pair(form.timer2().isActive(), form.timer2().interval()), std::pair(true, 500));

    for (int i = first + 1; i <= 8; ++i) {
        if (directionOf(i) != 0) {
            clickBoard(BoardPart::Tile, i);
            clickBoard(BoardPart::Marker, directionOf(i));
        }
    }
    // Ticks while Exit's question or a scheme's message is open wait for the next one.
    m_notifier.duringMessage = [&form] {
        QMetaObject::invokeMethod(&form.timer2(), "timeout", Qt::DirectConnection);
    };
    m_notifier.queueAnswer(AnswerNo);
    form.menu().exit->trigger();
    m_settings.ActiveSchemeFile = QStringLiteral("gone.col");
    form.Command2Click();
    std::exchange(m_notifier.duringMessage, {})();
    EXPECT_EQ(m_notifier.texts(),
              QStringList({"Exit?", "Colour Scheme: gone.col not found", "All Done!"}));
    EXPECT_FALSE(form.timer2().isActive());
}

} // namespace
