/// The wires' costs as rows of a table view.
#pragma once

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <QStringList>
#include <vector>

#include "analysis/wire_costs.h"

namespace estimator {

/// The cells of all rows. They are made once, so that scrolling, sorting and searching are fast.
struct CostTexts {
  std::vector<QStringList> Rows;
  std::vector<std::vector<double>> Numbers;  ///< the same as numbers; 0 in columns of text
};

CostTexts TextsOf(const analysis::WireCosts& costs);

class CostModel final : public QAbstractTableModel {
 public:
  explicit CostModel(QObject* parent);

  void Show(CostTexts texts);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  /// Qt::UserRole is the value to sort by.
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  CostTexts texts_;
};

/// The rows whose names contain the searched text.
class CostFilter final : public QSortFilterProxyModel {
 public:
  explicit CostFilter(CostModel& model);

  void Search(const QString& text);

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

 private:
  QString searched_;
};

}  // namespace estimator
