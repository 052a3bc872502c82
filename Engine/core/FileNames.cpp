#include "Engine/core/FileNames.h"

#include <sys/stat.h>

#include <algorithm>

namespace Engine {

namespace {

char toKeyLetter(char c) {
    if (c >= 'A' && c <= 'Z')
        return static_cast<char>(c - 'A' + 'a');
    return c == '\\' ? '/' : c;
}

}  // namespace

const String& getFileExt(std::string_view file) {
    static String ext;
    const std::size_t dot = file.rfind('.');
    ext = dot == std::string_view::npos ? String() : toLower(file.substr(dot + 1));
    return ext;
}

const String& getFileName(std::string_view file) {
    static String name;
    name = toLower(file.substr(file.rfind('/') + 1));  // npos + 1 is the start
    return name;
}

void createDirectories(const String& path) {
    for (std::size_t end = path.find('/', 1); end != String::npos; end = path.find('/', end + 1))
        ::mkdir(path.substr(0, end).c_str(), 0777);
}

void createDirectories(const WString& path) {
    createDirectories(toNarrow(path));
}

Bool isInnerName(std::string_view name) {
    if (name.empty() || name.find('\0') != std::string_view::npos || name.find(':') != std::string_view::npos)
        return false;
    while (true) {
        const std::size_t end = std::min(name.find_first_of("/\\"), name.size());
        const std::string_view part = name.substr(0, end);
        if (part.empty() || part == "." || part == "..")
            return false;
        if (end == name.size())
            return true;
        name.remove_prefix(end + 1);
    }
}

cFileKey::cFileKey(std::string_view name) {
    if (name.size() > sizeof(m_small)) {
        m_large = toFileKey(name);
        m_view = m_large;
        return;
    }
    std::transform(name.begin(), name.end(), m_small, toKeyLetter);
    m_view = std::string_view(m_small, name.size());
}

}  // namespace Engine
