// The message window's style texts and layout arithmetic, without a window.
#include "ui/msgstyle.h"

#include <gtest/gtest.h>

namespace {

QStringList captions(const MsgStyle& style) {
    QStringList list;
    for (const MsgButton& b : style.buttons)
        list << QStringLiteral("%1=%2").arg(b.caption).arg(b.value);
    return list;
}

TEST(MsgStyle, KeywordsGiveIconsAndButtonsInTheOrderWritten) {
    struct Row {
        const char* typ;
        QList<int> icons;
        QStringList buttons;
    } rows[] = {
        {"vbQuestion + vbYesNo", {0}, {"Yes=6", "No=7"}},
        {"vbok+vbcancel", {}, {"Ok=1", "Cancel=2"}},
        {"vbcancel+vbok", {}, {"Cancel=2", "Ok=1"}},
        {"", {}, {"Ok=1"}},
        {"vbnormal", {}, {"Ok=0"}},
        {"vbhappy+vbok", {5}, {"Ok=1"}},
        {"vbcustom", {10}, {"Ok=1"}},
        {" VBCRITICAL  +  VBOK ", {4}, {"Ok=1"}},
        {"vbinformation+vbyesno", {2}, {"Yes=6", "No=7"}},
        {"vbexclamation+vbabortretryignore", {1}, {"Abort=3", "Retry=4", "Ignore=5"}},
        {"vbyesnocancel", {}, {"Yes=6", "No=7", "Cancel=2"}},
        {"vbretrycancel+vberror", {3}, {"Retry=4", "Cancel=2"}},
        {"vbokonly+vbtrash+vbprint+vblighton", {6, 7, 8}, {"Ok=1"}},
        {"vbmisspelt++vbyes", {}, {"Yes=6"}},
        {"vbyesnocancel+vbok", {}, {"Yes=6", "No=7", "Cancel=2"}}, // three slots only
    };
    for (const Row& row : rows) {
        const MsgStyle style = parseMsgStyle(QString::fromLatin1(row.typ));
        EXPECT_EQ(style.icons, row.icons) << row.typ;
        EXPECT_EQ(captions(style), row.buttons) << row.typ;
    }
}

TEST(MsgLayout, NarrowMessagesGetThreeButtonWidths) {
    const MsgLayout one = layoutMessage(900, 195, 1);
    EXPECT_EQ(one.windowWidth, 2655);
    ASSERT_EQ(one.buttonLefts.size(), 1);
    EXPECT_DOUBLE_EQ(one.buttonLefts[0], 885);
}

TEST(MsgLayout, WideMessagesWidenTheWindowAndCentreTheButtons) {
    const MsgLayout three = layoutMessage(3000, 195, 3);
    EXPECT_EQ(three.windowWidth, 4680);
    EXPECT_EQ(three.buttonLefts, (QList<double>{1012.5, 1897.5, 2782.5}));
}

TEST(MsgLayout, HeightFollowsTheTextLines) {
    const MsgLayout one = layoutMessage(900, 195, 1);
    const MsgLayout two = layoutMessage(900, 390, 1);
    EXPECT_EQ(one.labelHeight, 315);
    EXPECT_EQ(one.buttonTop, 300 + 315 + 120);
    EXPECT_EQ(one.windowHeight, one.buttonTop + 345 + 600);
    EXPECT_EQ(two.windowHeight - one.windowHeight, 195);
}

TEST(MsgLayout, NoButtonsShownForAnImpossibleCount) {
    EXPECT_TRUE(layoutMessage(900, 195, 0).buttonLefts.isEmpty());
    EXPECT_TRUE(layoutMessage(900, 195, 4).buttonLefts.isEmpty());
}

} // namespace
