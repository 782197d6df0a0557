#include "yax/options/loops.h"

#include <CLI/CLI.hpp>
#include <vector>

#include "model/faults.h"
#include "yax/messages.h"
#include "yax/options/option_text.h"
#include "yax/options/zu_file.h"

namespace yax {

namespace {

constexpr char kLoopsGroup[] = "Wires";

void AddValue(CLI::App& command, const char* name, const char* unit, const char* description,
              std::optional<float>& value) {
  const auto take = [name, &value](const std::string& text) { value = NumberOf(name, text); };
  command.add_option_function<std::string>(name, take, description)->type_name(unit)->group(kLoopsGroup);
}

}  // namespace

void AddLoopOptions(CLI::App& command, LoopOptions& options) {
  command
      .add_option_function<std::string>(
          "--loops", [&options](const std::string& text) { options.DieHeight = text == "die-height"; },
          "Heights and extensions: as in the window after a load (the default), or the dies' heights")
      ->check(CLI::IsMember(std::vector<std::string>{"window", "die-height"}))
      ->group(kLoopsGroup);
  command.add_option("--zu", options.ParameterFile, "A parameter file whose settings override these")
      ->type_name("FILE")
      ->group(kLoopsGroup);

  LoopValues& values = options.Values;
  AddValue(command, "--base-loop-height", "UNITS", "Height of the base die's loops, in the file's units",
           values.BaseLoopHeight);
  AddValue(command, "--base-extension", "UNITS", "How far the base die's loops run level",
           values.BaseExtension);
  AddValue(command, "--stack-loop-height", "UNITS", "Height of the stacked die's loops, and of stitches",
           values.StackLoopHeight);
  command
      .add_option_function<std::string>(
          "--stack-extension",
          [&values](const std::string& text) {
            values.StackExtension =
                text == "edge" ? model::kEdgeOfBaseDie : NumberOf("--stack-extension", text);
          },
          "How far the stacked die's loops run level; edge: to the base die's edge")
      ->type_name("UNITS|edge")
      ->group(kLoopsGroup);
  AddValue(command, "--stitch-extension", "UNITS", "How far stitches run level", values.StitchExtension);
  AddTierLoopOptions(command, options.Tiers);
  command.add_option("--material", values.Material, "Material of the wires; changes no picture")
      ->check(CLI::IsMember(std::vector<std::string>{"Au", "Al", "Cu"}))
      ->group(kLoopsGroup);
  AddValue(command, "--wire-diameter", "MILS",
           "The wires' diameter, for clearances and exports; changes no picture", values.WireDiameter);
  AddValue(command, "--frequency", "HERTZ", "The signals' frequency; changes no picture", values.Frequency);
}

model::WireBondSettings SettingsOf(const LoopOptions& options, const model::Package& package) {
  model::WireBondSettings settings;
  try {
    // As in the window, impossible heights end the load.
    model::SetUnsetDefaults(settings, package);
  } catch (const model::Fault& fault) {
    throw Unusable({.File = package.PackagePath}, fault.what(), "correct COMPZ or SD_COMPZ");
  }
  const model::WireBondSettings ofWindow = model::SettingsAfterReset(package);
  settings.Frequency = ofWindow.Frequency;  // the reader has no default frequency
  if (!options.DieHeight) settings = ofWindow;
  if (!options.ParameterFile.empty()) setup::Apply(ReadParameterFile(options.ParameterFile), settings);
  setup::Apply(options.Values, settings);
  return settings;
}

}  // namespace yax
