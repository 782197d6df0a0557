#include "formats/circuit.h"

#include <utf8.h>
#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>

#include "model/numbers.h"

namespace formats {

namespace {

std::string NineDigits(double value) {
  char text[32];
  return {text, std::to_chars(text, text + sizeof text, value, std::chars_format::general, 9).ptr};
}

double Rounded(double coupling) { return std::round(coupling * 1e9) / 1e9; }

/// The file's name without its ending, with only characters that every simulator accepts.
std::string SubcircuitName(const std::string& package) {
  std::string name = package.substr(0, package.rfind('.'));
  for (char& c : name)
    if (std::isalnum(static_cast<unsigned char>(c)) == 0) c = '_';
  const bool beginsWell = !name.empty() && std::isalpha(static_cast<unsigned char>(name.front())) != 0;
  return beginsWell ? name : "wires_" + name;
}

/// A name without line ends, which would end a comment.
std::string OneLine(std::string name) {
  std::replace_if(
      name.begin(), name.end(), [](char c) { return std::iscntrl(static_cast<unsigned char>(c)) != 0; }, ' ');
  return utf8::replace_invalid(name);
}

std::string LeftOutText(const analysis::WireCosts& costs, double least) {
  if (!costs.Coupled && costs.Rows.size() > 1) return "the couplings, which were not computed";
  if (costs.LeftOut == 0) return "nothing";
  if (costs.LeftOut == 1)
    return "1 coupling below " + NineDigits(least) + ", of " + NineDigits(costs.LargestLeftOut);
  return std::to_string(costs.LeftOut) + " couplings below " + NineDigits(least) + ", the largest of " +
         NineDigits(costs.LargestLeftOut);
}

std::string Ports(std::size_t wires) {
  std::string text;
  for (std::size_t wire = 1; wire <= wires; ++wire) {
    const std::string number = std::to_string(wire);
    text.append("\n+ s").append(number).append(" e").append(number);
  }
  return text;
}

std::string WireText(const analysis::WireCost& wire, const std::string& number) {
  return "* " + number + ": " + OneLine(wire.Wire.ListName()) + "\n" +  //
         "R_" + number + " s" + number + " m" + number + " " + NineDigits(wire.Impedance.Resistance) +
         "\n" +  //
         "L_" + number + " m" + number + " e" + number + " " + NineDigits(wire.Impedance.Inductance) + "\n";
}

}  // namespace

std::string ConditionsText(std::size_t wires, const model::WireBondSettings& settings) {
  return std::to_string(wires) + (wires == 1 ? " wire, " : " wires, ") + settings.Material + ", diameter " +
         model::GeneralText(settings.WireDiameter) + " mil, " + model::GeneralText(settings.Frequency) +
         " Hz";
}

std::string CircuitText(const analysis::WireCosts& costs, const CircuitNote& note) {
  const std::string name = SubcircuitName(note.Package);
  std::string text = "* The bond wires of " + OneLine(note.Package) + ": " + note.Conditions + ".\n" +
                     "* Wire n runs from port sn to port en. R, L and k hold at this frequency.\n" +
                     "* Left out: " + LeftOutText(costs, note.LeastCoupling) + ".\n" + ".subckt " + name +
                     Ports(costs.Rows.size()) + "\n";
  for (std::size_t wire = 0; wire < costs.Rows.size(); ++wire)
    text += WireText(costs.Rows[wire], std::to_string(wire + 1));
  for (const analysis::Coupling& pair : costs.Couplings) {
    const std::string first = std::to_string(pair.First + 1);
    const std::string second = std::to_string(pair.Second + 1);
    text.append("K_").append(first).append("_").append(second);
    text.append(" L_").append(first).append(" L_").append(second);
    text.append(" ").append(NineDigits(Rounded(pair.K))).append("\n");
  }
  return text.append(".ends ").append(name).append("\n");
}

void RoundCouplings(std::vector<analysis::Coupling>& couplings) {
  for (analysis::Coupling& pair : couplings) pair.K = Rounded(pair.K);
}

}  // namespace formats
