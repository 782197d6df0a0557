#include "sheet/wire_looks.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace sheet {

namespace {

constexpr char kPrefix[] = "WIRES_";
/// The longest layer name in a DXF file, without the prefix.
constexpr std::size_t kLongestTier = 25;

// Dark enough for a print in greys.
constexpr std::array<Ink, 5> kInks{
    {kBlack, {0.0, 0.2, 0.65}, {0.0, 0.38, 0.1}, {0.5, 0.0, 0.5}, {0.5, 0.25, 0.0}}};
constexpr std::array<Dash, 4> kDashes{Dash::Dashed, Dash::Dotted, Dash::DashDot, Dash::DashDotDot};

bool IsTierNumber(const std::string& tier) {
  return tier.size() <= kLongestTier && tier.find_first_not_of("0123456789") == std::string::npos &&
         tier.find_first_not_of('0') != std::string::npos;
}

/// Tiers 1 to 4 and stitches are solid lines in five colours; all others are dashed.
std::optional<WireLook> UsualLook(const std::string& layer) {
  if (layer == "WIRES_STITCH") return WireLook{.Colour = kInks[4]};
  if (layer == "WIRES_0") return WireLook{.Pattern = kDashes[0]};
  const char tier = layer.back();
  if (layer.size() == sizeof kPrefix && tier <= '4')
    return WireLook{.Colour = kInks[static_cast<std::size_t>(tier - '1')]};
  return std::nullopt;
}

}  // namespace

std::string LayerOf(const DiagramWire& wire) {
  if (wire.IsStitch()) return "WIRES_STITCH";
  return kPrefix + (IsTierNumber(wire.Tier) ? wire.Tier : "0");
}

bool NumbersInOrder::operator()(const std::string& a, const std::string& b) const {
  const std::string_view before(a.data(), std::min(a.find_first_of("0123456789"), a.size()));
  const bool alike =
      b.starts_with(before) && b.find_first_of("0123456789") == before.size() && before.size() < a.size();
  return alike && a.size() != b.size() ? a.size() < b.size() : a < b;
}

WireLooks LooksOf(const std::vector<DiagramWire>& wires) {
  WireLooks looks;
  for (const DiagramWire& wire : wires) looks.emplace(LayerOf(wire), WireLook{});
  // The first one is for wires without a tier.
  std::size_t next = 1;
  for (auto& [layer, look] : looks) {
    const std::optional<WireLook> usual = UsualLook(layer);
    look =
        usual.value_or(WireLook{kInks[next / kDashes.size() % kInks.size()], kDashes[next % kDashes.size()]});
    if (!usual) ++next;
  }
  return looks;
}

std::string MeaningOf(const std::string& wireLayer) {
  if (wireLayer == "WIRES_STITCH") return "stitch, pad to pad";
  if (wireLayer == "WIRES_0") return "wire of no tier";
  return "wire of tier " + wireLayer.substr(sizeof kPrefix - 1);
}

}  // namespace sheet
