#pragma once

#include <vector>

#include "Engine/Ui/Back.h"

namespace Engine {

class cPicture;

/// A panel wider than the screen, which scrolls sideways while the pointer is near the screen's left or right edge.
///
/// What scrolls is registered with it. The offset is how far the panel's left end lies left of the screen.
class cScrollBack : public cBack {
public:
    explicit cScrollBack(cView* parent);

    /// The keys of cBack, then "MapWidth" (units), "MoveSpeed" (units a second, the limit), "MoveAccel" (units a second
    /// and second), "CursorMoveZone" (units from the screen's edges) and the child tags "MovePicLeft", "MovePicRight",
    /// the arrows that show where it goes.
    void loadXML(const iXML* xml) override;
    void process() override;

    void registerControl(cControl* item);  ///< not owned; unregistered before it goes
    void unRegisterControl(cControl* item);

    Float getOffset() const { return m_offset; }
    Float getSpeed() const { return m_speed; }
    void setMapWidth(Float width) { m_map_width = width; }
    /// One frame of scrolling.
    void moveProcess();

protected:
    const std::vector<cControl*>& getRegisteredControls() const { return m_controls; }
    /// Moves the panel to the right. Gives the way that it went: less than asked for where it came to its end.
    Float moveOffset(Float delta);
    void resetOffset() { m_offset = 0.0f; }  ///< what is registered stays where it is
    void stopMoving() { m_speed = 0.0f; }
    void hideArrows();  ///< for good

private:
    void accelerate(Float step);
    void brake(Float step);
    void updateArrows();
    void updateArrow(cPicture& arrow, Bool shown, Float strength);

    std::vector<cControl*> m_controls;  ///< in the order of their registering
    // Children of this view.
    cPicture* m_left_arrow;
    cPicture* m_right_arrow;

    Bool m_has_arrows = true;
    Float m_map_width = 0.0f;
    Float m_offset = 0.0f;  ///< units, from 0 to the map's width less the screen's
    Float m_speed = 0.0f;   ///< units a second; above 0 the panel moves to the right, and the view to the left
    Float m_move_speed = 0.0f;
    Float m_accel = 0.0f;
    Float m_zone = 0.0f;
};

}  // namespace Engine
