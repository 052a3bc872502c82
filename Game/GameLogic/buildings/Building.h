#pragma once

#include <vector>

#include "Game/CommonUI/InfoTip.h"
#include "Game/GameLogic/ArrangementUnit.h"
#include "Game/GameLogic/CargoStorage.h"
#include "Game/GameLogic/FieldObject.h"
#include "Game/GameLogic/LevelObject.h"
#include "Game/GameLogic/Target.h"

namespace Engine {
class cPicture;
}
class cWayPoint;

/// A level object on one or more way points, with a store and a ring of men round it.
///
/// The first of its points is where men go. Its foundation and its shadow lie flat under everything that stands,
/// whatever the building's depth.
class cBuilding : public cFieldObject<cLevelObject>,
                  public aTarget,
                  public cArrangementUnit,
                  public iExtendedInfoTip,
                  public cCargoStorage {
public:
    using BUILDINGS = std::vector<cBuilding*>;

    /// All that live, in the order of their creation.
    static const BUILDINGS& getStorage() { return getList(); }
    /// Empties the list for a level that ends; the buildings themselves are discarded by then.
    static void clearStorage() { getList().clear(); }

    explicit cBuilding(Engine::cView* parent);
    ~cBuilding() override;

    /// The keys of the field object, then "ellipse_a" and "ellipse_b" (half axes of the ring, units),
    /// "arrangement_delta" (radians), "entrance_angle" (degrees), "attack_icon_offset", and the child tags "Base",
    /// "Shadow" (cPicture each) and "CargoProgress".
    void loadXML(const Engine::iXML* xml) override;
    /// The keys "Position" and those of the goods, and the child tag "Points" with an "index" for each point under it.
    /// Throws "cBuilding::loadXmlState(): no point <index> under the building" for an index that is none, "... two
    /// buildings on point <index>", and "cBuilding: <n> goods in one store are too many" for more than 100000.
    void loadXmlState(const Engine::iXML* xml) override;
    void saveBinState(Engine::iArch& arch) override;
    void loadBinState(Engine::iArch& arch) override;
    void setInitState() override;
    void updateView(Bool hide) override;
    void updateConnections() override;
    void destroyMe() override;
    void hovered() override;
    void unhovered() override;
    void clicked() override;  ///< one that the net does not reach yet orders a road to itself

    using cLevelObject::getPosition;
    void getPosition(Vector2& out, Bool local) const override;
    Bool isEnemy() const override { return isEnemyBuilding(); }

    void getEllipsePosition(Vector2& out, Float angle) const override;
    Float getRadius() const override { return m_ellipse_a; }
    void getCenter(Vector2& out) const override { out = m_center; }
    Bool hasEllipse() const override { return true; }

    void updateInfoTipCargo(sInfoTip& info) override;
    void updateInfoTipPrice(sInfoTip& info) override;

    /// Notes the building on that point, whose way point hides. True unless it is a water point.
    virtual Bool initUnderWayPoint(Int index);
    /// The look it should have now; empty for none.
    virtual String getVisualStateName() const { return {}; }
    virtual void updateVisualState();
    /// The foundation takes the look "<id>_base", or "common_base" if the object has none of that name.
    virtual void setBackgroundVisualState(const String& id);

    const std::vector<Int>& getPoints() const { return m_points; }
    Int getUnderPoint() const { return m_points.empty() ? -1 : m_points.front(); }
    cWayPoint* getUnderWayPoint() const;  ///< null without a point
    Bool isOnPoint(Int point) const;
    Bool isStore() const;     ///< a place to bring goods to: a warehouse or the start point
    Bool isProvider() const;  ///< its goods are the player's to spend: a store or a mill
    void connect();           ///< marks every point under it as the player's
    void clearUnderPoints();  ///< its points forget it, their way points show again
    Float getDistance() const { return m_distance; }
    void setDistance(Float distance) { m_distance = distance; }
    const Vector2& getMapCenter() const { return m_center; }
    Float getEccentricity() const { return m_eccentricity; }
    Float getFocusGap() const { return m_focus_gap; }

protected:
    void standOn(Int point);  ///< stands there alone, without being the point's building
    void vanish();            ///< ends it, with nothing said to anyone

private:
    static BUILDINGS& getList();
    void place(const Vector2& center);
    void requirePoint(Int index, const char* where) const;
    void requireGoods() const;

    std::vector<Int> m_points;
    Vector2 m_center{0.0f, 0.0f};  ///< on the map
    Engine::cPicture* m_base;      ///< a child of this view
    Engine::cPicture* m_shadow;    ///< a child of this view
    Float m_ellipse_a = 0.0f;      ///< units
    Float m_ellipse_b = 0.0f;      ///< units
    Float m_eccentricity = 0.0f;   ///< sqrt(a^2 - b^2) / a
    Float m_focus_gap = 0.0f;      ///< (1 - eccentricity) * a, units
    Bool m_has_entrance = false;
    Float m_entrance_angle = 0.0f;  ///< radians
    Float m_distance = 0.0f;        ///< of the last getSortedResourceProviders(); units
};
