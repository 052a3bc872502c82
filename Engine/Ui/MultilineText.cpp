#include "Engine/Ui/MultilineText.h"

#include <algorithm>
#include <string_view>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/Ui/TextLine.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/StringManager.h"

namespace Engine {

namespace {

constexpr std::u16string_view blanks = u" \u00A0";

enum eVerticalAlign : UInt { alignMiddle = 0, alignTop = 1, alignBottom = 2 };

std::u16string_view strip(std::u16string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::u16string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace

cMultilineText::cMultilineText(cView* parent) : cControl(parent), m_prototype(new cTextLine(this)) {
}

cMultilineText::cMultilineText(const cMultilineText& other)
    : cControl(other),
      m_prototype(new cTextLine(*other.m_prototype)),
      m_text(other.m_text),
      m_interlinear(other.m_interlinear),
      m_localized(other.m_localized),
      m_vertical_align(other.m_vertical_align),
      m_wrap_text(other.m_wrap_text),
      m_wrap_style(other.m_wrap_style) {
    m_prototype->setParent(this);
}

void cMultilineText::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cControl::loadXML(xml);
    readKey(*xml, u"String", m_text);
    readKey(*xml, u"Interlinear", m_interlinear);
    readKey(*xml, u"Localized", m_localized);
    readKey(*xml, u"VerticalAlign", m_vertical_align);
    readKey(*xml, u"WrapText", m_wrap_text);
    readKey(*xml, u"WrapStyle", m_wrap_style);
    loadChild(*m_prototype, xml, "Text");
    m_prototype->setLocalized(false);  // the text is translated as a whole
    m_prototype->hide();
    m_need_rebuild = true;
    if (isShown())
        makeLines();
}

void cMultilineText::process() {
    cControl::process();
    makeLines();
}

// The block itself has no picture, so it has no place among the controls that are drawn.

void cMultilineText::showed() {
    makeLines();
    cView::showed();  // NOLINT(bugprone-parent-virtual-call)
}

void cMultilineText::hid() {
    cView::hid();  // NOLINT(bugprone-parent-virtual-call)
}

void cMultilineText::setText(const WString& text) {
    if (text == m_text)
        return;
    m_text = text;
    m_need_rebuild = true;
}

void cMultilineText::setSize(const Vector2& size) {
    m_need_rebuild |= size != getSize();
    cControl::setSize(size);
}

void cMultilineText::setColor(const DXColor& color) {
    cControl::setColor(color);
    m_prototype->setColor(color);
    for (cTextLine* line : m_lines)
        line->setColor(color);
}

void cMultilineText::setAlpha(const Float& alpha) {
    cControl::setAlpha(alpha);
    m_prototype->setAlpha(alpha);
    for (cTextLine* line : m_lines)
        line->setAlpha(alpha);
}

// The lines --------------------------------------------------------------------------------------------------------

void cMultilineText::makeLines() {
    if (!m_need_rebuild)
        return;
    ENGINE_MARK;
    m_need_rebuild = false;
    for (cTextLine* line : m_lines)
        discard(line, here());
    m_lines.clear();

    const cStringManager* strings = cStringManager::getInstance();
    const WString text = m_localized && strings ? strings->getString(m_text) : m_text;
    std::u16string_view rest = text;
    for (Bool more = !rest.empty(); more;) {
        const std::size_t end = rest.find(u'\n');
        more = end != std::u16string_view::npos;
        addPiece(rest.substr(0, end));
        rest = more ? rest.substr(end + 1) : std::u16string_view();
    }
    alignLines();
}

void cMultilineText::newLine(std::u16string_view text) {
    auto* line = new cTextLine(*m_prototype);
    const Float half = getSize().x * 0.5f;
    const UInt align = line->getAlign();
    const Float shift = align == cTextLine::alignLeft ? -half : align == cTextLine::alignRight ? half : 0.0f;
    line->setPosition(getPosition() + Vector2(shift, static_cast<Float>(m_lines.size()) * m_interlinear));
    line->setDeep(getDeep());
    line->setText(WString(text));
    line->show();
    line->enable();
    m_lines.push_back(line);
}

/// One piece of the text between newlines, in as many lines as it takes.
void cMultilineText::addPiece(std::u16string_view text) {
    if (!m_wrap_text)
        return newLine(text);
    for (;;) {
        const std::size_t cut = findCut(text);
        newLine(text.substr(0, cut));
        text = strip(text.substr(cut));
        if (text.empty())
            return;
    }
}

Bool cMultilineText::fits(std::u16string_view text) const {
    return m_prototype->measure(text) <= getSize().x;
}

/// Where the line ends that begins the text: behind the last word that fits; inside the first word, where that may be
/// cut; else behind the first word, which sticks out.
std::size_t cMultilineText::findCut(std::u16string_view text) const {
    if (fits(text))
        return text.size();
    const std::size_t word = std::min(text.find_first_not_of(blanks), text.size());
    const std::size_t first_blank = std::min(text.find_first_of(blanks, word), text.size());
    if (first_blank == text.size() || !fits(text.substr(0, first_blank)))
        return m_wrap_style ? findCutInWord(text.substr(0, first_blank)) : first_blank;
    // Longer heads are wider, so the last blank before which all fits is found by bisection.
    std::size_t low = first_blank;
    std::size_t high = text.size();
    while (high - low > 1) {
        const std::size_t middle = (low + high) / 2;
        (fits(text.substr(0, middle)) ? low : high) = middle;
    }
    return blanks.find(text[low]) != blanks.npos ? low : text.find_last_of(blanks, low);
}

/// The most characters that fit, by bisection; one at least, and never half of a pair.
std::size_t cMultilineText::findCutInWord(std::u16string_view text) const {
    std::size_t low = 1;
    std::size_t high = text.size();
    while (low < high && high - low > 1) {
        const std::size_t middle = (low + high) / 2;
        (fits(text.substr(0, middle)) ? low : high) = middle;
    }
    const Bool cuts_pair = low < text.size() && text[low - 1] >= 0xD800 && text[low - 1] < 0xDC00;
    return std::min(cuts_pair ? low + 1 : low, text.size());
}

void cMultilineText::alignLines() {
    const Float count = static_cast<Float>(m_lines.size());
    const Float half = m_interlinear * 0.5f;
    Float shift = 0.0f;
    if (m_vertical_align == alignMiddle)
        shift = half - count * half;
    else if (m_vertical_align == alignTop)
        shift = half - getSize().y * 0.5f;
    else if (m_vertical_align == alignBottom)
        shift = getSize().y * 0.5f - count * m_interlinear + half;
    for (cTextLine* line : m_lines)
        line->setPosition(line->getPosition() + Vector2(0.0f, shift));
}

}  // namespace Engine
