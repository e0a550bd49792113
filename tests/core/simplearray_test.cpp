// The word-list class: insertion, removal, the searches, index errors and capacity.
#include "core/clssimplearray.h"

#include "support/recordingnotifier.h"
#include "support/testfolder.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace {

// Items separated by blanks, non-zero item data after "=": "a b=7 c".
void fill(clsSimpleArray& list, const QString& state) {
    list.Clear();
    list.Sorted(false);
    for (const QString& item : state.split(u' ', Qt::SkipEmptyParts)) {
        list.AddItem(item.section(u'=', 0, 0));
        list.ItemData(list.NewIndex(), item.section(u'=', 1).toInt());
    }
}

QString stateOf(const clsSimpleArray& list) {
    QStringList items;
    for (int i = 0; i < list.ListCount(); ++i)
        items << list.List(i) + (list.ItemData(i) ? u'=' + QString::number(list.ItemData(i)) : "");
    return items.join(u' ');
}

class WordListTest : public ::testing::Test {
protected:
    TestFolder m_folder;
    RecordingNotifier m_notifier;
    clsSimpleArray m_list{&m_notifier};
};

} // namespace

TEST_F(WordListTest, OperationsOnTheItemsAndTheirData) {
    using L = clsSimpleArray;
    const auto all = [](L& l, const char* pattern, int calls) {
        QStringList found;
        for (int n = 0; n < calls; ++n)
            found << QString::number(l.FindStringAll(QLatin1String(pattern)));
        return found.join(u' ');
    };
    // NewIndex after filling is the last index; an operation that leaves it shows that.
    const struct {
        const char* before;
        std::function<QString(L&)> operation; // returns what the operation gave, as text
        const char* returned;
        const char* after;
        int newIndex;
    } rows[] = {
        {"a b=7 c", [](L& l) { return l.AddItem("x", 1), l.Text(); }, "x", "a x b=7 c", 1},
        {"a b", [](L& l) { return l.AddItem("end", 2), ""; }, "", "a b end", 2}, // appends
        {"a b=7", [](L& l) { return l.List(1, "z"), ""; }, "", "a z=7", 1},      // keeps the data
        // Texts of any length, one rewritten many times (the buffer keeps only what is used).
        {"a b c",
         [](L& l) {
             for (int k = 0; k < 40; ++k)
                 l.List(2, QString(300 + k, QChar(u'a' + k % 26)));
             l.List(0, QString(300, u'q'));
             l.RemoveItem(1);
             const bool kept = l.List(0) == QString(300, u'q') && l.List(1) == QString(339, u'n');
             return l.List(0, "q"), l.List(1, "n"), kept ? "kept" : "lost";
         },
         "kept", "q n", 1},
        {"a b", [](L& l) { return l.Clear(), QString::number(l.capacity()) + l.Text(); }, "0", "",
         -1},
        // Sorted: before the first greater item (codes), no reordering, ties in arrival order.
        {"b a", [](L& l) { return l.Sorted(true), l.AddItem("z", 0), l.AddItem("c"), ""; }, "",
         "c z b a", 0},
        {"",
         [](L& l) {
             l.Sorted(true);
             for (const char* item : {"b", "a", "c", "b", "B"})
                 l.AddItem(item);
             return QString::number(l.NewIndex());
         },
         "0", "B a b b c", 0},
        {"B a b=1 b c", [](L& l) { return l.Sorted(true), l.AddItem("b"), ""; }, "",
         "B a b=1 b b c", 4},
        // FindStringAll steps through unused matches, marks them and forgets NewIndex.
        {"cake bake kab* tram x", [&](L& l) { return all(l, "?a??*", 4); }, "0 1 2 -1",
         "cake=1 bake=1 kab*=1 tram x", -1},
        // FindString keeps NewIndex; FindStringOld skips one index and ignores the marks.
        {"cake bake",
         [](L& l) {
             return QStringLiteral("%1 %2").arg(l.FindString("*ake")).arg(l.FindString("*ake"));
         },
         "0 1", "cake=1 bake=1", 1},
        {"cake=1 bake=1",
         [](L& l) {
             return QStringLiteral("%1 %2")
                 .arg(l.FindStringOld("*ake", 0))
                 .arg(l.FindStringOld("*ake", 5));
         },
         "1 0", "cake=1 bake=1", -1},
        // FindRandom marks each item the letter pool can spell with its length.
        {"silent tins lilt=9 set enlists", [](L& l) { return l.FindRandom("listen"); }, "",
         "silent=6 tins=4 lilt set enlists", 4},
        {"a=2 b c=2 d", [](L& l) { return l.FindItemData(2) ? "found" : ""; }, "found",
         "a=2 b c=2 d", 0},
        {"a=2 b", [](L& l) { return l.FindItemData(6) ? "found" : ""; }, "", "a=2 b", -1},
        // FindItem ignoring case ("ß" is not "SS"); "=": whole item; "!": no match; NewIndex.
        {"Bread cake CAKES straße ÜBER",
         [](L& l) {
             l.AddItem("", 0);
             QStringList found;
             for (const char* text : {"=CAKE", "kes", "", "=", "=über", "=STRASSE", "=STRAßE"}) {
                 const QString t = QString::fromUtf8(text);
                 found << (l.FindItem(t.mid(t.startsWith(u'=')), t.startsWith(u'=')) ? "" : "!");
                 found.last() += QString::number(l.NewIndex());
             }
             return found.join(u' ');
         },
         "2 3 1 0 5 !-1 4", " Bread cake CAKES straße ÜBER", 4},
        {"a b c", [](L& l) { return l.RemoveItem(0), ""; }, "", "b c", 1},
        // Equality ignoring case, no pattern.
        {"cake Cake cakes c* x",
         [](L& l) { return l.RemoveItemsMatching("CAKE"), l.RemoveItemsMatching("c*"), ""; }, "",
         "cakes x", 1},
        {"a=2 b c=2 d", [](L& l) { return l.RemoveItemDataMatching(2), ""; }, "", "b d", 1},
        // The first occurrence of each value stays, in order.
        {"b a=8 B c A b d", [](L& l) { return l.RemoveDuplicates(), ""; }, "", "b a=8 c d", 3},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string("before: ") + row.before);
        fill(m_list, QString::fromUtf8(row.before));
        EXPECT_EQ(row.operation(m_list), QLatin1String(row.returned));
        EXPECT_EQ(stateOf(m_list), QString::fromUtf8(row.after));
        EXPECT_EQ(m_list.NewIndex(), row.newIndex);
    }
    EXPECT_TRUE(m_notifier.messages().isEmpty());
}

