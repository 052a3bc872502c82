#pragma once

#include <map>
#include <memory>
#include <set>
#include <string_view>
#include <vector>

#include "Engine/core/File.h"
#include "Engine/core/FileNames.h"
#include "Engine/core/Singleton.h"
#include "Engine/core/String.h"
#include "Engine/core/Types.h"
#include "Engine/core/ZipFile.h"

namespace Engine {

using FILE_NAME_LIST = std::vector<String>;

/// Where the bytes behind a name lie.
struct sFileLocation {
    String location;      ///< empty: loose file in the data directory; "#common#": loose file in the common
                          ///< directory; else the pack that holds it
    Bool in_root = true;  ///< the pack or file lies in the data directory, not in the common one
    String spelling;      ///< the name as the disk or the pack spells it; empty if that is the lower-case name
    sMemberPlace place;   ///< in the pack's directory, for a member

    friend Bool operator==(const sFileLocation&, const sFileLocation&) = default;
};

/// One tree of files for the whole program, addressed by relative names with "/" separators, letter case ignored.
///
/// Behind a name stands, in falling priority: a loose file of the writable (common) directory, a member of a pack
/// there (a patch), a member of a pack of the data directory, a loose file of the data directory. Everything is indexed
/// once at construction; afterwards the index follows what is done through here alone.
class cFileManager : public cSingleton<cFileManager> {
public:
    /// @param root_directory       the data directory
    /// @param package_extention    extension of packs, without the dot
    /// @param writable_base        directory in which the program's own writable directory is made, with a trailing "/"
    /// @param common_directory     the program's own writable directory itself, in place of one below the base; empty
    /// for
    ///                             none
    /// Throws the plain string "app_directory not defined." if "sys/constants.xml" names no directory, and whatever
    /// reading that file throws.
    cFileManager(const String& root_directory, const String& package_extention, const String& writable_base,
                 const String& common_directory = {});
    virtual ~cFileManager();

    virtual const String& getRootDirectory() const;
    virtual const String& getCommonDirectory() const;

    /// Throws `File "<name>" not found.`; for a broken pack the texts of cZipFile.
    virtual std::unique_ptr<iFile> open(const String& name);
    /// The same as create(name, true), by a wide name.
    virtual std::unique_ptr<iFile> create(const WString& name);
    /// A file in the common directory for writing. The target changes only at close(), whole or not at all.
    /// Throws `File "<name>" can't be creating.` and the system's message.
    virtual std::unique_ptr<iFile> create(const String& name, Bool overwrite);
    virtual void deleteFile(const String& name);
    /// A loose file of the common directory that can't be used gets the name with ".damaged" behind it, in place of one
    /// kept so before; the name then means what it would mean without the file. False if there is no such file.
    /// Throws a String, the system's message, if the file can't be renamed.
    Bool setDamagedAside(const String& name);
    virtual Bool isExist(const String& path) const;
    virtual Bool isCommonExist(const String& name) const;  ///< as a loose file of the common directory
    /// Indexed names that begin with the prefix; with deep false only the name that equals it.
    virtual void getIndexedFilenames(const String& prefix, FILE_NAME_LIST& res, Bool deep) const;
    /// Names (without directories) of the files right in this directory of the common directory, packs left out.
    virtual void getFilesNames(const String& dir, FILE_NAME_LIST& res) const;
    /// Files below a real directory, each with its path.
    virtual void getFileList(const String& path, FILE_NAME_LIST& res, Bool recursive) const;
    /// Moves a real file into the common directory. Throws `File "<from>" can't be moved into "<to>"` and the system's
    /// message.
    virtual void moveFile(const String& from, const String& to);

private:
    using INDEX = std::map<String, sFileLocation, std::less<>>;
    /// Packs by key, so that letter case doesn't decide which is the later; the second is the name on disk.
    using PACK_NAMES = std::set<std::pair<String, String>>;

    void toIndexDirectory(const String& path, const String& dir_tag);
    void indexLooseFile(const String& name, const String& dir_tag);
    void indexPacks(const String& path, Bool in_root);
    void indexMember(const String& pack, const cZipFile::sMember& member, Bool in_root);
    void readAppDirectory(const String& writable_base);
    String getCommonPath(const String& key) const;
    std::shared_ptr<cPack> getPack(const sFileLocation& location);
    void enterCommonFile(const String& key, const String& spelling);
    void leaveCommonFile(const String& key);

    INDEX m_index;       ///< what each name means now
    INDEX m_base_index;  ///< what a name means without its loose common file; only for names that have one
    PACK_NAMES m_packs;  ///< pack files found while a directory is indexed
    std::map<String, std::shared_ptr<cPack>> m_open_packs[2];  ///< by name, those that were read from: [in_root]
    String m_root_directory;                                   ///< trailing "/"
    String m_package_extention;
    String m_common_directory;  ///< trailing "/"; empty while the data directory is indexed
};

}  // namespace Engine
