#pragma once

#include "Game/Types.h"

namespace Engine {
class cControl;
class iXML;
}  // namespace Engine
class cBullet;
class cLevelObject;

/// Something that a catapult can aim at.
///
/// Its two signs, the button to aim with and the icon of a stone on its way, come from "GameLogic/Target.xml" (child
/// tags "TargetButton" and "AttackIcon") and are made when they are first shown. They are children of the object.
class aTarget {
public:
    /// @param owner  what is aimed at; outlives the target
    explicit aTarget(cLevelObject& owner) : m_owner(owner) {}
    virtual ~aTarget() = default;

    /// The key "attack_icon_offset" of the owner.
    void loadTargetXML(const Engine::iXML* xml);

    /// Where its button is put while a catapult of that range aims, on the map; local: on the screen.
    virtual void getTargetPosition(Vector2& out, const Vector2& center, Float radius, Bool local) const;
    /// Its middle on the map; local: on the screen.
    virtual void getPosition(Vector2& out, Bool local) const = 0;
    virtual Bool isEnemy() const { return false; }
    virtual void onTargetSet() {}
    virtual void damage();
    virtual Bool inDamageArea(const Vector2& center, Float radius) const;
    virtual void destroyMe();  ///< the stone on its way loses its target
    virtual void updateView(Bool hide);
    virtual void showTarget(Bool show);
    virtual void showTarget(const Vector2& center, Float radius, Bool show);
    virtual void showAttack(Bool show);
    virtual const Vector2& getAttackIconOffset() const { return m_icon_offset; }
    virtual void setAttackIconOffset(const Vector2& offset) { m_icon_offset = offset; }

    /// Is the pointer on its button?
    Bool isTargetButtonAt(const Vector2& point) const;
    void setBullet(cBullet* bullet) { m_bullet = bullet; }
    cBullet* getBullet() const { return m_bullet; }

protected:
    void takeHit();     ///< what damage() does to any target
    void leaveSight();  ///< what destroyMe() does to any target

private:
    void showSign(Engine::cControl*& sign, const char* tag, const Vector2& position, Bool show);

    cLevelObject& m_owner;
    Engine::cControl* m_target_button = nullptr;
    Engine::cControl* m_attack_icon = nullptr;
    Vector2 m_icon_offset{0.0f, 0.0f};
    cBullet* m_bullet = nullptr;  ///< in flight to it; owned by the view tree
};
