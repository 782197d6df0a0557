#include "model/colours.h"

namespace model {

namespace {

struct NamedColour {
  std::string_view Name;
  model::Colour Colour;
};

constexpr NamedColour kColours[] = {
    {"Black", {0.0F, 0.0F, 0.0F}},
    {"Green", {0.0F, 1.0F, 0.0F}},
    {"Blue", {0.0F, 0.0F, 1.0F}},
    {"DarkBlue", {0.0F, 0.0F, 0.5F}},
    // Deliberate: a second "Black" that the first one hides; "Black" is never this very dark blue.
    {"Black", {0.0F, 0.0F, 0.25F}},
    {"Cyan", {0.0F, 1.0F, 1.0F}},
    {"LightCyan", {0.5F, 1.0F, 1.0F}},
    {"DarkCyan", {0.0F, 0.5F, 0.5F}},
    {"Red", {1.0F, 0.0F, 0.0F}},
    {"Yellow", {1.0F, 1.0F, 0.0F}},
    {"Magenta", {1.0F, 0.0F, 1.0F}},
    {"White", {1.0F, 1.0F, 1.0F}},
    {"Gray", {0.5F, 0.5F, 0.5F}},
    {"LightGray", {0.75F, 0.75F, 0.75F}},
    {"DarkGray", {0.25F, 0.25F, 0.25F}},
};

}  // namespace

Colour ColourOf(std::string_view name) {
  for (const NamedColour& entry : kColours) {
    if (entry.Name == name) return entry.Colour;
  }
  return {};
}

}  // namespace model
