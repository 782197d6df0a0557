/// The wire list without widgets: the listed wires and which of them are selected.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "model/callback.h"
#include "model/package.h"
#include "model/wire_list_entry.h"
#include "model/wire_selection.h"
#include "shell/entry_ranges.h"

namespace shell {

/// Calls from the form to its window and to the view.
struct WireListActions {
  /// Runs inside the window's event handlers, so it must not throw.
  model::Callback<> RebuildAndRepaint;
  /// Selects exactly these entries in the list without a change signal, then makes entry 0, if there is one,
  /// the current item without changing the selection.
  model::Callback<const EntryRanges&> SelectAndGoToFirst;
};

/// The form owns one selected flag per entry. A button computes all flags and passes ranges to the list in
/// one call; the list returns its selection as ranges, never entry by entry.
class WireListForm {
 public:
  static constexpr std::size_t kButtons = model::kWireListButtons;
  static const std::array<const char*, kButtons> kCaptions;

  WireListForm(const model::Package& package, model::WireSelection& selection)
      : package_(package), selection_(selection) {}

  WireListActions Actions;

  /// Fills the list from the package, nothing selected. The caller then shows the window and calls Form_Show.
  /// Faults  SubscriptOutOfRange when a tier has no button; the list is then unchanged
  void DoWireList();
  /// After a load, while the list is shown: updates the enabled buttons. If the package's texts differ from
  /// the entries, fills the list again; selected texts stay selected. A tier without a button enables none:
  /// unlike the command, a load does not fault on it. The load rebuilds the scene.
  /// Returns true when the entries are new
  bool Refill();

  void Form_Show();
  void Form_Activate() { Actions.RebuildAndRepaint(); }
  void Form_Unload();
  /// `shift` is the modifier state after the key: Shift 1, Ctrl 2, Alt 4, or a sum of them.
  void Form_KeyDown(int shift) { SetModifiers(shift); }
  void Form_KeyUp(int shift) { SetModifiers(shift); }

  void Cmd_Click(int index);
  /// A mouse button was released over the list: rebuilds even when the selection is unchanged.
  void PL_MouseUp(const EntryRanges& selected);
  /// The selection may have changed in another way: rebuilds only when it has.
  void PL_SelectionChanged(const EntryRanges& selected);
  /// Copies the list's selection without a rebuild.
  /// Returns true when it has changed
  bool TakeSelection(const EntryRanges& selected);

  const std::vector<std::string>& Entries() const { return entries_; }
  bool Enabled(std::size_t button) const { return enabled_[button]; }
  EntryRanges SelectedRanges() const { return RangesOf(selected_); }

 private:
  bool Matches(int index, const model::WireNameRec& wire) const;
  void Filter(int index);
  void SetModifiers(int shift);
  void PublishNames();

  const model::Package& package_;
  model::WireSelection& selection_;
  std::vector<std::string> entries_;
  std::vector<bool> selected_;  ///< one flag per entry
  std::array<bool, kButtons> enabled_{};
  bool ListShift_ = false;  ///< only Shift is down
  bool ListCtrl_ = false;   ///< only Ctrl is down
};

}  // namespace shell
