// Keyboard focus and speech without a display: Tab, arrows, letters, Enter, and what is heard.
#include "board/boardfocus.h"
#include "board/boardspeech.h"
#include "playfixture.h"

#include <deque>
#include <set>
#include <vector>

using namespace ref;

namespace {

constexpr auto T = &FocusItem::tile, M = &FocusItem::marker;
constexpr auto B = &FocusItem::button;
const FocusItem Dict = B(BoardButton::Dictionary), ShowSol = B(BoardButton::ShowSolution),
                Reset = B(BoardButton::Reset), Create = B(BoardButton::Create);
const BoardState Empty; // no word placed

} // namespace

TEST(BoardFocus, TabCyclesTilesMarkersAndButtonsBothWays) {
    std::vector<FocusItem> order;
    for (int n = 1; n <= 18; ++n)
        order.push_back(n <= 8 ? T(n) : M(n - 8));
    order.insert(order.end(), {Dict, ShowSol, Reset, Create});
    ASSERT_EQ(order.size(), size_t(BoardFocus::ItemCount));
    for (size_t n = 0; n < order.size(); ++n) {
        const FocusItem& next = order[(n + 1) % order.size()];
        EXPECT_EQ(BoardFocus::tabFrom(order[n], false, Empty), next) << n;
        EXPECT_EQ(BoardFocus::tabFrom(next, true, Empty), order[n]) << n;
    }
}

TEST(BoardFocus, ArrowsGoToTheNearestItemThatWayAndReachEverything) {
    using D = FocusDirection;
    const struct {
        FocusItem from;
        D direction;
        std::optional<FocusItem> to;
    } rows[] = {
        {T(1), D::Right, T(2)},   {T(1), D::Down, T(5)},   {T(5), D::Up, T(1)},
        {T(5), D::Left, {}},      {T(1), D::Up, M(7)},     {T(8), D::Down, Reset},
        {Create, D::Left, Reset}, {Dict, D::Up, T(8)},     {M(1), D::Right, M(2)},
        {M(2), D::Left, M(1)},    {M(1), D::Up, {}},       {M(3), D::Down, M(5)},
        {M(5), D::Up, M(3)},      {M(9), D::Right, M(10)}, {M(7), D::Down, M(9)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message()
                     << int(row.from.kind) << ":" << row.from.index << " " << int(row.direction));
        EXPECT_EQ(BoardFocus::nearest(row.from, row.direction, Empty), row.to);
    }
    // From the first tile the arrows alone reach all 22 items.
    std::set<std::pair<int, int>> reached{{int(FocusKind::Tile), 1}};
    std::deque<FocusItem> queue{T(1)};
    while (!queue.empty()) {
        const FocusItem at = queue.front();
        queue.pop_front();
        for (const D d : {D::Left, D::Right, D::Up, D::Down}) {
            const auto next = BoardFocus::nearest(at, d, Empty);
            if (next && reached.insert({int(next->kind), next->index}).second)
                queue.push_back(*next);
        }
    }
    EXPECT_EQ(reached.size(), size_t(BoardFocus::ItemCount));
}

using Keyboard = PlayTest;

