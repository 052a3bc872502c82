#include "Engine/core/Arch.h"

#include <gtest/gtest.h>

namespace Engine {

namespace {

/// One field of every kind, moved by the same lines both ways.
struct sRecord {
    unsigned char byte = 0;
    char letter = 0;
    unsigned short word = 0;
    short number = 0;
    UInt mask = 0;
    Int count = 0;
    Float length = 0.0f;
    Double time = 0.0;
    ULongLong id = 0;
    LongLong offset = 0;
    String name;
    WString title;
    Vector2 pos{0.0f, 0.0f};

    void serialize(iArch& arch) {
        arch << byte << letter << word << number << mask << count << length << time << id << offset << name << title
             << pos;
    }
    friend Bool operator==(const sRecord&, const sRecord&) = default;
};

std::vector<char> toBytes(std::initializer_list<int> values) {
    std::vector<char> bytes;
    for (int value : values)
        bytes.push_back(static_cast<char>(value));
    return bytes;
}

template <class T>
void readFrom(std::vector<char>& bytes, T&& value) {
    cBufferReader reader(&bytes);
    reader << value;
}

}  // namespace

TEST(Arch, readsBackWhatTheSameLinesWrote) {
    sRecord written{200,   'x',        60000,        -3,     0x80000000u, -70000,       0.1f,
                    1e300, 1ull << 63, -(1ll << 40), "Mill", u"Über",     {1.5f, -2.0f}};
    std::vector<char> buffer;
    cBufferWriter writer(&buffer);
    written.serialize(writer);
    EXPECT_EQ(buffer.size(), 1u + 1 + 2 + 2 + 4 + 4 + 4 + 8 + 8 + 8 + (4 + 4) + (4 + 8) + 8);

    sRecord read;
    cBufferReader reader(&buffer);
    read.serialize(reader);
    EXPECT_EQ(read, written);
    EXPECT_TRUE(reader.atEnd());
}

// The bytes are the format of saves: they may not change.
TEST(Arch, writesLittleEndianWithoutPadding) {
    std::vector<char> buffer;
    cBufferWriter writer(&buffer);
    short number = -2;
    Int count = 0x01020304;
    Float length = 1.0f;
    String name = "ab";
    WString title = u"Ω";
    String empty;
    writer << number << count << length << name << title << empty << "z" << u"z";
    EXPECT_EQ(buffer, toBytes({0xFE, 0xFF, 4, 3, 2, 1,    0,    0, 0x80, 0x3F, 2, 0,   0,   0, 'a',
                               'b',  1,    0, 0, 0, 0xA9, 0x03, 0, 0,    0,    0, 'z', 'z', 0}));
}

TEST(Arch, leavesATargetBehindTheEndAsItWas) {
    std::vector<char> buffer = toBytes({1, 0, 0, 0, 7});
    cBufferReader reader(&buffer);
    Int first = 0;
    reader << first;
    EXPECT_EQ(first, 1);
    Int cut = 0x11111111;
    reader << cut;  // one byte is left
    EXPECT_EQ(cut, 0x11111107);
    Int behind = 5;
    String text = "old";
    reader << behind << text;
    EXPECT_EQ(behind, 5);
    EXPECT_EQ(text, "old");
    EXPECT_EQ(reader.getPos(), 5);
}

TEST(Arch, overwritesInPlaceAndFillsGapsWithZeros) {
    std::vector<char> buffer;
    cBufferWriter writer(&buffer);
    Int value = 0x55555555;
    writer << value << value;
    writer.setPos(2);
    unsigned char byte = 9;
    writer << byte;
    EXPECT_EQ(buffer.size(), 8u);
    EXPECT_EQ(buffer[2], 9);
    writer.setPos(10);
    writer << byte;
    EXPECT_EQ(buffer, toBytes({0x55, 0x55, 9, 0x55, 0x55, 0x55, 0x55, 0x55, 0, 0, 9}));
    EXPECT_EQ(writer.getPos(), 11);
}

TEST(Arch, refusesATextThatCannotBe) {
    for (const auto& bytes :
         {toBytes({0xFF, 0xFF, 0xFF, 0xFF, 'a'}), toBytes({2, 0, 0, 0, 'a'}), toBytes({0xFF, 0xFF, 0xFF, 0x7F, 'a'})}) {
        std::vector<char> buffer = bytes;
        String text = "old";
        WString wide;
        EXPECT_THROW(readFrom(buffer, text), String);
        EXPECT_THROW(readFrom(buffer, wide), String);
        EXPECT_EQ(text, "old");
    }
    std::vector<char> wide_cut = toBytes({1, 0, 0, 0, 'a'});  // half a character
    WString wide;
    EXPECT_THROW(readFrom(wide_cut, wide), String);
    EXPECT_THROW(readFrom(wide_cut, "plain"), String);
}

TEST(Arch, hasNoPlaceOverNoBuffer) {
    cBufferReader reader(nullptr);
    cBufferWriter writer(nullptr);
    Int value = 3;
    reader << value;
    writer << value;
    EXPECT_EQ(value, 3);
    EXPECT_EQ(reader.getPos(), -1);
    EXPECT_EQ(writer.getPos(), -1);
    EXPECT_TRUE(reader.isReading() && !reader.isWriting() && !reader.isOther());
    EXPECT_TRUE(writer.isWriting() && !writer.isReading());
}

}  // namespace Engine
