// The colour-scheme table: loading, previewing, deriving, listing, and the rewrites of the
// collection, including every way a rewrite can fail without harming "all.col".
#include "appearance/colourscheme.h"

#include "support/recordingnotifier.h"
#include "support/testfolder.h"
#include "support/writefault.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

namespace {

const QString AllCol = QStringLiteral("all.col");
using Colours = std::array<quint32, 13>;

// A section: the header, then 13 colour lines (" r; g; b").
QStringList section(const QString& header, const Colours& colours) {
    QStringList lines{header};
    for (const quint32 c : colours)
        lines.append(QStringLiteral(" %1; %2; %3").arg(c & 0xFF).arg((c >> 8) & 0xFF).arg(c >> 16));
    return lines;
}

// A section whose colour k is RGB(k, 10 * k, 255 - k): every colour distinct.
quint32 numbered(int k) {
    return packRgb(quint32(k), quint32(10 * k), quint32(255 - k));
}
QStringList numberedSection(const QString& header) {
    Colours colours{};
    for (int k = 0; k < 13; ++k)
        colours[k] = numbered(k);
    return section(header, colours);
}

// Lines joined as the program writes them: CR LF after each.
QByteArray bytes(const QStringList& lines) {
    QByteArray out;
    for (const QString& line : lines)
        out += line.toUtf8() + "\r\n";
    return out;
}

class ColourSchemeTest : public ::testing::Test {
protected:
    ColourSchemeTest() { m_scheme.setNotifier(&m_notifier); }

    void writeCollection(const QStringList& lines) { m_folder.write(AllCol, bytes(lines)); }
    QByteArray collection() const { return m_folder.read(AllCol); }
    Colours stored() const {
        Colours colours{};
        std::copy_n(m_scheme.SchemeColours.begin(), 13, colours.begin());
        return colours;
    }

