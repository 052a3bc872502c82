#pragma once

#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "Engine/Ui/Control.h"

namespace Engine {

class cFont;
class cFontRenderTarget;
class cTrueType;
class cLetter;

/// One line of text: a control that owns one letter, a textured quad out of a font's atlas, for each visible character.
///
/// The position is the line's middle, its left or its right end, as aligned; letters stand with their middle on the
/// line. With the constant `game`/`TTFUsage` the whole line is one picture instead, drawn from TrueType fonts, which
/// show any language. A change only marks the line; the letters are made by the next process(), getWidth() or
/// getHeight() and are used again from one text to the next. A line without a font or a texture has no letters and no
/// width.
class cTextLine : public cControl {
public:
    enum eAlign : UInt { alignCenter = 0, alignLeft = 1, alignRight = 2 };

    explicit cTextLine(cView* parent);
    cTextLine(const cTextLine& other);
    ~cTextLine() override;

    /// The keys of cControl, then "String", "Font", "Texture", "SpaceWidth", "Multiplier", "Align", "Localized",
    /// "IgnoreRightToLeft".
    void loadXML(const iXML* xml) override;
    void process() override;
    void showed() override;  ///< a line comes into sight with its letters, also while a fade holds the scene
    void hid() override;
    iResource* getTexture() const override;
    void makeSprite(iGraphics::sSprite& sprite, UInt frame, Float alpha) const override;
    void setAlpha(const Float& alpha) override;
    void setColor(const DXColor& color) override;

    virtual Float getWidth();   ///< logical units, of the present text
    virtual Float getHeight();  ///< logical units: of the highest letter; 0 without letters
    virtual void setText(const WString& text);
    virtual const WString& getText() const { return m_text; }
    virtual void setAlign(UInt align);
    virtual void setMultiplier(Float multiplier);        ///< size of the text; 1 shows the atlas pixel by pixel
    virtual void setSpaceWidth(Float width);             ///< logical units at multiplier 1
    virtual void makeLetters();                          ///< if the text has changed since
    virtual Bool isCharAvail(char16_t character) const;  ///< can the font show it?

    UInt getAlign() const { return m_align; }
    Float getMultiplier() const { return m_multiplier; }
    /// The text goes through cStringManager before it is shown.
    void setLocalized(Bool localized);
    void setFont(iResource* font);
    /// The width that a text, already translated, would have in this line; logical units.
    Float measure(std::u16string_view text) const;

protected:
    /// The letters of the present text, from left to right.
    std::span<cLetter* const> getLetters() const { return m_visible; }
    Bool isRightToLeft() const { return m_right_to_left; }
    Bool needsRebuild() const { return m_need_rebuild; }
    void setNeedRebuild() { m_need_rebuild = true; }

private:
    WString getShownText() const;
    Bool isBlank(char16_t character) const;
    Vector2 getAtlasSize() const;
    cLetter& takeLetter(std::size_t place);
    void showPlaces(std::size_t count);
    void updateTexture();
    void dress(cLetter& letter) const;
    Float getAlignShift() const;
    void drawPicture();

    WString m_text;
    std::vector<cLetter*>
        m_letters;                  ///< children, by the character's place in the text; null where none was needed yet
    std::size_t m_place_count = 0;  ///< characters of the present text; the letters behind them are hidden
    std::vector<cLetter*> m_visible;  ///< those of the present text that are no blanks, from left to right
    cResourceRef m_letters_texture;   ///< the atlas that the letters have
    Bool m_need_rebuild = true;
    cResourceRef m_font;
    String m_texture_name;  ///< of the atlas
    Float m_space_width = 10.0f;
    Float m_multiplier = 1.0f;
    Float m_width = 0.0f;
    Float m_height = 0.0f;
    UInt m_align = alignCenter;
    Bool m_localized = true;
    Bool m_right_to_left = false;
    Bool m_ttf_usage = false;                     ///< the line itself is the picture of its text
    std::unique_ptr<cFontRenderTarget> m_target;  ///< that picture
};

}  // namespace Engine
