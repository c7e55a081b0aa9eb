#include "ostrel/text_menu.h"

#include <cstring>

#include "ostrel/log.h"
#include "ostrel/skin.h"
#include "support/abi.h"
#include "support/log_capture.h"
#include "support/test_device.h"

using ostreltest::DeviceTest;
using ostreltest::offsetIn;
using ostreltest::slotOf;
using ostreltest::slotOfObject;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

// A row that counts its end.
class MortalItem : public TextMenuItem {
public:
    MortalItem(const char* words, int& deaths) : TextMenuItem(words, nullptr, nullptr, false), mDeaths(deaths) {}
    ~MortalItem() override { ++mDeaths; }

private:
    int& mDeaths;
};

class TextMenuTest : public DeviceTest {
protected:
    TextMenuTest() { initLogger(0); }

    MortalItem* item(const char* label) { return new MortalItem(label, deaths); }
    static std::vector<std::string> labels(TextMenu& menu) {
        std::vector<std::string> result;
        for (TextMenuItemProvider* row : menu.items) result.push_back(row == nullptr ? "(null)" : row->getLabel());
        return result;
    }

    int deaths = 0;
    TextMenu menu{nullptr, nullptr, 6, 10};
};

int byLabel(void* a, void* b) {
    return std::strcmp(static_cast<TextMenuItem*>(a)->label.c_str(), static_cast<TextMenuItem*>(b)->label.c_str());
}

std::vector<std::pair<void*, void*>> comparisons;
int alwaysLater(void* a, void* b) {
    comparisons.emplace_back(a, b);
    return 1;
}

TEST_F(TextMenuTest, StartsEmptyWithTheDrawersMeasures) {
    EXPECT_EQ(menu.getListNum(), 0);
    EXPECT_EQ(menu.mItemHeight, 88);
    EXPECT_EQ(menu.mYSpaceInList, 10);
    EXPECT_EQ(menu.itemsPerPage, 6);
}

TEST_F(TextMenuTest, InsertItemAppends) {
    TextMenuItem* first = item("b");
    TextMenuItem* second = item("a");
    menu.insertItem(first);
    menu.insertItem(second);
    EXPECT_EQ(menu.getListNum(), 2);
    EXPECT_EQ(menu.getItemByIndex(0), first);
    EXPECT_EQ(menu.getItemByIndex(1), second);
}

TEST_F(TextMenuTest, ANullItemIsStoredAndCounted) {
    menu.insertItem(nullptr);
    menu.insertItem(item("a"));
    EXPECT_EQ(menu.getListNum(), 2);
    EXPECT_EQ(menu.getItemByIndex(0), nullptr);
    menu.removeItem(0);
    EXPECT_THAT(labels(menu), ElementsAre("a"));
}

TEST_F(TextMenuTest, AnIndexThatNamesNoRowGivesNull) {
    menu.insertItem(item("a"));
    EXPECT_EQ(menu.getItemByIndex(-1), nullptr);
    EXPECT_EQ(menu.getItemByIndex(1), nullptr);
    EXPECT_EQ(menu.getItemByIndex(1'000'000), nullptr);
}

TEST_F(TextMenuTest, SortedInsertionFollowsTheComparator) {
    for (const char* label : {"b", "a", "d", "c"}) menu.insertItemSorted(item(label), &byLabel);
    EXPECT_THAT(labels(menu), ElementsAre("a", "b", "c", "d"));
}

TEST_F(TextMenuTest, AmongEqualItemsTheNewestComesFirst) {
    TextMenuItem* oldA = item("a");
    TextMenuItem* newA = item("a");
    menu.insertItemSorted(item("b"), &byLabel);
    menu.insertItemSorted(oldA, &byLabel);
    menu.insertItemSorted(newA, &byLabel);
    EXPECT_EQ(menu.getItemByIndex(0), newA);
    EXPECT_EQ(menu.getItemByIndex(1), oldA);
    EXPECT_THAT(labels(menu), ElementsAre("a", "a", "b"));
}