    TestFolder m_folder;
    Settings m_settings = Settings::forFolder(m_folder.path());
    RecordingNotifier m_notifier;
    ColourScheme m_scheme{m_settings};
};

TEST_F(ColourSchemeTest, LoadTakesTheFirstExactHeaderAndDerivesColours3And5FromTheValuesRead) {
    // Colour 3 is colour 2 + 32 (256 counts as 255, 257 and more become 254), colour 5 is
    // colour 4 - 32 (1 stays, below 1 becomes 8), from the values as read even above 255; their own
    // lines are unread.
    const struct {
        const char *colour2, *colour4;
        quint32 c2, c3, c4, c5;
    } rows[] = {
        {" 224; 225; 230", " 32; 40; 33", packRgb(224, 225, 230), packRgb(255, 254, 254),
         packRgb(32, 40, 33), packRgb(8, 8, 1)},
        {" 300; 0; 100", " 300; 0; 100", packRgb(255, 0, 100), packRgb(254, 32, 132),
         packRgb(255, 0, 100), packRgb(255, 8, 68)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.colour2);
        QStringList wanted = numberedSection(QStringLiteral("wanted.col"));
        wanted[3] = QString::fromLatin1(row.colour2);
        wanted[4] = QStringLiteral("no numbers here");
        wanted[5] = QString::fromLatin1(row.colour4);
        wanted[6] = QStringLiteral(" 1; 2");
        QStringList later = numberedSection(QStringLiteral("wanted.col"));
        later[1] = QStringLiteral(" 99; 99; 99");
        writeCollection(numberedSection(QStringLiteral("Wanted.col")) + wanted + later);

        ASSERT_TRUE(m_scheme.LoadColourScheme(QStringLiteral("wanted.col")));
        const auto& s = m_scheme.SchemeColours;
        EXPECT_EQ(std::tie(s[2], s[3], s[4], s[5]), std::tie(row.c2, row.c3, row.c4, row.c5));
        for (const int k : {0, 1, 6, 7, 8, 9, 10, 11, 12})
            EXPECT_EQ(s[k], numbered(k)) << k;
    }
    EXPECT_TRUE(m_notifier.messages().isEmpty());

    // The Options window's loader reads every line, so there the section is damaged.
    m_settings.ActiveSchemeFile = QStringLiteral("wanted.col");
    quint32 base = 42;
    EXPECT_FALSE(m_scheme.PreviewScheme(QStringLiteral("wanted.col"), base));
    EXPECT_EQ(base, 0u);
    EXPECT_EQ(m_settings.ActiveSchemeFile, QStringLiteral("default.col"));
    ASSERT_EQ(m_notifier.messages().size(), 1);
    const RecordedMessage& message = m_notifier.messages()[0];
    EXPECT_TRUE(message.standard);
    EXPECT_EQ(message.text, QStringLiteral("Color Scheme: wanted.col not found"));
    EXPECT_EQ(message.style, QStringLiteral("vbok"));
    EXPECT_EQ(message.title, QStringLiteral("Pentalink"));
}

TEST_F(ColourSchemeTest, LoadFailureShowsOneMessageFallsBackToXpAndKeepsColoursReadSoFar) {
    QStringList badColour7 = numberedSection(QStringLiteral("broken.col"));
    badColour7[8] = QStringLiteral(" 5; 6"); // two numbers
    const struct {
        const char* what;
        QStringList lines;
        int firstKept; // the first colour the failed load leaves as it was
    } rows[] = {
        {"colour 7 has two numbers", badColour7, 7},
        {"six colour lines", numberedSection(QStringLiteral("broken.col")).mid(0, 7), 6},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        writeCollection(row.lines);
        m_notifier.clear();
        m_scheme.SchemeColours.fill(packRgb(1, 2, 3));
        m_settings.ActiveSchemeFile = QStringLiteral("broken.col");
        EXPECT_FALSE(m_scheme.LoadColourScheme(QStringLiteral("broken.col")));
        ASSERT_EQ(m_notifier.messages().size(), 1);
        EXPECT_EQ(m_notifier.messages()[0].text,
                  QStringLiteral("Colour Scheme: broken.col not found"));
        EXPECT_EQ(m_notifier.messages()[0].style, QStringLiteral("vbok+vbcritical"));
        EXPECT_FALSE(m_notifier.messages()[0].standard);
        EXPECT_EQ(m_settings.ActiveSchemeFile, QStringLiteral("xp.col"));
        EXPECT_EQ(m_scheme.SchemeColours[4], numbered(4)); // read before the failure
        EXPECT_EQ(m_scheme.SchemeColours[row.firstKept], packRgb(1, 2, 3));

        // The Options window's loader keeps what it stored before the failure too.
        m_scheme.SchemeColours.fill(packRgb(1, 2, 3));
        quint32 base = 0;
        EXPECT_FALSE(m_scheme.PreviewScheme(QStringLiteral("broken.col"), base));
        EXPECT_EQ(m_scheme.SchemeColours[row.firstKept - 1], numbered(row.firstKept - 1));
        EXPECT_EQ(m_scheme.SchemeColours[row.firstKept], packRgb(1, 2, 3));
    }
}

TEST_F(ColourSchemeTest, LoadFailsForAMissingOrDamagedCollection) {
    EXPECT_FALSE(m_scheme.LoadColourScheme(QStringLiteral("s.col")));
    EXPECT_EQ(m_notifier.messages().size(), 1);
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
        {"huge file", bytes(good) + QByteArray(SchemeFile::MaxBytes, 'x')},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        m_notifier.clear();
        m_folder.write(AllCol, c.content);
        EXPECT_FALSE(m_scheme.LoadColourScheme(QStringLiteral("s.col")));
        EXPECT_EQ(m_notifier.messages().size(), 1);
    }
}

TEST_F(ColourSchemeTest, PreviewOfDefaultReadsNoFileAndUsesTheSystemBackground) {
    m_scheme.SchemeColours.fill(packRgb(9, 9, 9));
    for (const char* name : {"default.col", "DEFAULT.COL", "Default.Col"}) {
        quint32 base = 0;
        EXPECT_TRUE(m_scheme.PreviewScheme(QString::fromLatin1(name), base));
        EXPECT_EQ(base, ColourScheme::SystemWindowBackground);
        const auto& s = m_scheme.SchemeColours;
        EXPECT_EQ(std::tie(s[2], s[3], s[4], s[5]),
                  std::make_tuple(0x80000005u, 0u, 0x80000005u, packRgb(9, 9, 9)))
            << name;
    }
    EXPECT_FALSE(QFile::exists(m_folder.file(AllCol)));
    EXPECT_TRUE(m_notifier.messages().isEmpty());
}

