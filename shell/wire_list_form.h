/// The wire list without its widgets: which wires are listed and which of them are selected.
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

/// What the form asks of its window and of the view.
struct WireListActions {
  /// Runs inside the window's event handlers, so it must not throw.
  model::Callback<> RebuildAndRepaint;
  /// Selects exactly these entries in the list, which sends no change back, and makes entry 0, if there is
  /// one, the current item without touching the selection.
  model::Callback<const EntryRanges&> SelectAndGoToFirst;
};

/// The form owns one selected flag per entry. A button computes all flags and hands the list one call with
/// ranges; the list hands its selection back as ranges, never entry by entry.
class WireListForm {
 public:
  static constexpr std::size_t kButtons = model::kWireListButtons;
  static const std::array<const char*, kButtons> kCaptions;

  WireListForm(const model::Package& package, model::WireSelection& selection)
      : package_(package), selection_(selection) {}

  WireListActions Actions;

  /// Fills the list from the package, nothing selected. The caller then shows the window and calls Form_Show.
  /// Faults  SubscriptOutOfRange when a tier addresses no button; the list is then as it was
  void DoWireList();
  /// After a load, while the list is shown: enables the buttons anew, and fills the list again when the
  /// package's texts are no longer the entries; a text that was selected stays selected. A tier that
  /// addresses no button enables none: only the command faults, a load goes on. The load itself rebuilds.
  /// Returns true when the entries are new
  bool Refill();

  void Form_Show();
  void Form_Activate() { Actions.RebuildAndRepaint(); }
  void Form_Unload();
  /// `shift` is the modifier state after the key: Shift 1, Ctrl 2, Alt 4, or a sum of them.
  void Form_KeyDown(int shift) { SetModifiers(shift); }
  void Form_KeyUp(int shift) { SetModifiers(shift); }

  void Cmd_Click(int index);
  /// The mouse was let go over the list: rebuilds, changed or not.
  void PL_MouseUp(const EntryRanges& selected);
  /// The list's selection may have changed by other means: rebuilds when it has.
  void PL_SelectionChanged(const EntryRanges& selected);
  /// Takes the list's selection over without rebuilding.
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
  bool ListShift_ = false;  ///< Shift alone is down
  bool ListCtrl_ = false;   ///< Ctrl alone is down
};

}  // namespace shell
