/// The selection of a long list; fast for any number of ranges.
#pragma once

#include <QItemSelectionModel>
#include <vector>

#include "shell/entry_ranges.h"

namespace shell::ui {

/// For models with one column. QItemSelectionModel compares each old range with each new one, which takes
/// seconds for 16,000 ranges. This class computes every change on one flag per entry and then refills Qt's
/// storage, which views and screen readers read, from empty.
class ListSelection : public QItemSelectionModel {
 public:
  using QItemSelectionModel::QItemSelectionModel;
  using QItemSelectionModel::select;

  void select(const QItemSelection& selection, SelectionFlags command) override;
  void reset() override;

  /// Selects exactly these entries without a signal.
  void SelectQuietly(const EntryRanges& ranges);
  EntryRanges Selected() const { return RangesOf(flags_); }

 private:
  void Fill();
  QItemSelection Pieces(const std::vector<bool>& flags) const;

  std::vector<bool> flags_;
  std::vector<bool> settled_;  ///< the selection before the current drag or Shift range
};

}  // namespace shell::ui
