#include "Tools/datatool/KnownKeys.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <map>
#include <set>
#include <sstream>
#include <vector>

#include "Engine/core/Keys.h"
#include "Engine/core/TextConvert.h"
#include "Tools/datatool/ResourceLog.h"

namespace Datatool {

using namespace Engine;

namespace {

/// What one class reads. All are lists of words.
struct sClass {
    const char* name;
    const char* bases;  ///< classes whose keys and children it reads too
    const char* keys;
    /// Child tags and their classes, "Tag:Class"; with "*" behind it each child of the tag is of that class, whatever
    /// it is called. The tag "*" is any child. "#" in a tag or key stands for a number.
    const char* children;
};

constexpr sClass classes[] = {
    // The engine's views
    {"View", "", "Visible Enable AbsoluteEnable TranparencySpeed", ""},
    {"State", "", "Picture Mesh Animation anim_length PlayAnimation frames_count anim_loop anim_columns anim_rows", ""},
    {"Control", "View State",
     "deep position size angle color alpha RenderType InverceX InverceY DoubleAnimRender pitch yaw scale "
     "LightingEnable "
     "LightTable AmbientColor SpecularColor EmissiveColor Power AnimBlendTime IsAniblend",
     ""},
    {"Picture", "Control", "", ""},
    {"Sounds", "", "Click Hover", ""},
    {"ButtonPrototype", "Picture", "texture_mask IsDeepProcessing SoundOnUnclick", "Sounds:Sounds"},
    {"Button", "ButtonPrototype", "texture_pressed texture_hover texture_disabled", ""},
    {"AnimButton", "ButtonPrototype", "frame_normal frame_pressed frame_hover frame_disabled", ""},
    {"OverlayButton", "AnimButton", "OverlayColor", ""},
    {"CheckButton", "Button", "Checked", "Tick:Picture"},
    {"TextLine", "Control", "String Font Texture SpaceWidth Multiplier Align Localized IgnoreRightToLeft", ""},
    {"TextBox", "TextLine", "MaxLength BlinkingPeriod", "Caret:Picture"},
    {"PriceText", "TextLine", "DegreeOffset", ""},
    {"MultilineText", "Control", "String Interlinear Localized VerticalAlign WrapText WrapStyle", "Text:TextLine"},
    {"BtnText", "PriceText", "Offset Speed", ""},
    {"TextButton", "AnimButton", "UseTextPosition", "Text:BtnText"},
    {"ProgressFloat", "Picture", "ProgressMaxValue ProgressCurrentValue Side", ""},
    {"ScrollBox", "Picture", "Layout Min Max Value", "Slider:Button"},
    {"ListStrings", "", "Count", "*:ListString"},
    {"ListString", "", "String", ""},
    {"ListBox", "View", "Interlinear MaxRows TopLeft BottomRight",
     "UpButton:AnimButton DownButton:AnimButton Button:TextButton Strings:ListStrings"},
    {"Back", "View", "", "Background:Picture* BackText:TextLine* BackMultitext:MultilineText*"},
    {"AlphaBack", "Back", "ShowTime HideTime", ""},
    {"ScrollBack", "Back", "MapWidth MoveSpeed MoveAccel CursorMoveZone", "MovePicLeft:Picture MovePicRight:Picture"},
    {"CenteredScrollBack", "ScrollBack", "BufferZone", ""},
    {"QuestionText", "TextLine MultilineText", "", ""},  // each of two classes takes its own from it
    {"YesNo", "Back", "", "Text:QuestionText YesButton:TextButton NoButton:TextButton"},

    // What decorates the game's
    {"Oscillator", "", "osc_scale_min_value osc_scale_max_value osc_scale_period osc_scale_time", ""},
    {"Tip", "", "WaitTime TipsAlphaChangeTime Position Offset",
     "Image:Picture UpLeftImage:State UpRightImage:State DownLeftImage:State DownRightImage:State Cargo:PriceList "
     "Price:PriceList PriceListExt:PriceList CargoText:TextLine PriceText:TextLine Texts:TextLine* Pics:Picture* "
     "MultiTexts:MultilineText*"},
    {"Tips", "", "", "Tip:Tip"},
    {"ProgressFloatExt", "ProgressFloat", "", "Back:Picture"},
    {"IconText", "TextLine", "HasDisableView BlinkTime BlinkPeriod", "Icon:Picture"},
    {"PriceList", "Control",
     "DisableTextColor EnableTextColor ShowIfZero ShowWithX ShowWithPlus ShowOnlyIcons Offset Base Compact "
     "cursor_offset",
     "List:IconText*"},
    {"Cloud", "Picture", "Speed", ""},
    {"Greeter", "Picture", "GreetAnimation GreetLength PauseMin PauseMax", ""},
    {"TimedEffect", "Picture", "time show_alpha_time hide_alpha_time", ""},
    {"Particle", "Picture", "Gravity LiveTime MaxScale Speed", ""},
    {"Sprinkle", "Picture", "Frequency LiveTime RandAngle", "Particle:Particle"},
    {"TailColor", "", "Color", ""},
    {"Tail", "Picture", "Frequency LiveTime Radius Divergence GlowShowTime GlowSize Color",
     "Particle:Particle ColorTable:TailColor*"},
    {"NewControlEffect", "Sprinkle", "EmittersCount ParticlesCount SpeedModule Sound", ""},
    {"FlyingNumber", "Control", "offset random_radius fly_up_dir fly_up_time DisableTextColor",
     "Number:TextLine Icons:Picture*"},

    // Screens
    {"FixedBack", "Back", "", "Clouds:Cloud* Mill:OverlayButton Sails:Picture Man:Greeter"},
    {"Music", "", "Sound", ""},
    {"LogLoad", "Back", "", "Progress:ProgressFloat MainMenuMusic:Music GameMusic:Music"},
    {"TipTextButton", "TextButton Tips", "", ""},
    {"MainMenu", "Back", "",
     "StartButton:TipTextButton OptionsButton:TipTextButton ChangeUserButton:TipTextButton CreditsButton:TipTextButton "
     "ExitButton:TipTextButton UserText:TextLine UserName:TextLine"},
    {"GameMenu", "Back", "",
     "ContinueButton:TipTextButton OptionsButton:TipTextButton HelpButton:TipTextButton ReplayButton:TipTextButton "
     "MapButton:TipTextButton MainMenuButton:TipTextButton"},
    {"TipCheckButton", "CheckButton Tips", "", ""},
    {"Options", "Back", "",
     "SoundVolume:ScrollBox SoundProgress:ProgressFloat MusicVolume:ScrollBox MusicProgress:ProgressFloat "
     "FullScreen:TipCheckButton OkButton:TextButton"},
    {"Credits", "Back", "", "ReturnButton:TextButton"},
    {"HelpPage", "View", "", "Pictures:Picture* Texts:TextLine*"},
    {"Help", "Back", "", "Pages:HelpPage* PrevButton:TextButton NextButton:TextButton OkButton:TextButton"},
    {"NewProfile", "Back", "", "PodlogkaPodImia:Picture NameEdit:TextBox Texts:TextLine* OkButton:TextButton"},
    {"SelectProfile", "Back", "StringOK StringNew StringConfirm",
     "BigLogo:Picture EnterNameText:TextLine PodlogkaPodImia:Picture NameEdit:TextBox UserList:ListBox "
     "DeleteButton:TextButton ExitButton:TextButton OkButton:TextButton"},
    {"YesNoExit", "Back", "",
     "Text:TextLine Bee0:Picture Bee1:Picture Bee2:Picture YesButton:TextButton NoButton:TextButton"},
    {"LevelNode", "", "position effect_center initial_scale_factor flag#", ""},
    {"StrategicMap", "Back", "fog_scale_factor tut_levels_number first_number",
     "MainMenuButton:TipTextButton MapCaptionPic:Picture MapCaptionText:TextLine NodeButton:NodeButton "
     "LevelNodes:LevelNode* stateAvail:State stateUnavail:State FogPrototypes:Picture* NumberPrototype:TextLine "
     "FlagPrototype:Picture GoldenFlag:State SilverFlag:State BlueFlag:State"},
    {"NodeButton", "AnimButton Tips", "", ""},

    // The level's map and its scenery
    {"TacticMap", "CenteredScrollBack",
     "global_pitch man_idle_time CloudsPeriod CloudsPossibility CloudsDestination BirdsPossibility game_speed_period "
     "max_game_speed road_building_speed anti_glue_distance anti_glue_speed tasks_process_delay passby_distance "
     "push_off_distance passby_buffer_zone push_off_time pray_time disappear_speed new_level_effect_time "
     "new_level_alpha_factor new_level_startup_delta new_level_show_bridges new_level_hide_bridges land_base_dir "
     "top_tile_prefix bottom_tile_prefix",
     "RoadCost:Cargo IdolIcon:Picture CatapultIcon:Picture DeepWater:Picture BottomTile:Picture NearshoreWater:Picture "
     "TopTile:Picture"},
    {"Clouds", "", "", "*:Cloud"},
    {"Bird", "Picture", "Speed change_dir_possibility rotate_angle shadow_offset", "Shadow:Picture"},
    {"Birds", "", "", "*:Bird"},

    {"PanelButton", "AnimButton Tips", "", ""},
    {"BuyButton", "TextButton", "", "Price:IconText"},
    {"PanelBuyButton", "BuyButton Oscillator Tips", "", ""},
    {"ControlPanel", "Back", "CapacityWithMoney",
     "GlobalResources:PriceList ResourceCapacity:TextLine MenAmount:IconText MainMenuButton:PanelButton "
     "GoBackButton:PanelButton "
     "BuyManButton:PanelBuyButton IdolButton:PanelBuyButton CatapultButton:PanelBuyButton Bar:AnimButton"},

    // Level objects, their definition files
    {"Cargo", "", "Money Food Wood Stone Iron", ""},
    {"Look", "State", "id", ""},
    {"LevelObject", "OverlayButton Oscillator Tips", "", "States:Look*"},
    {"FieldObject", "", "HeightOffset", ""},
    {"AttackedObject", "LevelObject", "attack_icon_offset", ""},
    {"TicksHolder", "", "tick_offset", "TickProto:Picture"},
    {"Upgrade", "Cargo", "UpgradeNumber UpgradeTime MenAmount Capacity texture_mask mask_offset", ""},
    {"MillUpgrade", "Upgrade", "MiningTime", ""},
    {"IdolUpgrade", "Upgrade", "DamageRadius Prey Height", ""},
    {"CatapultUpgrade", "Upgrade", "DamageRadius Height", "ChargeCargo:Cargo"},
    {"WayPoint", "AttackedObject FieldObject", "arrangement_delta arrangement_radius center_offset distance_to_gates",
     "Back:Picture EnemyGates:Picture Gates:Picture RoadPrice:PriceList"},
    {"Road", "AttackedObject", "alfa_param disabled_color", "TileTemplate:ProgressFloat Progress:ProgressFloatExt"},
    {"Barrier", "AttackedObject", "", "Upgrades:Upgrade* UpgradeTick:ProgressFloatExt"},
    {"Fence", "Barrier", "default_building_time disabled_color gate_gap",
     "TileFence:AnimButton TileFencePlace:AnimButton FenceTower:AnimButton"},
    {"BridgeRoad", "Barrier", "damaged_tile_length",
     "TileBridge:AnimButton TileBridgePlace:AnimButton LeftBridge:AnimButton RightBridge:AnimButton "
     "LeftBridgeDamaged:AnimButton RightBridgeDamaged:AnimButton"},
    {"Building", "AttackedObject FieldObject", "ellipse_a ellipse_b arrangement_delta entrance_angle",
     "Base:Picture Shadow:Picture CargoProgress:ProgressFloatExt"},
    {"PulsingButton", "OverlayButton Oscillator", "", ""},
    {"UpgradeButton", "PulsingButton Tips", "", ""},
    {"UpgradableBuilding", "Building", "",
     "Progress:ProgressFloatExt UpgradeButton:UpgradeButton UpgradeTick:Picture Bomb:Picture "
     "BombProgress:ProgressFloatExt "
     "Upgrades:Upgrade*"},
    {"Warehouse", "UpgradableBuilding", "cargo_levels_amount", "Goods:Picture"},
    {"MenOffset", "", "id offset angle", ""},
    {"Mill", "UpgradableBuilding", "loading_bay_angle cargo_levels_amount",
     "Upgrades:MillUpgrade* UnloadButton:PulsingButton UnloadTick:TicksHolder MiningTick:TicksHolder "
     "MiningManProto:Picture MiningManTool:Picture MenOffsets:MenOffset*"},
    {"Idol", "UpgradableBuilding", "alfa_param disabled_color delta_start tooltip_preys_offset pray_sound_time",
     "Upgrades:IdolUpgrade*"},
    {"Catapult", "UpgradableBuilding", "bullet_speed turn_speed", "Bullet:Picture DamageArea:Picture"},
    {"PlayerCatapult", "Catapult", "alfa_param disabled_color destroy_icons_offset", "Upgrades:CatapultUpgrade*"},
    {"EnemyCatapult", "Catapult", "catapult_height target_angle_delta", ""},
    {"CaravanButton", "OverlayButton Oscillator Tips", "", ""},
    {"PulsingPicture", "Picture Oscillator", "", ""},
    {"TipPicture", "Picture Tips", "", ""},
    {"CaravanWay", "", "speed caravan_angle screen_margin",
     "Caravan:CaravanButton BridgeTile:OverlayButton BridgeLeft:OverlayButton BridgeRight:Picture "
     "BridgeBase:PulsingPicture"},
    {"Bridge", "UpgradableBuilding CaravanWay", "cargo_tip_offset cargo_levels_amount flag_entry",
     "Flag:TipPicture TimeProgress:ProgressFloatExt Clock:TextLine DbgClock:TextLine Goods:Picture"},
    {"StartPoint", "Building CaravanWay", "", ""},
    {"Bunker", "Building", "random_start random_delay visible_targets_amount", "Progress:ProgressFloatExt"},
    {"Market", "Building", "random_period random_duration progress_panel_pos progress_panel_offset", ""},
    {"MarketTask", "TicksHolder", "", "Upgrades:Upgrade* Progress:ProgressFloatExt"},
    {"TradeButton", "PanelBuyButton", "", "Icon:Picture"},
    {"ShopMenu", "Back", "upgrade_tasks_distance upgrade_price_offset market_tasks_distance market_tasks_columns",
     "UpgradeTaskButton:TradeButton MarketTaskButtonMany:TradeButton MarketTaskButtonOne:TradeButton "
     "SrcPriceList:PriceList DstPriceList:PriceList UpgradesText:TextLine MarketText:TextLine NothingText:TextLine "
     "ContinueButton:TextButton"},
    {"Port", "Market", "mask_angle", "ShipProgress:ProgressFloatExt"},
    {"Man", "LevelObject FieldObject",
     "speed_by_road cross_country_speed speed_with_cargo turn_distance delta_yaw kick_delta default_capacity "
     "walk_animation_speed exchange_goal_buf_time acceleration_factor max_acceleration",
     "StolenCargo:PriceList Tool:Picture Shadow:Picture"},
    {"EnemyMan", "Man", "destroy_road_speed walk_and_pray_anim_amount", "Flag:Picture"},
    {"Target", "", "", "TargetButton:Picture AttackIcon:Picture"},

    // LevelMap.lvl
    {"LevelMap", "", "", "*:Level"},
    {"Level", "", "Size", "Points:Point* Arcs:Arc* Buildings:Placed* BackGround:Tile*"},
    {"Point", "", "Pos Opt", ""},
    {"Arc", "Cargo", "p1 p2 Type", ""},
    {"Tile", "Picture", "Type", ""},
    {"UnderPoint", "", "index", ""},
    {"Placed", "Cargo", "Type Position", "Points:UnderPoint*"},  // more by its type: see getClassOf()
    {"PlacedUpgradable", "Placed", "Level MinLevel", ""},
    {"PlacedStartPoint", "Placed", "Capacity PrevLevel MenAmount MaxAmount Angle", "ManCost:Cargo"},
    {"PlacedBridge", "PlacedUpgradable", "BridgeNumber NextLevel Angle GoldTime SilverTime", "Upgrades:Upgrade*"},
    {"EnemyTask", "", "id depends goal_type task_parameter goal_src goal_dst start_time delay repeat", ""},
    {"PlacedBunker", "Placed", "", "Tasks:EnemyTask*"},
    {"PlacedCatapult", "PlacedUpgradable", "start_time delay repeat is_arc src_point dst_point", ""},
    {"Trade", "", "index id depends start_time length delay repeat product_id dock_number",
     "src_cargo:Cargo dst_cargo:Cargo"},
    {"PlacedMarket", "Placed", "Ordered Angle", "Tasks:Trade*"},

    // Tables
    {"Constants", "", "",
     "game:GameConstants graphics:GraphicsConstants Time:TimeConstants lightConfig:LightConfig lights#:Lights"},
    {"GameConstants", "", "app_directory profiles window_title DumpStrings tactic_log TTFUsage RightToLeftEnable", ""},
    {"GraphicsConstants", "", "only_windowed back_color sys_font_color show_fps show_triangles show_cursor_pos", ""},
    {"TimeConstants", "", "MinFps MaxFps", ""},
    {"LightConfig", "", "count", ""},
    {"Lights", "LightConfig",
     "ambient light_#_type light_#_diffuse light_#_specular light_#_ambient light_#_position light_#_direction "
     "light_#_range light_#_falloff light_#_attenuation# light_#_theta light_#_phi",
     ""},
    {"Settings", "", "", "graphics:GraphicsSettings Sound:SoundSettings"},
    {"GraphicsSettings", "", "width height fullscreen ShowSysCursor reserve_sprite_count", ""},
    {"SoundSettings", "", "Music Sound", ""},
    {"Translations", "", "", "*:Translation"},
    {"Translation", "", "", "text:Words translation:Words"},
    {"Words", "", "", ""},
    {"Product", "", "id", ""},
    {"Game", "View", "", "StartProducts:Product*"},
    {"NamedText", "", "id value", ""},
    {"NamedTexts", "", "", "Strings:NamedText*"},
    {"NamedSound", "", "id path", ""},
    {"GameSounds", "", "", "Sounds:NamedSound*"},
    {"FontDescription", "", "Files Size Outline OutlineColor", ""},
};

struct sDocument {
    std::string_view file;  ///< "*" at the end of a folder stands for all documents of it
    const char* reader;
    bool is_optional = false;  ///< the game does without it
};

constexpr sDocument documents[] = {
    {"Game.xml", "Game"},
    {"GameStrings.xml", "NamedTexts"},
    {"YesNoStrings.xml", "NamedTexts"},
    {"LevelMap.lvl", "LevelMap"},
    {"Clouds/Clouds.xml", "Clouds"},
    {"Effects/BuildFenceEffect.xml", "Picture"},
    {"Effects/BuildRoadEffect.xml", "Picture"},
    {"Effects/DestroyRoadEffect.xml", "Picture"},
    {"Effects/ExplosionEffect.xml", "TimedEffect"},
    {"Effects/FlyingNumber.xml", "FlyingNumber"},
    {"Effects/KillEnemyEffect.xml", "TimedEffect"},
    {"Effects/MakeUpgradeEffect.xml", "Picture"},
    {"Effects/NewProductEffect.xml", "TimedEffect"},
    {"Effects/UpAvailEffect.xml", "NewControlEffect"},
    {"Fonts/*", "FontDescription", true},
    {"GameLogic/Bridge.xml", "Bridge"},
    {"GameLogic/Bullet.xml", "Picture"},
    {"GameLogic/Bunker.xml", "Bunker"},
    {"GameLogic/DamagedRoad.xml", "Road"},
    {"GameLogic/EnemyBridgeRoad.xml", "BridgeRoad"},
    {"GameLogic/EnemyCatapult.xml", "EnemyCatapult"},
    {"GameLogic/EnemyFence.xml", "Fence"},
    {"GameLogic/EnemyMan.xml", "EnemyMan"},
    {"GameLogic/FoodMill.xml", "Mill"},
    {"GameLogic/FriendMan.xml", "Man"},
    {"GameLogic/Idol.xml", "Idol"},
    {"GameLogic/IronMill.xml", "Mill"},
    {"GameLogic/MarketTask.xml", "MarketTask"},
    {"GameLogic/PlayerBridgeRoad.xml", "BridgeRoad"},
    {"GameLogic/PlayerCatapult.xml", "PlayerCatapult"},
    {"GameLogic/PlayerFence.xml", "Fence"},
    {"GameLogic/Port.xml", "Port"},
    {"GameLogic/Road.xml", "Road"},
    {"GameLogic/RoadEnemy.xml", "Road"},
    {"GameLogic/Shop.xml", "Market"},
    {"GameLogic/ShopMenu.xml", "ShopMenu"},
    {"GameLogic/StartPoint.xml", "StartPoint"},
    {"GameLogic/StoneMill.xml", "Mill"},
    {"GameLogic/Target.xml", "Target"},
    {"GameLogic/Tip.xml", "Tip"},
    {"GameLogic/Warehouse.xml", "Warehouse"},
    {"GameLogic/WayPoint.xml", "WayPoint"},
    {"GameLogic/WoodMill.xml", "Mill"},
    {"GameUI/Birds.xml", "Birds"},
    {"GameUI/ControlPanel.xml", "ControlPanel"},
    {"GameUI/Strategic/StrategicMap.xml", "StrategicMap"},
    {"GameUI/TacticMap.xml", "TacticMap"},
    {"Sounds/GameSounds.xml", "GameSounds"},
    {"sys/constants.xml", "Constants"},
    {"sys/settings.xml", "Settings"},
    {"sys/strings.xml", "Translations", true},
    {"UI/Credits.xml", "Credits"},
    {"UI/FixedBack.xml", "FixedBack"},
    {"UI/GameMenu.xml", "GameMenu"},
    {"UI/Help.xml", "Help"},
    {"UI/Load.xml", "LogLoad"},
    {"UI/MainMenu.xml", "MainMenu"},
    {"UI/NewUser.xml", "NewProfile"},
    {"UI/Options.xml", "Options"},
    {"UI/SelectUser.xml", "SelectProfile"},
    {"UI/YesNo.xml", "YesNo"},
    {"UI/YesNoExit.xml", "YesNoExit"},
};

/// What stands on a level reads more than all of its kind do, by its "Type".
constexpr std::array<const char*, 18> placed_classes{
    "Placed",           "Placed",           "Placed",           "Placed",           "Placed",
    "PlacedUpgradable", "PlacedUpgradable", "PlacedCatapult",   "PlacedStartPoint", "PlacedUpgradable",
    "PlacedUpgradable", "PlacedUpgradable", "PlacedUpgradable", "PlacedUpgradable", "PlacedBridge",
    "PlacedBunker",     "PlacedMarket",     "PlacedMarket"};

std::vector<String> splitWords(const char* text) {
    std::istringstream words{std::string(text)};
    std::vector<String> res;
    for (std::string word; words >> word;)
        res.emplace_back(word);
    return res;
}

/// "light_12_type" as "light_#_type".
String maskNumbers(std::string_view name) {
    String res;
    for (const char c : name) {
        if (c < '0' || c > '9')
            res.push_back(c);
        else if (res.empty() || res.back() != '#')
            res.push_back('#');
    }
    return res;
}

/// Are two names one inserted, left out, changed or swapped letter apart, or differ they in letter case alone?
Bool isMisspelling(std::string_view a, std::string_view b) {
    const auto equal = [](std::string_view x, std::string_view y) {
        return std::equal(x.begin(), x.end(), y.begin(), y.end(),
                          [](unsigned char p, unsigned char q) { return std::tolower(p) == std::tolower(q); });
    };
    if (a.size() < b.size())
        std::swap(a, b);
    if (a.size() - b.size() > 1)
        return false;
    std::size_t same = 0;
    while (same < b.size() &&
           std::tolower(static_cast<unsigned char>(a[same])) == std::tolower(static_cast<unsigned char>(b[same])))
        ++same;
    const std::string_view a_rest = a.substr(same);
    const std::string_view b_rest = b.substr(same);
    if (a.size() > b.size())
        return equal(a_rest.substr(1), b_rest);
    if (a_rest.empty() || equal(a_rest.substr(1), b_rest.substr(1)))
        return true;
    return a_rest.size() >= 2 && a_rest[0] == b_rest[1] && a_rest[1] == b_rest[0] &&
           equal(a_rest.substr(2), b_rest.substr(2));
}

/// A class with all that its bases read.
struct sReader {
    struct sChild {
        String reader;
        Bool is_list;
    };

