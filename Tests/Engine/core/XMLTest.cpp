#include "Engine/core/XML.h"

#include <gtest/gtest.h>

#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/MemoryFile.h"
#include "Tests/Support/DataDirectory.h"

namespace Engine {

namespace {

cMemoryFile fileOf(const std::string& bytes) {
    return cMemoryFile(std::vector<char>(bytes.begin(), bytes.end()));
}

std::unique_ptr<cXML> parse(const std::string& bytes) {
    cMemoryFile file = fileOf(bytes);
    return std::make_unique<cXML>(&file);
}

/// The text of the failure; empty if the bytes are a document.
String failureOf(const std::string& bytes) {
    try {
        parse(bytes);
        return {};
    } catch (const String& text) {
        return text;
    }
}

String toBinary(const cXML& document) {
    cMemoryFile file;
    document.writeBinary(&file, true);
    return String(file.getBytes().data(), file.getBytes().size());
}

String repeat(const String& text, std::size_t count) {
    String result;
    for (std::size_t i = 0; i < count; ++i)
        result += text;
    return result;
}

/// A little-endian number as four bytes.
String number(UInt value) {
    return String(reinterpret_cast<const char*>(&value), sizeof(value));
}

const String level =
    "<?xml version=\"1.0\"?><level name=\"Ω\" size=\"1.5,2\">\n"
    "<point id=\"1\"/><arc>7</arc><point id=\"2\" kind=\"mill\"> 0x1F </point><point id=\"3\"/></level>";

}  // namespace

TEST(XML, sortsChildrenByNameAndKeepsTheirOrder) {
    const auto document = parse(level);
    String name;
    iXML* tag = nullptr;
    WString order;
    for (UInt i = 0; document->get(i, tag, &name); ++i)
        order += toWide(name) + (*tag)[u"id"] + u" ";
    EXPECT_EQ(order, u"arc point1 point2 point3 ");
    EXPECT_EQ(document->getTagCount(), 4u);
    EXPECT_FALSE(document->get(4, tag));
}

TEST(XML, findsChildrenByNameAndAttributes) {
    const auto document = parse(level);
    TAG_LIST tags;
    EXPECT_EQ(document->get("point", tags), 3u);
    EXPECT_EQ(document->get("point", {{u"kind", u"mill"}, {u"id", u"2"}}, tags), 1u);
    EXPECT_EQ(document->get("point", {{u"kind", u""}}, tags), 0u);  // absent is not empty
    ASSERT_EQ(tags.size(), 4u);
    EXPECT_EQ(tags[3], tags[1]);
    EXPECT_EQ(document->getNodeCount("point"), 3u);
    EXPECT_EQ(document->getNodeCount("poin"), 0u);
    iXML* tag = tags[0];
    EXPECT_FALSE(document->get("road", tag));
    EXPECT_EQ(tag, tags[0]);
}

TEST(XML, keepsAllTextAndSortsAttributes) {
    const auto document = parse("<a z='1' b=' x '>one<c/>\r\n two<![CDATA[<]]>&amp;</a>");
    EXPECT_EQ(document->getWText(), u"one\n two<&");
    ASSERT_EQ(document->getAttributeCount(), 2u);
    EXPECT_EQ(document->getAttribute(0).name, u"b");
    EXPECT_EQ(document->getAttribute(0).value, u" x ");
    EXPECT_EQ((*document)[u"none"], u"");
    EXPECT_EQ(document->getAttributes(), (ATTRIBUTE_MAP{{u"b", u" x "}, {u"z", u"1"}}));
}

TEST(XML, convertsTheFirstChildOfANameAndLeavesDefaults) {
    const auto document = parse("<a><n>5</n><n>6</n><b>true</b><c>ff0000</c><e/></a>");
    Int n = 0;
    Bool flag = true;
    DXColor color{0.0f, 0.0f, 0.0f, 0.25f};
    Float none = 3.0f;
    EXPECT_TRUE(document->getNode("n", n));
    EXPECT_TRUE(document->getNode("b", flag));
    EXPECT_TRUE(document->getNode("c", color));
    EXPECT_TRUE(document->getNode("e", none));
    EXPECT_FALSE(document->getNode("x", none));
    EXPECT_EQ(n, 5);
    EXPECT_TRUE(flag);
    EXPECT_EQ(color.a, 0.25f);
    EXPECT_EQ(none, 3.0f);
}

TEST(XML, readsAKeyFromAnAttributeBeforeAChild) {
    const auto document = parse("<a x='1' z=''><x>2</x><y>3 4</y><z>9</z></a>");
    Int x = 0;
    Int z = 7;
    Vector2 y(0.0f);
    EXPECT_TRUE(readKey(*document, u"x", x));
    EXPECT_TRUE(readKey(*document, u"y", y));
    EXPECT_TRUE(readKey(*document, u"z", z));
    EXPECT_FALSE(readKey(*document, u"none", x));
    EXPECT_EQ(x, 1);
    EXPECT_EQ(y, Vector2(3.0f, 4.0f));
    EXPECT_EQ(z, 7);
}

TEST(XML, readsUtf16WithAndWithoutAMark) {
    const std::u16string text = u"<?xml version=\"1.0\" encoding=\"UTF-16\"?><a b=\"\u0416\"/>";
    EXPECT_EQ((*parse(toBytes(text)))[u"b"], u"\u0416");
    EXPECT_EQ((*parse(toBytes(u"\uFEFF" + text)))[u"b"], u"\u0416");
}

TEST(XML, comesBackFromItsBinaryForm) {
    const auto document = parse(level);
    const String bytes = toBinary(*document);
    const auto again = parse(bytes);
    EXPECT_EQ(toBinary(*again), bytes);
    EXPECT_EQ(again->getAttributes(), document->getAttributes());
    EXPECT_EQ(again->getWText(), document->getWText());
    UInt hex = 0;
    TAG_LIST tags;
    again->get("point", tags);
    ASSERT_EQ(tags.size(), 3u);
    EXPECT_EQ((*tags[2])[u"id"], u"3");
    EXPECT_FALSE(tags[1]->getValue(hex) && hex == 0x1F);  // the blank in front makes it decimal
}

TEST(XML, writesTheBinaryFormByteForByte) {
    EXPECT_EQ(toBinary(*parse("<a k='v'><c>t</c><b/></a>")),
              ">" + number(1) + number(1) + toBytes(u"k") + number(1) + toBytes(u"v") +              // attributes
                  number(2) + number(1) + "b" + number(0) + number(0) + number(0) +                  // b, before c
                  number(1) + "c" + number(0) + number(0) + number(1) + toBytes(u"t") + number(0));  // c, root's text
}

TEST(XML, sortsABinaryFormThatIsNot) {
    const String pair = number(1) + toBytes(u"k") + number(1);
    const String empty = number(0) + number(0) + number(0);
    const auto document = parse(">" + number(2) + pair + toBytes(u"1") + pair + toBytes(u"2") + number(2) + number(1) +
                                "b" + empty + number(1) + "a" + empty + number(0));
    String name;
    iXML* tag = nullptr;
    ASSERT_TRUE(document->get(0, tag, &name));
    EXPECT_EQ(name, "a");
    EXPECT_EQ(document->getAttributes(), (ATTRIBUTE_MAP{{u"k", u"2"}}));  // the later of two
}

TEST(XML, tellsLineAndColumnOfMalformedText) {
    EXPECT_EQ(failureOf("<a>\n  <b></a>"), "mismatched tag line 2 char 7");
    EXPECT_EQ(failureOf(""), "no element found line 1 char 0");
    EXPECT_EQ(failureOf("<a b='1' b='2'/>"), "duplicate attribute line 1 char 9");
}

TEST(XML, refusesEveryCutOfABinaryDocument) {
    const String bytes = toBinary(*parse(level));
    for (std::size_t size = 1; size < bytes.size(); ++size)
        EXPECT_NE(failureOf(bytes.substr(0, size)).find("damaged binary document, byte "), String::npos) << size;
    EXPECT_NE(failureOf(bytes + "x").find("behind the end"), String::npos);
}

TEST(XML, refusesCountsThatTheFileDoesNotHold) {
    const String huge = number(0xFFFFFFFF);
    for (const std::string& bytes :
         {">" + huge, ">" + number(0) + huge, ">" + number(0) + number(0) + huge, ">" + number(1) + huge + "ab",
          ">" + number(0) + number(1) + huge + "abcdefghijklmnop"})
        EXPECT_NE(failureOf(bytes + String(64, '\0')).find("beyond the end"), String::npos);
}

TEST(XML, endsTooDeepNestingWithOneError) {
    const String deep = "tags are nested deeper than 1000 levels";
    EXPECT_EQ(failureOf(repeat("<a>", 1000) + repeat("</a>", 1000)), "");
    EXPECT_EQ(failureOf(repeat("<a>", 1000000)).substr(0, deep.size()), deep);
    const String child = number(0) + number(1) + number(1) + "a";
    EXPECT_NE(failureOf(">" + repeat(child, 1000000)).find(deep), String::npos);
}

TEST(XML, boundsEntities) {
    EXPECT_EQ(parse("<!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;&e;</a>")->getText(), "xx");
    String bomb = "<!DOCTYPE a [<!ENTITY e0 '0123456789'>";
    for (int i = 1; i < 12; ++i)
        bomb += "<!ENTITY e" + std::to_string(i) + " '" + repeat("&e" + std::to_string(i - 1) + ";", 10) + "'>";
    EXPECT_NE(failureOf(bomb + "]><a>&e11;</a>").find("amplification"), String::npos);

    String chain = "<!DOCTYPE a [<!ENTITY e0 'x'>";
    for (int i = 1; i < 100000; ++i)
        chain += "<!ENTITY e" + std::to_string(i) + " '&e" + std::to_string(i - 1) + ";'>";
    EXPECT_NE(failureOf(chain + "]><a>&e99999;</a>").find("more than 1000 entities"), String::npos);
}

TEST(XML, isEmptyAfterAFailureAndUsableAgain) {
    cMemoryFile broken = fileOf("<a x='1'><b>");
    cMemoryFile good = fileOf("<a x='2'/>");
    cXML document(&good);
    EXPECT_FALSE(document.readFromFile(&broken));
    EXPECT_EQ(document.getAttributeCount() + document.getTagCount(), 0u);
    EXPECT_FALSE(document.getError().empty());
    EXPECT_TRUE(document.readFromFile(&good));
    EXPECT_EQ(document[u"x"], u"2");
}

TEST(XML, namesTheFileThatCannotBeRead) {
    cDataDirectory data;
    data.ship("UI/Broken.xml", "<a>");
    try {
        const cXML document("UI/Broken.xml");
        FAIL();
    } catch (const String& text) {
        EXPECT_EQ(text, "no element found line 1 char 3 filename: UI/Broken.xml");
        EXPECT_EQ(callStackText(), text);
    }
    EXPECT_THROW(cXML("UI/None.xml"), String);
}

TEST(XML, setsADamagedCopyAsideAndReadsTheShippedFile) {
    cDataDirectory data;
    data.ship("a.xml", "<a x='shipped'/>");
    for (const std::string& damaged : {std::string("<a x='mine"), ">" + number(77)}) {
        data.write("a.xml", damaged);
        EXPECT_EQ(cXML("A.xml")[u"x"], u"shipped");
        EXPECT_EQ(data.read("a.xml"), "");
        EXPECT_EQ(data.read("a.xml.damaged"), damaged);
    }
}

TEST(XML, tellsOfADamagedCopyThatNothingWasShippedFor) {
    cDataDirectory data;
    data.write("mine.xml", "<a");
    EXPECT_THROW(cXML("mine.xml"), String);
    EXPECT_EQ(data.read("mine.xml.damaged"), "<a");
}

TEST(XML, writesItsBinaryFormIntoTheWritableDirectory) {
    cDataDirectory data;
    data.ship("a.xml", "<a x='1'/>");
    cXML("a.xml").writeBinary("a.xml");
    EXPECT_EQ(data.read("a.xml")[0], '>');
    EXPECT_EQ(cXML("a.xml")[u"x"], u"1");
}

}  // namespace Engine
