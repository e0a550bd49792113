// The kit's rules that need no display: message styles and layout, button faces, help.
#include "core/twips.h"
#include "ui/boxgeometry.h"
#include "ui/helprules.h"
#include "ui/msgstyle.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

TEST(MsgStyle, KeywordsNameIconsAndFillButtonsInOrderOthersAreIgnored) {
    const std::tuple<const char*, QList<int>, QString> rows[] = {
        // buttons "caption value"
        {"vbQuestion + vbYesNo", {0}, "Yes 6 No 7"},
        {"vbexclamation+vbinformation+vberror+vbcritical+vbhappy+vbtrash+vbprint+vblighton",
         {1, 2, 3, 4, 5, 6, 7, 8},
         "Ok 1"},
        {"vbcustom+vbquestion+vbok", {10, 0}, "Ok 1"},
        {"vbnormal", {}, "Ok 0"},
        {"vbokonly", {}, "Ok 1"},
        {"vbcancel+vbok", {}, "Cancel 2 Ok 1"},
        {"vbokcancel", {}, "Ok 1 Cancel 2"},
        {"vbretrycancel", {}, "Retry 4 Cancel 2"},
        {"vbabortretryignore", {}, "Abort 3 Retry 4 Ignore 5"},
        {"vbabort+vbretry+vbignore", {}, "Abort 3 Retry 4 Ignore 5"},
        {"vbyesnocancel+vbok", {}, "Yes 6 No 7 Cancel 2"}, // beyond the third is dropped
        // Unknown, empty or misspelt pieces are ignored; only spaces are trimmed.
        {"", {}, "Ok 1"},
        {"vbquestoin+vbyes", {}, "Yes 6"},
        {"\tvbyes+vbno", {}, "No 7"},
        {"   vbyes   +   ", {}, "Yes 6"},
        {"vbok vbcancel", {}, "Ok 1"},
    };
    for (const auto& [typ, icons, buttons] : rows) {
        const MsgStyle style = parseMsgStyle(QString::fromLatin1(typ));
        QStringList words;
        for (const MsgButton& b : style.buttons)
            words << b.caption + u' ' + QString::number(b.value);
        EXPECT_EQ(style.icons, icons) << typ;
        EXPECT_EQ(words.join(u' '), buttons) << typ;
    }
}

TEST(MsgLayout, AtLeastThreeButtonsWideButtonRowCentredHeightsFollowTheText) {
    constexpr int Most = MsgMaxTextSize;
    // Text width, height, last button; window width, label height, button top, window height.
    const std::tuple<int, int, int, int, int, int, int, QList<double>> rows[] = {
        {480, 210, 0, 2655, 330, 750, 1695, {885}}, // 300 + 330 + 120; 750 + 345 + 600
        {975, 420, 0, 2655, 540, 960, 1905, {885}},
        {976, 210, 1, 2656, 330, 750, 1695, {443, 1328}},
        {3000, 210, 2, 4680, 330, 750, 1695, {1012.5, 1897.5, 2782.5}},
        {100, 210, -1, 2655, 330, 750, 1695, {}},
        {100, 210, 3, 2655, 330, 750, 1695, {}},
        // Found by fuzz_msgstyle: sizes no text can have, underflowing and overflowing sums.
        {INT_MIN, INT_MIN, 0, 2655, 120, 540, 1485, {885}},
        {INT_MAX, INT_MAX, -1, 1680 + Most, Most + 120, Most + 540, Most + 1485, {}},
    };
    for (const auto& [textWidth, textHeight, last, width, label, top, height, lefts] : rows) {
        const MsgLayout got = layoutMessage(textWidth, textHeight, last);
        EXPECT_EQ(std::tie(got.windowWidth, got.labelHeight, got.buttonTop, got.windowHeight,
                           got.buttonLefts),
                  std::tie(width, label, top, height, lefts))
            << textWidth << " " << last;
    }
}

TEST(BoxGeometry, EdgesPictureCornerAndCaptionOfAFaceLandOnWholePixels) {
    EXPECT_EQ(BoxGeometry::darkEdges(885, 345),
              (std::array{QLineF(865, 20, 865, 325), QLineF(20, 325, 865, 325)}));
    EXPECT_EQ(BoxGeometry::lightEdges(885, 345),
              (std::array{QLineF(0, 0, 0, 345), QLineF(0, 0, 885, 0)}));
    // Natural sizes round to whole hundredths of a millimetre: 423.33, 846.67 and 26.46.
    EXPECT_EQ(BoxGeometry::himetricSize(QSize(16, 16)), QSize(423, 423));
    EXPECT_EQ(BoxGeometry::himetricSize(QSize(32, 1)), QSize(847, 26));
    EXPECT_EQ(BoxGeometry::pictureCorner(330, 330, 423, 423), QPointF(35.25, 35.25));
    EXPECT_EQ(BoxGeometry::captionOrigin(885, 345, 300, 195), QPointF(292.5, 75));
    // A caption wider than the face starts left of it (and is clipped).
    EXPECT_EQ(BoxGeometry::captionOrigin(330, 330, 600, 195), QPointF(-135, 67.5));
    // Whole pixels are cut, not rounded.
    const std::pair<double, int> rows[] = {{0, 0},  {14.99, 0}, {15, 1},     {29.9, 1},
                                           {30, 2}, {865, 57},  {2985, 199}, {-0.5, -1}};
    for (const auto& [twips, pixel] : rows)
        EXPECT_EQ(BoxGeometry::toPixel(twips), pixel) << twips;
    // Window layouts round to the nearest pixel instead, from 8 of the 15 twips on.
    EXPECT_EQ(Twips::toPixels(QRect(788, 7, 8, -8)), QRect(53, 0, 1, -1));
}

TEST(HelpRules, BackAndForwardActOnlyOnAnAddressWithAnAnchor) {
    const QString page = QStringLiteral("/usr/share/pentalink/pentalink.htm");
    const QString hashFolder = QStringLiteral("/home/ann/#games/pentalink.htm");
    const std::pair<QUrl, bool> rows[] = {
        // shown, inside the page
        {HelpRules::pageAddress(page), false},
        {HelpRules::pageAddress(page, QStringLiteral("play")), true},
        {QUrl(QStringLiteral("#play")), true},       // the browser may report an in-page step bare
        {HelpRules::pageAddress(hashFolder), false}, // a "#" in a folder name is no anchor
        {HelpRules::pageAddress(hashFolder, QStringLiteral("keys")), true},
        {QUrl(), false},
    };
    for (const auto& [shown, inside] : rows)
        EXPECT_EQ(HelpRules::pointsInsidePage(shown), inside) << qPrintable(shown.toString());
    const QUrl anchored = HelpRules::pageAddress(hashFolder, QStringLiteral("keys"));
    EXPECT_EQ(anchored.toLocalFile(), hashFolder);
    EXPECT_EQ(anchored.fragment(), QStringLiteral("keys"));
}

TEST(HelpRules, BrowserSizeIsTheOuterSizeLessFrameAndTopSkippingImpossibleSizes) {
    const std::tuple<QSize, std::optional<int>, std::optional<int>> rows[] = {
        {{7305, 6105}, 7185, 5205}, // the designed inner size with its frame
        {{120, 900}, 0, 0},
        {{119, 6000}, std::nullopt, 5100}, // each direction on its own
        {{8000, 899}, 7880, std::nullopt},
    };
    for (const auto& [window, width, height] : rows) {
        const HelpRules::BrowserSize size = HelpRules::browserSize(window);
        EXPECT_EQ(std::tie(size.width, size.height), std::tie(width, height)) << window.width();
    }
}

} // namespace