    std::set<String> keys;
    std::map<String, sChild> children;

    Bool knowsKey(const String& name) const { return keys.contains(name) || keys.contains(maskNumbers(name)); }
    const sChild* findChild(const String& tag) const {
        for (const String& name : {tag, maskNumbers(tag), String("*")}) {
            if (const auto found = children.find(name); found != children.end())
                return &found->second;
        }
        return nullptr;
    }
};

class cReaders {
public:
    cReaders() {
        for (const sClass& entry : classes) {  // bases stand before what is made of them
            sReader& reader = m_readers[entry.name];
            for (const String& base : splitWords(entry.bases)) {
                const sReader& inherited = m_readers.at(base);
                reader.keys.insert(inherited.keys.begin(), inherited.keys.end());
                reader.children.insert(inherited.children.begin(), inherited.children.end());
            }
            for (const String& key : splitWords(entry.keys))
                reader.keys.insert(key);
            for (const String& child : splitWords(entry.children)) {
                const std::size_t colon = child.find(':');
                const Bool is_list = child.back() == '*';
                const std::size_t length = child.size() - colon - 1 - (is_list ? 1 : 0);
                reader.children.insert_or_assign(String(child.substr(0, colon)),
                                                 sReader::sChild{String(child.substr(colon + 1, length)), is_list});
            }
            m_all_keys.insert(reader.keys.begin(), reader.keys.end());
            for (const auto& [tag, child] : reader.children)
                m_all_tags.insert(tag);
        }
    }

