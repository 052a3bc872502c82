#pragma once

#include <string_view>

#include "Engine/graphics/Batch.h"

namespace Engine {

/// What the renderer itself draws over a finished scene, in display pixels: the bands beside a fitted screen and
/// lines of text.
namespace Overlay {

/// The letters of the system font as one picture for addText(). The texture belongs to the caller.
Platform::sTextureSurface createFontTexture(Platform::iGraphicsDevice& device);

/// Two black bands beside a screen of the given size: above and below where the border's width is 0, else left and
/// right. Nothing if there is no border.
/// @param border  width of the left and height of the upper band
void addBands(cBatch& batch, Vector2 border, Vector2 display);

/// One line with its upper left corner at the given place. What is no printable ASCII shows as '?'.
void addText(cBatch& batch, const Platform::sTextureSurface& font, std::string_view text, Vector2 place, UInt color);

}  // namespace Overlay

}  // namespace Engine
