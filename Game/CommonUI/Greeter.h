#pragma once

#include "Engine/Ui/Picture.h"
#include "Game/Types.h"

/// A figure that stands about, and now and then does one thing: waves, say.
class cGreeter : public Engine::cPicture {
public:
    using cPicture::cPicture;

    /// The keys of cPicture ("Mesh"; "Animation" and "anim_length" are its standing about), then "GreetAnimation" and
    /// "GreetLength" (seconds of one greeting), "PauseMin" and "PauseMax" (seconds between two; chance says how many).
    /// Without "GreetAnimation" it never greets.
    void loadXML(const Engine::iXML* xml) override;
    void process() override;

private:
    void startPause();
    void startGreeting();
    void play(const Engine::cResourceRef& animation, Float length);

    Engine::cResourceRef m_idle;
    Engine::cResourceRef m_greet;
    Float m_idle_length = 1.0f;   ///< seconds
    Float m_greet_length = 1.0f;  ///< seconds; above 0
    Float m_pause_min = 4.0f;     ///< seconds
    Float m_pause_max = 9.0f;     ///< seconds
    Float m_left = 0.0f;          ///< seconds of what it does now
    Bool m_greeting = false;
};
