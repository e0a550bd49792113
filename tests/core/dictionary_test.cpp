// Dictionary loading: accepted lines, both entries of a word, line ends and encodings, the
// shuffle order, the status texts, and files that cannot be read or make no sense; and the
// shipped dictionary's source.
#include "core/clssimplearray.h"
#include "core/codepoints.h"
#include "core/dictionary.h"
#include "core/randomsource.h"
#include "core/textdecoding.h"
#include "support/listitems.h"

#include "support/recordingnotifier.h"
#include "support/testfolder.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

#include <random>

namespace {

class DictionaryTest : public ::testing::Test {
protected:
    // Writes `bytes` as a dictionary file and loads it in file order.
    bool loadInOrder(const QByteArray& bytes) {
        m_folder.write(QStringLiteral("dict.txt"), bytes);
        m_loader.setShuffled(false);
        return m_loader.LoadDictionary(m_folder.file(QStringLiteral("dict.txt")));
    }

    TestFolder m_folder;
    RecordingNotifier m_notifier;
    clsSimpleArray m_list{&m_notifier};
    RandomSource m_random{42};
    DictionaryLoader m_loader{m_list, m_random, &m_notifier};
};

} // namespace

TEST_F(DictionaryTest, BytesToEntries) {
    const auto u8 = [](const char* bytes) { return QString::fromUtf8(bytes); };
    const auto cp1252 = [](const QByteArray& bytes) {
        QString text;
        for (const char b : bytes)
            text += QChar(windows1252ToUnicode(static_cast<unsigned char>(b)));
        return text;
    };
    // The words a file gives, in file order; each word gives the entries word and its reverse
    // by characters marked "*".
    const struct {
        QByteArray bytes;
        QStringList words;
    } rows[] = {
        // Any line end, a blank line, CR CR LF (an empty line), kept blanks, an unended last line.
        {"cake\rbread\nab c\r\n\r\r\ncak \nCake", {"cake", "ab c", "cak ", "Cake"}},
        // A byte order mark is skipped; a surrogate pair is one character.
        {"\xEF\xBB\xBF\xC3\xBCwxy\na\xF0\x9F\x98\x80wx\n",
         {u8("\xC3\xBCwxy"), u8("a\xF0\x9F\x98\x80wx")}},
        // One invalid byte makes the whole file Windows-1252, so the UTF-8 "ü" (two bytes)
        // becomes two characters and its line is too long.
        {"\xFCwxy\r\n\xC3\xBCwxy\r\n", {cp1252("\xFCwxy")}},
        // The shortest and longest form of each length and the characters next to the
        // surrogates are UTF-8; overlong forms, surrogates, values above U+10FFFF, a stray
        // continuation byte, a cut sequence and a five-byte lead make the file Windows-1252.
        {"\xC2\x80wxy", {u8("\xC2\x80wxy")}},
        {"\xDF\xBFwxy", {u8("\xDF\xBFwxy")}},
        {"\xE0\xA0\x80wxy", {u8("\xE0\xA0\x80wxy")}},
        {"\xED\x9F\xBFwxy", {u8("\xED\x9F\xBFwxy")}},
        {"\xEE\x80\x80wxy", {u8("\xEE\x80\x80wxy")}},
        {"\xEF\xBF\xBFwxy", {u8("\xEF\xBF\xBFwxy")}},
        {"\xF0\x90\x80\x80wxy", {u8("\xF0\x90\x80\x80wxy")}},
        {"\xF4\x8F\xBF\xBFwxy", {u8("\xF4\x8F\xBF\xBFwxy")}},
        {"\xC0\x80wx", {cp1252("\xC0\x80wx")}},
        {"\xC1\xBFwx", {cp1252("\xC1\xBFwx")}},
        {"\xE0\x9F\xBFw", {cp1252("\xE0\x9F\xBFw")}},
        {"\xF0\x8F\xBF\xBF", {cp1252("\xF0\x8F\xBF\xBF")}},
        {"\xED\xA0\x80w", {cp1252("\xED\xA0\x80w")}},
        {"\xED\xBF\xBFw", {cp1252("\xED\xBF\xBFw")}},
        {"\xF4\x90\x80\x80", {cp1252("\xF4\x90\x80\x80")}},
        {"\x80wxy", {cp1252("\x80wxy")}},
        {"\xC2wxy", {cp1252("\xC2wxy")}},
        {"\xF8\x88\x80\x80", {cp1252("\xF8\x88\x80\x80")}},
        // A line of any length costs nothing.
        {QByteArray(8 * 1024 * 1024, 'x') + "\ncake", {"cake"}},
        {QByteArray(8 * 1024 * 1024, 'x'), {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.bytes.left(24).toHex().toStdString());
        ASSERT_TRUE(loadInOrder(row.bytes));
        QStringList entries;
        for (const QString& word : row.words) {
            const QList<uint> characters = word.toUcs4();
            const std::u32string reversed(characters.rbegin(), characters.rend());
            entries << word << QString::fromUcs4(reversed.c_str()) + u'*';
        }
        EXPECT_EQ(itemsOf(m_list), entries);
        for (int i = 0; i < m_list.ListCount(); ++i)
            EXPECT_EQ(m_list.ItemData(i), 0); // a reload forgets what the generator marked
        if (m_list.ListCount() > 0)
            m_list.ItemData(0, 1);
        EXPECT_EQ(m_loader.DictionaryWordCount(), row.words.size());
        EXPECT_EQ(m_loader.statusText(),
                  QStringLiteral("Dictionary: dict.txt (%1 words)").arg(row.words.size()));
        EXPECT_EQ(m_loader.statusToolTip(), m_folder.file(QStringLiteral("dict.txt")));
    }
    EXPECT_TRUE(m_notifier.messages().isEmpty());
}

TEST_F(DictionaryTest, LoadOrderIsTheKeyOrderOfTheNumbersDrawnPerWord) {
    // Many words over few letters, repeated lines and case twins: numbers are drawn twice
    // often and equal entries are common, so every tie-breaking rule of the order shows.
    QByteArray bytes;
    QStringList words;
    std::mt19937 random(11);
    for (int n = 0; n < 30000; ++n) {
        QByteArray w(4, 'a');
        for (char& c : w)
            c = "abAB\xE9"[random() % 5]; // a run with a non-ASCII word compares as texts
        const int copies = random() % 5 == 0 ? 2 : 1;
        for (int k = 0; k < copies; ++k) {
            bytes += w + "\r\n";
            words << QString::fromLatin1(w);
        }
    }
    m_folder.write(QStringLiteral("d.txt"), bytes);
    m_random.seed(5);
    ASSERT_TRUE(m_loader.LoadDictionary(m_folder.file(QStringLiteral("d.txt"))));

    RandomSource draws(5);
    const QStringList expected = loadedEntries(words, draws);
    EXPECT_EQ(itemsOf(m_list), expected);
    // The next load draws on: another order.
    ASSERT_TRUE(m_loader.LoadDictionary(m_folder.file(QStringLiteral("d.txt"))));
    EXPECT_NE(itemsOf(m_list), expected);
}

TEST(ShuffleKeys, OrderByNumberThenTextIgnoringCaseKeepingArrivalOfEquals) {
    std::vector<ShuffleKey> keys = {
        {417, QStringLiteral("cake")}, {417, QStringLiteral("ekac*")},
        {3, QStringLiteral("tram")},   {417, QStringLiteral("CAKE")},
        {417, QStringLiteral("bake")}, {417, QStringLiteral("EKAC*")},
        {99998, QStringLiteral("a")},  {417, QStringLiteral("_a")},
    };
    sortShuffleKeys(keys);
    QStringList order;
    for (const ShuffleKey& k : keys)
        order << k.entry;
    // "_" sorts after the letters: texts are upper-cased before comparing.
    EXPECT_EQ(order, QStringList({"tram", "bake", "cake", "CAKE", "ekac*", "EKAC*", "_a", "a"}));
}

TEST_F(DictionaryTest, PathWithoutSlashIsItsOwnFileName) {
    const QString previous = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(m_folder.path()));
    m_folder.write(QStringLiteral("w.txt"), "cake\n");
    const bool loaded = m_loader.LoadDictionary(QStringLiteral("w.txt"));
    QDir::setCurrent(previous);
    ASSERT_TRUE(loaded);
    EXPECT_EQ(m_loader.statusText(), QStringLiteral("Dictionary: w.txt (1 words)"));
    EXPECT_EQ(m_loader.statusToolTip(), QStringLiteral("w.txt"));
}

