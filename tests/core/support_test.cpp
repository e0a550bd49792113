// The program's random source and the throttled event pump.
#include "core/eventpump.h"
#include "core/randomsource.h"

#include <gtest/gtest.h>

TEST(RandomSource, SameSeedSameSequenceWithinBounds) {
    RandomSource a(99);
    RandomSource b(99);
    bool sawLow = false;
    bool sawHigh = false;
    for (int n = 0; n < 2000; ++n) {
        const qint64 x = a.between(1, 6);
        EXPECT_EQ(x, b.between(1, 6));
        ASSERT_GE(x, 1);
        ASSERT_LE(x, 6);
        sawLow = sawLow || x == 1;
        sawHigh = sawHigh || x == 6;
    }
    EXPECT_TRUE(sawLow && sawHigh);
    EXPECT_EQ(a.between(5, 5), 5);
}

TEST(EventPump, RunsOnlyWhenTheIntervalHasPassed) {
    qint64 now = 1000;
    int runs = 0;
    EventPump pump([&runs] { ++runs; }, 5, [&now] { return now; });
    // Milliseconds passed, then a poll ('p') or a run at once ('r'), and the runs so far.
    const std::tuple<int, char, int> steps[] = {{0, 'p', 0}, {4, 'p', 0}, {1, 'p', 1},
                                                {0, 'p', 1}, {0, 'r', 2}, {5, 'p', 3}};
    for (const auto& [passed, how, expected] : steps) {
        now += passed;
        how == 'r' ? pump.runNow() : pump.poll();
        EXPECT_EQ(runs, expected) << now;
    }
}
