#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "yax/command_list.h"
#include "yax/options/camera_options.h"
#include "yax/options/opened_package.h"
#include "yax/options/picture_options.h"
#include "yax/output.h"
#include "yax/pictures/package_picture.h"

namespace yax {

namespace {

struct RenderOptions {
  PackageOptions package;
  std::string output;
  std::optional<PictureFormat> format;
  PictureOptions picture;
  CameraOptions camera;
  LoopOptions loops;
  WireOptions wires;
};

Status Render(const RenderOptions& options) {
  // Refuse wrong options before the work starts.
  const PictureFormat format = options.format ? *options.format : PictureFormatOf(options.output);
  CheckCamera(options.camera);
  const OpenedPackage opened(options.package, options.loops, options.wires);
  WriteOutput(options.output, PictureBytes(opened, options.camera, options.picture, format));
  return Status::Done;
}

}  // namespace

Command AddRender(CLI::App& program) {
  CLI::App* const command =
      program.add_subcommand("render", "Draw a picture of the package, without a display");
  const auto options = std::make_shared<RenderOptions>();
  AddPackageOption(*command, options->package);
  command
      ->add_option("-o,--output", options->output,
                   "The picture, .png or .bmp; - for standard output, a PNG without --format")
      ->type_name("FILE")
      ->required();
  command
      ->add_option_function<std::string>(
          "--format",
          [options](const std::string& text) {
            options->format = text == "bmp" ? PictureFormat::Bmp : PictureFormat::Png;
          },
          "Picture format (default: by the ending of the output's name)")
      ->check(CLI::IsMember(std::vector<std::string>{"png", "bmp"}));
  AddPictureOptions(*command, options->picture);
  AddCameraOptions(*command, options->camera);
  AddLoopOptions(*command, options->loops);
  AddWireOptions(*command, options->wires);
  return {command, [options] { return Render(*options); }};
}

}  // namespace yax
