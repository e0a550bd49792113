// The colour-scheme table: loading, previewing, deriving, listing, and the rewrites of the
// collection, including every way a rewrite can fail without harming "all.col".
#include "appearance/colourscheme.h"

#include "schemetext.h"
#include "support/recordingnotifier.h"
#include "support/testfolder.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <unistd.h>

namespace {

using SchemeText::bytes;
using SchemeText::numberedSection;
using SchemeText::section;

const QString AllCol = QStringLiteral("all.col");

class ColourSchemeTest : public ::testing::Test {
protected:
    ColourSchemeTest() { m_scheme.setNotifier(&m_notifier); }

    void writeCollection(const QStringList& lines) { m_folder.write(AllCol, bytes(lines)); }
    QByteArray collection() const { return m_folder.read(AllCol); }

    // Colours 0..12 of the table.
    std::array<quint32, 13> stored() const {
        std::array<quint32, 13> colours{};
        std::copy_n(m_scheme.SchemeColours.begin(), 13, colours.begin());
        return colours;
    }

    TestFolder m_folder;
    Settings m_settings = Settings::forFolder(m_folder.path());
    RecordingNotifier m_notifier;
    ColourScheme m_scheme{m_settings};
};

// --- LoadColourScheme ---------------------------------------------------------------------

TEST_F(ColourSchemeTest, LoadReadsTheNamedSectionAndDerivesColours3And5) {
    QStringList lines = numberedSection(QStringLiteral("first.col"));
    QStringList wanted = numberedSection(QStringLiteral("wanted.col"));
    wanted[3] = QStringLiteral(" 224; 10; 230"); // colour 2
    wanted[5] = QStringLiteral(" 20; 40; 33");   // colour 4
    writeCollection(lines + wanted);

    ASSERT_TRUE(m_scheme.LoadColourScheme(QStringLiteral("wanted.col")));
    EXPECT_EQ(m_scheme.SchemeColours[2], packRgb(224, 10, 230));
    // 224 + 32 = 256 counts as 255; 230 + 32 = 262 becomes 254.
    EXPECT_EQ(m_scheme.SchemeColours[3], packRgb(255, 42, 254));
    EXPECT_EQ(m_scheme.SchemeColours[4], packRgb(20, 40, 33));
    // 20 - 32 and 40 - 32 = 8 fall below 1 or stay; 33 - 32 = 1.
    EXPECT_EQ(m_scheme.SchemeColours[5], packRgb(8, 8, 1));
    for (const int k : {0, 1, 6, 7, 8, 9, 10, 11, 12})
        EXPECT_EQ(m_scheme.SchemeColours[k], packRgb(k, 10 * k, 255 - k)) << k;
    EXPECT_TRUE(m_notifier.messages().isEmpty());
}

TEST_F(ColourSchemeTest, LoadDerivesFromTheValuesAsReadEvenAbove255) {
    QStringList lines = numberedSection(QStringLiteral("big.col"));
    lines[3] = QStringLiteral(" 300; 0; 100"); // colour 2: 300 counts as 255
    lines[5] = QStringLiteral(" 300; 0; 100"); // colour 4
    writeCollection(lines);
    ASSERT_TRUE(m_scheme.LoadColourScheme(QStringLiteral("big.col")));
    EXPECT_EQ(m_scheme.SchemeColours[2], packRgb(255, 0, 100));
    EXPECT_EQ(m_scheme.SchemeColours[3], packRgb(254, 32, 132));
    // 300 - 32 = 268, still above 255; 0 - 32 becomes 8.
    EXPECT_EQ(m_scheme.SchemeColours[5], packRgb(255, 8, 68));
}

TEST_F(ColourSchemeTest, LoadNeverReadsTheLinesOfColours3And5ButPreviewDoes) {
    QStringList lines = numberedSection(QStringLiteral("odd.col"));
    lines[4] = QStringLiteral("no numbers here"); // colour 3
    lines[6] = QStringLiteral(" 1; 2");           // colour 5
    writeCollection(lines);

    EXPECT_TRUE(m_scheme.LoadColourScheme(QStringLiteral("odd.col")));
    EXPECT_TRUE(m_notifier.messages().isEmpty());

    quint32 base = 99;
    EXPECT_FALSE(m_scheme.PreviewScheme(QStringLiteral("odd.col"), base));
    EXPECT_EQ(base, 0u);
}

TEST_F(ColourSchemeTest, LoadTakesTheFirstSectionWithThatExactHeader) {
    QStringList second = numberedSection(QStringLiteral("twice.col"));
    second[1] = QStringLiteral(" 99; 99; 99");
    writeCollection(numberedSection(QStringLiteral("Twice.col")) +
                    numberedSection(QStringLiteral("twice.col")) + second);
    ASSERT_TRUE(m_scheme.LoadColourScheme(QStringLiteral("twice.col")));
    EXPECT_EQ(m_scheme.SchemeColours[0], packRgb(0, 0, 255));
}

TEST_F(ColourSchemeTest, LoadFailureShowsOneMessageFallsBackToXpAndKeepsColoursReadSoFar) {
    QStringList lines = numberedSection(QStringLiteral("broken.col"));
    lines[8] = QStringLiteral(" 5; 6"); // colour 7 has two numbers
    writeCollection(lines);
    m_scheme.SchemeColours.fill(packRgb(1, 2, 3));
    m_settings.ActiveSchemeFile = QStringLiteral("broken.col");

    EXPECT_FALSE(m_scheme.LoadColourScheme(QStringLiteral("broken.col")));
    ASSERT_EQ(m_notifier.messages().size(), 1);
    EXPECT_EQ(m_notifier.messages()[0].text, QStringLiteral("Colour Scheme: broken.col not found"));
    EXPECT_EQ(m_notifier.messages()[0].style, QStringLiteral("vbok+vbcritical"));
    EXPECT_FALSE(m_notifier.messages()[0].standard);
    EXPECT_EQ(m_settings.ActiveSchemeFile, QStringLiteral("xp.col"));
    EXPECT_EQ(m_scheme.SchemeColours[6], packRgb(6, 60, 249)); // read before the bad line
    EXPECT_EQ(m_scheme.SchemeColours[7], packRgb(1, 2, 3));    // untouched from here on
}

TEST_F(ColourSchemeTest, LoadFailsForEveryDamagedCollection) {
    const QStringList good = numberedSection(QStringLiteral("s.col"));
    const struct {
        const char* what;
        QByteArray content;
    } cases[] = {
        {"no such section", bytes(numberedSection(QStringLiteral("other.col")))},
        {"header in other case", bytes(numberedSection(QStringLiteral("S.col")))},
        {"section cut short", bytes(good.mid(0, 10))},
        {"negative number", bytes(QStringList(good).replaceInStrings(QStringLiteral(" 0; 0; 255"),
                                                                     QStringLiteral("-1; 0; 0")))},
        {"binary junk", QByteArray::fromHex("00fffe20732e636f6c00")},
        {"empty file", QByteArray()},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        m_notifier.clear();
        m_folder.write(AllCol, c.content);
        EXPECT_FALSE(m_scheme.LoadColourScheme(QStringLiteral("s.col")));
        EXPECT_EQ(m_notifier.messages().size(), 1);
    }
}

TEST_F(ColourSchemeTest, LoadWithoutACollectionFileFails) {
    EXPECT_FALSE(m_scheme.LoadColourScheme(QStringLiteral("xp.col")));
    ASSERT_EQ(m_notifier.messages().size(), 1);
    EXPECT_EQ(m_settings.ActiveSchemeFile, QStringLiteral("xp.col"));
}

TEST_F(ColourSchemeTest, LoadRefusesAHugeCollection) {
    QByteArray huge = bytes(numberedSection(QStringLiteral("xp.col")));
    huge += QByteArray(SchemeFile::MaxBytes, 'x');
    m_folder.write(AllCol, huge);
    EXPECT_FALSE(m_scheme.LoadColourScheme(QStringLiteral("xp.col")));
}

TEST_F(ColourSchemeTest, LoadReadsLfAndWindows1252Collections) {
    // The header's e-acute is the single Windows-1252 byte E9, so the file is not UTF-8.
    QByteArray colours = bytes(numberedSection(QStringLiteral("x")).mid(1));
    colours.replace("\r\n", "\n");
    m_folder.write(AllCol, QByteArray::fromHex("636166e92e636f6c0a") + colours);
    EXPECT_TRUE(m_scheme.LoadColourScheme(QStringLiteral("caf\u00e9.col")));
}

// --- PreviewScheme ------------------------------------------------------------------------

TEST_F(ColourSchemeTest, PreviewReadsTheSectionAsStoredAndGivesColour2) {
    writeCollection(numberedSection(QStringLiteral("p.col")));
    quint32 base = 0;
    ASSERT_TRUE(m_scheme.PreviewScheme(QStringLiteral("p.col"), base));
    for (int k = 0; k < 13; ++k)
        EXPECT_EQ(m_scheme.SchemeColours[k], packRgb(k, 10 * k, 255 - k)) << k;
    EXPECT_EQ(base, packRgb(2, 20, 253));
}

TEST_F(ColourSchemeTest, PreviewOfDefaultReadsNoFileAndUsesTheSystemBackground) {
    m_scheme.SchemeColours.fill(packRgb(9, 9, 9));
    for (const char* name : {"default.col", "DEFAULT.COL", "Default.Col"}) {
        SCOPED_TRACE(name);
        quint32 base = 0;
        EXPECT_TRUE(m_scheme.PreviewScheme(QString::fromLatin1(name), base));
        EXPECT_EQ(base, ColourScheme::SystemWindowBackground);
        EXPECT_EQ(m_scheme.SchemeColours[2], 0x80000005u);
        EXPECT_EQ(m_scheme.SchemeColours[4], 0x80000005u);
        EXPECT_EQ(m_scheme.SchemeColours[3], 0u);
        EXPECT_EQ(m_scheme.SchemeColours[5], packRgb(9, 9, 9));
    }
    EXPECT_FALSE(QFile::exists(m_folder.file(AllCol)));
    EXPECT_TRUE(m_notifier.messages().isEmpty());
}

TEST_F(ColourSchemeTest, PreviewFailureShowsAPlainBoxAndMakesDefaultActive) {
    writeCollection(numberedSection(QStringLiteral("p.col")));
    m_settings.ActiveSchemeFile = QStringLiteral("p.col");
    quint32 base = 42;
    EXPECT_FALSE(m_scheme.PreviewScheme(QStringLiteral(".col"), base));
    EXPECT_EQ(base, 0u);
    EXPECT_EQ(m_settings.ActiveSchemeFile, QStringLiteral("default.col"));
    ASSERT_EQ(m_notifier.messages().size(), 1);
    const RecordedMessage& message = m_notifier.messages()[0];
    EXPECT_TRUE(message.standard);
    EXPECT_EQ(message.text, QStringLiteral("Color Scheme: .col not found"));
    EXPECT_EQ(message.style, QStringLiteral("vbok"));
    EXPECT_EQ(message.title, QStringLiteral("Pentalink"));
}

// --- DeriveScheme -------------------------------------------------------------------------

TEST_F(ColourSchemeTest, DeriveAtFullContrastShiftsAndHoldsComponents) {
    ASSERT_TRUE(m_scheme.DeriveScheme(packRgb(10, 128, 250), 100));
    const std::array<quint32, 13> expected = {
        packRgb(1, 1, 1),       packRgb(240, 240, 240), packRgb(10, 128, 250),
        packRgb(1, 1, 122),     packRgb(1, 96, 218),    packRgb(1, 64, 186),
        packRgb(138, 244, 244), packRgb(42, 160, 244),  packRgb(74, 192, 244),
        packRgb(128, 0, 0),     packRgb(255, 0, 0),     packRgb(0, 128, 0),
        packRgb(0, 255, 0)};
    EXPECT_EQ(stored(), expected);
}

TEST_F(ColourSchemeTest, DeriveScalesTheShiftsWithTheContrast) {
    const quint32 grey = packRgb(128, 128, 128);
    ASSERT_TRUE(m_scheme.DeriveScheme(grey, 50));
    EXPECT_EQ(m_scheme.SchemeColours[3], packRgb(64, 64, 64));    // d = -64
    EXPECT_EQ(m_scheme.SchemeColours[4], packRgb(112, 112, 112)); // d = -16
    EXPECT_EQ(m_scheme.SchemeColours[8], packRgb(160, 160, 160)); // d = +32

    ASSERT_TRUE(m_scheme.DeriveScheme(grey, 5)); // 0.05 x -32 = -1.6 rounds to -2
    EXPECT_EQ(m_scheme.SchemeColours[4], packRgb(126, 126, 126));
    ASSERT_TRUE(m_scheme.DeriveScheme(grey, 1)); // 0.01 x -32 = -0.32 rounds to 0
    EXPECT_EQ(m_scheme.SchemeColours[4], grey);
}

TEST_F(ColourSchemeTest, NegativeContrastLightensColours3To5AndDarkens6To8) {
    const quint32 grey = packRgb(120, 120, 120);
    ASSERT_TRUE(m_scheme.DeriveScheme(grey, -100));
    for (const int k : {3, 4, 5})
        EXPECT_GT(RedByte(m_scheme.SchemeColours[k]), 120) << k;
    for (const int k : {6, 7, 8})
        EXPECT_LT(RedByte(m_scheme.SchemeColours[k]), 120) << k;
    EXPECT_EQ(m_scheme.SchemeColours[3], packRgb(244, 244, 244)); // 248 held to 244
}

TEST_F(ColourSchemeTest, DeriveFromASystemColourLeavesTheTableAlone) {
    m_scheme.SchemeColours.fill(packRgb(3, 3, 3));
    EXPECT_FALSE(m_scheme.DeriveScheme(0x80000005u, 100));
    EXPECT_EQ(m_scheme.SchemeColours[0], packRgb(3, 3, 3));
    EXPECT_EQ(m_scheme.SchemeColours[2], packRgb(3, 3, 3));
}

// --- ListSchemeNames ----------------------------------------------------------------------

TEST_F(ColourSchemeTest, ListNamesEveryLineHoldingDotColInFileOrder) {
    writeCollection(numberedSection(QStringLiteral("zeta.col")) +
                    numberedSection(QStringLiteral("Alpha.col")) +
                    numberedSection(QStringLiteral("mid.col old")) +
                    numberedSection(QStringLiteral("LOUD.COL")) +
                    QStringList{QStringLiteral("a note about x.color")});
    EXPECT_EQ(m_scheme.ListSchemeNames(),
              (QStringList{QStringLiteral("zeta"), QStringLiteral("Alpha"), QStringLiteral("mid"),
                           QStringLiteral("a note about x")}));
}

TEST_F(ColourSchemeTest, ListOfAMissingCollectionIsEmpty) {
    EXPECT_TRUE(m_scheme.ListSchemeNames().isEmpty());
}

TEST_F(ColourSchemeTest, AListedHeaderWithTextAfterDotColIsNotFoundByItsName) {
    writeCollection(numberedSection(QStringLiteral("mid.col old")));
    const QString listed = m_scheme.ListSchemeNames().value(0);
    EXPECT_FALSE(m_scheme.LoadColourScheme(listed + QStringLiteral(".col")));
}

// --- Append, Replace, Delete --------------------------------------------------------------

TEST_F(ColourSchemeTest, AppendedSchemeRoundTripsThroughTheFile) {
    writeCollection(numberedSection(QStringLiteral("xp.col")));
    const QByteArray before = collection();
    ASSERT_TRUE(m_scheme.DeriveScheme(packRgb(200, 180, 160), 80));
    const std::array<quint32, 13> derived = stored();

    ASSERT_TRUE(m_scheme.AppendScheme(QStringLiteral("Warm Sand")));
    const QByteArray after = collection();
    EXPECT_TRUE(after.startsWith(before));
    EXPECT_EQ(after.mid(before.size()), bytes(section(QStringLiteral("warm sand.col"), derived)));
    EXPECT_EQ(m_scheme.ListSchemeNames(),
              (QStringList{QStringLiteral("xp"), QStringLiteral("warm sand")}));

    m_scheme.SchemeColours.fill(0);
    quint32 base = 0;
    ASSERT_TRUE(m_scheme.PreviewScheme(QStringLiteral("warm sand.col"), base));
    EXPECT_EQ(stored(), derived);
    EXPECT_EQ(base, packRgb(200, 180, 160));
}

TEST_F(ColourSchemeTest, AppendCreatesAMissingCollection) {
    m_scheme.DeriveScheme(packRgb(1, 2, 3), 100);
    ASSERT_TRUE(m_scheme.AppendScheme(QStringLiteral("first")));
    EXPECT_EQ(collection(), bytes(section(QStringLiteral("first.col"), stored())));
}

TEST_F(ColourSchemeTest, AppendEndsAnUnfinishedLastLineFirst) {
    QByteArray content = bytes(numberedSection(QStringLiteral("xp.col")));
    content.chop(2);
    m_folder.write(AllCol, content);
    m_scheme.DeriveScheme(packRgb(1, 2, 3), 100);
    ASSERT_TRUE(m_scheme.AppendScheme(QStringLiteral("next")));
    EXPECT_EQ(m_scheme.ListSchemeNames(),
              (QStringList{QStringLiteral("xp"), QStringLiteral("next")}));
    EXPECT_TRUE(m_scheme.LoadColourScheme(QStringLiteral("xp.col")));
}

TEST_F(ColourSchemeTest, ReplaceRewritesEverySectionWithThatHeaderAndKeepsTheRest) {
    const QStringList xp = numberedSection(QStringLiteral("xp.col"));
    const QStringList old = section(QStringLiteral("sea.col"), {});
    const QStringList note{QStringLiteral("# a line that is no colour")};
    writeCollection(old + xp + note + old);

    m_scheme.DeriveScheme(packRgb(90, 160, 220), 100);
    ASSERT_TRUE(m_scheme.ReplaceScheme(QStringLiteral("Sea")));
    const QStringList fresh = section(QStringLiteral("sea.col"), stored());
    EXPECT_EQ(collection(), bytes(fresh + xp + note + fresh));
    // The scratch copy stays, holding the same collection.
    EXPECT_EQ(m_folder.read(QStringLiteral("newall.cox")), collection());
}

TEST_F(ColourSchemeTest, DeleteDropsEverySectionWithThatHeader) {
    const QStringList xp = numberedSection(QStringLiteral("xp.col"));
    const QStringList sea = numberedSection(QStringLiteral("sea.col"));
    writeCollection(sea + xp + sea);
    ASSERT_TRUE(m_scheme.DeleteScheme(QStringLiteral("SEA")));
    EXPECT_EQ(collection(), bytes(xp));
    EXPECT_EQ(m_scheme.ListSchemeNames(), QStringList{QStringLiteral("xp")});
}

TEST_F(ColourSchemeTest, ReplaceOrDeleteOfAnAbsentNameRewritesTheSameFileAndSucceeds) {
    writeCollection(numberedSection(QStringLiteral("xp.col")) +
                    numberedSection(QStringLiteral("Capital.col")));
    const QByteArray before = collection();
    EXPECT_TRUE(m_scheme.LoadColourScheme(QStringLiteral("Capital.col")));
    m_scheme.DeriveScheme(packRgb(1, 2, 3), 100);
    // "Capital" is searched as "capital.col", which the capitalised header does not equal.
    EXPECT_TRUE(m_scheme.ReplaceScheme(QStringLiteral("Capital")));
    EXPECT_EQ(collection(), before);
    EXPECT_TRUE(m_scheme.DeleteScheme(QStringLiteral("nothing")));
    EXPECT_EQ(collection(), before);
}

TEST_F(ColourSchemeTest, RewritesNormaliseLineEndsAndEncodingButKeepEveryLine) {
    const QByteArray xp = bytes(numberedSection(QStringLiteral("xp.col")));
    // "cafe notes" with a Windows-1252 e-acute, then LF line ends.
    m_folder.write(AllCol, QByteArray::fromHex("636166e9206e6f7465730a") +
                               QByteArray(xp).replace("\r\n", "\n"));
    ASSERT_TRUE(m_scheme.DeleteScheme(QStringLiteral("none")));
    EXPECT_EQ(collection(), QByteArray::fromHex("636166c3a9206e6f7465730d0a") + xp);
}

// --- Failures leave "all.col" byte for byte as it was ------------------------------------

class SchemeFailureTest : public ColourSchemeTest {
protected:
    void SetUp() override {
        writeCollection(numberedSection(QStringLiteral("xp.col")) +
                        numberedSection(QStringLiteral("sea.col")));
        m_before = collection();
        m_scheme.DeriveScheme(packRgb(50, 60, 70), 100);
    }
    void expectUnchanged() const { EXPECT_EQ(collection(), m_before); }