TEST_F(TextMenuTest, TheComparatorGetsTheNewItemFirstAndWalksFromTheTop) {
    TextMenuItem* a = item("a");
    TextMenuItem* b = item("b");
    TextMenuItem* c = item("c");
    menu.insertItem(a);
    menu.insertItem(b);
    comparisons.clear();
    menu.insertItemSorted(c, &alwaysLater);
    EXPECT_THAT(comparisons, ElementsAre(std::pair<void*, void*>{c, a}, std::pair<void*, void*>{c, b}));
    EXPECT_EQ(menu.getItemByIndex(2), c);
}

TEST_F(TextMenuTest, TheComparatorGetsNullForARowInsertedAsNull) {
    TextMenuItem* a = item("a");
    menu.insertItem(nullptr);
    comparisons.clear();
    menu.insertItemSorted(a, &alwaysLater);
    menu.insertItemSorted(nullptr, &alwaysLater);
    EXPECT_THAT(comparisons, ElementsAre(std::pair<void*, void*>{a, nullptr}, std::pair<void*, void*>{nullptr, nullptr},
                                         std::pair<void*, void*>{nullptr, a}));
}

TEST_F(TextMenuTest, TheWalkStopsAtTheFirstRowThatTheNewOneDoesNotFollow) {
    for (const char* label : {"b", "z", "c"}) menu.insertItem(item(label));
    menu.insertItemSorted(item("d"), &byLabel);
    EXPECT_THAT(labels(menu), ElementsAre("b", "d", "z", "c"));
}

TEST_F(TextMenuTest, AUniqueItemIsAppended) {
    EXPECT_EQ(menu.insertItemUnique(item("b")), 1);
    EXPECT_EQ(menu.insertItemUnique(item("a")), 1);
    EXPECT_THAT(labels(menu), ElementsAre("b", "a"));
}

TEST_F(TextMenuTest, AnItemWithALabelThatIsThereStaysTheCallers) {
    menu.insertItem(item("abc"));
    menu.insertItem(item("xyz"));
    TextMenuItem* twin = item("xyz");
    EXPECT_EQ(menu.insertItemUnique(twin), 0);
    EXPECT_EQ(menu.getListNum(), 2);
    EXPECT_EQ(deaths, 0);
    delete twin;
}

TEST_F(TextMenuTest, APrefixIsAnotherLabel) {
    menu.insertItem(item("abc"));
    EXPECT_EQ(menu.insertItemUnique(item("ab")), 1);
    EXPECT_EQ(menu.insertItemUnique(item("abcd")), 1);
    EXPECT_EQ(menu.insertItemUnique(item("ABC")), 1);
}

TEST_F(TextMenuTest, BytesBehindAZeroCount) {
    TextMenuItem* one = item("");
    one->label = std::string("a\0b", 3);
    TextMenuItem* other = item("");
    other->label = std::string("a\0c", 3);
    EXPECT_EQ(menu.insertItemUnique(one), 1);
    EXPECT_EQ(menu.insertItemUnique(other), 1);
}

TEST_F(TextMenuTest, RowsLabelledByIdAloneAreAllEqual) {
    TextMenuItem* first = item(nullptr);
    TextMenuItem* second = item(nullptr);
    first->labelId = 0;
    second->labelId = 1;
    EXPECT_EQ(menu.insertItemUnique(first), 1);
    EXPECT_EQ(menu.insertItemUnique(second), 0);
    delete second;
}

TEST_F(TextMenuTest, UniqueInsertionPassesOverNullRowsAndRefusesNull) {
    menu.insertItem(nullptr);
    EXPECT_EQ(menu.insertItemUnique(item("a")), 1);
    EXPECT_EQ(menu.insertItemUnique(nullptr), 0);
    EXPECT_EQ(menu.getListNum(), 2);
}

