#include "import/text_table.h"

#include <csv.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <new>
#include <utility>

#include "import/column_name.h"
#include "import/names.h"
#include "import/source_file.h"
#include "model/text.h"

namespace importer {

namespace {

/// The separator of columns between runs of blanks and tabs.
constexpr char kBlankRuns = ' ';

constexpr std::string_view kAdviceOnHeader =
    "begin with a header line of names such as name,x,y or pad,lead; without one a table has the columns "
    "pad, lead "
    "or number, net, lead, x, y";

/// A libcsv parser with the rows of one table.
class RowParser {
 public:
  explicit RowParser(char separator) : separator_(separator) {
    if (csv_init(&parser_, 0) != 0) throw std::bad_alloc();
    csv_set_delim(&parser_, static_cast<unsigned char>(separator));
  }
  RowParser(const RowParser&) = delete;
  RowParser& operator=(const RowParser&) = delete;
  ~RowParser() { csv_free(&parser_); }

  /// Takes one line of the file, which is a row unless a quoted text goes on.
  void Line(std::string line, std::size_t number) {
    if (!open_) {
      const std::size_t start = line.find_first_not_of(" \t");
      if (start == std::string::npos || line[start] == '#' || line[start] == ';') return;
      if (separator_ == kBlankRuns || separator_ == '\t') CutComment(line);
      if (separator_ == kBlankRuns) std::replace(line.begin(), line.end(), '\t', ' ');
      row_.Line = number;
      open_ = true;
    }
    line += '\n';
    if (csv_parse(&parser_, line.data(), line.size(), &OnField, &OnRow, this) != line.size())
      throw std::bad_alloc();
  }

  bool Open() const { return open_; }
  std::size_t OpenSince() const { return row_.Line; }
  std::vector<TableRow>& Rows() { return rows_; }

 private:
  /// A comment begins after a blank, outside of quotes.
  static void CutComment(std::string& line) {
    bool quoted = false;
    for (std::size_t at = 0; at < line.size(); ++at) {
      if (line[at] == '"') quoted = !quoted;
      const bool mark = line[at] == '#' || line[at] == ';';
      if (mark && !quoted && at > 0 && (line[at - 1] == ' ' || line[at - 1] == '\t')) return line.resize(at);
    }
  }
  static void OnField(void* bytes, std::size_t size, void* self) {
    auto& parser = *static_cast<RowParser*>(self);
    if (parser.separator_ == kBlankRuns && size == 0) return;
    parser.row_.Fields.emplace_back(static_cast<const char*>(bytes), size);
  }
  static void OnRow(int, void* self) {
    auto& parser = *static_cast<RowParser*>(self);
    if (!parser.row_.Fields.empty()) parser.rows_.push_back(std::exchange(parser.row_, {}));
    parser.open_ = false;
  }

  char separator_;
  csv_parser parser_{};
  bool open_ = false;
  TableRow row_;
  std::vector<TableRow> rows_;
};

/// The number of known names in the first row; 0 when it is not a header.
std::size_t KnownNames(const std::vector<TableRow>& rows) {
  if (rows.empty()) return 0;
  std::size_t known = 0;
  for (const std::string& field : rows.front().Fields) {
    if (NumberIn(field)) return 0;
    if (IsKnownColumn(ColumnName(field))) ++known;
  }
  return known < 2 ? 0 : known;
}

/// Two or five when all rows have that many columns, else 0. With a comma as separator the second of two
/// columns may hold several leads.
std::size_t PlainColumns(std::vector<TableRow>& rows, char separator) {
  const auto all = [&rows](std::size_t count) {
    return std::all_of(rows.begin(), rows.end(),
                       [count](const TableRow& row) { return row.Fields.size() == count; });
  };
  if (rows.empty()) return 0;
  if (all(5)) return 5;
  if (all(2)) return 2;
  const auto least = std::min_element(rows.begin(), rows.end(), [](const TableRow& a, const TableRow& b) {
    return a.Fields.size() < b.Fields.size();
  });
  if (separator != ',' || least->Fields.size() != 2) return 0;
  for (TableRow& row : rows) {
    for (std::size_t i = 2; i < row.Fields.size(); ++i) row.Fields[1] += "," + row.Fields[i];
    row.Fields.resize(2);
  }
  return 2;
}

/// Best score of a table without a header (its column count); a header scores higher.
constexpr std::size_t kBestPlain = 5;

/// Whether each row has blanks within its first field.
bool HaveBlanks(const std::vector<TableRow>& rows) {
  return std::all_of(rows.begin(), rows.end(), [](const TableRow& row) {
    return row.Fields.front().find_first_of(" \t") != std::string::npos;
  });
}

void Parse(std::string_view text, RowParser& parser) {
  model::Lines lines(text);
  std::string_view line;
  for (std::size_t number = 1; lines.Next(line); ++number) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    // Some spreadsheet programs write their separator before the table.
    if (number == 1 && line.size() == 5 && line.starts_with("sep=")) continue;
    parser.Line(std::string(line), number);
  }
}

}  // namespace