    const sReader& get(const String& name) const { return m_readers.at(name); }
    const std::set<String>& getAllKeys() const { return m_all_keys; }
    const std::set<String>& getAllTags() const { return m_all_tags; }

private:
    std::map<String, sReader> m_readers;
    std::set<String> m_all_keys;
    std::set<String> m_all_tags;
};

const cReaders& getReaders() {
    static const cReaders readers;
    return readers;
}

/// The class that reads a document; null for one that the table does not know.
const char* findReader(const String& name) {
    const String key = toFileKey(name);
    for (const sDocument& document : documents) {
        const String known = toFileKey(document.file);
        const Bool is_folder = known.back() == '*';
        if (is_folder ? key.starts_with(known.substr(0, known.size() - 1)) : key == known)
            return document.reader;
    }
    return nullptr;
}

/// Walks a document and complains.
class cKeyWalk {
public:
    explicit cKeyWalk(const COMPLAINT& complain) : m_complain(complain) {}

    void walk(const iXML& tag, const String& place, const String& reader_name) {
        const sReader& reader = getReaders().get(getClassOf(reader_name, tag));
        for (UInt i = 0; i < tag.getAttributeCount(); ++i) {
            const String name = toNarrow(WString(tag.getAttribute(i).name));
            if (!reader.knowsKey(name))
                complain(place, "key", name, reader.keys);
        }
        forEachChild(tag, place, [&](const iXML& child, const String& name, const String& child_place) {
            if (const sReader::sChild* known = reader.findChild(name))
                walkKnown(child, child_place, *known);
            else if (!isKeyInATag(child) || !reader.knowsKey(name))
                complain(place, "tag", name, getNames(reader));
        });
    }

