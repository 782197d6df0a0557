/// The fixture of geometry tests: package text in, drawing out.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "render/scene.h"
#include "tests/fault_of.h"
#include "tests/model/package_text.h"
#include "tests/render/recording_pen.h"

using model::PackageOf;

/// The header of a wire bond package with a die of 4 x 4 x 1.
inline constexpr char kSmallDie[] = "TECHNOLOGY WIRE_BOND\nCOMPL 4\nCOMPW 4\nCOMPZ 1\n";

class SceneTest : public testing::Test {
 protected:
  void Read(const std::string& text) { package = PackageOf(text); }

  /// Runs one drawing routine (all of them by default) and keeps only what it drew.
  const RecordingPen& Draw(void (render::Scene::*routine)() = &render::Scene::DrawPackage) {
    pen = {};
    (scene.*routine)();
    return pen;
  }

  const RecordingPen& Draw(const std::string& text,
                           void (render::Scene::*routine)() = &render::Scene::DrawPackage) {
    Read(text);
    return Draw(routine);
  }

  /// The message of a drawing's fault.
  std::string FaultOf(void (render::Scene::*routine)() = &render::Scene::DrawPackage) {
    return ::FaultOf([&] { Draw(routine); });
  }

  model::Package package;
  model::WireBondSettings settings;
  render::Appearance appearance;
  model::WireSelection selection;
  RecordingPen pen;
  render::Scene scene{{package, settings, appearance, selection}, pen};
};
