#include "Game/Ui/StartScreen.h"

#include "Engine/Ui/AnimButton.h"
#include "Engine/Ui/CheckButton.h"
#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/OverlayButton.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Logic.h"
#include "Engine/core/Settings.h"
#include "Engine/core/Timer.h"
#include "Engine/graphics/Graphics.h"
#include "Engine/input/Input.h"

using namespace Engine;

namespace {

/// A picture that drifts sideways and comes back on the other side of the screen.
class cCloud : public cPicture {
public:
    using cPicture::cPicture;

    void loadXML(const iXML* xml) override {
        cPicture::loadXML(xml);
        readKey(*xml, u"Speed", m_speed);
    }

    void process() override {
        cPicture::process();
        const Float width = static_cast<Float>(cGraphics::getInstance()->getWidth());
        const Float half = getSize().x * 0.5f;
        Vector2 position = getPosition();
        position.x += m_speed * cTimer::getInstance()->getStep();
        if (position.x - half > width)
            position.x = -half;
        else if (position.x + half < 0.0f)
            position.x = width + half;
        setPosition(position);
    }

private:
    Float m_speed = 0.0f;  ///< units a second, positive to the right
};

}  // namespace

cStartScreen::cStartScreen()
    : cPicture(nullptr),
      m_sails(new cPicture(this)),
      m_mill(new cOverlayButton(this)),
      m_full_screen(new cCheckButton(this)),
      m_exit(new cAnimButton(this)) {
    ENGINE_MARK;
    m_mill->setOnClick(onMill);
    m_full_screen->setOnCheck(onFullScreen);
    m_exit->setOnClick(onExit);
    loadView(*this, "UI/Start.xml");
}

void cStartScreen::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cPicture::loadXML(xml);
    TAG_LIST clouds;
    xml->get("Cloud", clouds);
    for (const iXML* tag : clouds)
        (new cCloud(this))->loadXML(tag);
    loadChild(*m_sails, xml, "Sails");
    loadChild(*m_mill, xml, "Mill");
    loadChild(*m_full_screen, xml, "FullScreen");
    loadChild(*m_exit, xml, "ExitButton");
}

void cStartScreen::process() {
    cPicture::process();
    m_full_screen->setChecked(cGraphics::getInstance()->getParameters().fullscreen);  // Alt+Enter changes it too
}

void cStartScreen::enabled() {
    cPicture::enabled();
    cInput::getInstance()->bind(Control::esc_release, onExit, this);
}

void cStartScreen::disabled() {
    cPicture::disabled();
    cInput::getInstance()->unbind(Control::esc_release, onExit, this);
}

void cStartScreen::onExit(cView*) {
    cLogic::getInstance()->exit();
}

void cStartScreen::onMill(cView* view) {
    cPicture* sails = static_cast<cStartScreen*>(view->getParent())->m_sails;
    sails->setPlayAnimation(!sails->isPlayAnimation());
}

void cStartScreen::onFullScreen(cView*, Bool checked) {
    cSettings::getInstance()->setProperty("graphics", "fullscreen", checked);
    cGraphics::getInstance()->setResetPending(true);
}
