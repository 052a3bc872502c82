/// A hundred men of 24 bones, each in a pose of his own, beside a hundred meshes of the same triangles that stand
/// still: whole frames on the GL device, off-screen, drawn to their end. Both are lit by one sun.
///
/// "pose" is the part of it that is ours alone: a hundred poses, and no drawing.

#include <benchmark/benchmark.h>
#include <epoxy/gl.h>

#include <cstdlib>
#include <glm/gtc/matrix_transform.hpp>

#include "Benchmarks/CountAllocations.h"
#include "Engine/core/Constants.h"
#include "Engine/core/FileManager.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/Settings.h"
#include "Engine/graphics/Animation.h"
#include "Engine/graphics/Graphics.h"
#include "Engine/graphics/iMesh.h"
#include "Tests/Support/OffscreenDisplay.h"
#include "Tests/Support/TempDirectory.h"
#include "Tests/Support/UnitFiles.h"

namespace {

using namespace Engine;

constexpr UInt man_count = 100;
constexpr UInt bone_count = 24;
constexpr UInt key_count = 20;
constexpr UInt sides = 12;
constexpr UInt rings = 60;  ///< of a body: 1,440 triangles, as many as a man of the game has

/// A column of 48 units of height, its rings shared out among the bones.
std::string makeBody(Bool has_bones) {
    std::vector<UnitFiles::sPoint> points;
    std::vector<std::uint16_t> indices;
    for (UInt ring = 0; ring <= rings; ++ring) {
        for (UInt side = 0; side < sides; ++side) {
            const Float angle = static_cast<Float>(side) / sides * 6.2831853f;
            const Vector3 out(std::cos(angle), std::sin(angle), 0.0f);
            const Float height = static_cast<Float>(ring) / rings * 48.0f;
            const auto bone = static_cast<std::uint8_t>(ring * (bone_count - 1) / rings);
            points.push_back({out * 8.0f + Vector3(0.0f, 0.0f, height), out, {0.0f, 0.0f}, bone});
            if (ring == rings)
                continue;
            const UInt a = ring * sides + side;
            const UInt b = ring * sides + (side + 1) % sides;
            for (const UInt index : {a, a + sides, b, b, a + sides, b + sides})
                indices.push_back(static_cast<std::uint16_t>(index));
        }
    }
    std::vector<Matrix> bones(has_bones ? bone_count : 0, Matrix(1.0f));
    return UnitFiles::makeMesh(points, indices, bones);
}

/// Each bone swings a little about its parent, the one below it.
std::string makeSwing() {
    std::vector<UnitFiles::sBone> bones(bone_count);
    for (UInt i = 0; i < bone_count; ++i) {
        bones[i].parent = i == 0 ? UnitFiles::no_parent : i - 1;
        for (UInt key = 0; key <= key_count; ++key) {
            const Float time = static_cast<Float>(key) / key_count;
            const Float angle = 0.02f * std::sin(time * 6.2831853f);
            bones[i].keys.push_back({glm::rotate(Matrix(1.0f), angle, Vector3(1.0f, 0.0f, 0.0f)), time});
        }
    }
    return UnitFiles::makeAnimation(1.0f, bones);
}

class cCrowd {
public:
    explicit cCrowd(Platform::iPlatform& platform, Bool moves) {
        m_data.write("sys/constants.xml",
                     "<main><game app_directory=\"bench\"/><lightConfig count=\"1\"/><lights0 count=\"1\""
                     " ambient=\"FF808080\" light_0_type=\"3\" light_0_direction=\"1,1,-1\""
                     " light_0_diffuse=\"FFFFFFFF\"/></main>");
        m_files = std::make_unique<cFileManager>(m_data.getPath(), "pack", m_data / "home/");
        m_constants = std::make_unique<cConstants>("sys/constants.xml");
        m_settings.setProperty("graphics", "width", cOffscreenWindow::side);
        m_settings.setProperty("graphics", "height", cOffscreenWindow::side);
        m_window = platform.createWindow({});
        m_graphics = std::make_unique<cGraphics>(platform, *m_window);
        const std::string body = makeBody(moves);
        const std::string swing = makeSwing();
        m_mesh = iMesh::create("body.mesh", reinterpret_cast<const std::uint8_t*>(body.data()), body.size());
        m_animation = std::make_unique<cAnimation>("swing.anim", reinterpret_cast<const std::uint8_t*>(swing.data()),
                                                   swing.size());
        for (UInt i = 0; i < man_count; ++i)
            addMan(i, moves);
    }

    void drawFrame() {
        m_graphics->beginRender();
        for (iGraphics::sUnit& man : m_men) {
            man.time += 0.02f;
            m_graphics->render(man, 0);
        }
        m_graphics->endRender();
        glFinish();
    }

    void makePoses() {
        for (iGraphics::sUnit& man : m_men)
            m_animation->setTime(man.time += 0.02f, m_mesh->getBoneMatrices());
    }

private:
    void addMan(UInt i, Bool moves) {
        iGraphics::sUnit man;
        man.mesh = m_mesh.get();
        man.animation = moves ? m_animation.get() : nullptr;
        man.time = static_cast<Float>(i) * 0.037f;
        const Vector3 place(20.0f + 24.0f * static_cast<Float>(i % 10), 50.0f + 20.0f * static_cast<Float>(i / 10),
                            0.0f);
        man.world = glm::rotate(glm::translate(Matrix(1.0f), place), 0.8726646f, Vector3(1.0f, 0.0f, 0.0f));
        man.lighting = true;
        m_men.push_back(man);
    }

    cTempDirectory m_data;
    std::unique_ptr<cFileManager> m_files;
    cResourceManager m_resources;
    std::unique_ptr<cConstants> m_constants;
    cSettings m_settings;
    std::unique_ptr<Platform::iWindow> m_window;
    std::unique_ptr<cGraphics> m_graphics;
    std::unique_ptr<iMesh> m_mesh;
    std::unique_ptr<cAnimation> m_animation;
    std::vector<iGraphics::sUnit> m_men;
};

void frame(benchmark::State& state, Bool moves) {
    const std::unique_ptr<cOffscreenWindow> window = cOffscreenWindow::create();
    if (!window)
        return state.SkipWithError("no OpenGL here");
    cOffscreenPlatform platform(*window);
    cCrowd crowd(platform, moves);
    for (int i = 0; i < 3; ++i)
        crowd.drawFrame();
    const std::size_t before = allocations;
    crowd.drawFrame();
    state.counters["allocations"] = static_cast<double>(allocations - before);
    for (auto _ : state)
        crowd.drawFrame();
}

void frameStill(benchmark::State& state) {
    frame(state, false);
}
BENCHMARK(frameStill)->Unit(benchmark::kMicrosecond)->UseRealTime();

void frameMen(benchmark::State& state) {
    frame(state, true);
}
BENCHMARK(frameMen)->Unit(benchmark::kMicrosecond)->UseRealTime();

void pose(benchmark::State& state) {
    Platform::cHeadlessPlatform platform("/game/brindle", "/nowhere/");
    cCrowd crowd(platform, true);
    for (auto _ : state)
        crowd.makePoses();
}
BENCHMARK(pose)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
