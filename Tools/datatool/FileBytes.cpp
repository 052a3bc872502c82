#include "Tools/datatool/FileBytes.h"

#include <algorithm>

#include "Engine/core/AtomicFile.h"
#include "Engine/core/MemoryFile.h"
#include "Engine/core/RealFile.h"

namespace Datatool {

using namespace Engine;

BYTES readAll(iFile& file) {
    BYTES bytes(file.getSize());
    bytes.resize(file.read(bytes.data(), static_cast<ULong>(bytes.size())));
    return bytes;
}

std::unique_ptr<iFile> openFile(const String& path) {
    return std::make_unique<cRealFile>(path, cRealFile::access_read, cRealFile::eCreating::open_existing);
}

void writeFile(const String& path, const BYTES& bytes) {
    try {
        cAtomicFile file(path, true, {});
        file.write(bytes.data(), static_cast<ULong>(bytes.size()));
        file.close();
    } catch (const std::string& reason) {
        throw String(path + ": " + reason);
    }
}

std::unique_ptr<cXML> readXML(const String& name, iFile& file) {
    try {
        return std::make_unique<cXML>(&file);
    } catch (const std::string& reason) {
        throw String(name + ": " + reason);
    }
}

BYTES toBinary(const cXML& document) {
    cMemoryFile file;
    document.writeBinary(&file, true);
    return file.getBytes();
}

String toLine(std::string_view text) {
    String line(text);
    const auto is_control = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
    std::replace_if(line.begin(), line.end(), is_control, '?');
    return line;
}

}  // namespace Datatool
