// The schemes that come with the program in data/all.col: complete, loadable, stored as the
// loader sees them, and light enough behind the fixed dark text.
#include "appearance/colourscheme.h"

#include "support/recordingnotifier.h"
#include "support/testfolder.h"

#include <QSet>

#include <gtest/gtest.h>

#include <cmath>

namespace {

// The contrast ratio of two sRGB colours, from their relative luminance.
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

class ShippedSchemes : public ::testing::Test {
protected:
    void SetUp() override {
        m_folder.copyShipped(QStringLiteral("all.col"));
        m_scheme.setNotifier(&m_notifier);
    }

    TestFolder m_folder;
    Settings m_settings = Settings::forFolder(m_folder.path());
    RecordingNotifier m_notifier;
    ColourScheme m_scheme{m_settings};
};

TEST_F(ShippedSchemes, EveryFileLineIsWrittenAsTheProgramWritesIt) {
    const QByteArray content = m_folder.read(QStringLiteral("all.col"));
    EXPECT_TRUE(content.endsWith("\r\n"));
    EXPECT_FALSE(content.contains("\n\n"));
    EXPECT_EQ(content.count("\r\n"), content.count('\n'));
    const std::optional<QStringList> lines =
        SchemeFile::readLines(m_folder.file(QStringLiteral("all.col")));
    ASSERT_TRUE(lines.has_value());
    EXPECT_EQ(lines->size() % 14, 0);
    for (qsizetype i = 0; i < lines->size(); ++i) {
        if (i % 14 == 0)
            continue;
        const std::optional<ColourComponents> c = readColourLine(lines->at(i));
        ASSERT_TRUE(c.has_value()) << i;
        EXPECT_EQ(colourLineText(packComponents(*c)), lines->at(i)) << i;
    }
}

TEST_F(ShippedSchemes, EightOrMoreDistinctSchemesLoadAsStoredAndKeepTextReadable) {
    ASSERT_NEAR(contrastRatio(packRgb(0, 0, 0), packRgb(255, 255, 255)), 21.0, 1e-9);
    // A table starts from the shipped xp, so a window that can load no scheme is still usable.
    const auto fresh = m_scheme.SchemeColours;
    ASSERT_TRUE(m_scheme.LoadColourScheme(QStringLiteral("xp.col")));
    EXPECT_EQ(m_scheme.SchemeColours, fresh);
    const QStringList names = m_scheme.ListSchemeNames().value_or(QStringList());
    EXPECT_GE(names.size(), 8);
    EXPECT_TRUE(names.contains(QStringLiteral("xp")));
    EXPECT_EQ(QSet<QString>(names.begin(), names.end()).size(), names.size());
    const quint32 text = Settings::DefaultTextColour;
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        const QString file = name + QStringLiteral(".col");
        EXPECT_EQ(SchemeFileName(name), file); // the editor finds it by its listed name
        quint32 base = 0;
        ASSERT_TRUE(m_scheme.PreviewScheme(file, base));
        const auto previewed = m_scheme.SchemeColours;
        ASSERT_TRUE(m_scheme.LoadColourScheme(file));
        // Colours 3 and 5 are stored as the loader derives them, so what the Options window
        // previews is what the main window shows.
        EXPECT_EQ(m_scheme.SchemeColours, previewed);
        // The background, the buttons and the menu bar (colour 3) all carry text.
        for (const int k : {2, m_scheme.ButtonColourIndex, 3})
            EXPECT_GE(contrastRatio(m_scheme.SchemeColours[k], text), 4.5) << k;
    }
    EXPECT_TRUE(m_notifier.messages().isEmpty());
}

} // namespace
