/// The material of the bond wires and the shape of their loops.
#pragma once

#include <array>
#include <string>

#include "model/package.h"

namespace model {

struct WireMaterial {
  const char* Name;
  double Resistivity;  ///< ohm metres at room temperature
};

/// The materials of wires, in the order in which a choice lists them.
inline constexpr std::array<WireMaterial, 3> kWireMaterials{
    {{"Au", 2.21e-8}, {"Al", 2.65e-8}, {"Cu", 1.72e-8}}};

/// Units: loop heights and extensions in file units (the drawing divides them by UnitScale).
/// A height or extension of 0 is unset.
struct WireBondSettings {
  std::string Material;          ///< the name of one of kWireMaterials
  float WireDiameter = 0.0F;     ///< mils
  float Frequency = 0.0F;        ///< hertz
  float BaseLoopHeight = 0.0F;   ///< wires of the base die
  float StackLoopHeight = 0.0F;  ///< wires of the stacked die, and stitches
  float BaseExtension = 0.0F;
  float StackExtension = 0.0F;  ///< kEdgeOfBaseDie is special
  float StitchExtension = 0.0F;
};

/// The StackExtension value with which each stacked-die wire runs level to the base die's edge.
inline constexpr float kEdgeOfBaseDie = -1.0F;

/// Gives every unset setting its default from the package that was just read: gold, 1 mil, and
/// the dies' heights in file units.
void SetUnsetDefaults(WireBondSettings& settings, const Package& package);

/// The settings after a reset, and after every load into the window: gold, 1 mil, 1 MHz, and every height and
/// extension at the base die's height.
/// Deliberate: the height is in scene units although settings are in file units; SetUnsetDefaults uses file
/// units.
WireBondSettings SettingsAfterReset(const Package& package);

}  // namespace model
