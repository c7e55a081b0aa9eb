#include "ostrel/menu_item.h"

#include <cstdio>
#include <memory>

#include "menu/counted_action.h"
#include "ostrel/language.h"
#include "ostrel/log.h"
#include "ostrel/surface.h"
#include "support/abi.h"
#include "support/log_capture.h"
#include "support/test_device.h"

using ostreltest::CountedAction;
using ostreltest::DeviceTest;
using ostreltest::LogCapture;
using ostreltest::offsetIn;
using ostreltest::slotOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class MenuItemTest : public DeviceTest {
protected:
    MenuItemTest() { initLogger(0); }
};

class PlainRow : public ItemDrawable {
public:
    using ItemDrawable::ItemDrawable;
    int draw(SDL_Rect&, bool) override { return 0; }
};

int add(void* number) { return *static_cast<int*>(number) += 5; }
int answerMinusSeven(void*) { return -7; }

// An address that no test reads; items only keep it.
OstrelSurface* someIcon() { return reinterpret_cast<OstrelSurface*>(0x1230); }

std::string iconLine(const char* label) {
    char line[64];
    std::snprintf(line, sizeof line, "%s labelicon = %p", label, static_cast<void*>(someIcon()));
    return line;
}

TEST_F(MenuItemTest, TheSecondActionDoesNothingAndSucceeds) {
    GeneralAction action(&add, nullptr);
    EXPECT_EQ(action.xdowork(nullptr), 0);
}

TEST_F(MenuItemTest, TheThirdOperationOfAnActionAnswersMinusOneAndTheFourthZero) {
    GeneralAction action(&add, nullptr);
    EXPECT_EQ(action.hostQuery(nullptr), -1);
    EXPECT_EQ(action.hostFlag(nullptr), 0);
}

TEST_F(MenuItemTest, AGeneralActionCallsItsFunctionWithItsOwnArgument) {
    int number = 10;
    int other = 100;
    GeneralAction action(&add, &number);
    EXPECT_EQ(action.dowork(&other), 15);
    EXPECT_EQ(number, 15);
    EXPECT_EQ(other, 100);
}

TEST_F(MenuItemTest, AGeneralActionReturnsANegativeResultAsItIs) {
    GeneralAction action(&answerMinusSeven, nullptr);
    EXPECT_EQ(action.dowork(nullptr), -7);
}

