// Selecting tiles and placing or removing words by their markers.
#include "playfixture.h"

using namespace ref;
using namespace std::string_literals;

using LetterEntry = PlayTest;

TEST_F(LetterEntry, TileClickSelectsWithTheFlatLookAndAgainKeepsIt) {
    EXPECT_TRUE(m_board.apply(Move::tile(Gold)));
    EXPECT_EQ(std::pair(m_board.SelectedWord(), tilesText(m_board)), std::pair(3, "aasaaaaa"s));
    EXPECT_FALSE(m_board.apply(Move::tile(Gold)));
    m_board.apply(Move::tile(Yard));
    EXPECT_EQ(std::pair(m_board.SelectedWord(), tilesText(m_board)), std::pair(8, "aaaaaaas"s));
    newPuzzle(); // a new puzzle drops the selection
    EXPECT_EQ(m_board.SelectedWord(), -1);
}

TEST_F(LetterEntry, PlacingOnAnEmptyReadingWritesFromTheMarkersCell) {
    const struct {
        int tile, marker;
        const char* board;
        const char* word = nullptr; // the tile's word instead of the reference one
    } rows[] = {
        {Pony, 4, ".ynop..... aaaaapaa ...6......"}, // 4321, from the right tip
        {Goad, 7, "d.a..o..g. apaaaaaa ......2..."}, // 8520, up from the bottom-left tip
        {Yard, 9, "....d.ray. aaaaaaap ........8."}, // 8764, from the bottom-left tip
        {Gnaw, 3, ".\U0001D11Eabc..... paaaaaaa ..1.......",
         "\U0001D11Eabc"}, // one cell per character
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.marker);
        m_grid = referenceStar();
        if (row.word)
            m_grid.CandidateWords[row.tile] = QString::fromUtf8(row.word);
        newPuzzle();
        place(row.tile, row.marker);
        EXPECT_EQ(boardText(m_board), row.board);
        EXPECT_EQ(m_board.SelectedWord(), -1);
    }
}

TEST_F(LetterEntry, DisagreeingLettersRefuseTheWordStateUnchanged) {
    const struct {
        const char* name;
        std::vector<std::pair<int, int>> placed; // (tile, reading) placed first
        int tile, marker;
        const char* word = nullptr; // the tile's word instead of the reference one
    } rows[] = {
        {"1st: d on cell 8 against y", {{Goad, GoadOn}}, Yard, 9},
        {"2nd: n on cell 3 against r", {{Pony, PonyOn}}, Grew, 2},
        {"3rd: a on cell 5 against l", {{Wrap, WrapOn}}, Gold, 1},
        {"4th: w on cell 9 against y", {{Gnaw, GnawOn}}, Play, 5},
        {"two agree", {{Pony, PonyOn}, {Gnaw, GnawOn}, {Wrap, WrapOn}}, Gold, 1},
        {"case: o on cell 2 against O", {{Pony, PonyOn}}, Goad, 1, "gOad"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        m_grid = referenceStar();
        if (row.word)
            m_grid.CandidateWords[row.tile] = QString::fromLatin1(row.word);
        newPuzzle();
        for (const auto& [tile, reading] : row.placed)
            place(tile, reading);
        m_board.apply(Move::tile(row.tile));
        EXPECT_FALSE(m_board.apply(Move::marker(row.marker))); // the selection stays too
    }
}

TEST_F(LetterEntry, PlacedWordIsRemovedAndSelectedWithCrossingLettersKept) {
    place(Pony, PonyOn);
    place(Goad, GoadOn);
    place(Gnaw, GnawOn);
    m_board.apply(Move::tile(Yard)); // a click on a placed reading removes, whatever is selected
    EXPECT_TRUE(m_board.apply(Move::marker(PonyOn)));
    EXPECT_EQ(boardText(m_board), "g.on.aa.dw ppaaasaa 21........"); // cells 2, 3 stay
    m_board.apply(Move::marker(PonyOn));
    EXPECT_EQ(boardText(m_board), "gponyaa.dw ppaaapaa 216.......");
}

TEST_F(LetterEntry, WordFitsTheReverseReadingOfAnOccupiedLineWhenLettersAgree) {
    m_grid = makeStar(QStringLiteral("gponyaardw"),
                      {"gnaw", "goad", "gold", "grew", "pony", "wrap", "yard", "ynop"}, "..xx....");
    newPuzzle();
    place(5, 3); // pony on 1234
    place(8, 4); // ynop on 4321: the same letters read the other way
    EXPECT_EQ(boardText(m_board), ".pony..... aaaapaap ..58......");
    m_board.apply(Move::marker(3)); // the other word still covers every cell
    EXPECT_EQ(boardText(m_board), ".pony..... aaaasaap ...8......");
}

TEST_F(LetterEntry, ClicksThatCannotActChangeNothing) {
    const struct {
        const char* name;
        std::vector<Move> first; // after pony is placed
        std::vector<Move> moves;
    } rows[] = {
        {"no selection", {}, {Move::marker(1), Move::marker(2), Move::marker(4), Move::marker(10)}},
        {"placed tile, off the board",
         {Move::tile(Gold)},
         {Move::tile(Pony), Move::tile(0), Move::tile(9), Move::tile(-1), Move::marker(0),
          Move::marker(11), Move::marker(-5)}},
        {"solution shown",
         {Move::tile(Gold), Move::solutionPress()},
         {Move::marker(GoadOn), Move::marker(PonyOn), Move::tile(Yard)}},
        {"blank tiles, gold selected: no empty word placed",
         {Move::tile(Gold), Move::dictionaryLoaded()},
         {Move::marker(GoadOn), Move::marker(PonyOn), Move::tile(Gnaw), Move::tile(Yard),
          Move::solutionPress(), Move::solutionRelease()}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        newPuzzle();
        place(Pony, PonyOn);
        for (const Move& move : row.first)
            m_board.apply(move);
        const int changes = m_changes;
        for (const Move& move : row.moves)
            EXPECT_FALSE(m_board.apply(move)) << int(move.kind) << " " << move.index;
        EXPECT_EQ(m_changes, changes);
        EXPECT_FALSE(m_board.completionCheckRunning());
    }
}
