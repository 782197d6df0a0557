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
  std::size_t Row = 0;  ///< in a table: the line that it comes from

  /// What a person calls the lead.
  const std::string& Label() const { return !Field.empty() ? Field : Number.empty() ? Name : Number; }
  /// The net as people say it, without the slash with which a schematic's top level begins. Empty without a
  /// net, and for the nets that stand for no connection.
  std::string PlainNet() const;
  bool HasNet() const { return !PlainNet().empty(); }
};

/// A rectangle, turned counter-clockwise about its middle.
struct Paddle {
  glm::dvec2 Middle{0.0}, Size{0.0};
  double Degrees = 0.0;
};

struct LeadFrame {
  std::string File;  ///< or the words that asked for it
  std::vector<Lead> Leads;
  std::optional<Paddle> DiePaddle;
  std::vector<std::string> Notes = {};
  std::unordered_map<std::size_t, std::size_t> LeadOfRow = {};  ///< in a table: the lead of each row
  std::unordered_map<std::size_t, glm::dvec2> DownOfRow = {};   ///< where a row's wire ends on the paddle
};

/// A lead from its rectangle, whose longer side, `length`, points in this direction.
void LayLead(Lead& lead, const glm::dvec2& middle, double length, double degrees);

/// Turns and moves the die in its package, which is to turn and move the package the other way about the die.
/// The lead's ends change places where the outer one becomes the nearer one.
void PlaceDie(LeadFrame& frame, double degrees, const glm::dvec2& offset);

/// Makes the labels fit for a package. Leads with one label, as lists of wires have them, keep it.
/// Returns findings as NamePads does
std::vector<std::string> NameLeads(LeadFrame& frame);

/// Turns the package's underside up: left and right change places.
void Mirror(LeadFrame& frame);

/// Faults  ImportError when two leads have the same number, or, without numbers, the same name
void RefuseTwins(const LeadFrame& frame);

}  // namespace importer
