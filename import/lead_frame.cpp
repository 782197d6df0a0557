#include "import/lead_frame.h"

#include <glm/geometric.hpp>
#include <unordered_map>
#include <utility>

#include "import/names.h"
#include "model/input_error.h"
#include "model/text.h"

namespace importer {

namespace {

/// Exchanges the ends unless the inner one is nearer the die.
void SortEnds(Lead& lead) {
  if (glm::length(lead.Outer) < glm::length(lead.Inner)) std::swap(lead.Inner, lead.Outer);
}

}  // namespace

std::string Lead::PlainNet() const {
  if (Net.starts_with("unconnected-(")) return {};
  return Net.starts_with('/') ? Net.substr(1) : Net;
}

void LayLead(Lead& lead, const glm::dvec2& middle, double length, double degrees) {
  const glm::dvec2 half = Turned({length / 2.0, 0.0}, degrees);
  lead.Inner = middle - half;
  lead.Outer = middle + half;
  SortEnds(lead);
}

void PlaceDie(LeadFrame& frame, double degrees, const glm::dvec2& offset) {
  const auto seen = [&](const glm::dvec2& point) { return Turned(point - offset, -degrees); };
  for (Lead& lead : frame.Leads) {
    lead.Inner = seen(lead.Inner);
    lead.Outer = seen(lead.Outer);
    SortEnds(lead);
  }
  for (auto& [row, end] : frame.DownOfRow) end = seen(end);
  if (!frame.DiePaddle) return;
  frame.DiePaddle->Middle = seen(frame.DiePaddle->Middle);
  frame.DiePaddle->Degrees -= degrees;
}

std::vector<std::string> NameLeads(LeadFrame& frame) {
  std::vector<std::string> given;
  for (const Lead& lead : frame.Leads) given.push_back(lead.Label());
  FieldNames fields = FieldNamesOf(given, Repeat::SameThing, "leads");
  for (std::size_t i = 0; i < frame.Leads.size(); ++i) frame.Leads[i].Field = std::move(fields.Names[i]);
  return std::move(fields.Findings);
}

void Mirror(LeadFrame& frame) {
  for (Lead& lead : frame.Leads) {
    lead.Inner.x = -lead.Inner.x;
    lead.Outer.x = -lead.Outer.x;
  }
  if (!frame.DiePaddle) return;
  frame.DiePaddle->Middle.x = -frame.DiePaddle->Middle.x;
  frame.DiePaddle->Degrees = -frame.DiePaddle->Degrees;
}

void RefuseDuplicates(const LeadFrame& frame) {
  std::unordered_map<std::string, const Lead*> seen;
  for (const Lead& lead : frame.Leads) {
    const auto [before, isNew] = seen.try_emplace(lead.Label(), &lead);
    if (!isNew)
      throw model::InputError({frame.File, lead.Row}, "duplicate lead " + model::Quoted(lead.Label()),
                              "give each lead another number");
  }
}

}  // namespace importer
