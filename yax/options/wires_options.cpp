#include "yax/options/wires_options.h"

#include <CLI/CLI.hpp>

#include "model/text.h"
#include "model/wire_list_entry.h"
#include "yax/messages.h"

namespace yax {

namespace {

std::string FirstLetter(const std::string& word) { return model::UpperCase(word.substr(0, 1)); }

std::string NotANet(const std::string& word) {
  const std::string letter = FirstLetter(word);
  return letter == "P" || letter == "G" || letter == "S"
             ? ""
             : model::Quoted(word) + " is not power, ground or signal";
}

/// Selects every wire that matches.
template <class Matches>
void Select(const model::Package& package, const std::string& filter, Matches&& matches,
            model::WireSelection& selection) {
  bool found = false;
  for (const model::WireNameRec& wire : package.WireNames) {
    if (!matches(wire)) continue;
    selection.Names.insert(EntryText(wire));
    found = true;
  }
  if (!found)
    throw Unusable({.File = package.PackagePath}, "no wire matches " + filter, "yax wires lists them all");
}

}  // namespace

void AddWireOptions(CLI::App& command, WireOptions& options) {
  command.add_option("--tier", options.Tiers, "Only wires of these tiers, as in the wire list")
      ->type_name("TIER,...")
      ->delimiter(',')
      ->allow_extra_args(false)
      ->group(kWiresGroup);
  command
      .add_option("--net", options.Nets, "Only wires of these net types: power, ground, signal, or P, G, S")
      ->type_name("TYPE,...")
      ->delimiter(',')
      ->allow_extra_args(false)
      ->check(CLI::Validator(NotANet, ""))
      ->group(kWiresGroup);
  command.add_flag("--stitches", options.Stitches, "Only stitches")->group(kWiresGroup);
  command
      .add_option("--name", options.Names,
                  "Only the wire of this name, a stitch as A:B; may be repeated. With several filters, wires "
                  "that match any of them")
      ->type_name("NAME")
      ->allow_extra_args(false)
      ->group(kWiresGroup);
}

model::WireSelection SelectionOf(const WireOptions& options, const model::Package& package) {
  model::WireSelection selection;
  const auto select = [&](const std::string& filter, auto matches) {
    selection.Shown = true;
    Select(package, filter, matches, selection);
  };
  for (const std::string& tier : options.Tiers)
    select("--tier " + tier, [&](const model::WireNameRec& wire) { return wire.Tier == tier; });
  for (const std::string& net : options.Nets)
    select("--net " + net,
           [&](const model::WireNameRec& wire) { return FirstLetter(wire.NetType) == FirstLetter(net); });
  for (const std::string& name : options.Names)
    select("--name " + name, [&](const model::WireNameRec& wire) { return EntryText(wire) == name; });
  if (options.Stitches)
    select("--stitches", [](const model::WireNameRec& wire) { return !wire.Name2.empty(); });
  return selection;
}

}  // namespace yax
