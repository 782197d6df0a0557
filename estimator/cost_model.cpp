#include "estimator/cost_model.h"

#include <utility>

#include "formats/cost_table.h"

namespace estimator {

namespace {

/// A column of the table. The columns are those of formats::CostCells.
struct Column {
  const char* Heading;
  bool IsNumber;
  bool IsSearched;
};

constexpr Column kColumns[] = {
    {"Wire", false, true},        {"To pad", false, true},    {"Table", false, false},
    {"Tier", false, false},       {"Net type", false, false}, {"Length (mm)", true, false},
    {"R dc (mOhm)", true, false}, {"R (mOhm)", true, false},  {"L (nH)", true, false},
    {"Nearest", false, false},    {"k", true, false}};

}  // namespace

CostTexts TextsOf(const analysis::WireCosts& costs) {
  CostTexts texts;
  for (const analysis::WireCost& wire : costs.Rows) {
    QStringList& row = texts.Rows.emplace_back();
    std::vector<double>& numbers = texts.Numbers.emplace_back();
    for (const formats::CostCell& cell : formats::CostCells(wire)) {
      row.append(QString::fromStdString(cell.Text));
      numbers.push_back(cell.IsNumber ? row.back().toDouble() : 0.0);
    }
  }
  return texts;
}

CostModel::CostModel(QObject* parent) : QAbstractTableModel(parent) {}

void CostModel::Show(CostTexts texts) {
  beginResetModel();
  texts_ = std::move(texts);
  endResetModel();
}

int CostModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(texts_.Rows.size());
}

int CostModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(std::size(kColumns));
}

QVariant CostModel::data(const QModelIndex& index, int role) const {
  const auto row = static_cast<std::size_t>(index.row());
  const auto column = static_cast<std::size_t>(index.column());
  if (role == Qt::DisplayRole) return texts_.Rows[row][index.column()];
  if (role == Qt::TextAlignmentRole && kColumns[column].IsNumber)
    return QVariant(Qt::AlignRight | Qt::AlignVCenter);
  if (role != Qt::UserRole) return {};
  if (kColumns[column].IsNumber) return texts_.Numbers[row][column];
  return texts_.Rows[row][index.column()];
}

QVariant CostModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  return orientation == Qt::Horizontal ? QVariant(kColumns[section].Heading) : QVariant(section + 1);
}

CostFilter::CostFilter(CostModel& model) : QSortFilterProxyModel(&model) {
  setSourceModel(&model);
  setSortRole(Qt::UserRole);
}

void CostFilter::Search(const QString& text) {
  searched_ = text;
  invalidateFilter();
}

bool CostFilter::filterAcceptsRow(int row, const QModelIndex&) const {
  if (searched_.isEmpty()) return true;
  for (int column = 0; column < sourceModel()->columnCount(); ++column)
    if (kColumns[column].IsSearched &&
        sourceModel()->index(row, column).data().toString().contains(searched_, Qt::CaseInsensitive))
      return true;
  return false;
}

}  // namespace estimator
