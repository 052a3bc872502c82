#include "Game/Ui/Options.h"

#include <algorithm>

#include "Engine/Sound/SoundManager.h"
#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/ProgressFloat.h"
#include "Engine/Ui/ScrollBox.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Settings.h"
#include "Engine/graphics/Graphics.h"
#include "Engine/input/Input.h"
#include "Game/Ui/Screen.h"

using namespace Engine;

namespace {

Bool isFullScreen() {
    Bool full_screen = false;
    cSettings::getInstance()->getProperty("graphics", "fullscreen", full_screen);
    return full_screen;
}

/// Whatever range the sliders' file gives them.
UInt toVolume(Float value) {
    return static_cast<UInt>(std::clamp(value, 0.0f, 100.0f));
}

}  // namespace

cOptions::cOptions(cView* opener)
    : cBack(nullptr),
      m_opener(opener),
      m_ok(new cTextButton(this)),
      m_sound_volume(new cScrollBox(this)),
      m_music_volume(new cScrollBox(this)),
      m_sound_progress(new cProgressFloat(this)),
      m_music_progress(new cProgressFloat(this)),
      m_full_screen(new cTips<cCheckButton>(this)) {
    ENGINE_MARK;
    m_ok->setOnClick(onOk);
    m_sound_volume->setOnChange(onSoundChange);
    m_music_volume->setOnChange(onMusicChange);
    m_full_screen->setOnCheck(onFullScreen);
    loadView(*this, "UI/Options.xml");
    hide();
}

void cOptions::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBack::loadXML(xml);
    loadChild(*m_ok, xml, "OkButton");
    loadChild(*m_sound_progress, xml, "SoundProgress");
    loadChild(*m_music_progress, xml, "MusicProgress");
    loadChild(*m_sound_volume, xml, "SoundVolume");
    loadChild(*m_music_volume, xml, "MusicVolume");
    loadChild(*m_full_screen, xml, "FullScreen");
    m_full_screen->setChecked(isFullScreen());
    loadVolumes();
}

/// A program without a sound manager is as silent as one whose manager has no device.
void cOptions::loadVolumes() {
    const cSoundManager* sound = cSoundManager::getInstance();
    const Float sound_volume = sound ? static_cast<Float>(sound->getSoundVolume()) : 0.0f;
    const Float music_volume = sound ? static_cast<Float>(sound->getMusicVolume()) : 0.0f;
    m_sound_volume->setValue(sound_volume);
    m_music_volume->setValue(music_volume);
    m_sound_progress->setProgressCurrentValue(sound_volume);
    m_music_progress->setProgressCurrentValue(music_volume);
    if (!sound || sound->isDisabled()) {
        m_sound_volume->disable();
        m_music_volume->disable();
    }
}

void cOptions::enabled() {
    cBack::enabled();
    cInput::getInstance()->bind(Control::esc_release, onOk, this);
}

void cOptions::disabled() {
    cBack::disabled();
    cInput::getInstance()->unbind(Control::esc_release, onOk, this);
}

void cOptions::process() {
    cBack::process();
    const Bool full_screen = isFullScreen();  // Alt+Enter changes it too
    if (m_full_screen->isChecked() != full_screen)
        m_full_screen->setChecked(full_screen);
}

void cOptions::onSoundChange(cScrollBox*, Float val) {
    cSoundManager::getInstance()->setSoundVolume(toVolume(val));
    getInstance()->m_sound_progress->setProgressCurrentValue(val);
}

void cOptions::onMusicChange(cScrollBox*, Float val) {
    cSoundManager::getInstance()->setMusicVolume(toVolume(val));
    getInstance()->m_music_progress->setProgressCurrentValue(val);
}

void cOptions::onFullScreen(cView*, Bool checked) {
    cSettings::getInstance()->setProperty("graphics", "fullscreen", checked);
    cGraphics::getInstance()->setResetPending(true);
}

void cOptions::onOk(cView*) {
    cView* opener = getInstance()->m_opener;
    getInstance()->discardTransparently();
    if (isValid(opener))
        showScreen(*opener);
}