TEST_F(ColourSchemeTest, DeriveAtFullContrastShiftsAndHoldsComponents) {
    ASSERT_TRUE(m_scheme.DeriveScheme(packRgb(10, 128, 250), 100));
    const Colours expected = {packRgb(1, 1, 1),       packRgb(240, 240, 240), packRgb(10, 128, 250),
                              packRgb(1, 1, 122),     packRgb(1, 96, 218),    packRgb(1, 64, 186),
                              packRgb(138, 244, 244), packRgb(42, 160, 244),  packRgb(74, 192, 244),
                              packRgb(128, 0, 0),     packRgb(255, 0, 0),     packRgb(0, 128, 0),
                              packRgb(0, 255, 0)};
    EXPECT_EQ(stored(), expected);
}

TEST_F(ColourSchemeTest, DeriveScalesTheShiftsWithTheContrastRoundingHalfToEven) {
    const struct {
        int grey, contrast, k, expected;
    } rows[] = {
        {128, 50, 3, 64},    {128, 50, 4, 112},
        {128, 50, 8, 160},   {128, 5, 4, 126},    // 0.05 x -32 = -1.6 rounds to -2
        {128, 1, 4, 128},                         // 0.01 x -32 = -0.32 rounds to 0
        {120, -100, 3, 244}, {120, -100, 5, 184}, // a negative contrast lightens 3..5,
        {120, -100, 6, 1},   {120, -100, 7, 88},  // darkens 6..8, and holds to 1..244
    };
    for (const auto& row : rows) {
        const quint32 grey = packRgb(row.grey, row.grey, row.grey);
        ASSERT_TRUE(m_scheme.DeriveScheme(grey, row.contrast));
        EXPECT_EQ(m_scheme.SchemeColours[row.k], packRgb(row.expected, row.expected, row.expected))
            << row.contrast << " " << row.k;
    }
    m_scheme.SchemeColours.fill(packRgb(3, 3, 3));
    const Colours before = stored();
    EXPECT_FALSE(m_scheme.DeriveScheme(0x80000005u, 100)); // a system colour changes nothing
    EXPECT_EQ(stored(), before);
}

TEST_F(ColourSchemeTest, ListNamesEveryLineHoldingDotColInFileOrder) {
    EXPECT_FALSE(m_scheme.ListSchemeNames().has_value()); // no collection: nothing to list
    writeCollection({QStringLiteral("no headers at all")});
    EXPECT_EQ(m_scheme.ListSchemeNames(), QStringList()); // read, but no section
    writeCollection(numberedSection(QStringLiteral("zeta.col")) +
                    numberedSection(QStringLiteral("Alpha.col")) +
                    numberedSection(QStringLiteral("mid.col old")) +
                    numberedSection(QStringLiteral("LOUD.COL")) +
                    QStringList{QStringLiteral("a note about x.color")});
    const QStringList names = m_scheme.ListSchemeNames().value_or(QStringList());
    EXPECT_EQ(names, (QStringList{QStringLiteral("zeta"), QStringLiteral("Alpha"),
                                  QStringLiteral("mid"), QStringLiteral("a note about x")}));
    // A header with text after ".col" is listed but cannot be found by that name.
    EXPECT_FALSE(m_scheme.LoadColourScheme(names.value(2) + QStringLiteral(".col")));
}

TEST_F(ColourSchemeTest, AppendCreatesTheCollectionEndsItsLastLineAndRoundTrips) {
    m_scheme.DeriveScheme(packRgb(1, 2, 3), 100);
    ASSERT_EQ(m_scheme.AppendScheme(QStringLiteral("first")),
              SchemeEdit::Done); // creates the missing file
    EXPECT_EQ(collection(), bytes(section(QStringLiteral("first.col"), stored())));

    const QByteArray before = collection().chopped(2); // an unfinished last line
    m_folder.write(AllCol, before);
    ASSERT_TRUE(m_scheme.DeriveScheme(packRgb(200, 180, 160), 80));
    const Colours derived = stored();
    ASSERT_EQ(m_scheme.AppendScheme(QStringLiteral("Warm Sand")), SchemeEdit::Done);
    EXPECT_EQ(collection(),
              before + "\r\n" + bytes(section(QStringLiteral("warm sand.col"), derived)));
    EXPECT_EQ(m_scheme.ListSchemeNames(),
              (QStringList{QStringLiteral("first"), QStringLiteral("warm sand")}));

    // The preview reads colours 3 and 5 as stored, not derived again.
    m_scheme.SchemeColours.fill(0);
    quint32 base = 0;
    ASSERT_TRUE(m_scheme.PreviewScheme(QStringLiteral("warm sand.col"), base));
    EXPECT_EQ(stored(), derived);
    EXPECT_EQ(base, packRgb(200, 180, 160));
}

