#include "Engine/platform/sdl/InstanceGuard.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>

namespace Engine::Platform {

namespace {

struct sAddress {
    sockaddr_un address{};
    socklen_t size = 0;
};

/// A name in the system's own space of socket names, apart for each user.
sAddress makeAddress(const String& name) {
    const String text = name + "." + std::to_string(getuid());
    sAddress result;
    result.address.sun_family = AF_UNIX;
    const std::size_t length = std::min(text.size(), sizeof(result.address.sun_path) - 1);
    std::copy_n(text.begin(), length, result.address.sun_path + 1);
    result.size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + length);
    return result;
}

}  // namespace

cInstanceGuard::~cInstanceGuard() {
    if (m_socket >= 0)
        close(m_socket);
}

Bool cInstanceGuard::claim(const String& name) {
    const sAddress where = makeAddress(name);
    const auto* address = reinterpret_cast<const sockaddr*>(&where.address);
    m_socket = socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (m_socket < 0)
        return true;
    if (bind(m_socket, address, where.size) == 0) {
        listen(m_socket, 4);
        return true;
    }
    const Bool taken = errno == EADDRINUSE;
    if (taken)
        (void)connect(m_socket, address, where.size);
    close(m_socket);
    m_socket = -1;
    return !taken;
}

Bool cInstanceGuard::takeRequest() {
    if (m_socket < 0)
        return false;
    const int request = accept4(m_socket, nullptr, nullptr, SOCK_CLOEXEC);
    if (request < 0)
        return false;
    close(request);
    return true;
}

}  // namespace Engine::Platform
