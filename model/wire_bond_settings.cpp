#include "model/wire_bond_settings.h"

#include "model/arithmetic.h"

namespace model {

void SetUnsetDefaults(WireBondSettings& settings, const Package& package) {
  const auto setUnset = [](float& setting, float value) {
    if (setting == 0.0F) setting = value;
  };
  const float baseHeight = Single(double(package.CompZ) * double(package.UnitScale));
  const float stackHeight = Single(double(package.UnitScale) * double(package.SDCompZ));
  if (settings.Material.empty()) settings.Material = "Au";
  setUnset(settings.WireDiameter, 1.0F);
  setUnset(settings.BaseLoopHeight, baseHeight);
  setUnset(settings.BaseExtension, baseHeight);
  setUnset(settings.StackLoopHeight, stackHeight);
  setUnset(settings.StackExtension, stackHeight);
  setUnset(settings.StitchExtension, stackHeight);
}

WireBondSettings SettingsAfterReset(const Package& package) {
  const float height = package.CompZ;
  return {.Material = "Au",
          .WireDiameter = 1.0F,
          .Frequency = 1000000.0F,
          .BaseLoopHeight = height,
          .StackLoopHeight = height,
          .BaseExtension = height,
          .StackExtension = height,
          .StitchExtension = height};
}

}  // namespace model
