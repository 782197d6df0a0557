/// The wire bond setup window without widgets: values and handlers.
#pragma once

#include <string>
#include <string_view>

#include "model/callback.h"
#include "model/package.h"
#include "model/wire_bond_settings.h"
#include "setup/estimator_start.h"
#include "setup/file_dialog.h"
#include "setup/loop_picture.h"
#include "setup/parameter_file.h"
#include "setup/setup_controls.h"

namespace setup {

/// Calls from the form to its window and to the view.
struct SetupActions {
  model::Callback<> RebuildAndRepaint;                 ///< the scene list, then the main window
  model::Callback<> ControlsChanged;                   ///< the window shows the controls' values
  model::Callback<> UnloadWindow;                      ///< hides the window, if there is one
  model::Callback<const std::string&> SetPackagePath;  ///< a parameter file names the package to load next
  model::Callback<OptionArray, std::size_t> FocusOption;
};

/// The form outlives its window: the first load makes it alive without a window. After an unload its handlers
/// do nothing.
///
/// The seven buttons trap every fault; option clicks, field edits and activation let faults through.
class SetupForm {
 public:
  SetupForm(model::WireBondSettings& settings, const model::Package& package, FileDialog& dialog,
            Estimator& estimator);

  SetupActions Actions;

  bool Alive() const { return alive_; }
  /// Makes the form alive and fills its controls from the settings. A form that is already alive keeps them.
  void Load();
  void Unload();
  /// Called at the end of each load of a package: makes the form alive if needed, resets and redraws it.
  void RunCommand3();
  void Form_Activate();

  /// The window writes typed text directly into a field's Text.
  SetupControls& Controls() { return controls_; }
  const SetupControls& Controls() const { return controls_; }

  void Cmd_Click(std::size_t index);
  void M_Click(std::size_t index);
  void WD_Click(std::size_t index);
  void FQ_Click(std::size_t index);
  void LH_Click(std::size_t index);

  void WDc_GotFocus();
  void WDc_LostFocus();
  void WDc_KeyUp(int keyCode);
  void FQc_GotFocus();
  void FQc_LostFocus();
  void FQc_KeyUp(int keyCode);
  void LHc_GotFocus(std::size_t index);
  void LHc_LostFocus(std::size_t index);
  void LHc_KeyUp(std::size_t index, int keyCode);
  void LEc_GotFocus(std::size_t index);
  void LEc_LostFocus(std::size_t index);
  /// Escape restores the text that the field had when it got the focus.
  void LEc_KeyUp(std::size_t index, int keyCode);

  /// Writes the controls' values to the settings, then calls UpdatePic.
  /// Faults  Overflow when the frequency is too large for a single
  void UpdateVals();
  /// Rebuilds `Vu` and the picture; enables the frames that need a stacked die if there is one.
  void UpdatePic();

  /// `Picture1` at a size in pixels.
  LoopPicture Picture(float width, float height) const;

 private:
  struct EditRules;

  void FillFromSettings();
  void ReadControls(model::WireBondSettings& settings) const;
  void ShowLoops(const model::WireBondSettings& loops);
  void Apply();
  void Reset();
  void RunButton(std::size_t index);
  void LoadParameters();
  void TakeParameter(const Parameter& parameter, const std::string& folder);
  void SaveParameters();
  void StartEstimator();

  void SelectMaterial(std::string_view upperCaseName);
  void SelectDiameter(float diameter);
  /// Selects the unit that suits a frequency in hertz. Returns the value in that unit
  float SelectUnit(float frequency);
  void SelectLH(std::size_t index);
  /// "Custom" for a value that is neither 0 nor the die height, else "Default to Die Height".
  void SelectByValue(const LoopFrame& frame, float value);
  void SetHeight(const LoopFrame& frame, std::string_view text);
  /// The die height in file units.
  float DieHeight() const;

  void GotFocus(Field& field, const EditRules& rules);
  void LostFocus(Field& field, const EditRules& rules);
  void LoopKeyUp(bool height, std::size_t index, int keyCode);
  void FocusOption(OptionArray options, std::size_t index) const;
  void Changed() const;

  model::WireBondSettings& settings_;
  const model::Package& package_;
  FileDialog& dialog_;
  Estimator& estimator_;
  SetupControls controls_;
  model::WireBondSettings pictured_;
  bool alive_ = false;
};

}  // namespace setup