    QByteArray m_before;
};

TEST_F(SchemeFailureTest, ATableColourThatCannotBeSplitWritesNothing) {
    quint32 base = 0;
    m_scheme.PreviewScheme(QStringLiteral("default.col"), base); // colours 2 and 4 are system
    EXPECT_FALSE(m_scheme.AppendScheme(QStringLiteral("new")));
    expectUnchanged();
    EXPECT_FALSE(m_scheme.ReplaceScheme(QStringLiteral("sea")));
    expectUnchanged();
    EXPECT_FALSE(QFile::exists(m_scheme.scratchPath()));
    // Deleting needs no colours.
    EXPECT_TRUE(m_scheme.DeleteScheme(QStringLiteral("sea")));
}

TEST_F(SchemeFailureTest, AMatchingSectionCutShortStopsReplaceAndDelete) {
    QByteArray cut = m_before + bytes(numberedSection(QStringLiteral("short.col")).mid(0, 13));
    m_folder.write(AllCol, cut);
    EXPECT_FALSE(m_scheme.ReplaceScheme(QStringLiteral("short")));
    EXPECT_FALSE(m_scheme.DeleteScheme(QStringLiteral("short")));
    EXPECT_EQ(collection(), cut);
    // Other names still rewrite: the short section is carried through as plain lines.
    EXPECT_TRUE(m_scheme.DeleteScheme(QStringLiteral("sea")));
}

TEST_F(SchemeFailureTest, AMissingCollectionIsNotCreatedByReplaceOrDelete) {
    QFile::remove(m_folder.file(AllCol));
    EXPECT_FALSE(m_scheme.ReplaceScheme(QStringLiteral("sea")));
    EXPECT_FALSE(m_scheme.DeleteScheme(QStringLiteral("sea")));
    EXPECT_FALSE(QFile::exists(m_folder.file(AllCol)));
}

TEST_F(SchemeFailureTest, AScratchCopyThatCannotBeWrittenStopsBeforeAllCol) {
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("newall.cox")));
    EXPECT_FALSE(m_scheme.ReplaceScheme(QStringLiteral("sea")));
    EXPECT_FALSE(m_scheme.DeleteScheme(QStringLiteral("sea")));
    expectUnchanged();
}

