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
  /// An empty window.
  explicit EstimatorWindow(Request request);
  ~EstimatorWindow() override;

  /// Adds the table and its controls, and starts the computation in another thread. Call it once the window
  /// is on the screen: fonts and controls take half of the start-up time.
  void Fill();

 private:
  /// The result of the computation.
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
  bool again_ = false;  ///< the file or the unit has changed since the computation began
  QFutureWatcher<std::shared_ptr<const Result>> work_;
  QFileSystemWatcher files_;
  QTimer settle_;
  CostModel* model_ = nullptr;
  CostFilter* filter_ = nullptr;
  QTableView* table_ = nullptr;
  QLineEdit* search_ = nullptr;
  QComboBox* unit_ = nullptr;
  QLabel* state_ = nullptr;
};

}  // namespace estimator
