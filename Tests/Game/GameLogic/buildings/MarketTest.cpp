#include <gtest/gtest.h>

#include "Engine/core/Arch.h"
#include "Game/GameLogic/buildings/MarketTask.h"
#include "Game/GameLogic/buildings/Shop.h"
#include "Game/GameLogic/buildings/StartPoint.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Game/GameUI/Tactic/MarketMenu.h"
#include "Tests/Support/LevelAudit.h"
#include "Tests/Support/SmallLevel.h"

using namespace Engine;

/// A start point with 100 money, 5 food and 3 men at 0, a road to a shop at 1.
class Market : public testing::Test {
protected:
    /// @param tasks  the children of "Tasks"
    void start(const std::string& tasks, const std::string& keys = {}) {
        m_level.getProgram().write("GameLogic/MarketTask.xml",
                                   "<T><Upgrades><U UpgradeTime=\"1\" MenAmount=\"1\"/></Upgrades></T>");
        m_level.getProgram().write("GameLogic/ShopMenu.xml", "<M Enable=\"1\"/>");
        m_level.start(
            "<L Size=\"800,600\"><Points><P Pos=\"100,300\"/><P Pos=\"200,300\"/></Points><Arcs><A p1=\"0\" p2=\"1\" "
            "Type=\"1\"/></Arcs><Buildings><B Type=\"8\" Position=\"100,300\" Capacity=\"50\" PrevLevel=\"-1\" "
            "MenAmount=\"3\" Money=\"100\" Food=\"5\"><Points><P index=\"0\"/></Points></B><B Type=\"17\" "
            "Position=\"200,300\" " +
            keys + "><Points><P index=\"1\"/></Points><Tasks>" + tasks + "</Tasks></B></Buildings></L>");
        m_level.frames(100);  // the caravan comes
    }
    /// Once the shop's clock has gone that far.
    void waitUntil(Float time) {
        while (shop().getMarketTime() < time)
            m_level.frames(1);
    }
    /// Until nobody has anything to do, counting every item after every frame.
    void playAudited() {
        cLevelAudit audit;
        audit.start();
        for (Int i = 0; i < 3000 && !(map().getGoals()->isEmpty() && map().getBusyMen().empty()); ++i) {
            m_level.frames(1);
            ASSERT_EQ(audit.findFault(0.02f), "");
        }
        EXPECT_TRUE(map().getBusyMen().empty());
    }
    cTacticMap& map() { return m_level.getMap(); }
    cShop& shop() { return static_cast<cShop&>(*m_level.getBuilding(1)); }
    cMarketTask& trade(const char* id) { return *shop().findTask(id); }
    const sResourceCargo& stock() { return map().getGlobalCargo(true); }

    cSmallLevel m_level;
};

constexpr char food_for_stone[] =
    "<T id=\"stone\" repeat=\"1\"><src_cargo Money=\"10\" Food=\"2\"/><dst_cargo Money=\"1\" Stone=\"2\"/></T>";
constexpr char plan[] = "<T id=\"plan\" index=\"1\" repeat=\"0\" product_id=\"26\"><src_cargo Money=\"40\"/></T>";

TEST_F(Market, whatIsPaidComesAndWhatIsBoughtIsFetched) {
    start(food_for_stone);
    ASSERT_TRUE(trade("stone").isAllowed());
    ASSERT_TRUE(trade("stone").createUpgradeGoals());
    EXPECT_EQ(stock()[resourceMoney], 90);  // promised
    playAudited();
    EXPECT_EQ(stock(), (sResourceCargo{{91, 3, 0, 2, 0}}));
    EXPECT_TRUE(trade("stone").isDone());
    EXPECT_TRUE(trade("stone").isActive());  // it can be repeated
    EXPECT_EQ(map().getLevelStat(statShopDeals), 1);
}

TEST_F(Market, ordersOfOneTradeAreCarriedOutOneAfterTheOther) {
    start(food_for_stone);
    trade("stone").createUpgradeGoals();
    trade("stone").createUpgradeGoals();
    EXPECT_EQ(trade("stone").getOrderCount(), 2u);
    playAudited();
    EXPECT_EQ(stock(), (sResourceCargo{{82, 1, 0, 4, 0}}));
    EXPECT_EQ(map().getLevelStat(statShopDeals), 2);
    EXPECT_FALSE(trade("stone").isAllowed());  // one piece of food is too little
}

