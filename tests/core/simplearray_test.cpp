// The word-list class: insertion and sorted insertion, removal, the searches, the letter-pool
// test, index errors and the capacity rules.
#include "core/clssimplearray.h"

#include "support/recordingnotifier.h"
#include "support/testfolder.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace {

QStringList itemsOf(const clsSimpleArray& list) {
    QStringList items;
    for (int i = 0; i < list.ListCount(); ++i)
        items << list.List(i);
    return items;
}

void fill(clsSimpleArray& list, const QStringList& items) {
    for (const QString& item : items)
        list.AddItem(item, -1);
}

QList<int> dataOf(const clsSimpleArray& list) {
    QList<int> data;
    for (int i = 0; i < list.ListCount(); ++i)
        data << list.ItemData(i);
    return data;
}

// Lists that report errors go to a throw-away program folder.
class WordListTest : public ::testing::Test {
protected:
    TestFolder m_folder;
    RecordingNotifier m_notifier;
    clsSimpleArray m_list{&m_notifier};
};

} // namespace

TEST_F(WordListTest, NewListIsEmptyAndFirstItemGetsIndexZero) {
    EXPECT_EQ(m_list.ListCount(), 0);
    EXPECT_EQ(m_list.NewIndex(), -1);
    EXPECT_FALSE(m_list.Sorted());
    m_list.AddItem(QStringLiteral("cake"));
    EXPECT_EQ(m_list.ListCount(), 1);
    EXPECT_EQ(m_list.NewIndex(), 0);
    EXPECT_EQ(m_list.ItemData(0), 0);
    EXPECT_EQ(m_list.Text(), QStringLiteral("cake"));
}

TEST_F(WordListTest, InsertsBeforeAnIndexAndMovesItemDataAlong) {
    fill(m_list, {"a", "b", "c"});
    m_list.ItemData(1, 7);
    m_list.AddItem(QStringLiteral("x"), 1);
    EXPECT_EQ(itemsOf(m_list), QStringList({"a", "x", "b", "c"}));
    EXPECT_EQ(dataOf(m_list), QList<int>({0, 0, 7, 0}));
    EXPECT_EQ(m_list.NewIndex(), 1);
    m_list.AddItem(QStringLiteral("end"), m_list.ListCount()); // equal to the count appends
    EXPECT_EQ(m_list.List(4), QStringLiteral("end"));
    EXPECT_EQ(m_list.NewIndex(), 4);
    EXPECT_TRUE(m_notifier.messages().isEmpty());
}

TEST_F(WordListTest, AddingBeyondTheCountIsAnIndexErrorAndAddsNothing) {
    fill(m_list, {"a", "b"});
    m_list.AddItem(QStringLiteral("x"), 3);
    EXPECT_EQ(itemsOf(m_list), QStringList({"a", "b"}));
    ASSERT_EQ(m_notifier.messages().size(), 1);
    EXPECT_TRUE(m_notifier.messages()[0].text.endsWith(QStringLiteral("Function: AddItem")));
}

TEST_F(WordListTest, SortedInsertionUsesCharacterCodesAndKeepsArrivalOrderOfEquals) {
    m_list.Sorted(true);
    fill(m_list, {"b", "a", "c", "b", "B"});
    EXPECT_EQ(itemsOf(m_list), QStringList({"B", "a", "b", "b", "c"}));
    // The second "b" went after the first: the first item greater than "b" is "c".
    EXPECT_EQ(m_list.NewIndex(), 0);
    m_list.ItemData(2, 1); // tag the first "b"
    m_list.AddItem(QStringLiteral("b"));
    EXPECT_EQ(m_list.NewIndex(), 4);
    EXPECT_EQ(m_list.ItemData(2), 1);
}

TEST_F(WordListTest, SortedInsertionFallsBackToTheGivenIndexWhenNothingIsGreater) {
    fill(m_list, {"b", "a"});
    m_list.Sorted(true); // existing items are not reordered
    EXPECT_EQ(itemsOf(m_list), QStringList({"b", "a"}));
    m_list.AddItem(QStringLiteral("z"), 0);
    EXPECT_EQ(itemsOf(m_list), QStringList({"z", "b", "a"}));
    m_list.AddItem(QStringLiteral("c")); // before the first greater item, "z"
    EXPECT_EQ(m_list.NewIndex(), 0);
}

