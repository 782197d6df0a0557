/// The estimator's window: the wires' costs as a table that can be sorted, searched, copied and saved.
#pragma once

#include <QFileSystemWatcher>
#include <QFutureWatcher>
#include <QMainWindow>
#include <QTimer>
#include <memory>
#include <string>

#include "estimator/cost_model.h"
#include "estimator/estimate.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QTableView;

namespace estimator {

class EstimatorWindow final : public QMainWindow {
 public:
  /// Starts to work at once, beside the window.
  explicit EstimatorWindow(Request request);
  ~EstimatorWindow() override;

 private:
  /// What the work beside the window ends with.
  struct Result {
    Estimate Found;
    CostTexts Texts;
    std::string Problem;  ///< empty when there is none
  };

  static Result WorkOut(const Request& request);
  void AddBar();
  void AddTable();
  void Begin();
  void ShowResult();
  void ReadAgainWhenWritten();
  void Copy() const;
  void Save(const QString& filter, const QString& ending, std::string (*textOf)(const Estimate&));

  Request request_;
  std::shared_ptr<const Result> shown_;
  bool again_ = false;  ///< the file was written while the work went on
  QFutureWatcher<std::shared_ptr<const Result>> work_;
  QFileSystemWatcher files_;
  QTimer settle_;
  CostModel* model_;
  CostFilter* filter_;
  QTableView* table_;
  QLineEdit* search_;
  QComboBox* unit_;
  QLabel* state_;
};

}  // namespace estimator
