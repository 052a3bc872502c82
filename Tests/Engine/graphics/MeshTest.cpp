#include "Engine/graphics/Mesh.h"

#include <gtest/gtest.h>

#include <limits>

#include "Tests/Support/UnitFiles.h"

namespace Engine {
namespace {

using UnitFiles::cBytes;

std::unique_ptr<iMesh> read(const std::string& bytes) {
    return iMesh::create("some.mesh", reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

/// The text of the failure, empty if the mesh can be read.
String failureOf(const std::string& bytes) {
    try {
        read(bytes);
    } catch (const char* text) {
        return text;
    } catch (const String& text) {
        return text;
    }
    return {};
}

std::string makeTriangle(const std::vector<Matrix>& bones = {}) {
    return UnitFiles::makeMesh({{{0, 0, 0}}, {{1, 0, 0}}, {{0, 1, 0}}}, {0, 1, 2}, bones);
}

TEST(Mesh, readsEachVertexFormat) {
    for (const Platform::sMeshFormat& format : Platform::mesh_formats) {
        cBytes bytes;
        bytes.mark().add(format.number, 1u, 4u).mark();
        for (UInt i = 0; i < format.vertex_size / 4; ++i)
            bytes.add(0u);
        bytes.mark();
        for (int i = 0; i < 4; ++i)
            bytes.add(std::uint16_t{0});
        bytes.mark().add(1u).add(Matrix(2.0f)).mark();
        const std::unique_ptr<iMesh> mesh = read(bytes.get());
        EXPECT_EQ(mesh->getFormat(), format.number);
        EXPECT_EQ(mesh->getVertexSize(), format.vertex_size);
        EXPECT_EQ(mesh->getVertexCount(), 1u);
        EXPECT_EQ(mesh->getTriangleCount(), 1u);  // the fourth index makes none
        ASSERT_EQ(mesh->getBoneMatrices() != nullptr, format.bones >= 0);
        if (mesh->getBoneMatrices()) {
            EXPECT_EQ(mesh->getBoneMatrices()->at(0), Matrix(2.0f));
        }
    }
    EXPECT_EQ(read(UnitFiles::makeMesh({}, {}))->getTriangleCount(), 0u);
}

TEST(Mesh, saysWhatIsWrongInAFile) {
    const std::string whole = makeTriangle({Matrix(1.0f)});
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_EQ(failureOf(whole.substr(0, size)), "Unexpected end of source") << size;
    EXPECT_EQ(failureOf("qors" + whole.substr(4)), "Invalid mesh format. File:some.mesh");
    EXPECT_EQ(failureOf(cBytes().mark().add(19u).get()), "Undefined vertex format. Resource:some.mesh");
    EXPECT_EQ(failureOf(cBytes().mark().add(274u, 0xFFFFFFFFu, 0xFFFFFFFFu).mark().get()), "Unexpected end of source");
    for (const std::size_t mark : {std::size_t{16}, 20 + std::size_t{3 * 48}, whole.size() - 4}) {
        std::string wrong = whole;
        wrong[mark] = 'x';
        EXPECT_EQ(failureOf(wrong), "Invalid resource format") << mark;
    }
}

TEST(Mesh, refusesWhatPointsOutOfIt) {
    const std::vector<UnitFiles::sPoint> points(3);
    EXPECT_EQ(failureOf(UnitFiles::makeMesh(points, {0, 1, 3})), "Invalid resource format");
    EXPECT_EQ(failureOf(UnitFiles::makeMesh({{.bone = 1}}, {}, {Matrix(1.0f)})), "Invalid resource format");
    EXPECT_EQ(failureOf(makeTriangle(std::vector<Matrix>(257, Matrix(1.0f)))), "Invalid resource format");
    EXPECT_EQ(failureOf(makeTriangle({Matrix(0.0f)})), "Invalid resource format");  // has no inverse
    const Float not_a_number = std::numeric_limits<Float>::quiet_NaN();
    EXPECT_EQ(failureOf(UnitFiles::makeMesh({{.uv = {not_a_number, 0}}}, {})), "Invalid resource format");
}

}  // namespace
}  // namespace Engine
