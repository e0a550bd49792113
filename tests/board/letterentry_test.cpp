// Selecting tiles and placing or removing words by their markers.
#include "playfixture.h"

using namespace ref;

namespace {

class LetterEntry : public PlayTest {
protected:
    LetterEntry() { newPuzzle(); }
};

struct PlacementRow {
    int tile;
    int marker;
    const char* cells;
};

// Letters go into the reading's cells in reading order, starting at the marker's cell.
const PlacementRow kPlacements[] = {
    {Pony, 3, ".pony....."},  // 1234, left to right
    {Pony, 4, ".ynop....."},  // 4321, from the right tip
    {Goad, 1, "g.o..a..d."},  // 0258, down from the top
    {Goad, 7, "d.a..o..g."},  // 8520, up from the bottom-left tip
    {Wrap, 10, ".p...a.r.w"}, // 9751, from the bottom-right tip
    {Yard, 9, "....d.ray."},  // 8764, from the bottom-left tip
};

} // namespace

TEST_F(LetterEntry, NewPuzzleShowsAvailableTilesAndAnEmptyBoard) {
    EXPECT_EQ(tilesText(m_board), "aaaaaaaa");
    EXPECT_EQ(cellsText(m_board), "..........");
    EXPECT_EQ(markersText(m_board), "..........");
    EXPECT_EQ(m_board.SelectedWord(), -1);
    EXPECT_EQ(m_board.tile(Pony).caption, QStringLiteral("pony"));
}

TEST_F(LetterEntry, TileClickSelectsWithTheFlatLook) {
    EXPECT_TRUE(m_board.apply(Move::tile(Gold)));
    EXPECT_EQ(m_board.SelectedWord(), Gold);
    EXPECT_EQ(m_grid.SelectedWord, Gold);
    EXPECT_EQ(tilesText(m_board), "aasaaaaa");

    m_board.apply(Move::tile(Yard));
    EXPECT_EQ(m_board.SelectedWord(), Yard);
    EXPECT_EQ(tilesText(m_board), "aaaaaaas");
}

TEST_F(LetterEntry, ClickingTheSelectedTileKeepsItSelected) {
    m_board.apply(Move::tile(Gold));
    EXPECT_FALSE(m_board.apply(Move::tile(Gold)));
    EXPECT_EQ(m_board.SelectedWord(), Gold);
    EXPECT_EQ(tilesText(m_board), "aasaaaaa");
}

TEST_F(LetterEntry, PlacingOnAnEmptyReadingWritesFromTheMarkersCell) {
    for (const PlacementRow& row : kPlacements) {
        SCOPED_TRACE(row.marker);
        newPuzzle();
        place(row.tile, row.marker);
        EXPECT_EQ(cellsText(m_board), row.cells);
        EXPECT_EQ(m_board.markerTag(row.marker), row.tile);
        EXPECT_EQ(m_board.tile(row.tile).placedOn, row.marker);
        EXPECT_EQ(m_board.tile(row.tile).look.text, TileText::Faded);
        EXPECT_EQ(m_board.SelectedWord(), -1);
        EXPECT_EQ(linkMismatch(m_board), "");
    }
}

TEST_F(LetterEntry, AgreeingCrossingLettersLetTheWordIn) {
    place(Pony, PonyOn); // cell 2 = o, cell 3 = n
    place(Goad, GoadOn); // o on cell 2 agrees
    place(Gnaw, GnawOn); // n on cell 3 agrees
    EXPECT_EQ(cellsText(m_board), "gponyaa.dw");
    EXPECT_EQ(markersText(m_board), "216.......");
    EXPECT_EQ(tilesText(m_board), "ppaaapaa");
}

struct RefusalRow {
    const char* name;
    std::vector<std::pair<int, int>> placed; // (tile, reading) placed first
    int tile;
    int marker;
};

TEST_F(LetterEntry, DisagreeingLettersRefuseTheWordAndKeepTheSelection) {
    const RefusalRow rows[] = {
        {"first letter: d on cell 8 against y", {{Goad, GoadOn}}, Yard, 9},
        {"second letter: n on cell 3 against r", {{Pony, PonyOn}}, Grew, 2},
        {"third letter: a on cell 5 against l", {{Wrap, WrapOn}}, Gold, 1},
        {"fourth letter: w on cell 9 against y", {{Gnaw, GnawOn}}, Play, 5},
        {"two letters agree before the third differs",
         {{Pony, PonyOn}, {Gnaw, GnawOn}, {Wrap, WrapOn}},
         Gold,
         1},
    };
    for (const RefusalRow& row : rows) {
        SCOPED_TRACE(row.name);
        newPuzzle();
        for (const auto& [tile, reading] : row.placed)
            place(tile, reading);
        m_board.apply(Move::tile(row.tile));
        const PlayState before = m_board.state();
        const int changes = m_changes;
        EXPECT_FALSE(m_board.apply(Move::marker(row.marker)));
        EXPECT_EQ(m_board.state(), before);
        EXPECT_EQ(m_changes, changes);
        EXPECT_EQ(m_board.SelectedWord(), row.tile);
        EXPECT_EQ(m_board.tile(row.tile).look.border, TileBorder::Flat);
    }
}

