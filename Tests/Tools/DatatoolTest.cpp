// The tool as other programs call it: the built binary, its status and what it prints.

#if defined(__GNUC__) && !defined(__clang__)
// With the sanitizers GCC 12 believes that std::regex reads what it has not written.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <nlohmann/json.hpp>
#include <regex>
#include <set>

#include "Engine/core/FileManager.h"
#include "Engine/core/RealFile.h"
#include "Engine/core/XML.h"
#include "Game/GameLogic/LevelObject.h"
#include "Game/GameLogic/Mark.h"
#include "Game/Ui/LevelHead.h"
#include "Game/Ui/SaveFile.h"
#include "Tests/Support/TempDirectory.h"
#include "Tests/Support/UnitFiles.h"
#include "Tools/datatool/AskedNames.h"
#include "Tools/datatool/KnownKeys.h"

namespace Engine {

namespace {

struct sResult {
    int status = -1;
    String out;
    String err;
};

std::string readFile(const std::filesystem::path& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The texts of all sources of these folders, with their names.
void forEachSource(std::initializer_list<const char*> folders,
                   const std::function<void(const std::filesystem::path& path, const std::string& text)>& visit) {
    for (const char* folder : folders) {
        const std::filesystem::path root = std::filesystem::path(BRINDLE_SOURCE_DIR) / folder;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
            if (entry.is_regular_file() && (entry.path().extension() == ".cpp" || entry.path().extension() == ".h"))
                visit(entry.path(), readFile(entry.path()));
        }
    }
}

/// What the game's own definitions are asked for, of every type.
std::set<String> getAllAskedLooks() {
    std::set<String> res;
    for (Int type = 0; type <= objectDamagedRoad; ++type) {
        const char* name = cLevelObject::getDefinitionFile(type);
        if (!name)
            continue;
        cRealFile file(String(BRINDLE_SOURCE_DIR "/Data/") + name, cRealFile::access_read,
                       cRealFile::eCreating::open_existing);
        for (const String& look : ::Datatool::getAskedLooks(type, cXML(&file)))
            res.insert(look);
    }
    return res;
}

class Datatool : public testing::Test {
protected:
    /// @param words  arguments; "@" stands for the temporary directory with its "/"
    sResult run(String words) {
        for (std::size_t at = words.find('@'); at != String::npos; at = words.find('@', at))
            words.replace(at, 1, directory.getPath());
        const String line =
            String(BRINDLE_DATATOOL) + " " + words + " >" + (outcome / "out") + " 2>" + (outcome / "err");
        const int status = std::system(line.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, outcome.read("out"), outcome.read("err")};
    }

    nlohmann::json inspect(const String& words) {
        const sResult result = run("inspect " + words);
        EXPECT_EQ(result.status, 0) << result.err;
        return nlohmann::json::parse(static_cast<const std::string&>(result.out), nullptr, false);
    }

    /// A document with a list of these ids.
    static std::string makeList(const std::string& name, const std::vector<String>& ids) {
        std::string res = "<o><" + name + ">";
        for (const String& id : ids)
            res += "<S id=\"" + id + "\"/>";
        return res + "</" + name + "></o>";
    }

    /// What the game asks for, no more: tables, the definitions of level objects, and levels.
    /// @param levels  the children of the level file's root
    void writeGame(const String& folder, const std::string& levels) {
        for (const String& name : ::Datatool::getNeededDocuments())
            directory.write(folder + "/" + name, "<o/>");
        directory.write(folder + "/sys/constants.xml", R"(<constants><game app_directory="App"/></constants>)");
        for (Int type = 0; type <= objectDamagedRoad; ++type) {
            if (const char* file = cLevelObject::getDefinitionFile(type))
                directory.write(folder + "/" + file,
                                makeList("States", ::Datatool::getAskedLooks(type, cXMLTag(String()))));
        }
        directory.write(folder + "/Sounds/GameSounds.xml", makeList("Sounds", ::Datatool::getAskedSounds()));
        directory.write(folder + "/GameStrings.xml", makeList("Strings", ::Datatool::getAskedTexts()));
        directory.write(folder + "/GameUI/TacticMap.xml", R"(<m land_base_dir="L/" top_tile_prefix="t_"/>)");
        directory.write(folder + "/LevelMap.lvl", "<LevelMap>" + levels + "</LevelMap>");
    }

