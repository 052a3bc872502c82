#include "Engine/core/LastError.h"

#include <cerrno>
#include <system_error>

namespace Engine {

String lastErrorText() {
    return errno == 0 ? String() : String(std::generic_category().message(errno));
}

}  // namespace Engine
