#include "Engine/core/Pack.h"

#include <utility>

#include "Engine/core/CallStack.h"
#include "Engine/core/PackStream.h"

namespace Engine {

cPack::cPack(const String& path) : m_path(path) {
}

cPack::~cPack() {
    if (m_idle)
        unzClose(m_idle);
}

cPack::HANDLE cPack::take() {
    ENGINE_MARK;
    HANDLE handle = m_idle ? std::exchange(m_idle, nullptr) : openPack(m_path);
    if (!handle) {
        callStackText() = "Cant't open pack file '" + m_path + "'";
        throw String(callStackText());
    }
    return handle;
}

void cPack::giveBack(HANDLE handle) {
    if (m_idle)
        unzClose(handle);
    else
        m_idle = handle;
}

}  // namespace Engine
