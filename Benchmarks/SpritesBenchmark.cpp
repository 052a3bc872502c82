/// 10,000 rotated, blended sprites of 8 textures in a given order: what the renderer adds of its own, and what a whole
/// frame costs on the GL device.
///
/// "own": drawing itself is cut off on every side, so that the time is that of turning sprites into draws. The
/// renderer has a device that does nothing; the bare batch fills one buffer and calls nothing; SFML's glDrawArrays is
/// an empty one of this program; SDL draws into a picture of one pixel.
/// "frame": the renderer on the GL device, off-screen, with the textures sorted and changing every 10 sprites.
///
/// SFML needs a display: xvfb-run bench_sprites.

#include <SDL.h>
#include <benchmark/benchmark.h>
#include <epoxy/gl.h>

#include <SFML/Graphics.hpp>
#include <cmath>
#include <cstdlib>
#include <random>

#include "Benchmarks/CountAllocations.h"
#include "Engine/core/FileManager.h"
#include "Engine/core/Settings.h"
#include "Engine/graphics/Graphics.h"
#include "Engine/graphics/Texture.h"
#include "Engine/platform/headless/HeadlessGraphicsDevice.h"
#include "Tests/Support/OffscreenDisplay.h"
#include "Tests/Support/TempDirectory.h"

#undef glDrawArrays
/// Stands before the driver's own for whoever is linked with it by name, which is SFML alone.
extern "C" __attribute__((visibility("default"))) void glDrawArrays(GLenum, GLint, GLsizei) {
}

namespace {

using namespace Engine;

constexpr UInt sprite_count = 10000;
constexpr UInt texture_count = 8;
constexpr UInt texture_side = 64;
constexpr Float sprite_side = 24.0f;

struct sItem {
    iGraphics::sSprite sprite;
    Vector2 center{0.0f};
    Float angle = 0.0f;  ///< degrees
    UInt texture = 0;
};

/// @param run  sprites of one texture in a row
std::vector<sItem> makeItems(UInt run) {
    std::mt19937 random(1);
    const auto draw = [&random](Float below) { return static_cast<Float>(random() % 100000) / 100000.0f * below; };
    std::vector<sItem> items(sprite_count);
    for (UInt i = 0; i < sprite_count; ++i) {
        sItem& item = items[i];
        item.center = {draw(800.0f), draw(600.0f)};
        item.angle = draw(360.0f);
        item.texture = i / run % texture_count;
        const Float c = std::cos(item.angle * 0.0174533f) * sprite_side / 2;
        const Float s = std::sin(item.angle * 0.0174533f) * sprite_side / 2;
        const Vector2 places[4] = {{-c + s, -s - c}, {c + s, s - c}, {-c - s, -s + c}, {c - s, s + c}};
        for (int corner = 0; corner < 4; ++corner) {
            item.sprite.corners[corner] = {item.center.x + places[corner].x, item.center.y + places[corner].y,
                                           0xC0FFFFFF};
        }
    }
    return items;
}

constexpr UInt mixed_run = 10;
constexpr UInt sorted_run = sprite_count / texture_count;

class cIdleDevice : public Platform::cHeadlessGraphicsDevice {
public:
    void draw(const Platform::sDrawState&, const Platform::sDrawRun&) override {}
};

class cIdlePlatform : public Platform::cHeadlessPlatform {
public:
    using cHeadlessPlatform::cHeadlessPlatform;
    std::unique_ptr<Platform::iGraphicsDevice> createGraphicsDevice(Platform::iWindow&) override {
        return std::make_unique<cIdleDevice>();
    }
};

/// The renderer on a platform, with eight pictures.
class cRenderer {
public:
    explicit cRenderer(Platform::iPlatform& platform) {
        m_data.write("sys/constants.xml", "<main><game app_directory=\"bench\"/></main>");
        for (UInt i = 0; i < texture_count; ++i)
            writePicture(std::to_string(i) + ".png");
        m_files = std::make_unique<cFileManager>(m_data.getPath(), "pack", m_data / "home/");
        m_window = platform.createWindow({});
        m_graphics = std::make_unique<cGraphics>(platform, *m_window);
        m_graphics->resizeBuffers(sprite_count);
        for (UInt i = 0; i < texture_count; ++i)
            m_textures.push_back(std::make_unique<cTexture>(std::to_string(i) + ".png"));
    }

