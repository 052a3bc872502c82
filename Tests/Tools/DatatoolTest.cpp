// The tool as other programs call it: the built binary, its status and what it prints.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <nlohmann/json.hpp>

#include "Engine/core/FileManager.h"
#include "Engine/core/XML.h"
#include "Tests/Support/TempDirectory.h"
#include "Tests/Support/UnitFiles.h"

namespace Engine {

namespace {

struct sResult {
    int status = -1;
    String out;
    String err;
};

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

    cTempDirectory directory;
    cTempDirectory outcome;
};

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
    directory.write("in/sys/constants.xml", R"(<constants><game app_directory="App"/></constants>)");
    directory.write("in/sys/settings.xml", "<settings/>");
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

TEST_F(Datatool, findsWhatTheGameWouldStumbleOver) {
    directory.write("good/sys/constants.xml", R"(<constants><game app_directory="App"/></constants>)");
    directory.write("good/sys/settings.xml", "<settings/>");
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
    for (const char* line :
         {"Broken.xml: no element found line 1",
          "pic.png: Image \"pic.png\": ", "one.TXT: the same name as \"One.txt\"",
          "cut.pack: ", "odd.pack/../x.txt: the name leads out", "odd.pack/y.xml: unclosed token",
          "reslog.xml: tag \"Tag\" names \"no.png\"", "ui.xml: tag \"Back\" names \"no.fnt\"",
          "sys/settings.xml: is missing", "odd.pack/sys/constants.xml: tag \"game\" has no \"app_directory\""})
        EXPECT_NE(found.out.find(line), String::npos) << line << "\nin\n" << found.out;
    EXPECT_EQ(std::count(found.out.begin(), found.out.end(), '\n'), 10) << found.out;
    EXPECT_EQ(run("check @none").status, 1);
}

}  // namespace Engine
