// The countdown clock's logic without a display; ticks are fired by hand.
#include "components/clockmodel.h"
#include "components/sevensegment.h"
#include "core/settings.h"

#include "manualticks.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

using namespace sevensegment;

class ClockTest : public ::testing::Test {
protected:
    ClockTest() {
        auto ticks = std::make_unique<ManualTicks>();
        source = ticks.get();
        clock = std::make_unique<ClockModel>(std::move(ticks), [this] { return now; });
        QObject::connect(clock.get(), &ClockModel::ClockExpired, [this] { ++expired; });
    }

    // Four digits ('?': none) around ':' (colon lit), '.' (dark) or ' ' (a dot hidden).
    QString face() const {
        QString text;
        for (int p = 0; p < kPositions; ++p) {
            QChar digit = u'?';
            for (int d = 0; d <= 9; ++d) {
                bool match = true;
                for (int s = 0; s < kSegments; ++s)
                    match = match && ((clock->segmentColour(p, s) == clock->SegmentColours(1)) ==
                                      segmentLit(d, s));
                if (match)
                    digit = QChar(u'0' + d);
            }
            text += digit;
            if (p == 1 && !(clock->dotVisible(kUpperDot) && clock->dotVisible(kLowerDot)))
                text += u' ';
            else if (p == 1)
                text += clock->dotColour(kUpperDot) == clock->SegmentColours(1) ? u':' : u'.';
        }
        return text;
    }
    bool allUnlit() const { return face().left(2) + face().mid(3) == QStringLiteral("????"); }

    ManualTicks* source = nullptr;
    QTime now{12, 0, 0};
    std::unique_ptr<ClockModel> clock;
    int expired = 0;
};

TEST_F(ClockTest, StartValueShowsMinutesAndSecondsWithTheColonDarkOnOddSeconds) {
    EXPECT_EQ(face(), QStringLiteral("00:00")); // a new clock
    EXPECT_FALSE(clock->isRunning());
    const std::pair<qint32, const char*> rows[] = {
        {125, "02.05"},  {124, "02:04"},     {600, "10:00"}, {5999, "99.59"},
        {6000, "99.59"}, {INT_MAX, "99.59"}, {-1, "00:00"},  {INT_MIN, "00:00"}};
    for (const auto& [seconds, shown] : rows) {
        clock->setClockStartValue(seconds);
        EXPECT_EQ(face(), QLatin1String(shown)) << seconds;
    }
    clock->setClockNow(7); // only stored
    EXPECT_EQ(clock->ClockNow(), INT_MIN);
}

TEST_F(ClockTest, TicksCountByTheIncrementAndExpireOnEveryTickFromZeroOrBelow) {
    // The increment, the start value, and after each tick the face and the expiries so far.
    const struct {
        qint32 increment, start;
        const char* ticks;
    } rows[] = {
        {-1, 2, "00.01/0 00:00/0 00:00/1 00:00/2"},
        {0, 30, "00:30/0 00:30/0 00:30/0"},
        {0, -3, "00:00/1 00:00/2"},
        {INT_MAX, INT_MAX - 1, "99.59/0"}, // counting saturates instead of wrapping
    };
    for (const auto& row : rows) {
        expired = 0;
        clock->setClockIncrement(row.increment);
        clock->setClockStartValue(row.start);
        clock->StartCountdown();
        for (const QString& expected : QString::fromLatin1(row.ticks).split(u' ')) {
            source->tick();
            EXPECT_EQ(face() + u'/' + QString::number(expired), expected) << row.start;
        }
    }
    EXPECT_EQ(clock->ClockNow(), INT_MAX);
    EXPECT_EQ(source->interval(), 1000);
    clock->setClockStartValue(0);
    clock->SuspendCountDown();
    source->tick();
    EXPECT_EQ(expired, 0);
    clock->ResumeCountDown();
    source->tick();
    EXPECT_EQ(expired, 1);
}

