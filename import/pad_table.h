/// Tables of pads, of bond fingers, and of bonds.
#pragma once

#include <cstddef>
#include <glm/vec2.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "import/die.h"
#include "import/lead_frame.h"

namespace importer {

/// The pads of a table.
/// Faults  InputError with the row
Die DieFromTable(const DieRequest& request);

/// The fingers of a table. Places relative to a corner need the die's size.
/// Units   `unit` is the table's unit in millimetres
/// Faults  InputError with the row
LeadFrame FingersFromTable(const std::string& file, double unit, const glm::dvec2& dieSize);

/// One row of a table of bonds, as its words.
struct BondRow {
  std::string PadName, PadNumber;  ///< either may be empty
  std::vector<std::string> Leads;  ///< numbers or names; none for a pad that stays free
  std::size_t Row = 0;
  bool MayBeHeader = false;  ///< the first row of a table in which no header was found
};

/// Faults  InputError with the row
std::vector<BondRow> BondsFromTable(const std::string& file);

/// The words of a field that holds leads: several between commas; none for "0", "NC" or an empty field.
std::vector<std::string> LeadWords(std::string_view field);

/// True for the words that stand for the paddle.
bool IsPaddleWord(std::string_view word);

}  // namespace importer
