/// The controls of the wire bond setup window as plain values, with the tables of options and frames.
#pragma once

#include <array>
#include <string>

#include "model/wire_bond_settings.h"

namespace setup {

/// The arrays of option buttons.
enum class OptionArray { M, WD, FQ, LH };

inline constexpr std::array<const char*, 7> kWDCaptions = {"0.5",  "0.7", "0.8",   "1.0",
                                                           "1.25", "1.5", "Custom"};
/// Deliberate: hertz is the last index, though the window shows it first.
inline constexpr std::array<const char*, 4> kFQCaptions = {"Khz", "Mhz", "Ghz", "hz"};
inline constexpr std::array<double, 4> kFQUnits = {1e3, 1e6, 1e9, 1.0};
inline constexpr std::array<const char*, 7> kCmdCaptions = {"Apply", "Cancel", "ZU Estimator", "Reset",
                                                            "OK",    "Load",   "Save"};
inline constexpr std::size_t kCustomWD = 6;
inline constexpr std::size_t kHertz = 3;

/// A text box.
struct Field {
  std::string Text;
  bool Enabled = true;
};

/// Start values are those of a new window.
struct SetupControls {
  std::array<bool, 3> M{};
  std::array<bool, 7> WD{};
  std::array<bool, 4> FQ{};
  std::array<bool, 11> LH{};  ///< one array for five frames; one option per frame is selected

  Field WDc{"1.25"};
  Field FQc;
  std::array<Field, 2> LHc;  ///< loop heights: base, stack
  std::array<Field, 3> LEc;  ///< extensions: base, stack, stitch

  std::string TD;  ///< the field's text when it got the focus
  std::string Vu;  ///< the parameter text

  bool StackEnabled = false;  ///< enables the stacked-die frames and the "Stack" parts of the picture
  bool EstimatorEnabled = false;
};

/// One frame of loop options: its options, its text box and the setting that they change.
struct LoopFrame {
  const char* Caption;  ///< with the trailing space that every frame has
  std::size_t First;    ///< "Default to Die Height"; "Custom" is the last
  std::size_t Custom;
  bool Height;        ///< its field is LHc(Index), else LEc(Index)
  std::size_t Index;  ///< index of its field
  float model::WireBondSettings::*Setting;

  /// With three options, the middle one is "Edge of Base Die".
  bool HasEdge() const { return Custom - First == 2; }

  template <class Controls>
  auto& FieldOf(Controls& controls) const {
    return Height ? controls.LHc[Index] : controls.LEc[Index];
  }
};

inline constexpr std::array<LoopFrame, 5> kLoopFrames = {{
    {"Base Loop Height ", 0, 1, true, 0, &model::WireBondSettings::BaseLoopHeight},
    {"Base Loop Extension ", 2, 3, false, 0, &model::WireBondSettings::BaseExtension},
    {"Stacked Loop Extension ", 4, 6, false, 1, &model::WireBondSettings::StackExtension},
    {"Stack Loop Height ", 7, 8, true, 1, &model::WireBondSettings::StackLoopHeight},
    {"Stitch Loop Extension ", 9, 10, false, 2, &model::WireBondSettings::StitchExtension},
}};

/// The frames that need a stacked die.
inline constexpr bool NeedsStack(const LoopFrame& frame) { return frame.First == 4 || frame.First == 7; }

}  // namespace setup
