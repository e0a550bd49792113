// The scores logic without a display: scrambling, the record, and the keeper's file through
// the start sequence, counted games, damaged files and Clear.
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

TEST(ScoresScramble, RoundTripsEveryByteValueAndDoublesTheLength) {
    QString all;
    for (int code = 0; code < 256; ++code)
        all += QChar(static_cast<char16_t>(code));
    // Every byte at every key position.
    for (int shift = 0; shift < 5; ++shift) {
        const QString text = QString(shift, u'x') + all;
        const QString scrambled = ScrambleScores(text);
        EXPECT_EQ(scrambled.size(), 2 * text.size());
        EXPECT_EQ(UnscrambleScores(scrambled), text);
    }
}

TEST(ScoresScramble, KnownPairsWithBlankPadding) {
    // 'Q' ^ 'Q' = 0, 'E' ^ 'D' = 1, 'M' ^ 'm' = 0x20, 'B' ^ 0xff = 0xBD, 'U' ^ 'U' = 0, and the
    // key starts again at the sixth character.
    EXPECT_EQ(ScrambleScores(QStringLiteral("QDm") + QChar(0xff) + QStringLiteral("UA")),
              QStringLiteral(" 0 120BD 010"));
    EXPECT_EQ(UnscrambleScores(QStringLiteral("zz1")), QStringLiteral("QD")); // lenient
}

TEST(ScoresRecord, DateIsEnglishWhateverTheLocale) {
    const QLocale previous;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(scoresDate({2025, 3, 7}), QStringLiteral("07Mar2025"));
    EXPECT_EQ(scoresDate({987, 10, 15}), QStringLiteral("15Oct0987"));
    QLocale::setDefault(previous);
}

TEST(ScoresRecord, FieldsOneToFourOfFiveOrMoreAndCountedCaptions) {
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
    void store(const QString& record) const {
        folder.write("game.sco", ScrambleScores(record).toLatin1() + "\r\n");
    }
    static QStringList column(const ScoresKeeper& k, bool session) {
        QStringList values;
        for (int row = 1; row <= 4; ++row)
            values << (session ? k.thisSession(row) : k.allSessions(row));
        return values;
    }

    TestFolder folder;
    RecordingNotifier notifier;
};

TEST_F(ScoresKeeperTest, MissingFileIsCreatedFreshAndTwoWinsAreStored) {
    ScoresKeeper k = keeper();
    k.start();
    EXPECT_EQ(storedRecord(), QStringLiteral("07Mar2025 0 0 0 0 0 0 "));
    EXPECT_TRUE(folder.read("game.sco").endsWith("\r\n"));

    k.countGame(GameResult::Won);
    k.countGame(GameResult::Won);
    EXPECT_EQ(column(k, true), (QStringList{"2", "2", "0", "0"}));
    EXPECT_EQ(column(k, false), (QStringList{"2", "2", "0", "0"}));
    EXPECT_EQ(storedRecord(), QStringLiteral("07Mar2025 2 2 0 0 "));
}

TEST_F(ScoresKeeperTest, ExistingTotalsAreKeptAndSessionStartsAtZero) {
    store(QStringLiteral("01Jan2020 10 5 3 2 "));
    ScoresKeeper k = keeper();
    k.start();
    EXPECT_EQ(column(k, false), (QStringList{"10", "5", "3", "2"}));
    EXPECT_EQ(column(k, true), (QStringList{"0", "0", "0", "0"}));
    k.countGame(GameResult::Drawn);
    k.countGame(GameResult::Lost);
    EXPECT_EQ(column(k, true), (QStringList{"2", "0", "1", "1"}));
    EXPECT_EQ(storedRecord(), QStringLiteral("07Mar2025 12 5 4 3 "));
}

TEST_F(ScoresKeeperTest, DamagedFileShowsItsFieldsOrZerosAndIsKeptUntilTheNextSave) {
    const struct {
        const char* why;
        QByteArray bytes;
        QStringList shown;
        const char* afterALoss;
    } rows[] = {
        {"empty first line",
         QByteArray("\r\n") + ScrambleScores(QStringLiteral("d 4 4 0 0 ")).toLatin1(),
         {"0", "0", "0", "0"},
         "07Mar2025 1 0 0 1 "},
        {"too few fields",
         ScrambleScores(QStringLiteral("d 4 4")).toLatin1(),
         {"0", "0", "0", "0"},
         "07Mar2025 1 0 0 1 "},
        {"binary",
         QByteArray("\x00\xff\x13garbage\x80\x81", 12),
         {"0", "0", "0", "0"},
         "07Mar2025 1 0 0 1 "},
        {"fields that are no numbers",
         ScrambleScores(QStringLiteral("d 7 x 2 - ")).toLatin1(),
         {"7", "x", "2", "-"},
         "07Mar2025 8 x 2 1 "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        folder.write("game.sco", row.bytes);
        ScoresKeeper k = keeper();
        k.start();
        EXPECT_EQ(column(k, false), row.shown);
        EXPECT_EQ(folder.read("game.sco"), row.bytes);
        k.countGame(GameResult::Lost);
        EXPECT_EQ(storedRecord(), QLatin1String(row.afterALoss));
    }
    EXPECT_TRUE(notifier.messages().isEmpty());
}

TEST_F(ScoresKeeperTest, ClearAsksAndOnlyYesEmptiesTheTotals) {
    store(QStringLiteral("01Jan2020 3 1 1 1 "));
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
    EXPECT_EQ(column(k, false), (QStringList{"0", "0", "0", "0"}));
}

TEST_F(ScoresKeeperTest, TotalsAtTheTopOfTheRangeStayThereAndStillLoad) {
    const QString top = QString::number(std::numeric_limits<qint64>::max());
    const QString record = QStringLiteral("01Jan2020 %1 %1 0 0 ").arg(top);
    store(record);
    ScoresKeeper k = keeper();
    k.start();
    k.countGame(GameResult::Won);
    k.countGame(GameResult::Lost);
    EXPECT_EQ(storedRecord(), QStringLiteral("07Mar2025 %1 %1 0 1 ").arg(top));
    ScoresKeeper next = keeper();
    next.start();
    EXPECT_EQ(next.allSessions(1), top);
    EXPECT_EQ(next.allSessions(4), QStringLiteral("1"));
    EXPECT_TRUE(notifier.messages().isEmpty());
}

TEST_F(ScoresKeeperTest, DefaultFileIsTheProgramNameInTheProgramFolder) {
    EXPECT_EQ(ScoresKeeper::defaultScoreFilePath(),
              folder.path() + ScoresKeeper::programBaseName() + QStringLiteral(".sco"));
    EXPECT_FALSE(ScoresKeeper::programBaseName().isEmpty());
}

} // namespace
