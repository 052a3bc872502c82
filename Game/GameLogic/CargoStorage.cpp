#include "Game/GameLogic/CargoStorage.h"

#include <algorithm>

#include "Engine/Ui/LoadView.h"
#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Game/CommonUI/ProgressFloatExt.h"
#include "Game/Ui/GameSounds.h"

using namespace Engine;

void cCargoStorage::loadCargoXML(const iXML* xml, cView* bar_parent) {
    ENGINE_MARK;
    iXML* tag = nullptr;
    if (!xml->get("CargoProgress", tag))
        return;
    m_progress = new cProgressFloatExt(bar_parent);
    m_progress->loadXML(tag);
}

Int cCargoStorage::addResourceItems(Int type, Int amount) {
    const Int room = getRoom();
    const Int taken = type == resourceMoney ? amount : std::min(amount, room);
    if (taken > 0) {
        m_cargo.add(type, taken);
        onCargoChanged(0);
    }
    updateCargoProgress();
    return taken;
}

Int cCargoStorage::removeResourceItems(Int type, Int amount) {
    const Int taken = std::min(m_cargo[type], amount);
    m_cargo[type] -= taken;
    updateCargoProgress();
    return taken;
}

void cCargoStorage::returnResourceItems(Int type, Int amount) {
    if (amount <= 0)
        return;
    m_cargo.add(type, amount);
    onCargoChanged(0);
    updateCargoProgress();
}

Bool cCargoStorage::hasFreeSpace() const {
    return getRoom() > 0;
}

Int cCargoStorage::getRoom() const {
    return m_capacity - std::max(m_cargo.total(false), 0);
}

sResourceCargo cCargoStorage::stealResourceItems(Int amount) {
    sResourceCargo stolen;
    for (Int type = 0; type < resource_count; ++type) {
        while (amount > 0 && removeResourceItems(type, 1) > 0) {
            ++stolen[type];
            --amount;
        }
    }
    if (stolen.total(true) > 0)
        playGameSound("steal_item");
    return stolen;
}

Int cCargoStorage::unlockResourceItems(Int type, Int amount) {
    const Int unlocked = std::min(m_locked[type], amount);
    m_locked[type] -= unlocked;
    return unlocked;
}

void cCargoStorage::setCapacity(Int capacity) {
    m_capacity = std::max(capacity, 0);
    if (m_progress) {
        m_progress->setProgressMaxValue(static_cast<Float>(m_capacity));
        m_progress->progressChanged();
    }
}

void cCargoStorage::clearCargo() {
    m_cargo = {};
    updateCargoProgress();
}

void cCargoStorage::setCargo(const sResourceCargo& cargo) {
    m_cargo = cargo;
    updateCargoProgress();
}

void cCargoStorage::updateCargoProgress() {
    if (!m_progress)
        return;
    m_progress->setProgressCurrentValue(static_cast<Float>(m_cargo.total(true)));
    m_progress->progressChanged();
}

void cCargoStorage::saveBinState(iArch& arch) {
    m_cargo.serialize(arch);
    m_locked.serialize(arch);
    arch << m_capacity;
}

void cCargoStorage::loadBinState(iArch& arch) {
    m_cargo.serialize(arch);
    m_locked.serialize(arch);
    Int capacity = 0;
    arch << capacity;
    for (Int type = 0; type < resource_count; ++type) {
        m_cargo[type] = std::max(m_cargo[type], 0);
        m_cargo.add(type, std::max(m_locked[type], 0));
    }
    m_locked = {};
    setCapacity(capacity);
    updateCargoProgress();
}