TextTable::TextTable(std::string_view text, std::string file) : file_(std::move(file)) {
  text = model::WithoutByteOrderMark(text);
  if (text.find('\0') != std::string_view::npos)
    throw model::InputError({file_}, "it is not plain text", "save the table as CSV in UTF-8");
  std::size_t best = 0;
  std::size_t openSince = 0;
  for (const char separator : {'\t', ';', ',', kBlankRuns}) {
    // Names of columns may hold blanks.
    if (separator == kBlankRuns && !header_.empty()) break;
    RowParser parser(separator);
    Parse(text, parser);
    if (parser.Open()) {
      openSince = parser.OpenSince();
      continue;
    }
    const std::size_t names = KnownNames(parser.Rows());
    const std::size_t plain = names != 0 ? 0 : PlainColumns(parser.Rows(), separator);
    const std::size_t worth = names != 0 ? names + kBestPlain : plain;
    // The commas of "1 3,4" list leads.
    const bool listsLeads =
        separator == kBlankRuns && worth == best && separator_ == ',' && HaveBlanks(rows_);
    if (worth <= best && !listsLeads) continue;
    best = worth;
    separator_ = separator;
    rows_ = std::move(parser.Rows());
    columns_ = plain;
    header_.clear();
    asWritten_.clear();
    if (names == 0) continue;
    asWritten_ = rows_.front().Fields;
    for (const std::string& field : asWritten_) header_.push_back(ColumnName(field));
    columns_ = header_.size();
    rows_.erase(rows_.begin());
  }
  if (!header_.empty()) TakeSurplus();
  if (best == 0 && openSince != 0)
    throw model::InputError({file_, openSince}, "a quote is not closed", "close it, or remove it");
  if (best == 0)
    throw model::InputError({file_}, "its columns cannot be recognized", std::string(kAdviceOnHeader));
}

void TextTable::TakeSurplus() {
  for (TableRow& row : rows_) {
    const auto surplus =
        row.Fields.begin() + static_cast<std::ptrdiff_t>(std::min(header_.size(), row.Fields.size()));
    if (std::all_of(surplus, row.Fields.end(), [](const std::string& field) { return field.empty(); }))
      continue;
    if (header_.size() != 2 || separator_ != ',')
      Fail(row, "it has more fields than the header names",
           "name every column, and put texts with separators in quotes");
    for (auto field = surplus; field != row.Fields.end(); ++field) row.Fields[1] += "," + *field;
    row.Fields.resize(2);
  }
}

std::optional<std::size_t> TextTable::Column(std::initializer_list<std::string_view> names) const {
  for (const std::string_view name : names) {
    const auto found = std::find(header_.begin(), header_.end(), name);
    if (found != header_.end()) return static_cast<std::size_t>(found - header_.begin());
  }
  return std::nullopt;
}

std::optional<std::size_t> TextTable::ColumnEnding(std::string_view ending) const {
  for (std::size_t i = 0; i < header_.size(); ++i)
    if (header_[i].ends_with(ending) &&
        !(header_[i] == "leadname" || header_[i] == "netname" || header_[i] == "pinname"))
      return i;
  return std::nullopt;
}

std::string TextTable::UnknownColumns() const {
  std::vector<std::string> unknown;
  for (std::size_t i = 0; i < header_.size(); ++i)
    if (!header_[i].empty() && !IsKnownColumn(header_[i]) && !IsNeedlessColumn(header_[i]))
      unknown.push_back(model::Quoted(asWritten_[i]));
  return unknown.empty() ? ""
                         : Counted(unknown.size(), "unknown column ", "unknown columns ") + Listed(unknown);
}

std::string TextTable::WithUnknownColumns(const std::string& what) const {
  const std::string unknown = UnknownColumns();
  return unknown.empty() ? what : what + ", and has " + unknown;
}

const std::string& TextTable::Field(const TableRow& row, std::optional<std::size_t> column) const {
  static const std::string kNone;
  return column && *column < row.Fields.size() ? row.Fields[*column] : kNone;
}

double TextTable::Number(const TableRow& row, std::size_t column) const {
  std::string text = Field(row, column);
  // A decimal comma is possible where the comma is not the separator.
  if (separator_ != ',') std::replace(text.begin(), text.end(), ',', '.');
  const std::optional<double> number = NumberIn(text);
  if (!number) Fail(row, model::Quoted(text) + " is not a number", "correct it");
  return *number;
}

std::optional<double> TextTable::NumberIfAny(const TableRow& row, std::optional<std::size_t> column) const {
  if (Field(row, column).empty()) return std::nullopt;
  return Number(row, *column);
}

void TextTable::Fail(const TableRow& row, const std::string& what, const std::string& advice) const {
  throw model::InputError({file_, row.Line}, what, advice);
}

}  // namespace importer
