/// Which pads are wired to which leads.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "import/die.h"
#include "import/lead_frame.h"

namespace importer {

enum class BondPlan {
  Order,  ///< pads and leads in their order around the die
  Names,  ///< each pad to the lead with its name as name, number or net
  None,
  Table
};

struct BondRequest {
  BondPlan Plan = BondPlan::Order;
  std::string TableFile = {};
  std::vector<std::string> Exceptions = {};   ///< "PAD=LEAD"; they override everything else
  std::vector<std::string> Unused = {};       ///< leads that stay free
  std::optional<double> Land = std::nullopt;  ///< where a wire lands, from a lead's inner end, in millimetres
};

/// A wire, by the numbers of its ends.
struct Wire {
  std::size_t Pad = 0;
  std::optional<std::size_t> Lead;  ///< none for a down bond
  glm::dvec2 End{0.0};
};

struct Assignment {
  bool ReportsFree = true;  ///< whether to report what stays free; false when no bonds were asked for
  std::vector<Wire> Wires;  ///< in the order of the pads
  std::vector<std::size_t> PadsWithoutLead;  ///< pads that should meet a lead but do not
  std::vector<std::size_t> UnusedLeads;      ///< leads that stay free on request, in ascending order
};

/// Needs   pads with unique names and edges
/// Faults  InputError when the request names a pad or lead that does not exist, or a down bond has no room
Assignment Assigned(const Die& die, const LeadFrame& frame, const BondRequest& request);

/// Where a wire lands on a lead: `land` from its inner end, else half its length or 0.2 mm, whichever is
/// less.
/// Faults  InputError when the lead is shorter than that
glm::dvec2 LandingOn(const Lead& lead, const std::optional<double>& land);

/// Where a wire straight out from the pad lands on the paddle, outside the die: halfway to the paddle's edge,
/// or two die heights from the die, whichever is nearer. Nothing when the loop has no room there.
std::optional<glm::dvec2> LandingOnPaddle(const DiePad& pad, const Die& die, const Paddle& paddle);

/// The outward normal of a die's edge.
glm::dvec2 NormalOfSide(char side);

}  // namespace importer
