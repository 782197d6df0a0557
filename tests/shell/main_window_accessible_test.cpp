#include <QAccessible>
#include <QMenu>
#include <QPushButton>

#include "shell/accessible_view.h"
#include "tests/shell/main_window_fixture.h"

namespace shell {
namespace {

class MainWindowAccessible : public MainWindowTest {
 protected:
  MainWindowAccessible() {
    static const bool installed = (InstallAccessibleViews(), true);
    EXPECT_TRUE(installed);
  }

  /// The thing of this name below `root`, and nothing else of that name.
  static QAccessibleInterface* Find(QAccessibleInterface* root, const QString& name) {
    QAccessibleInterface* found = nullptr;
    for (int i = 0; i < root->childCount(); ++i) {
      QAccessibleInterface* const child = root->child(i);
      QAccessibleInterface* const here = child->text(QAccessible::Name) == name ? child : Find(child, name);
      if (here == nullptr) continue;
      EXPECT_EQ(found, nullptr) << name.toStdString();
      found = here;
    }
    return found;
  }
  QAccessibleInterface* Find(const QString& name) {
    QAccessibleInterface* const found = Find(QAccessible::queryAccessibleInterface(window.get()), name);
    if (found == nullptr) throw std::out_of_range(name.toStdString());
    return found;
  }
  static bool Acts(QAccessibleInterface* thing, const QString& action) {
    if (!thing->actionInterface()->actionNames().contains(action)) return false;
    thing->actionInterface()->doAction(action);
    return true;
  }
};

TEST_F(MainWindowAccessible, EveryControlHasNameRoleActionAndEffect) {
  Open();
  struct Case {
    const char* name;
    const char* changes;  ///< of its press
  };
  constexpr Case kButtons[] = {
      {"In +", "z4"},      {"Out -", "z6"},        {"< < < < <", "turn10"}, {"> > > > >", "turn-10"},
      {"U", "look10"},     {"D", "look-10"},       {"Camera left", "x-1"},  {"Camera right", "x1"},
      {"Camera up", "y1"}, {"Camera down", "y-1"}, {"Reset view", ""},
  };
  for (const Case& one : kButtons) {
    Restart();
    QAccessibleInterface* const button = Find(one.name);
    EXPECT_EQ(button->role(), QAccessible::Button) << one.name;
    EXPECT_TRUE(button->state().focusable == (std::string(one.name) == "Reset view")) << one.name;
    EXPECT_FALSE(button->state().disabled || button->state().invisible) << one.name;
    EXPECT_FALSE(button->text(QAccessible::Description).isEmpty()) << one.name;
    EXPECT_TRUE(Acts(button, QAccessibleActionInterface::pressAction())) << one.name;
    // The toolkit shows the button pressed for a moment first.
    EXPECT_TRUE(QTest::qWaitFor([&] { return Changes() == one.changes; }, 1000)) << one.name << Changes();
  }
  struct Bar {
    const char* name;
    int min, max, to;
    const char* changes;
  };
  for (const Bar& one : {Bar{"Pitch", -90, 270, 200, "pitch200"}, Bar{"Yaw", -180, 180, -30, "yaw-30"}}) {
    Restart();
    QAccessibleInterface* const bar = Find(one.name);
    EXPECT_EQ(bar->role(), QAccessible::ScrollBar);
    ASSERT_TRUE(bar->valueInterface());
    EXPECT_EQ(bar->valueInterface()->minimumValue(), one.min);
    EXPECT_EQ(bar->valueInterface()->maximumValue(), one.max);
    bar->valueInterface()->setCurrentValue(one.to);
    EXPECT_EQ(Changes(), one.changes);
  }
}

TEST_F(MainWindowAccessible, TheViewOpensTheMenuWhoseEntriesSpeak) {
  Open();
  QAccessibleInterface* const view = Find("Package view");
  EXPECT_EQ(view->role(), QAccessible::Canvas);
  EXPECT_TRUE(view->state().focusable);
  EXPECT_TRUE(Acts(view, QAccessibleActionInterface::showMenuAction()));
  EXPECT_TRUE(Menu().isVisible());
  QAccessibleInterface* const frame = QAccessible::queryAccessibleInterface(window.get());
  EXPECT_EQ(frame->role(), QAccessible::Window);
  QAccessibleInterface* const menu = frame->child(frame->childCount() - 1);
  EXPECT_EQ(menu->role(), QAccessible::PopupMenu);
  EXPECT_EQ(frame->indexOfChild(menu), frame->childCount() - 1);
  EXPECT_TRUE(Find(menu, "Viewer")->state().disabled);  // no page in the program's folder
  EXPECT_TRUE(Acts(Find(menu, "White"), QAccessibleActionInterface::pressAction()));
  EXPECT_EQ(Form().FramePicture().Rgb[0], 255);
  EXPECT_FALSE(Menu().isVisible());
}

}  // namespace
}  // namespace shell
