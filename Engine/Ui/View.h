#pragma once

#include "Engine/Ui/OrderedSet.h"
#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine {

class iXML;

/// A node of the one tree of everything that lives, ticks or shows.
///
/// Three switches, each independent of the others and mirrored by what the ancestors say:
/// - show: the view is seen (and, for a control, drawn);
/// - enable: it gets process() each frame, while it is also shown;
/// - absolute enable: it gets absoluteProcess() each frame, hidden or not, which keeps timers running behind menus.
///
/// A view is made with new by its parent's code, set up by loadXML() and made live by show() and enable(). It ends with
/// its parent or through discard(), never by delete: discarded views go between frames. A pointer that is kept over a
/// frame is asked with isValid() before it is used. Sets are ordered by the time of creation.
///
/// Only a view without a parent fades: its descendants take the fade of their root. A fade asked of a child is over at
/// once.
class cView {
public:
    /// What a view is, for callers that hold it by its base.
    enum eKind : UInt { plainView = 0, control = 1, picture = 2 };
    enum eTransparencyMode : UInt { noFade = 0, fadeIn = 1, fadeOutToHide = 2, fadeOutToDiscard = 3 };

    explicit cView(cView* parent);
    cView(const cView& other);
    cView& operator=(const cView&) = delete;
    virtual ~cView();

    virtual UInt getViewKind() const { return plainView; }
    virtual void process() {}          ///< each frame while enabled and shown
    virtual void absoluteProcess() {}  ///< each frame while absolutely enabled
    virtual void lock();               ///< with all descendants; buttons ignore hover and click while locked
    virtual void unlock();
    virtual Bool isLocked() const { return m_locked; }
    virtual void addChild(cView* child);
    virtual void removeChild(cView* child);
    /// Keys "Visible", "Enable", "AbsoluteEnable" (false when absent) and "TranparencySpeed" (above 0).
    virtual void loadXML(const iXML* xml);
    virtual void showed();              ///< the view came into sight
    virtual void hid();                 ///< the view went out of sight
    virtual void parentTransparenty();  ///< the root's fade has moved
    virtual void enabled();
    virtual void disabled();
    virtual void absoluteEnabled();
    virtual void absoluteDisabled();

    /// Is this a constructed and not yet destroyed view?
    static Bool isValid(const cView* view);
    /// Deletes every view that is left, for the end of the program. No walk may run.
    static void destroyAll();

    void show();
    void hide();
    void enable();
    void disable();
    void setShown(Bool shown) { shown ? show() : hide(); }
    void setEnabled(Bool enabled) { enabled ? enable() : disable(); }
    void absoluteEnable();
    void absoluteDisable();
    void showTransparently();     ///< fades in from the present transparency
    void hideTransparently();     ///< disables now, hides at the end of the fade; a later show() enables again
    void discardTransparently();  ///< disables for good now, is discarded at the end of the fade
    /// One frame of a running fade.
    void changeTransparency();

    void setParent(cView* parent);
    cView* getParent() const { return m_parent; }
    const cView* getRoot() const;

    Bool isShow() const { return m_show; }
    Bool isShown() const { return m_show && m_parent_show; }
    Bool isEnabled() const { return m_enable && m_parent_enable; }
    Bool isAbsoluteEnabled() const { return m_absolute_enable && m_parent_absolute_enable; }
    Float getTransparency() const { return m_transparency; }
    eTransparencyMode getTransparencyMode() const { return m_transparency_mode; }
    ULongLong getCreationNumber() const { return m_number; }

protected:
    cOrderedSet<ULongLong, cView>& getChildren() { return m_children; }

private:
    void gainParentEnable();
    void loseParentEnable();
    void gainParentAbsoluteEnable();
    void loseParentAbsoluteEnable();
    void followParentAbsoluteEnable(Bool was_enabled);
    void showChildren();
    void hideChildren();
    void enterFade(eTransparencyMode mode);
    void updateMirrors();

    ULongLong m_number;                 ///< from 1 in order of creation; orders every set of views
    Float m_transparency = 0.0f;        ///< 0 to 1, and beyond by less than one step while fading
    Float m_transparency_speed = 3.3f;  ///< units a second
    eTransparencyMode m_transparency_mode = noFade;
    cOrderedSet<ULongLong, cView> m_children;
    cView* m_parent;
    Bool m_show = false;
    Bool m_parent_show = true;
    Bool m_enable = false;
    Bool m_parent_enable = true;
    Bool m_absolute_enable = false;
    Bool m_parent_absolute_enable = true;
    Bool m_locked = false;
};

}  // namespace Engine
