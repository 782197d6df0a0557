#include "estimator/estimator_window.h"

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <filesystem>
#include <memory>

#include "tests/samples.h"
#include "tests/temporary_folder.h"

namespace estimator {
namespace {

class EstimatorWindowTest : public testing::Test {
 protected:
  EstimatorWindowTest() { Write("1000000"); }

  void Write(const std::string& frequency) const {
    PutFile(File() + ".new", "YAXFile=caravel-qfn64.yax\nFrequency=" + frequency + "\n");
    std::filesystem::rename(File() + ".new", File());
  }
  std::string File() const { return folder / "a.zu"; }
  std::unique_ptr<EstimatorWindow> Opened(const std::string& packages = YAX_SAMPLES) const {
    auto window = std::make_unique<EstimatorWindow>(
        Request{.ParameterFile = File(), .Folder = packages, .Unit = std::nullopt});
    window->show();
    window->Fill();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !State(*window).startsWith("Working"); }, 20000));
    return window;
  }
  static QLabel* Label(const EstimatorWindow& window) { return window.centralWidget()->findChild<QLabel*>(); }
  static QString State(const EstimatorWindow& window) { return Label(window)->text(); }
  static QString Cell(const EstimatorWindow& window, int row, int column) {
    return window.findChild<QTableView*>()->model()->index(row, column).data().toString();
  }

  TemporaryFolder folder;
};

constexpr int kName = 0, kLength = 5, kResistance = 7;

TEST_F(EstimatorWindowTest, TypingSearchesFromTheStart) {
  EstimatorWindow window(Request{.ParameterFile = File(), .Folder = YAX_SAMPLES, .Unit = std::nullopt});
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  window.Fill();
  // Widgets in a window that is shown already appear with its next events.
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.findChild<QLineEdit*>()->hasFocus(); }));
}

TEST_F(EstimatorWindowTest, ShowsSortsAndSearchesTheWires) {
  const auto window = Opened();
  auto* const table = window->findChild<QTableView*>();
  ASSERT_EQ(table->model()->rowCount(), 63);
  EXPECT_EQ(Cell(*window, 0, kName), "clock") << "in the package's order";
  EXPECT_EQ(window->findChild<QComboBox*>()->currentText(), "mm");
  table->sortByColumn(kLength, Qt::DescendingOrder);
  for (int row = 1; row < 63; ++row)
    EXPECT_GE(Cell(*window, row - 1, kLength).toDouble(), Cell(*window, row, kLength).toDouble());
  QTest::keyClicks(window->findChild<QLineEdit*>(), "VSSIO");
  const int sought = table->model()->rowCount();
  EXPECT_GT(sought, 0);
  EXPECT_LT(sought, 63);
  table->selectRow(0);
  // By its action: the keys go to the window that the display has made active, which takes a while.
  for (QAction* const action : window->findChildren<QAction*>())
    if (action->text() == "&Copy") action->trigger();
  const QStringList lines = QGuiApplication::clipboard()->text().split('\n');
  ASSERT_EQ(lines.size(), 3) << "heading, row, end";
  EXPECT_TRUE(lines[0].startsWith("Wire\tTo pad\t"));
  EXPECT_TRUE(lines[1].startsWith(Cell(*window, 0, kName) + "\t"));
}

TEST_F(EstimatorWindowTest, ReadsAgainWhenTheFileIsWrittenAgain) {
  const auto window = Opened();
  const double before = Cell(*window, 0, kResistance).toDouble();
  QTest::qWait(1100);  // file systems may count whole seconds
  Write("10000000000");
  EXPECT_TRUE(QTest::qWaitFor([&] { return Cell(*window, 0, kResistance).toDouble() > 5.0 * before; }, 20000))
      << State(*window).toStdString();
}

TEST_F(EstimatorWindowTest, SaysThatThePackageIsMissingAndShowsAllOfTheText) {
  std::string deep = folder / "<b>";
  for (int k = 0; k < 20; ++k) deep += "/a rather long name of a folder";
  const auto window = Opened(deep);
  const QLabel* const label = Label(*window);
  const auto room = [label] { return label->height() - label->heightForWidth(label->width()); };
  EXPECT_TRUE(QTest::qWaitFor([&] { return room() == 0; })) << room();
  EXPECT_EQ(window->width(), 960);
  EXPECT_LT(label->height(), 150) << "some lines";
  EXPECT_TRUE(label->text().startsWith("caravel-qfn64.yax: not found in")) << qPrintable(label->text());
  EXPECT_TRUE(label->text().contains(QString::fromStdString(deep)));
  EXPECT_EQ(window->findChild<QTableView*>()->model()->rowCount(), 0);
}

}  // namespace
}  // namespace estimator
