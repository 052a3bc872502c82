#include "Engine/Ui/Profile.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "Engine/core/Constants.h"
#include "Tests/Support/DataDirectory.h"

namespace Engine {

namespace {

String utf16(std::u16string_view text) {
    return toBytes(u"\xFEFF" + std::u16string(text));
}

class Profile : public ::testing::Test {
protected:
    Profile() {
        data.ship("sys/constants.xml", R"(<main><game app_directory="test" profiles="Players"/></main>)");
        constants.load("sys/constants.xml");
        cProfile::setInitHook([] { cProfile::getInts()["CurrentLevel"] = -1; });
    }
    ~Profile() override { cProfile::setInitHook(nullptr); }

    /// A player comes, does something and goes.
    template <class F>
    void play(const WString& name, F&& act) {
        cProfile profile(name);
        act(profile);
    }
    void play(const WString& name) {
        play(name, [](cProfile&) {});
    }

    cDataDirectory data;
    cConstants constants;
};

}  // namespace

TEST_F(Profile, writesItsFilesInTheirExactForm) {
    EXPECT_EQ(cProfile::getCurrentUser(), u"");
    play(u"Tom & \"Ann\"", [](cProfile& profile) {
        EXPECT_EQ(profile.getProfileID(), "00000001");
        cProfile::getInts()["CurrentLevel"] = 3;
        cProfile::getBools()["LevelOpen3"] = true;
        Properties::getColors()["c"] = {0.0f, 0.0f, 1.0f, 0.0f};
        Properties::getVector2s()["v"] = {1.5f, -2.0f};
        Properties::getStrings()["s"] = "<a> b";
        Properties::getLongs()["l"] = 7;
    });
    EXPECT_EQ(data.read("players/profiles.xml"),
              utf16(u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
                    u"<Profiles NextID=\"2\" CurrentUser=\"Tom &amp; &quot;Ann&quot;\" NowPlaying=\"0\" >\n"
                    u"<Profile Name=\"Tom &amp; &quot;Ann&quot;\" ID=\"1\" />\n"
                    u"</Profiles>"));
    EXPECT_EQ(data.read("players/00000001.xml"), utf16(u"<?xml version=\"1.0\" encoding=\"UTF-16\"?><Props>"
                                                       u"<prop Name=\"CurrentLevel\" Val=\"3\" Type=\"Int\" />"
                                                       u"<prop Name=\"l\" Val=\"7\" Type=\"Long\" />"
                                                       u"<prop Name=\"c\" Val=\"000000ff\" Type=\"DXColor\" />"
                                                       u"<prop Name=\"LevelOpen3\" Val=\"1\" Type=\"Bool\" />"
                                                       u"<prop Name=\"v\" Val=\"1.5 -2\" Type=\"Vector2\" />"
                                                       u"<prop Name=\"s\" Val=\"&lt;a&gt; b\" Type=\"String\" />"
                                                       u"</Props>"));
    EXPECT_EQ(cProfile::getCurrentUser(), u"Tom & \"Ann\"");

    play(u"Tom & \"Ann\"", [](cProfile& profile) {
        EXPECT_EQ(profile.getProfileID(), "00000001");
        EXPECT_EQ(cProfile::getInts()["CurrentLevel"], 3);
        EXPECT_EQ(Properties::getStrings()["s"], "<a> b");
        EXPECT_EQ(Properties::getColors()["c"], (DXColor{0.0f, 0.0f, 1.0f, 0.0f}));
    });
}

TEST_F(Profile, keepsPlayersApart) {
    play(u"Ann", [](cProfile&) { cProfile::getBools()["LevelOpen1"] = true; });
    play(u"Bob", [](cProfile& profile) {
        EXPECT_EQ(profile.getProfileID(), "00000002");
        EXPECT_FALSE(cProfile::getBools().contains("LevelOpen1"));
        cProfile::getBools()["LevelOpen9"] = true;
    });
    play(u"Ann", [](cProfile& profile) {
        EXPECT_TRUE(cProfile::getBools()["LevelOpen1"]);
        EXPECT_FALSE(cProfile::getBools().contains("LevelOpen9"));
        profile.deleteProfile(u"Ann");
        EXPECT_EQ(profile.getName(), u"Bob");
        EXPECT_TRUE(cProfile::getBools()["LevelOpen9"]);
    });
    EXPECT_EQ(data.read("players/00000001.xml"), "");
    EXPECT_EQ(cProfile::getCurrentUser(), u"Bob");
    play(u"Cid", [](cProfile& profile) {
        EXPECT_EQ(profile.getProfileID(), "00000003");  // numbers are not given again
        profile.deleteProfile(u"Bob");
        profile.deleteProfile(u"Cid");
        EXPECT_EQ(profile.getName(), u"");
        EXPECT_THROW(profile.getProfileID(), const char*);
    });
    EXPECT_EQ(data.read("players/profiles.xml"), "");
    EXPECT_EQ(cProfile::getCurrentUser(), u"");
}

TEST_F(Profile, takesAnyName) {
    const WString names[] = {u"../../etc/x", u"Ёжик Ωμέγα", u"a\tb\x01", u"'<>'", u"\xD800"};
    for (const WString& name : names)
        play(name);
    cProfile profile(names[0]);
    EXPECT_EQ(profile.getName(), names[0]);
    EXPECT_EQ(profile.getProfileID(), "00000001");
    cProfile::NAME_LIST found;
    profile.getNames(found);
    EXPECT_EQ(found, (cProfile::NAME_LIST{u"'<>'", u"../../etc/x", u"ab", u"Ёжик Ωμέγα", u"\xFFFD"}));
}

TEST_F(Profile, losesNobodyWhenTheListIsDamaged) {
    play(u"Ann", [](cProfile&) { cProfile::getInts()["CurrentLevel"] = 5; });
    const String ann = data.read("players/00000001.xml");
    for (const char* damage : {"", "<Profiles><Prof", "\xFF\xFE<", "<?xml version='1.0'?>"}) {
        data.write("players/profiles.xml", damage);
        EXPECT_EQ(cProfile::getCurrentUser(), u"") << damage;
        EXPECT_EQ(data.read("players/profiles.xml.damaged"), damage);
        EXPECT_EQ(data.read("players/00000001.xml"), ann);
    }
    play(u"Bob", [](cProfile& profile) { EXPECT_EQ(profile.getProfileID(), "00000002"); });
    EXPECT_EQ(data.read("players/00000001.xml"), ann);
}

TEST_F(Profile, readsWhatItCanOfAnOddList) {
    data.write(
        "players/profiles.xml",
        "<Profiles NextID='1' CurrentUser='Eve'><Profile Name='Ann' ID='4'/><Profile Name='' ID='5'/>"
        "<Profile Name='Bob' ID='4'/><Profile Name='Cid' ID='x'/><Profile Name='Dan' ID='4294967295'/></Profiles>");
    play(u"Bob", [](cProfile& profile) { EXPECT_EQ(profile.getProfileID(), "00000005"); });
    play(u"Ann", [](cProfile& profile) { EXPECT_EQ(profile.getProfileID(), "00000004"); });
}

TEST_F(Profile, startsAfreshWithAPlayersFileThatIsDamaged) {
    play(u"Ann");
    data.write("players/00000001.xml", "<Props><prop");
    play(u"Ann", [](cProfile&) { EXPECT_EQ(cProfile::getInts()["CurrentLevel"], -1); });
    EXPECT_EQ(data.read("players/00000001.xml.damaged"), "<Props><prop");

    data.write("players/00000001.xml",
               "<Props><prop Name='a' Val='1' Type='Matrix'/><prop Name='b' Val='70000' Type='UInt16'/>"
               "<prop Name='c' Val='nine' Type='Int'/><prop Name='d' Val='9' Type='Int'/><prop/></Props>");
    play(u"Ann", [](cProfile&) {
        EXPECT_EQ(cProfile::getInts().count("c"), 0u);
        EXPECT_EQ(cProfile::getInts()["d"], 9);
        EXPECT_TRUE(Properties::getUInt16s().empty());
    });
}

}  // namespace Engine
