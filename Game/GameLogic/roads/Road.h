#pragma once

#include <vector>

#include "Game/GameLogic/ArcEnds.h"
#include "Game/GameLogic/LevelObject.h"
#include "Game/GameLogic/Target.h"

namespace Engine {
class cProgressFloat;
}

/// The stretch of the player's road on one arc. The graph is the truth for who may walk there; this is what is seen of
/// it, and what a catapult hits.
class cRoad : public cLevelObject, public aTarget, public cArcEnds {
public:
    explicit cRoad(Engine::cView* parent);

    /// The keys of the level object, then "attack_icon_offset" and the child tag "TileTemplate" (cProgressFloat),
    /// copied for each tile.
    void loadXML(const Engine::iXML* xml) override;
    void saveBinState(Engine::iArch& arch) override;  ///< the two end points
    void loadBinState(Engine::iArch& arch) override;
    void updateView(Bool hide) override;
    Int getType() const override { return objectRoad; }
    Bool isPlayerConnected() const override { return true; }

    using cLevelObject::getPosition;
    void getTargetPosition(Vector2& out, const Vector2& center, Float radius, Bool local) const override;
    void getPosition(Vector2& out, Bool local) const override;  ///< the middle between its ends
    void damage() override;
    Bool inDamageArea(const Vector2& center, Float radius) const override;
    void destroyMe() override;

    virtual DXColor getRoadColor() const;
    /// Lays the tiles between two points of the map; none on less than 0.0001 units. Those that lie there are laid
    /// anew, so that a stretch which grows or moves makes one only where it gets longer by one.
    /// @param reverse  the tiles are filled from their other end
    virtual void createTiles(const Vector2& from, const Vector2& to, const DXColor& color, Bool reverse);

    void setConnectionPoint(Int p0, Int p1);
    Float getRoadLength() const { return m_road_length; }  ///< units
    /// Where a road ends at that point, on the map.
    Vector2 getRoadPointPos(Int point) const;
    void buildProcess(Float fraction);  ///< lays the tiles over that part of the way, 0 to 1
    void deleteTiles();
    const std::vector<Engine::cProgressFloat*>& getTiles() const { return m_tiles; }

protected:
    void calcRoadLength();
    /// The rectangle of the stretch becomes the control's place, so that the whole of it can be hit.
    void setUpRoadBase();

private:
    struct sTileRow;

    void setTileCount(std::size_t count);
    void layTile(Engine::cProgressFloat& tile, const sTileRow& row, Float begin) const;

    Engine::cProgressFloat* m_tile_template;       ///< a child of this view
    std::vector<Engine::cProgressFloat*> m_tiles;  ///< from the road's start; children of this view
    Bool m_tiles_built = false;
    Float m_road_length = 0.0f;  ///< units
};

/// Where a circle meets the stretch from a to b: the middle of the chord, or the one crossing that lies on the stretch.
/// False, and out untouched, where none does.
Bool segmentCircle(const Vector2& center, Float radius, const Vector2& a, const Vector2& b, Vector2& out);

/// Where a catapult of that range aims at a stretch: its middle, or where its range meets the stretch if the middle is
/// out of range.
void getSegmentTarget(const Vector2& center, Float radius, const Vector2& a, const Vector2& b, Vector2& out);
/// Does a hit of that radius touch the stretch?
Bool isSegmentHit(const Vector2& center, Float radius, const Vector2& a, const Vector2& b);
