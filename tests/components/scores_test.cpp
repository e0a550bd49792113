// The scores logic without a display: scrambling, the record and the keeper's file.
#include "components/scorescrambler.h"
#include "components/scoreskeeper.h"
#include "components/scoresrecord.h"

#include "support/recordingnotifier.h"
#include "support/testfolder.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <limits>

namespace {

const QDate kToday(2025, 3, 7);

TEST(ScoresScramble, KnownPairsWithBlankPadding) {
    // Key "QEMBU" XORed, in hex with blank padding; it starts again at the sixth character.
    EXPECT_EQ(ScrambleScores(QStringLiteral("QDm") + QChar(0xff) + QStringLiteral("UA")),
              QStringLiteral(" 0 120BD 010"));
    EXPECT_EQ(UnscrambleScores(QStringLiteral("zz1")), QStringLiteral("QD")); // lenient
}

TEST(ScoresRecord, EnglishDateFieldsOneToFourOfFiveOrMoreAndCountedCaptions) {
    const QLocale previous;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(scoresDate({2025, 3, 7}), QStringLiteral("07Mar2025"));
    EXPECT_EQ(scoresDate({987, 10, 15}), QStringLiteral("15Oct0987"));
    QLocale::setDefault(previous);
    EXPECT_EQ(parseScoresRecord(QStringLiteral("07Mar2025 2 2 0 0 ")),
              (ScoreCaptions{"2", "2", "0", "0"}));
    EXPECT_EQ(parseScoresRecord(QStringLiteral("x 9 4 3 2 7 7")),
              (ScoreCaptions{"9", "4", "3", "2"}));
    EXPECT_EQ(parseScoresRecord(QStringLiteral("d 1  x -1")), (ScoreCaptions{"1", "", "x", "-1"}));
    for (const char* bad : {"", "07Mar2025 1 1 1", "d"})
        EXPECT_FALSE(parseScoresRecord(QLatin1String(bad))) << bad;
    const char* const counted[][2] = {{"7", "8"},  {"x", "1"},     {"", "1"},
                                      {"-1", "0"}, {"2.5", "3.5"}, {" 41z", "42"}};
    for (const auto& row : counted)
        EXPECT_EQ(countedCaption(QLatin1String(row[0])), QLatin1String(row[1])) << row[0];
}

class ScoresKeeperTest : public ::testing::Test {
protected:
    ScoresKeeper keeper(const QString& name = QStringLiteral("game.sco")) {
        return ScoresKeeper(folder.file(name), notifier, [] { return kToday; });
    }
    QString storedRecord() const {
        return UnscrambleScores(QString::fromLatin1(folder.read("game.sco")).trimmed());
    }
    // The four counters of a column, played, won, drawn and lost, separated by blanks.
    static QString column(const ScoresKeeper& k, bool session) {
        QStringList values;
        for (int row = 1; row <= 4; ++row)
            values << (session ? k.thisSession(row) : k.allSessions(row));
        return values.join(u' ');
    }

    TestFolder folder;
    RecordingNotifier notifier;
};

TEST_F(ScoresKeeperTest, StartShowsTheFileAndEveryGameIsSaved) {
    const auto scrambled = [](const QString& record) {
        return ScrambleScores(record).toLatin1() + "\r\n";
    };
    const QString top = QString::number(std::numeric_limits<qint64>::max());
    const struct {
        QByteArray bytes;    // null: no file
        QString shown;       // the totals after the start
        const char* games;   // Won, Drawn, Lost
        const char* session; // the session column after the games
        QString saved;       // the record after the games
    } rows[] = {
        {{}, "0 0 0 0", "WW", "2 2 0 0", "07Mar2025 2 2 0 0 "},
        {scrambled("01Jan2020 10 5 3 2 "), "10 5 3 2", "DL", "2 0 1 1", "07Mar2025 12 5 4 3 "},
        // A count at the largest 64-bit value stays there.
        {scrambled("01Jan2020 " + top + ' ' + top + " 0 0 "), top + ' ' + top + " 0 0", "WL",
         "2 1 0 1", "07Mar2025 " + top + ' ' + top + " 0 1 "},
        // A damaged file shows zeros, or its fields as they stand, until the next save.
        {"\r\n" + scrambled("d 4 4 0 0 "), "0 0 0 0", "L", "1 0 0 1", "07Mar2025 1 0 0 1 "},
        {scrambled("d 4 4"), "0 0 0 0", "L", "1 0 0 1", "07Mar2025 1 0 0 1 "},
        {scrambled("d 7 x 2 - "), "7 x 2 -", "L", "1 0 0 1", "07Mar2025 8 x 2 1 "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.bytes.toHex().toStdString());
        QFile::remove(folder.file(QStringLiteral("game.sco")));
        if (!row.bytes.isNull())
            folder.write("game.sco", row.bytes);
        ScoresKeeper k = keeper();
        k.start();
        EXPECT_EQ(column(k, false), row.shown);
        EXPECT_EQ(column(k, true), QStringLiteral("0 0 0 0"));
        // A missing file is created at once; any other is left as it is.
        EXPECT_EQ(folder.read("game.sco"),
                  row.bytes.isNull() ? scrambled("07Mar2025 0 0 0 0 0 0 ") : row.bytes);
        for (const char* game = row.games; *game; ++game)
            k.countGame(GameResult(QByteArray("??WDL").indexOf(*game)));
        EXPECT_EQ(column(k, true), QLatin1String(row.session));
        EXPECT_EQ(storedRecord(), row.saved);
    }
    EXPECT_TRUE(notifier.messages().isEmpty());
}

TEST_F(ScoresKeeperTest, ClearAsksAndOnlyYesEmptiesTheTotals) {
    folder.write("game.sco", ScrambleScores("01Jan2020 3 1 1 1 ").toLatin1() + "\r\n");
    ScoresKeeper k = keeper();
    k.start();
    k.countGame(GameResult::Won);

    notifier.queueAnswer(AnswerNo);
    EXPECT_FALSE(k.clear());
    EXPECT_EQ(storedRecord(), QStringLiteral("07Mar2025 4 2 1 1 "));
    ASSERT_EQ(notifier.messages().size(), 1);
    EXPECT_EQ(notifier.messages().at(0).text, QStringLiteral("Clear ALL scores"));

    notifier.queueAnswer(AnswerYes);
    EXPECT_TRUE(k.clear());
    EXPECT_EQ(storedRecord(), QStringLiteral("07Mar2025 0 0 0 0 0 "));
    EXPECT_EQ(column(k, false), QStringLiteral("0 0 0 0"));
}

TEST_F(ScoresKeeperTest, DefaultFileIsTheProgramNameInTheProgramFolder) {
    EXPECT_EQ(ScoresKeeper::defaultScoreFilePath(),
              folder.path() + QStringLiteral("component_rules_tests.sco"));
}

} // namespace
