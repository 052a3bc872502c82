// Any bytes as a mesh. What it let through has to be sound: indices and bones within their bounds.

#include "Engine/graphics/iMesh.h"
#include "Engine/platform/MeshFormat.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace Engine;
    try {
        const std::unique_ptr<iMesh> mesh = iMesh::create("fuzz.mesh", data, size);
        for (const std::uint16_t index : mesh->getIndices())
            if (index >= mesh->getVertexCount())
                __builtin_trap();
        const Platform::sMeshFormat& format = *Platform::findMeshFormat(mesh->getFormat());
        if (format.bones < 0)
            return 0;
        for (std::size_t at = 0; at < mesh->getVertices().size(); at += format.vertex_size)
            for (std::size_t i = 0; i < 4; ++i)
                if (mesh->getVertices()[at + static_cast<std::size_t>(format.bones) + i] >=
                    mesh->getBoneMatrices()->size())
                    __builtin_trap();
    } catch (const String&) {
    } catch (const char*) {
    }
    return 0;
}
