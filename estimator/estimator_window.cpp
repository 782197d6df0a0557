#include "estimator/estimator_window.h"

#include <QtConcurrentRun>
#include <QtWidgets>
#include <algorithm>
#include <exception>
#include <filesystem>
#include <new>
#include <utility>

#include "analysis/units.h"
#include "formats/cost_table.h"
#include "model/faults.h"
#include "model/files.h"
#include "model/text.h"

namespace estimator {

namespace {

/// A program may write a file in several steps; after this time without a change it has finished.
constexpr int kSettled = 100;  // milliseconds

std::string CsvOf(const Estimate& estimate) { return formats::CostsCsv(estimate.Costs); }

QString StateText(const Estimate& estimate) {
  const std::size_t wires = estimate.Costs.Rows.size();
  QString text = QString::fromStdString(estimate.Note.Conditions);
  if (!estimate.Costs.Coupled && wires > 1)
    text += QStringLiteral("; no couplings for more than %1 wires").arg(analysis::kMostCoupledByDefault);
  return text;
}

}  // namespace

EstimatorWindow::EstimatorWindow(Request request) : request_(std::move(request)) {
  setWindowTitle(QStringLiteral("ZU Estimator"));
  resize(960, 600);
}

void EstimatorWindow::Fill() {
  model_ = new CostModel(this);
  filter_ = new CostFilter(*model_);
  table_ = new QTableView;
  search_ = new QLineEdit;
  unit_ = new QComboBox;
  state_ = new QLabel;
  AddBar();
  AddTable();
  AddState();
  connect(&work_, &QFutureWatcherBase::finished, this, [this] { ShowResult(); });
  ReadAgainWhenWritten();
  Begin();
  // The window became active while it was empty, so no widget has the focus.
  search_->setFocus();
}

/// The computation does not use the window, but its threads must end before the program does.
EstimatorWindow::~EstimatorWindow() { work_.waitForFinished(); }

void EstimatorWindow::AddBar() {
  QToolBar* const bar = addToolBar(QStringLiteral("Table"));
  bar->setMovable(false);
  search_->setPlaceholderText(QStringLiteral("Search wires"));
  search_->setAccessibleName(QStringLiteral("Search wires"));
  search_->setClearButtonEnabled(true);
  bar->addWidget(search_);
  connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) { filter_->Search(text); });
  auto* const label = new QLabel(QStringLiteral(" &Unit of the package: "));
  label->setBuddy(unit_);
  for (const analysis::LengthUnit& unit : analysis::kLengthUnits)
    unit_->addItem(QString::fromLatin1(unit.Name));
  bar->addWidget(label);
  bar->addWidget(unit_);
  connect(unit_, &QComboBox::textActivated, this, [this](const QString& name) {
    request_.Unit = name.toStdString();
    Begin();
  });
  const auto add = [&](const char* text, const QKeySequence& keys, auto&& run) {
    QAction* const action = bar->addAction(QString::fromLatin1(text));
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, run);
  };
  add("&Copy", QKeySequence::Copy, [this] { Copy(); });
  add("Save C&SV ...", QKeySequence::Save,
      [this] { Save(QStringLiteral("CSV (*.csv)"), QStringLiteral(".csv"), CsvOf); });
  add("Save S&PICE ...", {},
      [this] { Save(QStringLiteral("SPICE (*.cir)"), QStringLiteral(".cir"), CircuitOf); });
  auto* const find = new QShortcut(QKeySequence::Find, this);
  connect(find, &QShortcut::activated, search_, [this] { search_->setFocus(); });
}

void EstimatorWindow::AddTable() {
  table_->setModel(filter_);
  table_->setSortingEnabled(true);
  table_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);  // in the package's order
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setAlternatingRowColors(true);
  table_->setWordWrap(false);
  table_->setAccessibleName(QStringLiteral("Wires"));
  // Column widths follow from the first rows; measuring thousands would take too long.
  table_->horizontalHeader()->setResizeContentsPrecision(50);
  // A status bar would cut long texts; a label wraps them.
  auto* const centre = new QWidget;
  auto* const column = new QVBoxLayout(centre);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(table_, 1);
  column->addWidget(state_);
  setCentralWidget(centre);
}

/// An error text contains long paths, so it wraps, can be copied, and is also the tool tip.
void EstimatorWindow::AddState() {
  state_->setTextFormat(Qt::PlainText);  // names may look like mark-up
  state_->setWordWrap(true);
  state_->setMinimumWidth(1);  // otherwise a long word would widen the window
  state_->setMargin(4);
  state_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

void EstimatorWindow::ShowState(const QString& text) {
  state_->setText(text);
  state_->setToolTip(QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped()));
}

