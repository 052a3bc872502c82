#include "Engine/core/DirectoryWalk.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <deque>
#include <filesystem>
#include <memory>
#include <vector>

#include "Engine/core/CallStack.h"

namespace Engine {

namespace {

constexpr std::size_t max_entries = 1'000'000;

enum class eEntry { file, directory, other };

/// What tells two directories apart, whatever path leads to them.
struct sDirectoryId {
    dev_t device = 0;
    ino_t node = 0;

    friend Bool operator==(const sDirectoryId&, const sDirectoryId&) = default;
};

/// One directory of the walk and those that hold it.
struct sDirectory {
    String name;  ///< relative, with a trailing "/"; empty for the start
    sDirectoryId id;
    std::shared_ptr<const sDirectory> parent;
};
using DIRECTORY = std::shared_ptr<const sDirectory>;

struct sEntry {
    String name;
    unsigned char type = DT_UNKNOWN;
};

struct sCloseDirectory {
    void operator()(DIR* directory) const { ::closedir(directory); }
};

/// The entries of one directory in the order of their bytes, hidden ones left out.
std::vector<sEntry> readEntries(const String& path) {
    std::vector<sEntry> entries;
    const std::unique_ptr<DIR, sCloseDirectory> directory(::opendir(path.c_str()));
    if (!directory)
        return entries;
    while (const dirent* entry = ::readdir(directory.get())) {
        if (entry->d_name[0] != '.')
            entries.push_back({String(entry->d_name), entry->d_type});
    }
    std::sort(entries.begin(), entries.end(), [](const sEntry& a, const sEntry& b) { return a.name < b.name; });
    return entries;
}

/// What the entry is, links followed; id is filled for a directory.
eEntry classify(const String& path, unsigned char type, sDirectoryId& id) {
    if (type == DT_REG)
        return eEntry::file;
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0)
        return eEntry::other;
    id = {info.st_dev, info.st_ino};
    return S_ISDIR(info.st_mode) ? eEntry::directory : S_ISREG(info.st_mode) ? eEntry::file : eEntry::other;
}

Bool isInside(const sDirectory* directory, const sDirectoryId& id) {
    for (; directory; directory = directory->parent.get()) {
        if (directory->id == id)
            return true;
    }
    return false;
}

/// The start of the walk with the real directories above it, so that a link to any of them is known as a loop.
DIRECTORY makeStart(const String& path) {
    std::error_code error;
    DIRECTORY result;
    std::filesystem::path above;
    for (const std::filesystem::path& part : std::filesystem::canonical(path.c_str(), error)) {
        above /= part;
        sDirectoryId id;
        classify(String(above.string()), DT_DIR, id);
        result = std::make_shared<sDirectory>(sDirectory{String(), id, result});
    }
    return result;
}

}  // namespace

void walkDirectory(const String& path, Bool recursive, const std::function<void(const String&)>& found) {
    ENGINE_MARK;
    std::size_t count = 0;
    std::deque<DIRECTORY> waiting;
    if (DIRECTORY start = makeStart(path))
        waiting.push_back(start);
    for (; !waiting.empty(); waiting.pop_front()) {
        const DIRECTORY current = waiting.front();
        for (const sEntry& entry : readEntries(path + current->name)) {
            if (++count > max_entries)
                throw String("Directory '" + path + "' holds more than " + std::to_string(max_entries) + " entries.");
            const String name = current->name + entry.name;
            sDirectoryId id;
            const eEntry kind = classify(path + name, entry.type, id);
            if (kind == eEntry::file)
                found(name);
            else if (kind == eEntry::directory && recursive && !isInside(current.get(), id))
                waiting.push_back(std::make_shared<sDirectory>(sDirectory{name + "/", id, current}));
        }
    }
}

}  // namespace Engine
