#include "setup/setup_form.h"

#include <exception>

#include "model/arithmetic.h"
#include "model/files.h"
#include "model/numbers.h"
#include "model/text.h"

namespace setup {

SetupForm::SetupForm(model::WireBondSettings& settings, const model::Package& package, FileDialog& dialog,
                     Estimator& estimator)
    : settings_(settings), package_(package), dialog_(dialog), estimator_(estimator) {}

void SetupForm::Load() {
  if (alive_) return;
  controls_ = {};
  alive_ = true;
  FillFromSettings();
  controls_.EstimatorEnabled = estimator_.Present();
  UpdatePic();
}

void SetupForm::Unload() {
  if (!alive_) return;
  alive_ = false;
  Actions.UnloadWindow();
}

void SetupForm::RunCommand3() {
  Load();
  Cmd_Click(3);
  UpdatePic();
}

void SetupForm::Form_Activate() {
  if (alive_) UpdateVals();
}

void SetupForm::Cmd_Click(std::size_t index) {
  if (!alive_) return;
  try {
    RunButton(index);
  } catch (const std::exception&) {
    // Trapped: a fault ends the handler. The window shows the changes made so far.
    Changed();
  }
}

void SetupForm::RunButton(std::size_t index) {
  switch (index) {
    case 0:
      return Apply();
    case 1:
      return Unload();
    case 2:
      return StartEstimator();
    case 3:
      return Reset();
    case 4:
      Apply();
      return Unload();
    case 5:
      return LoadParameters();
    case 6:
      return SaveParameters();
    default:
      return;
  }
}

void SetupForm::Apply() {
  UpdateVals();
  Actions.RebuildAndRepaint();
}

void SetupForm::Reset() {
  controls_.M = {true};
  SelectDiameter(1.0F);
  for (const LoopFrame& frame : kLoopFrames) SelectLH(frame.First);
  SelectUnit(1e6F);
  controls_.WDc.Text = "1";
  controls_.FQc.Text = "1";
  const std::string dieHeight = model::GeneralText(DieHeight());
  for (const LoopFrame& frame : kLoopFrames) frame.FieldOf(controls_).Text = dieHeight;
  Apply();
}

void SetupForm::StartEstimator() {
  Apply();
  if (!package_.PackagePath.empty()) estimator_.Run(package_.PackagePath, controls_.Vu);
}

void SetupForm::SaveParameters() {
  const auto path = dialog_.ShowSave({.DialogTitle = "Save ZU file",
                                      .FileName = package_.PackagePath,
                                      .Filter = "zu files|*.zu|all files|*.*",
                                      .DefaultExt = ".zu",
                                      .OverwritePrompt = true,
                                      .PackagePath = package_.PackagePath});
  if (path) model::WriteWholeFile(*path, controls_.Vu);
}

void SetupForm::LoadParameters() {
  const auto path = dialog_.ShowOpen({.DialogTitle = "Load ZU File",
                                      .FileName = "*.zu",
                                      .Filter = "zu files|*.zu|All files|*.*",
                                      .DefaultExt = ".zu",
                                      .PackagePath = package_.PackagePath});
  if (!path) return;
  const std::string text = model::ReadWholeFile(*path);
  const std::string folder = GetFilePath(*path);
  for (const Parameter& parameter : ReadParameters(text)) TakeParameter(parameter, folder);
  Apply();
}

void SetupForm::TakeParameter(const Parameter& parameter, const std::string& folder) {
  const std::string value(parameter.Value);
  switch (parameter.Key) {
    case ParameterKey::YaxFile:
      return Actions.SetPackagePath(folder + value);
    case ParameterKey::Material:
      return SelectMaterial(model::UpperCase(value));
    case ParameterKey::WireDiameter:
      controls_.WDc.Text = value;
      settings_.WireDiameter = model::ToNumber(value);
      return SelectDiameter(settings_.WireDiameter);
    case ParameterKey::Frequency: {
      settings_.Frequency = model::ToNumber(value);
      const float inUnit = SelectUnit(settings_.Frequency);
      controls_.FQc.Text = controls_.FQ[kHertz] ? value : model::GeneralText(inUnit);
      return;
    }
    case ParameterKey::BaseLoopHeight:
      return SetHeight(kLoopFrames[0], value);
    case ParameterKey::BaseExtension:
      return SetHeight(kLoopFrames[1], value);
    case ParameterKey::StackExtension:
      if (value == "-1") return SelectLH(kLoopFrames[2].First + 1);
      return SetHeight(kLoopFrames[2], value);
    case ParameterKey::StackLoopHeight:
      return SetHeight(kLoopFrames[3], value);
    case ParameterKey::StitchExtension:
      return SetHeight(kLoopFrames[4], value);
  }
}

LoopPicture SetupForm::Picture(float width, float height) const {
  return DrawLoops(package_, pictured_, width, height);
}

void SetupForm::Changed() const { Actions.ControlsChanged(); }

}  // namespace setup
