// Colour schemes: reading colour lines, the loaders' derived colours and failure paths,
// deriving a scheme, the collection rewrites (round trips, failures leave "all.col" byte for
// byte), and the shipped collection's readability.
#include "appearance/colourscheme.h"

#include "support/recordingnotifier.h"
#include "support/testfolder.h"

#include <QFile>

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr quint32 rgb(int r, int g, int b) {
    return quint32(r) + 256u * g + 65536u * b;
}

// A section: header and 13 colour lines, colour k = (k, 2k, 3k) unless overridden.
QByteArray section(const QByteArray& header, QList<QByteArray> overrides = {}) {
    QByteArray text = header + "\r\n";
    for (int k = 0; k <= 12; ++k) {
        const QByteArray line = k < overrides.size() && !overrides[k].isEmpty()
                                    ? overrides[k]
                                    : QByteArray::number(k) + "; " + QByteArray::number(2 * k) +
                                          "; " + QByteArray::number(3 * k);
        text += line + "\r\n";
    }
    return text;
}

class SchemeTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_settings = Settings::forFolder(m_folder.path());
        m_scheme.setNotifier(&m_notifier);
    }
    TestFolder m_folder;
    Settings m_settings;
    ColourScheme m_scheme{m_settings};
    RecordingNotifier m_notifier;
};

TEST(ColourLine, LeadingNumbersRoundedClampedOrRefused) {
    struct Row {
        const char* line;
        bool ok;
        quint32 colour;
    } rows[] = {
        {" 0; 128; 255", true, rgb(0, 128, 255)},
        {"1;2;3;4", true, rgb(1, 2, 3)},
        {"2.5; 3.5; 300", true, rgb(2, 4, 255)},
        {"x; 7abc; 9", true, rgb(0, 7, 9)},
        {"1;2", false, 0},
        {"-1; 0; 0", false, 0},
        {"32768; 0; 0", false, 0},
        {"32767; 0; 0", true, rgb(255, 0, 0)},
    };
    for (const Row& row : rows) {
        quint32 colour = 0;
        EXPECT_EQ(readColourLine(QString::fromLatin1(row.line), colour), row.ok) << row.line;
        if (row.ok) {
            EXPECT_EQ(colour, row.colour) << row.line;
        }
    }
}

TEST(ColourBytes, SplitAndOverflow) {
    EXPECT_EQ(RedByte(rgb(10, 20, 30)), 10);
    EXPECT_EQ(GreenByte(rgb(10, 20, 30)), 20);
    EXPECT_EQ(BlueByte(rgb(10, 20, 30)), 30);
    EXPECT_THROW(RedByte(0x80000005u), ColourOverflow);
    EXPECT_THROW(BlueByte(0x01000000u), ColourOverflow);
    EXPECT_EQ(colourLineText(rgb(0, 128, 255)), QStringLiteral(" 0; 128; 255"));
}

TEST_F(SchemeTest, LoadDerivesColoursThreeAndFive) {
    m_folder.write("all.col", section("a.col", {"", "", "224; 10; 230", "1", "20; 40; 33", "x"}));
    ASSERT_TRUE(m_scheme.LoadColourScheme(QStringLiteral("a.col")));
    EXPECT_EQ(m_scheme.SchemeColours[3], rgb(255, 42, 254)); // short line 5 never read
    EXPECT_EQ(m_scheme.SchemeColours[5], rgb(8, 8, 1));
    EXPECT_EQ(m_scheme.SchemeColours[12], rgb(12, 24, 36));
    EXPECT_TRUE(m_notifier.messages().isEmpty());

    quint32 base = 1;
    EXPECT_FALSE(m_scheme.PreviewScheme(QStringLiteral("a.col"), base)) << "preview reads line 5";
    EXPECT_EQ(base, 0u);
    EXPECT_EQ(m_settings.ActiveSchemeFile, QStringLiteral("default.col"));
    EXPECT_EQ(m_notifier.messages().last().text, QStringLiteral("Color Scheme: a.col not found"));
}

TEST_F(SchemeTest, LoadFailuresFallBackToXp) {
    m_settings.ActiveSchemeFile = QStringLiteral("gone.col");
    EXPECT_FALSE(m_scheme.LoadColourScheme(QStringLiteral("gone.col"))); // no file at all
    m_folder.write("all.col", section("a.col").left(60));                // cut short
    EXPECT_FALSE(m_scheme.LoadColourScheme(QStringLiteral("a.col")));
    ASSERT_EQ(m_notifier.messages().size(), 2);
    EXPECT_EQ(m_notifier.messages()[0].text, QStringLiteral("Colour Scheme: gone.col not found"));
    EXPECT_EQ(m_notifier.messages()[0].style, QStringLiteral("vbok+vbcritical"));
    EXPECT_EQ(m_settings.ActiveSchemeFile, QStringLiteral("xp.col"));
}

TEST_F(SchemeTest, PreviewOfDefaultReadsNoFile) {
    quint32 base = 0;
    EXPECT_TRUE(m_scheme.PreviewScheme(QStringLiteral("DEFAULT.col"), base));
    EXPECT_EQ(base, 0x80000005u);
    EXPECT_EQ(m_scheme.SchemeColours[4], 0x80000005u);
    EXPECT_EQ(m_scheme.SchemeColours[3], 0u);
}

