#include "Engine/Ui/View.h"

#include <map>
#include <unordered_set>

#include "Engine/Ui/Scavenger.h"
#include "Engine/Ui/ViewSets.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Timer.h"
#include "Engine/input/Input.h"

namespace Engine {

namespace {

/// Asked by address alone, never walked, so its order shows nowhere.
std::unordered_set<const cView*>& liveViews() {
    static auto* views = new std::unordered_set<const cView*>;
    return *views;
}

ULongLong nextNumber() {
    static ULongLong number = 0;
    return ++number;
}

}  // namespace

cView::cView(cView* parent) : m_number(nextNumber()), m_parent(parent) {
    liveViews().insert(this);
    if (m_parent)
        m_parent->addChild(this);
    updateMirrors();
}

cView::cView(const cView& other)
    : m_number(nextNumber()),
      m_transparency_speed(other.m_transparency_speed),
      m_parent(other.m_parent),
      m_show(other.m_show),
      m_enable(other.m_enable),
      m_absolute_enable(other.m_absolute_enable),
      m_locked(other.m_locked) {
    liveViews().insert(this);
    if (m_parent)
        m_parent->addChild(this);
    updateMirrors();
    if (isEnabled())
        UI::getEnabled().add(*this);
    if (isAbsoluteEnabled())
        UI::getAbsoluteEnabled().add(*this);
}

cView::~cView() {
    UI::getTransparenty().erase(m_number);
    while (!m_children.empty())
        delete m_children.first();
    if (m_parent)
        m_parent->removeChild(this);
    UI::getEnabled().remove(*this);
    UI::getAbsoluteEnabled().remove(*this);
    if (cInput* input = cInput::getInstance())
        input->unbindView(*this);
    liveViews().erase(this);
    cScavenger::remove(this);
}

Bool cView::isValid(const cView* view) {
    return liveViews().contains(view);
}

void cView::destroyAll() {
    while (!liveViews().empty()) {
        std::map<ULongLong, const cView*> roots;  // each takes its children along
        for (const cView* view : liveViews()) {
            if (!view->m_parent)
                roots.emplace(view->m_number, view);
        }
        for (const auto& [number, root] : roots) {
            if (isValid(root))
                delete root;
        }
    }
}

void cView::updateMirrors() {
    m_parent_show = !m_parent || m_parent->isShown();
    m_parent_enable = !m_parent || m_parent->isEnabled();
    m_parent_absolute_enable = !m_parent || m_parent->isAbsoluteEnabled();
}

void cView::lock() {
    m_children.walk([](cView* child) { child->lock(); });
    m_locked = true;
}

void cView::unlock() {
    m_children.walk([](cView* child) { child->unlock(); });
    m_locked = false;
}

void cView::addChild(cView* child) {
    m_children.insert(child->m_number, child);
}

void cView::removeChild(cView* child) {
    m_children.erase(child->m_number);
}

const cView* cView::getRoot() const {
    const cView* root = this;
    while (root->m_parent)
        root = root->m_parent;
    return root;
}

void cView::loadXML(const iXML* xml) {
    ENGINE_MARK;
    Bool visible = false;
    Bool enable_key = false;
    Bool absolute = false;
    readKey(*xml, u"Visible", visible);
    readKey(*xml, u"Enable", enable_key);
    Float speed = m_transparency_speed;
    readKey(*xml, u"TranparencySpeed", speed);
    if (speed > 0.0f)  // any other would never end, and hold up the scene with it
        m_transparency_speed = speed;
    readKey(*xml, u"AbsoluteEnable", absolute);

    setShown(visible);
    setEnabled(enable_key);
    if (absolute)
        absoluteEnable();
}

// Show -------------------------------------------------------------------------------------------------------------

void cView::show() {
    if (!isValid(this))
        return;
    ENGINE_MARK;
    m_show = true;
    m_transparency = 1.0f;
    if (m_parent_show)
        showed();
}

void cView::hide() {
    if (!isValid(this))
        return;
    ENGINE_MARK;
    m_show = false;
    m_transparency = 0.0f;
    hid();
}

void cView::showed() {
    if (isEnabled()) {
        gainParentEnable();
        enabled();
    }
    showChildren();
    m_transparency_mode = noFade;
}

void cView::showChildren() {
    m_children.walk([](cView* child) {
        child->m_parent_show = true;
        if (child->m_show)
            child->showed();
    });
}

void cView::hid() {
    if (isEnabled()) {
        disabled();
        loseParentEnable();
    }
    hideChildren();
    m_transparency_mode = noFade;
}

void cView::hideChildren() {
    m_children.walk([](cView* child) {
        const Bool was_shown = child->isShown();
        child->m_parent_show = false;
        if (was_shown)
            child->hid();
    });
}

// Enable -----------------------------------------------------------------------------------------------------------

void cView::enable() {
    if (!isValid(this) || m_enable)
        return;
    ENGINE_MARK;
    m_enable = true;
    if (m_parent_enable && isShown()) {
        gainParentEnable();
        enabled();
    }
}

void cView::disable() {
    if (!isValid(this) || !m_enable)
        return;
    ENGINE_MARK;
    m_enable = false;
    loseParentEnable();
    disabled();
}

void cView::gainParentEnable() {
    m_children.walk([](cView* child) {
        child->m_parent_enable = true;
        if (child->m_enable && child->isShown()) {
            child->gainParentEnable();
            child->enabled();
        }
    });
}

void cView::loseParentEnable() {
    m_children.walk([](cView* child) {
        const Bool was_enabled = child->isEnabled();
        child->m_parent_enable = false;
        if (was_enabled) {
            child->loseParentEnable();
            child->disabled();
        }
    });
}

void cView::enabled() {
    UI::getEnabled().add(*this);
}

void cView::disabled() {
    UI::getEnabled().remove(*this);
}

void cView::absoluteEnable() {
    if (!isValid(this) || m_absolute_enable)
        return;
    ENGINE_MARK;
    m_absolute_enable = true;
    if (m_parent_absolute_enable) {
        gainParentAbsoluteEnable();
        absoluteEnabled();
    }
}

void cView::absoluteDisable() {
    if (!isValid(this) || !m_absolute_enable)
        return;
    ENGINE_MARK;
    m_absolute_enable = false;
    loseParentAbsoluteEnable();
    absoluteDisabled();
}

void cView::gainParentAbsoluteEnable() {
    m_children.walk([](cView* child) {
        child->m_parent_absolute_enable = true;
        if (child->m_absolute_enable) {
            child->gainParentAbsoluteEnable();
            child->absoluteEnabled();
        }
    });
}

void cView::loseParentAbsoluteEnable() {
    m_children.walk([](cView* child) {
        const Bool was_enabled = child->isAbsoluteEnabled();
        child->m_parent_absolute_enable = false;
        if (was_enabled) {
            child->loseParentAbsoluteEnable();
            child->absoluteDisabled();
        }
    });
}

void cView::absoluteEnabled() {
    UI::getAbsoluteEnabled().add(*this);
}

void cView::absoluteDisabled() {
    UI::getAbsoluteEnabled().remove(*this);
}

// Fades ------------------------------------------------------------------------------------------------------------

void cView::showTransparently() {
    if (!isValid(this))
        return;
    ENGINE_MARK;
    m_show = true;
    if (m_parent_show)
        showed();
    enterFade(fadeIn);
}

void cView::hideTransparently() {
    if (!isValid(this))
        return;
    ENGINE_MARK;
    enterFade(fadeOutToHide);
    if (isEnabled()) {
        disabled();
        loseParentEnable();
    }
}

void cView::discardTransparently() {
    if (!isValid(this))
        return;
    ENGINE_MARK;
    enterFade(fadeOutToDiscard);
    disable();
    absoluteDisable();
}

void cView::enterFade(eTransparencyMode mode) {
    m_transparency_mode = mode;
    UI::getTransparenty().insert(m_number, this);
}

void cView::changeTransparency() {
    ENGINE_MARK;
    // A child follows its root, so a fade of its own would never move and hold up the scene: it is over at once.
    const Float way = m_parent ? 1.0f : cTimer::getInstance()->getStep() * m_transparency_speed;
    switch (m_transparency_mode) {
        case noFade:
            break;
        case fadeIn:
            m_transparency += way;
            if (m_transparency >= 1.0f || m_parent)
                m_transparency_mode = noFade;
            break;
        case fadeOutToHide:
            m_transparency -= way;
            if (m_transparency <= 0.0f || m_parent) {
                hide();
                m_transparency_mode = noFade;
            }
            break;
        case fadeOutToDiscard:
            m_transparency -= way;
            if (m_transparency <= 0.0f || m_parent) {
                m_transparency_mode = noFade;
                hide();
                discard(this, here());
            }
            break;
    }
    parentTransparenty();
}

void cView::parentTransparenty() {
    m_children.walk([](cView* child) { child->parentTransparenty(); });
}

// Parentage --------------------------------------------------------------------------------------------------------

void cView::setParent(cView* parent) {
    if (parent == m_parent)
        return;
    ENGINE_MARK;
    if (m_parent)
        m_parent->removeChild(this);
    m_parent = parent;
    if (m_parent)
        m_parent->addChild(this);

    const Bool was_shown = isShown();
    const Bool was_enabled = isEnabled();
    const Bool was_absolute = isAbsoluteEnabled();
    updateMirrors();

    if (was_enabled && !isEnabled()) {
        loseParentEnable();
        disabled();
    }
    if (was_shown && !isShown())
        hid();
    else if (isShown() && (!was_shown || !m_parent))
        showed();
    else if (!was_enabled && isEnabled() && isShown()) {
        gainParentEnable();
        enabled();
    }
    followParentAbsoluteEnable(was_absolute);
}

void cView::followParentAbsoluteEnable(Bool was_enabled) {
    if (was_enabled == isAbsoluteEnabled())
        return;
    if (was_enabled) {
        loseParentAbsoluteEnable();
        absoluteDisabled();
    } else {
        gainParentAbsoluteEnable();
        absoluteEnabled();
    }
}

}  // namespace Engine
