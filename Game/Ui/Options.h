#pragma once

#include "Engine/Ui/Back.h"
#include "Engine/Ui/CheckButton.h"
#include "Engine/Ui/TextButton.h"
#include "Engine/core/Singleton.h"
#include "Game/CommonUI/Tips.h"
#include "Game/Types.h"

namespace Engine {
class cProgressFloat;
class cScrollBox;
}  // namespace Engine

/// The player's options: the two volumes and the full screen. Nothing waits for the button at the end: each change
/// works at once, and what it changed is kept by whoever owns it (the sound manager, the settings).
///
/// UI file "UI/Options.xml": the keys of cBack and the child tags "OkButton" (cTextButton), "SoundVolume" and
/// "MusicVolume" (cScrollBox, from 0 to 100), "SoundProgress" and "MusicProgress" (cProgressFloat, likewise) and
/// "FullScreen" (cCheckButton, which may have a "Tip"). Esc does what the button does.
class cOptions : public Engine::cBack, public Engine::cSingleton<cOptions> {
public:
    /// @param opener  the screen to go back to, outlives this one
    explicit cOptions(Engine::cView* opener);

    void loadXML(const Engine::iXML* xml) override;
    void process() override;
    void enabled() override;
    void disabled() override;

private:
    static void onSoundChange(Engine::cScrollBox* self, Float val);
    static void onMusicChange(Engine::cScrollBox* self, Float val);
    static void onFullScreen(Engine::cView* self, Bool checked);
    static void onOk(Engine::cView* view);
    void loadVolumes();

    Engine::cView* m_opener;

    // Children of this view.
    Engine::cTextButton* m_ok;
    Engine::cScrollBox* m_sound_volume;
    Engine::cScrollBox* m_music_volume;
    Engine::cProgressFloat* m_sound_progress;
    Engine::cProgressFloat* m_music_progress;
    cTips<Engine::cCheckButton>* m_full_screen;
};