TEST_F(WordListTest, RemovingOneOfTwoLeavesAReadableItemAndEmptyingReleasesStorage) {
    fill(m_list, {"cake", "bake"});
    m_list.RemoveItem(0);
    EXPECT_EQ(m_list.ListCount(), 1);
    EXPECT_EQ(m_list.List(0), QStringLiteral("bake"));
    EXPECT_EQ(m_list.NewIndex(), 0);
    m_list.RemoveItem(0);
    EXPECT_EQ(m_list.ListCount(), 0);
    EXPECT_EQ(m_list.capacity(), 0);
    EXPECT_EQ(m_list.NewIndex(), -1);
    EXPECT_TRUE(m_notifier.messages().isEmpty());
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
        RecordingNotifier notifier;
        clsSimpleArray list(&notifier);
        fill(list, {"a", "b"});
        list.ItemData(1, 4);
        c.call(list);
        EXPECT_EQ(itemsOf(list), QStringList({"a", "b"})) << c.function;
        EXPECT_EQ(dataOf(list), QList<int>({0, 4})) << c.function;
        ASSERT_EQ(notifier.messages().size(), 1) << c.function;
        EXPECT_TRUE(notifier.messages()[0].text.endsWith(QStringLiteral("Function: ") +
                                                         QString::fromLatin1(c.function)))
            << c.function;
    }
}

TEST_F(WordListTest, WritingTextKeepsItemData) {
    fill(m_list, {"a"});
    m_list.ItemData(0, 3);
    m_list.List(0, QStringLiteral("z"));
    EXPECT_EQ(m_list.List(0), QStringLiteral("z"));
    EXPECT_EQ(m_list.ItemData(0), 3);
}

TEST_F(WordListTest, ClearForgetsItemsAndNewIndex) {
    fill(m_list, {"a", "b"});
    m_list.Clear();
    EXPECT_EQ(m_list.ListCount(), 0);
    EXPECT_EQ(m_list.NewIndex(), -1);
    EXPECT_EQ(m_list.capacity(), 0);
    EXPECT_EQ(m_list.Text(), QString());
}

TEST_F(WordListTest, FindItemExactOrContainedIgnoringCase) {
    fill(m_list, {"", "Bread", "cake", "CAKES"});
    EXPECT_TRUE(m_list.FindItem(QStringLiteral("CAKE"), true));
    EXPECT_EQ(m_list.NewIndex(), 2);
    EXPECT_TRUE(m_list.FindItem(QStringLiteral("kes")));
    EXPECT_EQ(m_list.NewIndex(), 3);
    EXPECT_FALSE(m_list.FindItem(QStringLiteral("kes"), true));
    EXPECT_EQ(m_list.NewIndex(), -1);
    // An empty text is in every non-empty item, not in an empty one.
    EXPECT_TRUE(m_list.FindItem(QString()));
    EXPECT_EQ(m_list.NewIndex(), 1);
    EXPECT_TRUE(m_list.FindItem(QString(), true));
    EXPECT_EQ(m_list.NewIndex(), 0);
}

TEST_F(WordListTest, CaseIsIgnoredOneCharacterAtATime) {
    fill(m_list, {QStringLiteral("stra\u00dfe"), QStringLiteral("\u00dcBER")});
    EXPECT_TRUE(m_list.FindItem(QStringLiteral("\u00fcber"), true));
    EXPECT_EQ(m_list.NewIndex(), 1);
    // Upper-casing character by character keeps "ß", so it never equals "SS".
    EXPECT_FALSE(m_list.FindItem(QStringLiteral("STRASSE"), true));
    EXPECT_TRUE(m_list.FindItem(QStringLiteral("STRA\u00dfE"), true));
}

TEST_F(WordListTest, FindItemDataFindsTheFirstMatch) {
    fill(m_list, {"a", "b", "c"});
    m_list.ItemData(1, 5);
    m_list.ItemData(2, 5);
    EXPECT_TRUE(m_list.FindItemData(5));
    EXPECT_EQ(m_list.NewIndex(), 1);
    EXPECT_FALSE(m_list.FindItemData(6));
    EXPECT_EQ(m_list.NewIndex(), -1);
}

TEST_F(WordListTest, FindStringAllStepsThroughUnusedMatchesAndMarksThem) {
    fill(m_list, {"cake", "bake", "kab*", "tram"});
    m_list.AddItem(QStringLiteral("x")); // NewIndex 4
    EXPECT_EQ(m_list.FindStringAll(QStringLiteral("?a??*")), 0);
    EXPECT_EQ(m_list.NewIndex(), -1);
    EXPECT_EQ(m_list.FindStringAll(QStringLiteral("?a??*")), 1);
    EXPECT_EQ(m_list.FindStringAll(QStringLiteral("?a??*")), 2);
    EXPECT_EQ(m_list.FindStringAll(QStringLiteral("?a??*")), -1);
    EXPECT_EQ(dataOf(m_list), QList<int>({1, 1, 1, 0, 0}));
    for (int i = 0; i < m_list.ListCount(); ++i)
        m_list.ItemData(i, 0);
    EXPECT_EQ(m_list.FindStringAll(QStringLiteral("?a??*")), 0);
}

