#include "Game/Ui/SaveFile.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <cstring>

#include "Engine/core/CallStack.h"
#include "Tests/Support/HeadlessProgram.h"

namespace {

constexpr std::size_t awards_end = 4 + 16 * 24;
constexpr std::size_t hints_end = awards_end + 61 * 4;
constexpr std::size_t products_end = hints_end + 4 + 34 * 4;

sSave makeSave(Int money) {
    sSave save;
    save.progress.awards[3] = {.id = 3, .obtained = 1, .shown = 1, .data00 = 7, .data01 = 9};
    save.progress.hints[60] = sProgress::hint_done;
    save.products.assign(34, 0);
    save.products[0] = money;
    for (const Int level : {0, 5}) {
        save.levels.emplace(level, cLevelState(level))
            .first->second.setBytes(std::vector<char>(20, static_cast<char>(level)));
    }
    return save;
}

Int intAt(const std::vector<char>& bytes, std::size_t place) {
    Int value = 0;
    std::memcpy(&value, bytes.data() + place, sizeof(value));
    return value;
}

void setInt(std::vector<char>& bytes, std::size_t place, Int value) {
    std::memcpy(bytes.data() + place, &value, sizeof(value));
}

std::vector<char> toBytes(sSave save) {
    return cSaveFile::toBytes(save);
}

/// A save file in the writable directory of a program.
class SaveFile : public ::testing::Test {
protected:
    static constexpr char path[] = "profiles/00000001.save";

    void put(const Engine::String& name, const std::vector<char>& bytes) {
        program.getDirectory().write("home/test/" + name, std::string(bytes.begin(), bytes.end()));
    }
    std::vector<char> get(const Engine::String& name) {
        const std::string bytes = program.getDirectory().read("home/test/" + name);
        return {bytes.begin(), bytes.end()};
    }

    Engine::cHeadlessProgram program;
    Engine::cWorkingDirectory working{program.getDirectory()};  // of the log
    cSaveFile file{path};
    const std::vector<char> first = toBytes(makeSave(1));
    const std::vector<char> second = toBytes(makeSave(2));
};

}  // namespace

TEST_F(SaveFile, isAwardsHintsProductsAndLevels) {
    EXPECT_EQ(intAt(first, 0), 16);
    EXPECT_EQ(intAt(first, 4 + 3 * 24), 3);
    EXPECT_EQ(intAt(first, 4 + 3 * 24 + 8), 1);
    EXPECT_EQ(intAt(first, 4 + 3 * 24 + 20), 9);
    EXPECT_EQ(intAt(first, awards_end + 60 * 4), 2);
    EXPECT_EQ(intAt(first, hints_end), 34);
    EXPECT_EQ(intAt(first, hints_end + 4), 1);
    EXPECT_EQ(intAt(first, products_end), 2);
    EXPECT_EQ(intAt(first, products_end + 4), 0);
    EXPECT_EQ(intAt(first, products_end + 8), 20);
    EXPECT_EQ(intAt(first, products_end + 12 + 20), 5);
    EXPECT_EQ(first.size(), products_end + 4 + 2 * 28);

    sSave read;
    EXPECT_EQ(cSaveFile::fromBytes(first, read), "");
    EXPECT_EQ(cSaveFile::toBytes(read), first);
}

TEST_F(SaveFile, isDamagedAtEveryLengthButItsOwn) {
    sSave read = makeSave(8);
    for (std::size_t size = 0; size < first.size(); ++size) {
        EXPECT_NE(cSaveFile::fromBytes({first.begin(), first.begin() + static_cast<std::ptrdiff_t>(size)}, read), "")
            << size;
    }
    std::vector<char> longer = first;
    longer.push_back(0);
    EXPECT_EQ(cSaveFile::fromBytes(longer, read), "there is something behind its end");
    EXPECT_EQ(cSaveFile::toBytes(read), toBytes(makeSave(8)));  // as it was
}