EstimatorWindow::Result EstimatorWindow::WorkOut(const Request& request) {
  Result result;
  try {
    result.Found = Work(request);
    if (analysis::WireWithoutCost(result.Found.Costs))
      result.Problem = result.Found.PackageFile + ": its wires are too long or too thin to compute";
    else
      result.Texts = TextsOf(result.Found.Costs);
  } catch (const std::bad_alloc&) {
    result.Problem = request.ParameterFile + ": out of memory";
  } catch (const std::exception& problem) {
    result.Problem = problem.what();
  }
  return result;
}

void EstimatorWindow::Begin() {
  if (work_.isRunning()) {
    again_ = true;
    return;
  }
  ShowState(QStringLiteral("Working ..."));
  work_.setFuture(QtConcurrent::run([request = request_]() -> std::shared_ptr<const Result> {
    return std::make_shared<const Result>(WorkOut(request));
  }));
}

void EstimatorWindow::ShowResult() {
  if (std::exchange(again_, false)) return Begin();
  shown_ = work_.result();
  const Estimate& found = shown_->Found;
  model_->Show(shown_->Texts);
  table_->resizeColumnsToContents();
  if (!shown_->Problem.empty()) {
    setWindowTitle(QStringLiteral("ZU Estimator"));
    ShowState(QString::fromStdString(shown_->Problem));
    return;
  }
  setWindowTitle(QStringLiteral("ZU Estimator - ") +
                 QString::fromStdString(std::string(model::FileNameOf(found.PackageFile))));
  unit_->setCurrentText(QString::fromLatin1(found.Unit.Name));
  ShowState(StateText(found));
}

/// Some programs write a new file and rename it; only the watch on the folder reports this.
void EstimatorWindow::ReadAgainWhenWritten() {
  const QString file = QString::fromStdString(request_.ParameterFile);
  settle_.setSingleShot(true);
  settle_.setInterval(kSettled);
  connect(&settle_, &QTimer::timeout, this, [this, file, known = QFileInfo(file).lastModified()]() mutable {
    const QDateTime written = QFileInfo(file).lastModified();
    files_.addPath(file);
    if (written == std::exchange(known, written) || !written.isValid()) return;
    Begin();
  });
  for (const QString& path : {file, QFileInfo(file).absolutePath()})
    if (QFileInfo::exists(path)) files_.addPath(path);
  connect(&files_, &QFileSystemWatcher::fileChanged, this, [this] { settle_.start(); });
  connect(&files_, &QFileSystemWatcher::directoryChanged, this, [this] { settle_.start(); });
}

/// Copies the selected rows, or all rows if none are, with tabs between the cells for spreadsheets.
void EstimatorWindow::Copy() const {
  QModelIndexList rows = table_->selectionModel()->selectedRows();
  std::sort(rows.begin(), rows.end());
  if (rows.isEmpty())
    for (int row = 0; row < filter_->rowCount(); ++row) rows.append(filter_->index(row, 0));
  QStringList lines;
  QStringList cells;
  for (int column = 0; column < filter_->columnCount(); ++column)
    cells.append(filter_->headerData(column, Qt::Horizontal).toString());
  lines.append(cells.join(QLatin1Char('\t')));
  for (const QModelIndex& row : rows) {
    for (int column = 0; column < filter_->columnCount(); ++column)
      cells[column] = row.siblingAtColumn(column).data().toString();
    lines.append(cells.join(QLatin1Char('\t')));
  }
  QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')) + QLatin1Char('\n'));
}

void EstimatorWindow::Save(const QString& filter, const QString& ending,
                           std::string (*textOf)(const Estimate&)) {
  if (!shown_ || !shown_->Problem.empty()) return;
  const std::filesystem::path package = shown_->Found.PackageFile;
  QFileDialog dialog(this, QStringLiteral("Save the wires"),
                     QString::fromStdString(package.parent_path().string()), filter);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(ending);
  dialog.selectFile(QString::fromStdString(package.stem().string()) + ending);
  if (dialog.exec() != QDialog::Accepted) return;
  try {
    model::WriteWholeFile(QFile::encodeName(dialog.selectedFiles().front()).toStdString(),
                          textOf(shown_->Found));
  } catch (const model::Fault& fault) {
    QMessageBox::warning(this, windowTitle(), QString::fromStdString(fault.what()));
  }
}

}  // namespace estimator