TEST_F(TextMenuTest, RemoveItemDeletesTheItemAndClosesTheGap) {
    for (const char* label : {"a", "b", "c"}) menu.insertItem(item(label));
    menu.removeItem(1);
    EXPECT_THAT(labels(menu), ElementsAre("a", "c"));
    EXPECT_EQ(deaths, 1);
    menu.removeItem(1);
    EXPECT_THAT(labels(menu), ElementsAre("a"));
    EXPECT_EQ(deaths, 2);
}

TEST_F(TextMenuTest, RemoveItemIgnoresAnIndexThatNamesNoRow) {
    menu.insertItem(item("a"));
    menu.removeItem(-1);
    menu.removeItem(1);
    EXPECT_EQ(menu.getListNum(), 1);
    EXPECT_EQ(deaths, 0);
}

TEST_F(TextMenuTest, RemovingLeavesCursorAndRangeAlone) {
    for (const char* label : {"a", "b", "c"}) menu.insertItem(item(label));
    menu.restorePos(2, 1, 2);
    menu.removeItem(2);
    EXPECT_EQ(menu.mCurIndex, 2);
    EXPECT_EQ(menu.mFirstIndex, 1);
    EXPECT_EQ(menu.mLastIndex, 2);
}

TEST_F(TextMenuTest, RemovingAnItemDeletesTheActionThatItOwns) {
    static int actionDeaths;
    actionDeaths = 0;
    class Counted : public Action {
    public:
        ~Counted() override { ++actionDeaths; }
        int dowork(void*) override { return 0; }
    };
    menu.insertItem(new TextMenuItem("a", nullptr, new Counted, true));
    menu.removeItem(0);
    EXPECT_EQ(actionDeaths, 1);
}

TEST_F(TextMenuTest, AnItemIsOutOfTheListBeforeItIsDeleted) {
    class Watching : public TextMenuItem {
    public:
        Watching(TextMenu& menu, int& seen) : TextMenuItem("w", nullptr, nullptr, false), mMenu(menu), mSeen(seen) {}
        ~Watching() override { mSeen = mMenu.getListNum(); }

    private:
        TextMenu& mMenu;
        int& mSeen;
    };
    int seen = -1;
    menu.insertItem(item("a"));
    menu.insertItem(new Watching(menu, seen));
    menu.removeItem(1);
    EXPECT_EQ(seen, 1);
}

TEST_F(TextMenuTest, ClearingDeletesEveryItemAndLeavesTheMenuUsable) {
    menu.insertItem(item("a"));
    menu.insertItem(nullptr);
    menu.insertItem(item("b"));
    menu.clearItemList();
    EXPECT_EQ(menu.getListNum(), 0);
    EXPECT_EQ(deaths, 2);
    menu.insertItem(item("c"));
    EXPECT_THAT(labels(menu), ElementsAre("c"));
}

TEST_F(TextMenuTest, ClearingAnEmptyMenuDoesNothing) {
    menu.clearItemList();
    menu.freeListItem();
    EXPECT_EQ(menu.getListNum(), 0);
}

TEST_F(TextMenuTest, ClearingKeepsTheRoom) {
    for (int i = 0; i < 100; ++i) menu.insertItem(item("a"));
    const std::size_t room = menu.items.capacity();
    menu.freeListItem();
    EXPECT_EQ(menu.items.capacity(), room);
    EXPECT_EQ(deaths, 100);
}

TEST_F(TextMenuTest, ClearingGoesThroughTheTable) {
    class Own : public TextMenu {
    public:
        Own() : TextMenu(nullptr, nullptr, 6, 10) {}
        void freeListItem() override { ++calls; }
        int calls = 0;
    } own;
    own.clearItemList();
    EXPECT_EQ(own.calls, 1);
}

TEST_F(TextMenuTest, TheMenuDeletesItsItemsWhenItGoes) {
    auto* gone = new TextMenu(nullptr, nullptr, 6, 10);
    gone->insertItem(item("a"));
    gone->insertItem(nullptr);
    gone->insertItem(item("b"));
    ListMenu* list = gone;
    delete list;
    EXPECT_EQ(deaths, 2);
}