    cTempDirectory directory;
    cTempDirectory outcome;
};

std::string makePoints(std::initializer_list<const char*> places) {
    std::string res;
    for (const char* place : places)
        res.append("<P Pos=\"").append(place).append("\"/>");
    return "<Points>" + res + "</Points>";
}

std::string makeArc(int a, int b, int type) {
    return "<A p1=\"" + std::to_string(a) + "\" p2=\"" + std::to_string(b) + "\" Type=\"" + std::to_string(type) +
           "\"/>";
}

/// @param rest  of what the level says of it
std::string makeBuilding(int type, int point, const std::string& rest = "") {
    return "<B Type=\"" + std::to_string(type) + "\" Position=\"10,10\"><Points><P index=\"" + std::to_string(point) +
           "\"/></Points>" + rest + "</B>";
}

const char* const two_rows = "<Upgrades><U/><U/></Upgrades>";

// 0, the start point, -- 1 -- 2, a bridge
std::string makeLevel(int first_arc, int second_arc, const std::string& buildings = "") {
    return "<Level Size=\"100,100\">" + makePoints({"10,10", "50,50", "90,90"}) + "<Arcs>" + makeArc(0, 1, first_arc) +
           makeArc(1, 2, second_arc) + "</Arcs><Buildings>" + makeBuilding(8, 0) + makeBuilding(14, 2, two_rows) +
           buildings + "</Buildings></Level>";
}

}  // namespace

TEST_F(Datatool, tellsWrongUsageFromFaults) {
    EXPECT_EQ(run("").status, 2);
    EXPECT_EQ(run("inspect").status, 2);
    EXPECT_EQ(run("pack a b c").status, 2);
    EXPECT_EQ(run("turn a b").status, 2);
    const sResult help = run("--help");
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("datatool decompile"), String::npos);
    const sResult missing = run("inspect @none.xml");
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.err, "datatool: File \"" + directory.getPath() + "none.xml\" not found.\n");
}

TEST_F(Datatool, inspectsWhatItKnowsByItsBytes) {
    directory.write("a.txt", "<a n='1'>text<b>x</b></a>");
    directory.writePack("p.bin", {{"x.txt", "hello"}});
    directory.write("log.xml", "<ResourceLog><Tag Path=\"a.png\" Type=\"0\"/></ResourceLog>");
    const auto document = inspect("@a.txt");
    EXPECT_EQ(document["format"], "text XML");
    EXPECT_EQ(document["attributes"]["n"], "1");
    EXPECT_EQ(document["children"][0]["name"], "b");
    EXPECT_EQ(document["children"][0]["text"], "x");
    EXPECT_EQ(inspect("@p.bin")["members"][0]["size"], 5);
    EXPECT_EQ(inspect("@log.xml")["resources"][0]["path"], "a.png");

    const std::string mesh = UnitFiles::makeMesh({{{-1, 2, 3}}, {{4, 5, 6}}}, {0, 1, 0});
    directory.write("m.bin", mesh);
    EXPECT_EQ(inspect("@m.bin")["triangles"], 1);
    EXPECT_EQ(inspect("@m.bin")["high"][2], 6.0);
    directory.write("a.bin", UnitFiles::makeAnimation(1.5f, {{}, {0, {{}, {}}}}));
    EXPECT_EQ(inspect("@a.bin")["length"], 1.5);
    EXPECT_TRUE(inspect("@a.bin")["bones"][0]["parent"].is_null());
    EXPECT_EQ(inspect("@a.bin")["bones"][1]["keys"], 2);
    directory.write("m.bin", mesh.substr(0, 40));
    EXPECT_EQ(run("inspect @m.bin").err, "datatool: " + directory.getPath() + "m.bin: Unexpected end of source\n");

    for (const char* bytes : {"", "hello", "\x89PNG"}) {
        directory.write("strange", bytes);
        const sResult strange = run("inspect @strange");
        EXPECT_EQ(strange.status, 1);
        EXPECT_EQ(strange.err, "datatool: " + directory.getPath() + "strange: not a known format\n");
    }
    directory.write("bad.xml", "<a><b></a>");
    EXPECT_EQ(run("inspect @bad.xml").err.find("datatool: " + directory.getPath() + "bad.xml: mismatched tag line 1"),
              0u);
}

