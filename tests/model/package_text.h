/// Package text in, package out.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "model/reader/read_package.h"
#include "tests/temporary_folder.h"

namespace model {

/// Values side by side, texts in quotes: "'A' 1 -2.5 ''".
template <class... Values>
std::string Fields(const Values&... values) {
  std::ostringstream text;
  text.precision(7);
  const auto add = [&text](const auto& value) {
    if (text.tellp() > 0) text << ' ';
    if constexpr (std::is_arithmetic_v<std::decay_t<decltype(value)>>)
      text << value;
    else
      text << '\'' << value << '\'';
  };
  (add(values), ...);
  return text.str();
}

/// Reads a package from its text.
inline Package PackageOf(const std::string& text) {
  const TemporaryFolder folder;
  PackageScalars before;
  before.PackagePath = PutFile(folder / "board.yax", text);
  return reader::ReadPackage(before).value();
}

class PackageText : public testing::Test {
 protected:
  PackageText() { before.PackagePath = folder / "board.yax"; }

  /// Reads `text` as a package file that follows the header `before`.
  Package Read(std::string_view text) {
    PutFile(before.PackagePath, text);
    return reader::ReadPackage(before).value();
  }
  /// Reads `text` with `netTypes` in the side file.
  Package Read(std::string_view text, std::string_view netTypes) {
    PutFile(before.PackagePath + ".vu", netTypes);
    return Read(text);
  }
  /// Reads body lines under a die of height 1 that is not rescaled.
  Package ReadBody(const std::string& lines) { return Read("COMPZ 1\n" + lines); }

  /// The tiers in the wire list's order.
  static std::vector<std::string> Tiers(const Package& package) {
    std::vector<std::string> tiers;
    for (const WireNameRec& entry : package.WireNames) tiers.push_back(entry.Tier);
    return tiers;
  }

  TemporaryFolder folder;
  PackageScalars before;
};

}  // namespace model