TEST_F(WordListTest, FindStringLeavesNewIndexAndFindStringOldSkipsOneIndexWithoutMarking) {
    fill(m_list, {"cake", "bake"});
    m_list.FindItem(QStringLiteral("bake"), true);
    EXPECT_EQ(m_list.FindString(QStringLiteral("*ake")), 0);
    EXPECT_EQ(m_list.NewIndex(), 1);
    EXPECT_EQ(m_list.FindStringOld(QStringLiteral("*ake"), 0), 1);
    EXPECT_EQ(m_list.NewIndex(), -1);
    EXPECT_EQ(m_list.FindStringOld(QStringLiteral("*ake"), 5), 0); // marks are not read
    EXPECT_EQ(dataOf(m_list), QList<int>({1, 0}));
}

TEST_F(WordListTest, FindRandomMarksItemsThatTheLetterPoolCanSpell) {
    fill(m_list, {"silent", "tins", "lilt", "set", "enlists"});
    m_list.ItemData(2, 9);
    EXPECT_EQ(m_list.FindRandom(QStringLiteral("listen")), QString());
    EXPECT_EQ(dataOf(m_list), QList<int>({6, 4, 0, 0, 0}));
}

TEST_F(WordListTest, RemoveItemsMatchingIsAnEqualityTestIgnoringCase) {
    fill(m_list, {"cake", "Cake", "cakes", "c*"});
    m_list.RemoveItemsMatching(QStringLiteral("CAKE"));
    EXPECT_EQ(itemsOf(m_list), QStringList({"cakes", "c*"}));
    m_list.RemoveItemsMatching(QStringLiteral("c*"));
    EXPECT_EQ(itemsOf(m_list), QStringList({"cakes"}));
}

TEST_F(WordListTest, RemoveItemDataMatchingRemovesEveryTaggedItem) {
    fill(m_list, {"a", "b", "c", "d"});
    m_list.ItemData(0, 2);
    m_list.ItemData(2, 2);
    m_list.RemoveItemDataMatching(2);
    EXPECT_EQ(itemsOf(m_list), QStringList({"b", "d"}));
    EXPECT_EQ(m_list.NewIndex(), 1);
}

TEST_F(WordListTest, RemoveDuplicatesKeepsFirstOccurrencesInOrder) {
    fill(m_list, {"b", "a", "B", "c", "A", "b", "d"});
    m_list.ItemData(1, 8);
    m_list.RemoveDuplicates();
    EXPECT_EQ(itemsOf(m_list), QStringList({"b", "a", "c", "d"}));
    EXPECT_EQ(dataOf(m_list), QList<int>({0, 8, 0, 0}));
}

TEST(WordListCapacity, GrowsByOneHundredSlotsPastTheLastIndex) {
    clsSimpleArray list;
    EXPECT_EQ(list.capacity(), 0);
    list.AddItem(QStringLiteral("w"));
    EXPECT_EQ(list.capacity(), 101);
    for (int n = 2; n <= 101; ++n)
        list.AddItem(QStringLiteral("w"));
    EXPECT_EQ(list.capacity(), 101);
    list.AddItem(QStringLiteral("w"), 0); // the 102nd item, inserted: last index 101
    EXPECT_EQ(list.capacity(), 202);
    while (list.ListCount() < 203)
        list.AddItem(QStringLiteral("w"));
    EXPECT_EQ(list.capacity(), 303);
}

TEST(WordListCapacity, ShrinksToTheItemsWhenMoreThanOneHundredSlotsAreUnused) {
    clsSimpleArray list;
    for (int n = 0; n < 300; ++n)
        list.AddItem(QString::number(n));
    ASSERT_EQ(list.capacity(), 303); // last slot 302
    while (list.ListCount() > 203)
        list.RemoveItem(0);
    EXPECT_EQ(list.capacity(), 303); // last index 202: exactly 100 unused slots
    list.RemoveItem(0);
    EXPECT_EQ(list.capacity(), 202); // last index 201: 101 unused, shrink to the 202 items
    EXPECT_EQ(list.List(0), QStringLiteral("98"));
    EXPECT_EQ(list.List(201), QStringLiteral("299"));
}

TEST(WordListCapacity, ShrinkPointAndBulkRemovalFollowTheSameRule) {
    clsSimpleArray list;
    for (int n = 0; n < 102; ++n)
        list.AddItem(QString::number(n));
    ASSERT_EQ(list.capacity(), 202); // last slot 201, last index 101
    list.RemoveItem(5);              // last index 100: 201 > 200
    EXPECT_EQ(list.capacity(), 101);
    EXPECT_EQ(list.List(5), QStringLiteral("6"));
    list.RemoveItem(0); // last index 99: 100 is not more than 199
    EXPECT_EQ(list.capacity(), 101);

    clsSimpleArray bulk;
    for (int n = 0; n < 102; ++n)
        bulk.AddItem(n % 2 ? QStringLiteral("odd") : QStringLiteral("even"));
    bulk.RemoveItemsMatching(QStringLiteral("odd")); // 51 removals, the first one shrinks
    EXPECT_EQ(bulk.ListCount(), 51);
    EXPECT_EQ(bulk.capacity(), 101);
    bulk.RemoveItemsMatching(QStringLiteral("even"));
    EXPECT_EQ(bulk.capacity(), 0);
}