TEST_F(Datatool, inspectsASaveAndSaysWhereItIsDamaged) {
    sSave save;
    save.progress.awards[3].obtained = 1;
    save.progress.hints[54] = sProgress::hint_done;
    save.products.assign(34, 0);
    save.products[26] = 1;
    cLevelState& level = save.levels.emplace(2, cLevelState(2)).first->second;
    sLevelHead{.completed = true, .marks = {markGold, markNone}, .previous_level = 1}.serialize(*level.createWriter());
    const std::vector<char> bytes = cSaveFile::toBytes(save);
    const std::string text(bytes.begin(), bytes.end());
    directory.write("00000001.save", text);
    const auto json = inspect("@00000001.save");
    EXPECT_EQ(json["format"], "save");
    EXPECT_TRUE(json["awards"][3]["obtained"].get<bool>());
    EXPECT_EQ(json["hints"][54], 2);
    EXPECT_EQ(json["products"][26], 1);
    EXPECT_EQ(json["levels"].size(), 1u);
    EXPECT_EQ(json["levels"][0]["level"], 2);
    EXPECT_TRUE(json["levels"][0]["completed"].get<bool>());
    EXPECT_EQ(json["levels"][0]["marks"], (std::vector<int>{2, 0}));
    EXPECT_EQ(json["levels"][0]["previous_level"], 1);

    const String head = "datatool: " + directory.getPath() + "00000001.save.bak: ";
    for (std::size_t length = 0; length < text.size(); length += 97) {
        directory.write("00000001.save.bak", text.substr(0, length));
        const sResult cut = run("inspect @00000001.save.bak");
        EXPECT_EQ(cut.status, 1) << length;
        EXPECT_TRUE(cut.out.empty()) << length;
        EXPECT_TRUE(cut.err.starts_with(head) && std::count(cut.err.begin(), cut.err.end(), '\n') == 1) << cut.err;
    }
    level.setBytes({1});
    const std::vector<char> short_level = cSaveFile::toBytes(save);
    directory.write("00000001.save.bak", std::string(short_level.begin(), short_level.end()));
    EXPECT_EQ(run("inspect @00000001.save.bak").err, head + "level 2: the record ends too soon\n");
}

TEST_F(Datatool, bringsADocumentToBinaryAndBack) {
    directory.write("a.xml",
                    "<?xml version=\"1.0\"?><m z='1' a='x&#10;&#9;&amp;&quot;&lt;'> t &#13;]]&gt;\n"
                    "<z>Ω</z><b i='2'/><b i='1'>q</b></m>");
    ASSERT_EQ(run("compile @a.xml @b.xml").status, 0);
    EXPECT_EQ(directory.read("b.xml").front(), '>');
    const sResult back = run("decompile @b.xml @c.xml");
    ASSERT_EQ(back.status, 0) << back.err;
    ASSERT_EQ(run("compile @c.xml @d.xml").status, 0);
    EXPECT_EQ(directory.read("d.xml"), directory.read("b.xml"));
    EXPECT_EQ(inspect("@b.xml")["format"], "binary XML");
    EXPECT_EQ(inspect("@c.xml")["children"], inspect("@a.xml")["children"]);

    // One tag, no attribute, no child, a text of one control character.
    directory.write("e.xml", std::string(">\0\0\0\0\0\0\0\0\1\0\0\0\1\0", 15));
    EXPECT_EQ(run("decompile @e.xml @f.xml").status, 1);
    EXPECT_FALSE(directory.has("f.xml"));
}

