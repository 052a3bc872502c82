#pragma once

#include <vector>

#include "Engine/core/Types.h"

/// How units are lit: plain records, filled from the constants and from a control's keys.
///
/// A lit vertex has the colour
///
///     emissive + ambient x (table's ambient + sum of the lights' ambients)
///              + sum over the lights of diffuse x light's diffuse x cos(normal, to the light)
///
/// each part brought to 0 to 1, with the material's diffuse alpha; it is multiplied with the texture. On top comes
/// specular x light's specular x cos(normal, half way between the light and the viewer) ^ power, where the light
/// reaches. What a light gives is weakened by 1 / (attenuation0 + attenuation1 d + attenuation2 d^2) at the distance d,
/// nothing beyond its range, and for a spot by how far the vertex is from its axis. This is the lighting of fixed
/// function devices, worked out for each vertex.
///
/// Places and directions are those of the logical screen: x right, y down, z towards the viewer, units.
namespace Engine {

enum eLightType : Int {
    lightPoint = 1,
    lightSpot = 2,
    lightDirectional = 3,  ///< from everywhere the same: position, range and attenuation do not count
};

/// One light of a configuration.
struct sLight {
    Int type = 0;  ///< eLightType; anything else gives no light
    DXColor diffuse;
    DXColor specular;
    DXColor ambient;
    Vector3 position{0.0f};
    Vector3 direction{0.0f};    ///< in which the light goes; need not have the length 1
    Float range = 0.0f;         ///< units
    Float falloff = 0.0f;       ///< exponent of the way from the inner cone's edge to the outer one's
    Float attenuation0 = 0.0f;  ///< all three 0: no weakening
    Float attenuation1 = 0.0f;
    Float attenuation2 = 0.0f;
    Float theta = 0.0f;  ///< inner cone, its whole angle, radians
    Float phi = 0.0f;    ///< outer cone, its whole angle, radians
};

/// The lights that a unit's light_table names.
struct sLightConfig {
    static constexpr UInt max_lights = 64;

    DXColor ambient;
    std::vector<sLight> lights;  ///< at most max_lights
};

/// What a unit's surface makes of light. Without lighting only the diffuse colour counts.
struct sMaterial {
    DXColor diffuse{1, 1, 1, 1};
    DXColor ambient{1, 1, 1, 1};
    DXColor specular{1, 1, 1, 1};
    DXColor emissive{1, 1, 1, 1};
    Float power = 7.0f;  ///< of the specular part; the higher, the smaller the gleam
};

}  // namespace Engine
