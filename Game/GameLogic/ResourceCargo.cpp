#include "Game/GameLogic/ResourceCargo.h"

#include <algorithm>
#include <limits>
#include <numeric>

#include "Engine/core/Arch.h"
#include "Engine/core/Keys.h"

namespace {

Int limit(LongLong sum) {
    using LIMITS = std::numeric_limits<Int>;
    return static_cast<Int>(std::clamp<LongLong>(sum, LIMITS::min(), LIMITS::max()));
}

}  // namespace

void sResourceCargo::loadXML(const Engine::iXML* xml) {
    static constexpr const char16_t* keys[resource_count] = {u"Money", u"Food", u"Wood", u"Stone", u"Iron"};
    amounts.fill(0);
    for (std::size_t i = 0; i < amounts.size(); ++i) {
        Engine::readKey(*xml, keys[i], amounts[i]);
        amounts[i] = std::max(amounts[i], 0);
    }
}

Int sResourceCargo::total(Bool with_money) const {
    return limit(std::accumulate(amounts.begin() + (with_money ? 0 : 1), amounts.end(), LongLong{0}));
}

void sResourceCargo::add(Int type, Int amount) {
    (*this)[type] = limit(LongLong{(*this)[type]} + amount);
}

void sResourceCargo::add(const sResourceCargo& other) {
    for (Int type = 0; type < resource_count; ++type)
        add(type, other[type]);
}

void sResourceCargo::serialize(Engine::iArch& arch) {
    for (Int& amount : amounts)
        arch << amount;
}

Bool sResourceCargo::covers(const sResourceCargo& price) const {
    return std::equal(price.amounts.begin(), price.amounts.end(), amounts.begin(), std::less_equal<>());
}