TEST_F(ColourSchemeTest, ReplaceAndDeleteTreatEverySectionWithThatHeaderAndKeepTheRest) {
    const QStringList xp = numberedSection(QStringLiteral("xp.col"));
    const QStringList old = section(QStringLiteral("sea.col"), {});
    const QStringList note{QStringLiteral("# a line that is no colour")};
    const QStringList capital = numberedSection(QStringLiteral("Capital.col"));
    writeCollection(old + xp + note + old + capital);

    m_scheme.DeriveScheme(packRgb(90, 160, 220), 100);
    ASSERT_EQ(m_scheme.ReplaceScheme(QStringLiteral("Sea")), SchemeEdit::Done);
    const QStringList fresh = section(QStringLiteral("sea.col"), stored());
    EXPECT_EQ(collection(), bytes(fresh + xp + note + fresh + capital));
    // The scratch copy stays, holding the same collection.
    EXPECT_EQ(m_folder.read(QStringLiteral("newall.cox")), collection());

    ASSERT_EQ(m_scheme.DeleteScheme(QStringLiteral("SEA")), SchemeEdit::Done);
    EXPECT_EQ(collection(), bytes(xp + note + capital));

    // Absent names are not found and write nothing; "Capital" is searched as "capital.col",
    // which the capitalised header does not equal.
    QFile::remove(m_scheme.scratchPath());
    EXPECT_EQ(m_scheme.ReplaceScheme(QStringLiteral("Capital")), SchemeEdit::NotFound);
    EXPECT_EQ(m_scheme.DeleteScheme(QStringLiteral("nothing")), SchemeEdit::NotFound);
    EXPECT_EQ(collection(), bytes(xp + note + capital));
    EXPECT_FALSE(QFile::exists(m_scheme.scratchPath()));
}

TEST_F(ColourSchemeTest, RewritesNormaliseLineEndsAndEncodingButKeepEveryLine) {
    const QByteArray xp = bytes(numberedSection(QStringLiteral("xp.col")));
    // "cafe notes" with a Windows-1252 e-acute, then LF line ends.
    m_folder.write(AllCol, QByteArray::fromHex("636166e9206e6f7465730a") +
                               QByteArray(xp).replace("\r\n", "\n"));
    ASSERT_EQ(m_scheme.DeleteScheme(QStringLiteral("xp")), SchemeEdit::Done);
    EXPECT_EQ(collection(), QByteArray::fromHex("636166c3a9206e6f7465730d0a"));
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
    EXPECT_EQ(m_scheme.AppendScheme(QStringLiteral("new")), SchemeEdit::Failed);
    EXPECT_EQ(m_scheme.ReplaceScheme(QStringLiteral("sea")), SchemeEdit::Failed);
    expectUnchanged();
    EXPECT_FALSE(QFile::exists(m_scheme.scratchPath()));
    // A name with no section takes no colours: it is not found, and nothing is written.
    EXPECT_EQ(m_scheme.ReplaceScheme(QStringLiteral("nosuch")), SchemeEdit::NotFound);
    expectUnchanged();
    EXPECT_EQ(m_scheme.DeleteScheme(QStringLiteral("sea")),
              SchemeEdit::Done); // deleting needs no colours
}

TEST_F(SchemeFailureTest, ANameWithALineBreakIsNoHeaderAndIsNotAppended) {
    // Found by fuzz_schemes: the header split into two lines and shifted the colours.
    for (const char* name : {" 233; 216\r\n 254", "a\nb", "c\r"}) {
        EXPECT_EQ(m_scheme.AppendScheme(QString::fromLatin1(name)), SchemeEdit::Failed) << name;
        expectUnchanged();
    }
}

