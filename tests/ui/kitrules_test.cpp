// The kit's rules that need no display: style texts into icons and buttons, the message
// layout arithmetic, the push button's face geometry in twips and on pixels, and the help
// window's addresses and browser size.
#include "ui/boxgeometry.h"
#include "ui/helprules.h"
#include "ui/msgstyle.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

const MsgButton Ok{QStringLiteral("Ok"), 1};
const MsgButton Cancel{QStringLiteral("Cancel"), 2};
const MsgButton Abort{QStringLiteral("Abort"), 3};
const MsgButton Retry{QStringLiteral("Retry"), 4};
const MsgButton Ignore{QStringLiteral("Ignore"), 5};
const MsgButton Yes{QStringLiteral("Yes"), 6};
const MsgButton No{QStringLiteral("No"), 7};
const MsgButton NormalOk{QStringLiteral("Ok"), 0};

TEST(MsgStyle, KeywordsNameIconsAndFillButtonsInOrderOthersAreIgnored) {
    const struct {
        const char* typ;
        QList<int> icons;
        QList<MsgButton> buttons;
    } rows[] = {
        {"vbQuestion + vbYesNo", {0}, {Yes, No}},
        {"vbok+vbcritical", {4}, {Ok}},
        {"vbinformation+vbyesno", {2}, {Yes, No}},
        {"vbhappy+vbok", {5}, {Ok}},
        {"vbcancel+vbok", {}, {Cancel, Ok}},
        {"vbexclamation+vberror+vbtrash+vbprint+vblighton", {1, 3, 6, 7, 8}, {Ok}},
        {"vbcustom", {10}, {Ok}},
        {"vbnormal", {}, {NormalOk}},
        {"vbokonly", {}, {Ok}},
        {"vbokcancel", {}, {Ok, Cancel}},
        {"vbretrycancel", {}, {Retry, Cancel}},
        {"vbabortretryignore", {}, {Abort, Retry, Ignore}},
        {"vbabort+vbretry+vbignore", {}, {Abort, Retry, Ignore}},
        {"VBYES + VBNO", {}, {Yes, No}},
        {"vbyesnocancel+vbok", {}, {Yes, No, Cancel}}, // beyond the third is dropped
        // Unknown, empty or misspelt pieces are ignored.
        {"", {}, {Ok}},
        {"+", {}, {Ok}},
        {"vbquestoin+vbyes", {}, {Yes}},
        {"vb yes+vbno", {}, {No}},
        {"\tvbyes+vbno", {}, {No}}, // only spaces are trimmed
        {"   vbyes   +   ", {}, {Yes}},
        {"vbok vbcancel", {}, {Ok}},
    };
    for (const auto& row : rows) {
        const MsgStyle style = parseMsgStyle(QString::fromLatin1(row.typ));
        EXPECT_EQ(style.icons, row.icons) << row.typ;
        EXPECT_EQ(style.buttons, row.buttons) << row.typ;
    }
}

TEST(MsgLayout, TheWindowIsThreeButtonsWideAtLeastAndCentresTheButtonRow) {
    const MsgLayout narrow = layoutMessage(480, 210, 0);
    EXPECT_EQ(narrow.windowWidth, 2655);
    EXPECT_EQ(narrow.buttonLefts, QList<double>{885}); // (2655 - 885) / 2
    EXPECT_EQ(layoutMessage(975, 210, 0).windowWidth, 2655);
    EXPECT_EQ(layoutMessage(976, 210, 0).windowWidth, 2656);
    const MsgLayout wide = layoutMessage(3000, 210, 2);
    EXPECT_EQ(wide.windowWidth, 4680);
    EXPECT_EQ(wide.buttonLefts, (QList<double>{1012.5, 1897.5, 2782.5}));
    EXPECT_EQ(layoutMessage(3000, 210, 1).buttonLefts, (QList<double>{1455, 2340}));
    EXPECT_TRUE(layoutMessage(100, 210, -1).buttonLefts.isEmpty());
    EXPECT_TRUE(layoutMessage(100, 210, 3).buttonLefts.isEmpty());
}

TEST(MsgLayout, HeightsFollowTheText) {
    const MsgLayout one = layoutMessage(1000, 210, 0);
    EXPECT_EQ(one.labelHeight, 330);
    EXPECT_EQ(one.buttonTop, 750);     // 300 + 330 + 120
    EXPECT_EQ(one.windowHeight, 1695); // 750 + 345 + 600
    const MsgLayout two = layoutMessage(1000, 420, 0);
    EXPECT_EQ(two.windowHeight - one.windowHeight, 210);
    EXPECT_EQ(two.buttonTop - one.buttonTop, 210);
    // Found by fuzz_msgstyle: sizes no text can have (the empty input gives INT_MIN) made the
    // label shorter than nothing, and INT_MAX overflowed the sums.
    const MsgLayout none = layoutMessage(INT_MIN, INT_MIN, 0);
    EXPECT_EQ(none.labelHeight, 120);
    EXPECT_EQ(none.windowWidth, 2655);
    const MsgLayout huge = layoutMessage(INT_MAX, INT_MAX, 2);
    EXPECT_EQ(huge.windowWidth, 2 * 840 + MsgMaxTextSize);
    EXPECT_EQ(huge.windowHeight, 300 + MsgMaxTextSize + 120 + 120 + 345 + 600);
}

