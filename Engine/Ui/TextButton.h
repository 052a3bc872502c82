#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

#include "Engine/Ui/AnimButton.h"
#include "Engine/Ui/Letter.h"
#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/TextLine.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Timer.h"

namespace Engine {

/// The text on a button: its letters jump apart, one up and the next down, while the button is pressed, and settle on
/// the line again afterwards.
template <class _TextClass>
class cBtnText : public _TextClass {
public:
    using _TextClass::_TextClass;

    /// The keys of the text, then "Offset" (of a letter from the line, units) and "Speed" (units a second).
    void loadXML(const iXML* xml) override {
        _TextClass::loadXML(xml);
        readKey(*xml, u"Offset", m_offset);
        readKey(*xml, u"Speed", m_speed);
    }

    void process() override {
        _TextClass::process();
        if (m_moving)
            m_moving = moveLetters(m_speed * cTimer::getInstance()->getRealStep());
    }

    /// Nobody is left to move the letters: they are on the line at once.
    void disabled() override {
        _TextClass::disabled();
        m_raised = false;
        m_moving = moveLetters(std::numeric_limits<Float>::max());
    }

    virtual void setState(eButtonState state) {
        m_moving = true;
        m_raised = state == eButtonState::pressed;
    }

private:
    /// @param way  units that a letter may go now. False once all letters have arrived.
    Bool moveLetters(Float way) {
        Bool moved = false;
        Float offset = m_raised ? m_offset : 0.0f;
        for (cLetter* letter : this->getLetters()) {
            const Vector2 position = letter->getPosition();
            const Float left = this->getPosition().y + offset - position.y;
            if (left != 0.0f) {
                const Bool arrives = std::abs(left) <= way;
                const Float y = arrives ? position.y + left : position.y + std::copysign(way, left);
                letter->setPosition({position.x, arrives ? this->getPosition().y + offset : y});
                moved = true;
            }
            offset = -offset;
        }
        return moved;
    }

    Float m_offset = 0.0f;
    Float m_speed = 0.0f;
    Bool m_moving = false;
    Bool m_raised = false;
};

/// A button with a text on it, the child tag "Text". The text stands in the button's middle, unless the attribute
/// "UseTextPosition" leaves it where its own tag puts it.
template <class _BaseClass, class _TextClass>
class cTextButtonT : public _BaseClass {
public:
    explicit cTextButtonT(cView* parent) : _BaseClass(parent), m_text(new cBtnText<_TextClass>(this)) {}
    cTextButtonT(const cTextButtonT& other) : _BaseClass(other), m_text(new cBtnText<_TextClass>(*other.m_text)) {
        m_text->setParent(this);
    }

    void loadXML(const iXML* xml) override {
        _BaseClass::loadXML(xml);  // first: its deep moves the text's along
        loadChild(*m_text, xml, "Text");
        Bool use_text_position = false;
        readKey(*xml, u"UseTextPosition", use_text_position);
        if (!use_text_position)
            m_text->setPosition(this->getPosition());
    }

    void setState(eButtonState state) override {
        if (state != this->getState())
            m_text->setState(state);
        _BaseClass::setState(state);
    }

    void setAlpha(const Float& alpha) override {
        _BaseClass::setAlpha(alpha);
        m_text->setAlpha(alpha);
    }

    void setText(const WString& text) { m_text->setText(text); }
    const WString& getText() const { return m_text->getText(); }
    cBtnText<_TextClass>& getTextView() { return *m_text; }

private:
    cBtnText<_TextClass>* m_text;  ///< a child
};

using cTextButton = cTextButtonT<cAnimButton, cTextLine>;

}  // namespace Engine
