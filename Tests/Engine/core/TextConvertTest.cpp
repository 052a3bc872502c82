#include "Engine/core/TextConvert.h"

#include <gtest/gtest.h>

#include <limits>

namespace Engine {

namespace {

/// What a value becomes when the text is parsed into it.
template <class T>
T parsed(std::u16string_view text, T value) {
    parseText(text, value);
    return value;
}

}  // namespace

TEST(TextConvert, takesTheNumberInFrontOfAText) {
    EXPECT_EQ(parsed<Int>(u" \t\n42 men", 7), 42);
    EXPECT_EQ(parsed<Int>(u"+5", 7), 5);
    EXPECT_EQ(parsed<Int>(u"1e5", 7), 1);
    EXPECT_EQ(parsed<Int>(u"0x10", 7), 0);  // only unsigned numbers have a hexadecimal form
    EXPECT_EQ(parsed<Float>(u"-1.5e2px", 7.0f), -150.0f);
    EXPECT_EQ(parsed<Float>(u".5", 7.0f), 0.5f);
    EXPECT_EQ(parsed<Float>(u"2e", 7.0f), 2.0f);
    EXPECT_EQ(parsed<Double>(u"0.1", 7.0), 0.1);
    EXPECT_EQ(parsed<LongLong>(u"-9223372036854775808", 7), std::numeric_limits<LongLong>::min());
}

TEST(TextConvert, leavesTheValueWhereThereIsNoNumber) {
    for (const char16_t* text : {u"", u"  ", u"men", u"+-5", u"-", u"--5", u"."}) {
        EXPECT_EQ(parsed<Int>(text, 7), 7) << toNarrow(text);
        EXPECT_EQ(parsed<Float>(text, 7.0f), 7.0f) << toNarrow(text);
    }
    for (const char16_t* text : {u"inf", u"nan", u"-infinity", u"e5"})
        EXPECT_EQ(parsed<Float>(text, 7.0f), 7.0f) << toNarrow(text);
    EXPECT_EQ(parsed<WString>(u"", u"default"), u"default");
    EXPECT_EQ(parsed<String>(u"", "default"), "default");
}

TEST(TextConvert, refusesWhatDoesNotFit) {
    EXPECT_EQ(parsed<Int>(u"2147483647", 7), 2147483647);
    EXPECT_EQ(parsed<Int>(u"2147483648", 7), 7);
    EXPECT_EQ(parsed<Int>(u"-2147483648", 7), std::numeric_limits<Int>::min());
    EXPECT_EQ(parsed<UInt>(u"4294967296", 7), 7u);
    EXPECT_EQ(parsed<LongLong>(u"18446744073709551617", 7), 7);
    EXPECT_EQ(parsed<Float>(u"1e39", 7.0f), 7.0f);
    EXPECT_EQ(parsed<Float>(u"1e-60", 7.0f), 0.0f);
    EXPECT_EQ(parsed<Double>(u"1e400", 7.0), 7.0);
}

TEST(TextConvert, readsUnsignedNumbersInBothForms) {
    EXPECT_EQ(parsed<UInt>(u"0xFFffFFff", 7), 0xFFFFFFFFu);
    EXPECT_EQ(parsed<UInt>(u"0x100000000", 7), 7u);
    EXPECT_EQ(parsed<UInt>(u"12", 7), 12u);
    EXPECT_EQ(parsed<UInt>(u"-1", 7), 0xFFFFFFFFu);
    EXPECT_EQ(parsed<UInt>(u"0x", 7), 7u);
}

TEST(TextConvert, readsOnlyNumbersAsFlags) {
    EXPECT_TRUE(parsed(u"1", false));
    EXPECT_FALSE(parsed(u" 0", true));
    EXPECT_TRUE(parsed(u"false", true));
    EXPECT_FALSE(parsed(u"true", false));
    EXPECT_FALSE(parsed(u"2", false));
}

TEST(TextConvert, keepsThePartsOfAVectorReadSoFar) {
    const Vector2 old(7.0f, 8.0f);
    EXPECT_EQ(parsed(u"1.5,2", old), Vector2(1.5f, 2.0f));
    EXPECT_EQ(parsed(u"1.5 2", old), Vector2(1.5f, 2.0f));
    EXPECT_EQ(parsed(u"1.5, 2", old), Vector2(1.5f, 2.0f));
    EXPECT_EQ(parsed(u"1.5", old), Vector2(1.5f, 8.0f));
    EXPECT_EQ(parsed(u"1.5;2", old), Vector2(1.5f, 8.0f));
    EXPECT_EQ(parsed(u"1.5,,2", old), Vector2(1.5f, 8.0f));
    EXPECT_EQ(parsed(u",2", old), old);
    EXPECT_EQ(parsed(u"1,2,x", Vector3(7.0f)), Vector3(1.0f, 2.0f, 7.0f));
    EXPECT_EQ(parsed(u"1 -2 3", Vector3(7.0f)), Vector3(1.0f, -2.0f, 3.0f));
}

TEST(TextConvert, readsColoursByTheirNumberOfDigits) {
    const DXColor old{0.5f, 0.5f, 0.5f, 0.5f};
    const auto byte = [](Int value) { return static_cast<Float>(value) * 0.003921569f; };
    EXPECT_EQ(parsed(u"ff8000", old), (DXColor{byte(255), byte(128), byte(0), 0.5f}));
    EXPECT_EQ(parsed(u"0xff8000", old), (DXColor{byte(255), byte(128), byte(0), 0.5f}));
    EXPECT_EQ(parsed(u"80FF8001", old), (DXColor{byte(255), byte(128), byte(1), byte(128)}));
    EXPECT_EQ(parsed(u"1ff8001", old), (DXColor{byte(255), byte(128), byte(1), byte(1)}));
    EXPECT_EQ(parsed(u"123456789", old), old);
    EXPECT_EQ(parsed(u"#ff8000", old), old);
}

TEST(TextConvert, cutsNarrowTextBetweenCharacters) {
    EXPECT_EQ(parsed<String>(u"Mühle", ""), "Mühle");
    EXPECT_EQ(parsed<String>(std::u16string(300, u'a'), "").size(), 255u);
    EXPECT_EQ(parsed<String>(std::u16string(300, u'ü'), "").size(), 254u);  // two bytes each
    std::u16string pairs = u"a";
    for (int i = 0; i < 100; ++i)
        pairs += u"\U0001F33E";
    EXPECT_EQ(parsed<String>(pairs, "").size(), 1u + 63 * 4);
}

TEST(TextConvert, formatsWhatSettingsAreSavedAs) {
    EXPECT_EQ(formatText(true), u"1");
    EXPECT_EQ(formatText(Int(-12)), u"-12");
    EXPECT_EQ(formatText(UInt(4000000000)), u"4000000000");
    EXPECT_EQ(formatText(0.1f), u"0.1");
    EXPECT_EQ(formatText(1.0f / 3), u"0.333333");
    EXPECT_EQ(formatText(Vector3(1.0f, -2.5f, 1000000.0f)), u"1 -2.5 1e+06");
    EXPECT_EQ(formatText(DXColor{1.0f, 0.5f, 0.0f, 1.0f}), u"0xffff8000");
    EXPECT_EQ(formatText(String("Mühle")), u"Mühle");
}

TEST(TextConvert, readsBackAColourWithoutAlpha) {
    const DXColor clear{0.0f, 0.0f, 1.0f, 0.0f};
    EXPECT_EQ(toPackedColor(parsed(formatText(clear), DXColor{1.0f, 1.0f, 1.0f, 1.0f})), toPackedColor(clear));
}

}  // namespace Engine
