/// A package with the inputs of its scene, as the window has them after a load.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include "model/reader/read_package.h"
#include "model/wire_bond_settings.h"
#include "render/scene.h"

namespace bench {

struct PackageScene {
  explicit PackageScene(const std::string& path)
      : package(Read(path)), settings(model::SettingsAfterReset(package)) {}

  render::SceneInputs Inputs() { return {package, settings, appearance, selection}; }

  static model::Package Read(const std::string& path) {
    model::PackageScalars before;
    before.PackagePath = path;
    std::optional<model::Package> package = model::reader::ReadPackage(before);
    if (!package) throw std::runtime_error("there is no package " + path);
    return *std::move(package);
  }

  model::Package package;
  model::WireBondSettings settings;
  render::Appearance appearance;
  model::WireSelection selection;
};

}  // namespace bench