TEST_F(Keyboard, ALetterJumpsToTheNextTileWhoseWordStartsWithIt) {
    const struct {
        FocusItem from;
        QChar letter;
        std::optional<FocusItem> to;
    } rows[] = {
        {T(1), u'g', T(2)},   {T(4), u'g', T(1)}, {T(6), u'p', T(5)}, {M(3), u'P', T(5)},
        {Create, u'y', T(8)}, {T(8), u'y', T(8)}, {T(1), u'z', {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(QString(row.letter).toStdString());
        EXPECT_EQ(BoardFocus::letterJump(row.from, row.letter, m_board.state()), row.to);
    }
    m_board.apply(Move::searchStarted()); // blank tiles match nothing
    EXPECT_EQ(BoardFocus::letterJump(T(1), u'g', m_board.state()), std::nullopt);
}

TEST_F(Keyboard, TabArrowsAndLettersPassPlacedTilesBy) {
    place(Gnaw, GnawOn);
    place(Pony, PonyOn);
    const BoardState& b = m_board.state();
    const struct {
        std::optional<FocusItem> got;
        FocusItem expected;
    } rows[] = {
        {BoardFocus::tabFrom(Create, false, b), T(2)},
        {BoardFocus::tabFrom(T(2), true, b), Create},
        {BoardFocus::tabFrom(T(5), false, b), T(7)},
        {BoardFocus::nearest(T(2), FocusDirection::Down, b), T(5)},
        {BoardFocus::letterJump(T(4), u'g', b), T(2)},
        {BoardFocus::letterJump(T(5), u'p', b), T(5)},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.got, row.expected) << row.expected.index;
}

TEST_F(Keyboard, EnterOnATileOrMarkerIsItsClickAndMovesAreAnnounced) {
    EXPECT_EQ(BoardFocus::clickOf(T(3)), Move::tile(3));
    EXPECT_EQ(BoardFocus::clickOf(M(10)), Move::marker(10));
    EXPECT_EQ(BoardFocus::clickOf(ShowSol), std::nullopt);

    // Announcements, "|" between (none for a no-op); "+" where one change was signalled, "." none.
    QStringList said;
    std::string changed;
    for (const Move move :
         {Move::tile(Pony), Move::tile(Pony), Move::marker(PonyOn), Move::tile(Play),
          Move::marker(GnawOn), Move::marker(PonyOn), Move::marker(PonyOn), Move::marker(5),
          Move::tile(Wrap), Move::marker(WrapOn), Move::solutionPress()}) {
        const BoardState before = m_board.state();
        const int changes = m_changes;
        m_board.apply(move);
        said << BoardSpeech::announcement(move, before, m_board.state());
        changed += m_changes == changes ? '.' : m_changes == changes + 1 ? '+' : '!';
    }
    EXPECT_EQ(changed, "+.++.++.+++");
    EXPECT_EQ(said.join(u'|'), "pony selected||pony placed at start 3|play selected|play does not "
                               "fit at start 2|pony taken off start 3, selected|pony placed at "
                               "start 3||wrap selected|wrap placed at start 10|");
}

TEST_F(Keyboard, NamesSayWhatTheBoardMeansNotHowItLooks) {
    place(Pony, PonyOn);
    place(Gnaw, GnawOn);
    m_board.apply(Move::tile(Goad));
    m_board.apply(Move::marker(GnawOn)); // gnaw comes off and is the selection, and shows it
    ASSERT_EQ(tilesText(m_board), "saaaapaa");
    const BoardState& b = m_board.state();
    const struct {
        QString name;
        const char* expected;
    } rows[] = {
        {BoardSpeech::tileName(b, Gnaw), "word gnaw, selected"},
        {BoardSpeech::tileName(b, Goad), "word goad, available"},
        {BoardSpeech::tileName(b, Pony), "word pony, placed"},
        {BoardSpeech::markerName(b, PonyOn),
         "start 3, holds pony, left tip to right tip, fills cells 2, 3, 4, 5: p, o, n, y"},
        {BoardSpeech::markerName(b, GnawOn),
         "start 2, empty, top tip to bottom right tip, fills cells 1, 4, 7, 10: blank, n, blank, "
         "blank"},
        {BoardSpeech::cellName(b, 1), "cell 2, p, left tip of the lines left to right and left "
                                      "to bottom right"},
        {BoardSpeech::cellName(b, 7), "cell 8, empty, bottom crossing of the lines left to "
                                      "bottom right and right to bottom left"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.name, QString::fromLatin1(row.expected));
    m_board.apply(Move::solutionPress());
    EXPECT_EQ(BoardSpeech::tileName(m_board.state(), Gold), "word gold, struck out");
    m_board.apply(Move::searchStarted());
    EXPECT_EQ(BoardSpeech::tileName(m_board.state(), Gold), "word tile 3, empty");
}
