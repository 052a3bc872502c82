#pragma once

#include <vector>

#include "Engine/Ui/ButtonPrototype.h"
#include "Game/Types.h"

namespace Engine {
class cOverlayButton;
class cPicture;
class cView;
class iXML;
}  // namespace Engine

/// The planks between a gate of the level and the edge of the map, and the way of a caravan over them.
///
/// The planks are buttons that light up together, once they are told what a click does.
class cBridgeWay {
public:
    /// @param owner  the tiles become its children
    explicit cBridgeWay(Engine::cView& owner) : m_owner(owner) {}

    /// The child tags "BridgeTile" (copied for each tile), "BridgeRight" and "BridgeBase".
    void loadXML(const Engine::iXML* xml);
    /// Lays the tiles.
    /// @param gate    on the screen
    /// @param angle   from the gate to the edge, radians; 0 is to the right, a quarter turn down
    /// @param left    x of the map's left edge on the screen, units; right, its right edge
    /// @param margin  how far beyond the edge it runs, units
    void lay(const Vector2& gate, Float angle, Float left, Float right, Float margin);
    void show(Bool show);
    /// Lets the planks listen to the pointer, each with the owner as its parent. Needed after each lay().
    void listen(Engine::cButtonPrototype::CALLBACK on_click, Engine::cButtonPrototype::CALLBACK on_hover,
                Engine::cButtonPrototype::CALLBACK on_unhover);
    void hover(Engine::eButtonState state);  ///< all planks look so
    /// From the gate to the far end, as it was laid; units.
    const Vector2& getWay() const { return m_way; }
    Engine::cPicture* getBase() const { return m_base; }

private:
    Engine::cView& m_owner;
    Engine::cOverlayButton* m_proto = nullptr;
    Engine::cPicture* m_right = nullptr;
    Engine::cPicture* m_base = nullptr;
    std::vector<Engine::cOverlayButton*> m_tiles;
    Vector2 m_way{0.0f, 0.0f};
};

/// How far it is from a point of the screen to the edge of a rectangle around it, in a direction. 0 outside of it.
Float getDistanceToEdge(const Vector2& from, const Vector2& direction, const Vector2& low, const Vector2& high);