TEST_F(SchemeFailureTest, AFailedFinalWriteLeavesAllColAsItWas) {
    QStringList written;
    m_scheme.setWriter([&](const QString& path, const QByteArray& content) {
        written.append(QFileInfo(path).fileName());
        // The scratch copy goes through; the collection itself fails.
        return path.endsWith(QStringLiteral("newall.cox")) &&
               SchemeFile::writeAtomically(path, content);
    });
    EXPECT_FALSE(m_scheme.ReplaceScheme(QStringLiteral("sea")));
    EXPECT_FALSE(m_scheme.DeleteScheme(QStringLiteral("sea")));
    EXPECT_FALSE(m_scheme.AppendScheme(QStringLiteral("new")));
    expectUnchanged();
    EXPECT_EQ(written, (QStringList{QStringLiteral("newall.cox"), AllCol,
                                    QStringLiteral("newall.cox"), AllCol, AllCol}));
}

TEST_F(SchemeFailureTest, AnOversizedCollectionIsRefusedUntouched) {
    QByteArray huge = m_before + QByteArray(SchemeFile::MaxBytes, '#');
    m_folder.write(AllCol, huge);
    EXPECT_FALSE(m_scheme.AppendScheme(QStringLiteral("new")));
    EXPECT_FALSE(m_scheme.ReplaceScheme(QStringLiteral("sea")));
    EXPECT_EQ(collection().size(), huge.size());
}

