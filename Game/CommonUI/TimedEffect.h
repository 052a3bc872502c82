#pragma once

#include "Game/CommonUI/SimpleEffect.h"

/// An effect that fades in, stays for a while, fades out and is gone. Its times are real ones, whatever the map's
/// speed.
class cTimedEffect : public cSimpleEffect {
public:
    cTimedEffect(Engine::cView* parent, const String& path);

    /// Lets an effect run once where a control of the map is now, in front of it.
    static void play(const String& path, const Engine::cControl& at);

    /// The keys of a picture, then "show_alpha_time", "time", "hide_alpha_time": seconds of the fade in, of full sight
    /// and of the fade out.
    void loadXML(const Engine::iXML* xml) override;
    void process() override;
    void destroyMe() override;

private:
    Float m_show_alpha_time = 0.0f;  ///< seconds left
    Float m_time = 0.0f;             ///< seconds left
    Float m_hide_alpha_time = 0.0f;  ///< seconds left
    Float m_show_rate = 0.0f;        ///< alpha a second
    Float m_hide_rate = 0.0f;        ///< alpha a second
};