TEST_F(DictionaryTest, UnreadableFileChangesNothingAndNamesTheFile) {
    ASSERT_TRUE(loadInOrder("cake\n"));
    const QStringList before = itemsOf(m_list);
    const QString status = m_loader.statusText();
    for (const QString& path : {m_folder.file(QStringLiteral("missing.txt")), m_folder.path()}) {
        m_notifier.clear();
        EXPECT_FALSE(m_loader.LoadDictionary(path));
        EXPECT_EQ(itemsOf(m_list), before);
        EXPECT_EQ(m_loader.statusText(), status);
        EXPECT_EQ(m_loader.DictionaryWordCount(), 1);
        ASSERT_EQ(m_notifier.messages().size(), 1);
        EXPECT_TRUE(m_notifier.messages()[0].text.contains(path));
        EXPECT_EQ(m_notifier.messages()[0].style, QStringLiteral("vbcritical+vbok"));
        EXPECT_FALSE(m_loader.errorString().isEmpty());
    }
}

TEST_F(DictionaryTest, BinaryFilesLoadHarmlessly) {
    QByteArray binary(300000, '\0');
    std::mt19937 random(3);
    for (char& c : binary)
        c = char(random() & 0xFF);
    ASSERT_TRUE(loadInOrder(binary));
    EXPECT_EQ(m_list.ListCount(), 2 * m_loader.DictionaryWordCount());
    for (int i = 0; i < m_list.ListCount(); ++i)
        ASSERT_EQ(codePointCount(m_list.List(i)), i % 2 ? 5 : 4);
}

// The shipped dictionary is exactly what scripts/make-dictionary.sh makes: the lower-case
// four-letter words of the common-word list (SCOWL size 35) minus the blocklist, so no rare
// word such as "situ" or "limn" turns up in a puzzle.
TEST(ShippedDictionary, IsTheCommonWordListMinusTheBlocklist) {
    const auto lines = [](const QString& path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    };
    const QRegularExpression word(QStringLiteral("^[a-z]{4}$"));
    QSet<QString> blocked;
    for (const QString& line : lines(shippedDataDir() + QStringLiteral("blocklist.txt"))) {
        if (!line.startsWith(u'#'))
            for (const QString& w : line.split(u' ', Qt::SkipEmptyParts))
                blocked.insert(w);
    }
    QStringList expected;
    for (const QString& w : lines(QStringLiteral("/usr/share/dict/american-english-small"))) {
        if (word.match(w).hasMatch() && !blocked.contains(w))
            expected << w;
    }
    expected.sort();
    expected.removeDuplicates();
    EXPECT_GT(expected.size(), 1500);
    EXPECT_EQ(lines(shippedDataDir() + QStringLiteral("english1.txt")), expected);
}