TEST(BoxGeometry, EdgesOfAnAnswerButton) {
    const auto dark = BoxGeometry::darkEdges(885, 345);
    EXPECT_EQ(dark[0], QLineF(865, 20, 865, 325)); // right edge
    EXPECT_EQ(dark[1], QLineF(20, 325, 865, 325)); // bottom edge, from 20 to 865
    const auto light = BoxGeometry::lightEdges(885, 345);
    EXPECT_EQ(light[0], QLineF(0, 0, 0, 345));
    EXPECT_EQ(light[1], QLineF(0, 0, 885, 0));
}

TEST(BoxGeometry, PictureCornerAndNaturalSizes) {
    const QSize natural = BoxGeometry::himetricSize(QSize(16, 16));
    EXPECT_EQ(natural, QSize(423, 423));
    const QPointF corner = BoxGeometry::pictureCorner(330, 330, natural.width(), natural.height());
    EXPECT_EQ(corner, QPointF(35.25, 35.25)); // (330 - 211.5) / 2 - 24
    // Natural sizes round to whole hundredths of a millimetre: 846.67 and 26.46.
    EXPECT_EQ(BoxGeometry::himetricSize(QSize(32, 1)), QSize(847, 26));
    EXPECT_EQ(BoxGeometry::himetricSize(QSize(96, 0)), QSize(2540, 0));
}

TEST(BoxGeometry, CaptionCellIsCentred) {
    EXPECT_EQ(BoxGeometry::captionOrigin(885, 345, 300, 195), QPointF(292.5, 75));
    // A caption wider than the face starts left of it (and is clipped).
    EXPECT_EQ(BoxGeometry::captionOrigin(330, 330, 600, 195), QPointF(-135, 67.5));
}

TEST(BoxGeometry, WholePixelsAreCutNotRounded) {
    for (int n = 0; n < 200; ++n)
        EXPECT_EQ(BoxGeometry::toPixel(15.0 * n), n) << n;
    EXPECT_EQ(BoxGeometry::toPixel(14.99), 0);
    EXPECT_EQ(BoxGeometry::toPixel(29.9), 1);
    EXPECT_EQ(BoxGeometry::toPixel(865), 57);
    EXPECT_EQ(BoxGeometry::toPixel(-0.5), -1);
}

TEST(HelpRules, BackAndForwardActOnlyOnAnAddressWithAnAnchor) {
    const QString page = QStringLiteral("/usr/share/pentalink/pentalink.htm");
    const QString hashFolder = QStringLiteral("/home/ann/#games/pentalink.htm");
    const struct {
        QUrl shown;
        bool inside;
    } rows[] = {
        {HelpRules::pageAddress(page), false},
        {HelpRules::pageAddress(page, QStringLiteral("play")), true},
        {QUrl(QStringLiteral("#play")), true},       // the browser may report an in-page step bare
        {HelpRules::pageAddress(hashFolder), false}, // a "#" in a folder name is no anchor
        {HelpRules::pageAddress(hashFolder, QStringLiteral("keys")), true},
        {QUrl(), false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(HelpRules::pointsInsidePage(row.shown), row.inside)
            << qPrintable(row.shown.toString());
    const QUrl anchored = HelpRules::pageAddress(hashFolder, QStringLiteral("keys"));
    EXPECT_EQ(anchored.toLocalFile(), hashFolder);
    EXPECT_EQ(anchored.fragment(), QStringLiteral("keys"));
}

TEST(HelpRules, BrowserSizeIsTheOuterSizeLessFrameAndTopSkippingImpossibleSizes) {
    const struct {
        QSize window;
        std::optional<int> width, height;
    } rows[] = {
        {{8000, 6000}, 7880, 5100},
        {{7305, 6105}, 7185, 5205}, // the designed inner size with its frame
        {{120, 900}, 0, 0},
        {{119, 6000}, std::nullopt, 5100}, // each direction on its own
        {{8000, 899}, 7880, std::nullopt},
        {{0, 0}, std::nullopt, std::nullopt},
    };
    for (const auto& row : rows) {
        const HelpRules::BrowserSize size = HelpRules::browserSize(row.window);
        EXPECT_EQ(size.width, row.width) << row.window.width();
        EXPECT_EQ(size.height, row.height) << row.window.height();
    }
}

} // namespace
