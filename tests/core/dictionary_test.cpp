// Dictionary loading: lines, entries, encodings, shuffle order, status texts, bad files.
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

#include <gtest/gtest.h>

#include <random>

namespace {

class DictionaryTest : public ::testing::Test {
protected:
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
    // The words a file gives, in file order (each also gives its reverse marked "*").
    struct Row {
        QByteArray bytes;
        QStringList words;
    };
    std::vector<Row> rows = {
        // Any line end, a blank line, CR CR LF (an empty line), kept blanks, an unended last line.
        {"cake\rbread\nab c\r\n\r\r\ncak \nCake", {"cake", "ab c", "cak ", "Cake"}},
        // A byte order mark is skipped; a surrogate pair is one character.
        {"\xEF\xBB\xBF\xC3\xBCwxy\na\xF0\x9F\x98\x80wx\n",
         {QString::fromUtf8("\xC3\xBCwxy"), QString::fromUtf8("a\xF0\x9F\x98\x80wx")}},
        // One invalid byte makes the whole file Windows-1252: the UTF-8 "ü" is two characters.
        {"\xFCwxy\r\n\xC3\xBCwxy\r\n", {QStringLiteral("\u00FCwxy")}},
        // A line of any length costs nothing.
        {QByteArray(8 * 1024 * 1024, 'x') + "\ncake", {"cake"}},
        {QByteArray(8 * 1024 * 1024, 'x'), {}},
    };
    // Each UTF-8 length's extremes are UTF-8; overlong, surrogate, too large, stray, cut and
    // five-byte sequences make the file Windows-1252, as every other reader decodes it.
    for (const QByteArray bytes :
         {"\xC2\x80wxy", "\xDF\xBFwxy", "\xE0\xA0\x80wxy", "\xED\x9F\xBFwxy", "\xEE\x80\x80wxy",
          "\xEF\xBF\xBFwxy", "\xF0\x90\x80\x80wxy", "\xF4\x8F\xBF\xBFwxy", "\xC0\x80wx",
          "\xC1\xBFwx", "\xE0\x9F\xBFw", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80w", "\xED\xBF\xBFw",
          "\xF4\x90\x80\x80", "\x80wxy", "\xC2wxy", "\xF8\x88\x80\x80"}) {
        rows.push_back({bytes, {decodeText(bytes)}});
        ASSERT_EQ(codePointCount(rows.back().words[0]), 4) << bytes.toHex().toStdString();
    }
    for (const auto& row : rows) {
        SCOPED_TRACE(row.bytes.left(24).toHex().toStdString());
        ASSERT_TRUE(loadInOrder(row.bytes));
        QStringList entries;
        for (const QString& word : row.words)
            entries << word << reversedCodePoints(word) + u'*';
        EXPECT_EQ(itemsOf(m_list), entries);
        for (qint32& data : m_list.allItemData()) // a reload forgets what the generator marked
            EXPECT_EQ(std::exchange(data, 1), 0);
        EXPECT_EQ(m_loader.DictionaryWordCount(), row.words.size());
        EXPECT_EQ(m_loader.statusText(),
                  QStringLiteral("Dictionary: dict.txt (%1 words)").arg(row.words.size()));
        EXPECT_EQ(m_loader.statusToolTip(), m_folder.file(QStringLiteral("dict.txt")));
    }
    EXPECT_TRUE(m_notifier.messages().isEmpty());
}

TEST_F(DictionaryTest, LoadOrderIsTheKeyOrderOfTheNumbersDrawnPerWord) {
    // Few letters, repeats and case twins, so every tie-breaking rule of the order shows.
    QStringList words;
    std::mt19937 random(11);
    while (words.size() < 30000) {
        QString w(4, u'a');
        for (QChar& c : w) // a run with a non-ASCII word compares as texts
            c = u"abAB\u00E9"[random() % 5];
        words << w;
        if (random() % 5 == 0)
            words << w;
    }
    const QString path = m_folder.writeLines(QStringLiteral("d.txt"), words);
    m_random.seed(5);
    ASSERT_TRUE(m_loader.LoadDictionary(path));
    RandomSource draws(5);
    const QStringList expected = loadedEntries(words, draws);
    EXPECT_EQ(itemsOf(m_list), expected);
    // The next load draws on: another order.
    ASSERT_TRUE(m_loader.LoadDictionary(path));
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
