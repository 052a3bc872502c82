#pragma once

#include <array>

#include "Game/Types.h"

namespace Engine {
class iArch;
class iXML;
}  // namespace Engine

/// The kinds of goods, in the order that files, saves and every list on the screen follow.
enum eResource : Int { resourceMoney = 0, resourceFood, resourceWood, resourceStone, resourceIron, resource_count };

/// An amount of each kind of goods: a price, a load, what a store holds. A plain value.
struct sResourceCargo {
    std::array<Int, resource_count> amounts{};  ///< by eResource

    Int& operator[](Int type) { return amounts.at(static_cast<std::size_t>(type)); }
    Int operator[](Int type) const { return amounts.at(static_cast<std::size_t>(type)); }

    /// The keys "Money", "Food", "Wood", "Stone", "Iron"; those that are missing, or below 0, become 0.
    void loadXML(const Engine::iXML* xml);
    /// The sum of all amounts, or of the four kinds that take room in a store. Ends at the largest Int.
    Int total(Bool with_money) const;
    /// Adds to one amount, or all of another cargo's; an amount ends at the largest Int.
    void add(Int type, Int amount);
    void add(const sResourceCargo& other);
    Bool covers(const sResourceCargo& price) const;  ///< is there at least as much of each kind?
    /// Five Ints, written or read by the archive's mode.
    void serialize(Engine::iArch& arch);

    friend Bool operator==(const sResourceCargo&, const sResourceCargo&) = default;
};
