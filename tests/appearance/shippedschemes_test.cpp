// The shipped schemes: written as the program writes them, stored as loaded, readable.
#include "appearance/colourscheme.h"

#include "support/schemefixture.h"
#include "ui/contrast.h"

#include <QSet>

#include <gtest/gtest.h>

namespace {

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

    const auto rgb = [](quint32 c) { return QColor(RedByte(c), GreenByte(c), BlueByte(c)); };
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
            EXPECT_GE(
                contrastRatio(rgb(m_scheme.SchemeColours[k]), rgb(Settings::DefaultTextColour)),
                4.5)
                << k;
    }
    EXPECT_TRUE(m_notifier.messages().isEmpty());
}

} // namespace
