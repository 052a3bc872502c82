#include "Engine/Ui/Picture.h"

#include "Engine/core/Timer.h"

namespace Engine {

void cPicture::process() {
    if (isPlayAnimation()) {
        setAnimTime(getAnimTime() + cTimer::getInstance()->getStep());
        setDirty();
    }
    runTasks();
    cControl::process();
}

}  // namespace Engine
