#include "Engine/Ui/TextBox.h"

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Timer.h"
#include "Engine/input/Input.h"

namespace Engine {

namespace {

constexpr char16_t backspace = 8;
constexpr char16_t first_printable = 32;
constexpr char16_t rubout = 127;  // to 159: control characters

}  // namespace

cTextBox::cTextBox(cView* parent) : cTextLine(parent), m_caret(new cPicture(this)) {
    setLocalized(false);
}

void cTextBox::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cTextLine::loadXML(xml);
    setLocalized(false);  // a name may be a word that has a translation
    readKey(*xml, u"MaxLength", m_max_length);
    readKey(*xml, u"BlinkingPeriod", m_blinking_period);
    loadChild(*m_caret, xml, "Caret");
    setNeedRebuild();
}

void cTextBox::enabled() {
    cTextLine::enabled();
    cInput::getInstance()->bindKeyboard(onChar, this);
}

void cTextBox::disabled() {
    cTextLine::disabled();
    cInput::getInstance()->unbindKeyboard(onChar, this);
}

void cTextBox::process() {
    cTextLine::process();
    m_blinking_time += cTimer::getInstance()->getStep();
    if (m_blinking_time <= m_blinking_period)
        return;
    m_blinking_time = 0.0f;
    if (m_caret->isShow())
        m_caret->hide();
    else
        m_caret->show();
}

void cTextBox::makeLetters() {
    if (!needsRebuild())
        return;
    cTextLine::makeLetters();
    if (needsRebuild())  // there is no font yet
        return;
    const Float width = getWidth();
    const Float half = m_caret->getSize().x * 0.5f;
    const Float left = getAlign() == alignLeft ? 0.0f : getAlign() == alignRight ? -width : width * -0.5f;
    m_caret->setPosition(getPosition() + Vector2(isRightToLeft() ? left - half : left + width + half, 0.0f));
}

void cTextBox::onChar(char16_t character, cView* view) {
    static_cast<cTextBox*>(view)->addChar(character);
}

void cTextBox::addChar(char16_t character) {
    WString text = getText();
    if (character == backspace) {
        if (text.empty())
            return;
        const Bool is_pair = text.size() > 1 && text.back() >= 0xDC00 && text.back() < 0xE000;
        text.resize(text.size() - (is_pair ? 2 : 1));
    } else {
        const Bool is_control = character < first_printable || (character >= rubout && character < 160);
        if (is_control || text.size() >= m_max_length || !isCharAvail(character))
            return;
        text.push_back(character);
    }
    setText(text);
    m_caret->show();  // it is seen where the next letter goes
    m_blinking_time = 0.0f;
}

}  // namespace Engine