TEST_F(SchemeTest, DeriveFromOneColour) {
    m_scheme.DeriveScheme(rgb(10, 128, 250), 100);
    EXPECT_EQ(m_scheme.SchemeColours[3], rgb(1, 1, 122));
    EXPECT_EQ(m_scheme.SchemeColours[6], rgb(138, 244, 244));
    EXPECT_EQ(m_scheme.SchemeColours[0], rgb(1, 1, 1));
    EXPECT_EQ(m_scheme.SchemeColours[10], rgb(255, 0, 0));
    m_scheme.DeriveScheme(rgb(100, 100, 100), 50);
    EXPECT_EQ(m_scheme.SchemeColours[3], rgb(36, 36, 36)); // d = -64
    EXPECT_EQ(m_scheme.SchemeColours[4], rgb(84, 84, 84)); // d = -16
}

TEST_F(SchemeTest, AppendReplaceDeleteRoundTrip) {
    m_folder.write("all.col", section("a.col") + "a note kept as it is\r\n" + section("b.col"));
    m_scheme.DeriveScheme(rgb(200, 210, 220), 100);
    ASSERT_TRUE(m_scheme.AppendScheme(QStringLiteral("Ocean")));
    EXPECT_EQ(m_scheme.ListSchemeNames(), (QStringList{"a", "b", "ocean"}));

    ColourScheme reader(m_settings);
    quint32 base = 0;
    ASSERT_TRUE(reader.PreviewScheme(QStringLiteral("ocean.col"), base));
    EXPECT_EQ(base, rgb(200, 210, 220));
    EXPECT_EQ(reader.SchemeColours, m_scheme.SchemeColours);

    m_scheme.DeriveScheme(rgb(1, 2, 3), 100);
    ASSERT_TRUE(m_scheme.ReplaceScheme(QStringLiteral("A")));
    ASSERT_TRUE(reader.PreviewScheme(QStringLiteral("a.col"), base));
    EXPECT_EQ(base, rgb(1, 2, 3));
    EXPECT_TRUE(QFile::exists(m_folder.file("newall.cox")));
    EXPECT_TRUE(m_folder.read("all.col").contains("a note kept as it is\r\n"));

    ASSERT_TRUE(m_scheme.DeleteScheme(QStringLiteral("b")));
    EXPECT_EQ(m_scheme.ListSchemeNames(), (QStringList{"a", "ocean"}));
    const QByteArray before = m_folder.read("all.col");
    ASSERT_TRUE(m_scheme.DeleteScheme(QStringLiteral("nothing"))) << "no section: unchanged";
    EXPECT_EQ(m_folder.read("all.col"), before);
}

TEST_F(SchemeTest, FailedRewritesLeaveTheCollectionByteForByte) {
    const QByteArray original = section("a.col") + section("b.col").left(40);
    m_folder.write("all.col", original);
    m_scheme.DeriveScheme(rgb(1, 2, 3), 100);
    EXPECT_FALSE(m_scheme.DeleteScheme(QStringLiteral("b"))) << "a section cut short";
    EXPECT_FALSE(m_scheme.ReplaceScheme(QStringLiteral("b")));
    m_scheme.SchemeColours[7] = 0x8000000Fu; // a system colour cannot be written
    EXPECT_FALSE(m_scheme.AppendScheme(QStringLiteral("c")));
    EXPECT_FALSE(m_scheme.ReplaceScheme(QStringLiteral("a")));
    EXPECT_EQ(m_folder.read("all.col"), original);

    m_scheme.DeriveScheme(rgb(1, 2, 3), 100);
    m_settings.SchemeCollectionPath = m_folder.file("missing/all.col"); // cannot be written
    EXPECT_FALSE(m_scheme.AppendScheme(QStringLiteral("c")));
    EXPECT_FALSE(m_scheme.ReplaceScheme(QStringLiteral("a")));
    EXPECT_TRUE(m_scheme.ListSchemeNames().isEmpty());
}

// WCAG relative luminance of a packed colour.
double luminance(quint32 c) {
    const auto channel = [](int v) {
        const double s = v / 255.0;
        return s <= 0.03928 ? s / 12.92 : std::pow((s + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * channel(RedByte(c)) + 0.7152 * channel(GreenByte(c)) +
           0.0722 * channel(BlueByte(c));
}

TEST_F(SchemeTest, ShippedSchemesKeepTheTextReadable) {
    m_folder.copyShipped(QStringLiteral("all.col"));
    const QStringList names = m_scheme.ListSchemeNames();
    EXPECT_GE(names.size(), 8);
    EXPECT_TRUE(names.contains(QStringLiteral("xp")));
    const double text = luminance(rgb(28, 28, 28));
    for (const QString& name : names) {
        ASSERT_TRUE(m_scheme.LoadColourScheme(name + QStringLiteral(".col"))) << name.toStdString();
        for (int k : {2, 3, 4}) {
            const double ratio = (luminance(m_scheme.SchemeColours[k]) + 0.05) / (text + 0.05);
            EXPECT_GE(ratio, 4.5) << name.toStdString() << " colour " << k;
        }
    }
}

} // namespace
