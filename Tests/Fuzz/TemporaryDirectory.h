#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

/// What targets that write files share.
namespace Fuzz {

inline void require(bool holds) {
    if (!holds)
        std::abort();
}

/// A directory for the whole run, gone with it.
class cTemporary {
public:
    cTemporary() : m_path((std::filesystem::temp_directory_path() / "brindle_fuzz_XXXXXX").string()) {
        require(::mkdtemp(m_path.data()) != nullptr);
    }
    ~cTemporary() { std::filesystem::remove_all(m_path); }
    cTemporary(const cTemporary&) = delete;
    cTemporary& operator=(const cTemporary&) = delete;

    const std::string& getPath() const { return m_path; }

private:
    std::string m_path;
};

}  // namespace Fuzz