// A named colour sets the palette at once, digits unlit until the next display.
TEST_F(ClockTest, PaletteRule) {
    clock->setClockStartValue(125);
    clock->setClockColor(QStringLiteral("gold"));
    EXPECT_EQ(clock->ClockColor(), QStringLiteral("gold"));
    EXPECT_EQ(clock->ClockBackground(), packRgb(146, 142, 102));
    EXPECT_EQ(clock->backgroundColour(), packRgb(146, 142, 102));
    EXPECT_EQ(clock->SegmentColours(0), packRgb(125, 125, 102));
    EXPECT_EQ(clock->SegmentColours(1), packRgb(244, 244, 205));
    EXPECT_TRUE(allUnlit());
    EXPECT_EQ(clock->dotColour(kUpperDot), packRgb(244, 244, 205));
    EXPECT_EQ(clock->DigitHighlight(), 0u); // the stored values stay

    clock->DisplayCount(125);
    clock->setClockColor(QStringLiteral("DeFaUlT"));
    EXPECT_EQ(face(), QStringLiteral("02.05")); // nothing repainted
    EXPECT_EQ(clock->SegmentColours(1), packRgb(244, 244, 205));
    clock->setClockColor(QStringLiteral("Purple"));
    EXPECT_EQ(clock->SegmentColours(1), packRgb(244, 244, 205));
    EXPECT_TRUE(allUnlit());
    clock->setClockColor(QStringLiteral("WHITE"));
    EXPECT_EQ(clock->SegmentColours(1), packRgb(70, 70, 70));

    clock->setDigitHighlight(packRgb(255, 0, 0));
    clock->setDigitDim(packRgb(20, 0, 0));
    EXPECT_EQ(clock->segmentColour(0, 0), packRgb(20, 0, 0));
    clock->DisplayCount(125);
    EXPECT_EQ(clock->segmentColour(1, 0), packRgb(255, 0, 0)); // top of the 2
}

TEST_F(ClockTest, TimeOfDayBlinksTheDotOfTheHalfMinute) {
    clock->setShowTimeOnly(true);
    clock->setClockStartValue(0);
    clock->StartCountdown();
    now = QTime(13, 47, 10);
    source->tick();
    EXPECT_EQ(face(), QStringLiteral("13 47"));
    EXPECT_TRUE(clock->dotVisible(kUpperDot));
    EXPECT_FALSE(clock->dotVisible(kLowerDot));
    const quint32 first = clock->dotColour(kUpperDot);
    source->tick();
    EXPECT_NE(clock->dotColour(kUpperDot), first);
    source->tick();
    EXPECT_EQ(clock->dotColour(kUpperDot), first);
    EXPECT_EQ(expired, 0); // time of day never expires

    for (const int second : {0, 29, 30, 59}) {
        now = QTime(9, 5, second);
        source->tick();
        EXPECT_EQ(face(), QStringLiteral("09 05"));
        EXPECT_EQ(clock->dotVisible(kLowerDot), second >= 30) << second;
        EXPECT_EQ(clock->dotVisible(kUpperDot), second < 30) << second;
    }
}

TEST_F(ClockTest, DigitWidthAndTheFaceGeometry) {
    EXPECT_EQ(clock->lineWidth(32), 1); // the last digit's bottom bar starts thin
    for (const auto& [written, drawn] : {std::pair{5, 5}, {0, 1}, {1000, 15}}) {
        clock->setDigitWidth(written);
        EXPECT_EQ(clock->lineWidth(32), drawn);
        EXPECT_EQ(clock->lineWidth(kLowerDot), drawn);
    }
    for (const auto& [p, x] : {std::pair{0, 135}, {1, 510}, {2, 975}, {3, 1350}}) // 0, 2: 15 left
        EXPECT_EQ(segmentLine(p, 1), QLine(x, 285, x + 120, 285)) << p;
}

} // namespace