    /// Nobody knows who reads it: what looks like a slip is told.
    void walkStranger(const iXML& tag, const String& place) {
        const std::set<String>& keys = getReaders().getAllKeys();
        for (UInt i = 0; i < tag.getAttributeCount(); ++i) {
            const String name = toNarrow(WString(tag.getAttribute(i).name));
            const Bool is_slip = name.size() > 3 && !keys.contains(name) && !keys.contains(maskNumbers(name)) &&
                                 std::any_of(keys.begin(), keys.end(), [&](const String& key) {
                                     return key.size() > 3 && isMisspelling(name, key);
                                 });
            if (is_slip)
                complain(place, "key", name, keys);
        }
        forEachChild(tag, place, [&](const iXML& child, const String&, const String& child_place) {
            walkStranger(child, child_place);
        });
    }

private:
    /// A key may stand as a tag with a text.
    static Bool isKeyInATag(const iXML& tag) { return tag.getAttributeCount() == 0 && tag.getTagCount() == 0; }

    static String getClassOf(const String& reader, const iXML& tag) {
        if (reader != "Placed")
            return reader;
        Int type = -1;
        readKey(tag, u"Type", type);
        const auto place = static_cast<std::size_t>(type);
        return type >= 0 && place < placed_classes.size() ? placed_classes[place] : "Placed";
    }

