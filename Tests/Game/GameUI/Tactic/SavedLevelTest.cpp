#include <gtest/gtest.h>

#include <cstring>

#include "Game/GameLogic/buildings/Bridge.h"
#include "Game/GameLogic/buildings/StartPoint.h"
#include "Game/GameLogic/roads/Road.h"
#include "Game/Ui/Game.h"
#include "Tests/Support/SmallLevel.h"

using namespace Engine;

namespace {

// 0 (start point) --road-- 1 --fence-- 2 --road-- 3 (warehouse),  4 (bunker) --enemy's road-- 5,  1 --being built-- 5,
// 6 (bridge, on two points with 7), 8 (enemy's catapult), 9 (port)
const char level_of_ten[] =
    "<L Size=\"900,600\"><Points><P Pos=\"100,300\"/><P Pos=\"200,300\" Opt=\"3\"/><P Pos=\"300,300\"/>"
    "<P Pos=\"400,300\"/><P Pos=\"100,100\"/><P Pos=\"200,100\"/><P Pos=\"500,300\"/><P Pos=\"520,300\"/>"
    "<P Pos=\"600,300\"/><P Pos=\"700,300\"/></Points><Arcs><A p1=\"0\" p2=\"1\" Type=\"1\"/>"
    "<A p1=\"1\" p2=\"2\" Type=\"3\" Wood=\"2\"/><A p1=\"2\" p2=\"3\" Type=\"1\"/><A p1=\"4\" p2=\"5\" Type=\"2\"/>"
    "<A p1=\"1\" p2=\"5\" Type=\"8\"/><A p1=\"3\" p2=\"6\" Type=\"1\"/><A p1=\"6\" p2=\"7\" Type=\"0\"/>"
    "<A p1=\"7\" p2=\"8\" Type=\"10\" Stone=\"4\"/><A p1=\"8\" p2=\"9\" Type=\"9\"/></Arcs><Buildings>";
const char its_buildings[] =
    "<B Type=\"9\" Position=\"400,290\" Level=\"1\" Iron=\"3\"><Points><P index=\"3\"/></Points></B>"
    "<B Type=\"15\" Position=\"100,90\"><Points><P index=\"4\"/></Points></B>"
    "<B Type=\"14\" Position=\"510,300\" BridgeNumber=\"1\" GoldTime=\"60\" SilverTime=\"30\" NextLevel=\"1\">"
    "<Points><P index=\"6\"/><P index=\"7\"/></Points><Upgrades><U Wood=\"5\" MenAmount=\"2\"/><U Food=\"9\"/>"
    "</Upgrades></B>"
    "<B Type=\"7\" Position=\"600,300\" start_time=\"5\" delay=\"2\" repeat=\"1\"><Points><P index=\"8\"/></Points></B>"
    "<B Type=\"16\" Position=\"700,300\" Angle=\"90\"><Points><P index=\"9\"/></Points></B></Buildings></L>";
const char level_of_one[] = "<L Size=\"800,600\"><Points><P Pos=\"100,300\"/></Points><Buildings>";

class SavedLevel : public testing::Test {
protected:
    void SetUp() override {
        for (const char* file : {"Game.xml", "Clouds/Clouds.xml"})
            m_level.getProgram().write(file, "<View/>");
        m_level.prepare(level_of_ten + startPoint("100,300", 3) + its_buildings + level_of_one +
                        startPoint("100,300", 1) + "</Buildings></L>");
        m_game = new cGame(nullptr, true);
        cProfile::getInts()["CurrentLevel"] = 0;
    }
    void begin() {
        map().initialize(false);
        for (Int i = 0; i < 100 && map().isRolling(); ++i)
            m_level.frames(1);
        m_level.frames(200);
    }
    void leave() {
        map().disable();
        map().clear();
        m_level.frames(1);
    }
    std::vector<char> save() {
        map().saveBinLevel();
        return m_game->getSavedLevel(0)->getBytes();
    }
    /// What came of going on from these bytes: nothing if it went well. In any case the map is left empty.
    std::string tryLoad(const std::vector<char>& bytes, UInt frames = 0) {
        m_game->getSavedLevel(0)->setBytes(bytes);
        std::string failure;
        try {
            map().initialize(false);
            m_level.frames(frames);
        } catch (const String& text) {
            failure = text;
            EXPECT_FALSE(map().hasLevel());
            EXPECT_TRUE(cBuilding::getStorage().empty());
            EXPECT_EQ(map().getPointCount(), 0);
        }
        leave();
        return failure;
    }
    cTacticMap& map() { return m_level.getMap(); }

