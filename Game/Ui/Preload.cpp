#include "Game/Ui/Preload.h"

#include <algorithm>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Profile.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/FileManager.h"
#include "Engine/core/Timer.h"
#include "Engine/graphics/Texture.h"
#include "Engine/input/Input.h"

using namespace Engine;

namespace {

constexpr Float logo_time = 4.0f;   // seconds
constexpr Float fade_speed = 0.5f;  // of a logo's alpha, per second
constexpr const char* logos[] = {"Logo.jpg", "Logo/Logo2.jpg", "Logo/Logo3.jpg"};
constexpr UInt logo_count = 3;

}  // namespace

cPreload::cPreload(fContinue continue_profile, fContinue continue_new)
    : cPicture(nullptr), m_continue_profile(continue_profile), m_continue_new(continue_new) {
    ENGINE_MARK;
    loadView(*this, "UI/logo.xml");
    switchState();
}

void cPreload::enabled() {
    cPicture::enabled();
    cInput::getInstance()->bind(Control::any, onAnyKey, this);
}

void cPreload::disabled() {
    cPicture::disabled();
    cInput::getInstance()->unbind(Control::any, onAnyKey, this);
}

void cPreload::switchState() {
    ENGINE_MARK;
    m_time = 0.0f;
    while (m_state < logo_count) {
        const String name = logos[m_state++];
        if (cFileManager::getInstance()->isExist(name)) {
            showLogo(name);
            return;
        }
    }
    finish();  // the last logo is missing
}

void cPreload::showLogo(const String& name) {
    const auto loaded = cResourceRef::adopt(cResourceManager::getInstance()->getTexture(name));
    const auto* logo = static_cast<cTexture*>(loaded.get());
    setTexture(loaded.get());
    setSize({static_cast<Float>(logo->getWidth()), static_cast<Float>(logo->getHeight())});
    setAlpha(0.0f);
    setDirty();
}

void cPreload::process() {
    ENGINE_MARK;
    cPicture::process();
    if (m_time >= logo_time)
        skip();
    setAlpha(std::min(1.0f, m_time * fade_speed));
    m_time += cTimer::getInstance()->getRealStep();
}

void cPreload::onAnyKey(cView* view) {
    auto* self = static_cast<cPreload*>(view);
    self->m_second_event = !self->m_second_event;
    if (!self->m_second_event)
        self->skip();
}

void cPreload::skip() {
    if (m_state < logo_count)
        switchState();
    else
        finish();
}

void cPreload::finish() {
    if (m_ended)
        return;
    m_ended = true;
    if (cProfile::getCurrentUser().empty())
        m_continue_new();
    else
        m_continue_profile();
    discardTransparently();
}
