#include "Engine/core/Logic.h"

#include <algorithm>

#include "Engine/Ui/Control.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/Ui/ViewSets.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Timer.h"
#include "Engine/graphics/Graphics.h"
#include "Engine/graphics/Texture.h"
#include "Engine/input/Input.h"

namespace Engine {

namespace {

constexpr UInt inactive_sleep = 50;  // milliseconds a frame while there is nobody to play

/// False if nothing of the sprite would reach the picture.
Bool isSeen(const iGraphics::sSprite& sprite, UInt render_type) {
    constexpr UInt alpha_mask = 0xFF000000;
    return (render_type & renderOpaque) ||
           std::ranges::any_of(sprite.corners, [](const auto& corner) { return (corner.color & alpha_mask) != 0; });
}

}  // namespace

cLogic::cLogic(Platform::iPlatform& platform) : m_platform(platform) {
    ENGINE_MARK;
    cInput* input = cInput::getInstance();
    for (const eControl control :
         {Control::left_alt_press, Control::left_alt_release, Control::right_alt_press, Control::right_alt_release})
        input->bind(control, ignore, nullptr);
    input->bind(Control::print_screen_press, onPrintScreen, nullptr);
}

cLogic::~cLogic() {
    if (cInput* input = cInput::getInstance())
        input->unbindAll();
}

void cLogic::process() {
    ENGINE_MARK;
    if (m_minimized) {
        cScavenger::free();
        m_platform.sleep(inactive_sleep);  // nothing to do until the window comes back
        return;
    }
    updateSysCursor();
    cTimer::getInstance()->process();
    cInput::getInstance()->process();
    if (m_inactive) {
        m_platform.sleep(inactive_sleep);
    } else {
        processViews();
        processFades();
    }
    if (m_draws) {
        cGraphics::getInstance()->beginRender();
        drawViews();
        cGraphics::getInstance()->endRender();
    }
    cScavenger::free();
}

void cLogic::updateSysCursor() {
    const cGraphics* graphics = cGraphics::getInstance();
    Float rect[4];
    graphics->getWindowRect(rect);
    const Vector2 in_window = m_platform.getCursorPos() - Vector2(rect[0], rect[1]);
    graphics->toLogical(in_window, m_cursor);
}

void cLogic::processViews() {
    if (UI::getTransparenty().empty()) {
        UI::getAbsoluteEnabled().walk([](cView* view) { view->absoluteProcess(); });
        UI::getAbsoluteEnabled().applyPending();
        UI::getEnabled().walk([](cView* view) { view->process(); });
    }
    UI::getEnabled().applyPending();
}

void cLogic::processFades() {
    auto& fading = UI::getTransparenty();
    // A fade that has ended leaves the set; the walk allows that.
    fading.walk([&](cView* view) {
        view->changeTransparency();
        if (view->getTransparencyMode() == cView::noFade)
            fading.erase(view->getCreationNumber());
    });
}

void cLogic::drawViews() {
    UI::getDrawSet().walk([&](cControl* control) {
        if (!control->isShown())
            control->leaveDrawSet();
        else if (!control->isBlank())
            draw(control);
    });
}

void cLogic::draw(cControl* control) {
    cGraphics* graphics = cGraphics::getInstance();
    if (control->getMesh())
        return graphics->render(control->getUnit(), control->getRenderType());
    auto* texture = static_cast<cTexture*>(control->getTexture());
    const UInt render_type = control->getRenderType();
    const auto render = [=](const iGraphics::sSprite& sprite) {
        if (isSeen(sprite, render_type))
            graphics->render(sprite, texture, render_type);
    };
    render(control->getSprite());
    if (control->isDoubleAnimRender())
        render(control->getSecondSprite());
}

void cLogic::onPrintScreen(cView*) {
    cGraphics::getInstance()->screenshot();
}

void cLogic::exit() {
    m_platform.postMessage({Platform::eMessage::close, 0});
}

}  // namespace Engine
