#include "Engine/core/WholeFile.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/FileManager.h"

namespace Engine {

namespace {

constexpr ULong max_file_size = 256u << 20;  ///< bytes

}  // namespace

std::vector<std::uint8_t> readWholeFile(const String& name, const char* kind) {
    ENGINE_MARK;
    const std::unique_ptr<iFile> file = cFileManager::getInstance()->open(name);
    const ULong size = file->getSize();
    if (size > max_file_size)
        throw String(String(kind) + " \"" + name + "\": the file is too large.");
    std::vector<std::uint8_t> bytes(size);
    if (file->read(bytes.data(), size) != size)
        throw String(String(kind) + " \"" + name + "\": the file can't be read to its end.");
    return bytes;
}

}  // namespace Engine
