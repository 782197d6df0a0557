#include "yax/options/unit_option.h"

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace yax {

void AddUnitOption(CLI::App& command, const char* description, std::optional<analysis::LengthUnit>& unit) {
  std::vector<std::string> names;
  for (const analysis::LengthUnit& known : analysis::kLengthUnits) names.emplace_back(known.Name);
  command
      .add_option_function<std::string>(
          "--unit", [&unit](const std::string& name) { unit = analysis::UnitNamed(name); }, description)
      ->check(CLI::IsMember(names));
}

}  // namespace yax
