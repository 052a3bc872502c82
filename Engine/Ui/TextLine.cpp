#include "Engine/Ui/TextLine.h"

#include <algorithm>
#include <cmath>

#include "Engine/Ui/Font.h"
#include "Engine/Ui/FontRenderTarget.h"
#include "Engine/Ui/Letter.h"
#include "Engine/Ui/RightToLeft.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Constants.h"
#include "Engine/core/Keys.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/StringManager.h"
#include "Engine/graphics/Texture.h"
#include "Engine/graphics/text/TrueType.h"

namespace Engine {

namespace {

constexpr Float deep_step = 0.01f;  // from character to character, so that they are drawn in order
constexpr char16_t blank = 32;
constexpr char16_t hard_blank = 160;

/// Null for what the font does not have, and for the ends of lines even if it has.
const cFont::sGlyph* findGlyph(const cFont& font, char16_t character) {
    return character == u'\n' || character == u'\r' ? nullptr : font.getGlyph(character);
}

Bool readGameConstant(const char* name) {
    Bool res = false;
    if (cConstants* constants = cConstants::getInstance())
        constants->getProperty("game", name, res);
    return res;
}

}  // namespace

cTextLine::cTextLine(cView* parent)
    : cControl(parent),
      m_right_to_left(readGameConstant("RightToLeftEnable")),
      m_ttf_usage(readGameConstant("TTFUsage")) {
}

cTextLine::cTextLine(const cTextLine& other)
    : cControl(other),
      m_text(other.m_text),
      m_font(other.m_font),
      m_texture_name(other.m_texture_name),
      m_space_width(other.m_space_width),
      m_multiplier(other.m_multiplier),
      m_align(other.m_align),
      m_localized(other.m_localized),
      m_right_to_left(other.m_right_to_left),
      m_ttf_usage(other.m_ttf_usage) {
}

cTextLine::~cTextLine() = default;

void cTextLine::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cControl::loadXML(xml);
    readKey(*xml, u"String", m_text);
    String font;
    if (readKey(*xml, u"Font", font))
        m_font = font.empty() ? cResourceRef() : cResourceRef::adopt(cResourceManager::getInstance()->getFont(font));
    if (readKey(*xml, u"Texture", m_texture_name))
        m_texture = m_texture_name.empty()
                        ? cResourceRef()
                        : cResourceRef::adopt(cResourceManager::getInstance()->getTexture(m_texture_name));
    readKey(*xml, u"SpaceWidth", m_space_width);
    readKey(*xml, u"Multiplier", m_multiplier);
    readKey(*xml, u"Align", m_align);
    readKey(*xml, u"Localized", m_localized);
    Bool ignore_right_to_left = false;
    readKey(*xml, u"IgnoreRightToLeft", ignore_right_to_left);
    if (ignore_right_to_left)
        m_right_to_left = false;
    m_need_rebuild = true;
    if (isShown())
        makeLetters();
}

void cTextLine::process() {
    cControl::process();
    makeLetters();
}

// A line of letters has no picture of its own, so it has no place among the controls that are drawn.

void cTextLine::showed() {
    makeLetters();
    if (m_ttf_usage)
        cControl::showed();
    else
        cView::showed();  // NOLINT(bugprone-parent-virtual-call)
}

void cTextLine::hid() {
    if (m_ttf_usage)
        cControl::hid();
    else
        cView::hid();  // NOLINT(bugprone-parent-virtual-call)
}

iResource* cTextLine::getTexture() const {
    return m_target ? &m_target->getTexture() : cControl::getTexture();
}

void cTextLine::makeSprite(iGraphics::sSprite& sprite, UInt frame, Float alpha) const {
    cControl::makeSprite(sprite, frame, alpha);
    // On whole pixels every letter keeps its shape.
    const Float x = m_width * 0.5f + getAlignShift() + sprite.corners[0].x;
    const Vector2 shift(std::round(x) - sprite.corners[0].x, std::round(sprite.corners[0].y) - sprite.corners[0].y);
    for (iGraphics::sCorner& corner : sprite.corners) {
        corner.x += shift.x;
        corner.y += shift.y;
    }
}

void cTextLine::setAlpha(const Float& alpha) {
    cControl::setAlpha(alpha);
    for (cLetter* letter : m_visible)
        letter->setAlpha(alpha);
}

void cTextLine::setColor(const DXColor& color) {
    cControl::setColor(color);
    for (cLetter* letter : m_visible)
        letter->setColor(color);
}

Float cTextLine::getWidth() {
    makeLetters();
    return m_width;
}

Float cTextLine::getHeight() {
    makeLetters();
    return m_height;
}

void cTextLine::setText(const WString& text) {
    if (text == m_text)
        return;
    m_text = text;
    m_need_rebuild = true;
}

void cTextLine::setAlign(UInt align) {
    m_need_rebuild |= align != m_align;
    m_align = align;
}

void cTextLine::setMultiplier(Float multiplier) {
    m_need_rebuild |= multiplier != m_multiplier;
    m_multiplier = multiplier;
}

void cTextLine::setSpaceWidth(Float width) {
    m_need_rebuild |= width != m_space_width;
    m_space_width = width;
}

void cTextLine::setLocalized(Bool localized) {
    m_need_rebuild |= localized != m_localized;
    m_localized = localized;
}

void cTextLine::setFont(iResource* font) {
    m_need_rebuild |= font != m_font.get();
    m_font = cResourceRef(font);
}