TEST_F(Datatool, namesTheFileInOneLineWhateverItsName) {
    EXPECT_EQ(run("inspect '@a\nb.xml'").err, "datatool: File \"" + directory.getPath() + "a?b.xml\" not found.\n");
    writeGame("in", makeLevel(0, 0));
    directory.writePack("in/p.pack", {{"x\ny.xml", "<y"}, {"dir\\", ""}});
    EXPECT_EQ(run("check @in").out, "p.pack/x?y.xml: unclosed token line 1 char 0\n");
}

TEST_F(Datatool, packsNothingThatTheGameWouldNotRead) {
    directory.write("in/c:d.txt", "x");
    const sResult drive = run("pack @in @a.pack");
    EXPECT_EQ(drive.status, 1);
    EXPECT_EQ(drive.err, "datatool: " + directory.getPath() + "in/c:d.txt: the game takes no such name from a pack\n");

    std::filesystem::remove(std::string(directory / "in/c:d.txt"));
    directory.write("in/large.bin", "");
    std::filesystem::resize_file(std::string(directory / "in/large.bin"), 512u * 1024 * 1024 + 1);  // takes no space
    const sResult large = run("pack @in @a.pack");
    EXPECT_EQ(large.status, 1);
    EXPECT_NE(large.err.find("in/large.bin: larger than 512 MB"), String::npos) << large.err;
    EXPECT_FALSE(directory.has("a.pack"));
}

