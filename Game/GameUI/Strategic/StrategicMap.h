#pragma once

#include <vector>

#include "Engine/Ui/Back.h"
#include "Engine/Ui/Picture.h"
#include "Engine/Ui/TextButton.h"
#include "Engine/Ui/TextLine.h"
#include "Engine/core/Singleton.h"
#include "Game/CommonUI/Tips.h"
#include "Game/GameUI/Strategic/StrategicRoll.h"
#include "Game/Types.h"

class cYesNoExt;

/// The map of levels: a node for each, from which it is entered, and the land that it lies in.
///
/// It lives as long as the game and owns the tactic map. While a level is played it is hidden; a level rolls out of it
/// and back into it. A node is open, shows its number and the flags of its bridges, or lies under fog.
///
/// UI file "GameUI/Strategic/StrategicMap.xml": the keys of cBack, then "fog_scale_factor" (how fast fog grows in a
/// roll, in parts of how fast land does), "tut_levels_number" (how many of the first levels are lessons),
/// "first_number" (what the first node shows) and the child tags "MainMenuButton" (cTextButton), "MapCaptionPic"
/// (cPicture), "MapCaptionText" (cTextLine), "NodeButton" (cAnimButton with a tip, made for each node), "stateAvail",
/// "stateUnavail" (cState, the looks of a node), "FogPrototypes" (a cPicture each), "NumberPrototype" (cTextLine),
/// "FlagPrototype" (cPicture), "GoldenFlag", "SilverFlag", "BlueFlag" (cState). The places of prototypes are relative
/// to the node. The n-th child of "LevelNodes" is level n: the keys of cStartPointInfo, and "flag0", "flag1" ... the
/// places of its bridges' flags on the map.
/// Throws "Error load fog protype" for a file without fog.
class cStrategicMap : public Engine::cBack, public Engine::cSingleton<cStrategicMap> {
public:
    class cStartPointInfo;

    /// Begins with what is asked at the first launch, if it is that.
    /// @param parent  the game
    explicit cStrategicMap(Engine::cView* parent);

    void loadXML(const Engine::iXML* xml) override;

    virtual Bool isFogShown() const { return m_fog_shown; }
    virtual void setFogShown(Bool shown) { m_fog_shown = shown; }
    virtual Bool areNumbersShown() const { return m_numbers_shown; }
    virtual void setNumbersShown(Bool shown) { m_numbers_shown = shown; }

    /// Has the player never been here? As long as he has no file of his own and has not seen the beginning.
    static Bool isTheFirstLaunch();
    /// Are the first levels open, each with a flag worth that mark or more?
    Bool isAllLevelsOpened(Int mark, Int count) const;

    /// Enters a level: as it was left, or anew. Throws what loading it throws.
    void startLevel(Int level, Bool replay);
    /// The same for a player: what is wrong with a level is told him, and noted in the log "levels", and he is back
    /// here. If it is what was saved of it, he is asked whether it may begin anew.
    void enterLevel(Int level, Bool replay);
    void comeBack();  ///< out of a level
    void updateView();
    void showUI(Bool show);
    void showLevelButton(Int level, Bool show);
    /// Flags for the bridges of the level in play, as they are now.
    void updateLevelFlags(Int level);
    void setPreviousLevel(Int current_level, Int prev_level);
    void completeTutorialLevels();
    Engine::cState getFlagState(Int mark) const;  ///< for an eMark; a look of nothing for none

    // The roll of a level
    Vector2 getEffectCenter(Int level) const;
    void setEffectBegin(Int level, Float time, Bool rolls_in);
    void rollEffect(Float dt, Bool increase);
    void endRoll();

private:
    using NODE = cTips<cStartPointInfo>;
    using ANSWER = void (*)(Engine::cView* _yesno);

    static void onStartLevel(Engine::cView* node);
    static void onReplayConfirmed(Engine::cView* _yesno);
    static void onReplayDeclided(Engine::cView* _yesno);
    static void onSkipTutorialConfirmed(Engine::cView* _yesno);
    static void onSkipTutorialDeclided(Engine::cView* _yesno);
    static void onBeginAnewConfirmed(Engine::cView* _yesno);
    static void onBeginAnewDeclided(Engine::cView* _yesno);
    static void onMainMenu(Engine::cView* button);

    static const char* getDefinitionFile() { return "GameUI/Strategic/StrategicMap.xml"; }
    void loadFogPrototypes(const Engine::iXML& xml);
    void loadNodes(const Engine::iXML& xml);
    NODE* makeNode(const Engine::iXML& map, const Engine::iXML& settings, Int level);
    void loadSavedLevel(NODE& node, const Engine::iXML& settings);
    void addFlag(NODE& node, const Engine::iXML& settings, Int bridge, Int mark);
    void saveOriginalSizes();
    NODE* findNode(Int level) const;
    void onEndComics();
    void ask(const Engine::String& text_id, Int level, ANSWER on_yes, ANSWER on_no);
    Int closeQuestion();

    Float m_fog_scale_factor = 1.0f;
    Int m_tut_levels_number = 0;
    Int m_first_number = 0;
    Bool m_fog_shown = true;
    Bool m_numbers_shown = true;
    Engine::cState m_state_avail;
    Engine::cState m_state_unavail;
    Engine::cState m_golden_flag;
    Engine::cState m_silver_flag;
    Engine::cState m_blue_flag;
    cStrategicRoll m_roll;
    Int m_asked_level = -1;  ///< what the open question is about

    // Children of this view.
    Engine::cTextButton* m_main_menu;
    Engine::cPicture* m_caption_picture;
    Engine::cTextLine* m_caption_text;
    Engine::cPicture* m_flag_prototype;
    Engine::cTextLine* m_number_prototype;
    std::vector<Engine::cPicture*> m_fog_prototypes;
    std::vector<NODE*> m_nodes;       ///< by level
    cYesNoExt* m_question = nullptr;  ///< no child; while it is open
};
