// The schemes that come with the program in data/all.col: written as the program writes them,
// loadable, stored as the loader sees them, and light enough behind the fixed dark text.
#include "appearance/colourscheme.h"

#include "support/recordingnotifier.h"
#include "support/testfolder.h"

#include <QSet>

#include <gtest/gtest.h>

#include <cmath>

namespace {

// The WCAG contrast ratio of two sRGB colours, from their relative luminance.
double contrastRatio(quint32 a, quint32 b) {
    const auto luminance = [](quint32 colour) {
        const auto channel = [](int byte) {
            const double c = byte / 255.0;
            return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * channel(RedByte(colour)) + 0.7152 * channel(GreenByte(colour)) +
               0.0722 * channel(BlueByte(colour));
    };
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

TEST(ShippedSchemes, EightOrMoreDistinctSchemesWrittenAndLoadedAsStoredKeepTextReadable) {
    TestFolder folder;
    folder.copyShipped(QStringLiteral("all.col"));
    const QByteArray content = folder.read(QStringLiteral("all.col"));
    const QStringList lines = SchemeFile::readLines(folder.file(QStringLiteral("all.col"))).value();
    EXPECT_EQ(SchemeFile::toBytes(lines), content); // CR LF after every line, nothing more
    Settings settings = Settings::forFolder(folder.path());
    RecordingNotifier notifier;
    ColourScheme scheme{settings};
    scheme.setNotifier(&notifier);
    // A table starts from the shipped xp, so a window that can load no scheme is still usable.
    const auto fresh = scheme.SchemeColours;
    ASSERT_TRUE(scheme.LoadColourScheme(QStringLiteral("xp.col")));
    EXPECT_EQ(scheme.SchemeColours, fresh);

    const QStringList names = scheme.ListSchemeNames().value_or(QStringList());
    EXPECT_EQ(lines.size(), 14 * names.size());
    EXPECT_GE(names.size(), 8);
    EXPECT_EQ(QSet<QString>(names.begin(), names.end()).size(), names.size());
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        // The editor finds each by its listed name; every colour line is as the program writes.
        const qsizetype header = lines.indexOf(SchemeFileName(name));
        ASSERT_GE(header, 0);
        for (int k = 1; k <= 13; ++k) {
            const std::optional<ColourComponents> c = readColourLine(lines.value(header + k));
            ASSERT_TRUE(c.has_value()) << k;
            EXPECT_EQ(colourLineText(packComponents(*c)), lines.value(header + k)) << k;
        }
        quint32 base = 0;
        ASSERT_TRUE(scheme.PreviewScheme(SchemeFileName(name), base));
        const auto previewed = scheme.SchemeColours;
        ASSERT_TRUE(scheme.LoadColourScheme(SchemeFileName(name)));
        // Colours 3 and 5 are stored as the loader derives them, so what the Options window
        // previews is what the main window shows.
        EXPECT_EQ(scheme.SchemeColours, previewed);
        // The background, the buttons and the menu bar (colour 3) all carry text.
        for (const int k : {2, scheme.ButtonColourIndex, 3})
            EXPECT_GE(contrastRatio(scheme.SchemeColours[k], Settings::DefaultTextColour), 4.5)
                << k;
    }
    EXPECT_TRUE(notifier.messages().isEmpty());
}

} // namespace
