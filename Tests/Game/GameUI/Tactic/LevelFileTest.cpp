#include "Game/GameUI/Tactic/LevelFile.h"

#include <gtest/gtest.h>

#include "Tests/Support/SmallLevel.h"

using namespace Engine;

namespace {

struct sBadLevel {
    const char* level;
    const char* failure;
};

const char points[] =
    "<Points><P Pos=\"100,300\"/><P Pos=\"200,300\"/><P Pos=\"200,400\"/><P Pos=\"200,200\"/></Points>";
const char start_point[] = "<B Type=\"8\" Position=\"100,300\" MenAmount=\"1\"><Points><P index=\"0\"/></Points></B>";

// $ stands for the points, @ for the start point.
const sBadLevel bad_levels[] = {
    {"<Arcs><A p1=\"0\" p2=\"0\"/></Arcs>", ", Arcs 0: Wrong arc index"},
    {"$<Arcs><A p1=\"0\" p2=\"1\"/><A p1=\"0\" p2=\"4\"/></Arcs>", ", Arcs 1: Wrong arc index"},
    {"$<Arcs><A p1=\"-1\" p2=\"1\"/></Arcs>", ", Arcs 0: Wrong arc index"},
    {"$<Arcs><A p1=\"1\" p2=\"1\"/></Arcs>", ", Arcs 0: an arc from a point to itself"},
    {"$<Arcs><A p1=\"0\" p2=\"1\" Type=\"14\"/></Arcs>", ", Arcs 0: no arc type 14"},
    {"$<Buildings>@<B Type=\"21\"/></Buildings>", ", Buildings 1: undefined object type"},
    {"$<Buildings>@<B Type=\"19\"/></Buildings>", ", Buildings 1: an object of type 19 is no building"},
    {"$<Buildings>@<B/></Buildings>", ", Buildings 1: undefined object type"},
    {"$<Buildings>@<B Type=\"9\"><Points><P index=\"4\"/></Points></B></Buildings>",
     ", Buildings 1: cBuilding::loadXmlState(): no point 4 under the building"},
    {"$<Buildings>@<B Type=\"9\"><Points><P index=\"0\"/></Points></B></Buildings>",
     ", Buildings 1: cBuilding::loadXmlState(): two buildings on point 0"},
    {"$<Buildings><B Type=\"8\" MenAmount=\"2000000000\"><Points><P index=\"0\"/></Points></B></Buildings>",
     ", Buildings 0: cStartPoint: 2000000000 men are too many"},
    {"$<Buildings></Buildings>", ": there is no start point"},
    {"$<Buildings><B Type=\"8\"/></Buildings>",
     ": cTacticMap::generateConnectionMap(): there is no point under StartPoint"},
    {"$<Buildings>@<B Type=\"15\"/></Buildings>",
     ": cTacticMap::generateConnectionMap(): there is no point under Bunker"},
    {"$<Arcs><A p1=\"1\" p2=\"0\" Type=\"3\"/><A p1=\"1\" p2=\"2\" Type=\"3\"/><A p1=\"1\" p2=\"3\" Type=\"3\"/></Arcs>"
     "<Buildings>@</Buildings>",
     ": cWayPoint::getFencesInfo(): error in level design: there are more then two fence arcs in way point."},
};

std::string fill(std::string text) {
    for (const auto& [sign, meaning] : {std::pair{'$', points}, std::pair{'@', start_point}}) {
        if (const std::size_t place = text.find(sign); place != std::string::npos)
            text.replace(place, 1, meaning);
    }
    return "<L Size=\"800,600\">" + text + "</L>";
}

}  // namespace

TEST(LevelFile, aBadLevelIsNamedAndTheNextOneCanBePlayed) {
    cSmallLevel level;
    std::string levels;
    for (const sBadLevel& bad : bad_levels)
        levels += fill(bad.level);
    level.prepare(levels + fill("$<Buildings>@</Buildings>"));
    Int& current = cProfile::getInts()["CurrentLevel"];
    current = 0;
    for (const sBadLevel& bad : bad_levels) {
        try {
            level.getMap().initialize(false);
            ADD_FAILURE() << bad.failure;
        } catch (const String& failure) {
            EXPECT_EQ(failure, cLevelFile::getName(current) + bad.failure);
        }
        EXPECT_FALSE(level.getMap().hasLevel());
        level.frames(1);
        ++current;
    }
    level.getMap().initialize(false);
    level.frames(200);
    EXPECT_EQ(level.getMap().getMen().size(), 1u);
}

TEST(LevelFile, aNumberThatNoLevelHasIsRefused) {
    cSmallLevel level;
    level.prepare(fill("$<Buildings>@</Buildings>"));
    for (const Int number : {-1, 1, 1000000}) {
        cProfile::getInts()["CurrentLevel"] = number;
        EXPECT_THROW(level.getMap().initialize(false), String) << number;
    }
}
