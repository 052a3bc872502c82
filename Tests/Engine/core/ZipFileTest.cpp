#include "Engine/core/ZipFile.h"

#include <gtest/gtest.h>

#include <functional>

#include "Engine/core/CallStack.h"
#include "Tests/Support/TempDirectory.h"

namespace Engine {

namespace {

const String name = "Level.lvl";

/// 100,000 bytes that don't repeat early.
String makeBytes() {
    String bytes;
    UInt state = 1;
    while (bytes.size() < 100'000)
        bytes += static_cast<char>((state = state * 1664525u + 1013904223u) >> 24 & 0x3F);
    return bytes;
}

class ZipFile : public testing::Test {
protected:
    ZipFile() : pack(directory / "data.pack"), bytes(makeBytes()) {
        directory.writePack("data.pack", {{name, bytes}, {"small.txt", "small"}});
    }

    /// Changes bytes of the pack: at this offset behind each place where the mark stands.
    void patch(const String& mark, std::size_t offset, const String& value) {
        String raw = directory.read("data.pack");
        for (std::size_t at = raw.find(mark); at != String::npos; at = raw.find(mark, at + mark.size()))
            raw.replace(at + offset, value.size(), value);
        directory.write("data.pack", raw);
    }

    String read(iFile& file, ULong size) {
        String text;
        text.resize(size);
        text.resize(file.read(text.data(), size));
        return text;
    }

    String failureOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const String& text) {
            return text;
        }
        return "nothing was thrown";
    }

    cTempDirectory directory;
    String pack;
    String bytes;
    const String local_header = String(std::string("PK\3\4", 4));
    const String directory_header = String(std::string("PK\1\2", 4));
};

}  // namespace

TEST_F(ZipFile, readsAndSeeksLikeAnyFile) {
    cZipFile file(pack, name);
    EXPECT_EQ(file.getSize(), bytes.size());
    EXPECT_EQ(read(file, 1'000'000), bytes);
    EXPECT_EQ(read(file, 1), "");
    file.seek(0, iFile::from_start);
    EXPECT_EQ(read(file, 1'000'000), bytes);
    file.seek(-10, iFile::from_end);
    EXPECT_EQ(read(file, 100), bytes.substr(bytes.size() - 10));
    file.seek(50'000, iFile::from_start);
    file.seek(-7, iFile::from_current);
    EXPECT_EQ(read(file, 5), bytes.substr(49'993, 5));
    file.seek(-5, iFile::from_start);
    EXPECT_EQ(read(file, 3), bytes.substr(0, 3));
    file.close();
    EXPECT_EQ(file.getSize(), 0u);
    EXPECT_EQ(read(file, 3), "");
}

TEST_F(ZipFile, servesSeveralMembersOfOnePackAtOnce) {
    cZipFile::sMember member;
    cZipFile::ZIP_FIND find = cZipFile::findOpen(pack);
    ASSERT_TRUE(cZipFile::findFirstFile(find, member));
    EXPECT_EQ(member.name, name);
    EXPECT_EQ(member.size, bytes.size());
    const auto shared = std::make_shared<cPack>(pack);
    cZipFile first(shared, member.place, name);
    EXPECT_EQ(read(first, 10), bytes.substr(0, 10));
    ASSERT_TRUE(cZipFile::findNextFile(find, member));
    cZipFile second(shared, member.place, member.name);
    EXPECT_EQ(read(second, 10), "small");
    EXPECT_EQ(read(first, 10), bytes.substr(10, 10));
    EXPECT_FALSE(cZipFile::findNextFile(find, member));
    cZipFile::findClose(find);
}

TEST_F(ZipFile, saysWhichPackAndMemberIsMissing) {
    EXPECT_EQ(failureOf([&] { cZipFile(directory / "no.pack", name); }),
              "Cant't open pack file '" + directory.getPath() + "no.pack'");
    EXPECT_EQ(failureOf([&] { cZipFile(pack, "level.lvl"); }),
              "Cant't find file 'level.lvl' in the " + pack + "' pack.");
    EXPECT_EQ(callStackText(), "Cant't find file 'level.lvl' in the " + pack + "' pack.");
    EXPECT_EQ(failureOf([&] { cZipFile::findOpen(directory / "no.pack"); }),
              directory.getPath() + "no.pack is cannot be opened.");
}

TEST_F(ZipFile, noticesAMemberWhoseBytesAreNotItsOwn) {
    patch(directory_header, 16, "oops");  // the checksum, which stands in the directory and before the member
    patch(local_header, 14, "oops");
    cZipFile file(pack, name);
    EXPECT_EQ(read(file, 99'999), bytes.substr(0, 99'999));
    EXPECT_EQ(failureOf([&] { read(file, 1); }), "File '" + name + "' in the '" + pack + "' pack is damaged.");
}

TEST_F(ZipFile, noticesAMemberThatIsShorterThanItsEntrySays) {
    const String longer(std::string("\xA1\x86\x01\x00", 4));  // 100,001
    patch(directory_header, 24, longer);
    patch(local_header, 22, longer);
    cZipFile file(pack, name);
    EXPECT_EQ(failureOf([&] { read(file, 200'000); }), "File '" + name + "' in the '" + pack + "' pack is damaged.");
}

TEST_F(ZipFile, refusesSizesThatCannotBe) {
    const String refused = "Cant't open file '" + name + "' in the '" + pack + "' pack.";
    for (const std::string& size : {std::string("\xFF\xFF\xFF\x0F", 4), std::string("\xFF\xFF\xFF\x7F", 4)}) {
        patch(directory_header, 24, String(size));
        patch(local_header, 22, String(size));
        EXPECT_EQ(failureOf([&] { cZipFile(pack, name); }), refused);
    }
}

TEST_F(ZipFile, refusesEncryptedMembers) {
    patch(directory_header, 8, "\1");
    EXPECT_EQ(failureOf([&] { cZipFile(pack, name); }), "Cant't open file '" + name + "' in the '" + pack + "' pack.");
}

TEST_F(ZipFile, tellsADamagedDirectoryFromItsEnd) {
    String raw = directory.read("data.pack");
    raw[raw.rfind(directory_header)] = 'X';  // the second entry
    directory.write("data.pack", raw);
    cZipFile::ZIP_FIND find = cZipFile::findOpen(pack);
    String found;
    ASSERT_TRUE(cZipFile::findFirstFile(find, found));
    EXPECT_EQ(failureOf([&] { cZipFile::findNextFile(find, found); }),
              "Pack finder raise error during search. Pack: '" + pack + "'");
}

}  // namespace Engine