TEST_F(Datatool, tellsWhenItsResultIsLost) {
    directory.write("in/sys/constants.xml", "<constants/>");
    EXPECT_EQ(run("inspect @in/sys/constants.xml >/dev/full 2>/dev/null #").status, 1);  // instead of run's own files
    ASSERT_EQ(::mkfifo((directory / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(run("pack @in @pipe").status, 1);
    EXPECT_TRUE(std::filesystem::is_fifo(std::string(directory / "pipe")));
}

TEST_F(Datatool, packsTheSameBytesForTheSameFiles) {
    directory.write("in/sys/constants.xml", R"(<constants><game app_directory="App"/></constants>)");
    directory.write("in/B.txt", "b");
    directory.write("in/a/Ä.txt", "a");
    ASSERT_EQ(run("pack @in @data/all.pack").status, 1);  // no such directory
    directory.write("data/.keep", "");
    const sResult packed = run("pack @in @data/all.pack");
    ASSERT_EQ(packed.status, 0) << packed.err;
    const String bytes = directory.read("data/all.pack");
    std::filesystem::last_write_time(std::string(directory / "in/B.txt"),
                                     std::filesystem::file_time_type::clock::now());
    ASSERT_EQ(run("pack @in/ @data/all.pack").status, 0);
    EXPECT_EQ(directory.read("data/all.pack"), bytes);

    cFileManager files(directory / "data", "pack", outcome.getPath());
    FILE_NAME_LIST names;
    files.getIndexedFilenames("", names, true);
    EXPECT_EQ(names, (FILE_NAME_LIST{"a/Ä.txt", "b.txt", "sys/constants.xml"}));
    EXPECT_EQ(files.open("b.txt")->getSize(), 1u);

    directory.write("in/b.TXT", "clash");
    EXPECT_EQ(run("pack @in @data/all.pack").status, 1);
    EXPECT_EQ(directory.read("data/all.pack"), bytes);
    EXPECT_FALSE(directory.has("data/all.pack.new"));
}

// a.xml names b.xml, which names it back, a picture, and one that is not there
TEST_F(Datatool, logsWhatDocumentsNameAndTheirsInTurn) {
    directory.write("data/a.xml", R"(<a File="b.xml" Text="no file."/>)");
    directory.write("data/b.xml", R"(<b><c Picture="P/&amp;.png"/><c Picture="none.png" File="A.xml"/></b>)");
    directory.write("data/P/&.png", "");
    EXPECT_EQ(run("reslog @data a.xml b.xml").out,
              "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<ResourceLog>\n"
              "    <Tag Path=\"a.xml\" Type=\"1\"/>\n    <Tag Path=\"b.xml\" Type=\"1\"/>\n"
              "    <Tag Path=\"P/&amp;.png\" Type=\"0\"/>\n</ResourceLog>\n");
    EXPECT_EQ(run("reslog @data none.xml").err,
              String("datatool: none.xml: no such file in ") + (directory / "data/") + "\n");
}

TEST_F(Datatool, findsWhatTheGameWouldStumbleOver) {
    writeGame("good", makeLevel(0, 10));
    directory.writePack("good/a.pack", {{"ui/x.xml", "<x/>"}});
    EXPECT_EQ(run("check @good").out, "");
    EXPECT_EQ(run("check @good").status, 0);

    directory.write("bad/Broken.xml", "<a>");
    directory.write("bad/pic.png", "no picture");
    directory.write("bad/One.txt", "");
    directory.write("bad/one.TXT", "");
    directory.write("bad/cut.pack", "PK\3\4");
    directory.writePack("bad/odd.pack", {{"../x.txt", ""}, {"y.xml", "<y"}, {"sys/constants.xml", "<c><game/></c>"}});
    directory.write("bad/reslog.xml", R"(<ResourceLog><Tag Path="no.png" Type="0"/></ResourceLog>)");
    directory.write("bad/ui.xml",
                    R"(<ui><Panel><Back Picture="PIC.png" Font="no.fnt" String="no file."/></Panel></ui>)");
    const sResult found = run("check @bad");
    EXPECT_EQ(found.status, 1);
    for (const char* line : {"Broken.xml: no element found line 1",
                             "pic.png: Image \"pic.png\": ", "one.TXT: the same name as \"One.txt\"",
                             "cut.pack: ", "odd.pack/../x.txt: the name leads out", "odd.pack/y.xml: unclosed token",
                             "reslog.xml: tag \"Tag\" names \"no.png\"", "ui.xml: tag \"Back\" names \"no.fnt\"",
                             "sys/settings.xml: is missing", "LevelMap.lvl: is missing",
                             "odd.pack/sys/constants.xml: tag \"game\" has no \"app_directory\""})
        EXPECT_NE(found.out.find(line), String::npos) << line << "\nin\n" << found.out;
    EXPECT_EQ(std::count(found.out.begin(), found.out.end(), '\n'), 11) << found.out;
    EXPECT_EQ(run("check @none").status, 1);
}

TEST_F(Datatool, findsLevelsThatCannotBePlayed) {
    const std::string many_faults =
        "<Level Size=\"100,100\">" +
        makePoints({"10,10", "20,20", "30,30", "40,40", "50,500", "60,60", "70,70", "80,80"}) + "<Arcs>" +
        makeArc(0, 1, 3) + makeArc(2, 0, 5) + makeArc(0, 3, 3) + makeArc(1, 0, 3) + makeArc(4, 0, 0) +
        makeArc(5, 0, 0) + "</Arcs><Buildings>" + makeBuilding(8, 0) + makeBuilding(9, 0) +
        makeBuilding(14, 1, "<Upgrades><U/></Upgrades>") + makeBuilding(9, 77) + makeBuilding(19, 2) +
        "<B Type=\"7\" Position=\"-1,0\" src_point=\"8\"/>" +
        makeBuilding(15, 3, "<Tasks><T goal_src=\"9\"/></Tasks>") +
        makeBuilding(17, 6,
                     "<Tasks><T id=\"a\" depends=\"b\"/><T id=\"a\" depends=\"no\" product_id=\"34\"/></Tasks>") +
        "<B Type=\"14\" NextLevel=\"7\"><Points><P index=\"5\"/></Points>" + two_rows + "</B></Buildings><BackGround>" +
        R"(<T Type="0" Picture="a.png"/><T Type="3" Picture="tree.png"/></BackGround></Level>)";
    writeGame("bad", makeLevel(1, 9) + many_faults + makeLevel(0, 14) + makeLevel(0, 0) +
                         "<Level Size=\"9,1e9\"/><Level Size=\"9,9\"/>" + makeLevel(0, 0, makeBuilding(15, 1)));
    directory.write("bad/L/a.png", "");
    const sResult found = run("check @bad");
    const std::string level1 = "LevelMap.lvl: level 1, ";
    const std::string no_one = "so nobody can win it\n";
    for (const std::string& line : {"LevelMap.lvl: level 0: no way leads from the start point to a bridge, " + no_one,
                                    level1 + "Points 4: \"Pos\" lies outside of \"Size\"\n",
                                    level1 + "Points 7: no arc leads there\n",
                                    level1 + "Points 0: 3 fences of the player meet",
                                    level1 + "Arcs 3: the arc 1 - 0 is there twice",
                                    level1 + "Buildings 1: point 0 lies under building 0 already\n",
                                    level1 + "Buildings 2: a bridge needs two rows of \"Upgrades\"",
                                    level1 + "Buildings 3: there is no point 77 to stand on\n",
                                    level1 + "Buildings 4: \"Type\" is 19, which is no building\n",
                                    level1 + "Buildings 5: \"Position\" lies outside of \"Size\"\n",
                                    level1 + "Buildings 5: it stands on no point\n",
                                    level1 + "Buildings 5: \"src_point\" is 8, which is no point\n",
                                    level1 + "Buildings 6: \"goal_src\" is 9, which is no point\n",
                                    level1 + "Buildings 7: two trades are called \"a\"\n",
                                    level1 + "Buildings 7: a trade depends on \"b\", which is none of them\n",
                                    level1 + "Buildings 7: there is no product 34\n",
                                    level1 + "Buildings 8: \"NextLevel\" is 7, which is no level\n",
                                    level1 + "BackGround 0: there is no picture \"L/t_a.png\"\n",
                                    level1 + "BackGround 1: there is no picture \"tree.png\"\n",
                                    std::string("LevelMap.lvl: level 2, Arcs 1: no arc type 14\n"),
                                    std::string("LevelMap.lvl: level 4: \"Size\" is no size of a map\n"),
                                    std::string("LevelMap.lvl: level 5: there is no start point\n"),
                                    "LevelMap.lvl: level 6: no way leads from the start point to a bridge, " + no_one})
        EXPECT_NE(found.out.find(line), String::npos) << line << "\nin\n" << found.out;
    EXPECT_EQ(found.out.find("level 3"), String::npos) << found.out;
    EXPECT_EQ(std::count(found.out.begin(), found.out.end(), '\n'), 24) << found.out;

    directory.write("bad/LevelMap.lvl", "<LevelMap><Level>");
    EXPECT_NE(run("check @bad").out.find("LevelMap.lvl: no element found line 1"), String::npos);
}

TEST_F(Datatool, findsWhatTheGameWillAskForByName) {
    writeGame("bad", makeLevel(0, 0));
    std::filesystem::remove(std::string(directory / "bad/GameLogic/Idol.xml"));
    directory.write("bad/GameLogic/Bunker.xml", makeList("States", {"init_state"}));
    directory.write("bad/GameLogic/WoodMill.xml",
                    "<o cargo_levels_amount=\"1\"><States><S id=\"wait_state_upgrade_0\"/><S id=\"unload_button_1\"/>"
                    "</States><Upgrades><U/><U/></Upgrades></o>");
    directory.write("bad/GameLogic/StoneMill.xml", "<o>");
    const String none = ": tag \"States\" has none with the id ";
    EXPECT_EQ(run("check @bad").out,
              "GameLogic/StoneMill.xml: no element found line 1 char 3\n"
              "GameLogic/Idol.xml: is missing; the game reads it\n"
              "GameLogic/WoodMill.xml" +
                  none + "\"wait_state_upgrade_1\", which the game asks for\n" + "GameLogic/WoodMill.xml" + none +
                  "\"unload_button_0\", which the game asks for\n"
                  "GameLogic/Bunker.xml" +
                  none + "\"destroyed_state\", which the game asks for\n");
}

// The game's own data with one entry less: a load in a man's hands, a sound, a text of the second file.
TEST_F(Datatool, namesTheOneEntryThatIsTakenAway) {
    const std::filesystem::path data = BRINDLE_SOURCE_DIR "/Data";
    const std::tuple<const char*, const char*, const char*> entries[] = {
        {"GameLogic/FriendMan.xml", "<State id=\"walk_with_iron_tool\"", "walk_with_iron_tool"},
        {"GameLogic/PlayerCatapult.xml", "<State id=\"wait_state_upgrade_3_bullet_3\"",
         "wait_state_upgrade_3_bullet_3"},
        {"GameLogic/Warehouse.xml", "<State id=\"cargo_4\"", "cargo_4"},
        {"Sounds/GameSounds.xml", "<Sound id=\"mining_stone\"", "mining_stone"},
        {"YesNoStrings.xml", "<s id=\"go_back\"", "go_back"},
        {"GameStrings.xml", "<s id=\"product_33\"", "product_33"},
    };
    std::filesystem::copy(data, std::string(directory / "less"), std::filesystem::copy_options::recursive);
    for (const char* heavy : {"Land", "Music", "UI/FixedBack"})  // named as missing, which is not what is looked for
        std::filesystem::remove_all(std::string(directory / "less") + "/" + heavy);
    for (const auto& [file, entry, id] : entries) {
        std::string text = readFile(data / file);
        const std::size_t begin = text.find(entry);
        ASSERT_NE(begin, std::string::npos) << entry;
        text.erase(begin, text.find("/>", begin) + 2 - begin);
        directory.write(std::string("less/") + file, text);
    }
    const String out = run("check @less").out;
    for (const auto& [file, entry, id] : entries)
        EXPECT_NE(out.find(std::string("has none with the id \"") + id + "\", which the game asks for"), String::npos)
            << id << "\nin\n"
            << out;
}

// A slip in each kind of file that the game reads.
TEST_F(Datatool, findsKeysThatNothingReads) {
    const std::pair<const char*, const char*> slips[] = {
        {"UI/Options.xml", "<o><OkButton><Text postion=\"1,2\"/></OkButton></o>"},
        {"GameUI/TacticMap.xml", "<o><TopTile postion=\"1,2\"/></o>"},
        {"GameUI/Strategic/StrategicMap.xml", "<o><LevelNodes><N flag0=\"1,1\"/><N postion=\"1,2\"/></LevelNodes></o>"},
        {"GameLogic/Target.xml", "<o><AttackIcon postion=\"1,2\"/></o>"},
        {"Clouds/Clouds.xml", "<o><C postion=\"1,2\"/></o>"},
        {"Effects/ExplosionEffect.xml", "<o postion=\"1,2\"/>"},
        {"Sounds/GameSounds.xml", "<o><Sounds><S postion=\"1,2\"/></Sounds></o>"},
        {"sys/settings.xml", "<o><graphics postion=\"1,2\"/></o>"},
        {"LevelMap.lvl", "<o><Level Size=\"0,0\"><BackGround><T Type=\"3\" postion=\"1,2\"/></BackGround></Level></o>"},
        {"UI/ofAnotherMod.xml", "<o><x><y postion=\"1,2\"/></x></o>"},
    };
    writeGame("bad", makeLevel(0, 0));
    for (const auto& [file, text] : slips)
        directory.write(String("bad/") + file, text);
    const sResult found = run("check @bad");
    for (const auto& [file, text] : slips)
        EXPECT_NE(found.out.find(String(file) + ": "), String::npos) << file << "\nin\n" << found.out;
    EXPECT_NE(found.out.find("UI/Options.xml: tag \"OkButton/Text\" has the key \"postion\", which nothing reads; "
                             "\"position\" is one that is read\n"),
              String::npos)
        << found.out;

    // Keys may be tags; a key of one class is none of another's; what stands on a level reads by its type.
    writeGame("odd", "<Level Size=\"9,9\"><Buildings>" +
                         makeBuilding(9, 0, "<Level>1</Level><MenAmount>1</MenAmount>") + "</Buildings></Level>");
    directory.write("odd/UI/Help.xml",
                    "<o><Enable>1</Enable><OkButtom><Text/></OkButtom><Pages><P Speed=\"1\"/></Pages></o>");
    const String out = run("check @odd").out;
    for (const char* line :
         {"UI/Help.xml: the root has the tag \"OkButtom\", which nothing reads; \"OkButton\" is one that is read\n",
          "UI/Help.xml: tag \"Pages/P\" has the key \"Speed\", which nothing reads\n",
          "LevelMap.lvl: tag \"Level/Buildings/B\" has the tag \"MenAmount\", which nothing reads\n"})
        EXPECT_NE(out.find(line), String::npos) << line << "\nin\n" << out;
    EXPECT_EQ(out.find("\"Enable\""), String::npos) << out;
    EXPECT_EQ(out.find("tag \"Level\""), String::npos) << out;
}

// As with keys: a name that the code asks for and the tool does not know of is one that may be missing unseen.
TEST(AskedNames, holdEveryNameThatTheSourcesAskFor) {
    const std::vector<String> sounds = ::Datatool::getAskedSounds();
    const std::vector<String> texts = ::Datatool::getAskedTexts();
    const std::set<String> sound_set(sounds.begin(), sounds.end());
    const std::set<String> text_set(texts.begin(), texts.end());
    std::set<String> looks = getAllAskedLooks();
    looks.insert({"common_base", "walk_no_cargo_offroad"});  // others stand in for these
    const std::pair<std::regex, const std::set<String>*> askings[] = {
        {std::regex(R"--((?:playGameSound|sounds->play)\(([^;]*)\))--"), &sound_set},
        {std::regex(R"--(getGameString\(([^;]*)\))--"), &text_set},
        {std::regex(R"--((?:findState|VisualState)\(([^;]*)\))--"), &looks},
    };
    const std::regex name(R"--("([a-z]\w*[a-z0-9])")--");  // no part of a name, as "cargo_" or "_base"
    UInt count = 0;
    forEachSource({"Game"}, [&](const std::filesystem::path& path, const std::string& text) {
        for (const auto& [asking, known] : askings) {
            for (std::sregex_iterator found(text.begin(), text.end(), asking), end; found != end; ++found) {
                const std::string asked = (*found)[1];
                for (std::sregex_iterator word(asked.begin(), asked.end(), name); word != end; ++word, ++count) {
                    EXPECT_TRUE(known->contains(String((*word)[1].str())))
                        << path << " asks for " << *word->begin()
                        << ", which Tools/datatool/AskedNames.cpp doesn't know";
                }
            }
        }
    });
    EXPECT_GT(count, 60u);
}

// Whoever teaches a class a new key has to tell the tool, or modders are told that nothing reads it.
TEST(KnownKeys, holdEveryKeyThatTheSourcesRead) {
    const std::regex reading(R"--((?:\bread\w*\((?:[^;"]*, ?)?u|loadChild\([^;"]*, |(?:->|\.)get\()"(\w+)")--",
                             std::regex::optimize);
    const std::set<std::string> own_formats{"reason"};  // keys of documents that the game writes itself
    UInt count = 0;
    forEachSource({"Engine", "Game"}, [&](const std::filesystem::path& path, const std::string& text) {
        for (std::sregex_iterator found(text.begin(), text.end(), reading), end; found != end; ++found, ++count) {
            const std::string name = (*found)[1];
            EXPECT_TRUE(own_formats.contains(name) || ::Datatool::isKnownKey(String(name)))
                << path << " reads \"" << name << "\", which Tools/datatool/KnownKeys.cpp does not know";
        }
    });
    EXPECT_GT(count, 250u);
}

TEST_F(Datatool, findsNothingWrongWithTheGameItself) {
    EXPECT_EQ(run("check " BRINDLE_SOURCE_DIR "/Data").out, "");
}

}  // namespace Engine
