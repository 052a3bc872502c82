#include "Engine/graphics/PictureFile.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/FileManager.h"

namespace Engine {

namespace {

/// Bytes; the largest picture takes as much once it is decoded.
constexpr ULong max_file_size = 256u << 20;

}  // namespace

std::vector<std::uint8_t> readPictureFile(const String& name) {
    ENGINE_MARK;
    const std::unique_ptr<iFile> file = cFileManager::getInstance()->open(name);
    const ULong size = file->getSize();
    if (size > max_file_size)
        throw String("Image \"" + name + "\": the file is too large.");
    std::vector<std::uint8_t> bytes(size);
    if (file->read(bytes.data(), size) != size)
        throw String("Image \"" + name + "\": the file can't be read to its end.");
    return bytes;
}

}  // namespace Engine
