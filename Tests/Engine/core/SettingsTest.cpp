#include "Engine/core/Settings.h"

#include <gtest/gtest.h>

#include "Engine/core/Constants.h"
#include "Tests/Support/DataDirectory.h"

namespace Engine {

namespace {

constexpr const char* file_name = "sys/settings.xml";

class Settings : public testing::Test {
protected:
    Settings() { data.ship(file_name, "<main><graphics width=\"1024\"/><Sound Music=\"200\"/></main>"); }

    cDataDirectory data;
};

}  // namespace

TEST_F(Settings, convertsValuesOfSections) {
    cSettings settings(file_name);
    Int width = 800;
    UInt music = 0;
    EXPECT_TRUE(settings.getProperty("graphics", "width", width));
    EXPECT_TRUE(settings.getProperty("Sound", "Music", music));
    EXPECT_EQ(width, 1024);
    EXPECT_EQ(music, 200u);
}

TEST_F(Settings, enterAnAbsentKeyEmptyAndKeepTheDefault) {
    cSettings settings(file_name);
    Bool fullscreen = true;
    EXPECT_FALSE(settings.getProperty("graphics", "fullscreen", fullscreen));
    EXPECT_TRUE(settings.getProperty("graphics", "fullscreen", fullscreen));
    EXPECT_TRUE(fullscreen);
}

TEST_F(Settings, areSavedAtTheEndInOneFixedForm) {
    {
        cSettings settings(file_name);
        Int height = 600;
        settings.getProperty("graphics", "height", height);
        settings.setProperty("graphics", "fullscreen", true);
        settings.setProperty("graphics", "color", DXColor{1.0f, 1.0f, 1.0f, 1.0f});
        settings.setProperty("Sound", "Name", WString(u"it's > \u0416"));
    }
    EXPECT_EQ(data.read(file_name),
              toBytes(u"\uFEFF<?xml version=\"1.0\" encoding=\"UTF-16\"?><main>"
                      u"<Sound Music=\"200\" Name=\"it's > \u0416\" />"
                      u"<graphics color=\"0xffffffff\" fullscreen=\"1\" height=\"\" width=\"1024\" /></main>"));
}

TEST_F(Settings, comeBackWhateverTheirText) {
    const WString text = u"<a b=\"&amp;\">\n\t'\r";
    {
        cSettings settings(file_name);
        settings.setProperty("player", "name", text);
        settings.setProperty("player", "odd", WString(u"\x01"));
    }
    data.restart();
    cSettings settings(file_name);
    WString name;
    WString odd;
    EXPECT_TRUE(settings.getProperty("player", "name", name));
    EXPECT_TRUE(settings.getProperty("player", "odd", odd));
    EXPECT_EQ(name, text);
    EXPECT_EQ(odd, u"\uFFFD");
}

TEST_F(Settings, refuseANameThatNoFileCouldHold) {
    cSettings settings(file_name);
    EXPECT_THROW(settings.setProperty("my section", "key", 1), String);
    EXPECT_THROW(settings.setProperty("section", "1st", 1), String);
    EXPECT_THROW(settings.setProperty("section", "", 1), String);
}

TEST_F(Settings, areNotOverwrittenWhenTheyCouldNotBeRead) {
    data.ship(file_name, "<main><graphics");
    EXPECT_THROW(cSettings settings(file_name), String);
    EXPECT_EQ(data.read(file_name), "");
}

TEST_F(Settings, damagedFileOfThePlayerFallsBackToTheShippedOne) {
    data.write(file_name, "<main><graphics width=\"5");
    cSettings settings(file_name);
    Int width = 800;
    settings.getProperty("graphics", "width", width);
    EXPECT_EQ(width, 1024);
    EXPECT_EQ(data.read("sys/settings.xml.damaged"), "<main><graphics width=\"5");
}

TEST_F(Settings, constantsReadTheSameForm) {
    cConstants constants("sys/constants.xml");
    String directory;
    Float fps = 15.0f;
    EXPECT_TRUE(constants.getProperty("game", "app_directory", directory));
    EXPECT_FALSE(constants.getProperty("Time", "MinFps", fps));
    EXPECT_EQ(directory, "test");
    EXPECT_EQ(fps, 15.0f);
}

}  // namespace Engine
