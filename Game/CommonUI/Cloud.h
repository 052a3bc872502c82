#pragma once

#include "Engine/Ui/Picture.h"
#include "Game/Types.h"

/// A picture that drifts sideways and comes back on the other side of the screen.
class cCloud : public Engine::cPicture {
public:
    using cPicture::cPicture;

    /// The keys of cPicture, then "Speed": units a second, positive to the right.
    void loadXML(const Engine::iXML* xml) override;
    void process() override;

private:
    Float m_speed = 0.0f;
};
