#pragma once

#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine {

/// The order in which the characters of a right-to-left script stand from left to right: the whole text turned round,
/// but runs of digits and Latin letters as they were.
WString rotateString(const WString& text);

}  // namespace Engine
