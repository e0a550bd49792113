// The word-list class: insertion and sorted insertion, removal, the searches, the letter-pool
// test, index errors and the capacity rules.
#include "core/clssimplearray.h"
#include "support/listitems.h"

#include "support/recordingnotifier.h"
#include "support/testfolder.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace {

QList<int> dataOf(const clsSimpleArray& list) {
    QList<int> data;
    for (int i = 0; i < list.ListCount(); ++i)
        data << list.ItemData(i);
    return data;
}

// Lists that report errors go to a throw-away program folder.
class WordListTest : public ::testing::Test {
protected:
    // Replaces the list's items by `items`, appended in order.
    void fill(const QStringList& items) {
        m_list.Clear();
        for (const QString& item : items)
            m_list.AddItem(item, -1);
    }

    TestFolder m_folder;
    RecordingNotifier m_notifier;
    clsSimpleArray m_list{&m_notifier};
};

} // namespace

TEST_F(WordListTest, InsertsBeforeAnIndexMovingItemDataAlong) {
    EXPECT_EQ(m_list.NewIndex(), -1);
    fill({"a", "b", "c"});
    m_list.ItemData(1, 7);
    m_list.AddItem(QStringLiteral("x"), 1);
    EXPECT_EQ(itemsOf(m_list), QStringList({"a", "x", "b", "c"}));
    EXPECT_EQ(dataOf(m_list), QList<int>({0, 0, 7, 0}));
    EXPECT_EQ(m_list.Text(), QStringLiteral("x"));
    m_list.AddItem(QStringLiteral("end"), m_list.ListCount()); // equal to the count appends
    EXPECT_EQ(m_list.NewIndex(), 4);
    m_list.List(2, QStringLiteral("z")); // writing the text keeps the item data
    EXPECT_EQ(m_list.ItemData(2), 7);
    // Texts of any length, rewritten many times (the buffer keeps only what is used).
    const QString longText(300, u'q');
    fill({"a", longText, "b"});
    for (int k = 0; k < 40; ++k)
        m_list.List(2, QString(300 + k, QChar(u'a' + k % 26)));
    m_list.RemoveItem(0);
    EXPECT_EQ(itemsOf(m_list), QStringList({longText, QString(339, u'n')}));
    m_list.Clear();
    EXPECT_EQ(m_list.NewIndex(), -1);
    EXPECT_EQ(m_list.capacity(), 0);
    EXPECT_EQ(m_list.Text(), QString());
    EXPECT_TRUE(m_notifier.messages().isEmpty());
}

TEST_F(WordListTest, SortedInsertionUsesCharacterCodesAndKeepsArrivalOrderOfEquals) {
    fill({"b", "a"});
    m_list.Sorted(true);                    // existing items are not reordered
    m_list.AddItem(QStringLiteral("z"), 0); // nothing greater: the given index
    EXPECT_EQ(itemsOf(m_list), QStringList({"z", "b", "a"}));
    m_list.AddItem(QStringLiteral("c")); // before the first greater item, "z"
    EXPECT_EQ(m_list.NewIndex(), 0);

    fill({"b", "a", "c", "b", "B"});
    EXPECT_EQ(itemsOf(m_list), QStringList({"B", "a", "b", "b", "c"}));
    EXPECT_EQ(m_list.NewIndex(), 0);
    m_list.ItemData(2, 1); // tag the first "b": the next "b" goes after both, before "c"
    m_list.AddItem(QStringLiteral("b"));
    EXPECT_EQ(m_list.NewIndex(), 4);
    EXPECT_EQ(m_list.ItemData(2), 1);
}

TEST_F(WordListTest, IndexErrorsLeaveTheListUnchangedAndNameTheirAccessor) {
    struct Case {
        const char* function;
        std::function<void(clsSimpleArray&)> call;
    };
    const std::vector<Case> cases = {
        {"Get ItemData", [](clsSimpleArray& l) { EXPECT_EQ(l.ItemData(2), 0); }},
        {"Let ItemData", [](clsSimpleArray& l) { l.ItemData(-1, 5); }},
        {"Get List", [](clsSimpleArray& l) { EXPECT_EQ(l.List(2), QString()); }},
        {"Let List", [](clsSimpleArray& l) { l.List(9, QStringLiteral("x")); }},
        {"RemoveItem", [](clsSimpleArray& l) { l.RemoveItem(2); }},
        {"RemoveItem", [](clsSimpleArray& l) { l.RemoveItem(-1); }},
        {"AddItem", [](clsSimpleArray& l) { l.AddItem(QStringLiteral("x"), 3); }},
    };
    for (const Case& c : cases) {
        fill({"a", "b"});
        m_list.ItemData(1, 4);
        m_notifier.clear();
        c.call(m_list);
        EXPECT_EQ(itemsOf(m_list), QStringList({"a", "b"})) << c.function;
        EXPECT_EQ(dataOf(m_list), QList<int>({0, 4})) << c.function;
        ASSERT_EQ(m_notifier.messages().size(), 1) << c.function;
        EXPECT_TRUE(m_notifier.messages()[0].text.endsWith(QStringLiteral("Function: ") +
                                                           QString::fromLatin1(c.function)))
            << c.function;
    }
}

