#pragma once

#include "Engine/Ui/Picture.h"
#include "Game/Types.h"

/// A light that shrinks away and is gone: what the head of a tail leaves behind it.
class cGlowEffect : public Engine::cPicture {
public:
    using cPicture::cPicture;

    /// Lets the light begin there.
    /// @param show_time  seconds that it is seen
    /// @param size       units, of both sides
    void start(const Vector2& position, Float show_time, Float size);
    void process() override;

private:
    Float m_show_time = 0.0f;  ///< seconds left
    Float m_rate = 0.0f;       ///< that it shrinks at, units a second
};
