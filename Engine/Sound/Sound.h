#pragma once

#include "Engine/core/Resource.h"
#include "Engine/core/Types.h"

namespace Engine {

/// A sample, shared by name. While there is no sound it has no sample and plays nothing.
class cSound : public iResource {
public:
    /// Throws what cSoundManager::loadResource() throws.
    explicit cSound(const String& name);
    ~cSound() override;

    eResourceType getType() const override { return eResourceType::sound; }
    Int getSample() const { return m_sample; }  ///< the device's number; 0 while there is no sound

private:
    Int m_sample = 0;
};

}  // namespace Engine
