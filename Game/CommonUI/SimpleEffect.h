#pragma once

#include "Game/GameUI/Tactic/LevelBackgroundObject.h"

/// A picture that moves by itself over the level and decorates an event: dust, sparks.
///
/// A child of a level object goes where that goes, and ends with it. Any other is a piece of scenery: it scrolls with
/// the map and ends, at the latest, with the level. It is shown and placed by whoever makes it; the place of the file
/// counts from there.
class cSimpleEffect : public cLevelBackgroundObject {
public:
    /// Sets itself up from a file of "Effects/": the keys of a picture.
    cSimpleEffect(Engine::cView* parent, const String& path);
    ~cSimpleEffect() override;

protected:
    /// Not yet set up.
    explicit cSimpleEffect(Engine::cView* parent);
};
