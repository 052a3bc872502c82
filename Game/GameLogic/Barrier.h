#pragma once

#include "Game/CommonUI/InfoTip.h"
#include "Game/GameLogic/ArcEnds.h"
#include "Game/GameLogic/LevelObject.h"
#include "Game/GameLogic/Target.h"
#include "Game/GameLogic/UpgradableUnit.h"

namespace Engine {
class cPicture;
}

/// What stands, or may stand, on an arc between two points: a fence or a bridge road. At level 0 it is a site, at level
/// 1 it stands.
///
/// It is seen as pieces along the arc, those of a site or those of the standing thing, made from two templates.
class cBarrier : public cLevelObject, public aTarget, public cUpgradableUnit, public iExtendedInfoTip, public cArcEnds {
public:
    explicit cBarrier(Engine::cView* parent);

    /// The keys of the level object, then "attack_icon_offset" and the child tag "Upgrades".
    void loadXML(const Engine::iXML* xml) override;
    void saveBinState(Engine::iArch& arch) override;  ///< the two end points
    void loadBinState(Engine::iArch& arch) override;
    void setInitState() override { hide(); }
    void updateView(Bool hide) override;
    Bool isPlayerConnected() const override;  ///< the player's net reaches one of its ends

    using cLevelObject::getPosition;
    void getPosition(Vector2& out, Bool local) const override;  ///< the middle between its ends
    void updateInfoTipCargo(sInfoTip&) override {}
    void updateInfoTipPrice(sInfoTip& info) override;
    Int getUnderPoint() const override { return getP0(); }
    const sResourceCargo& getPrice() const override { return m_price; }
    void setPrice(const sResourceCargo& price) { m_price = price; }  ///< that of its arc
    void upgrade() override;
    Bool degrade(Int amount) override;

    void setConnectionPoint(Int p0, Int p1);
    Bool isViewBuilt() const { return m_view_built; }
    void setViewBuilt(Bool built) { m_view_built = built; }

protected:
    /// The templates: one piece is as long as its picture is wide.
    void loadPieces(const Engine::iXML* xml, const char* site_tag, const char* standing_tag);

private:
    void buildPieces();

    Engine::cPicture* m_site;  ///< a child of this view, as all pieces are
    Engine::cPicture* m_standing;
    std::vector<Engine::cPicture*> m_pieces;
    sResourceCargo m_price;
    Bool m_view_built = false;  ///< the pieces are those of the present level
};