TEST_F(SchemeFailureTest, ACollectionThatIsAFolderIsRefused) {
    QFile::remove(m_folder.file(AllCol));
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(AllCol));
    EXPECT_FALSE(m_scheme.AppendScheme(QStringLiteral("new")));
    EXPECT_FALSE(m_scheme.ReplaceScheme(QStringLiteral("sea")));
    EXPECT_FALSE(m_scheme.DeleteScheme(QStringLiteral("sea")));
    EXPECT_TRUE(QFileInfo(m_folder.file(AllCol)).isDir());
}

TEST_F(SchemeFailureTest, AReadOnlyFolderOrFileIsRefusedUntouched) {
    if (geteuid() == 0)
        GTEST_SKIP() << "permissions do not stop root from writing";
    const QString file = m_folder.file(AllCol);
    QFile::setPermissions(file, QFileDevice::ReadOwner);
    EXPECT_FALSE(m_scheme.AppendScheme(QStringLiteral("new")));
    EXPECT_FALSE(m_scheme.ReplaceScheme(QStringLiteral("sea")));
    expectUnchanged();
    QFile::setPermissions(file, QFileDevice::ReadOwner | QFileDevice::WriteOwner);

    const QString folder = m_folder.path();
    QFile::setPermissions(folder, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
    EXPECT_FALSE(m_scheme.AppendScheme(QStringLiteral("new")));
    EXPECT_FALSE(m_scheme.DeleteScheme(QStringLiteral("sea")));
    QFile::setPermissions(folder,
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    expectUnchanged();
}

} // namespace
