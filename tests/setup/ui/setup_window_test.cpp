#include "setup/ui/setup_window.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "tests/find_control.h"
#include "tests/setup/setup_fixture.h"

namespace setup {
namespace {

class SetupShown : public SetupFormTest {
 protected:
  SetupShown() { form.RunCommand3(); }
  void Open() {
    window.DoBondWireSetup();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  QRadioButton* Option(const char* frame, const char* name) {
    return &Find<QRadioButton>(window, name, frame);
  }
  QLineEdit* Value(const char* frame) { return &Find<QLineEdit>(window, QString(frame) + " value"); }
  void Click(QAbstractButton* button) {
    QTest::mouseClick(button, Qt::LeftButton, {}, {8, button->height() / 2});
  }
  void Press(const char* caption) { Click(&Find<QPushButton>(window, caption)); }

  int faults = 0;
  ui::SetupWindow window{form, [this](const std::function<void()>& handler) {
                           try {
                             handler();
                           } catch (const model::Fault&) {
                             ++faults;
                           }
                         }};
};

TEST_F(SetupShown, FramesKeepTheirTrailingSpaceAndFollowTheStackedDie) {
  Open();
  int frames = 0;
  for (const QGroupBox* frame : window.findChildren<QGroupBox*>()) {
    ++frames;
    EXPECT_EQ(frame->title(), frame->accessibleName() + " ");
    const bool needsStack =
        frame->title() == "Stacked Loop Extension " || frame->title() == "Stack Loop Height ";
    EXPECT_EQ(frame->isEnabled(), !needsStack) << frame->title().toStdString();
  }
  EXPECT_EQ(frames, 8);
  EXPECT_TRUE(Find<QPlainTextEdit>(window, "Parameter file text").isReadOnly());
  StackADie();
  form.RunCommand3();
  EXPECT_TRUE(Option("Stack Loop Height", "Custom")->isEnabled()) << "a load reaches the shown window";
}

TEST_F(SetupShown, EnterLeavesAFieldForItsOptionAndEscapeRestores) {
  Open();
  QLineEdit* const diameter = Value("Wire Diameter Mils");
  diameter->setFocus();
  diameter->setText("0");
  QTest::keyClick(diameter, Qt::Key_Return);
  EXPECT_EQ(diameter->text(), "1.0");
  EXPECT_TRUE(Option("Wire Diameter Mils", "Custom")->hasFocus());
  EXPECT_TRUE(Option("Wire Diameter Mils", "1.0")->isChecked());

  Click(Option("Stitch Loop Extension", "Custom"));
  QLineEdit* const stitch = Value("Stitch Loop Extension");
  stitch->setFocus();
  QTest::keyClicks(stitch, "99");
  QTest::keyClick(stitch, Qt::Key_Escape);
  EXPECT_EQ(stitch->text(), "25.000");
  EXPECT_EQ(settings.StitchExtension, 25.0F);
  // Releases of keys that the box's menu saw go down.
  QTest::keyClicks(stitch, "7");
  for (const auto key : {Qt::Key_Escape, Qt::Key_Return}) QTest::keyRelease(stitch, key);
  EXPECT_EQ(stitch->text(), "25.0007");
  EXPECT_TRUE(stitch->hasFocus());
}

TEST_F(SetupShown, OkCancelAndTheCloseBoxHideItAndItReopensWithTheSettings) {
  for (const std::string way : {"OK", "Cancel", "close"}) {
    Open();
    Value("Wire Diameter Mils")->setFocus();
    way == "close" ? static_cast<void>(window.close()) : Press(way.c_str());
    EXPECT_FALSE(window.isVisible()) << way;
    EXPECT_FALSE(form.Alive()) << way;
  }
  settings.Material = "Al";
  Open();
  EXPECT_TRUE(Option("Material", "Al")->isChecked());
}

TEST_F(SetupShown, FaultsGoToTheRunner) {
  Open();
  Value("Frequency")->setText("1e38");
  Click(Option("Frequency", "Ghz"));
  EXPECT_GT(faults, 0);
  faults = 0;
  Press("Apply");
  EXPECT_EQ(faults, 0) << "buttons trap theirs";
}

}  // namespace
}  // namespace setup
