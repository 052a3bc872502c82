#pragma once

#include <cstdint>
#include <map>

#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine {

/// The typed values of the player: one map per type, from key to value. They outlive every profile object, so that the
/// game reads and writes them by key alone.
///
/// Long and Int are one type in memory, but each has a map of its own, as it has a name of its own in a player's file;
/// likewise ULong and UInt.
namespace Properties {

template <class T>
using MAP = std::map<String, T>;

MAP<Float>& getFloats();
MAP<Double>& getDoubles();
MAP<Int>& getInts();
MAP<UInt>& getUInts();
MAP<Long>& getLongs();
MAP<ULong>& getULongs();
MAP<LongLong>& getLongLongs();
MAP<DXColor>& getColors();
MAP<Bool>& getBools();
MAP<std::uint16_t>& getUInt16s();
MAP<Vector2>& getVector2s();
MAP<String>& getStrings();
MAP<WString>& getWStrings();

/// Parses a value by the rules of TextConvert.h. Nothing happens for an unknown type and for a text that is no value.
void set(const String& type_name, const String& name, const WString& value);
void clear();
/// The document of a player's file: the types in the order above, in each the keys in their order.
WString format();

}  // namespace Properties

}  // namespace Engine
