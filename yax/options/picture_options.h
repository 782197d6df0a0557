/// The options for a picture that a command writes.
#pragma once

#include <string>

#include "render/appearance.h"
#include "render/named_view.h"
#include "render/picture.h"

namespace CLI {
class App;
}

namespace yax {

enum class PictureFormat { Png, Bmp };

struct PictureOptions {
  std::string File;  ///< empty for no picture
  PictureFormat Format = PictureFormat::Png;
  render::PixelSize Size{1024, 768};
  render::Appearance Appearance;
  render::Viewpoint Viewpoint;
};

/// Adds --picture, the picture's file, whose name chooses the format.
void AddPictureFile(CLI::App& command, const char* description, PictureOptions& options);

/// Adds --size, --background and those of the camera.
void AddPictureOptions(CLI::App& command, PictureOptions& options);

/// Adds --background alone.
void AddBackgroundOption(CLI::App& command, render::Appearance& appearance);

/// The format by the ending of an output file's name; "-" is PNG.
/// Faults  Unusable for any other name
PictureFormat PictureFormatOf(const std::string& output);

}  // namespace yax