TEST_F(LetterEntry, PlacedWordIsRemovedAndSelectedWithCrossingLettersKept) {
    place(Pony, PonyOn);
    place(Goad, GoadOn);
    place(Gnaw, GnawOn);
    ASSERT_EQ(cellsText(m_board), "gponyaa.dw");

    EXPECT_TRUE(m_board.apply(Move::marker(PonyOn)));
    // Cells 2 and 3 belong to goad and gnaw as well and come back; 1 and 4 go.
    EXPECT_EQ(cellsText(m_board), "g.on.aa.dw");
    EXPECT_EQ(markersText(m_board), "21........");
    EXPECT_EQ(m_board.SelectedWord(), Pony);
    EXPECT_EQ(tilesText(m_board), "ppaaaaaa"); // selected, yet sunken: not the flat look
    EXPECT_EQ(linkMismatch(m_board), "");

    // The removed word is selected, so the next marker click places it again.
    m_board.apply(Move::marker(PonyOn));
    EXPECT_EQ(cellsText(m_board), "gponyaa.dw");
    EXPECT_EQ(m_board.SelectedWord(), -1);
}

TEST_F(LetterEntry, ClickOnAPlacedReadingRemovesInsteadOfPlacingTheSelectedWord) {
    place(Pony, PonyOn);
    m_board.apply(Move::tile(Yard));
    EXPECT_TRUE(m_board.apply(Move::marker(PonyOn)));
    EXPECT_EQ(cellsText(m_board), "..........");
    EXPECT_EQ(markersText(m_board), "..........");
    EXPECT_EQ(m_board.SelectedWord(), Pony);
    EXPECT_EQ(tilesText(m_board), "aaaaaaaa"); // yard lost its selected look too
}

TEST_F(LetterEntry, PlacedTileTakesNoClick) {
    place(Pony, PonyOn);
    m_board.apply(Move::tile(Gold));
    const int changes = m_changes;
    EXPECT_FALSE(m_board.apply(Move::tile(Pony)));
    EXPECT_EQ(m_board.SelectedWord(), Gold);
    EXPECT_EQ(tilesText(m_board), "aasaapaa");
    EXPECT_EQ(m_changes, changes);
}

TEST_F(LetterEntry, MarkerClickWithNothingSelectedAndNoWordThereDoesNothing) {
    place(Pony, PonyOn);
    for (int k = 1; k <= StarGrid::DirectionCount; ++k) {
        if (k == PonyOn)
            continue;
        SCOPED_TRACE(k);
        EXPECT_FALSE(m_board.apply(Move::marker(k)));
        EXPECT_EQ(cellsText(m_board), ".pony.....");
    }
}

TEST_F(LetterEntry, IndexesOutsideTheBoardAreIgnored) {
    m_board.apply(Move::tile(Gold));
    const PlayState before = m_board.state();
    for (const Move move : {Move::tile(0), Move::tile(9), Move::tile(-1), Move::marker(0),
                            Move::marker(11), Move::marker(-5)}) {
        EXPECT_FALSE(m_board.apply(move));
    }
    EXPECT_EQ(m_board.state(), before);
    EXPECT_EQ(m_board.SelectedWord(), Gold);
}

TEST_F(LetterEntry, WordFitsTheReverseReadingOfAnOccupiedLineWhenLettersAgree) {
    // The reverse of the bar reading is a candidate of its own here.
    m_grid = makeStar(QStringLiteral("gponyaardw"),
                      {"gnaw", "goad", "gold", "grew", "pony", "wrap", "yard", "ynop"}, "..xx....");
    newPuzzle();
    place(5, 3); // pony on 1234
    place(8, 4); // ynop on 4321: the same letters read the other way
    EXPECT_EQ(cellsText(m_board), ".pony.....");
    EXPECT_EQ(markersText(m_board), "..58......");
    EXPECT_EQ(linkMismatch(m_board), "");

    // Taking one off keeps the letters: the other word still covers every cell.
    m_board.apply(Move::marker(3));
    EXPECT_EQ(cellsText(m_board), ".pony.....");
    EXPECT_EQ(markersText(m_board), "...8......");
    EXPECT_EQ(m_board.SelectedWord(), 5);
}

