#pragma once

#include <vector>

#include "Engine/graphics/Lighting.h"
#include "Engine/platform/headless/HeadlessGraphicsDevice.h"
#include "Engine/platform/headless/HeadlessPlatform.h"

/// A display without pixels that writes down what it is asked, and fails when told to.
class cRecordingDevice : public Engine::Platform::cHeadlessGraphicsDevice {
public:
    struct sDraw {
        Engine::Platform::sDrawState state;
        Engine::Platform::sDrawRun run;
    };

    /// A unit as it was handed in; its world lies in the record.
    struct sUnit {
        Engine::Platform::sDrawState state;
        Engine::Platform::sUnitDraw draw;
        std::vector<Engine::Matrix> world;
        Engine::sMaterial material;
    };

    std::vector<sDraw> draws;  ///< of the last picture
    std::vector<sUnit> units;  ///< of the last picture
    std::vector<Engine::Platform::sVertex> vertices;
    std::vector<std::uint16_t> indices;
    Engine::UInt clear_color = 0;
    Engine::UInt failing_resets = 0;  ///< how many resets to come fail
    Engine::UInt resets = 0;
    Engine::UInt width = 0;
    Engine::UInt height = 0;
    Engine::Platform::eDeviceState state = Engine::Platform::eDeviceState::ready;

    Engine::Bool reset(Engine::UInt new_width, Engine::UInt new_height) override {
        ++resets;
        width = new_width;
        height = new_height;
        if (failing_resets > 0) {
            --failing_resets;
            return false;
        }
        state = Engine::Platform::eDeviceState::ready;
        return true;
    }
    Engine::Platform::eDeviceState present() override {
        if (state == Engine::Platform::eDeviceState::ready)
            cHeadlessGraphicsDevice::present();
        return state;
    }
    Engine::Platform::eDeviceState getState() override { return state; }
    void writeBatch(std::span<const Engine::Platform::sVertex> new_vertices,
                    std::span<const std::uint16_t> new_indices) override {
        cHeadlessGraphicsDevice::writeBatch(new_vertices, new_indices);
        vertices.assign(new_vertices.begin(), new_vertices.end());
        indices.assign(new_indices.begin(), new_indices.end());
    }
    void clear(Engine::UInt color) override {
        cHeadlessGraphicsDevice::clear(color);
        draws.clear();
        units.clear();
        clear_color = color;
    }
    void draw(const Engine::Platform::sDrawState& draw_state, const Engine::Platform::sDrawRun& run) override {
        cHeadlessGraphicsDevice::draw(draw_state, run);
        draws.push_back({draw_state, run});
    }
    void drawUnit(const Engine::Platform::sDrawState& draw_state, const Engine::Platform::sUnitDraw& unit) override {
        cHeadlessGraphicsDevice::drawUnit(draw_state, unit);
        units.push_back({draw_state, unit, {unit.world.begin(), unit.world.end()}, *unit.material});
    }
};

/// A headless platform whose display is a recording one.
class cRecordingPlatform : public Engine::Platform::cHeadlessPlatform {
public:
    cRecordingPlatform() : cHeadlessPlatform("/game/brindle", "/nowhere/") {}

    std::unique_ptr<Engine::Platform::iGraphicsDevice> createGraphicsDevice(Engine::Platform::iWindow&) override {
        auto made = std::make_unique<cRecordingDevice>();
        device = made.get();
        return made;
    }

    cRecordingDevice* device = nullptr;  ///< of the renderer
};