TEST_F(SchemeFailureTest, AMatchingSectionCutShortStopsReplaceAndDelete) {
    QByteArray cut = m_before + bytes(numberedSection(QStringLiteral("short.col")).mid(0, 13));
    m_folder.write(AllCol, cut);
    EXPECT_EQ(m_scheme.ReplaceScheme(QStringLiteral("short")), SchemeEdit::Failed);
    EXPECT_EQ(m_scheme.DeleteScheme(QStringLiteral("short")), SchemeEdit::Failed);
    EXPECT_EQ(collection(), cut);
    // Other names still rewrite: the short section is carried through as plain lines.
    EXPECT_EQ(m_scheme.DeleteScheme(QStringLiteral("sea")), SchemeEdit::Done);
}

TEST_F(SchemeFailureTest, AFailedFinalWriteLeavesAllColAsItWas) {
    QStringList written;
    m_scheme.setWriter([&](const QString& path, const QByteArray& content) {
        written.append(QFileInfo(path).fileName());
        // The scratch copy goes through; the collection itself fails.
        return path.endsWith(QStringLiteral("newall.cox")) &&
               SchemeFile::writeAtomically(path, content);
    });
    EXPECT_EQ(m_scheme.ReplaceScheme(QStringLiteral("sea")), SchemeEdit::Failed);
    EXPECT_EQ(m_scheme.DeleteScheme(QStringLiteral("sea")), SchemeEdit::Failed);
    EXPECT_EQ(m_scheme.AppendScheme(QStringLiteral("new")), SchemeEdit::Failed);
    expectUnchanged();
    EXPECT_EQ(written, (QStringList{QStringLiteral("newall.cox"), AllCol,
                                    QStringLiteral("newall.cox"), AllCol, AllCol}));
}

TEST_F(SchemeFailureTest, ARewriteNeverLeavesACollectionTheReaderRefuses) {
    // Comment lines fill each collection to 60 bytes under the reader's limit: room for
    // neither another section nor a CR before every LF, but for a section of shorter lines.
    const auto filled = [](QByteArray bytes, const QByteArray& lineEnd) {
        const qsizetype size = SchemeFile::MaxBytes - 60;
        while (bytes.size() + 200 + lineEnd.size() < size)
            bytes += QByteArray(200, '#') + lineEnd;
        return bytes + QByteArray(size - bytes.size() - lineEnd.size(), '#') + lineEnd;
    };
    const QByteArray lf = filled(QByteArray(m_before).replace("\r\n", "\n"), "\n");
    const QByteArray crlf = filled(m_before, "\r\n");
    const struct {
        const char* what;
        QByteArray content;
        bool append, replace, remove;
    } rows[] = {
        {"LF line ends that CR LF would push past the limit", lf, false, false, false},
        {"a section appended past the limit", crlf, false, true, true}, // replaced: 8 bytes less
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const std::pair<std::function<bool()>, bool> operations[] = {
            {[&] { return m_scheme.AppendScheme(QStringLiteral("new")) == SchemeEdit::Done; },
             row.append},
            {[&] { return m_scheme.ReplaceScheme(QStringLiteral("sea")) == SchemeEdit::Done; },
             row.replace},
            {[&] { return m_scheme.DeleteScheme(QStringLiteral("sea")) == SchemeEdit::Done; },
             row.remove},
        };
        for (const auto& [operation, succeeds] : operations) {
            m_folder.write(AllCol, row.content);
            EXPECT_EQ(operation(), succeeds);
            if (!succeeds) {
                EXPECT_EQ(collection(), row.content);
            }
            EXPECT_TRUE(SchemeFile::readLines(m_folder.file(AllCol)).has_value());
        }
    }
}

