// The schemes that come with the program in data/all.col: written as the program writes them,
// loadable, stored as the loader sees them, and light enough behind the fixed dark text.
#include "appearance/colourscheme.h"

#include "support/schemefixture.h"

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
    const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

struct ShippedSchemes : SchemeTest {
    ShippedSchemes()
        : SchemeTest(true) {}
};

TEST_F(ShippedSchemes, EightOrMoreDistinctSchemesWrittenAndLoadedAsStoredKeepTextReadable) {
    const QStringList lines =
        SchemeFile::readLines(m_folder.file(QStringLiteral("all.col"))).value();
    // CR LF after every line, nothing more.
    EXPECT_EQ(SchemeFile::toBytes(lines), m_folder.read(QStringLiteral("all.col")));
    // A table starts from the shipped xp, so a window that can load no scheme is still usable.
    const auto fresh = m_scheme.SchemeColours;
    ASSERT_TRUE(m_scheme.LoadColourScheme(QStringLiteral("xp.col")));
    EXPECT_EQ(m_scheme.SchemeColours, fresh);

    const QStringList names = m_scheme.ListSchemeNames().value_or(QStringList());
    EXPECT_EQ(lines.size(), 14 * names.size());
    EXPECT_GE(QSet<QString>(names.begin(), names.end()).size(), 8); // distinct
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        // Every colour line is as the program writes it.
        const qsizetype header = lines.indexOf(SchemeFileName(name));
        ASSERT_GE(header, 0);
        for (const QString& line : lines.mid(header + 1, 13))
            EXPECT_EQ(colourLineText(packComponents(readColourLine(line).value())), line);
        quint32 base = 0;
        ASSERT_TRUE(m_scheme.PreviewScheme(SchemeFileName(name), base));
        const auto previewed = m_scheme.SchemeColours;
        ASSERT_TRUE(m_scheme.LoadColourScheme(SchemeFileName(name)));
        // Colours 3 and 5 are stored as the loader derives them, so what the Options window
        // previews is what the main window shows.
        EXPECT_EQ(m_scheme.SchemeColours, previewed);
        // The background, the buttons and the menu bar (colour 3) all carry text.
        for (const int k : {2, m_scheme.ButtonColourIndex, 3})
            EXPECT_GE(contrastRatio(m_scheme.SchemeColours[k], Settings::DefaultTextColour), 4.5)
                << k;
    }
    EXPECT_TRUE(m_notifier.messages().isEmpty());
}

} // namespace
