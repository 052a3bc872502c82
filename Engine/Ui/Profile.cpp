#include "Engine/Ui/Profile.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <memory>

#include "Engine/core/CallStack.h"
#include "Engine/core/Constants.h"
#include "Engine/core/FileManager.h"
#include "Engine/core/FileText.h"
#include "Engine/core/Log.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/ResourceRef.h"

namespace Engine {

namespace {

constexpr char list_name[] = "profiles.xml";
constexpr UInt max_id = 3'999'999'999;  // leaves room for players to come above any number in a file

cProfile::INIT_HOOK init_hook = nullptr;

/// Never ended by the program's exit(), which a lost display may call in the middle of a frame.
std::unique_ptr<cProfile>& opened() {
    static auto* profile = new std::unique_ptr<cProfile>;
    return *profile;
}

String getListPath() {
    return String(cProfile::getProfilesDir() + list_name);
}

/// The log "profiles" tells what has just gone wrong, and the game goes on. In a catch clause.
void noteFailure() {
    const String reason = String(currentFailure());
    callStackText().clear();
    try {
        cLogManager::getInstance()->getLog("profiles", true)->printf("%s", reason.c_str());
    } catch (...) {  // the disk takes nothing at all
        callStackText().clear();
    }
}

/// A document in the players' directory; null if there is none, or none that can be read. What can't be read has then
/// been put aside.
cResourceRef readDocument(const String& path) {
    if (!cFileManager::getInstance()->isExist(path))
        return {};
    try {
        return cResourceRef::adopt(cResourceManager::getInstance()->getXML(path));
    } catch (...) {
        if (cFileManager::getInstance()->isExist(path))
            throw;  // it is still there, and would be written over
        noteFailure();
        return {};
    }
}

/// The document is read again the next time, whatever has become of its file.
void forget(const String& path) {
    cResourceManager::getInstance()->releaseResource(path);
}

Bool isReadable(char16_t unit) {
    return unit >= 32 && unit != 0xFFFE && unit != 0xFFFF;
}

WString cleanName(const WString& name) {
    const WString checked = toWide(toNarrow(name));  // halves of pairs become U+FFFD
    WString res;
    std::copy_if(checked.begin(), checked.end(), std::back_inserter(res), isReadable);
    return res;
}

template <class T>
T readAttribute(const iXML& xml, const char16_t* name, T value) {
    parseText(xml[name], value);
    return value;
}

String toIdText(UInt id) {
    char text[16];
    std::snprintf(text, sizeof(text), "%08u", id);
    return text;
}

}  // namespace

cProfile::cProfile(const WString& name) : m_current_user(cleanName(name)) {
    ENGINE_MARK;
    resetProps();
    load();
}

cProfile::~cProfile() {
    if (!cFileManager::getInstance() || !cConstants::getInstance())
        return;  // the engine is gone already
    try {
        saveAllProps();
        saveHeaders();
    } catch (...) {
        noteFailure();
    }
}

void cProfile::open(const WString& name) {
    close();
    opened() = std::make_unique<cProfile>(name);
}

void cProfile::close() {
    opened().reset();
}

void cProfile::setInitHook(INIT_HOOK hook) {
    init_hook = hook;
}

String cProfile::getProfilesDir() {
    String directory;
    cConstants::getInstance()->getProperty("game", "profiles", directory);
    if (!directory.empty() && directory.back() != '/')
        directory += '/';
    return directory;
}

WString cProfile::getCurrentUser() {
    ENGINE_MARK;
    const cResourceRef document = readDocument(getListPath());
    if (!document)
        return {};
    forget(getListPath());
    return (*static_cast<iXML*>(document.get()))[u"CurrentUser"];
}

// Reading ----------------------------------------------------------------------------------------------------------

void cProfile::load() {
    const WString wanted = m_current_user;
    if (const cResourceRef document = readDocument(getListPath())) {
        loadHeaders(*static_cast<iXML*>(document.get()));
        forget(getListPath());
    }
    if (m_current_user != wanted) {
        m_current_user = wanted;
        m_headers_dirty = true;
    }
    if (hasName(m_current_user))
        loadProps();
    else
        createProfile();
    saveHeaders();
}

void cProfile::loadHeaders(const iXML& list) {
    m_next_id = readAttribute<UInt>(list, u"NextID", 1);
    if (m_next_id == 0 || m_next_id > max_id)
        m_next_id = 1;  // those in use are skipped anyway
    m_current_user = list[u"CurrentUser"];
    m_now_playing = readAttribute<Bool>(list, u"NowPlaying", false);
    for (UInt i = 0; i < list.getTagCount(); ++i) {
        iXML* player = nullptr;
        list.get(i, player);
        const WString name = (*player)[u"Name"];
        const UInt id = readAttribute<UInt>(*player, u"ID", 0);
        if (!name.empty() && id > 0 && !isTaken(id))
            m_users.emplace(name, id);
    }
}

Bool cProfile::isTaken(UInt id) const {
    return std::any_of(m_users.begin(), m_users.end(), [id](const auto& user) { return user.second == id; });
}

void cProfile::resetProps() {
    Properties::clear();
    if (init_hook)
        init_hook();
    m_saved_props.clear();
}

void cProfile::loadProps() {
    ENGINE_MARK;
    const cResourceRef document = readDocument(getPropsPath());
    if (!document)
        return;
    const iXML& props = *static_cast<iXML*>(document.get());
    for (UInt i = 0; i < props.getTagCount(); ++i) {
        iXML* prop = nullptr;
        props.get(i, prop);
        setProperty(toNarrow((*prop)[u"Type"]), toNarrow((*prop)[u"Name"]), (*prop)[u"Val"]);
    }
    forget(getPropsPath());
    m_saved_props = Properties::format();
}

String cProfile::getProfileID() const {
    const auto user = m_users.find(m_current_user);
    if (user == m_users.end())
        throw "ProfileID error.";
    return toIdText(user->second);
}

String cProfile::getPropsPath() const {
    return String(getProfilesDir() + getProfileID() + ".xml");
}

void cProfile::getNames(NAME_LIST& names) const {
    for (const auto& [name, id] : m_users)
        names.push_back(name);
}

// Players come and go ----------------------------------------------------------------------------------------------

void cProfile::createProfile() {
    ENGINE_MARK;
    skipUsedNumbers();
    m_users[m_current_user] = m_next_id++;
    resetProps();
    m_headers_dirty = true;
}

/// A list that was lost has left the files of its players behind.
void cProfile::skipUsedNumbers() {
    FILE_NAME_LIST names;
    cFileManager::getInstance()->getFilesNames(getProfilesDir(), names);
    for (const String& name : names) {
        UInt id = 0;
        const char* end = name.data() + name.size();
        const auto [rest, error] = std::from_chars(name.data(), end, id);
        if (error == std::errc() && rest != end && *rest == '.' && id < max_id)
            m_next_id = std::max(m_next_id, id + 1);
    }
    for (const auto& [name, id] : m_users) {
        if (id < max_id)
            m_next_id = std::max(m_next_id, id + 1);
    }
    while (m_next_id == 0 || isTaken(m_next_id))
        ++m_next_id;
}

void cProfile::deleteProfile(const WString& name) {
    ENGINE_MARK;
    const auto user = m_users.find(name);
    if (user == m_users.end())
        return;
    if (name != m_current_user)
        saveAllProps();
    const String id = toIdText(user->second);
    m_users.erase(user);
    m_current_user = m_users.empty() ? WString() : m_users.begin()->first;
    m_headers_dirty = true;
    saveHeaders();

    FILE_NAME_LIST files;
    cFileManager::getInstance()->getFilesNames(getProfilesDir(), files);
    for (const String& file : files) {
        if (!file.starts_with(id + "."))
            continue;
        forget(getProfilesDir() + file);
        cFileManager::getInstance()->deleteFile(getProfilesDir() + file);
    }
    resetProps();
    if (!m_users.empty())
        loadProps();
}

// Writing ----------------------------------------------------------------------------------------------------------

void cProfile::saveHeaders() {
    ENGINE_MARK;
    if (!m_headers_dirty)
        return;
    m_headers_dirty = false;
    const String path = getListPath();
    forget(path);
    if (m_users.empty()) {
        cFileManager::getInstance()->deleteFile(path);
        return;
    }
    WString text = u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<Profiles NextID=\"";
    text.append(formatText(m_next_id)).append(u"\" CurrentUser=\"").append(xmlEscape(m_current_user));
    text.append(u"\" NowPlaying=\"").append(formatText(m_now_playing)).append(u"\" >\n");
    for (const auto& [name, id] : m_users) {
        text.append(u"<Profile Name=\"").append(xmlEscape(name));
        text.append(u"\" ID=\"").append(formatText(id)).append(u"\" />\n");
    }
    text += u"</Profiles>";
    writeWStringAsXml(path, text);
}

void cProfile::saveAllProps() {
    ENGINE_MARK;
    if (m_users.empty())
        return;
    WString text = Properties::format();
    if (text == m_saved_props)
        return;
    writeWStringAsXml(getPropsPath(), text);
    m_saved_props = std::move(text);
}

}  // namespace Engine
