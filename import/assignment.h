/// Who meets whom: wires from pads to leads.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "import/die.h"
#include "import/lead_frame.h"
#include "import/pad_table.h"

namespace importer {

enum class BondPlan {
  Order,  ///< in their order around the die
  Names,  ///< pads by name to leads of that name, number or net
  None,
  Table
};

struct BondRequest {
  BondPlan Plan = BondPlan::Order;
  std::string TableFile = {};
  std::vector<std::string> Exceptions = {};   ///< "PAD=LEAD", over everything else
  std::vector<std::string> Unused = {};       ///< leads that stay free
  std::optional<double> Land = std::nullopt;  ///< from a lead's inner end, in millimetres
};

/// A wire, by the numbers of its ends.
struct Wire {
  std::size_t Pad = 0;
  std::optional<std::size_t> Lead;  ///< none for a down bond
  glm::dvec2 End{0.0};
};

struct Assignment {
  bool Judged = true;       ///< whether what stays free is worth a word; not when no bonds were asked for
  std::vector<Wire> Wires;  ///< in the order of the pads
  std::vector<std::size_t> PadsOver;     ///< that should have met a lead and did not
  std::vector<std::size_t> UnusedLeads;  ///< that stay free as asked, rising
};

/// Needs   pads with unique names and edges
/// Faults  ImportError when the request names a pad or lead that is not there, or a down bond has no room
Assignment Assigned(const Die& die, const LeadFrame& frame, const BondRequest& request);

/// Where a wire lands on a lead: `land` from its inner end, else half its length or 0.2 mm, whichever is
/// less. Faults  ImportError when the lead is shorter than that
glm::dvec2 LandingOn(const Lead& lead, const std::optional<double>& land);

/// Where a wire straight out from the pad lands on the paddle, outside the die; nothing when there is no
/// room. That is halfway to the paddle's edge or two die heights from the die, whichever is nearer: a loop
/// needs the room.
std::optional<glm::dvec2> LandingOnPaddle(const DiePad& pad, const Die& die, const Paddle& paddle);

/// The outward normal of a die's edge.
glm::dvec2 NormalOfSide(char side);

}  // namespace importer
