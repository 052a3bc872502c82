#pragma once

#include <vector>

#include "Engine/Ui/Back.h"
#include "Engine/Ui/TextButton.h"
#include "Engine/core/Singleton.h"
#include "Game/Types.h"

/// The pages that tell how to play, one at a time. The button at the end, or Esc, leads back to the game menu.
///
/// UI file "UI/Help.xml": the keys of cBack and the child tags "OkButton", "NextButton", "PrevButton" (cTextButton) and
/// "Pages", which has one child a page. A page's own child tags "Pictures" and "Texts" list its pictures and its text
/// lines.
class cHelp : public Engine::cBack, public Engine::cSingleton<cHelp> {
public:
    /// @param _parent  none, so that the screen can fade
    /// @param _node    not used
    cHelp(Engine::cView* _parent, UInt _node);

    void loadXML(const Engine::iXML* xml) override;
    void enabled() override;
    void disabled() override;

private:
    /// A page: its pictures and texts are its children.
    struct sPage : Engine::cView {
        using cView::cView;
    };

    static void onNext(Engine::cView* button);
    static void onPrev(Engine::cView* button);
    static void onOk(Engine::cView* view);
    void loadPage(const Engine::iXML* xml);
    void turnTo(std::size_t page);

    std::vector<sPage*> m_pages;
    std::size_t m_page = 0;  ///< that is shown

    // Children of this view, as the pages are.
    Engine::cTextButton* m_ok;
    Engine::cTextButton* m_next;
    Engine::cTextButton* m_prev;
};