TEST_F(TextMenuTest, TheOperationsHaveTheirSlotsAndNarrowerResultsAddNone) {
    EXPECT_EQ(slotOf(&TextMenu::restorePos), 3);
    EXPECT_EQ(slotOf(&TextMenu::eventHandling), 4);
    EXPECT_EQ(slotOf(&TextMenu::select), 5);
    EXPECT_EQ(slotOf(&TextMenu::getItemByIndex), 6);
    EXPECT_EQ(slotOf(&TextMenu::getItemThemePath), 7);
    EXPECT_EQ(slotOf(&TextMenu::draw), 8);
    EXPECT_EQ(slotOf(&TextMenu::getListNum), 9);
    EXPECT_EQ(slotOf(&TextMenu::moveForward), 10);
    EXPECT_EQ(slotOf(&TextMenu::moveBackward), 11);
    EXPECT_EQ(slotOf(&TextMenu::xselect), 12);
    EXPECT_EQ(slotOf(&TextMenu::refresh), 13);
    EXPECT_EQ(slotOf(&TextMenu::removeItem), 14);
    EXPECT_EQ(slotOf(&TextMenu::clearItemList), 15);
    EXPECT_EQ(slotOf(&TextMenu::onShow), 16);
    EXPECT_EQ(slotOf(&TextMenu::onHide), 17);
    EXPECT_EQ(slotOf(&TextMenu::pageUp), 18);
    EXPECT_EQ(slotOf(&TextMenu::pageDown), 19);
    EXPECT_EQ(slotOf(&TextMenu::drawListNum), 20);
    EXPECT_EQ(slotOf(&TextMenu::freeListItem), 21);
}

TEST_F(TextMenuTest, OverridingTheRowOfAnIndexReplacesOneWordOfTheTable) {
    class Own : public TextMenu {
    public:
        Own() : TextMenu(nullptr, nullptr, 6, 10) {}
        TextMenuItem* getItemByIndex(int) override { return nullptr; }
    } own;
    for (int slot = 3; slot <= 21; ++slot) {
        EXPECT_EQ(slotOfObject(&own, slot) != slotOfObject(&menu, slot), slot == 6) << slot;
    }
}

TEST_F(TextMenuTest, TheFieldsHaveTheirPlaces) {
    EXPECT_EQ(offsetIn(menu, menu.selBg), 112);
    EXPECT_EQ(offsetIn(menu, menu.normalBg), 120);
    EXPECT_EQ(offsetIn(menu, menu.selMark), 128);
    EXPECT_EQ(offsetIn(menu, menu.extraSurface), 136);
    EXPECT_EQ(offsetIn(menu, menu.mItemHeight), 144);
    EXPECT_EQ(offsetIn(menu, menu.mYSpaceInList), 148);
    EXPECT_EQ(offsetIn(menu, menu.showListNum), 152);
    EXPECT_EQ(offsetIn(menu, menu.reservedFlag), 153);
    EXPECT_EQ(offsetIn(menu, menu.showStatNum), 154);
    EXPECT_EQ(offsetIn(menu, menu.reservedText), 160);
    EXPECT_EQ(offsetIn(menu, menu.textColor), 192);
    EXPECT_EQ(offsetIn(menu, menu.altTextColor), 196);
    EXPECT_EQ(offsetIn(menu, menu.marquee), 200);
    EXPECT_EQ(offsetIn(menu, menu.itemsPerPage), 204);
    EXPECT_EQ(offsetIn(menu, menu.themePath), 208);
    EXPECT_EQ(offsetIn(menu, menu.iconCache), 240);
    EXPECT_EQ(offsetIn(menu, menu.thumbCache), 288);
    EXPECT_EQ(offsetIn(menu, menu.bgInset), 336);
    EXPECT_EQ(offsetIn(menu, menu.textMode), 340);
    EXPECT_EQ(offsetIn(menu, menu.items), 344);
}

}  // namespace
