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

TEST_F(DictionaryTest, AcceptsExactlyFourCharacterLinesAsTheyStand) {
    // Any line end, a blank line, CR CR LF (an empty line), kept blanks, an unended last line.
    ASSERT_TRUE(loadInOrder("cake\rbread\nab c\r\n\r\r\ncak \nCake"));
    EXPECT_EQ(itemsOf(m_list),
              QStringList({"cake", "ekac*", "ab c", "c ba*", "cak ", " kac*", "Cake", "ekaC*"}));
    EXPECT_EQ(m_loader.DictionaryWordCount(), 4);
    EXPECT_EQ(m_loader.statusText(), QStringLiteral("Dictionary: dict.txt (4 words)"));
    EXPECT_EQ(m_loader.statusToolTip(), m_folder.file(QStringLiteral("dict.txt")));
    EXPECT_TRUE(m_notifier.messages().isEmpty());
    m_list.ItemData(1, 1); // a reload forgets what the generator marked
    ASSERT_TRUE(loadInOrder("cake\r\n"));
    EXPECT_EQ(m_list.ItemData(1), 0);
}

TEST_F(DictionaryTest, WordsAreDecodedCountedAndReversedByCharacter) {
    // A byte order mark is skipped; a surrogate pair is one character.
    ASSERT_TRUE(loadInOrder("\xEF\xBB\xBF\xC3\xBC"
                            "ber\na\xF0\x9F\x98\x80"
                            "bc\n"));
    EXPECT_EQ(itemsOf(m_list),
              QStringList({QStringLiteral("\u00fcber"), QStringLiteral("reb\u00fc*"),
                           QString::fromUtf8("a\xF0\x9F\x98\x80"
                                             "bc"),
                           QString::fromUtf8("cb\xF0\x9F\x98\x80"
                                             "a*")}));
    // One invalid byte makes the whole file Windows-1252, so the UTF-8 "ü" (two bytes)
    // becomes two characters and its line is too long.
    ASSERT_TRUE(loadInOrder("\xFC"
                            "ber\r\n\xC3\xBC"
                            "ber\r\n"));
    EXPECT_EQ(itemsOf(m_list),
              QStringList({QStringLiteral("\u00fcber"), QStringLiteral("reb\u00fc*")}));
}

TEST_F(DictionaryTest, Utf8LimitsDecideTheFilesEncoding) {
    // The shortest and longest form of each length and the characters next to the surrogates
    // are UTF-8; overlong forms, surrogates, values above U+10FFFF, a stray continuation byte,
    // a cut sequence and a five-byte lead make the whole file Windows-1252. Each sequence is
    // padded to a four-character word under the encoding it must get.
    const struct {
        QByteArray bytes;
        bool utf8;
    } rows[] = {
        {"\xC2\x80", true},
        {"\xDF\xBF", true},
        {"\xE0\xA0\x80", true},
        {"\xED\x9F\xBF", true},
        {"\xEE\x80\x80", true},
        {"\xEF\xBF\xBF", true},
        {"\xF0\x90\x80\x80", true},
        {"\xF4\x8F\xBF\xBF", true},
        {"\xC0\x80", false},
        {"\xC1\xBF", false},
        {"\xE0\x9F\xBF", false},
        {"\xF0\x8F\xBF\xBF", false},
        {"\xED\xA0\x80", false},
        {"\xED\xBF\xBF", false},
        {"\xF4\x90\x80\x80", false},
        {"\x80", false},
        {"\xC2", false},
        {"\xF8\x88\x80\x80", false},
    };
    for (const auto& row : rows) {
        QString word;
        if (row.utf8) {
            word = QString::fromUtf8(row.bytes);
        } else {
            for (const char b : row.bytes)
                word += QChar(windows1252ToUnicode(static_cast<unsigned char>(b)));
        }
        const QByteArray padding = QByteArray("wxyz").left(4 - codePointCount(word));
        word += QString::fromLatin1(padding);
        ASSERT_TRUE(loadInOrder(row.bytes + padding + "\n"));
        EXPECT_EQ(itemsOf(m_list), QStringList({word, reversedCodePoints(word) + u'*'}))
            << row.bytes.toHex().toStdString();
    }
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
    EXPECT_EQ(DictionaryLoader::fileNameOf(QStringLiteral("/a/b/words.dic")),
              QStringLiteral("words.dic"));
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

TEST_F(DictionaryTest, BinaryAndHugeFilesLoadHarmlessly) {
    QByteArray binary(300000, '\0');
    std::mt19937 random(3);
    for (char& c : binary)
        c = char(random() & 0xFF);
    ASSERT_TRUE(loadInOrder(binary));
    EXPECT_EQ(m_list.ListCount(), 2 * m_loader.DictionaryWordCount());
    for (int i = 0; i < m_list.ListCount(); ++i)
        ASSERT_EQ(codePointCount(m_list.List(i)), i % 2 ? 5 : 4);

    ASSERT_TRUE(loadInOrder(QByteArray(8 * 1024 * 1024, 'x') + "\ncake"));
    EXPECT_EQ(itemsOf(m_list), QStringList({"cake", "ekac*"}));
    ASSERT_TRUE(loadInOrder(QByteArray(8 * 1024 * 1024, 'x')));
    EXPECT_EQ(m_loader.DictionaryWordCount(), 0);
    EXPECT_EQ(m_loader.statusText(), QStringLiteral("Dictionary: dict.txt (0 words)"));
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
