#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>
#include <map>

#include "Engine/Ui/Font.h"
#include "Engine/core/DirectoryWalk.h"
#include "Engine/core/FileManager.h"
#include "Engine/core/FileNames.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/ZipFile.h"
#include "Engine/graphics/Animation.h"
#include "Engine/graphics/iMesh.h"
#include "Engine/graphics/image/Image.h"
#include "Engine/platform/sdl/SoundFile.h"
#include "Game/GameUI/Tactic/LevelFile.h"
#include "Tools/datatool/AskedNames.h"
#include "Tools/datatool/Commands.h"
#include "Tools/datatool/FileBytes.h"
#include "Tools/datatool/KnownKeys.h"
#include "Tools/datatool/LevelCheck.h"

namespace Datatool {

using namespace Engine;

namespace {

const char* const constants_file = "sys/constants.xml";
const char* const start_files[] = {constants_file, "sys/settings.xml"};

Bool isStartFile(const String& name) {
    return std::ranges::find(start_files, name) != std::end(start_files);
}

/// A failure's text, without the file's name where it begins with that.
String toReason(const String& file, std::string_view text) {
    if (text.starts_with(file) && text.substr(file.size()).starts_with(": "))
        text.remove_prefix(file.size() + 2);
    return String(text);
}

/// A directory that is gone again with everything in it.
class cTemporaryDirectory {
public:
    cTemporaryDirectory() {
        std::string path = std::filesystem::temp_directory_path() / "datatool-XXXXXX";
        if (!::mkdtemp(path.data()))
            throw String("no temporary directory can be made in ") + path;
        m_path = path + "/";
    }
    ~cTemporaryDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(std::string(m_path), ignored);
    }
    cTemporaryDirectory(const cTemporaryDirectory&) = delete;
    cTemporaryDirectory& operator=(const cTemporaryDirectory&) = delete;

    const String& getPath() const { return m_path; }

private:
    String m_path;  ///< with a trailing "/"
};

/// Looks at every file of a data directory, loose or packed, and prints what is wrong.
class cChecker {
public:
    explicit cChecker(const String& directory) : m_directory(directory) {}

    /// False if anything was found.
    bool run() {
        walkDirectory(m_directory, true, [this](const String& name) { checkLoose(name); });
        checkNeeded();
        checkGame();
        for (const sNaming& naming : m_named) {
            if (!m_files.contains(toFileKey(naming.path)))
                find(naming.document, "tag \"" + naming.tag + "\" names \"" + naming.path + "\", which is no file");
        }
        return m_is_clean;
    }

private:
    using OPENER = std::function<std::unique_ptr<iFile>()>;

    void find(const String& file, const String& what) {
        std::cout << toLine(file + ": " + what) << '\n';
        m_is_clean = false;
    }

    /// Runs a step; its failure is a finding about the file.
    void attempt(const String& file, const std::function<void()>& step) {
        try {
            step();
        } catch (const std::string& text) {
            find(file, toReason(file, text));
        } catch (const char* text) {
            find(file, text);
        } catch (const std::exception& error) {
            find(file, error.what());
        }
    }

    void checkLoose(const String& name) {
        if (getFileExt(name) == "pack") {
            if (name.find('/') == String::npos)
                attempt(name, [&] { checkPack(name); });
            else
                find(name, "a pack is read only at the top of the data directory");
            return;
        }
        const auto [entry, is_new] = m_loose.emplace(toFileKey(name), name);
        if (!is_new)
            find(name, "the same name as \"" + entry->second + "\" but for letter case");
        m_files.insert(toFileKey(name));
        checkFile(name, name, [&] { return openFile(m_directory + name); });
    }

    void checkPack(const String& name) {
        const String path = m_directory + name;
        const auto pack = std::make_shared<cPack>(path);
        std::set<String> keys;
        cZipFile::ZIP_FIND find_handle = cZipFile::findOpen(path);
        cZipFile::sMember member;
        for (Bool more = cZipFile::findFirstFile(find_handle, member); more;
             more = cZipFile::findNextFile(find_handle, member)) {
            if (member.name.empty() || member.name.back() == '/' || member.name.back() == '\\')
                continue;
            const String label = name + "/" + member.name;
            if (!isInnerName(member.name))
                find(label, "the name leads out of the data directory; the game leaves this member out");
            else if (!keys.insert(toFileKey(member.name)).second)
                find(label, "the name is in the pack twice, letter case aside");
            m_files.insert(toFileKey(member.name));
            checkFile(label, member.name, [&] { return std::make_unique<cZipFile>(pack, member.place, member.name); });
        }
        cZipFile::findClose(find_handle);
    }

