// Arguments of yax: all groups of options on one command line, and the settings that follow from them.
// Nothing is read, written or drawn.
//
// The input is the arguments, each ended by a NUL byte.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/arguments.h"
#include "fuzz/expect.h"
#include "model/arithmetic.h"
#include "model/reader/read_package.h"
#include "yax/messages.h"
#include "yax/options/nets_options.h"
#include "yax/options/opened_package.h"
#include "yax/options/picture_options.h"

namespace {

constexpr char kPackage[] =
    "COMPL 40\nCOMPW 40\nCOMPZ 1\nCBP A\nCBP B\nSBP A 1 2 0 3 4 5 ROUND 0 1\nSBP B 1 2 0 3 4 5 ROUND 0 2\n"
    "WB A\nWB B\nSTCH A 0 0 B\n";

struct Options {
  yax::PackageOptions package;
  analysis::NetRule nets;
  yax::PictureOptions picture;
};

Options Parsed(std::vector<std::string> arguments) {
  CLI::App command;
  Options options;
  yax::AddPackageOption(command, options.package);
  yax::AddLoopOptions(command, options.package.Loops);
  command.remove_option(command.get_option("--zu"));  // reads a file
  yax::AddNetOptions(command, options.nets);
  yax::AddPictureOptions(command, options.picture);
  yax::AddUnitOption(command, options.package);
  yax::AddWireOptions(command, options.package.Wires);
  std::reverse(arguments.begin(), arguments.end());
  command.parse(arguments);
  return options;
}

void ExpectNumbers(const model::WireBondSettings& settings) {
  for (const float value :
       {settings.WireDiameter, settings.Frequency, settings.BaseLoopHeight, settings.StackLoopHeight,
        settings.BaseExtension, settings.StackExtension, settings.StitchExtension})
    Expect(std::isfinite(value), "settings are numbers");
}

void Use(const Options& options, const model::Package& package) {
  Expect(options.picture.Size.Width > 0 && options.picture.Size.Height > 0, "a picture has pixels");
  const auto& [view, camera, rotation] = options.picture.Viewpoint;
  Expect(std::isfinite(rotation.RotPitch) && std::isfinite(rotation.RotYaw) && std::isfinite(camera.CamYaw),
         "angles are numbers");
  model::Add16(camera.CamY, camera.CamLook);  // must not fault: the options have refused what would
  yax::PictureFormatOf(options.package.File);
  const yax::OpenedPackage opened(options.package, package, {});
  ExpectNumbers(opened.Settings);
  for (const auto& [name, shape] : opened.Shapes)
    Expect(std::isfinite(shape.Height.value_or(0.0F)) && std::isfinite(shape.Extension.value_or(0.0F)),
           "loops have lengths");
  Expect(!opened.Selection.Shown || !opened.Selection.Names.empty(), "a filter finds a wire or is refused");
  Expect(opened.WireDiameter() > 0.0, "wires have a diameter");
  analysis::NetOf(options.nets, "VDD_A");
}

void ExpectMessage(std::string_view text) { Expect(!text.empty(), "a refusal says why"); }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const model::Package package =
      model::reader::ParsePackage({}, {kPackage, "A POWER\nB GROUND\nA:B SIGNAL\n"});
  try {
    const Options options = Parsed(ArgumentsOf({reinterpret_cast<const char*>(data), size}));
    Use(options, package);
  } catch (const CLI::ParseError& stop) {
    ExpectMessage(stop.what());
  } catch (const yax::Unusable& unusable) {
    ExpectMessage(unusable.what());
  }
  return 0;
}
