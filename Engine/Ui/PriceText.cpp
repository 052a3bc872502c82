#include "Engine/Ui/PriceText.h"

#include "Engine/Ui/Letter.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"

namespace Engine {

void cPriceText::loadXML(const iXML* xml) {
    ENGINE_MARK;
    readKey(*xml, u"DegreeOffset", m_degree_offset);
    cTextLine::loadXML(xml);
}

// The tens and hundreds of each group of three move to the right, away from the thousands before them.
void cPriceText::makeLetters() {
    if (!needsRebuild())
        return;
    cTextLine::makeLetters();
    if (needsRebuild())  // there is no font yet
        return;
    const auto letters = getLetters();
    if (letters.size() <= 3)
        return;
    UInt digit = 0;  // from the last one
    for (auto letter = letters.rbegin(); letter != letters.rend(); ++letter) {
        const char16_t character = (*letter)->getCharacter();
        if (character < u'0' || character > u'9') {
            digit = 0;
            continue;
        }
        const Vector2& position = (*letter)->getPosition();
        (*letter)->setPosition({position.x + static_cast<Float>(digit % 3) * m_degree_offset / 3.0f, position.y});
        ++digit;
    }
}

}  // namespace Engine
