#pragma once

#include <vector>

#include "Engine/Ui/OverlayButton.h"
#include "Game/CommonUI/ScaleOscillator.h"
#include "Game/Types.h"

namespace Engine {
class cPicture;
class cState;
class cView;
class iXML;
}  // namespace Engine

/// The planks between a gate of the level and the edge of the map, and the way of a caravan over them.
///
/// The planks and the piece that joins them to the land are buttons that light up together, once they are told what a
/// click does. From then on the sign that belongs to them is seen, too.
class cBridgeWay {
public:
    /// @param owner  the tiles become its children
    explicit cBridgeWay(Engine::cView& owner) : m_owner(owner) {}

    /// The child tags "BridgeTile" (cOverlayButton, copied for each tile), "BridgeLeft" (cOverlayButton, the piece on
    /// the land), "BridgeRight" (cPicture) and "BridgeBase" (cScaleOscillator<cPicture>, the sign). All but the tiles
    /// have their places from the gate's.
    void loadXML(const Engine::iXML* xml);
    /// Lays the tiles.
    /// @param gate    on the screen
    /// @param angle   from the gate to the edge, radians; 0 is to the right, a quarter turn down
    /// @param left    x of the map's left edge on the screen, units; right, its right edge
    /// @param margin  how far beyond the edge it runs, units
    void lay(const Vector2& gate, Float angle, Float left, Float right, Float margin);
    void show(Bool show);
    void setTileLook(const Engine::cState& look);  ///< of all planks
    /// Lets the planks listen to the pointer, each with the owner as its parent. Needed after each lay().
    void listen(Engine::cButtonPrototype::CALLBACK on_click, Engine::cButtonPrototype::CALLBACK on_hover,
                Engine::cButtonPrototype::CALLBACK on_unhover);
    void hover(Engine::eButtonState state);  ///< all planks look so
    void pulse();                            ///< the sign catches the eye
    /// From the gate to the far end, as it was laid; units.
    const Vector2& getWay() const { return m_way; }

private:
    Engine::cView& m_owner;
    // Children of the owner; null where the file has none
    Engine::cOverlayButton* m_proto = nullptr;
    Engine::cOverlayButton* m_left = nullptr;
    Engine::cPicture* m_right = nullptr;
    cScaleOscillator<Engine::cPicture>* m_base = nullptr;
    std::vector<Engine::cOverlayButton*> m_tiles;
    Vector2 m_way{0.0f, 0.0f};
    Bool m_is_shown = false;
    Bool m_listens = false;
};

/// How far it is from a point of the screen to the edge of a rectangle around it, in a direction. 0 outside of it.
Float getDistanceToEdge(const Vector2& from, const Vector2& direction, const Vector2& low, const Vector2& high);
