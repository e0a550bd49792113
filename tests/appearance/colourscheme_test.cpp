// The colour-scheme table: loading, previewing, deriving, listing and rewriting "all.col".
#include "appearance/colourscheme.h"

#include "support/schemefixture.h"

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

const auto bytes = SchemeFile::toBytes;

class ColourSchemeTest : public SchemeTest {
protected:
    QByteArray collection() const { return m_folder.read(AllCol); }
    Colours stored() const {
        Colours colours{};
        std::copy_n(m_scheme.SchemeColours.begin(), 13, colours.begin());
        return colours;
    }
};

TEST_F(ColourSchemeTest, LoadTakesTheFirstExactHeaderDerivingColours3And5AndDefaultNeedsNoFile) {
    // Colour 3 = colour 2 + 32 (256 -> 255, above -> 254), 5 = 4 - 32 (below 1 -> 8), from
    // the values as read; their own lines are unread.
    const std::tuple<const char*, const char*, quint32, quint32, quint32, quint32> rows[] = {
        {" 224; 225; 230", " 32; 40; 33", packRgb(224, 225, 230), packRgb(255, 254, 254),
         packRgb(32, 40, 33), packRgb(8, 8, 1)},
        {" 300; 0; 100", " 300; 0; 100", packRgb(255, 0, 100), packRgb(254, 32, 132),
         packRgb(255, 0, 100), packRgb(255, 8, 68)},
    };
    for (const auto& [colour2, colour4, c2, c3, c4, c5] : rows) {
        SCOPED_TRACE(colour2);
        QStringList wanted = numberedSection(QStringLiteral("wanted.col"));
        wanted[3] = QString::fromLatin1(colour2);
        wanted[4] = QStringLiteral("no numbers here");
        wanted[5] = QString::fromLatin1(colour4);
        wanted[6] = QStringLiteral(" 1; 2");
        QStringList later = numberedSection(QStringLiteral("wanted.col"));
        later[1] = QStringLiteral(" 99; 99; 99");
        m_folder.writeLines(AllCol, numberedSection(QStringLiteral("Wanted.col")) + wanted + later);

        ASSERT_TRUE(m_scheme.LoadColourScheme(QStringLiteral("wanted.col")));
        const auto& s = m_scheme.SchemeColours;
        EXPECT_EQ(std::tie(s[2], s[3], s[4], s[5]), std::tie(c2, c3, c4, c5));
        for (const int k : {0, 1, 6, 7, 8, 9, 10, 11, 12})
            EXPECT_EQ(s[k], numbered(k)) << k;
    }
    EXPECT_TRUE(m_notifier.messages().isEmpty());
    // The Options window's loader reads every line, so there the section is damaged.
    quint32 base = 0;
    EXPECT_FALSE(m_scheme.PreviewScheme(QStringLiteral("wanted.col"), base));

    // "default.col" in any case reads no file and shows the desktop's window background.
    QFile::remove(m_folder.file(AllCol));
    m_notifier.clear();
    m_scheme.SchemeColours.fill(packRgb(9, 9, 9));
    EXPECT_TRUE(m_scheme.PreviewScheme(QStringLiteral("DEFAULT.COL"), base));
    EXPECT_EQ(base, ColourScheme::SystemWindowBackground);
    const auto& s = m_scheme.SchemeColours;
    EXPECT_EQ(std::tie(s[2], s[3], s[4], s[5]),
              std::make_tuple(0x80000005u, 0u, 0x80000005u, packRgb(9, 9, 9)));
    EXPECT_TRUE(m_notifier.messages().isEmpty());
}

