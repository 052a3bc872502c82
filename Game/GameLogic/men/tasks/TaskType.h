#pragma once

#include "Game/Types.h"

/// What a man's task is, for those who only ask that.
enum eTaskType : Int { taskOther = 0, taskWalk = 1, taskBuildRoad = 4 };
