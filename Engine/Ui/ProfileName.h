#pragma once

#include "Engine/core/String.h"

namespace Engine {

/// A typed name without the blanks around it; empty if that is all it had.
WString trimName(const WString& text);

}  // namespace Engine
