// Copies values between the setup window's controls and the settings.
#include "model/arithmetic.h"
#include "model/numbers.h"
#include "model/text.h"
#include "setup/setup_form.h"

namespace setup {

namespace {

/// Selects one option of an array.
template <std::size_t kCount>
void SelectOnly(std::array<bool, kCount>& options, std::size_t index) {
  options.fill(false);
  options[index] = true;
}

/// Compare settings as formatted text: files and boxes keep only those digits.
bool SameText(float a, float b) { return model::GeneralText(a) == model::GeneralText(b); }

}  // namespace

void SetupForm::FillFromSettings() {
  SelectMaterial(model::UpperCase(settings_.Material));
  controls_.WDc.Text = model::GeneralText(settings_.WireDiameter);
  SelectDiameter(settings_.WireDiameter);
  controls_.FQc.Text = model::GeneralText(SelectUnit(settings_.Frequency));
  for (const LoopFrame& frame : kLoopFrames) {
    const float value = settings_.*frame.Setting;
    frame.FieldOf(controls_).Text = model::GeneralText(value);
    if (frame.HasEdge() && value == model::kEdgeOfBaseDie)
      SelectLH(frame.First + 1);
    else
      SelectByValue(frame, value);
  }
}

void SetupForm::ReadControls(model::WireBondSettings& settings) const {
  for (std::size_t i = 0; i < controls_.M.size(); ++i)
    if (controls_.M[i]) settings.Material = model::kWireMaterials[i].Name;
  for (std::size_t i = 0; i < kCustomWD; ++i)
    if (controls_.WD[i]) settings.WireDiameter = model::ToNumber(kWDCaptions[i]);
  if (controls_.WD[kCustomWD]) settings.WireDiameter = model::ToNumber(controls_.WDc.Text);
  for (std::size_t i = 0; i < controls_.FQ.size(); ++i)
    if (controls_.FQ[i])
      settings.Frequency = model::Single(double(model::ToNumber(controls_.FQc.Text)) * kFQUnits[i]);
  for (const LoopFrame& frame : kLoopFrames) {
    // Deliberate: the die height is in model units and is not converted, although the drawing divides every
    // setting by UnitScale. The reader's own defaults are in file units.
    if (controls_.LH[frame.First]) settings.*frame.Setting = package_.CompZ;
    if (frame.HasEdge() && controls_.LH[frame.First + 1]) settings.*frame.Setting = model::kEdgeOfBaseDie;
    if (controls_.LH[frame.Custom]) settings.*frame.Setting = model::ToNumber(frame.FieldOf(controls_).Text);
  }
}

void SetupForm::UpdateVals() {
  ReadControls(settings_);
  ShowLoops(settings_);
}

void SetupForm::UpdatePic() {
  model::WireBondSettings chosen = settings_;
  ReadControls(chosen);
  ShowLoops(chosen);
}

void SetupForm::ShowLoops(const model::WireBondSettings& loops) {
  pictured_ = loops;
  controls_.StackEnabled = !package_.SDBonds.Empty();
  controls_.Vu = ParameterText(package_, settings_);
  Changed();
}

void SetupForm::SelectMaterial(std::string_view upperCaseName) {
  for (std::size_t i = 0; i < model::kWireMaterials.size(); ++i)
    if (upperCaseName == model::UpperCase(model::kWireMaterials[i].Name)) SelectOnly(controls_.M, i);
}

void SetupForm::SelectDiameter(float diameter) {
  std::size_t option = 0;
  while (option < kCustomWD && !SameText(model::ToNumber(kWDCaptions[option]), diameter)) ++option;
  SelectOnly(controls_.WD, option);
}

float SetupForm::SelectUnit(float frequency) {
  std::size_t unit = 2;
  if (frequency < 1e9F) unit = 1;
  if (frequency < 1e6F) unit = 0;
  if (frequency < 1e3F) unit = kHertz;
  SelectOnly(controls_.FQ, unit);
  return model::Single(double(frequency) / kFQUnits[unit]);
}

void SetupForm::SelectLH(std::size_t index) {
  for (const LoopFrame& frame : kLoopFrames) {
    if (index < frame.First || index > frame.Custom) continue;
    for (std::size_t option = frame.First; option <= frame.Custom; ++option)
      controls_.LH[option] = option == index;
    frame.FieldOf(controls_).Enabled = index == frame.Custom;
  }
}

void SetupForm::SelectByValue(const LoopFrame& frame, float value) {
  const bool custom = value != 0.0F && !SameText(value, DieHeight());
  SelectLH(custom ? frame.Custom : frame.First);
}

void SetupForm::SetHeight(const LoopFrame& frame, std::string_view text) {
  frame.FieldOf(controls_).Text = text;
  SelectByValue(frame, model::ToNumber(text));
}

float SetupForm::DieHeight() const {
  return model::Single(double(package_.UnitScale) * double(package_.CompZ));
}

void SetupForm::M_Click(std::size_t index) {
  if (!alive_ || index >= controls_.M.size()) return;
  SelectOnly(controls_.M, index);
  UpdateVals();
}

void SetupForm::WD_Click(std::size_t index) {
  if (!alive_ || index >= controls_.WD.size()) return;
  SelectOnly(controls_.WD, index);
  UpdateVals();
}

void SetupForm::FQ_Click(std::size_t index) {
  if (!alive_ || index >= controls_.FQ.size()) return;
  SelectOnly(controls_.FQ, index);
  UpdateVals();
}

void SetupForm::LH_Click(std::size_t index) {
  if (!alive_ || index >= controls_.LH.size()) return;
  SelectLH(index);
  UpdateVals();
}

}  // namespace setup
