#pragma once

#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine::Platform {

/// Knows whether this is the only running instance of a name, per user of the machine.
///
/// The first instance listens on a local socket that leaves no file behind and vanishes with the process, however that
/// ends. A later one connects to it, which is all it takes to ask the first one to come to the front.
class cInstanceGuard {
public:
    cInstanceGuard() = default;
    ~cInstanceGuard();
    cInstanceGuard(const cInstanceGuard&) = delete;
    cInstanceGuard& operator=(const cInstanceGuard&) = delete;

    /// False if another process holds the name; that one has then been asked. Where sockets fail, true.
    Bool claim(const String& name);
    /// Has another instance asked since the last call? Never waits.
    Bool takeRequest();

private:
    int m_socket = -1;
};

}  // namespace Engine::Platform
