#pragma once

#include <string_view>
#include <vector>

#include "Engine/Ui/Control.h"

namespace Engine {

class cTextLine;

/// A block of text: lines cut at its newlines and, if asked for, wrapped to the width of its box.
///
/// The position is the box's middle. Lines stand in its middle, at its left or at its right edge, as their prototype is
/// aligned, and look as that does.
class cMultilineText : public cControl {
public:
    explicit cMultilineText(cView* parent);
    cMultilineText(const cMultilineText& other);

    /// The keys of cControl ("size" is the box), then "String", "Interlinear", "Localized", "VerticalAlign",
    /// "WrapText", "WrapStyle" and the child tag "Text", the prototype of a line.
    void loadXML(const iXML* xml) override;
    void process() override;
    void showed() override;  ///< a block comes into sight with its lines, also while a fade holds the scene
    void hid() override;
    void setSize(const Vector2& size) override;  ///< of the box; the text is wrapped anew
    void setColor(const DXColor& color) override;
    void setAlpha(const Float& alpha) override;

    virtual void setText(const WString& text);
    virtual const WString& getText() const { return m_text; }
    virtual void makeLines();  ///< if the text has changed since

    const std::vector<cTextLine*>& getLines() const { return m_lines; }

private:
    void newLine(std::u16string_view text);
    void addPiece(std::u16string_view text);
    Bool fits(std::u16string_view text) const;
    std::size_t findCut(std::u16string_view text) const;
    std::size_t findCutInWord(std::u16string_view text) const;
    void alignLines();

    std::vector<cTextLine*> m_lines;  ///< children
    cTextLine* m_prototype;           ///< a child that is never shown
    WString m_text;
    Float m_interlinear = 40.0f;  ///< logical units between the middles of two lines
    Bool m_localized = true;
    UInt m_vertical_align = 3;  ///< 0 middle, 1 top, 2 bottom of the box; else the first line stands in its middle
    Bool m_wrap_text = false;
    Bool m_wrap_style = false;  ///< a word that alone is too long is cut
    Bool m_need_rebuild = true;
};

}  // namespace Engine
