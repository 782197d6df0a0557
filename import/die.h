/// The chip of an import, as values: its file and options, its size, its pads.
#pragma once

#include <cstddef>
#include <optional>
#include <regex>
#include <string>
#include <unordered_map>
#include <vector>

#include "import/box.h"

namespace importer {

/// The most pads that the viewer draws.
inline constexpr std::size_t kMostPads = 32767;

enum class NetType { Unknown, Power, Ground, Signal };

/// One bond pad. Lengths in millimetres, places from the die's middle.
struct DiePad {
  std::string Name;                   ///< unique on the die once NamePads has run
  std::string Pin = {};               ///< the name before it was made unique
  std::string Number = {};            ///< from a table of pads
  glm::dvec2 Middle{0.0}, Size{0.0};  ///< sizes along x and y
  NetType Type = NetType::Unknown;
  char Side = 0;  ///< the die's edge, 'L', 'R', 'T' or 'B'; 0 until it is known
};

/// Which shapes are bond pads.
struct PadRule {
  double Least = 0.02;  ///< smallest side, in millimetres
  double Aspect = 2.0;  ///< largest ratio of the longer side to the shorter one
  std::optional<std::regex> Names = std::nullopt;
};

/// The die's file, and the values given with it. Lengths in millimetres.
struct DieRequest {
  std::string File;
  std::vector<std::string> LefFiles = {};
  std::string Macro = {};
  PadRule Rule = {};
  std::optional<glm::dvec2> PadSize = std::nullopt, DieSize = std::nullopt;
  double TableUnit = 1.0;  ///< a table's unit, in millimetres
};

struct Die {
  std::string File;
  std::vector<DiePad> Pads;
  glm::dvec2 Size{0.0};  ///< along x and y
  double Height = 0.0;
  bool OpeningsGiven = false;           ///< the user gave the pads' size, so they are not marks
  std::vector<std::string> Notes = {};  ///< what was assumed for values not given
  std::unordered_map<std::size_t, std::size_t> PadOfRow = {};  ///< for a table: the pad of each row
};

/// Makes the names valid for a package and unique: the second pad of a name becomes NAME_2, and so on.
/// Returns a finding for names with bytes that a package cannot hold, and one for names that were not unique
std::vector<std::string> NamePads(std::vector<DiePad>& pads);

/// Gives each pad without an edge the nearest one. A corner pad, equally far from two edges, joins the edge
/// whose row has the nearest pad.
void FindSides(Die& die);

}  // namespace importer
