#include "yax/options/loops.h"

#include <CLI/CLI.hpp>
#include <cstddef>

#include "model/faults.h"
#include "model/text.h"
#include "model/wire_list_entry.h"
#include "yax/messages.h"
#include "yax/options/option_text.h"
#include "yax/options/text_file.h"
#include "yax/options/wires_options.h"
#include "yax/options/zu_file.h"

namespace yax {

namespace {

void AddValue(CLI::App& command, const char* name, const char* unit, const char* description,
              std::optional<float>& value) {
  const auto take = [name, &value](const std::string& text) { value = NumberOf(name, text); };
  command.add_option_function<std::string>(name, take, description)->type_name(unit)->group(kWiresGroup);
}

using Measure = std::optional<float> model::LoopShape::*;

void AddTierLoops(CLI::App& command, const char* name, const char* description, Measure measure,
                  std::vector<TierLoop>& loops) {
  const auto take = [name, measure, &loops](const std::vector<std::string>& texts) {
    for (const std::string& text : texts) {
      const std::size_t equals = text.find('=');
      if (equals == std::string::npos)
        throw Unusable(CommandLine(), std::string(name) + " " + model::Quoted(text) + " is not TIER=UNITS",
                       "give a tier and a length, such as 2=12.5");
      TierLoop loop{.Tier = text.substr(0, equals), .Shape = {}};
      loop.Shape.*measure = NumberOf(name, text.substr(equals + 1));
      loops.push_back(loop);
    }
  };
  command.add_option_function<std::vector<std::string>>(name, take, description)
      ->type_name("TIER=UNITS,...")
      ->delimiter(',')
      ->allow_extra_args(false)
      ->group(kWiresGroup);
}

std::vector<std::string> MaterialNames() {
  std::vector<std::string> names;
  for (const model::WireMaterial& material : model::kWireMaterials) names.emplace_back(material.Name);
  return names;
}

void Give(const model::LoopShape& shape, model::LoopShape& own) {
  if (shape.Height) own.Height = shape.Height;
  if (shape.Extension) own.Extension = shape.Extension;
}

}  // namespace

void AddLoopOptions(CLI::App& command, LoopOptions& options) {
  command
      .add_option_function<std::string>(
          "--loops", [&options](const std::string& text) { options.DieHeight = text == "die-height"; },
          "Initial heights and extensions: as in the window after a load (default), or the height of each "
          "wire's die")
      ->check(CLI::IsMember(std::vector<std::string>{"window", "die-height"}))
      ->group(kWiresGroup);
  LoopValues& values = options.Values;
  // CLI11 takes options in the order in which they are added, so a setting given singly overrides the file's.
  AddFileOption(command, "--zu", "Parameter file; overrides --loops, and single options override it",
                [&values](const std::string& file) { values = ReadParameterText(file, TextOf(file)); })
      ->group(kWiresGroup);
  AddValue(command, "--base-loop-height", "UNITS", "Height of the base die's loops, in the file's units",
           values.BaseLoopHeight);
  AddValue(command, "--base-extension", "UNITS",
           "Distance from the pad at which the base die's loops begin to descend", values.BaseExtension);
  AddValue(command, "--stack-loop-height", "UNITS", "Height of the stacked die's loops, and of stitches",
           values.StackLoopHeight);
  command
      .add_option_function<std::string>(
          "--stack-extension",
          [&values](const std::string& text) {
            values.StackExtension =
                text == "edge" ? model::kEdgeOfBaseDie : NumberOf("--stack-extension", text);
          },
          "Distance from the pad at which the stacked die's loops begin to descend; edge: at the base die's "
          "edge")
      ->type_name("UNITS|edge")
      ->group(kWiresGroup);
  AddValue(command, "--stitch-extension", "UNITS",
           "Distance from the start at which stitches begin to descend", values.StitchExtension);
  AddTierLoops(command, "--tier-loop-height", "Height of a tier's loops, in place of the die's",
               &model::LoopShape::Height, options.Tiers);
  AddTierLoops(command, "--tier-extension",
               "Distance from the pad at which a tier's loops begin to descend, in place of the die's",
               &model::LoopShape::Extension, options.Tiers);
  command.add_option("--material", values.Material, "Material of the wires; does not affect pictures")
      ->check(CLI::IsMember(MaterialNames()))
      ->group(kWiresGroup);
  AddValue(command, "--wire-diameter", "MILS",
           "The wires' diameter, for clearances and exports; does not affect pictures", values.WireDiameter);
  AddValue(command, "--frequency", "HERTZ", "The signals' frequency; does not affect pictures",
           values.Frequency);
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
  setup::Apply(options.Values, settings);
  return settings;
}

model::WireShapes ShapesOf(const LoopOptions& options, const model::Package& package) {
  model::WireShapes shapes;
  for (const TierLoop& loop : options.Tiers) {
    bool found = false;
    for (const model::WireNameRec& wire : package.WireNames) {
      if (wire.Tier != loop.Tier) continue;
      Give(loop.Shape, shapes[EntryText(wire)]);
      found = true;
    }
    if (!found)
      throw Unusable({.File = package.PackagePath}, "no wire has tier " + loop.Tier,
                     "yax wires --summary lists the tiers");
  }
  return shapes;
}

}  // namespace yax
