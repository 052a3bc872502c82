// unitsheet DATA OUT.png MESH TEXTURE ANIMATION[+MESH+TEXTURE]...: draws a unit off-screen with the game's own
// renderer, as the map and as the title screen show it, and leaves the picture in OUT.png. Behind an animation may
// stand what the unit holds meanwhile. For whoever makes meshes and animations.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <vector>

#include "Engine/Ui/Control.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Constants.h"
#include "Engine/core/FileManager.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/graphics/Animation.h"
#include "Engine/graphics/Graphics.h"
#include "Engine/graphics/image/Image.h"
#include "Engine/platform/sdl/SdlPlatform.h"

using namespace Engine;

namespace {

constexpr Float map_pitch = 0.8726646f;    ///< radians, 50 degrees
constexpr Float front_pitch = 1.3962634f;  ///< 80 degrees
constexpr UInt columns = 8;
constexpr UInt ground = 0xFF8AA63E;  ///< a meadow

/// The managers that drawing needs, in the engine's order.
class cStudio {
public:
    explicit cStudio(const String& data) : m_files(data, "pack", "/nowhere/"), m_constants("sys/constants.xml") {
        m_window = m_platform.createWindow({});
        m_graphics = std::make_unique<cGraphics>(m_platform, *m_window);
    }

    void saveTo(const std::string& path) {
        sImage image;
        if (!m_graphics->getDevice().readPicture(image))
            throw String("The display gives no picture.");
        const auto bytes = encodePng(image, String(path));
        std::ofstream file(path, std::ios::binary);
        file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        if (!file.flush())
            throw String("Can't write \"" + path + "\".");
    }

    cGraphics& getGraphics() { return *m_graphics; }

private:
    Platform::cSdlPlatform m_platform;
    cFileManager m_files;
    cResourceManager m_resources;
    cConstants m_constants;
    std::unique_ptr<Platform::iWindow> m_window;
    std::unique_ptr<cGraphics> m_graphics;
};

void drawGround(cGraphics& graphics) {
    iGraphics::sSprite sprite;
    const auto width = static_cast<Float>(graphics.getWidth());
    const auto height = static_cast<Float>(graphics.getHeight());
    sprite.corners[0] = {0, 0, ground};
    sprite.corners[1] = {width, 0, ground};
    sprite.corners[2] = {0, height, ground};
    sprite.corners[3] = {width, height, ground};
    graphics.render(sprite, static_cast<cTexture*>(nullptr), renderOpaque);
}

struct sLook {
    Vector2 position;
    Float angle = 0.0f;  ///< radians
    Float pitch = map_pitch;
    Float scale = 1.0f;
    cAnimation* animation = nullptr;
    Float part = 0.0f;  ///< of the animation's length
};

/// A mesh with its texture.
struct sBody {
    sBody(const String& mesh_name, const String& texture_name)
        : mesh(cResourceRef::adopt(cResourceManager::getInstance()->getMesh(mesh_name))),
          texture(cResourceRef::adopt(cResourceManager::getInstance()->getTexture(texture_name))) {}

    cResourceRef mesh;
    cResourceRef texture;
};

/// What the unit does, and what it holds while it does it.
struct sAct {
    cAnimation* animation = nullptr;
    std::optional<sBody> tool;
};

/// "ANIMATION" or "ANIMATION+MESH+TEXTURE".
sAct readAct(const std::string& text) {
    const std::size_t mesh = text.find('+');
    const std::size_t texture = mesh == std::string::npos ? mesh : text.find('+', mesh + 1);
    sAct act;
    act.animation =
        static_cast<cAnimation*>(cResourceManager::getInstance()->getAnimation(String(text.substr(0, mesh))));
    if (texture != std::string::npos)
        act.tool.emplace(String(text.substr(mesh + 1, texture - mesh - 1)), String(text.substr(texture + 1)));
    return act;
}

class cSheet {
public:
    cSheet(cGraphics& graphics, const String& mesh, const String& texture)
        : m_graphics(graphics), m_body(mesh, texture) {
        m_units.reserve(256);
    }

