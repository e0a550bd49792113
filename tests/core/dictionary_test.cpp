// Dictionary loading: accepted lines, both entries of a word, line ends and encodings, the
// shuffle order, the status texts, and files that cannot be read or make no sense.
#include "core/clssimplearray.h"
#include "core/codepoints.h"
#include "core/dictionary.h"
#include "core/randomsource.h"

#include "support/recordingnotifier.h"
#include "support/testfolder.h"

#include <QDir>

#include <gtest/gtest.h>

#include <random>

namespace {

QStringList itemsOf(const clsSimpleArray& list) {
    QStringList items;
    for (int i = 0; i < list.ListCount(); ++i)
        items << list.List(i);
    return items;
}

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
    ASSERT_TRUE(loadInOrder("cake\r\nbread\r\nab c\r\nCake\r\n"));
    EXPECT_EQ(itemsOf(m_list), QStringList({"cake", "ekac*", "ab c", "c ba*", "Cake", "ekaC*"}));
    EXPECT_EQ(m_loader.DictionaryWordCount(), 3);
    EXPECT_EQ(m_loader.statusText(), QStringLiteral("Dictionary: dict.txt (3 words)"));
    EXPECT_EQ(m_loader.statusToolTip(), m_folder.file(QStringLiteral("dict.txt")));
    EXPECT_TRUE(m_notifier.messages().isEmpty());
}

TEST_F(DictionaryTest, LineEndsAreCrLfLfOrCr) {
    struct Case {
        const char* name;
        QByteArray bytes;
        QStringList words;
    };
    const Case cases[] = {
        {"CR LF", "cake\r\nbake\r\n", {"cake", "bake"}},
        {"LF only", "cake\nbake\n", {"cake", "bake"}},
        {"CR only", "cake\rbake\r", {"cake", "bake"}},
        {"mixed, last line unended", "cake\rbake\nlake\r\nmake", {"cake", "bake", "lake", "make"}},
        {"blank lines", "\r\n\n\r\r\ncake\n\n", {"cake"}},
        {"CR CR LF is an empty line", "cak\r\r\ne", {}},
        {"trailing blank kept", "cak \nca\tk\n", {"cak ", "ca\tk"}},
        {"empty file", "", {}},
    };
    for (const Case& c : cases) {
        ASSERT_TRUE(loadInOrder(c.bytes)) << c.name;
        QStringList words;
        for (int i = 0; i < m_list.ListCount(); i += 2)
            words << m_list.List(i);
        EXPECT_EQ(words, c.words) << c.name;
        EXPECT_EQ(m_loader.DictionaryWordCount(), c.words.size()) << c.name;
    }
}

TEST_F(DictionaryTest, Utf8WordsCountAndReverseByCharacter) {
    ASSERT_TRUE(loadInOrder("\xC3\xBC"
                            "ber\n"
                            "stra\xC3\x9F"
                            "e\n"
                            "a\xF0\x9F\x98\x80"
                            "bc\n"
                            "ab\xF0\x9F\x98\x80\n"));
    EXPECT_EQ(itemsOf(m_list),
              QStringList({QStringLiteral("\u00fcber"), QStringLiteral("reb\u00fc*"),
                           QString::fromUtf8("a\xF0\x9F\x98\x80"
                                             "bc"),
                           QString::fromUtf8("cb\xF0\x9F\x98\x80"
                                             "a*")}));
}

TEST_F(DictionaryTest, ByteOrderMarkIsSkipped) {
    ASSERT_TRUE(loadInOrder("\xEF\xBB\xBF"
                            "cake\n"));
    EXPECT_EQ(itemsOf(m_list), QStringList({"cake", "ekac*"}));
}

TEST_F(DictionaryTest, InvalidUtf8IsReadAsWindows1252) {
    // 0xFC is "ü" and 0x80 "€" in Windows-1252; one invalid byte decides for the whole file,
    // so the UTF-8 "ü" (two bytes) becomes two characters and its line is too long.
    ASSERT_TRUE(loadInOrder("\xFC"
                            "ber\r\n\x80"
                            "uro\r\n\xC3\xBC"
                            "ber\r\n\x81\x8D\x8F\x90\r\n"));
    EXPECT_EQ(itemsOf(m_list),
              QStringList({QStringLiteral("\u00fcber"), QStringLiteral("reb\u00fc*"),
                           QStringLiteral("\u20acuro"), QStringLiteral("oru\u20ac*"),
                           QStringLiteral("\u0081\u008d\u008f\u0090"),
                           QStringLiteral("\u0090\u008f\u008d\u0081*")}));
}

