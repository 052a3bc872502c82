#pragma once

#include "Engine/Ui/Control.h"

namespace Engine {

/// The plain drawable: a control with a clock for its animation and its list of tasks.
class cPicture : public cControl {
public:
    using cControl::cControl;

    UInt getViewKind() const override { return picture; }
    /// Moves the animation on while it plays, then runs the tasks, then cControl::process().
    void process() override;
};

}  // namespace Engine