TEST_F(WordListTest, IndexErrorsLeaveTheListUnchangedAndNameTheirAccessor) {
    const std::pair<const char*, std::function<void(clsSimpleArray&)>> rows[] = {
        {"Get ItemData", [](clsSimpleArray& l) { EXPECT_EQ(l.ItemData(2), 0); }},
        {"Let ItemData", [](clsSimpleArray& l) { l.ItemData(-1, 5); }},
        {"Get List", [](clsSimpleArray& l) { EXPECT_EQ(l.List(2), QString()); }},
        {"Let List", [](clsSimpleArray& l) { l.List(9, QStringLiteral("x")); }},
        {"RemoveItem", [](clsSimpleArray& l) { l.RemoveItem(2); }},
        {"RemoveItem", [](clsSimpleArray& l) { l.RemoveItem(-1); }},
        {"AddItem", [](clsSimpleArray& l) { l.AddItem(QStringLiteral("x"), 3); }},
    };
    for (const auto& [function, call] : rows) {
        SCOPED_TRACE(function);
        fill(m_list, QStringLiteral("a b=4"));
        m_notifier.clear();
        call(m_list);
        EXPECT_EQ(stateOf(m_list), QStringLiteral("a b=4"));
        ASSERT_EQ(m_notifier.messages().size(), 1);
        EXPECT_TRUE(m_notifier.messages()[0].text.endsWith(QStringLiteral("Function: ") +
                                                           QString::fromLatin1(function)));
    }
}

TEST(WordListCapacity, GrowsPastTheLastSlotAndShrinksPastOneHundredUnused) {
    clsSimpleArray list;
    // Appending (the 102nd at the front) or removing until `count` leaves `capacity` slots.
    const std::pair<int, int> steps[] = {{1, 101},   {101, 101}, {102, 202}, {101, 101},
                                         {100, 101}, {300, 303}, {203, 303}, {202, 202}};
    for (const auto& [count, capacity] : steps) {
        while (list.ListCount() < count)
            list.AddItem(QString::number(list.ListCount()), list.ListCount() == 101 ? 0 : -1);
        while (list.ListCount() > count)
            list.RemoveItem(0);
        EXPECT_EQ(list.capacity(), capacity) << count << " items";
    }
    EXPECT_EQ(list.List(201), QStringLiteral("299"));

    list.Clear();
    for (int n = 0; n < 102; ++n)
        list.AddItem(n % 2 ? QStringLiteral("odd") : QStringLiteral("even"));
    list.RemoveItemsMatching(QStringLiteral("odd")); // 51 removals, the first one shrinks
    EXPECT_EQ(list.capacity(), 101);
    list.RemoveItemsMatching(QStringLiteral("even"));
    EXPECT_EQ(list.capacity(), 0);
}