    static std::set<String> getNames(const sReader& reader) {
        std::set<String> res = reader.keys;
        for (const auto& [tag, child] : reader.children)
            res.insert(tag);
        return res;
    }

    void walkKnown(const iXML& tag, const String& place, const sReader::sChild& known) {
        if (!known.is_list)
            return walk(tag, place, known.reader);
        for (UInt i = 0; i < tag.getAttributeCount(); ++i)
            complain(place, "key", toNarrow(WString(tag.getAttribute(i).name)), {});
        forEachChild(tag, place, [&](const iXML& child, const String&, const String& child_place) {
            walk(child, child_place, known.reader);
        });
    }

    template <class VISIT>
    void forEachChild(const iXML& tag, const String& place, const VISIT& visit) {
        std::vector<std::pair<String, iXML*>> children(tag.getTagCount());
        for (UInt i = 0; i < tag.getTagCount(); ++i)
            tag.get(i, children[i].second, &children[i].first);
        UInt ordinal = 0;  // among those of one name, who stand together
        for (std::size_t i = 0; i < children.size(); ++i) {
            const auto& [name, child] = children[i];
            const Bool follows = i > 0 && children[i - 1].first == name;
            const Bool leads = i + 1 < children.size() && children[i + 1].first == name;
            ordinal = follows ? ordinal + 1 : 0;
            String child_place = place;
            if (!child_place.empty())
                child_place.append("/");
            child_place.append(name);
            if (follows || leads)
                child_place.append(" ").append(std::to_string(ordinal));
            visit(*child, name, child_place);
        }
    }