TEST_F(MenuItemTest, AGeneralActionIsSilentWithoutDebug) {
    int number = 1;
    GeneralAction action(&add, &number);
    GeneralAction idle(nullptr, nullptr);
    LogCapture log;
    action.dowork(nullptr);
    idle.dowork(nullptr);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(MenuItemTest, AGeneralActionWithDebugLogsOneLine) {
    int number = 1;
    GeneralAction action(&add, &number, /*debug=*/true);
    LogCapture log;
    action.dowork(nullptr);
    EXPECT_THAT(log.lines(), ElementsAre("GeneralAction dowork"));
}

TEST_F(MenuItemTest, AGeneralActionWithoutAFunctionFails) {
    GeneralAction action(nullptr, nullptr);
    EXPECT_EQ(action.dowork(nullptr), -1);
}

TEST_F(MenuItemTest, AGeneralActionWithoutAFunctionLogsANullPointerWithDebug) {
    GeneralAction action(nullptr, nullptr, /*debug=*/true);
    LogCapture log;
    EXPECT_EQ(action.dowork(nullptr), -1);
    EXPECT_THAT(log.lines(), ElementsAre("GeneralAction dowork dosth (nil)"));
}

TEST_F(MenuItemTest, AGeneralActionKeepsTheProgramsOwnPointerFirst) {
    int data = 0;
    int argument = 0;
    const GeneralAction action(&add, &argument, /*debug=*/true, &data);
    EXPECT_EQ(action.hostData, &data);
    EXPECT_EQ(action.fn, &add);
    EXPECT_EQ(action.arg, &argument);
    EXPECT_TRUE(action.debug);
}

TEST_F(MenuItemTest, ALabelIsShownAsItStands) {
    TextMenuItem item("Racing", nullptr, nullptr, false);
    item.labelId = 1;
    EXPECT_EQ(item.getLabel(), "Racing");
}

TEST_F(MenuItemTest, AnItemWithANullLabelShowsTheLanguageStringOfItsId) {
    TextMenuItem item(nullptr, nullptr, nullptr, false);
    EXPECT_EQ(item.label, "");
    item.labelId = 5;
    EXPECT_EQ(item.getLabel(), "BACK");
}

TEST_F(MenuItemTest, AnItemWithAnEmptyLabelShowsTheLanguageStringOfItsId) {
    TextMenuItem item("", nullptr, nullptr, false);
    item.labelId = 7;
    EXPECT_EQ(item.getLabel(), "MENU");
}

TEST_F(MenuItemTest, AnItemWithNeitherLabelNorIdIsEmpty) {
    TextMenuItem item(nullptr, nullptr, nullptr, false);
    EXPECT_EQ(item.getLabel(), "");
}

TEST_F(MenuItemTest, TheSubLabelIsEmptyUntilItIsSwitchedOn) {
    TextMenuItem item("Racing", nullptr, nullptr, false);
    item.subLabel = "two players";
    item.subLabelId = 1;
    EXPECT_EQ(item.getSubLabel(), "");
}

TEST_F(MenuItemTest, TheSubLabelIsShownWhenItIsSwitchedOn) {
    TextMenuItem item("Racing", nullptr, nullptr, false);
    item.hasSubLabel = true;
    item.subLabel = "two players";
    item.subLabelId = 1;
    EXPECT_EQ(item.getSubLabel(), "two players");
}

TEST_F(MenuItemTest, AnEmptySubLabelShowsTheLanguageStringOfItsId) {
    TextMenuItem item("Racing", nullptr, nullptr, false);
    item.hasSubLabel = true;
    item.subLabelId = 4;
    EXPECT_EQ(item.getSubLabel(), "OPEN");
}

TEST_F(MenuItemTest, ANewItemIsPlain) {
    TextMenuItem item("Racing", nullptr, nullptr, false);
    EXPECT_EQ(item.getAction(), nullptr);
    EXPECT_EQ(item.getIcon(), nullptr);
    EXPECT_EQ(item.getIconRect(), nullptr);
    EXPECT_FALSE(item.isMarked());
    EXPECT_FALSE(item.hasSubLabel);
    EXPECT_EQ(item.getThemePath(), "");
    EXPECT_EQ(item.getTextA(), "");
    EXPECT_EQ(item.getTextC(), "");
    EXPECT_EQ(item.getTextD(), "");
}

TEST_F(MenuItemTest, TheExtraTextsAndTheMarkAreTheFieldsThatTheProgramSets) {
    TextMenuItem item("Racing", nullptr, nullptr, false);
    item.textA = "a";
    item.textC = "c";
    item.textD = "d";
    item.marked = true;
    EXPECT_EQ(item.getTextA(), "a");
    EXPECT_EQ(item.getTextC(), "c");
    EXPECT_EQ(item.getTextD(), "d");
    EXPECT_TRUE(item.isMarked());
}

TEST_F(MenuItemTest, AnIconIsKeptAndLoggedWithTheLabel) {
    LogCapture log;
    TextMenuItem item("Racing", someIcon(), nullptr, false);
    EXPECT_EQ(item.getIcon(), someIcon());
    EXPECT_THAT(log.lines(), ElementsAre(iconLine("Racing")));
}

TEST_F(MenuItemTest, AnIconWithoutALabelIsLoggedWithAnEmptyOne) {
    LogCapture log;
    const TextMenuItem item(nullptr, someIcon(), nullptr, false);
    EXPECT_THAT(log.lines(), ElementsAre(iconLine("")));
}

TEST_F(MenuItemTest, AnItemWithoutAnIconLogsNothing) {
    LogCapture log;
    const TextMenuItem item("Racing", nullptr, nullptr, false);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(MenuItemTest, AnItemNeverFreesItsIcon) {
    int deaths = 0;
    class Icon : public SDL2OstrelSurface {
    public:
        explicit Icon(int& deaths) : SDL2OstrelSurface(nullptr, nullptr), mDeaths(deaths) {}
        ~Icon() override { ++mDeaths; }

    private:
        int& mDeaths;
    } icon(deaths);
    delete new TextMenuItem("Racing", &icon, nullptr, true);
    EXPECT_EQ(deaths, 0);
}

TEST_F(MenuItemTest, AnItemThatOwnsItsActionDeletesIt) {
    int deaths = 0;
    ListItem* item = new TextMenuItem("Racing", nullptr, new CountedAction(deaths), true);
    EXPECT_EQ(deaths, 0);
    delete item;
    EXPECT_EQ(deaths, 1);
}

TEST_F(MenuItemTest, AnItemThatDoesNotOwnItsActionLeavesItUsable) {
    int deaths = 0;
    CountedAction action(deaths);
    delete new TextMenuItem("Racing", nullptr, &action, false);
    EXPECT_EQ(deaths, 0);
    EXPECT_EQ(action.dowork(nullptr), 1);
}

TEST_F(MenuItemTest, AnItemMayOwnNoAction) {
    const TextMenuItem item("Racing", nullptr, nullptr, true);
    EXPECT_TRUE(item.ownAction);
}

TEST_F(MenuItemTest, ASettingsRowAlwaysDeletesItsAction) {
    int deaths = 0;
    ListItem* row = new PlainRow(new CountedAction(deaths));
    delete row;
    EXPECT_EQ(deaths, 1);
}

TEST_F(MenuItemTest, ASettingsRowMayHaveNoAction) {
    const PlainRow row(nullptr);
    EXPECT_EQ(row.action, nullptr);
}

TEST_F(MenuItemTest, ASettingsRowIsSelectableAndHasNoUseForKeysByDefault) {
    PlainRow row(nullptr);
    EXPECT_EQ(row.isSelectable(), 1);
    for (int key = -1; key <= 15; ++key) EXPECT_EQ(row.handleEvent(key), -1) << key;
}

TEST_F(MenuItemTest, AGroupedActionKeepsItsGroup) {
    class Folder : public GroupedAction {
    public:
        Folder() : GroupedAction(3) {}
        int dowork(void*) override { return 0; }
    };
    EXPECT_EQ(Folder().sortGroup, 3);
}

TEST_F(MenuItemTest, TheOperationsOfAnActionHaveTheirSlots) {
    EXPECT_EQ(slotOf(&Action::dowork), 3);
    EXPECT_EQ(slotOf(&Action::xdowork), 4);
    EXPECT_EQ(slotOf(&Action::hostQuery), 5);
    EXPECT_EQ(slotOf(&Action::hostFlag), 6);
}

TEST_F(MenuItemTest, TheFieldsOfAGeneralActionHaveTheirPlaces) {
    const GeneralAction action(nullptr, nullptr);
    EXPECT_EQ(offsetIn(action, action.hostData), 8);
    EXPECT_EQ(offsetIn(action, action.fn), 16);
    EXPECT_EQ(offsetIn(action, action.arg), 24);
    EXPECT_EQ(offsetIn(action, action.debug), 32);
}

TEST_F(MenuItemTest, TheOperationsOfATextRowHaveTheirSlots) {
    EXPECT_EQ(slotOf(&TextMenuItemProvider::getAction), 3);
    EXPECT_EQ(slotOf(&TextMenuItemProvider::getTextC), 4);
    EXPECT_EQ(slotOf(&TextMenuItemProvider::getTextA), 5);
    EXPECT_EQ(slotOf(&TextMenuItemProvider::getTextD), 6);
    EXPECT_EQ(slotOf(&TextMenuItemProvider::getLabel), 7);
    EXPECT_EQ(slotOf(&TextMenuItemProvider::getSubLabel), 8);
    EXPECT_EQ(slotOf(&TextMenuItemProvider::getIcon), 9);
    EXPECT_EQ(slotOf(&TextMenuItemProvider::getIconRect), 10);
    EXPECT_EQ(slotOf(&TextMenuItemProvider::isMarked), 11);
    EXPECT_EQ(slotOf(&TextMenuItemProvider::getThemePath), 12);
}

TEST_F(MenuItemTest, AnItemKeepsTheSlotsOfATextRow) {
    EXPECT_EQ(slotOf(&TextMenuItem::getAction), 3);
    EXPECT_EQ(slotOf(&TextMenuItem::getThemePath), 12);
}

TEST_F(MenuItemTest, TheFieldsOfAnItemHaveTheirPlaces) {
    const TextMenuItem item("", nullptr, nullptr, false);
    EXPECT_EQ(offsetIn(item, item.label), 8);
    EXPECT_EQ(offsetIn(item, item.labelId), 40);
    EXPECT_EQ(offsetIn(item, item.action), 48);
    EXPECT_EQ(offsetIn(item, item.ownAction), 56);
    EXPECT_EQ(offsetIn(item, item.marked), 57);
    EXPECT_EQ(offsetIn(item, item.icon), 64);
    EXPECT_EQ(offsetIn(item, item.hasSubLabel), 72);
    EXPECT_EQ(offsetIn(item, item.subLabel), 80);
    EXPECT_EQ(offsetIn(item, item.subLabelId), 112);
    EXPECT_EQ(offsetIn(item, item.textA), 120);
    EXPECT_EQ(offsetIn(item, item.textC), 152);
    EXPECT_EQ(offsetIn(item, item.textD), 184);
}

TEST_F(MenuItemTest, TheOperationsOfASettingsRowHaveTheirSlots) {
    EXPECT_EQ(slotOf(&ItemDrawable::draw), 3);
    EXPECT_EQ(slotOf(&ItemDrawable::isSelectable), 4);
    EXPECT_EQ(slotOf(&ItemDrawable::handleEvent), 5);
    const PlainRow row(nullptr);
    EXPECT_EQ(offsetIn(row, row.action), 8);
}

}  // namespace
