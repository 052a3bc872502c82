#pragma once

#include "Engine/Ui/Back.h"
#include "Engine/Ui/TextButton.h"
#include "Engine/core/Singleton.h"
#include "Game/Types.h"

/// One frame of a button that shies away from the pointer: at most dt x 120 units towards a place that lies up to 30
/// units from its home, away from a pointer that is nearer than 80.
/// @param dt  seconds
Vector2 fleeFrom(const Vector2& pointer, const Vector2& button, const Vector2& home, Float dt);

/// The question whether to leave the game. The button that says yes shies away from the pointer, and a bee has its
/// opinion about either answer.
///
/// A screen of its own; its two callbacks are called with the view that opened it and discard it. Esc answers no.
/// UI file "UI/YesNoExit.xml": the keys of cBack and the child tags "YesButton", "NoButton" (cTextButton), "Text"
/// (cTextLine), "Bee0", "Bee1" and "Bee2" (cPicture; at rest, over no, over yes).
class cYesNoExit : public Engine::cBack, public Engine::cSingleton<cYesNoExit> {
public:
    using fAnswer = void (*)(Engine::cView* parent);

    /// @param parent  the view that opened it, outlives the dialog
    cYesNoExit(Engine::cView* parent, fAnswer on_yes, fAnswer on_no);

    void loadXML(const Engine::iXML* xml) override;
    void process() override;
    void enabled() override;
    void disabled() override;

private:
    enum eBee : UInt { calmBee = 0, noBee = 1, yesBee = 2 };

    static void onYes(Engine::cView* button);
    static void onNo(Engine::cView* button);
    static void onHoverChange(Engine::cView* button);
    void showBee(eBee bee);

    Engine::cView* m_opener;
    fAnswer m_on_yes;
    fAnswer m_on_no;
    Vector2 m_yes_home{0.0f, 0.0f};  ///< where the button stands with the pointer far away

    // Children of this view.
    Engine::cTextButton* m_yes;
    Engine::cTextButton* m_no;
    Engine::cTextLine* m_text;
    Engine::cPicture* m_bees[3];
};