TEST_F(SchemeFailureTest, AnUnusableCollectionOrFolderIsRefusedUntouched) {
    // (A disk that refuses the write is SchemeWriteFault's, below: permissions do not stop
    // root, which runs CI.)
    const QString all = m_folder.file(AllCol);
    const auto state = [&]() -> QByteArray {
        const QFileInfo info(all);
        return info.isDir() ? "folder" : info.exists() ? collection() : "missing";
    };
    const struct {
        const char* what;
        std::function<void()> damage;
        bool appendFails; // Append creates a missing file and writes no scratch copy
    } rows[] = {
        {"missing", [&] { QFile::remove(all); }, false},
        {"a folder",
         [&] {
             QFile::remove(all);
             QDir().mkdir(all);
         },
         true},
        {"oversized",
         [&] { m_folder.write(AllCol, m_before + QByteArray(SchemeFile::MaxBytes, '#')); }, true},
        {"scratch copy a folder", [&] { QDir().mkdir(m_scheme.scratchPath()); }, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        QDir(all).removeRecursively();
        QFile::remove(all);
        m_folder.write(AllCol, m_before);
        row.damage();
        const QByteArray before = state();
        if (row.appendFails) {
            EXPECT_EQ(m_scheme.AppendScheme(QStringLiteral("new")), SchemeEdit::Failed);
        }
        EXPECT_EQ(m_scheme.ReplaceScheme(QStringLiteral("sea")), SchemeEdit::Failed);
        EXPECT_EQ(m_scheme.DeleteScheme(QStringLiteral("sea")), SchemeEdit::Failed);
        EXPECT_EQ(state(), before);
    }
}

// Two running copies of the game adding schemes at the same moment: each edit reads and
// rewrites the whole file, so without the lock one copy's schemes would be lost.
TEST(SchemeLock, TwoProcessesAddingAtOnceKeepEveryScheme) {
    const TestFolder folder;
    constexpr int PerProcess = 25;
    pid_t children[2] = {};
    for (pid_t& child : children) {
        child = fork();
        if (child == 0) {
            Settings settings = Settings::forFolder(folder.path());
            ColourScheme scheme(settings);
            bool added = true;
            for (int n = 0; n < PerProcess; ++n)
                added &= scheme.AppendScheme(QStringLiteral("%1-%2").arg(getpid()).arg(n)) ==
                         SchemeEdit::Done;
            _exit(added ? 0 : 1);
        }
    }
    for (const pid_t child : children) {
        int status = -1;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    }
    Settings settings = Settings::forFolder(folder.path());
    EXPECT_EQ(ColourScheme(settings).ListSchemeNames().value_or(QStringList()).size(),
              2 * PerProcess);
}

// Append, Replace and Delete when the disk refuses the write: each reports failure and
// every file of the folder stays byte for byte as it was.
class SchemeWriteFault : public testing::TestWithParam<WriteFault> {};

TEST_P(SchemeWriteFault, EveryRewriteFailsAndKeepsTheCollection) {
    const QByteArray collection = bytes(numberedSection(QStringLiteral("xp.col")) +
                                        numberedSection(QStringLiteral("sea.col")));
    // Append writes the collection itself; Replace and Delete fail at the scratch copy first.
    const std::pair<const char*, std::function<bool(ColourScheme&)>> operations[] = {
        {"append",
         [](ColourScheme& s) { return s.AppendScheme(QStringLiteral("new")) == SchemeEdit::Done; }},
        {"replace",
         [](ColourScheme& s) {
             return s.ReplaceScheme(QStringLiteral("sea")) == SchemeEdit::Done;
         }},
        {"delete",
         [](ColourScheme& s) { return s.DeleteScheme(QStringLiteral("sea")) == SchemeEdit::Done; }},
    };
    for (const auto& [what, operation] : operations) {
        SCOPED_TRACE(what);
        const bool append = std::string_view(what) == "append";
        const WriteFaultOutcome outcome = runWithWriteFault(
            GetParam(),
            {[&](const QString& folder) { writeFaultFile(folder + AllCol, collection); },
             [&](const QString& folder, const QString& target, Notifier& notifier) {
                 Settings settings = Settings::forFolder(target);
                 if (!append)
                     settings.SchemeCollectionPath = folder + AllCol;
                 ColourScheme scheme(settings);
                 scheme.setNotifier(&notifier);
                 scheme.DeriveScheme(packRgb(50, 60, 70), 100);
                 return QString::number(operation(scheme));
             },
             100});
        if (outcome.skipped)
            GTEST_SKIP() << outcome.skipReason.toStdString();
        EXPECT_TRUE(outcome.finished) << outcome.result.toStdString();
        EXPECT_EQ(outcome.result, QStringLiteral("0"));
        EXPECT_EQ(outcome.messages, QStringList());
        EXPECT_EQ(outcome.changed, QStringList());
        EXPECT_EQ(outcome.added, QStringList());
    }
}

INSTANTIATE_TEST_SUITE_P(Faults, SchemeWriteFault, testing::ValuesIn(kWriteFaults),
                         [](const auto& info) { return writeFaultName(info.param); });

} // namespace
