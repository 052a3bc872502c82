#pragma once

#include "Game/GameLogic/buildings/BridgeWay.h"
#include "Game/GameLogic/buildings/Building.h"

class cCaravan;
class cYesNoExt;

/// The way into a level: a caravan comes over its bridge and the first men are born from it. A click on it or on its
/// bridge leads back to the level before, if there is one and the player confirms it.
class cStartPoint : public cBuilding {
public:
    explicit cStartPoint(Engine::cView* parent);

    /// The keys of cBuilding, then "speed" (units a second), "caravan_angle" (degrees), "screen_margin" (units) and the
    /// child tags "Caravan" (cCaravan) and those of cBridgeWay.
    void loadXML(const Engine::iXML* xml) override;
    /// The keys of cBuilding, then "Capacity", "PrevLevel", "MenAmount", "MaxAmount", "Angle" (degrees) and the child
    /// tag "ManCost". Throws "cStartPoint: <n> men are too many" for more than 1000 to begin with.
    void loadXmlState(const Engine::iXML* xml) override;
    void saveBinState(Engine::iArch& arch) override;
    void loadBinState(Engine::iArch& arch) override;
    void setInitState() override;
    void process() override;
    Int getType() const override { return objectStartPoint; }
    String getVisualStateName() const override { return m_coming ? "init_state" : "normal_state"; }
    Int addResourceItems(Int type, Int amount) override;
    /// Beside the goods in store: how many there are, and how many go in.
    void updateInfoTipPrice(sInfoTip& info) override;

    void startCaravan();
    void hideCaravan();
    void showBridge(Bool show) { m_way.show(show); }
    void hoverBridge(Engine::eButtonState state);  ///< its planks look so; nothing on the first level
    /// Asks whether the player wants to go back, over the map, which is locked by then.
    void askToGoBack();

    Int getPrevLevel() const { return m_prev_level; }  ///< -1 on the first level
    Int getMenAmount() const { return m_men_amount; }
    Int getMaxAmount() const { return m_max_amount; }  ///< of men; below 1: no limit
    Int getMenBorn() const { return m_men_born; }      ///< 1 once the first men are there
    const sResourceCargo& getManCost() const { return m_man_cost; }

private:
    static void onGoBackClick(Engine::cView* view);
    static void onGoBackHover(Engine::cView* view);
    static void onGoBackUnHover(Engine::cView* view);
    static void onGoBackConfirmed(Engine::cView* _yesno);
    static void onGoBackDeclided(Engine::cView* _yesno);
    Bool isPointedAt() const;
    void closeQuestion();
    void onCaravanCame();
    void bornStartUpMen();
    void serialize(Engine::iArch& arch);
    void requireMen() const;

    Int m_prev_level = -1;
    Int m_men_amount = 0;
    Int m_max_amount = 0;
    sResourceCargo m_man_cost;
    Float m_angle = 0.0f;  ///< from the gate to the edge of the map, radians
    Int m_init_count = 0;  ///< how often it was brought to life
    Int m_men_born = 0;

    cBridgeWay m_way;
    cCaravan* m_caravan;              ///< a child of this view
    cYesNoExt* m_question = nullptr;  ///< while it is open
    Float m_speed = 0.0f;             ///< of the caravan, units a second
    Float m_caravan_angle = 0.0f;     ///< its picture's, radians
    Float m_screen_margin = 0.0f;     ///< units
    Bool m_coming = false;
};