TEST_F(SaveFile, refusesCountsThatCantBe) {
    sSave read;
    for (const std::size_t place : {std::size_t(0), hints_end, products_end, products_end + 8}) {
        for (const Int count : {-1, 1000000, 2147483647}) {
            std::vector<char> bytes = first;
            setInt(bytes, place, count);
            EXPECT_NE(cSaveFile::fromBytes(bytes, read).find("can't be"), Engine::String::npos) << place;
        }
    }
    std::vector<char> twice = first;
    setInt(twice, products_end + 12 + 20, 0);
    EXPECT_EQ(cSaveFile::fromBytes(twice, read), "there can't be a level 0");
}

// Of a program with two awards, the second of them one that there is no more, and with three products.
TEST_F(SaveFile, isReadByItsOwnCounts) {
    std::vector<char> other(first.begin(), first.begin() + 4 + 2 * 24);
    setInt(other, 0, 2);
    setInt(other, 4, 6);
    setInt(other, 12, 1);
    setInt(other, 4 + 24, 40);
    other.insert(other.end(), first.begin() + awards_end, first.begin() + hints_end + 4 + 3 * 4);
    setInt(other, 4 + 2 * 24 + 61 * 4, 3);
    other.insert(other.end(), first.begin() + products_end, first.end());
    sSave read;
    ASSERT_EQ(cSaveFile::fromBytes(other, read), "");
    EXPECT_EQ(read.progress.awards[6].obtained, 1);
    EXPECT_EQ(read.progress.awards[3].id, 3);
    EXPECT_EQ(read.progress.awards[3].obtained, 0);
    EXPECT_EQ(read.products, (std::vector<Int>{1, 0, 0}));
    EXPECT_EQ(read.levels.size(), 2u);
}

TEST_F(SaveFile, keepsTheOneBeforeItAndComesBackFromIt) {
    program.start();
    sSave save = makeSave(1);
    EXPECT_EQ(file.read(save), cSaveFile::none);
    file.write(save);
    EXPECT_EQ(get("profiles/00000001.save.bak"), std::vector<char>());
    save = makeSave(2);
    file.write(save);
    file.write(save);  // nothing new: the one before it stays
    EXPECT_EQ(get(path), second);
    EXPECT_EQ(get("profiles/00000001.save.bak"), first);

    std::vector<char> cut(second.begin(), second.end() - 7);
    put(path, cut);
    sSave read;
    EXPECT_EQ(file.read(read), cSaveFile::restored);
    EXPECT_EQ(cSaveFile::toBytes(read), first);
    EXPECT_EQ(get("profiles/00000001.save.damaged"), cut);
    EXPECT_EQ(get(path), first);
    EXPECT_EQ(file.read(read), cSaveFile::good);
    EXPECT_NE(program.getDirectory().read("saves.log").find("00000001.save\": "), std::string::npos);
}

TEST_F(SaveFile, startsAnewWhenBothAreDamagedAndKeepsTheBytes) {
    put(path, {'x'});
    put("profiles/00000001.save.bak", {'y'});
    program.start();
    sSave read = makeSave(3);
    EXPECT_EQ(file.read(read), cSaveFile::lost);
    EXPECT_EQ(cSaveFile::toBytes(read), toBytes(makeSave(3)));
    EXPECT_EQ(get("profiles/00000001.save.damaged"), std::vector<char>{'x'});
    EXPECT_EQ(file.read(read), cSaveFile::none);
    file.write(read);
    EXPECT_EQ(file.read(read), cSaveFile::good);
}

// A kill while a damaged save is put aside leaves none.
TEST_F(SaveFile, comesBackWhenItIsGone) {
    put("profiles/00000001.save.bak", first);
    program.start();
    sSave read;
    EXPECT_EQ(file.read(read), cSaveFile::restored);
    EXPECT_EQ(get(path), first);
}

TEST_F(SaveFile, isAsItWasWhenTheDiskIsFull) {
    put(path, first);
    program.start();
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{16, limit.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    sSave save = makeSave(2);
    Engine::String failure;
    try {
        file.write(save);
    } catch (...) {
        failure = takeFailureLine();
    }
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, handler);
    EXPECT_NE(failure.find("can't be written"), Engine::String::npos) << failure;
    EXPECT_EQ(get(path), first);
    EXPECT_EQ(file.read(save), cSaveFile::good);
}
