#pragma once

#include "Engine/core/String.h"
#include "Engine/core/Types.h"

// The engine's names of the plain types, without a prefix for all of the game.
using Engine::Bool;
using Engine::Double;
using Engine::DXColor;
using Engine::Float;
using Engine::Int;
using Engine::Long;
using Engine::LongLong;
using Engine::Matrix;
using Engine::String;
using Engine::UInt;
using Engine::ULong;
using Engine::ULongLong;
using Engine::Vector2;
using Engine::Vector3;
using Engine::WString;
