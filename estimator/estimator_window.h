/// The estimator's window: a table of the wires' costs that can be sorted, searched, copied and saved.
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
  /// Starts the work at once, in another thread.
  explicit EstimatorWindow(Request request);
  ~EstimatorWindow() override;

 private:
  /// The result of the work.
  struct Result {
    Estimate Found;
    CostTexts Texts;
    std::string Problem;  ///< empty when there is none
  };

  static Result WorkOut(const Request& request);
  void AddBar();
  void AddTable();
  void AddState();
  void ShowState(const QString& text);
  void Begin();
  void ShowResult();
  void ReadAgainWhenWritten();
  void Copy() const;
  void Save(const QString& filter, const QString& ending, std::string (*textOf)(const Estimate&));

  Request request_;
  std::shared_ptr<const Result> shown_;
  bool again_ = false;  ///< the file or the unit has changed since the work began
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
