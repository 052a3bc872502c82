#pragma once

#include "Engine/Ui/Picture.h"
#include "Game/CommonUI/InfoTip.h"
#include "Game/CommonUI/Tips.h"
#include "Game/Types.h"

/// The flag that flies at a way out of the level: a picture whose tip names it.
class cBridgeFlag : public cTips<Engine::cPicture>, public iExtendedInfoTip {
public:
    using cTips::cTips;

    /// @param id  of the game's text that the tip tells
    void setText(const String& id) { m_text = id; }
    const String& getText() const { return m_text; }
    void setLook(const Engine::cState& look);
    void updateInfoTipCargo(sInfoTip& info) override;
    void updateInfoTipPrice(sInfoTip&) override {}

private:
    String m_text;
};