TEST_F(DictionaryTest, TruncatedUtf8SequenceAtTheEndMeansWindows1252) {
    ASSERT_TRUE(loadInOrder("cake\nabc\xC3"));
    EXPECT_EQ(itemsOf(m_list), QStringList({"cake", "ekac*", QStringLiteral("abc\u00c3"),
                                            QStringLiteral("\u00c3cba*")}));
}

TEST_F(DictionaryTest, EntriesAreWordsAndTheirMarkedReverses) {
    QByteArray bytes;
    for (const char* w : {"cake", "bake", "Lime", "ab c", "tram", "deed", "x*yz"})
        bytes += QByteArray(w) + "\n";
    m_folder.write(QStringLiteral("d.txt"), bytes);
    ASSERT_TRUE(m_loader.LoadDictionary(m_folder.file(QStringLiteral("d.txt"))));
    ASSERT_EQ(m_list.ListCount(), 14);
    QMap<QString, int> seen;
    for (int i = 0; i < m_list.ListCount(); ++i) {
        const QString item = m_list.List(i);
        EXPECT_EQ(m_list.ItemData(i), 0);
        ASSERT_TRUE(item.size() == 4 || (item.size() == 5 && item.endsWith(u'*')))
            << qPrintable(item);
        ++seen[item];
    }
    for (auto it = seen.cbegin(); it != seen.cend(); ++it) {
        if (it.key().size() == 4) {
            EXPECT_EQ(seen.value(reversedCodePoints(it.key()) + u'*'), it.value())
                << qPrintable(it.key());
        }
    }
}

TEST_F(DictionaryTest, BothEntriesOfAWordShareTheirNumberSoTheyLieTogether) {
    // With 40 words and 99998 numbers this seed draws no number twice, so the entries come
    // in pairs, each pair ordered by its texts without regard to case.
    QByteArray bytes;
    std::mt19937 random(7);
    for (int n = 0; n < 40; ++n) {
        QByteArray w(4, 'a');
        for (char& c : w)
            c = char('a' + random() % 26);
        bytes += w + "\n";
    }
    m_folder.write(QStringLiteral("d.txt"), bytes);
    ASSERT_TRUE(m_loader.LoadDictionary(m_folder.file(QStringLiteral("d.txt"))));
    ASSERT_EQ(m_list.ListCount(), 80);
    for (int i = 0; i < 80; i += 2) {
        const QString a = m_list.List(i);
        const QString b = m_list.List(i + 1);
        const QString plain = a.endsWith(u'*') ? b : a;
        const QString marked = a.endsWith(u'*') ? a : b;
        EXPECT_EQ(reversedCodePoints(plain) + u'*', marked) << i;
        EXPECT_LE(compareIgnoringCase(a, b), 0) << i;
    }
}

TEST_F(DictionaryTest, SameSeedSameOrderAnotherLoadAnotherOrder) {
    QByteArray bytes;
    for (int n = 0; n < 200; ++n)
        bytes += QByteArray::number(1000 + n) + "\n";
    m_folder.write(QStringLiteral("d.txt"), bytes);
    const QString path = m_folder.file(QStringLiteral("d.txt"));
    ASSERT_TRUE(m_loader.LoadDictionary(path));
    const QStringList first = itemsOf(m_list);
    ASSERT_TRUE(m_loader.LoadDictionary(path));
    const QStringList second = itemsOf(m_list);
    EXPECT_NE(first, second);
    QStringList a = first;
    QStringList b = second;
    a.sort();
    b.sort();
    EXPECT_EQ(a, b);
    m_random.seed(42);
    ASSERT_TRUE(m_loader.LoadDictionary(path));
    EXPECT_EQ(itemsOf(m_list), first);
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
            c = "abAB"[random() % 4];
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
    std::vector<ShuffleKey> keys;
    for (const QString& w : words) {
        const qint64 number = draws.between(1, 99998);
        keys.push_back({number, w});
        keys.push_back({number, reversedCodePoints(w) + u'*'});
    }
    sortShuffleKeys(keys);
    QStringList expected;
    for (const ShuffleKey& k : keys)
        expected << k.entry;
    EXPECT_EQ(itemsOf(m_list), expected);
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
    EXPECT_EQ(DictionaryLoader::fileNameOf(QStringLiteral("words.txt")),
              QStringLiteral("words.txt"));
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

TEST_F(DictionaryTest, MoreThanSixteenThousandWordsLoad) {
    QByteArray bytes;
    for (int n = 0; n < 20000; ++n)
        bytes += QByteArray::number(10000 + n).right(4) + "\r\n";
    m_folder.write(QStringLiteral("big.txt"), bytes);
    ASSERT_TRUE(m_loader.LoadDictionary(m_folder.file(QStringLiteral("big.txt"))));
    EXPECT_EQ(m_loader.DictionaryWordCount(), 20000);
    EXPECT_EQ(m_list.ListCount(), 40000);
}
