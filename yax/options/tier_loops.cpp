#include "yax/options/tier_loops.h"

#include <CLI/CLI.hpp>
#include <cstddef>

#include "model/text.h"
#include "model/wire_list_entry.h"
#include "yax/messages.h"
#include "yax/options/option_text.h"

namespace yax {

namespace {

using Measure = std::optional<float> model::LoopShape::*;

void Add(CLI::App& command, const char* name, const char* description, Measure measure,
         TierLoopOptions& options) {
  const auto take = [name, measure, &options](const std::vector<std::string>& texts) {
    for (const std::string& text : texts) {
      const std::size_t equals = text.find('=');
      if (equals == std::string::npos)
        throw Unusable(CommandLine(), std::string(name) + " " + model::Quoted(text) + " is not TIER=UNITS",
                       "give a tier and a length, such as 2=12.5");
      TierLoop loop{.Tier = text.substr(0, equals), .Shape = {}};
      loop.Shape.*measure = NumberOf(name, text.substr(equals + 1));
      options.Loops.push_back(loop);
    }
    return true;
  };
  command.add_option_function<std::vector<std::string>>(name, take, description)
      ->type_name("TIER=UNITS,...")
      ->delimiter(',')
      ->allow_extra_args(false)
      ->group("Wires");
}

void Give(const model::LoopShape& shape, model::LoopShape& own) {
  if (shape.Height) own.Height = shape.Height;
  if (shape.Extension) own.Extension = shape.Extension;
}

}  // namespace

void AddTierLoopOptions(CLI::App& command, TierLoopOptions& options) {
  Add(command, "--tier-loop-height", "Height of a tier's loops, in place of the die's",
      &model::LoopShape::Height, options);
  Add(command, "--tier-extension", "How far a tier's loops run level, in place of the die's",
      &model::LoopShape::Extension, options);
}

model::WireShapes ShapesOf(const TierLoopOptions& options, const model::Package& package) {
  model::WireShapes shapes;
  for (const TierLoop& loop : options.Loops) {
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
