#pragma once

#include "Engine/Ui/Picture.h"
#include "Engine/Ui/TaskDealer.h"
#include "Game/Types.h"

/// A piece of the level's scenery: a tile of land or water, a tree, a cloud. It has no part in play, and moves when the
/// map scrolls.
class cLevelBackgroundObject : public Engine::cPicture {
public:
    explicit cLevelBackgroundObject(Engine::cView* parent);
    explicit cLevelBackgroundObject(const Engine::cPicture& prototype);
    ~cLevelBackgroundObject() override;

    virtual void destroyMe() {}  ///< the map's clear() ends it
};

/// Where a cloud may begin: so far outside one of the four edges of the screen. Draws three random numbers.
Vector2 chooseCloudsStart(Float destination);

/// A cloud that crosses the screen from where it begins to the place opposite, and ends there.
///
/// It is one of the children of "Clouds/Clouds.xml", by chance.
class cClouds : public cLevelBackgroundObject, public Engine::cTaskDealer {
public:
    /// Throws "Error load cloud" where the file has none.
    cClouds(Engine::cView* parent, const Vector2& start);

    /// The keys of a picture, then "Speed".
    void loadXML(const Engine::iXML* xml) override;
    void process() override;

    Float getSpeed() const { return m_speed; }
    const Vector2& getTarget() const { return m_target; }
    void end();  ///< it has arrived

private:
    Float m_speed = 0.0f;          ///< units a second
    Vector2 m_target{0.0f, 0.0f};  ///< on the map
};

/// A bird that comes in over one edge of the screen and flies about until it has left it again.
///
/// One of the children of "GameUI/Birds.xml" by chance: the keys of a picture, then "Speed" (units a second),
/// "change_dir_possibility" (it turns once in so many frames), "rotate_angle" (its largest turn, degrees),
/// "shadow_offset" and the child tag "Shadow".
class cBird : public cLevelBackgroundObject {
public:
    /// Throws "Error load bird" where the file has none.
    explicit cBird(Engine::cView* parent);

    void loadXML(const Engine::iXML* xml) override;
    void process() override;
    void destroyMe() override;

private:
    void fly(Float step);
    Bool isInBounds() const;

    Float m_speed = 0.0f;
    Vector2 m_direction{0.0f, 0.0f};  ///< of length 1
    Int m_change_dir_possibility = 0;
    Float m_rotate_angle = 0.0f;  ///< degrees
    Vector2 m_screen_size;
    Engine::cPicture* m_shadow;  ///< a child of this view
    Vector2 m_shadow_offset{0.0f, 0.0f};
};
