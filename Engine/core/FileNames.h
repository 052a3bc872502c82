#pragma once

#include <string_view>

#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine {

/// Text behind the last ".", lower case; empty if there is no ".". The result lives until the next call.
const String& getFileExt(std::string_view file);

/// Text behind the last "/", lower case. The result lives until the next call.
const String& getFileName(std::string_view file);

/// Makes every directory named in the path up to its last "/". What can't be made is left to fail where it is used.
void createDirectories(const String& path);
void createDirectories(const WString& path);

/// True if the name stays inside the tree it is looked up in: not empty, no leading "/" or "\\", no drive, no NUL, and
/// no "." or ".." or empty part between separators.
Bool isInnerName(std::string_view name);

/// A file name as the index keeps it (toFileKey), made without an allocation for names of ordinary length.
class cFileKey {
public:
    explicit cFileKey(std::string_view name);
    cFileKey(const cFileKey&) = delete;
    cFileKey& operator=(const cFileKey&) = delete;

    std::string_view view() const { return m_view; }

private:
    char m_small[256];
    String m_large;  ///< used only for names that don't fit
    std::string_view m_view;
};

}  // namespace Engine
