#include <gtest/gtest.h>

#include <map>

#include "Engine/Ui/Font.h"
#include "Engine/Ui/Letter.h"
#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/MultilineText.h"
#include "Engine/Ui/PriceText.h"
#include "Engine/Ui/RightToLeft.h"
#include "Engine/Ui/TextBox.h"
#include "Engine/Ui/TextLine.h"
#include "Engine/Ui/ViewSets.h"
#include "Engine/core/Random.h"
#include "Engine/graphics/Graphics.h"
#include "Engine/platform/headless/HeadlessGraphicsDevice.h"
#include "Tests/Support/TestFont.h"

namespace Engine {

namespace {

/// What is drawn now, from left to right: the places of the letters' middles.
std::vector<Vector2> drawnLetters() {
    std::map<std::pair<Float, Float>, Vector2> places;
    UI::getDrawSet().walk([&](cControl* control) {
        if (const auto* letter = dynamic_cast<cLetter*>(control); letter && !letter->isBlank())
            places[{letter->getPosition().y, letter->getPosition().x}] = letter->getPosition();
    });
    std::vector<Vector2> res;
    for (const auto& [key, place] : places)
        res.push_back(place);
    return res;
}

class Text : public ::testing::Test {
protected:
    Text() { TestFont::install(program); }

    /// A view of that kind, set up from attributes and children beside the font's.
    template <class T>
    T& load(const std::string& attributes, const std::string& children = "") {
        program.write("view.xml", "<t" + TestFont::attributes + attributes + ">" + children + "</t>");
        program.start();
        auto* view = new T(nullptr);
        loadView(*view, "view.xml");
        return *view;
    }