Bool cTextLine::isCharAvail(char16_t character) const {
    auto* font = static_cast<cFont*>(m_font.get());
    if (isBlank(character) || !font)
        return font != nullptr;
    return m_ttf_usage ? font->getTrueType().hasChar(character) : findGlyph(*font, character) != nullptr;
}

// The letters ------------------------------------------------------------------------------------------------------

Bool cTextLine::isBlank(char16_t character) const {
    return character == blank || character == hard_blank;
}

/// As the reader gets it, from left to right.
WString cTextLine::getShownText() const {
    const cStringManager* strings = cStringManager::getInstance();
    WString text = m_localized && strings ? strings->getString(m_text) : m_text;
    return m_right_to_left && !m_ttf_usage ? rotateString(text) : text;
}

Vector2 cTextLine::getAtlasSize() const {
    const auto* atlas = static_cast<const cTexture*>(m_texture.get());
    return atlas ? Vector2(atlas->getWidth(), atlas->getHeight()) : Vector2(0.0f);
}

Float cTextLine::measure(std::u16string_view text) const {
    auto* font = static_cast<cFont*>(m_font.get());
    if (m_ttf_usage)
        return font ? font->getTrueType().measure(text) * m_multiplier : 0.0f;
    const Float atlas_width = getAtlasSize().x;
    Float width = 0.0f;
    for (const char16_t character : text) {
        if (isBlank(character))
            width += m_space_width;
        else if (const cFont::sGlyph* glyph = font ? findGlyph(*font, character) : nullptr)
            width += glyph->advance * atlas_width;
    }
    return width * m_multiplier;
}

void cTextLine::makeLetters() {
    if (!m_need_rebuild || !m_font || (!m_texture && !m_ttf_usage))
        return;
    m_need_rebuild = false;
    if (m_ttf_usage)
        return drawPicture();
    const auto& font = static_cast<const cFont&>(*m_font.get());
    const Vector2 atlas = getAtlasSize();
    const WString text = getShownText();
    m_width = measure(text);
    m_height = 0.0f;

    m_visible.clear();
    updateTexture();
    showPlaces(text.size());

    const Float shift = getAlignShift();
    Float cursor = 0.0f;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const cFont::sGlyph* glyph = nullptr;
        if (isBlank(text[i]))
            cursor += m_space_width;
        else
            glyph = findGlyph(font, text[i]);
        if (!glyph) {
            if (i < m_letters.size() && m_letters[i])
                m_letters[i]->setBlank(true);
            continue;
        }
        const Float advance = glyph->advance * atlas.x;
        const Vector2 size{(glyph->right - glyph->left) * atlas.x, (glyph->top - glyph->bottom) * atlas.y};
        const Float x = m_multiplier * (cursor + advance * 0.5f) + shift;
        cursor += advance;

        cLetter& letter = takeLetter(i);
        letter.setCharacter(text[i]);
        letter.setTextureRect(glyph->left, 1.0f - glyph->top, glyph->right, 1.0f - glyph->bottom);
        letter.setSize(size * m_multiplier);
        letter.setPosition({getPosition().x + x, getPosition().y});
        letter.setColor(getColor());
        letter.setBlank(false);
        m_visible.push_back(&letter);
        m_height = std::max(m_height, std::abs(letter.getSize().y));
    }
}

/// Shows the letters of places that the text has gained, hides those of places that it has lost.
void cTextLine::showPlaces(std::size_t count) {
    for (std::size_t i = m_place_count; i < std::min(count, m_letters.size()); ++i) {
        if (m_letters[i])
            m_letters[i]->show();
    }
    for (std::size_t i = count; i < std::min(m_place_count, m_letters.size()); ++i) {
        if (m_letters[i])
            m_letters[i]->hide();
    }
    m_place_count = count;
}

void cTextLine::updateTexture() {
    if (m_letters_texture.get() == m_texture.get())
        return;
    m_letters_texture = m_texture;
    for (cLetter* letter : m_letters) {
        if (letter)
            dress(*letter);
    }
}

void cTextLine::dress(cLetter& letter) const {
    letter.setTexture(m_texture.get());
    letter.setRenderType(getRenderType());
}

/// The whole line as one picture.
void cTextLine::drawPicture() {
    if (!m_target)
        m_target = std::make_unique<cFontRenderTarget>();
    m_target->update(getShownText(), static_cast<cFont*>(m_font.get())->getTrueType());
    m_width = m_target->getTextWidth() * m_multiplier;
    m_height = m_target->getSize().y * m_multiplier;
    setSize(m_target->getSize() * m_multiplier);
    setDirty();
}

Float cTextLine::getAlignShift() const {
    switch (m_align) {
        case alignCenter:
            return -m_width * 0.5f;
        case alignRight:
            return -m_width;
        default:
            return 0.0f;
    }
}

/// The letter of that character of the text. Each keeps its character, and so its place in the drawing order, from one
/// text to the next.
cLetter& cTextLine::takeLetter(std::size_t place) {
    if (place >= m_letters.size())
        m_letters.resize(place + 1, nullptr);
    const Bool is_new = !m_letters[place];
    if (is_new) {
        m_letters[place] = new cLetter(this);
        m_letters[place]->enable();
        dress(*m_letters[place]);
    }
    cLetter& letter = *m_letters[place];
    const Float deep = getDeep() + static_cast<Float>(place) * deep_step;
    if (letter.getDeep() != deep)
        letter.setDeep(deep);
    if (is_new)
        letter.show();
    return letter;
}

}  // namespace Engine
