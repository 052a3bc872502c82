#pragma once

#include "Engine/core/Singleton.h"
#include "Engine/core/Types.h"
#include "Engine/platform/Platform.h"

namespace Engine {

class cControl;
class cView;

/// One frame of the program: time, cursor, input, views, fades, picture, deferred deletes, in this order.
///
/// The game registers nothing here: it lives in the tree of views, whose sets (ViewSets.h) a frame walks. While a fade
/// runs no view is processed, so a fade holds the whole scene still; input handlers still run.
class cLogic : public cSingleton<cLogic> {
public:
    /// @param platform  outlives the object
    explicit cLogic(Platform::iPlatform& platform);
    virtual ~cLogic();

    virtual void setInactive(Bool inactive) { m_inactive = inactive; }  ///< the window has lost activation
    virtual Bool isInactive() const { return m_inactive; }
    virtual void process();
    virtual const Vector2& getCursorPos() const { return m_cursor; }  ///< logical units
    /// Asks the window to close, which ends the frame loop.
    virtual void exit();
    virtual void setMinimized(Bool minimized) { m_minimized = minimized; }
    /// Whether frames have a picture. Without one everything lives on as it would, for nobody's eyes.
    void setDrawing(Bool draws) { m_draws = draws; }

private:
    static void ignore(cView*) {}
    static void onPrintScreen(cView*);

    void updateSysCursor();
    void processViews();
    void processFades();
    void drawViews();
    static void draw(cControl* control);

    Platform::iPlatform& m_platform;
    Bool m_inactive = false;
    Bool m_minimized = false;
    Bool m_draws = true;
    Vector2 m_cursor{0.0f, 0.0f};
};

}  // namespace Engine
