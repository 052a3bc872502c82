#include "Engine/graphics/text/TrueType.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "Engine/Ui/Font.h"
#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/TextLine.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/ResourceRef.h"
#include "Engine/graphics/Texture.h"
#include "Tests/Support/TestFont.h"

namespace Engine {

namespace {

constexpr UInt size = 21;

std::string readShipped(const char* name) {
    std::ifstream file(std::string(BRINDLE_SOURCE_DIR "/Data/Fonts/") + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

cTrueType make(const std::string& bytes, Float outline = 0.0f) {
    return {"test.ttf", std::vector<std::uint8_t>(bytes.begin(), bytes.end()), size, outline};
}

/// Does the picture of the one text begin, at its left, with that of the other?
::testing::AssertionResult beginsWith(cTrueType& font, std::u16string_view text, std::u16string_view part) {
    const sImage whole = font.draw(text);
    const sImage left = font.draw(part);
    const auto width = static_cast<UInt>(font.measure(part));
    if (width == 0 || whole.width < width || whole.height != left.height)
        return ::testing::AssertionFailure() << "one of them is empty";
    for (UInt y = 0; y < left.height; ++y) {
        const auto row = left.pixels.begin() + std::ptrdiff_t{y} * left.width * 4;
        if (!std::equal(row, row + std::ptrdiff_t{width} * 4,
                        whole.pixels.begin() + std::ptrdiff_t{y} * whole.width * 4))
            return ::testing::AssertionFailure() << "they differ in row " << y;
    }
    return ::testing::AssertionSuccess();
}

const std::string& dejavu() {
    static const std::string bytes = readShipped("dejavu.ttf");
    return bytes;
}

}  // namespace

TEST(TrueType, setsScriptsInTheirOwnDirections) {
    cTrueType font = make(dejavu());
    EXPECT_TRUE(beginsWith(font, u"ab", u"a"));
    EXPECT_FALSE(beginsWith(font, u"ab", u"b"));
    EXPECT_TRUE(beginsWith(font, u"\u05D0\u05D1", u"\u05D1"));        // Hebrew alef, bet
    EXPECT_TRUE(beginsWith(font, u"ab \u05D0\u05D1", u"ab \u05D1"));  // within a Latin line
    EXPECT_TRUE(beginsWith(font, u"\u05D0\u05D1 ab", u"ab "));        // Latin within a Hebrew line
    EXPECT_TRUE(beginsWith(font, u"(\u05D0)", u"("));                 // mirrored, so it opens at the left again
}

TEST(TrueType, keepsNumbersTogetherInRightToLeftText) {
    cTrueType font = make(dejavu());
    EXPECT_TRUE(beginsWith(font, u"\u05D0 12.5", u"12.5"));
    EXPECT_TRUE(beginsWith(font, u"50% \u05D0", u"\u05D0"));  // a number in front does not turn the line round
    EXPECT_TRUE(beginsWith(font, u"\u05D0 50%", u"50%"));
    EXPECT_TRUE(beginsWith(font, u"\u0628 \u0661\u0662", u"\u0661\u0662"));  // Arabic digits
}

TEST(TrueType, joinsArabicLetters) {
    cTrueType font = make(dejavu());
    EXPECT_LT(font.measure(u"\u0628\u0628\u0628"), 3 * font.measure(u"\u0628") - 1.0f);
}

TEST(TrueType, drawsAnOutlineRoundTheLetters) {
    cTrueType plain = make(dejavu());
    cTrueType outlined = make(dejavu(), 2.5f);
    EXPECT_EQ(outlined.measure(u"I"), plain.measure(u"I"));
    EXPECT_EQ(outlined.getMargin(), plain.getMargin() + 3);
    const auto count = [](const sImage& image, Bool dark) {
        UInt res = 0;
        for (std::size_t i = 0; i < image.pixels.size(); i += 4)
            res += image.pixels[i + 3] == 255 && (image.pixels[i] == 0) == dark;
        return res;
    };
    EXPECT_EQ(count(plain.draw(u"I"), true), 0u);
    EXPECT_GT(count(outlined.draw(u"I"), true), 50u);
    EXPECT_GT(count(outlined.draw(u"I"), false), 5u);
    EXPECT_TRUE(outlined.draw(u"").pixels.empty());
    EXPECT_TRUE(outlined.draw(u"\n").pixels.empty());
}

TEST(TrueType, boundsThePictureOfAnEndlessLine) {
    cTrueType font = make(dejavu());
    const sImage image = font.draw(std::u16string(2000, u'W'));
    EXPECT_EQ(image.width, max_image_side);
    EXPECT_EQ(image.pixels.size(), std::size_t{image.width} * image.height * 4);
}

TEST(TrueType, refusesWhatIsNoFont) {
    for (const std::string& bytes : {std::string(), std::string("OTTO"), dejavu().substr(0, 300)}) {
        try {
            make(bytes);
            ADD_FAILURE() << bytes.size() << " bytes are no font";
        } catch (const String& text) {
            EXPECT_EQ(text, "Font \"test.ttf\": this is no font that can be read.");
        }
    }
}

/// Lines of a program that draws its text from TrueType files.
class TrueTypeLine : public ::testing::Test {
protected:
    TrueTypeLine() {
        TestFont::install(program);
        program.write("sys/constants.xml", "<main><game app_directory=\"test\" TTFUsage=\"1\"/></main>");
        program.write("f.xml", "<font Files=\"latin.ttf;dejavu.ttf\" Size=\"21\"/>");
        program.write("large.fnt", TestFont::write({}, 0));
        program.write("large.xml", "<font Files=\"latin.ttf\" Size=\"42\"/>");
        program.write("latin.ttf", readShipped("vollkorn.ttf"));
        program.write("dejavu.ttf", dejavu());
    }

    cTextLine& load(const std::string& attributes) {
        program.write("view.xml", "<t" + TestFont::attributes + attributes + "/>");
        program.start();
        auto* line = new cTextLine(nullptr);
        loadView(*line, "view.xml");
        return *line;
    }

    cHeadlessProgram program;
};

TEST_F(TrueTypeLine, takesLettersFromTheFirstFontThatHasThem) {
    auto& line = load(R"(Localized="0")");
    EXPECT_TRUE(line.isCharAvail(u'a'));
    EXPECT_TRUE(line.isCharAvail(u'\u05D0'));
    EXPECT_FALSE(line.isCharAvail(u'\u4E00'));
    line.setText(u"\u05D0");
    EXPECT_FLOAT_EQ(line.getWidth(), make(dejavu()).measure(u"\u05D0"));
    line.setText(u"a");
    EXPECT_FLOAT_EQ(line.getWidth(), make(readShipped("vollkorn.ttf")).measure(u"a"));
}

TEST_F(TrueTypeLine, isOnePictureThatStandsAsAligned) {
    auto& line = load(R"(Localized="0" Multiplier="2" position="100,50")");
    line.setText(u"Wide");
    cTrueType font = make(readShipped("vollkorn.ttf"));
    const Float width = font.measure(u"Wide") * 2;
    EXPECT_FLOAT_EQ(line.getWidth(), width);
    const auto* texture = static_cast<const cTexture*>(line.getTexture());
    EXPECT_EQ(texture->getWidth(), font.draw(u"Wide").width);
    EXPECT_EQ(texture->getHeight(), font.getLineHeight());

    const auto margin = static_cast<Float>(font.getMargin()) * 2;
    for (const auto& [align, pen] : {std::pair{0u, 100 - width / 2}, {1u, 100.0f}, {2u, 100 - width}}) {
        line.setAlign(align);
        line.makeLetters();
        iGraphics::sSprite sprite;
        line.makeSprite(sprite, 0, 1.0f);
        EXPECT_NEAR(sprite.corners[0].x, pen - margin, 0.51f) << align;
        EXPECT_FLOAT_EQ(sprite.corners[0].x, std::round(sprite.corners[0].x));
    }

    line.setFont(cResourceRef::adopt(cResourceManager::getInstance()->getFont("large.fnt")).get());
    EXPECT_GT(line.getWidth(), 1.5f * width);  // the same text, another font
}

}  // namespace Engine
