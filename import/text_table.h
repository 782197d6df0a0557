/// A table as a spreadsheet or a script writes it: separators, comments and header are detected.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/input_error.h"

namespace importer {

struct TableRow {
  std::size_t Line = 0;  ///< line of the file where the row begins
  std::vector<std::string> Fields = {};
};

/// The rows of a table below its header. Without a header it has two or five columns.
class TextTable {
 public:
  /// Faults  InputError with the row, when a quote is not closed, or there is neither a header nor two or
  /// five columns
  TextTable(std::string_view text, std::string file);

  const std::string& File() const { return file_; }
  const std::vector<TableRow>& Rows() const { return rows_; }
  bool HasHeader() const { return !header_.empty(); }
  std::size_t Columns() const { return columns_; }

  /// The first column with one of these names, the earlier names first. Names are as ColumnName gives them.
  std::optional<std::size_t> Column(std::initializer_list<std::string_view> names) const;
  /// The first column whose name has this ending, except those that name leads, nets or the package's pins.
  std::optional<std::size_t> ColumnEnding(std::string_view ending) const;

  /// The header's columns that an import does not know, for a message; empty when there are none.
  std::string UnknownColumns() const;
  /// `what`, with UnknownColumns added.
  std::string WithUnknownColumns(const std::string& what) const;

  /// The field, empty where the row ends before it or there is no such column.
  const std::string& Field(const TableRow& row, std::optional<std::size_t> column) const;
  /// Faults  InputError with the row when the field is not a number
  double Number(const TableRow& row, std::size_t column) const;
  /// The same, or nothing for an empty field.
  std::optional<double> NumberIfAny(const TableRow& row, std::optional<std::size_t> column) const;

  [[noreturn]] void Fail(const TableRow& row, const std::string& what, const std::string& advice) const;

 private:
  /// Joins surplus fields to the last of two columns, "pad,3,4"; in other tables they belong to no column.
  void TakeSurplus();

  std::string file_;
  char separator_ = ',';
  std::size_t columns_ = 0;
  std::vector<std::string> header_, asWritten_;
  std::vector<TableRow> rows_;
};

}  // namespace importer
