#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "yax/command_list.h"
#include "yax/pictures/package_picture.h"

namespace yax {

namespace {

struct RenderOptions {
  PackageOptions Package;
  PictureOptions Picture;
};

}  // namespace

Command AddRender(CLI::App& program) {
  CLI::App* const command =
      program.add_subcommand("render", "Draw a picture of the package, without a display");
  const auto options = std::make_shared<RenderOptions>();
  AddPackageOption(*command, options->Package);
  command
      ->add_option_function<std::string>(
          "-o,--output",
          [options, command](const std::string& file) {
            options->Picture.File = file;
            if (command->count("--format") == 0) options->Picture.Format = PictureFormatOf(file);
          },
          "The picture, .png or .bmp; - for standard output, a PNG without --format")
      ->type_name("FILE")
      ->required();
  command
      ->add_option_function<std::string>(
          "--format",
          [options](const std::string& text) {
            options->Picture.Format = text == "bmp" ? PictureFormat::Bmp : PictureFormat::Png;
          },
          "Picture format (default: by the ending of the output's name)")
      ->check(CLI::IsMember(std::vector<std::string>{"png", "bmp"}));
  AddPictureOptions(*command, options->Picture);
  AddLoopOptions(*command, options->Package.Loops);
  AddWireOptions(*command, options->Package.Wires);
  const auto run = [options] {
    WritePicture(OpenedPackage(options->Package), options->Picture);
    return Status::Done;
  };
  return {command, run};
}

}  // namespace yax