    cHeadlessProgram program;
};

}  // namespace

TEST(Font, findsGlyphsInItsRangesAlone) {
    const std::string bytes = TestFont::write({{u'a', u'c', 0}, {u'x', u'z', 3}}, 5);
    const cFont font("f.fnt", std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
    EXPECT_NE(font.getGlyph(u'a'), nullptr);
    EXPECT_EQ(font.getGlyph(u'c') - font.getGlyph(u'a'), 2);
    EXPECT_EQ(font.getGlyph(u'y') - font.getGlyph(u'a'), 4);
    EXPECT_EQ(font.getGlyph(u'z'), nullptr);  // the range promises more glyphs than there are
    for (const char16_t missing : {u'\0', u'd', u'w', u'\xFFFF'})
        EXPECT_EQ(font.getGlyph(missing), nullptr);
}

TEST(Font, saysWhatIsWrongWithAFile) {
    const auto fail = [](const std::string& bytes) -> std::string {
        try {
            cFont("bad.fnt", std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
        } catch (const String& text) {
            return text;
        } catch (const char* text) {
            return text;
        }
        return "";
    };
    const std::string good = TestFont::write({{u'a', u'c', 0}}, 3);
    EXPECT_EQ(fail(good), "");
    EXPECT_EQ(fail(TestFont::write({}, 0, 0x666F6E75)), "Specified resourse (bad.fnt) is not font.");
    EXPECT_EQ(fail(""), "Specified resourse (bad.fnt) is not font.");
    for (std::size_t size = 4; size < good.size(); ++size)
        EXPECT_EQ(fail(good.substr(0, size)), "Unexpected end of source") << size;
    std::string lying = good;
    lying.replace(14, 4, "\xFF\xFF\xFF\x7F");  // two milliards of glyphs
    EXPECT_EQ(fail(lying), "Unexpected end of source");
}

TEST_F(Text, knowsItsWidthBeforeTheFirstFrame) {
    auto& line = load<cTextLine>(R"(String="ab cd?" position="100,50" Multiplier="2")");
    EXPECT_FLOAT_EQ(line.getWidth(), 2 * (4 * 8 + 5));  // the question mark has no glyph
    EXPECT_FLOAT_EQ(line.getHeight(), 40.0f);
    EXPECT_EQ(drawnLetters().size(), 4u);
    line.setText(u"   ");
    EXPECT_FLOAT_EQ(line.getWidth(), 30.0f);
    EXPECT_TRUE(drawnLetters().empty());
    line.setText(u"");
    EXPECT_FLOAT_EQ(line.getWidth(), 0.0f);
    EXPECT_FLOAT_EQ(line.getHeight(), 0.0f);
}

TEST_F(Text, standsWhereItIsAligned) {
    auto& line = load<cTextLine>(R"(String="ab" position="100,50" Align="1")");
    EXPECT_EQ(drawnLetters(), (std::vector<Vector2>{{104.0f, 50.0f}, {112.0f, 50.0f}}));
    line.setAlign(cTextLine::alignRight);
    program.frame();
    EXPECT_EQ(drawnLetters(), (std::vector<Vector2>{{88.0f, 50.0f}, {96.0f, 50.0f}}));
    line.setAlign(cTextLine::alignCenter);
    line.setPosition({200.0f, 60.0f});
    program.frame();
    EXPECT_EQ(drawnLetters(), (std::vector<Vector2>{{196.0f, 60.0f}, {204.0f, 60.0f}}));
}

TEST_F(Text, isTranslatedUnlessItIsAName) {
    program.write("sys/strings.xml", "<s><s><text>ab</text><translation>abcd</translation></s></s>");
    auto& line = load<cTextLine>(R"(String="ab")");
    EXPECT_FLOAT_EQ(line.getWidth(), 32.0f);
    line.setLocalized(false);
    EXPECT_FLOAT_EQ(line.getWidth(), 16.0f);
}

TEST(RightToLeft, turnsAllRoundButNumbersAndLatinWords) {
    EXPECT_EQ(rotateString(u"אב 12 abc"), u"abc 12 בא");
    EXPECT_EQ(rotateString(u""), u"");
}

// The box takes ten letters.
TEST_F(Text, wrapsAtBlanks) {
    auto& block = load<cMultilineText>(R"(String="aaaa bbbb cc ddddddddddddd e&#10;f" WrapText="1" VerticalAlign="1"
                                          size="80,200" position="100,100" Interlinear="20")",
                                       "<Text Align=\"1\"" + TestFont::attributes + "/>");
    std::vector<WString> texts;
    for (cTextLine* line : block.getLines())
        texts.push_back(line->getText());
    EXPECT_EQ(texts, (std::vector<WString>{u"aaaa bbbb", u"cc", u"ddddddddddddd", u"e", u"f"}));
    EXPECT_EQ(block.getLines()[0]->getPosition(), Vector2(60.0f, 10.0f));
    EXPECT_EQ(block.getLines()[4]->getPosition(), Vector2(60.0f, 90.0f));
    EXPECT_EQ(drawnLetters().size(), 8u + 2 + 13 + 1 + 1);

    block.setSize({800.0f, 200.0f});
    program.frame();
    EXPECT_EQ(block.getLines().size(), 2u);
    block.setText(u"a\nb");
    program.frame();
    EXPECT_EQ(block.getLines().size(), 2u);
    EXPECT_EQ(drawnLetters().size(), 2u);
}

TEST_F(Text, cutsAWordThatNoLineHolds) {
    auto& block =
        load<cMultilineText>(R"(String="aaaaaaaaaaaaaaaaaaaaaaaaa" WrapText="1" WrapStyle="1" VerticalAlign="2"
                                          size="80,200" position="100,100" Interlinear="20")",
                             "<Text" + TestFont::attributes + "/>");
    ASSERT_EQ(block.getLines().size(), 3u);
    EXPECT_EQ(block.getLines()[0]->getText().size(), 10u);
    EXPECT_EQ(block.getLines()[2]->getText().size(), 5u);
    EXPECT_EQ(block.getLines()[2]->getPosition().y, 190.0f);

    block.setSize({4.0f, 200.0f});  // less than any letter
    block.setText(u"abc");
    block.makeLines();
    EXPECT_EQ(block.getLines().size(), 3u);
}

// A font that has everything, as one made for all of Latin may.
TEST_F(Text, makesNoLettersOfLineEndsAndBlanks) {
    program.write("f.fnt", TestFont::write({{u'\0', u'\xFFFF', 0}}, 65536));
    auto& line = load<cTextLine>("");
    line.setText(u"a\r\nb");
    EXPECT_FLOAT_EQ(line.getWidth(), 16.0f);
    EXPECT_EQ(drawnLetters().size(), 2u);
    line.setText(u"a b c");  // letters come and go where blanks stood
    EXPECT_FLOAT_EQ(line.getWidth(), 3 * 8.0f + 2 * 5.0f);
    EXPECT_EQ(drawnLetters().size(), 3u);
    line.setText(u"  ");
    EXPECT_FLOAT_EQ(line.getWidth(), 10.0f);
    EXPECT_TRUE(drawnLetters().empty());
}

TEST_F(Text, partsThousandsOfAPrice) {
    load<cPriceText>(R"(String="1234567" Align="1" DegreeOffset="6")");
    std::vector<Float> gaps;
    const auto letters = drawnLetters();
    for (std::size_t i = 1; i < letters.size(); ++i)
        gaps.push_back(letters[i].x - letters[i - 1].x);
    EXPECT_EQ(gaps, (std::vector<Float>{12.0f, 6.0f, 6.0f, 12.0f, 6.0f, 6.0f}));
}

TEST_F(Text, takesWhatIsTypedAndItsFontCanShow) {
    auto& box = load<cTextBox>(R"(MaxLength="4" BlinkingPeriod="0.1" Align="1" position="10,10")",
                               R"(<Caret size="2,20" position="10,10" Visible="1" Enable="1"/>)");
    const auto type = [&](std::u16string_view text) {
        for (const char16_t unit : text)
            program.getPlatform().postMessage({Platform::eMessage::character, unit});
        program.frame();
    };
    type(u"a?b\r c");
    EXPECT_EQ(box.getText(), u"ab c");
    type(u"d\b\b");
    EXPECT_EQ(box.getText(), u"ab");
    type(u"\b\b\b\b");
    EXPECT_EQ(box.getText(), u"");
    box.disable();
    type(u"a");
    EXPECT_EQ(box.getText(), u"");
}

// Whatever its letters have been before, in sight or out of it.
TEST_F(Text, showsEachTextAsIfItWereTheFirst) {
    auto& line = load<cTextLine>(R"(Align="1")");
    cRandom dice;
    dice.setSeed(3);
    const auto roll = [&](Int sides) { return dice.next() % sides; };
    for (Int step = 0; step < 300; ++step) {
        SCOPED_TRACE(step);
        if (roll(3) == 0)
            line.hide();
        if (roll(3) == 0)
            line.setDeep(static_cast<Float>(roll(5)));
        if (roll(3) == 0)
            line.setPosition({static_cast<Float>(roll(9)), 50.0f});
        WString text;
        std::vector<Vector2> expected;
        Float x = line.getPosition().x;
        for (Int i = roll(12); i > 0; --i) {
            text += u"ab ?"[roll(4)];  // letters, a blank, one that the font lacks
            if (text.back() == u'a' || text.back() == u'b')
                expected.emplace_back(x + 4.0f, line.getPosition().y);
            x += text.back() == u'?' ? 0.0f : text.back() == u' ' ? 5.0f : 8.0f;
        }
        line.setText(text);
        program.frame();
        line.show();
        program.frame();
        EXPECT_EQ(drawnLetters(), expected);
        const auto& device = static_cast<Platform::cHeadlessGraphicsDevice&>(cGraphics::getInstance()->getDevice());
        EXPECT_EQ(device.getCounters().triangles, 2 * expected.size());
    }
}

TEST_F(Text, makesNothingNewInASteadyFrame) {
    auto& line = load<cTextLine>(R"(String="abcdef")");
    program.frames(3);
    const auto before = drawnLetters();
    line.setText(u"fedcba");
    line.setText(u"abcdef");
    program.frame();
    EXPECT_EQ(drawnLetters(), before);
}

}  // namespace Engine