// The second order takes from men who bring home what the first one gave.
TEST_F(Market, anOrderIsPaidOutOfTheHandsOfMenOnTheirWayHome) {
    start("<T id=\"swap\" repeat=\"1\"><src_cargo Money=\"60\"/><dst_cargo Money=\"60\"/></T>");
    trade("swap").createUpgradeGoals();
    const auto is_coming_home = [this] {
        std::vector<cFriendMan*> men;
        map().getLoadingMen(men);
        return !men.empty();
    };
    for (Int i = 0; i < 3000 && !is_coming_home(); ++i)
        m_level.frames(1);
    ASSERT_EQ(stock()[resourceMoney], 100);
    trade("swap").createUpgradeGoals();
    trade("swap").endOrder(-5);  // nothing of its own
    playAudited();
    EXPECT_EQ(stock()[resourceMoney], 100);
    EXPECT_EQ(map().getLevelStat(statShopDeals), 2);
}

TEST_F(Market, theRightButtonCallsOrdersOffAndGivesBackWhatTheyHadPromised) {
    start(food_for_stone);
    trade("stone").createUpgradeGoals();
    trade("stone").createUpgradeGoals();
    map().clearTasks();
    EXPECT_EQ(trade("stone").getOrderCount(), 0u);
    EXPECT_EQ(trade("stone").getUpgradeState(), cUpgradableUnit::idle);
    EXPECT_TRUE(map().getGoals()->isEmpty());
    EXPECT_EQ(stock(), (sResourceCargo{{100, 5, 0, 0, 0}}));
}

TEST_F(Market, aPlanIsSoldOnceAndFreesTheBridge) {
    start(plan);
    EXPECT_TRUE(map().getUpgrades().contains(26));
    trade("plan").createUpgradeGoals();
    EXPECT_FALSE(trade("plan").isAllowed());  // it is being bought
    playAudited();
    EXPECT_EQ(map().getProduct(26), 1);
    EXPECT_TRUE(map().getUpgrades().empty());
    EXPECT_FALSE(trade("plan").isActive());
    EXPECT_TRUE(shop().getSchedule().empty());
}

TEST_F(Market, aPlanThatIsOwnedIsDoneFromTheBeginning) {
    start(std::string(plan) +
          "<T id=\"next\" depends=\"plan\"/><T id=\"never\" depends=\"next\"/><T id=\"free\" "
          "depends=\"nobody\"/>");
    map().addProduct(26, 1);
    shop().setInitState();
    shop().updateView(false);
    m_level.frames(2);
    EXPECT_TRUE(map().getUpgrades().empty());
    EXPECT_FALSE(trade("plan").isActive());
    EXPECT_TRUE(trade("next").isActive());
    EXPECT_FALSE(trade("never").isActive());
    EXPECT_TRUE(trade("free").isActive());  // what does not exist is no condition
}

TEST_F(Market, tradesComeAndGoByTheTimetable) {
    start(
        "<T id=\"a\" start_time=\"10\" length=\"5\" delay=\"20\" repeat=\"1\"/><T id=\"b\" start_time=\"10\" "
        "length=\"5\" repeat=\"0\"/><T id=\"c\" start_time=\"-1\" repeat=\"1\"/>");
    const auto open = [this](Float time) {
        waitUntil(time);
        std::string res;
        for (const cMarketTask* task : shop().getActiveTasks())
            res += task->getId();
        return res;
    };
    EXPECT_EQ(open(9.9f), "c");  // its chance lies within a period of 0
    EXPECT_EQ(open(10.1f), "abc");
    EXPECT_EQ(open(15.1f), "c");
    EXPECT_EQ(open(34.8f), "c");
    EXPECT_EQ(open(35.1f), "ac");
    EXPECT_EQ(shop().getSchedule().size(), 1u);
}

