/// The wires' costs as rows of a table view.
#pragma once

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <QStringList>
#include <vector>

#include "analysis/wire_costs.h"

namespace estimator {

/// The texts of every row, made once, so that scrolling, sorting and searching take no time.
struct CostTexts {
  std::vector<QStringList> Rows;
  std::vector<std::vector<double>> Numbers;  ///< of the columns that are numbers; otherwise 0
};

CostTexts TextsOf(const analysis::WireCosts& costs);

class CostModel final : public QAbstractTableModel {
 public:
  explicit CostModel(QObject* parent);

  void Show(CostTexts texts);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  /// Sorts by Qt::UserRole.
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  CostTexts texts_;
};

/// The rows in which a wire's names hold the text sought.
class CostFilter final : public QSortFilterProxyModel {
 public:
  explicit CostFilter(CostModel& model);

  void Seek(const QString& text);

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

 private:
  QString sought_;
};

}  // namespace estimator