TEST_F(ColourSchemeTest, ADamagedCollectionFailsBothLoadersWithOneMessageKeepingColoursReadSoFar) {
    const QStringList good = numberedSection(QStringLiteral("s.col"));
    QStringList badColour7 = good;
    badColour7[8] = QStringLiteral(" 5; 6"); // two numbers
    // What, the content (none: no file), and the first colour a failed load leaves as it was.
    const std::tuple<const char*, std::optional<QByteArray>, int> rows[] = {
        {"no collection", std::nullopt, 0},
        {"header in other case", bytes(numberedSection(QStringLiteral("S.col"))), 0},
        {"six colour lines", bytes(good.mid(0, 7)), 6},
        {"colour 7 has two numbers", bytes(badColour7), 7},
        {"negative number", bytes(QStringList(good).replaceInStrings(" 0; 0; 255", "-1; 0; 0")), 0},
        {"huge file", bytes(good) + QByteArray(SchemeFile::MaxBytes, 'x'), 0},
    };
    const quint32 filler = packRgb(1, 2, 3);
    for (const auto& [what, content, firstKept] : rows) {
        SCOPED_TRACE(what);
        QFile::remove(m_folder.file(AllCol));
        if (content)
            m_folder.write(AllCol, *content);
        m_notifier.clear();
        for (const bool preview : {false, true}) { // the main window's loader, then the Options'
            m_scheme.SchemeColours.fill(filler);
            m_settings.ActiveSchemeFile = QStringLiteral("s.col");
            quint32 base = 42;
            EXPECT_FALSE(preview ? m_scheme.PreviewScheme(QStringLiteral("s.col"), base)
                                 : m_scheme.LoadColourScheme(QStringLiteral("s.col")));
            EXPECT_EQ(
                std::tie(m_settings.ActiveSchemeFile, base),
                std::make_tuple(QString(preview ? "default.col" : "xp.col"), preview ? 0u : 42u));
            EXPECT_EQ(m_scheme.SchemeColours[firstKept], filler); // colours read before it stay
            EXPECT_EQ(m_scheme.SchemeColours[0], firstKept ? numbered(0) : filler);
        }
        QStringList shown; // text, style, title, and whether the platform's standard box
        for (const RecordedMessage& m : m_notifier.messages())
            shown << QStringList{m.text, m.style, m.title, m.standard ? "standard" : ""}.join('|');
        EXPECT_EQ(shown, (QStringList{"Colour Scheme: s.col not found|vbok+vbcritical||",
                                      "Color Scheme: s.col not found|vbok|Pentalink|standard"}));
    }
}

TEST_F(ColourSchemeTest, DerivedColoursShiftTheBaseByTheContrastRoundingHalfToEvenAndHolding) {
    m_scheme.SchemeColours.fill(0); // every colour is written, the fixed ones too
    ASSERT_TRUE(m_scheme.DeriveScheme(packRgb(10, 128, 250), 100));
    const Colours full = {packRgb(1, 1, 1),       packRgb(240, 240, 240), packRgb(10, 128, 250),
                          packRgb(1, 1, 122),     packRgb(1, 96, 218),    packRgb(1, 64, 186),
                          packRgb(138, 244, 244), packRgb(42, 160, 244),  packRgb(74, 192, 244),
                          packRgb(128, 0, 0),     packRgb(255, 0, 0),     packRgb(0, 128, 0),
                          packRgb(0, 255, 0)};
    EXPECT_EQ(stored(), full);
    // Grey, contrast, colour, its grey: 0.05 x -32 = -1.6 rounds to -2, 0.01 x -32 to 0; a
    // negative contrast lightens 3..5, darkens 6..8, and holds to 1..244.
    const std::array<int, 4> rows[] = {{128, 50, 8, 160},   {128, 5, 4, 126},  {128, 1, 4, 128},
                                       {120, -100, 3, 244}, {120, -100, 6, 1}, {120, -100, 7, 88}};
    for (const auto& [grey, contrast, k, expected] : rows) {
        ASSERT_TRUE(m_scheme.DeriveScheme(packRgb(grey, grey, grey), contrast));
        EXPECT_EQ(m_scheme.SchemeColours[k], packRgb(expected, expected, expected)) << k;
    }
    EXPECT_FALSE(m_scheme.DeriveScheme(0x80000005u, 100)); // a system colour changes nothing
    EXPECT_EQ(m_scheme.SchemeColours[7], packRgb(88, 88, 88));
}

