#include "yax/options/picture_options.h"

#include <CLI/CLI.hpp>
#include <cstdint>
#include <vector>

#include "model/text.h"
#include "yax/messages.h"
#include "yax/options/camera_options.h"
#include "yax/options/option_text.h"
#include "yax/options/text_file.h"

namespace yax {

namespace {

constexpr char kPictureGroup[] = "Picture";

}  // namespace

void AddPictureFile(CLI::App& command, const char* description, PictureOptions& options) {
  AddFileOption(command, "--picture", description, [&options](const std::string& file) {
    options.File = file;
    options.Format = PictureFormatOf(file);
  });
}

void AddPictureOptions(CLI::App& command, PictureOptions& options) {
  command
      .add_option_function<std::string>(
          "--size", [&options](const std::string& text) { options.Size = SizeOf("--size", text); },
          "Pixels (default: 1024x768)")
      ->type_name("WxH")
      ->group(kPictureGroup);
  AddBackgroundOption(command, options.Appearance);
  AddCameraOptions(command, options.Viewpoint);
}

void AddBackgroundOption(CLI::App& command, render::Appearance& appearance) {
  command
      .add_option_function<std::string>(
          "--background",
          [&appearance](const std::string& text) {
            const std::int16_t component = text == "black" ? 0 : 1;
            appearance = {text == "black", component, component, component};
          },
          "Background; changes the colours of dies, pads and wires (default: black)")
      ->check(CLI::IsMember(std::vector<std::string>{"black", "white"}))
      ->group(kPictureGroup);
}

PictureFormat PictureFormatOf(const std::string& output) {
  const std::string name = model::UpperCase(output);
  if (name == "-" || name.ends_with(".PNG")) return PictureFormat::Png;
  if (name.ends_with(".BMP")) return PictureFormat::Bmp;
  throw Unusable({.File = output}, "unknown picture format", "use .png, .bmp or -");
}

}  // namespace yax
