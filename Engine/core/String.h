#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace Engine {

/// Narrow text in UTF-8: file names, keys, and the text of every failure (the form in which failures are thrown).
class String : public std::string {
public:
    using std::string::string;
    String() = default;
    String(std::string text) : std::string(std::move(text)) {}
    explicit String(std::string_view text) : std::string(text) {}
};

/// Wide text in 16-bit units (UTF-16): everything that the player sees and every value in an XML document.
class WString : public std::u16string {
public:
    using std::u16string::u16string;
    WString() = default;
    WString(std::u16string text) : std::u16string(std::move(text)) {}
    explicit WString(std::u16string_view text) : std::u16string(text) {}
};

/// UTF-16 to UTF-8. An unpaired surrogate becomes U+FFFD.
String toNarrow(std::u16string_view text);

/// UTF-8 to UTF-16. Each byte that is no part of a well-formed character becomes U+FFFD.
WString toWide(std::string_view text);

/// ASCII letters to lower case, all else unchanged: the one rule by which file names are compared.
String toLower(std::string_view text);

/// A file name as the file tree keeps it: lower case, every "\\" turned into "/".
String toFileKey(std::string_view name);

}  // namespace Engine