    cSmallLevel m_level;
    cGame* m_game = nullptr;
};

}  // namespace

TEST_F(SavedLevel, comesBackAsItWasLeft) {
    begin();
    ASSERT_EQ(map().getMen().size(), 3u);
    ASSERT_NE(map().getRoad(0, 1, false), nullptr);
    m_level.getBuilding(0)->removeResourceItems(resourceMoney, 5);
    m_level.getBuilding(0)->lockResourceItems(resourceMoney, 5);
    auto& bridge = dynamic_cast<cBridge&>(*m_level.getBuilding(6));
    bridge.updateUpgradeCargoCapacity();
    bridge.addUpgradeResources(resourceWood, 4);
    map().setLevelCompleted(true);
    save();
    leave();

    begin();
    EXPECT_TRUE(map().isLevelCompleted());
    EXPECT_EQ(map().getMen().size(), 3u);  // no second caravan
    EXPECT_EQ(map().getStartPoint()->cCargoStorage::getCargo()[resourceMoney], 20);
    EXPECT_EQ(map().getPoint(1).getArcType(5), ARC_GROUND);  // nobody builds that road any more
    EXPECT_EQ(map().getPoint(6).getArcType(7), ARC_INSIDE_BUILDING);
    EXPECT_EQ(map().getPoint(7).arcs.at(8).cargo[resourceStone], 4);
    EXPECT_TRUE(map().hasFence(2, 1, true));
    EXPECT_EQ(dynamic_cast<cBridge&>(*m_level.getBuilding(6)).getUpgradeCargo().getCargo()[resourceWood], 4);
    EXPECT_EQ(map().getPoint(9).building, nullptr);  // a port leaves its water to the ships
    const std::vector<char> second = save();
    leave();

    begin();
    const std::vector<char> third = save();
    ASSERT_EQ(second.size(), third.size());
    Int different = 0;
    for (std::size_t i = 0; i < second.size(); ++i)
        different += second[i] != third[i] ? 1 : 0;
    constexpr Int clock_bytes = 4;
    EXPECT_GE(different, 1);  // how often the start point was brought to life
    EXPECT_LE(different, 1 + clock_bytes);
}

TEST_F(SavedLevel, cutAnywhereIsRefusedAndTheNextLevelCanBePlayed) {
    begin();
    const std::vector<char> whole = save();
    leave();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::string failure = tryLoad({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)});
        ASSERT_EQ(failure.rfind("LevelMap.lvl, level 0, saved: ", 0), 0u) << length << ": " << failure;
    }
    map().saveBinLevel();  // with no level in play: what was saved stays
    EXPECT_EQ(m_game->getSavedLevel(0)->getBytes().size(), whole.size() - 1);
    EXPECT_EQ(tryLoad(whole), "");
    cProfile::getInts()["CurrentLevel"] = 1;
    begin();
    EXPECT_EQ(map().getMen().size(), 1u);
    leave();
}

// Ways would be longer than the longest that anybody looks for, and the net would reach what no man does.
TEST_F(SavedLevel, whoseArcIsNotAsLongAsTheWayBetweenItsEndsIsRefused) {
    constexpr std::size_t length_of_first_arc = 58;
    begin();
    std::vector<char> bytes = save();
    leave();
    Float length = 0.0f;
    std::memcpy(&length, bytes.data() + length_of_first_arc, sizeof(length));
    ASSERT_EQ(length, 100.0f);
    length = 1e8f;
    std::memcpy(bytes.data() + length_of_first_arc, &length, sizeof(length));
    EXPECT_EQ(tryLoad(bytes), "LevelMap.lvl, level 0, saved: the arc 0 - 1 is damaged");
}

TEST_F(SavedLevel, withFlippedBitsEitherPlaysOrIsRefused) {
    begin();
    const std::vector<char> whole = save();
    leave();
    Int refused = 0;
    for (std::size_t place = 0; place < whole.size(); ++place) {
        std::vector<char> bytes = whole;
        bytes[place] = static_cast<char>(bytes[place] ^ (place % 3 == 0 ? 0x01 : 0xFF));
        const std::string failure = tryLoad(bytes, 20);
        refused += failure.empty() ? 0 : 1;
        ASSERT_TRUE(failure.empty() || failure.rfind("LevelMap.lvl, level 0", 0) == 0) << place << ": " << failure;
    }
    EXPECT_GT(refused, 0);
}