TEST_F(Market, anOrderedMarketShowsOneTradeAfterTheOther) {
    start("<T id=\"a\" start_time=\"10\" length=\"5\" repeat=\"1\"/><T id=\"b\" length=\"7\" repeat=\"0\"/>",
          "Ordered=\"1\"");
    waitUntil(9.9f);
    EXPECT_TRUE(shop().getActiveTasks().empty());
    waitUntil(10.1f);
    EXPECT_EQ(shop().getActiveTasks(), std::vector<cMarketTask*>{&trade("a")});
    waitUntil(15.1f);
    EXPECT_EQ(shop().getActiveTasks(), std::vector<cMarketTask*>{&trade("b")});
    waitUntil(22.1f);
    EXPECT_EQ(shop().getActiveTasks(), std::vector<cMarketTask*>{&trade("a")});  // from the beginning
}

TEST_F(Market, anOrderedMarketWithoutABeginningStandsStill) {
    start("<T id=\"a\" start_time=\"-1\"/>", "Ordered=\"1\"");
    m_level.frames(100);
    EXPECT_EQ(shop().getMarketTime(), 0.0f);
    EXPECT_TRUE(shop().getActiveTasks().empty());
}

TEST_F(Market, comesBackFromItsRecordAndFetchesWhatLayThere) {
    start(std::string(food_for_stone) + plan + "<T id=\"a\" start_time=\"10\" length=\"5\" delay=\"20\"/>");
    trade("stone").setDone(true);
    shop().returnResourceItems(resourceIron, 2);
    std::vector<char> bytes;
    cBufferWriter writer(&bytes);
    shop().saveBinState(writer);
    const auto load = [this](std::vector<char> record) {
        map().setBuilding(1, nullptr);  // the shop before it
        cBufferReader reader(&record);
        auto* res = static_cast<cShop*>(cLevelObject::create(objectShop, map()));
        res->loadBinState(reader);
        return res;
    };
    cShop* loaded = load(bytes);
    ASSERT_EQ(loaded->getTasks().size(), 3u);
    EXPECT_TRUE(loaded->findTask("stone")->isDone());
    EXPECT_EQ(loaded->findTask("plan")->getProductId(), 26);
    EXPECT_EQ(loaded->findTask("stone")->getDstCargo(), trade("stone").getDstCargo());
    EXPECT_EQ(loaded->findTask("a")->getStartTime(), 20.0f);  // as far off as its delay
    loaded->setInitState();
    map().updateView(false);
    m_level.frames(5);
    playAudited();
    EXPECT_EQ(stock()[resourceIron], 2);
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        try {
            load({bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length)});
        } catch (const std::string&) {
            continue;  // said so; what a cut can't be told from is a shop all the same
        }
    }
}

TEST_F(Market, theWindowHoldsTheLevelUntilItIsClosed) {
    start(food_for_stone);
    shop().showMarketWindow();
    ASSERT_TRUE(cMarketMenu::getInstance());
    EXPECT_TRUE(map().isLocked());
    EXPECT_TRUE(cMarketMenu::getInstance()->findButton(trade("stone")));
    const Float time = shop().getMarketTime();
    m_level.frames(50);
    EXPECT_EQ(shop().getMarketTime(), time);
    cMarketMenu::getInstance()->closeMenu();
    m_level.frames(2);
    EXPECT_FALSE(cMarketMenu::getInstance());
    EXPECT_FALSE(map().isLocked());
    EXPECT_GT(shop().getMarketTime(), time);
}

struct sBadTasks {
    const char* name;
    const char* tasks;
    const char* failure;
};

void PrintTo(const sBadTasks& bad, std::ostream* out) {
    *out << bad.tasks;
}

class MarketData : public Market, public testing::WithParamInterface<sBadTasks> {};

TEST_P(MarketData, saysWhatIsWrong) {
    try {
        start(GetParam().tasks);
        FAIL() << "taken";
    } catch (const std::string& failure) {
        EXPECT_NE(failure.find("LevelMap.lvl, level 0, Buildings 1: "), std::string::npos) << failure;
        EXPECT_NE(failure.find(GetParam().failure), std::string::npos) << failure;
    }
}

INSTANTIATE_TEST_SUITE_P(
    , MarketData,
    testing::Values(sBadTasks{"twins", "<T id=\"a\"/><T id=\"a\"/>", "two trades are called \"a\""},
                    sBadTasks{"product", "<T product_id=\"34\"/>", "there is no product 34"},
                    sBadTasks{"amount", "<T><dst_cargo Food=\"2000000000\"/></T>", "goods in one trade are too many"}),
    [](const auto& one) { return one.param.name; });
