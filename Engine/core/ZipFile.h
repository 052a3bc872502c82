#pragma once

#include <memory>

#include "Engine/core/File.h"
#include "Engine/core/Pack.h"
#include "Engine/core/String.h"

namespace Engine {

/// A member of a pack (a zip file without a password), read-only; write() does nothing.
///
/// Bytes are inflated as they are read. Seeking back inflates from the member's start again, seeking forward skips.
/// What the pack says about a member is not believed: a member that yields fewer bytes than its directory entry
/// promises, or whose checksum is wrong once its last byte has been read, makes read() throw
/// "File '<name>' in the '<pack>' pack is damaged."
class cZipFile : public iFile {
public:
    /// Members beyond this are refused before anything is allocated for them.
    static constexpr ULong max_size = 512u * 1024 * 1024;

    /// Opens a member by its exact name (letter case counts). All failures throw a String, also stored in
    /// callStackText(): "Cant't open pack file '<pack>'", "Cant't find file '<name>' in the <pack>' pack.",
    /// "Cant't open file '<name>' in the '<pack>' pack."; the last also for an encrypted member, and for a size above
    /// max_size or above what the packed bytes can hold.
    cZipFile(const String& zip_dir, const String& file_name);
    /// Opens a member whose place is known; fails as above.
    cZipFile(std::shared_ptr<cPack> pack, const sMemberPlace& place, const String& file_name);
    ~cZipFile() override;

    ULong getSize() const override;
    void seek(Long offset, ULong mode) override;
    ULong read(void* data, ULong size) override;
    ULong write(const void*, ULong) override { return 0; }
    void close() override;

    /// One member met while a pack's directory is walked.
    struct sMember {
        String name;  ///< as the pack spells it
        sMemberPlace place;
        ULongLong size = 0;         ///< bytes
        ULongLong packed_size = 0;  ///< bytes
    };

    /// A walk through the directory of one pack.
    class cFind {
    public:
        explicit cFind(const String& path);
        ~cFind();
        cFind(const cFind&) = delete;
        cFind& operator=(const cFind&) = delete;

    private:
        friend class cZipFile;
        String m_path;
        void* m_handle;
    };
    using ZIP_FIND = std::unique_ptr<cFind>;

    /// Throws "<path> is cannot be opened.".
    static ZIP_FIND findOpen(const String& path);
    /// The first member; false for an empty pack.
    /// Throws "Pack finder raise error during begin of search.", followed by " (File name can't be obtained.)" where
    /// that is the reason, and by the pack's path.
    static Bool findFirstFile(ZIP_FIND& zip_find, sMember& member);
    static Bool findFirstFile(ZIP_FIND& zip_find, String& file_name);
    /// The next member; false at the end. Throws the same with "Pack finder raise error during search.".
    static Bool findNextFile(ZIP_FIND& zip_find, sMember& member);
    static Bool findNextFile(ZIP_FIND& zip_find, String& file_name);
    /// Throws "Error has occurred while closing zip find.".
    static void findClose(ZIP_FIND& zip_find);

private:
    [[noreturn]] void fail(const String& text) const;
    void openMember(const sMemberPlace& place);
    void closeMember();
    void skipTo(ULong pos);

    std::shared_ptr<cPack> m_pack;
    String m_name;
    cPack::HANDLE m_handle = nullptr;  ///< null once closed
    Bool m_is_member_open = false;     ///< not once the last byte was read
    ULong m_size = 0;                  ///< bytes
    ULong m_pos = 0;                   ///< bytes
};

}  // namespace Engine