TEST_F(ColourSchemeTest, ListAppendReplaceAndDeleteWorkOnEverySectionWithThatHeader) {
    EXPECT_FALSE(m_scheme.ListSchemeNames().has_value()); // no collection: nothing to list
    m_scheme.DeriveScheme(packRgb(1, 2, 3), 100);
    ASSERT_EQ(m_scheme.AppendScheme(QStringLiteral("first")),
              SchemeEdit::Done); // creates the missing file
    const QStringList first = section(QStringLiteral("first.col"), stored());
    EXPECT_EQ(collection(), bytes(first));

    // Appended after an unfinished last line, lower-cased.
    m_folder.write(AllCol, bytes(first).chopped(2));
    ASSERT_TRUE(m_scheme.DeriveScheme(packRgb(200, 180, 160), 80));
    const Colours derived = stored();
    ASSERT_EQ(m_scheme.AppendScheme(QStringLiteral("Warm Sand")), SchemeEdit::Done);
    const QStringList sand = section(QStringLiteral("warm sand.col"), derived);
    EXPECT_EQ(collection(), bytes(first + sand));

    // Every line holding ".col" names a scheme, in file order.
    const QStringList old = section(QStringLiteral("sea.col"), {});
    const QStringList note{QStringLiteral("a note about x.color"), QStringLiteral("LOUD.COL")};
    const QStringList capital = numberedSection(QStringLiteral("Capital.col"));
    m_folder.writeLines(AllCol, old + first + note + old + capital);
    EXPECT_EQ(m_scheme.ListSchemeNames(),
              (QStringList{"sea", "first", "a note about x", "sea", "Capital"}));
    m_scheme.DeriveScheme(packRgb(90, 160, 220), 100);
    ASSERT_EQ(m_scheme.ReplaceScheme(QStringLiteral("Sea")), SchemeEdit::Done);
    const QStringList fresh = section(QStringLiteral("sea.col"), stored());
    EXPECT_EQ(collection(), bytes(fresh + first + note + fresh + capital));
    // The scratch copy stays, holding the same collection.
    EXPECT_EQ(m_folder.read(QStringLiteral("newall.cox")), collection());
    ASSERT_EQ(m_scheme.DeleteScheme(QStringLiteral("SEA")), SchemeEdit::Done);
    EXPECT_EQ(collection(), bytes(first + note + capital));
    EXPECT_EQ(m_scheme.ReplaceScheme(QStringLiteral("Capital")), SchemeEdit::NotFound); // exact

    // A rewrite makes CR LF and UTF-8 of a Windows-1252 "cafe notes" with LF.
    m_folder.write(AllCol, QByteArray::fromHex("636166e9206e6f7465730a") +
                               bytes(first).replace("\r\n", "\n"));
    ASSERT_EQ(m_scheme.DeleteScheme(QStringLiteral("first")), SchemeEdit::Done);
    EXPECT_EQ(collection(), QByteArray::fromHex("636166c3a9206e6f7465730d0a"));
}

