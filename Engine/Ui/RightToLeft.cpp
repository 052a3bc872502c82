#include "Engine/Ui/RightToLeft.h"

#include <algorithm>

namespace Engine {

namespace {

Bool keepsOrder(char16_t c) {
    return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

}  // namespace

WString rotateString(const WString& text) {
    WString res(text.rbegin(), text.rend());
    for (auto run = res.begin(); run != res.end();) {
        run = std::find_if(run, res.end(), keepsOrder);
        const auto end = std::find_if_not(run, res.end(), keepsOrder);
        std::reverse(run, end);
        run = end;
    }
    return res;
}

}  // namespace Engine
