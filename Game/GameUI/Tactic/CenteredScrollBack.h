#pragma once

#include "Engine/Ui/ScrollBack.h"
#include "Game/Types.h"

/// The scrolling panel of a level. It shows no arrows; the pointer at the edge, or the right hand on the land, is
/// enough.
class cCenteredScrollBack : public Engine::cScrollBack {
public:
    using cScrollBack::cScrollBack;

    /// The keys of cScrollBack, then "BufferZone".
    void loadXML(const Engine::iXML* xml) override;

    /// Moves the panel, and what is registered with it, by so many units, as far as the map reaches.
    void dragMap(Float dp);
    void dragRegisteredControls(const Vector2& vdp);

private:
    Float m_buffer_zone = 0.0f;
};
