#pragma once

#include <vector>

#include "Engine/Ui/AnimButton.h"
#include "Engine/Ui/Back.h"
#include "Engine/Ui/TextButton.h"
#include "Engine/core/Singleton.h"
#include "Game/Types.h"

class cGameMenu;

/// The map of levels: a node for each, from which it is entered, and the land that it lies in.
///
/// It lives as long as the game and owns the tactic map. While a level is played it is hidden; a level rolls out of it
/// and back into it.
/// UI file "GameUI/Strategic/StrategicMap.xml": the keys of cBack and the child tags "MainMenuButton" (cTextButton),
/// "NodeButton" (cAnimButton, copied for each node), "stateAvail", "stateUnavail" (cState, the looks of a node) and
/// "LevelNodes", whose n-th child is level n: "position", "effect_center" (where its level rolls out of), both units,
/// and "initial_scale_factor".
class cStrategicMap : public Engine::cBack, public Engine::cSingleton<cStrategicMap> {
public:
    /// The node of one level.
    class cStartPointInfo : public Engine::cAnimButton {
    public:
        using cAnimButton::cAnimButton;

        void loadLevelSettings(const Engine::iXML* xml);

        Int getLevel() const { return m_level; }
        void setLevel(Int level) { m_level = level; }
        const Vector2& getEffectCenter() const { return m_effect_center; }
        Int getPrevLevel() const { return m_prev_level; }
        void setPrevLevel(Int level) { m_prev_level = level; }

    private:
        Int m_level = -1;
        Int m_prev_level = -1;
        Vector2 m_effect_center{0.0f, 0.0f};
    };

    /// @param parent  the game
    explicit cStrategicMap(Engine::cView* parent);

    void loadXML(const Engine::iXML* xml) override;

    /// Enters a level: as it was left, or anew. Throws what loading it throws.
    void startLevel(Int level, Bool replay);
    /// The same for a player: what is wrong with a level is told him, and noted in the log "levels", and he is back
    /// here.
    void enterLevel(Int level, Bool replay);
    void comeBack();  ///< out of a level
    void updateView();
    void showUI(Bool show);
    void showLevelButton(Int level, Bool show);
    void updateLevelFlags(Int level);
    void setPreviousLevel(Int current_level, Int prev_level);

    // The roll of a level
    Vector2 getEffectCenter(Int level) const;
    void setEffectBegin(Int level, Float time);
    void rollEffect(Float dt, Bool increase);
    void endRoll();

private:
    static void onStartLevel(Engine::cView* node);
    static void onMainMenu(Engine::cView* button);
    cStartPointInfo* findNode(Int level) const;
    void loadNodes(const Engine::iXML& xml);

    // Children of this view.
    Engine::cTextButton* m_main_menu;
    cStartPointInfo* m_node_prototype;
    std::vector<cStartPointInfo*> m_nodes;  ///< by level
    Engine::cState m_state_avail;
    Engine::cState m_state_unavail;
};