    /// @param label  the file in findings; a member's begins with its pack
    void checkFile(const String& label, const String& name, const OPENER& open) {
        attempt(label, [&] {
            const std::unique_ptr<iFile> file = open();
            const eResourceType type = toResourceType(name);
            if (type == eResourceType::xml)
                checkDocument(label, name, *readXML(label, *file));
            else if (type == eResourceType::texture)
                checkImage(name, *file);
            else if (type == eResourceType::mesh)
                checkMesh(label, *file);
            else if (type == eResourceType::animation)
                checkAnimation(label, *file);
            else if (type == eResourceType::font)
                checkFont(label, *file);
            else if (type == eResourceType::sound)
                checkSound(*file);
            else
                readThrough(*file);
        });
    }

    void checkFont(const String& label, iFile& file) {
        const BYTES bytes = readAll(file);
        cFont(label, std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
    }

    /// Decodes all of it, as the game does.
    void checkSound(iFile& file) {
        Platform::sPcm pcm;
        if (!Platform::readSoundFile(file, pcm))
            throw String("no sound that the game can play");
    }

    void checkImage(const String& name, iFile& file) {
        const BYTES bytes = readAll(file);
        decodeImage(bytes.data(), bytes.size(), name);
    }

    void checkMesh(const String& label, iFile& file) {
        const BYTES bytes = readAll(file);
        iMesh::create(label, reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    }

    void checkAnimation(const String& label, iFile& file) {
        const BYTES bytes = readAll(file);
        cAnimation(label, reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    }

    /// A member whose bytes are damaged says so while it is read.
    void readThrough(iFile& file) {
        std::array<char, 64 * 1024> part;
        while (file.read(part.data(), static_cast<ULong>(part.size())) > 0) {
        }
    }

    void checkDocument(const String& label, const String& name, const cXML& document) {
        if (toFileKey(name) == constants_file)
            checkConstants(label, document);
        collectNames(label, "", document);
        findUnknownKeys(name, document, [&](const String& what) { find(label, what); });
    }

    /// What the code asks for by name, and levels, with the classes that play them. Their files lie where the game
    /// finds them: behind its own file manager.
    void checkGame() {
        if (!m_files.contains(toFileKey(cLevelFile::path)))
            return find(cLevelFile::path, "is missing; without it there is no level");
        for (const String& name : getNeededDocuments()) {
            if (!m_files.contains(toFileKey(name)) && !isStartFile(name))
                find(name, "is missing; the game reads it");
        }
        const cTemporaryDirectory home;
        attempt(cLevelFile::path, [&] {
            const cFileManager files(m_directory, "pack", home.getPath());
            const cResourceManager resources;
            checkAskedNames([this](const String& file, const String& what) { find(file, what); });
            checkLevels([this](const String& what) { findAboutLevels(what); });
        });
    }

    /// A failure of the game's own readers names the file itself.
    void findAboutLevels(const String& what) {
        const String file = cLevelFile::path;
        find(file, what.starts_with(file + ", ") ? String(what.substr(file.size() + 2)) : toReason(file, what));
    }

    /// Every attribute that ends like a file which the game can load is taken for the name of one.
    void collectNames(const String& label, const String& tag, const iXML& xml) {
        for (UInt i = 0; i < xml.getAttributeCount(); ++i) {
            const String value = toNarrow(WString(xml.getAttribute(i).value));
            if (value.size() <= max_path && toResourceType(value) != eResourceType::none)
                m_named.push_back({value, label, tag});
        }
        for (UInt i = 0; i < xml.getTagCount(); ++i) {
            iXML* child = nullptr;
            String name;
            xml.get(i, child, &name);
            collectNames(label, name, *child);
        }
    }

    /// Without these the game does not even start.
    void checkNeeded() {
        for (const char* name : start_files) {
            if (!m_files.contains(name))
                find(name, "is missing; the game needs it to start");
        }
    }

    /// The player's own directory is named after one of two attributes.
    void checkConstants(const String& label, const cXML& document) {
        iXML* game = nullptr;
        if (!document.get("game", game) || ((*game)[u"app_directory"].empty() && (*game)[u"window_title"].empty()))
            find(label, "tag \"game\" has no \"app_directory\"; the game needs it to start");
    }

    /// Where a document names a file.
    struct sNaming {
        String path;
        String document;
        String tag;  ///< empty for the root
    };

    static constexpr std::size_t max_path = 260;  ///< bytes; a longer text is no name

    String m_directory;                ///< with a trailing "/"
    std::map<String, String> m_loose;  ///< loose files by key
    std::set<String> m_files;          ///< keys of all files
    std::vector<sNaming> m_named;
    bool m_is_clean = true;
};

}  // namespace

bool check(const String& directory) {
    if (!std::filesystem::is_directory(std::string(directory)))
        throw String(directory + ": no such directory");
    return cChecker(directory.ends_with('/') ? directory : String(directory + "/")).run();
}

}  // namespace Datatool
