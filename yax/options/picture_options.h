/// The options for a picture that a command writes.
#pragma once

#include <string>

#include "render/appearance.h"
#include "render/picture.h"

namespace CLI {
class App;
}

namespace yax {

enum class PictureFormat { Png, Bmp };

struct PictureOptions {
  render::PixelSize Size{1024, 768};
  render::Appearance Appearance;
};

/// Adds --size and --background.
void AddPictureOptions(CLI::App& command, PictureOptions& options);

/// Adds --background alone.
void AddBackgroundOption(CLI::App& command, render::Appearance& appearance);

/// The format by the ending of an output file's name; "-" is PNG.
/// Faults  Unusable for any other name
PictureFormat PictureFormatOf(const std::string& output);

}  // namespace yax