    void draw(const sLook& look, const sAct* act = nullptr) {
        draw(look, m_body);
        if (act && act->tool)
            draw(look, *act->tool);
    }

private:
    void draw(const sLook& look, const sBody& body) {
        cControl control(nullptr);
        control.setMesh(body.mesh.get());
        control.setTexture(body.texture.get());
        control.setAnimation(look.animation);
        control.setPosition(look.position);
        control.setAngle(look.angle);
        control.setPitch(look.pitch);
        control.setScale(Vector3(look.scale));
        control.setLightingEnable(true);
        control.setEmissiveColor({0, 0, 0, 1});
        control.show();
        m_units.push_back(control.getUnit());
        if (look.animation)
            m_units.back().time = look.part * look.animation->getLength();
        m_graphics.render(m_units.back(), renderLinear);
    }

    cGraphics& m_graphics;
    sBody m_body;
    std::vector<iGraphics::sUnit> m_units;  ///< never moved while the frame is open
};

Vector2 toPlace(Vector2 first, Vector2 step, UInt column, UInt row) {
    return first + step * Vector2(static_cast<Float>(column), static_cast<Float>(row));
}

/// Eight directions, as the map shows them and, on the right, as seen from the front.
void drawDirections(cSheet& sheet, cAnimation* animation) {
    for (UInt i = 0; i < columns; ++i) {
        const Float angle = static_cast<Float>(i) * 0.7853982f;
        const UInt line = i / 4;
        sheet.draw({.position = toPlace({45, 75}, {62, 0}, i, 0), .angle = angle, .animation = animation});
        sheet.draw({.position = toPlace({580, 95}, {64, 110}, i % 4, line),
                    .angle = angle,
                    .pitch = front_pitch,
                    .scale = 1.5f,
                    .animation = animation});
    }
}

/// An animation in eight steps, as the map shows it and, further down, large and from the front.
void drawSteps(cSheet& sheet, const sAct& act, UInt row) {
    for (UInt i = 0; i < columns; ++i) {
        const Float part = (static_cast<Float>(i) + 0.5f) / static_cast<Float>(columns);
        sheet.draw(
            {.position = toPlace({45, 145}, {62, 70}, i, row), .angle = 0.5f, .animation = act.animation, .part = part},
            &act);
        sheet.draw({.position = toPlace({60, 395}, {96, 97}, i, row),
                    .angle = 0.4f,
                    .pitch = front_pitch,
                    .scale = 1.6f,
                    .animation = act.animation,
                    .part = part},
                   &act);
    }
}

void run(const std::vector<String>& arguments) {
    cStudio studio(arguments[0]);
    std::vector<sAct> acts;
    for (std::size_t i = 4; i < arguments.size(); ++i)
        acts.push_back(readAct(arguments[i]));
    cSheet sheet(studio.getGraphics(), arguments[2], arguments[3]);
    studio.getGraphics().beginRender();
    drawGround(studio.getGraphics());
    drawDirections(sheet, acts.empty() ? nullptr : acts[0].animation);
    for (UInt row = 0; row < acts.size(); ++row)
        drawSteps(sheet, acts[row], row);
    studio.getGraphics().endRender();
    studio.saveTo(arguments[1]);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 5 || argv[1][0] == '-') {
        std::fprintf(stderr,
                     "usage: unitsheet DATA OUT.png MESH TEXTURE [ANIMATION[+MESH+TEXTURE]...]\n"
                     "Draws a unit, up to three animations in steps, each with what the unit holds meanwhile.\n");
        return argc == 2 && std::string_view(argv[1]) == "--help" ? 0 : 2;
    }
    setenv("SDL_VIDEODRIVER", "offscreen", 1);
    try {
        run({argv + 1, argv + argc});
        return 0;
    } catch (...) {
        std::fprintf(stderr, "%s\n", currentFailure().c_str());
        return 1;
    }
}
