#include "Game/Ui/SaveFile.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/FileManager.h"
#include "Engine/core/Log.h"
#include "Engine/core/WholeFile.h"
#include "Game/GameLogic/SavedValue.h"

using namespace Engine;

namespace {

constexpr ULong award_size = 24;  // bytes
constexpr ULong least_level = 8;  // bytes

// The stream --------------------------------------------------------------------------------------------------------

/// Writes that count, or reads one that the rest of the stream can hold.
Int serializeCount(iArch& arch, std::size_t size, ULong least_size, const char* what) {
    if (arch.isReading())
        return readCount(arch, least_size, what);
    Int count = static_cast<Int>(size);
    arch << count;
    return count;
}

void serializeAward(iArch& arch, sAwardRecord& award) {
    arch << award.id << award.check << award.obtained << award.shown << award.data00 << award.data01;
}

/// Each goes to the place of its own number; one of a number that there is not is left out.
void readAwards(iArch& arch, sProgress& progress) {
    for (Int left = readCount(arch, award_size, "awards"); left > 0; --left) {
        sAwardRecord award;
        serializeAward(arch, award);
        if (award.id < 0 || award.id >= static_cast<Int>(sProgress::award_count))
            continue;
        award.check = 0;
        progress.awards[static_cast<std::size_t>(award.id)] = award;
    }
}

void writeAwards(iArch& arch, sProgress& progress) {
    serializeCount(arch, progress.awards.size(), award_size, "awards");
    for (sAwardRecord& award : progress.awards)
        serializeAward(arch, award);
}

void readLevels(iArch& arch, std::map<Int, cLevelState>& levels) {
    for (Int left = readCount(arch, least_level, "levels"); left > 0; --left) {
        cLevelState level(-1);
        level.load(arch);
        const Int number = level.getLevel();
        if (number < 0 || !levels.emplace(number, std::move(level)).second)
            throw String("there can't be a level " + std::to_string(number));
    }
}

void writeLevels(iArch& arch, std::map<Int, cLevelState>& levels) {
    serializeCount(arch, levels.size(), least_level, "levels");
    for (auto& [number, level] : levels)
        level.save(arch);
}

void serialize(iArch& arch, sSave& save) {
    arch.isReading() ? readAwards(arch, save.progress) : writeAwards(arch, save.progress);
    for (Int& hint : save.progress.hints)
        arch << hint;
    save.products.resize(static_cast<std::size_t>(serializeCount(arch, save.products.size(), sizeof(Int), "products")));
    for (Int& product : save.products)
        arch << product;
    arch.isReading() ? readLevels(arch, save.levels) : writeLevels(arch, save.levels);
    if (arch.isReading() && !arch.atEnd())
        throw String("there is something behind its end");
}

// Files -------------------------------------------------------------------------------------------------------------

std::vector<char> readFile(const String& path) {
    const std::vector<std::uint8_t> bytes = readWholeFile(path, "Save");
    return {bytes.begin(), bytes.end()};
}

/// Throws what keeps the bytes from the disk.
void writeFile(const String& path, const std::vector<char>& bytes) {
    const auto file = cFileManager::getInstance()->create(path, true);
    file->write(bytes.data(), static_cast<ULong>(bytes.size()));
    file->close();  // tells of a write that failed
}

String getBackup(const String& path) {
    return String(path + ".bak");
}

/// The save of that file, if there is a good one; what is wrong with it is noted.
Bool readGood(const String& path, sSave& save, std::vector<char>& bytes) {
    if (!cFileManager::getInstance()->isExist(path))
        return false;
    String wrong;
    try {
        bytes = readFile(path);
        wrong = cSaveFile::fromBytes(bytes, save);
    } catch (...) {
        wrong = takeFailureLine();
    }
    if (!wrong.empty())
        noteInSaveLog(String("Save \"" + path + "\": " + wrong));
    return wrong.empty();
}

}  // namespace

String takeFailureLine() {
    const String& failure = currentFailure();
    String line(failure.substr(0, failure.find('\n')));
    callStackText().clear();
    return line;
}

void noteInSaveLog(const String& text) {
    try {
        cLogManager::getInstance()->getLog("saves", true)->printf("%s", text.c_str());
    } catch (...) {
        takeFailureLine();
    }
}

std::vector<char> cSaveFile::toBytes(sSave& save) {
    std::vector<char> bytes;
    cBufferWriter arch(&bytes);
    serialize(arch, save);
    return bytes;
}

String cSaveFile::fromBytes(std::vector<char> bytes, sSave& save) {
    sSave read;
    try {
        cRecordReader arch(&bytes);
        serialize(arch, read);
    } catch (...) {
        return takeFailureLine();
    }
    save = std::move(read);
    return {};
}

cSaveFile::eFound cSaveFile::read(sSave& save) const {
    ENGINE_MARK;
    const Bool exists = cFileManager::getInstance()->isExist(m_path);
    std::vector<char> bytes;
    if (exists && readGood(m_path, save, bytes))
        return good;
    const Bool has_backup = readGood(getBackup(m_path), save, bytes);
    if (!exists && !has_backup)
        return none;
    try {
        cFileManager::getInstance()->setDamagedAside(m_path);
        if (has_backup)
            writeFile(m_path, bytes);
    } catch (...) {  // the disk takes nothing; both files are there at the next start
        noteInSaveLog(takeFailureLine());
    }
    return has_backup ? restored : lost;
}

void cSaveFile::write(sSave& save) const {
    ENGINE_MARK;
    const std::vector<char> bytes = toBytes(save);
    std::vector<char> before;
    sSave unused;
    if (readGood(m_path, unused, before)) {
        if (before == bytes)
            return;
        writeFile(getBackup(m_path), before);
    }
    writeFile(m_path, bytes);
}

Bool cSaveFile::readOnly(sSave& save) const {
    ENGINE_MARK;
    std::vector<char> bytes;
    return readGood(m_path, save, bytes);
}

void cSaveFile::keepLevelAside(const cLevelState& level) const {
    ENGINE_MARK;
    const String player = m_path.substr(0, m_path.rfind('.'));
    writeFile(String(player + ".level" + std::to_string(level.getLevel()) + ".damaged"), level.getBytes());
}
