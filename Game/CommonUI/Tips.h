#pragma once

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Engine/core/Logic.h"
#include "Game/CommonUI/TipPanel.h"
#include "Game/Types.h"

/// Gives any button a tip, set up by its child tag "Tip" (cTipPanel).
///
/// A derived class that implements iExtendedInfoTip tells the tip about itself; any other has what its file says.
template <class _Button>
class cTips : public _Button {
public:
    using _Button::_Button;

    /// The keys of _Button and the child tag "Tip".
    void loadXML(const Engine::iXML* xml) override {
        _Button::loadXML(xml);
        Engine::iXML* tip = nullptr;
        if (xml->get("Tip", tip))
            loadTipXML(tip);
        m_tip.vanish();  // it may have been hovered before it had its place
    }
    void loadTipXML(const Engine::iXML* xml_doc) { m_tip.loadXML(xml_doc); }
    void setTipFile(const String& path) { m_tip.setFile(path); }
    void addToTipCaption(const WString& text) { m_tip.addToCaption(text); }
    void setTipAnchor(const Engine::cControl& anchor) { m_tip.setAnchor(anchor); }

    void process() override {
        _Button::process();
        m_tip.process(isPointerInside());
    }
    void hovered() override {
        _Button::hovered();
        startTip();
    }
    void unhovered() override {
        _Button::unhovered();
        m_tip.leave();
    }
    void enabled() override {
        m_tip.vanish();
        _Button::enabled();  // which is hovered if the pointer lies on it, and on nothing above it
    }
    void disabled() override {
        _Button::disabled();
        m_tip.vanish();
    }
    void hid() override {
        _Button::hid();
        m_tip.vanish();
    }
    void clicked() override {
        _Button::clicked();
        tellClick();
    }
    void unclicked() override {
        _Button::unclicked();
        tellClick();
    }

    virtual void updateTipData() { m_tip.updateTipData(dynamic_cast<iExtendedInfoTip*>(this)); }
    void updatePosition() { m_tip.updatePosition(); }
    void objectClicked() { m_tip.objectClicked(); }
    const cTipPanel& getTip() const { return m_tip; }
    void setTipSuppressed(Bool suppressed) { m_tip.setSuppressed(suppressed); }

private:
    Bool isPointerInside() const { return this->pointInRect(Engine::cLogic::getInstance()->getCursorPos()); }
    /// What it offered may have been ordered by that.
    void tellClick() {
        updateTipData();
        m_tip.clicked();
    }
    void startTip() {
        if (!m_tip.canStart())
            return;
        updateTipData();
        m_tip.start();
    }

    cTipPanel m_tip{*this};
};

/// A picture is told nothing of the pointer: it looks for it each frame. It takes no clicks.
template <>
class cTips<Engine::cPicture> : public Engine::cPicture {
public:
    using cPicture::cPicture;

    /// The keys of cPicture and the child tag "Tip".
    void loadXML(const Engine::iXML* xml) override;
    void loadTipXML(const Engine::iXML* xml_doc) { m_tip.loadXML(xml_doc); }
    void process() override;
    void disabled() override;
    void hid() override;

    virtual void updateTipData();
    const cTipPanel& getTip() const { return m_tip; }
    void setTipSuppressed(Bool suppressed) { m_tip.setSuppressed(suppressed); }

private:
    cTipPanel m_tip{*this};
    Bool m_hovered = false;
};
