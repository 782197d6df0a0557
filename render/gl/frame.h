/// The view's fixed GL state, and one frame.
#pragma once

#include "render/appearance.h"
#include "render/camera.h"
#include "render/eye.h"
#include "render/gl/gl_surface.h"
#include "render/gl/scene_list.h"
#include "render/named_view.h"

namespace render::gl {

/// Width / height; 0 when there is no height, which gives a degenerate projection rather than a fault.
float AspectRatioOf(const PixelSize& size);

/// Depth test, projection, viewport, light and global material of a fresh context.
/// Needs   current context
void SetUpView(const PixelSize& size, const Appearance& appearance);

void SetClearColour(const Appearance& appearance);
void SetViewport(const PixelSize& size);

/// Draws one frame into the back buffer: eye, model rotation, scene list.
/// Units   `depth` in scene units: the model stands this far behind the origin (the base die's width)
/// Needs   current context that SetUpView prepared
/// Faults  Overflow when CamY + CamLook leaves 16 bits
void DrawFrame(const Camera& camera, const ModelRotation& rotation, float depth, const SceneList& list);

/// Draws one frame from this eye instead of the walking camera; the model stands unturned at the origin, and
/// only near and far plane of the projection differ.
/// Needs   current context that SetUpView prepared for `size`
void DrawFrame(const Eye& eye, const PixelSize& size, const SceneList& list);

/// Sets up a fresh context and draws a package in one frame.
/// Needs   current context
/// Faults  those of the drawing; Overflow when CamY + CamLook leaves 16 bits
void DrawPicture(const SceneInputs& inputs, const Viewpoint& viewpoint, const PixelSize& size);

}  // namespace render::gl
