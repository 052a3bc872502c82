#pragma once

#include "Engine/Ui/TextLine.h"

namespace Engine {

class cPicture;

/// A line that is typed into, with a blinking caret behind its end.
///
/// While it is enabled it takes the keyboard's characters: those that its font has are added while the text is shorter
/// than the limit, backspace removes the last.
class cTextBox : public cTextLine {
public:
    explicit cTextBox(cView* parent);

    /// The keys of cTextLine, then "MaxLength", "BlinkingPeriod" (seconds) and the child tag "Caret", a picture.
    void loadXML(const iXML* xml) override;
    void process() override;
    void enabled() override;
    void disabled() override;
    void makeLetters() override;

    /// What a typed character does to the text.
    void addChar(char16_t character);

private:
    static void onChar(char16_t character, cView* view);

    UInt m_max_length = 0;           ///< UTF-16 units
    Float m_blinking_period = 0.5f;  ///< seconds
    Float m_blinking_time = 0.0f;
    cPicture* m_caret = nullptr;
};

}  // namespace Engine
