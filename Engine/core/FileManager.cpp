#include "Engine/core/FileManager.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "Engine/core/AtomicFile.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/DirectoryWalk.h"
#include "Engine/core/FileText.h"
#include "Engine/core/LastError.h"
#include "Engine/core/Log.h"
#include "Engine/core/RealFile.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/XML.h"

namespace Engine {

namespace {

const String common_tag = "#common#";

String toDirectory(const String& path) {
    String result = path;
    std::replace(result.begin(), result.end(), '\\', '/');
    if (result.empty() || result.back() != '/')
        result += '/';
    return result;
}

/// A directory in which no log can be written is no reason not to start either.
void noteLeftOut(const String& pack, const String& member) {
    try {
        cLogManager::getInstance()
            ->getLog("files", true)
            ->printf("Pack '%s': member '%s' is left out, its name leads out of the data directory.", pack.c_str(),
                     member.c_str());
    } catch (const std::string&) {
    }
}

void forgetResource(const String& key) {
    if (cResourceManager* resources = cResourceManager::getInstance())
        resources->releaseResource(key);
}

}  // namespace

cFileManager::cFileManager(const String& root_directory, const String& package_extention, const String& writable_base,
                           const String& common_directory)
    : m_root_directory(toDirectory(root_directory)), m_package_extention(toLower(package_extention)) {
    ENGINE_MARK;
    toIndexDirectory(m_root_directory, "");
    indexPacks(m_root_directory, true);
    readAppDirectory(writable_base);
    if (!common_directory.empty())
        m_common_directory = toDirectory(common_directory);
    createDirectories(m_common_directory);

    INDEX shipped = std::exchange(m_index, {});
    toIndexDirectory(m_common_directory, common_tag);
    INDEX loose = std::exchange(m_index, std::move(shipped));
    indexPacks(m_common_directory, false);
    for (const auto& [key, location] : loose)
        enterCommonFile(key, location.spelling);
}

cFileManager::~cFileManager() = default;

/// Loose files go into the index, packs into m_packs. Only packs right in the directory count.
void cFileManager::toIndexDirectory(const String& path, const String& dir_tag) {
    ENGINE_MARK;
    m_packs.clear();
    walkDirectory(path, true, [&](const String& name) {
        if (getFileExt(name) != m_package_extention)
            indexLooseFile(name, dir_tag);
        else if (name.find('/') == String::npos)
            m_packs.emplace(toFileKey(name), name);
    });
}

/// Two spellings that differ in case alone are one name; the later in byte order, so the lower-case one, is taken.
void cFileManager::indexLooseFile(const String& name, const String& dir_tag) {
    String key = toFileKey(name);
    sFileLocation& location = m_index[key];
    location = {dir_tag, dir_tag != common_tag, String(), {}};
    if (key != name)
        location.spelling = name;
}

/// Members replace what is in the index, those of later packs the ones of earlier packs.
void cFileManager::indexPacks(const String& path, Bool in_root) {
    ENGINE_MARK;
    cZipFile::sMember member;
    for (const auto& [key, pack] : m_packs) {
        cZipFile::ZIP_FIND find = cZipFile::findOpen(path + pack);
        for (Bool more = cZipFile::findFirstFile(find, member); more; more = cZipFile::findNextFile(find, member))
            indexMember(pack, member, in_root);
        cZipFile::findClose(find);
    }
}

/// Directories are left out, and so is a member whose name leads out of the tree: one bad member is no reason not to
/// start.
void cFileManager::indexMember(const String& pack, const cZipFile::sMember& member, Bool in_root) {
    if (member.name.empty() || member.name.back() == '/' || member.name.back() == '\\')
        return;
    if (!isInnerName(member.name)) {
        noteLeftOut(pack, member.name);
        return;
    }
    String key = toFileKey(member.name);
    String spelling = key == member.name ? String() : member.name;
    m_index.insert_or_assign(std::move(key), sFileLocation{pack, in_root, std::move(spelling), member.place});
}

/// The common directory lies below the writable base, under the name that the data give.
void cFileManager::readAppDirectory(const String& writable_base) {
    ENGINE_MARK;
    String name;
    const cXML constants("sys/constants.xml");
    iXML* game = nullptr;
    if (constants.get("game", game)) {
        name = toNarrow((*game)[u"app_directory"]);
        if (name.empty())
            name = toNarrow((*game)[u"window_title"]);
    }
    if (name.empty())
        throw "app_directory not defined.";
    std::replace(name.begin(), name.end(), '\\', '/');
    while (name.ends_with('/'))
        name.pop_back();
    if (!isInnerName(name))
        throw String("sys/constants.xml: the app_directory '" + name + "' leads out of the writable directory.");
    m_common_directory = toDirectory(toDirectory(writable_base) + name);
}

const String& cFileManager::getRootDirectory() const {
    return m_root_directory;
}

const String& cFileManager::getCommonDirectory() const {
    return m_common_directory;
}

/// Where the loose common file of this key lies, or would lie.
String cFileManager::getCommonPath(const String& key) const {
    const auto found = m_index.find(key);
    const Bool has_spelling =
        found != m_index.end() && found->second.location == common_tag && !found->second.spelling.empty();
    return m_common_directory + (has_spelling ? found->second.spelling : key);
}

std::shared_ptr<cPack> cFileManager::getPack(const sFileLocation& location) {
    std::shared_ptr<cPack>& pack = m_open_packs[location.in_root ? 1 : 0][location.location];
    if (!pack)
        pack = std::make_shared<cPack>((location.in_root ? m_root_directory : m_common_directory) + location.location);
    return pack;
}

std::unique_ptr<iFile> cFileManager::open(const String& name) {
    ENGINE_MARK;
    const auto found = m_index.find(cFileKey(name).view());
    if (found == m_index.end())
        throw String("File \"" + name + "\" not found.");
    const auto& [key, location] = *found;
    const String& spelling = location.spelling.empty() ? key : location.spelling;
    if (!location.location.empty() && location.location != common_tag)
        return std::make_unique<cZipFile>(getPack(location), location.place, spelling);
    const String& directory = location.location.empty() ? m_root_directory : m_common_directory;
    return std::make_unique<cRealFile>(directory + spelling, cRealFile::access_read,
                                       cRealFile::eCreating::open_existing);
}

std::unique_ptr<iFile> cFileManager::create(const WString& name) {
    return create(toNarrow(name), true);
}

std::unique_ptr<iFile> cFileManager::create(const String& name, Bool overwrite) {
    ENGINE_MARK;
    const String key = toFileKey(name);
    const String path = getCommonPath(key);
    const String text = "File \"" + name + "\" can't be creating. ";
    if (!isInnerName(key))
        throw String(text + "The name leads out of the writable directory.");
    createDirectories(path);
    const auto enter = [key, spelling = path.substr(m_common_directory.size())] {
        if (cFileManager* files = getInstance())
            files->enterCommonFile(key, spelling);
        forgetResource(key);
    };
    try {
        return std::make_unique<cAtomicFile>(path, overwrite, enter);
    } catch (const std::string& reason) {
        throw String(text + reason);
    }
}

/// From now on the name means the loose common file; what it meant before is kept for its deletion.
void cFileManager::enterCommonFile(const String& key, const String& spelling) {
    sFileLocation common{common_tag, false, spelling == key ? String() : spelling, {}};
    const auto [entry, is_new] = m_index.try_emplace(key, common);
    if (is_new)
        return;
    if (entry->second.location != common_tag)
        m_base_index.insert_or_assign(key, entry->second);
    entry->second = std::move(common);
}

void cFileManager::deleteFile(const String& name) {
    ENGINE_MARK;
    const String key = toFileKey(name);
    if (isInnerName(key) && ::unlink(getCommonPath(key).c_str()) == 0)
        leaveCommonFile(key);
}

Bool cFileManager::setDamagedAside(const String& name) {
    ENGINE_MARK;
    const String key = toFileKey(name);
    if (!isCommonExist(key))
        return false;
    const String aside = String(key + ".damaged");
    const String path = getCommonPath(aside);
    if (::rename(getCommonPath(key).c_str(), path.c_str()) != 0)
        throw lastErrorText();
    leaveCommonFile(key);
    enterCommonFile(aside, path.substr(m_common_directory.size()));
    return true;
}

/// The name means again what it meant before there was a loose common file.
void cFileManager::leaveCommonFile(const String& key) {
    const auto found = m_index.find(key);
    if (found == m_index.end() || found->second.location != common_tag)
        return;
    if (const auto base = m_base_index.extract(key))
        found->second = base.mapped();
    else
        m_index.erase(found);
}

Bool cFileManager::isExist(const String& path) const {
    return m_index.find(cFileKey(path).view()) != m_index.end();
}

Bool cFileManager::isCommonExist(const String& name) const {
    const auto found = m_index.find(cFileKey(name).view());
    return found != m_index.end() && found->second.location == common_tag;
}

void cFileManager::getIndexedFilenames(const String& prefix, FILE_NAME_LIST& res, Bool deep) const {
    ENGINE_MARK;
    const cFileKey key(prefix);
    for (auto entry = m_index.lower_bound(key.view()); entry != m_index.end(); ++entry) {
        if (!entry->first.starts_with(key.view()) || (!deep && entry->first.size() != key.view().size()))
            break;
        res.push_back(entry->first);
    }
}

void cFileManager::getFilesNames(const String& dir, FILE_NAME_LIST& res) const {
    ENGINE_MARK;
    const String prefix = dir.empty() ? String() : toFileKey(toDirectory(dir));
    FILE_NAME_LIST names;
    getIndexedFilenames(prefix, names, true);
    for (const String& name : names) {
        const Bool is_right_here = name.find('/', prefix.size()) == String::npos;
        if (is_right_here && isCommonExist(name) && getFileExt(name) != m_package_extention)
            res.push_back(getFileName(name));
    }
}

void cFileManager::getFileList(const String& path, FILE_NAME_LIST& res, Bool recursive) const {
    ENGINE_MARK;
    const String directory = toDirectory(path);
    walkDirectory(directory, recursive, [&](const String& name) { res.push_back(directory + name); });
}

namespace {

/// The target changes whole or not at all, and the source goes only once it has.
void moveToOtherDisk(const String& from, const String& path, const String& failure) {
    try {
        cRealFile source(from, cRealFile::access_read, cRealFile::eCreating::open_existing);
        cAtomicFile target(path, true, {});
        copyBytes(from, source, target);
        target.close();
    } catch (const std::string& reason) {
        throw String(failure + reason);
    }
    ::unlink(from.c_str());
}

}  // namespace

void cFileManager::moveFile(const String& from, const String& to) {
    ENGINE_MARK;
    const String key = toFileKey(to);
    const String path = getCommonPath(key);
    const String text = "File \"" + from + "\" can't be moved into \"" + to + "\" ";
    if (!isInnerName(key))
        throw String(text + "The name leads out of the writable directory.");
    createDirectories(path);
    if (::rename(from.c_str(), path.c_str()) != 0) {
        if (errno != EXDEV)
            throw String(text + lastErrorText());
        moveToOtherDisk(from, path, text);
    }
    enterCommonFile(key, path.substr(m_common_directory.size()));
    forgetResource(key);
}

}  // namespace Engine