    void complain(const String& place, const char* kind, const String& name, const std::set<String>& known) {
        String text = place.empty() ? String("the root") : "tag \"" + place + "\"";
        text.append(" has the ").append(kind).append(" \"").append(name).append("\", which nothing reads");
        const auto meant =
            std::find_if(known.begin(), known.end(), [&](const String& key) { return isMisspelling(name, key); });
        if (meant != known.end())
            text.append("; \"").append(*meant).append("\" is one that is read");
        m_complain(text);
    }

    const COMPLAINT& m_complain;
};

}  // namespace

void findUnknownKeys(const String& name, const iXML& document, const COMPLAINT& complain) {
    std::vector<sLogEntry> entries;
    if (readResourceLog(document, entries))
        return;
    cKeyWalk walk(complain);
    if (const char* reader = findReader(name))
        walk.walk(document, "", reader);
    else
        walk.walkStranger(document, "");
}

std::vector<String> getNeededDocuments() {
    std::vector<String> res;
    for (const sDocument& document : documents) {
        if (!document.is_optional)
            res.emplace_back(document.file);
    }
    return res;
}

bool isKnownKey(const String& name) {
    const cReaders& readers = getReaders();
    return readers.getAllKeys().contains(name) || readers.getAllTags().contains(name);
}

}  // namespace Datatool