TEST_F(ColourSchemeTest, ARefusedRewriteLeavesTheCollectionAsItWas) {
    const QByteArray two = bytes(numberedSection(QStringLiteral("xp.col")) +
                                 numberedSection(QStringLiteral("sea.col")));
    const QString all = m_folder.file(AllCol);
    // Comments fill it to 60 bytes under the limit: no room for a section or more CRs.
    const auto filled = [&](const QByteArray& end) {
        QByteArray content = QByteArray(two).replace("\r\n", end);
        while (content.size() + 200 + 2 * end.size() < SchemeFile::MaxBytes - 60)
            content += QByteArray(200, '#') + end;
        content += QByteArray(SchemeFile::MaxBytes - 60 - end.size() - content.size(), '#') + end;
        return [this, content] { m_folder.write(AllCol, content); };
    };
    const auto systemColours = [&] {
        m_scheme.SchemeColours[2] = m_scheme.SchemeColours[4] = 0x80000005u;
    };
    const auto cutShort = [&] {
        m_folder.write(AllCol, two + bytes(numberedSection(QStringLiteral("sea2.col")).mid(0, 13)));
    };
    // What is done to the collection first, then whether Append, Replace and Delete succeed.
    const struct {
        const char* what;
        std::function<void()> damage;
        bool append, replace, remove;
        const char* name = "sea";
    } rows[] = {
        {"colours 2 and 4 are system colours", systemColours, false, false, true},
        // A name with no section is not found: nothing is written, whatever the colours.
        {"system colours, a name with no section", systemColours, false, false, false, "nosuch"},
        // Found by fuzz_schemes: the header split into two lines and shifted the colours.
        {"a name with CR LF", {}, false, false, false, " 233; 216\r\n 254"},
        {"a name with CR", {}, false, false, false, "c\r"},
        {"the matching section cut short", cutShort, true, false, false, "sea2"},
        {"another section cut short", cutShort, true, true, true}, // carried as plain lines
        {"the scratch copy a folder", [&] { QDir().mkdir(m_scheme.scratchPath()); }, true, false,
         false},
        {"all.col missing", [&] { QFile::remove(all); }, true, false, false},
        {"all.col a folder", [&] { QFile::remove(all), QDir().mkdir(all); }, false, false, false},
        {"all.col oversized",
         [&] { m_folder.write(AllCol, two + QByteArray(SchemeFile::MaxBytes, '#')); }, false, false,
         false},
        {"LF line ends that CR LF would push past the limit", filled("\n"), false, false, false},
        {"a section appended past the limit", filled("\r\n"), false, true, true}, // 8 bytes less
    };
    const auto state = [&] { return QFileInfo(all).isDir() ? "folder" : collection(); };
    for (const auto& row : rows) {
        const QString name = QString::fromLatin1(row.name);
        const std::pair<std::function<bool()>, bool> operations[] = {
            // Append takes a name of its own: one the file lists is refused as existing.
            {[&] { return m_scheme.AppendScheme(name + " new") == SchemeEdit::Done; }, row.append},
            {[&] { return m_scheme.ReplaceScheme(name) == SchemeEdit::Done; }, row.replace},
            {[&] { return m_scheme.DeleteScheme(name) == SchemeEdit::Done; }, row.remove},
        };
        for (const auto& [operation, succeeds] : operations) {
            for (const QString& path : {all, m_scheme.scratchPath()})
                QFile::remove(path) || QDir(path).removeRecursively();
            m_folder.write(AllCol, two);
            m_scheme.DeriveScheme(packRgb(50, 60, 70), 100);
            if (row.damage)
                row.damage();
            const QByteArray before = state();
            EXPECT_EQ(operation(), succeeds) << row.what;
            EXPECT_TRUE(succeeds || state() == before) << row.what;
        }
    }
}

// Two copies of the game adding at once: without the lock one copy's schemes would be lost.
TEST(SchemeLock, TwoProcessesAddingAtOnceKeepEveryScheme) {
    const TestFolder folder;
    constexpr int PerProcess = 25;
    pid_t children[2] = {};
    for (pid_t& child : children) {
        child = fork();
        if (child == 0) {
            Settings settings = Settings::forFolder(folder.path());
            ColourScheme scheme(settings);
            int n = 0;
            while (n < PerProcess &&
                   scheme.AppendScheme(QString::number(getpid() * 100 + n)) == SchemeEdit::Done)
                ++n;
            _exit(n == PerProcess ? 0 : 1);
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

} // namespace