TEST_F(LetterEntry, FourWordsFillAllTenCellsWithoutCheckingTheFifthReading) {
    place(Pony, PonyOn);
    place(Goad, GoadOn);
    place(Gnaw, GnawOn);
    place(Yard, YardOn);
    EXPECT_EQ(cellsText(m_board), "gponyaardw");
    EXPECT_EQ(m_board.markerTag(WrapOn), 0);
    EXPECT_EQ(tilesText(m_board), "ppaaapap");
}

TEST_F(LetterEntry, LettersAreComparedWithCase) {
    m_grid = makeStar(QStringLiteral("gponyaardw"),
                      {"gnaw", "gOad", "gold", "grew", "play", "pony", "wrap", "yard"}, "..xxx...");
    newPuzzle();
    place(Pony, PonyOn); // o on cell 2
    m_board.apply(Move::tile(Goad));
    EXPECT_FALSE(m_board.apply(Move::marker(GoadOn)));
    EXPECT_EQ(cellsText(m_board), ".pony.....");
}

TEST_F(LetterEntry, WordWithACharacterOutsideTheBasicPlaneFillsOneCellPerCharacter) {
    const QString clef = QString::fromUcs4(U"\U0001D11E");
    m_grid = makeStar(QStringLiteral("gponyaardw"),
                      {clef + "abc", "goad", "gold", "grew", "play", "pony", "wrap", "yard"},
                      "..xxx...");
    newPuzzle();
    place(1, 3);
    EXPECT_EQ(m_board.cellLetter(1), clef);
    EXPECT_EQ(m_board.cellLetter(2), QStringLiteral("a"));
    EXPECT_EQ(m_board.cellLetter(4), QStringLiteral("c"));
}

TEST_F(LetterEntry, ChangeIsAnnouncedOncePerEffectiveMove) {
    m_changes = 0;
    m_board.apply(Move::tile(Pony));
    EXPECT_EQ(m_changes, 1);
    m_board.apply(Move::marker(PonyOn));
    EXPECT_EQ(m_changes, 2);
    m_board.apply(Move::marker(PonyOn)); // removal redraws as part of the same move
    EXPECT_EQ(m_changes, 3);
    m_board.apply(Move::marker(PonyOn));
    EXPECT_EQ(m_changes, 4);
    m_board.apply(Move::tile(Pony)); // placed: nothing happens, nothing announced
    EXPECT_EQ(m_changes, 4);
}

// --- Faults found or feared --------------------------------------------------------------

TEST_F(LetterEntry, SelectionSurvivingClearBoardPlacesNoEmptyWord) {
    m_board.apply(Move::tile(Gold));
    m_board.ClearBoard(); // a dictionary was loaded; the selection stays
    ASSERT_EQ(m_board.SelectedWord(), Gold);
    EXPECT_FALSE(m_board.apply(Move::marker(1)));
    EXPECT_EQ(markersText(m_board), "..........");
    EXPECT_EQ(tilesText(m_board), "--------");
}

TEST_F(LetterEntry, FailedCreateLeavesNoOneSidedLink) {
    place(Pony, PonyOn);
    m_board.generationStarted(); // and no puzzleCreated(): the generation failed
    EXPECT_EQ(tilesText(m_board), "________");
    EXPECT_EQ(markersText(m_board), "..........");
    EXPECT_EQ(cellsText(m_board), "..........");
    // A click on the old word's marker must not bring the old word back onto a tile.
    EXPECT_FALSE(m_board.apply(Move::marker(PonyOn)));
    EXPECT_EQ(tilesText(m_board), "________");
    EXPECT_FALSE(m_board.puzzleExists());
}

TEST(LetterEntryWithoutPuzzle, ClicksBeforeThePuzzleDoNothing) {
    StarGrid grid;
    RecordingNotifier notifier;
    MessageGate gate(notifier);
    PlayBoard board(grid, gate);
    for (int i = 1; i <= StarGrid::CandidateCount; ++i)
        EXPECT_FALSE(board.apply(Move::tile(i)));
    for (int k = 1; k <= StarGrid::DirectionCount; ++k)
        EXPECT_FALSE(board.apply(Move::marker(k)));
    EXPECT_EQ(board.SelectedWord(), -1);
    EXPECT_EQ(tilesText(board), "--------");
    EXPECT_FALSE(board.puzzleExists());
}
