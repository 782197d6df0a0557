/// The leads and the paddle of a package as values.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "import/box.h"

namespace importer {

/// A lead, a bond finger, or the landing point of a wire. Lengths in millimetres.
struct Lead {
  std::string Number = {}, Name = {}, Net = {};
  std::string Field = {};  ///< the label as a package holds it, once NameLeads has run
  std::string Tier = "1";
  glm::dvec2 Inner{0.0}, Outer{0.0};  ///< ends of the centre line; the inner one is nearer the die
  double Width = 0.0;
  std::size_t Row = 0;  ///< for a table: the line that it comes from

  /// The lead's label in messages.
  const std::string& Label() const { return !Field.empty() ? Field : Number.empty() ? Name : Number; }
  /// The net's name without the leading slash of a schematic's top level. Empty without a net, and for nets
  /// that mean "not connected".
  std::string PlainNet() const;
  bool HasNet() const { return !PlainNet().empty(); }
};

/// A rectangle, turned counter-clockwise about its middle.
struct Paddle {
  glm::dvec2 Middle{0.0}, Size{0.0};
  double Degrees = 0.0;
};

struct LeadFrame {
  std::string File;  ///< or the text that describes an outline
  std::vector<Lead> Leads;
  std::optional<Paddle> DiePaddle;
  std::vector<std::string> Notes = {};
  std::unordered_map<std::size_t, std::size_t> LeadOfRow = {};  ///< for a table: the lead of each row
  std::unordered_map<std::size_t, glm::dvec2> DownOfRow = {};   ///< where a row's wire ends on the paddle
};

/// Sets a lead's ends from its rectangle: the middle, and the longer side `length` in direction `degrees`.
void LayLead(Lead& lead, const glm::dvec2& middle, double length, double degrees);

/// Turns and moves the die in its package, by moving leads and paddle the other way. A lead's ends are
/// exchanged when the outer one becomes the nearer one.
void PlaceDie(LeadFrame& frame, double degrees, const glm::dvec2& offset);

/// Makes the labels valid for a package. Leads that share a label, as in lists of wires, keep sharing it.
/// Returns findings as NamePads does
std::vector<std::string> NameLeads(LeadFrame& frame);

/// Mirrors the package, to see it from below: left and right change places.
void Mirror(LeadFrame& frame);

/// Faults  InputError when two leads have the same number, or, without numbers, the same name
void RefuseDuplicates(const LeadFrame& frame);

}  // namespace importer