TEST_F(WordListTest, FindItemAndFindItemDataSetNewIndex) {
    fill(
        {"", "Bread", "cake", "CAKES", QStringLiteral("stra\u00dfe"), QStringLiteral("\u00dcBER")});
    const struct {
        QString text;
        bool exact;
        int index;
    } rows[] = {
        {QStringLiteral("CAKE"), true, 2},
        {QStringLiteral("kes"), false, 3},
        {QString(), false, 1}, // an empty text is in every non-empty item, not in an empty one
        {QString(), true, 0},
        {QStringLiteral("\u00fcber"), true, 5},
        // Upper-casing character by character keeps "ß", so it never equals "SS".
        {QStringLiteral("STRASSE"), true, -1},
        {QStringLiteral("STRA\u00dfE"), true, 4},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(m_list.FindItem(row.text, row.exact), row.index >= 0) << qPrintable(row.text);
        EXPECT_EQ(m_list.NewIndex(), row.index) << qPrintable(row.text);
    }
    m_list.ItemData(1, 5);
    m_list.ItemData(2, 5);
    EXPECT_TRUE(m_list.FindItemData(5));
    EXPECT_EQ(m_list.NewIndex(), 1);
    EXPECT_FALSE(m_list.FindItemData(6));
    EXPECT_EQ(m_list.NewIndex(), -1);
}

TEST_F(WordListTest, PatternSearchesAndWhatTheyMark) {
    fill({"cake", "bake", "kab*", "tram", "x"});
    // FindStringAll steps through unused matches, marks them and forgets NewIndex.
    for (const int expected : {0, 1, 2, -1})
        EXPECT_EQ(m_list.FindStringAll(QStringLiteral("?a??*")), expected);
    EXPECT_EQ(m_list.NewIndex(), -1);
    EXPECT_EQ(dataOf(m_list), QList<int>({1, 1, 1, 0, 0}));

    // FindString reads and sets the marks but leaves NewIndex; FindStringOld skips one index
    // and ignores the marks.
    fill({"cake", "bake"});
    m_list.FindItem(QStringLiteral("cake"), true);
    EXPECT_EQ(m_list.FindString(QStringLiteral("*ake")), 0);
    EXPECT_EQ(m_list.FindString(QStringLiteral("*ake")), 1);
    EXPECT_EQ(m_list.NewIndex(), 0);
    EXPECT_EQ(m_list.FindStringOld(QStringLiteral("*ake"), 0), 1);
    EXPECT_EQ(m_list.NewIndex(), -1);
    EXPECT_EQ(m_list.FindStringOld(QStringLiteral("*ake"), 5), 0);
    EXPECT_EQ(dataOf(m_list), QList<int>({1, 1}));

    // FindRandom marks each item the letter pool can spell with its length.
    fill({"silent", "tins", "lilt", "set", "enlists"});
    m_list.ItemData(2, 9);
    EXPECT_EQ(m_list.FindRandom(QStringLiteral("listen")), QString());
    EXPECT_EQ(dataOf(m_list), QList<int>({6, 4, 0, 0, 0}));
}

TEST_F(WordListTest, Removals) {
    fill({"cake", "Cake", "cakes", "c*", "x"});
    m_list.RemoveItem(4);
    EXPECT_EQ(m_list.NewIndex(), 3);                    // the new last index
    m_list.RemoveItemsMatching(QStringLiteral("CAKE")); // equality ignoring case, no pattern
    m_list.RemoveItemsMatching(QStringLiteral("c*"));
    EXPECT_EQ(itemsOf(m_list), QStringList({"cakes"}));

    fill({"a", "b", "c", "d"});
    m_list.ItemData(0, 2);
    m_list.ItemData(2, 2);
    m_list.RemoveItemDataMatching(2);
    EXPECT_EQ(itemsOf(m_list), QStringList({"b", "d"}));
    EXPECT_EQ(m_list.NewIndex(), 1);

    fill({"b", "a", "B", "c", "A", "b", "d"});
    m_list.ItemData(1, 8);
    m_list.RemoveDuplicates(); // first occurrences stay, in order
    EXPECT_EQ(itemsOf(m_list), QStringList({"b", "a", "c", "d"}));
    EXPECT_EQ(dataOf(m_list), QList<int>({0, 8, 0, 0}));
}

TEST(WordListCapacity, GrowsPastTheLastSlotAndShrinksPastOneHundredUnused) {
    clsSimpleArray list;
    list.AddItem(QStringLiteral("0"));
    EXPECT_EQ(list.capacity(), 101);
    while (list.ListCount() < 101)
        list.AddItem(QString::number(list.ListCount()));
    EXPECT_EQ(list.capacity(), 101);
    list.AddItem(QStringLiteral("w"), 0); // the 102nd item, inserted: last index 101
    EXPECT_EQ(list.capacity(), 202);
    list.RemoveItem(5); // last index 100: 201 > 200 unused
    EXPECT_EQ(list.capacity(), 101);
    EXPECT_EQ(list.List(5), QStringLiteral("5"));
    list.RemoveItem(0); // last index 99: 100 is not more than 199
    EXPECT_EQ(list.capacity(), 101);

    while (list.ListCount() < 300)
        list.AddItem(QString::number(list.ListCount()));
    ASSERT_EQ(list.capacity(), 303);
    while (list.ListCount() > 203)
        list.RemoveItem(0);
    EXPECT_EQ(list.capacity(), 303); // last index 202: exactly 100 unused slots
    list.RemoveItem(0);
    EXPECT_EQ(list.capacity(), 202); // 101 unused: shrink to the 202 items
    EXPECT_EQ(list.List(201), QStringLiteral("299"));

    list.Clear();
    for (int n = 0; n < 102; ++n)
        list.AddItem(n % 2 ? QStringLiteral("odd") : QStringLiteral("even"));
    list.RemoveItemsMatching(QStringLiteral("odd")); // 51 removals, the first one shrinks
    EXPECT_EQ(list.capacity(), 101);
    list.RemoveItemsMatching(QStringLiteral("even"));
    EXPECT_EQ(list.capacity(), 0);
}
