#pragma once

#include "Game/GameLogic/ResourceCargo.h"
#include "Game/Types.h"

namespace Engine {
class cView;
class iArch;
class iXML;
}  // namespace Engine
class cProgressFloatExt;

/// A store of goods: what is in it, what of that is promised, and how much goes in.
///
/// Money takes no room. Promised goods (locked) are no longer in the cargo: whoever promises them takes them out first
/// and locks as many, whoever fetches them unlocks them. So an item is in one place only.
class cCargoStorage {
public:
    virtual ~cCargoStorage() = default;

    /// The child tag "CargoProgress": a bar (cProgressFloatExt) that shows how full it is, made as a child of that
    /// view.
    void loadCargoXML(const Engine::iXML* xml, Engine::cView* bar_parent);

    /// Gives how much was taken in: of goods as much as there is room for, money without limit. 0 or less: nothing.
    virtual Int addResourceItems(Int type, Int amount);
    virtual Int removeResourceItems(Int type, Int amount);  ///< gives how much there was to take out
    /// What was taken out comes back, whether or not there is still room for it.
    void returnResourceItems(Int type, Int amount);
    virtual Bool hasFreeSpace() const;
    virtual void onCargoChanged(Int) {}  ///< goods came in

    /// Takes as many items as that, one kind after the other, money first. The sound of a theft if there were any.
    sResourceCargo stealResourceItems(Int amount);
    void lockResourceItems(Int type, Int amount) { m_locked[type] += amount; }
    Int unlockResourceItems(Int type, Int amount);  ///< gives how much was locked of it
    void setCapacity(Int capacity);
    void clearCargo();  ///< not what is locked
    void updateCargoProgress();

    const sResourceCargo& getCargo() const { return m_cargo; }
    const sResourceCargo& getLocked() const { return m_locked; }
    Int getCapacity() const { return m_capacity; }

    /// The cargo, what is locked, the capacity.
    void saveBinState(Engine::iArch& arch);
    /// Goods that were locked have lost their goals: they go back into the cargo. An amount below 0 is none.
    void loadBinState(Engine::iArch& arch);

protected:
    void setCargo(const sResourceCargo& cargo);

private:
    Int getRoom() const;  ///< for goods; below 0 where there are too many

    sResourceCargo m_cargo;
    sResourceCargo m_locked;
    Int m_capacity = 0;                       ///< items of all kinds but money
    cProgressFloatExt* m_progress = nullptr;  ///< a child of the view that shows it; null without one
};
