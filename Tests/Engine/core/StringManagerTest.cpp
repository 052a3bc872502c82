#include "Engine/core/StringManager.h"

#include <gtest/gtest.h>

#include "Engine/core/Constants.h"
#include "Engine/core/XML.h"
#include "Tests/Support/DataDirectory.h"

namespace Engine {

namespace {

class StringManager : public testing::Test {
protected:
    /// Starts with a table of one word, and the constant as given.
    void start(const char* dump) {
        data.ship("sys/strings.xml",
                  "<Strings><s><text>Road</text><translation>Weg</translation></s><s><text>Half</text></s></Strings>");
        data.ship("sys/constants.xml",
                  std::string("<main><game app_directory=\"test\" DumpStrings=\"") + dump + "\"/></main>");
        constants.emplace("sys/constants.xml");
        strings.emplace();
    }

    cDataDirectory data;
    std::optional<cConstants> constants;
    std::optional<cStringManager> strings;
};

}  // namespace

TEST_F(StringManager, translatesAndLeavesTheRestAsItIs) {
    start("0");
    EXPECT_EQ(strings->getString(u"Road"), u"Weg");
    EXPECT_EQ(strings->getString(u"Half"), u"Half");
    EXPECT_EQ(strings->getString(u"Mill"), u"Mill");
    EXPECT_EQ(strings->getString(u""), u"");
    strings.reset();
    EXPECT_EQ(data.read("strdubp.xml"), "");
}

TEST_F(StringManager, worksWithoutATable) {
    constants.emplace("sys/constants.xml");
    strings.emplace();
    EXPECT_EQ(strings->getString(u"Mill"), u"Mill");
}

TEST_F(StringManager, showsAndDumpsWhatIsNotTranslated) {
    start("1");
    EXPECT_EQ(strings->getString(u"Road"), u"Weg");
    EXPECT_EQ(strings->getString(u"Mill"), u"!!!!!!!Mill");
    EXPECT_EQ(strings->getString(u"Mill"), u"!!!!!!!Mill");
    EXPECT_EQ(strings->getString(u"Idol's"), u"!!!!!!!Idol's");
    strings.reset();
    EXPECT_EQ(data.read("strdubp.xml"),
              toBytes(u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<Strings>"
                      u"<s>\n<text>Idol's</text>\n<translation>Idol's</translation>\n</s>"
                      u"<s>\n<text>Mill</text>\n<translation>Mill</translation>\n</s></Strings>"));
}

TEST_F(StringManager, dumpsWhatCanBeReadAgain) {
    start("1");
    strings->getString(u"Men & \"mills\" < 5");
    strings.reset();
    const cXML dump("strdubp.xml");
    iXML* entry = nullptr;
    WString text;
    ASSERT_TRUE(dump.get("s", entry));
    EXPECT_TRUE(entry->getNode("text", text));
    EXPECT_EQ(text, u"Men & \"mills\" < 5");
}

}  // namespace Engine
