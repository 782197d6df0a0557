// Packages: reads each twice, the second time over the scalars of the first, and draws it.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/expect.h"
#include "model/faults.h"
#include "model/reader/read_package.h"
#include "render/scene.h"

namespace {

/// Draws nothing, and requires finite coordinates.
class NoPen final : public model::Pen {
 public:
  void Quad(const model::Face& face) override { ExpectPlaces(face.Corners); }
  void Disc(const model::DiscRim& rim) override { ExpectPlaces(rim); }
  void Strip(const model::WireStrip& points, const model::Colour&) override { ExpectPlaces(points); }

 private:
  template <class Points>
  static void ExpectPlaces(const Points& points) {
    for (const model::SceneVector& point : points)
      Expect(std::isfinite(point.X) && std::isfinite(point.Y) && std::isfinite(point.Z),
             "drawn points are finite");
  }
};

/// Requires each line with fields to be reported once, in order, and with a record that exists.
class Listener final : public model::reader::ReadObserver {
 public:
  void OnPackageLine(const model::reader::LineNote& note) override {
    Expect(note.Line > last_ && note.Fields.Found() > 0, "lines with fields are reported in their order");
    Expect(note.Numbers < 1U << model::Tokens::kCount, "numbers are read from fields");
    Expect((note.Fate == model::reader::LineFate::Taken && IsOfBody(note.Keyword)) ==
               (note.Record.Table != model::RecordTable::None),
           "a body line that was taken has a record");
    last_ = note.Line;
  }
  void OnSideFileLine(const model::reader::LineNote&) override { Expect(false, "there is no side file"); }

 private:
  std::size_t last_ = 0;
};

void Draw(const model::Package& package) {
  const render::Appearance appearance;
  const model::WireSelection selection;
  NoPen pen;
  try {
    model::WireBondSettings settings;
    model::SetUnsetDefaults(settings, package);
    render::Scene({package, settings, appearance, selection}, pen).DrawPackage();
  } catch (const model::Fault&) {
    // A load may end with a message.
  }
}

void ExpectWhole(const model::Package& package) {
  for (const float value :
       {package.UnitScale, package.CompL, package.CompW, package.CompZ, package.SDCompL, package.SDCompW,
        package.SDCompZ, package.SDRotation, package.SDXOffset, package.SDYOffset})
    Expect(std::isfinite(value), "scalars are numbers");
  Expect(package.UnitScale >= 1.0F, "lengths are divided, never multiplied");
  for (const auto* const table : {&package.Bonds, &package.SDBonds}) {
    for (const model::BondRec& bond : *table)
      Expect(std::isfinite(bond.DieX) && std::isfinite(bond.SubSizeX) && std::isfinite(bond.WireEndZ),
             "records hold numbers");
  }
  for (const model::WireNameRec& entry : package.WireNames)
    Expect(entry.Name.find_first_of(" \t\n\r") == std::string::npos, "names hold no blanks");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const model::Package package = model::reader::ParsePackage({}, {text, std::nullopt});
  ExpectWhole(package);
  Draw(package);
  Listener listener;
  ExpectWhole(model::reader::ParsePackage(package, {text, std::nullopt}, &listener));
  return 0;
}
