/// The selection of a long list, quick however many separate pieces it has.
#pragma once

#include <QItemSelectionModel>
#include <vector>

#include "shell/entry_ranges.h"

namespace shell::ui {

/// For models of one column. The toolkit's own routine compares each piece of the old selection with each
/// of the new one: seconds at 16,000 pieces. Here every change is worked out on one flag per entry, and the
/// toolkit's storage, from which views and screen readers read, is only ever filled from empty.
class ListSelection : public QItemSelectionModel {
 public:
  using QItemSelectionModel::QItemSelectionModel;
  using QItemSelectionModel::select;

  void select(const QItemSelection& selection, SelectionFlags command) override;
  void reset() override;

  /// Selects exactly these entries and tells nobody.
  void SelectQuietly(const EntryRanges& ranges);
  EntryRanges Selected() const { return RangesOf(flags_); }

 private:
  void Fill();
  QItemSelection Pieces(const std::vector<bool>& flags) const;

  std::vector<bool> flags_;
  std::vector<bool> settled_;  ///< without the stretch that a drag or a Shift key is still changing
};

}  // namespace shell::ui
