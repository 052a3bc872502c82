#include "Engine/Ui/ProfileName.h"

namespace Engine {

WString trimName(const WString& text) {
    constexpr char16_t blanks[] = u" \u00A0";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == WString::npos)
        return {};
    return WString(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

}  // namespace Engine
