// Parameter files, loaded by the wire bond setup, whose picture is drawn, and by yax.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/expect.h"
#include "fuzz/memory_file.h"
#include "model/reader/read_package.h"
#include "setup/setup_form.h"
#include "yax/messages.h"
#include "yax/options/zu_file.h"

// Replaces the routine that prints, to check what yax reports.
namespace yax {

void Complain(const Place& place, std::string_view what, std::string_view) {
  Expect(place.Line > 0 && !what.empty(), "a warning has a line and a reason");
}

}  // namespace yax

namespace {

class ChoosingDialog final : public setup::FileDialog {
 public:
  explicit ChoosingDialog(std::string path) : path_(std::move(path)) {}
  std::optional<std::string> ShowOpen(const setup::FileDialogRequest&) override { return path_; }
  std::optional<std::string> ShowSave(const setup::FileDialogRequest&) override { return std::nullopt; }

 private:
  std::string path_;
};

template <class Options>
bool OneOf(const Options& options, std::size_t first, std::size_t last) {
  return std::count(options.begin() + static_cast<std::ptrdiff_t>(first),
                    options.begin() + static_cast<std::ptrdiff_t>(last) + 1, true) == 1;
}

void ExpectOneOfEach(const setup::SetupControls& controls) {
  bool each = OneOf(controls.M, 0, 2) && OneOf(controls.WD, 0, 6) && OneOf(controls.FQ, 0, 3);
  for (const setup::LoopFrame& frame : setup::kLoopFrames)
    each = each && OneOf(controls.LH, frame.First, frame.Custom);
  Expect(each, "one option of each frame is selected");
}

void ExpectNumbers(const model::WireBondSettings& settings) {
  for (const float value :
       {settings.WireDiameter, settings.Frequency, settings.BaseLoopHeight, settings.StackLoopHeight,
        settings.BaseExtension, settings.StackExtension, settings.StitchExtension})
    Expect(std::isfinite(value), "settings are numbers");
}

void ReadByYax(std::string_view text) {
  try {
    const yax::LoopValues values = yax::ReadParameterText("a.zu", text);
    for (const auto& value :
         {values.WireDiameter, values.Frequency, values.BaseLoopHeight, values.StackLoopHeight,
          values.BaseExtension, values.StackExtension, values.StitchExtension})
      Expect(std::isfinite(value.value_or(0.0F)), "values are numbers");
  } catch (const yax::Unusable&) {
    // A command may end with a message.
  }
}

constexpr char kPackage[] =
    "SD_COMPL 4\nSD_COMPW 4\nSD_COMPZ 2\nCOMPL 80\nCOMPW 80\nCOMPZ 12\nCBP A 30 0 0 2 1 0 R RECTANGLE\n"
    "SBP A 90 0 0 8 2 0 RECTANGLE 1 1\nWB A 30 0 F 90 0 12 0\nSD_CBP S 10 0 0 2 1 0 R RECTANGLE\n"
    "SBP S 95 0 0 8 2 0 RECTANGLE 1 2\nWB S 10 0 F 95 0 18 0\nSTCH S 10 0 A 30 0 18 12\n";

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const MemoryFile file;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (!file.Put(text)) return -1;
  static const model::Package read = model::reader::ParsePackage({}, {kPackage, std::nullopt});
  model::Package package = read;
  model::WireBondSettings settings;
  model::SetUnsetDefaults(settings, package);
  ChoosingDialog dialog(file.Path());
  setup::Estimator estimator("/nowhere", "/nowhere");
  setup::SetupForm form(settings, package, dialog, estimator);
  form.RunCommand3();
  form.Cmd_Click(5);
  ExpectOneOfEach(form.Controls());
  ExpectNumbers(settings);
  for (const setup::PictureShape& shape : form.Picture(300.0F, 200.0F).Shapes)
    for (const setup::PicturePoint& point : shape.Points)
      Expect(std::isfinite(point.X) && std::isfinite(point.Y), "pictured points are finite");
  setup::ParameterFileName(package.PackagePath);
  ReadByYax(text);
  return 0;
}
