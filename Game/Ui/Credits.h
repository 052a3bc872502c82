#pragma once

#include "Engine/Ui/Back.h"
#include "Engine/Ui/TextButton.h"
#include "Engine/core/Singleton.h"
#include "Game/Types.h"

/// Who and what made the game. Its button, or Esc, leads back to the main menu.
/// UI file "UI/Credits.xml": the keys of cBack and the child tag "ReturnButton" (cTextButton).
class cCredits : public Engine::cBack, public Engine::cSingleton<cCredits> {
public:
    cCredits();

    void loadXML(const Engine::iXML* xml) override;
    void enabled() override;
    void disabled() override;

private:
    static void onOk(Engine::cView* view);

    Engine::cTextButton* m_return;  ///< a child of this view
};
