#include "Game/CommonUI/GlowEffect.h"

#include <algorithm>

#include "Engine/Ui/Scavenger.h"
#include "Engine/core/Timer.h"

using namespace Engine;

void cGlowEffect::start(const Vector2& position, Float show_time, Float size) {
    m_show_time = show_time;
    m_rate = show_time > 0.0f ? size / show_time : 0.0f;
    setPosition(position);
    setSize({size, size});
    show();
    enable();
}

void cGlowEffect::process() {
    cPicture::process();
    if (m_show_time > 0.0f) {
        const Float step = cTimer::getInstance()->getRealStep();
        const Float loss = step * m_rate;
        m_show_time -= step;
        setSize({std::max(0.0f, getSize().x - loss), std::max(0.0f, getSize().y - loss)});
        return;
    }
    hide();
    disable();
    discard(static_cast<cView*>(this), here());
}
