#pragma once

#include <vector>

#include "Engine/Ui/State.h"
#include "Game/CommonUI/InfoTip.h"
#include "Game/CommonUI/ScreenSide.h"
#include "Game/Types.h"

namespace Engine {
class cControl;
class cMultilineText;
class cPicture;
class cTextLine;
}  // namespace Engine
class cPriceList;

/// The tip of one control: a small panel that fades in a while after the pointer has come to rest on it.
///
/// What it shows are children of its owner, placed on that side of it where the screen has more room. It knows what the
/// owner tells of itself (iExtendedInfoTip), and compares that with what the player has (iTipWorld). A click on the
/// owner with the tip in full sight makes it go away, or, if something is lacking, tell what.
///
/// The owner calls process() each frame and the others as things happen to it; cTips does that for any button.
class cTipPanel {
public:
    /// @param owner  outlives the panel
    explicit cTipPanel(Engine::cControl& owner) : m_owner(owner), m_anchor(&owner) {}
    cTipPanel(const cTipPanel&) = delete;
    cTipPanel& operator=(const cTipPanel&) = delete;

    /// Keys "WaitTime" (seconds from the hover to the fade in), "TipsAlphaChangeTime" (seconds of a full fade),
    /// "Position" (the anchor, relative to the owner), "Offset" (from the anchor, to either side), and the child tags
    /// "Image" (cPicture, the background) with its looks "UpLeftImage", "UpRightImage", "DownLeftImage" and
    /// "DownRightImage" (cState), "Cargo", "Price", "PriceListExt" (cPriceList), "CargoText", "PriceText" (cTextLine),
    /// "Texts" (cTextLine each), "Pics" (cPicture each), "MultiTexts" (cMultilineText each). The position of each part
    /// is relative to the tip; all are shown and hidden together.
    void loadXML(const Engine::iXML* xml);

    /// The same from that file, when the tip is first to be shown: most things are never pointed at.
    void setFile(const String& path) { m_file = path; }

    /// Puts that text behind the one of the caption "CargoText", which is translated first.
    void addToCaption(const WString& text);

    /// It stands beside that control, which outlives the owner, instead of beside the owner.
    void setAnchor(const Engine::cControl& anchor) { m_anchor = &anchor; }

    /// The pointer has come. False if the tip is suppressed or the object is pointed at: nothing starts then. Else the
    /// owner updates the tip's data and calls start().
    Bool canStart();
    void start();
    void leave();   ///< the pointer has gone
    void vanish();  ///< at once, with everything that is shown
    void process(Bool is_pointer_inside);
    void clicked();  ///< the owner was pressed or released

    /// What the owner tells of itself goes to the captions and lists; null tells nothing.
    void updateTipData(iExtendedInfoTip* source);
    void updateTipCargo(const sInfoTip& info);
    void updateTipPrice(const sInfoTip& info);
    void updatePosition();
    void objectClicked();

    /// No tip until the pointer has gone once.
    void setSuppressed(Bool suppressed) { m_suppressed = suppressed; }
    Bool isCovered() const { return m_covered; }  ///< does the player have all that is shown?
    Bool isInLackMode() const { return m_lack_mode; }
    Float getAlpha() const { return m_alpha; }

private:
    /// A part of the tip and its place in it.
    struct sPart {
        Engine::cControl* view;
        Vector3 offset;  ///< from the tip's place; z is the deep
        Bool left_out = false;
    };

    template <class T>
    T* addPart(const Engine::iXML& xml);
    template <class T>
    void addNamed(const Engine::iXML& xml, const char* name, T*& part);
    template <class T>
    void addList(const Engine::iXML& xml, const char* name);
    void loadLooks(const Engine::iXML& xml);
    void takeLook(eScreenSide side);
    void leaveOut(const Engine::cControl* view, Bool left_out);
    void applyAlpha();
    Bool tellHalf(Engine::cTextLine* caption, const cPriceList* list, const sInfoTip& info);
    void fillList(cPriceList* list, const sInfoTip& info);
    void fillProducts(const sInfoTip& info);
    void leaveLackMode();
    Bool showLack(cPriceList* list);

    Engine::cControl& m_owner;
    const Engine::cControl* m_anchor;  ///< not owned
    String m_file;                     ///< yet to be read; empty for none
    std::vector<sPart> m_parts;
    Float m_wait_time = 0.0f;          ///< seconds
    Float m_wait_left = 0.0f;          ///< seconds
    Float m_alpha_change_time = 0.0f;  ///< seconds; 0 shows and hides at once
    Float m_alpha = 0.0f;
    Bool m_hiding = true;
    Vector2 m_position{0.0f, 0.0f};
    Vector2 m_offset{0.0f, 0.0f};
    Engine::cPicture* m_background = nullptr;
    eScreenSide m_look = eScreenSide::upLeft;  ///< that the background has now
    Engine::cState m_looks[4];                 ///< by eScreenSide
    cPriceList* m_cargo = nullptr;
    cPriceList* m_price = nullptr;
    cPriceList* m_price_list_ext = nullptr;
    Engine::cTextLine* m_cargo_text = nullptr;
    Engine::cTextLine* m_price_text = nullptr;
    WString m_price_caption;  ///< what the lack mode has put its own words over
    Bool m_is_empty = false;  ///< the owner had nothing to tell
    Bool m_covered = true;
    Bool m_lack_mode = false;
    Bool m_suppressed = false;
};
