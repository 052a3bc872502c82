#include "Engine/core/ZipFile.h"

#include <algorithm>
#include <array>

#include "Engine/core/CallStack.h"
#include "Engine/core/PackStream.h"

namespace Engine {

namespace {

constexpr int case_sensitive = 1;
constexpr uLong flag_encrypted = 1;
constexpr ULongLong max_ratio = 1032;  ///< deflate can't do better

[[noreturn]] void throwFailure(const String& text) {
    callStackText() = text;
    throw text;
}

/// Takes down the directory entry that the handle stands on. Sizes that the packed bytes can't hold are not believed.
Bool readPlace(unzFile handle, const unz_file_info64& info, sMemberPlace& place) {
    unz64_file_pos pos{};
    if (unzGetFilePos64(handle, &pos) != UNZ_OK)
        return false;
    const Bool is_possible =
        info.uncompressed_size <= cZipFile::max_size && info.uncompressed_size / max_ratio <= info.compressed_size;
    const Bool can_open = is_possible && (info.flag & flag_encrypted) == 0;
    place = {pos.pos_in_zip_directory, pos.num_of_file, can_open ? static_cast<ULong>(info.uncompressed_size) : 0,
             can_open};
    return true;
}

}  // namespace

cZipFile::cZipFile(const String& zip_dir, const String& file_name)
    : m_pack(std::make_shared<cPack>(zip_dir)), m_name(file_name), m_handle(m_pack->take()) {
    ENGINE_MARK;
    if (unzLocateFile(m_handle, file_name.c_str(), case_sensitive) != UNZ_OK)
        fail("Cant't find file '" + m_name + "' in the " + zip_dir + "' pack.");
    unz_file_info64 info{};
    sMemberPlace place;
    place.can_open = unzGetCurrentFileInfo64(m_handle, &info, nullptr, 0, nullptr, 0, nullptr, 0) == UNZ_OK &&
                     readPlace(m_handle, info, place) && place.can_open;
    openMember(place);
}

cZipFile::cZipFile(std::shared_ptr<cPack> pack, const sMemberPlace& place, const String& file_name)
    : m_pack(std::move(pack)), m_name(file_name), m_handle(m_pack->take()) {
    ENGINE_MARK;
    const unz64_file_pos pos{place.offset, place.number};
    if (unzGoToFilePos64(m_handle, &pos) != UNZ_OK)
        fail("Cant't find file '" + m_name + "' in the " + m_pack->getPath() + "' pack.");
    openMember(place);
}

cZipFile::~cZipFile() {
    close();
}

/// A constructor that fails has no destructor to give the handle back.
void cZipFile::fail(const String& text) const {
    m_pack->giveBack(m_handle);
    throwFailure(text);
}

/// Starts the member that the handle stands on.
void cZipFile::openMember(const sMemberPlace& place) {
    if (!place.can_open || unzOpenCurrentFile(m_handle) != UNZ_OK)
        fail("Cant't open file '" + m_name + "' in the '" + m_pack->getPath() + "' pack.");
    m_size = place.size;
    m_is_member_open = true;
}

ULong cZipFile::getSize() const {
    return m_handle ? m_size : 0;
}

void cZipFile::seek(Long offset, ULong mode) {
    ENGINE_MARK;
    if (!m_handle)
        return;
    const LongLong base = mode == from_current ? m_pos : mode == from_end ? m_size : 0;
    skipTo(static_cast<ULong>(std::clamp<LongLong>(base + offset, 0, m_size)));
}

void cZipFile::skipTo(ULong pos) {
    if (pos < m_pos) {
        if (m_is_member_open)
            unzCloseCurrentFile(m_handle);
        m_is_member_open = unzOpenCurrentFile(m_handle) == UNZ_OK;
        m_pos = 0;
    }
    std::array<char, 4096> skipped;
    while (m_pos < pos)
        read(skipped.data(), std::min(pos - m_pos, static_cast<ULong>(skipped.size())));
}

ULong cZipFile::read(void* data, ULong size) {
    ENGINE_MARK;
    if (!m_handle)
        return 0;
    const ULong wanted = std::min(size, m_size - m_pos);
    char* const bytes = static_cast<char*>(data);
    ULong done = 0;
    while (done < wanted) {
        const int part = m_is_member_open ? unzReadCurrentFile(m_handle, bytes + done, wanted - done) : UNZ_ERRNO;
        if (part <= 0)
            throwFailure("File '" + m_name + "' in the '" + m_pack->getPath() + "' pack is damaged.");
        done += static_cast<ULong>(part);
    }
    m_pos += done;
    if (m_pos == m_size)
        closeMember();
    return done;
}

/// All bytes have been read: the pack's checksum of them is compared now, while somebody still listens.
void cZipFile::closeMember() {
    if (!m_is_member_open)
        return;
    m_is_member_open = false;
    if (unzCloseCurrentFile(m_handle) == UNZ_CRCERROR)
        throwFailure("File '" + m_name + "' in the '" + m_pack->getPath() + "' pack is damaged.");
}

void cZipFile::close() {
    if (!m_handle)
        return;
    if (m_is_member_open)
        unzCloseCurrentFile(m_handle);
    m_is_member_open = false;
    m_pack->giveBack(m_handle);
    m_handle = nullptr;
}

cZipFile::cFind::cFind(const String& path) : m_path(path), m_handle(openPack(path)) {
    if (!m_handle)
        throw String(path + " is cannot be opened.");
}

cZipFile::cFind::~cFind() {
    if (m_handle)
        unzClose(m_handle);
}

cZipFile::ZIP_FIND cZipFile::findOpen(const String& path) {
    ENGINE_MARK;
    return std::make_unique<cFind>(path);
}

namespace {

/// Fills the member from the entry that the walk stands on. A name of more than 1,023 bytes comes back cut.
Bool readMember(unzFile handle, cZipFile::sMember& member) {
    std::array<char, 1024> name;
    unz_file_info64 info{};
    if (unzGetCurrentFileInfo64(handle, &info, name.data(), name.size() - 1, nullptr, 0, nullptr, 0) != UNZ_OK ||
        !readPlace(handle, info, member.place))
        return false;
    member.name.assign(name.data(), std::min<std::size_t>(info.size_filename, name.size() - 1));
    member.size = info.uncompressed_size;
    member.packed_size = info.compressed_size;
    return true;
}

}  // namespace

Bool cZipFile::findFirstFile(ZIP_FIND& zip_find, sMember& member) {
    ENGINE_MARK;
    const String text = "Pack finder raise error during begin of search.";
    unz_global_info64 info{};
    if (!zip_find || unzGetGlobalInfo64(zip_find->m_handle, &info) != UNZ_OK)
        throw text;
    if (info.number_entry == 0)
        return false;
    if (unzGoToFirstFile(zip_find->m_handle) != UNZ_OK)
        throw String(text + " Pack: '" + zip_find->m_path + "'");
    if (!readMember(zip_find->m_handle, member))
        throw String(text + " (File name can't be obtained.) Pack: '" + zip_find->m_path + "'");
    return true;
}

Bool cZipFile::findNextFile(ZIP_FIND& zip_find, sMember& member) {
    ENGINE_MARK;
    if (!zip_find)
        throw "Pack finder raise error during search.";
    const int result = unzGoToNextFile(zip_find->m_handle);
    if (result == UNZ_END_OF_LIST_OF_FILE)
        return false;
    if (result != UNZ_OK)
        throw String("Pack finder raise error during search. Pack: '" + zip_find->m_path + "'");
    if (!readMember(zip_find->m_handle, member))
        throw String("Pack finder raise error during search. (File name can't be obtained.) Pack: '" +
                     zip_find->m_path + "'");
    return true;
}

Bool cZipFile::findFirstFile(ZIP_FIND& zip_find, String& file_name) {
    sMember member;
    const Bool is_found = findFirstFile(zip_find, member);
    if (is_found)
        file_name = member.name;
    return is_found;
}

Bool cZipFile::findNextFile(ZIP_FIND& zip_find, String& file_name) {
    sMember member;
    const Bool is_found = findNextFile(zip_find, member);
    if (is_found)
        file_name = member.name;
    return is_found;
}

void cZipFile::findClose(ZIP_FIND& zip_find) {
    ENGINE_MARK;
    const std::unique_ptr<cFind> find = std::move(zip_find);
    if (!find || unzClose(std::exchange(find->m_handle, nullptr)) != UNZ_OK)
        throw "Error has occurred while closing zip find.";
}

}  // namespace Engine