    void drawFrame(const std::vector<sItem>& items) {
        m_graphics->beginRender();
        for (const sItem& item : items)
            m_graphics->render(item.sprite, m_textures[item.texture].get(), 0);
        m_graphics->endRender();
    }

private:
    void writePicture(const String& name) {
        const sImage image{texture_side, texture_side, std::vector<std::uint8_t>(texture_side * texture_side * 4, 200)};
        const std::vector<std::uint8_t> file = encodePng(image, name);
        m_data.write(name, {file.begin(), file.end()});
    }

    cTempDirectory m_data;
    std::unique_ptr<cFileManager> m_files;
    std::unique_ptr<Platform::iWindow> m_window;
    std::unique_ptr<cGraphics> m_graphics;
    std::vector<std::unique_ptr<cTexture>> m_textures;
};

void ownRenderer(benchmark::State& state) {
    const std::vector<sItem> items = makeItems(static_cast<UInt>(state.range(0)));
    cIdlePlatform platform("/game/brindle", "/nowhere/");
    cRenderer renderer(platform);
    for (int i = 0; i < 3; ++i)
        renderer.drawFrame(items);
    const std::size_t before = allocations;
    renderer.drawFrame(items);
    state.counters["allocations"] = static_cast<double>(allocations - before);
    for (auto _ : state)
        renderer.drawFrame(items);
}
BENCHMARK(ownRenderer)->Arg(sorted_run)->Arg(mixed_run)->Unit(benchmark::kMicrosecond);

/// The least that has to be done: corners and indices into one buffer.
void ownBareBatch(benchmark::State& state) {
    const std::vector<sItem> items = makeItems(static_cast<UInt>(state.range(0)));
    std::vector<Platform::sVertex> vertices(sprite_count * 4);
    std::vector<std::uint16_t> indices(sprite_count * 6);
    for (auto _ : state) {
        Platform::sVertex* vertex = vertices.data();
        std::uint16_t* index = indices.data();
        UInt first = 0;
        UInt texture = items[0].texture;
        for (const sItem& item : items) {
            if (item.texture != texture) {
                texture = item.texture;
                first = 0;
                benchmark::ClobberMemory();  // here it would draw
            }
            const iGraphics::sSprite& sprite = item.sprite;
            const Float us[2] = {sprite.u0, sprite.u1};
            const Float vs[2] = {sprite.v0, sprite.v1};
            for (UInt i = 0; i < 4; ++i)
                *vertex++ = {sprite.corners[i].x,     sprite.corners[i].y, 0.0f,
                             sprite.corners[i].color, us[i & 1],           vs[i >> 1]};
            for (const UInt place : {0u, 2u, 1u, 1u, 2u, 3u})
                *index++ = static_cast<std::uint16_t>(first + place);
            first += 4;
        }
        benchmark::DoNotOptimize(vertices.data());
        benchmark::DoNotOptimize(indices.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(ownBareBatch)->Arg(sorted_run)->Arg(mixed_run)->Unit(benchmark::kMicrosecond);

// With the GL driver, but with draw calls that do nothing: what the program itself and its driver spend on handing
// 10,000 quads over. The pointers through which the draw calls go are those of libepoxy.

void EPOXY_CALLSPEC drawNothing(GLenum, GLsizei, GLenum, const void*, GLint) {
}
void EPOXY_CALLSPEC drawNothingOften(GLenum, const GLsizei*, GLenum, const void* const*, GLsizei, const GLint*) {
}

class cWithoutDraws {
public:
    cWithoutDraws() {
        epoxy_glDrawElementsBaseVertex = &drawNothing;
        epoxy_glMultiDrawElementsBaseVertex = &drawNothingOften;
    }
    ~cWithoutDraws() {
        epoxy_glDrawElementsBaseVertex = m_draw;
        epoxy_glMultiDrawElementsBaseVertex = m_multi_draw;
    }

private:
    decltype(epoxy_glDrawElementsBaseVertex) m_draw = epoxy_glDrawElementsBaseVertex;
    decltype(epoxy_glMultiDrawElementsBaseVertex) m_multi_draw = epoxy_glMultiDrawElementsBaseVertex;
};

void submitRenderer(benchmark::State& state) {
    const std::unique_ptr<cOffscreenWindow> window = cOffscreenWindow::create();
    if (!window)
        return state.SkipWithError("no OpenGL here");
    const std::vector<sItem> items = makeItems(static_cast<UInt>(state.range(0)));
    cOffscreenPlatform platform(*window);
    cRenderer renderer(platform);
    renderer.drawFrame(items);
    const cWithoutDraws without_draws;
    for (auto _ : state)
        renderer.drawFrame(items);
}
BENCHMARK(submitRenderer)->Arg(sorted_run)->Arg(mixed_run)->Unit(benchmark::kMicrosecond);

/// The bare way: one streamed vertex buffer, mapped and filled anew each frame, and a draw for each run of one texture.
void submitBareBatch(benchmark::State& state) {
    const std::unique_ptr<cOffscreenWindow> window = cOffscreenWindow::create();
    if (!window)
        return state.SkipWithError("no OpenGL here");
    const std::vector<sItem> items = makeItems(static_cast<UInt>(state.range(0)));
    cOffscreenPlatform platform(*window);
    const cRenderer context(platform);  // gives the context and frees it
    GLuint array = 0;
    GLuint buffer = 0;
    GLuint textures[texture_count];
    glGenVertexArrays(1, &array);
    glBindVertexArray(array);
    glGenBuffers(1, &buffer);
    glBindBuffer(GL_ARRAY_BUFFER, buffer);
    glGenTextures(texture_count, textures);
    const cWithoutDraws without_draws;
    constexpr GLsizeiptr size = sprite_count * 4 * sizeof(Platform::sVertex);
    for (auto _ : state) {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
        glBufferData(GL_ARRAY_BUFFER, size, nullptr, GL_STREAM_DRAW);
        auto* vertex = static_cast<Platform::sVertex*>(
            glMapBufferRange(GL_ARRAY_BUFFER, 0, size, GL_MAP_WRITE_BIT | GL_MAP_INVALIDATE_BUFFER_BIT));
        for (const sItem& item : items) {
            const iGraphics::sSprite& sprite = item.sprite;
            const Float us[2] = {sprite.u0, sprite.u1};
            const Float vs[2] = {sprite.v0, sprite.v1};
            for (UInt i = 0; i < 4; ++i)
                *vertex++ = {sprite.corners[i].x,     sprite.corners[i].y, 0.0f,
                             sprite.corners[i].color, us[i & 1],           vs[i >> 1]};
        }
        glUnmapBuffer(GL_ARRAY_BUFFER);
        for (UInt first = 0; first < sprite_count;) {
            UInt end = first + 1;
            while (end < sprite_count && items[end].texture == items[first].texture)
                ++end;
            glBindTexture(GL_TEXTURE_2D, textures[items[first].texture]);
            glDrawElementsBaseVertex(GL_TRIANGLES, static_cast<GLsizei>((end - first) * 6), GL_UNSIGNED_SHORT, nullptr,
                                     static_cast<GLint>(first * 4));
            first = end;
        }
        SDL_GL_SwapWindow(window->getHandle());
    }
    glDeleteTextures(texture_count, textures);
    glDeleteBuffers(1, &buffer);
    glDeleteVertexArrays(1, &array);
}
BENCHMARK(submitBareBatch)->Arg(sorted_run)->Arg(mixed_run)->Unit(benchmark::kMicrosecond);

/// SFML's target and textures; empty where there is no display.
struct sSfml {
    sSfml() {
        if (!std::getenv("DISPLAY") || !target.create(800, 600))
            return;
        for (sf::Texture& texture : textures)
            texture.create(texture_side, texture_side);
        usable = true;
    }

    sf::RenderTexture target;
    sf::Texture textures[texture_count];
    bool usable = false;
};

void ownSfmlVertexArrays(benchmark::State& state) {
    sSfml sfml;
    if (!sfml.usable)
        return state.SkipWithError("needs a display");
    const std::vector<sItem> items = makeItems(mixed_run);
    sf::VertexArray array(sf::Quads);
    const Float side = texture_side;
    for (auto _ : state) {
        sfml.target.clear();
        UInt texture = items[0].texture;
        const auto flush = [&] {
            sfml.target.draw(array, &sfml.textures[texture]);
            array.clear();
        };
        for (const sItem& item : items) {
            if (item.texture != texture) {
                flush();
                texture = item.texture;
            }
            const auto& corners = item.sprite.corners;
            const sf::Color color(255, 255, 255, 0xC0);
            array.append({{corners[0].x, corners[0].y}, color, {0, 0}});
            array.append({{corners[1].x, corners[1].y}, color, {side, 0}});
            array.append({{corners[3].x, corners[3].y}, color, {side, side}});
            array.append({{corners[2].x, corners[2].y}, color, {0, side}});
        }
        flush();
    }
}
BENCHMARK(ownSfmlVertexArrays)->Unit(benchmark::kMicrosecond);

void ownSfmlSprites(benchmark::State& state) {
    sSfml sfml;
    if (!sfml.usable)
        return state.SkipWithError("needs a display");
    std::vector<sf::Sprite> sprites;
    for (const sItem& item : makeItems(mixed_run)) {
        sf::Sprite sprite(sfml.textures[item.texture]);
        sprite.setOrigin(texture_side / 2.0f, texture_side / 2.0f);
        sprite.setScale(sprite_side / texture_side, sprite_side / texture_side);
        sprite.setPosition(item.center.x, item.center.y);
        sprite.setRotation(item.angle);
        sprite.setColor(sf::Color(255, 255, 255, 0xC0));
        sprites.push_back(sprite);
    }
    for (auto _ : state) {
        sfml.target.clear();
        for (const sf::Sprite& sprite : sprites)
            sfml.target.draw(sprite);
    }
}
BENCHMARK(ownSfmlSprites)->Unit(benchmark::kMicrosecond);

/// One call a run of one texture.
void ownSdlGeometry(benchmark::State& state) {
    const std::vector<sItem> items = makeItems(mixed_run);
    SDL_Surface* surface = SDL_CreateRGBSurfaceWithFormat(0, 1, 1, 32, SDL_PIXELFORMAT_ARGB8888);
    SDL_Renderer* renderer = SDL_CreateSoftwareRenderer(surface);
    SDL_Texture* textures[texture_count];
    for (SDL_Texture*& texture : textures) {
        texture =
            SDL_CreateTexture(renderer, SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_STATIC, texture_side, texture_side);
        SDL_SetTextureBlendMode(texture, SDL_BLENDMODE_BLEND);
    }
    std::vector<SDL_Vertex> vertices;
    std::vector<int> indices;
    for (auto _ : state) {
        UInt texture = items[0].texture;
        const auto flush = [&] {
            SDL_RenderGeometry(renderer, textures[texture], vertices.data(), static_cast<int>(vertices.size()),
                               indices.data(), static_cast<int>(indices.size()));
            vertices.clear();
            indices.clear();
        };
        for (const sItem& item : items) {
            if (item.texture != texture) {
                flush();
                texture = item.texture;
            }
            const int first = static_cast<int>(vertices.size());
            for (UInt i = 0; i < 4; ++i) {
                const iGraphics::sCorner& corner = item.sprite.corners[i];
                vertices.push_back({{corner.x, corner.y},
                                    {255, 255, 255, 0xC0},
                                    {static_cast<Float>(i & 1), static_cast<Float>(i >> 1)}});
            }
            for (const int place : {0, 2, 1, 1, 2, 3})
                indices.push_back(first + place);
        }
        flush();
        SDL_RenderFlush(renderer);
    }
    SDL_DestroyRenderer(renderer);
    SDL_FreeSurface(surface);
}
BENCHMARK(ownSdlGeometry)->Unit(benchmark::kMicrosecond);

void frameOnGl(benchmark::State& state) {
    const std::unique_ptr<cOffscreenWindow> window = cOffscreenWindow::create();
    if (!window)
        return state.SkipWithError("no OpenGL here");
    const std::vector<sItem> items = makeItems(static_cast<UInt>(state.range(0)));
    cOffscreenPlatform platform(*window);
    cRenderer renderer(platform);
    for (auto _ : state) {
        renderer.drawFrame(items);
        glFinish();
    }
}
BENCHMARK(frameOnGl)->Arg(sorted_run)->Arg(mixed_run)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
