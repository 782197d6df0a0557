#include "shell/ui/accessible_view.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QMenu>

#include "setup/ui/loop_view.h"
#include "shell/ui/gl_view.h"
#include "shell/ui/view_controls.h"

namespace shell::ui {

namespace {

/// A widget with one action besides Qt's "SetFocus".
class ActingWidget : public QAccessibleWidget {
 public:
  ActingWidget(QWidget* widget, QAccessible::Role role, const QString& action)
      : QAccessibleWidget(widget, role), action_(action) {}

  QStringList actionNames() const override { return QStringList{action_} + QAccessibleWidget::actionNames(); }

  void doAction(const QString& name) override {
    if (name == action_) return Act();
    QAccessibleWidget::doAction(name);
  }

 private:
  virtual void Act() = 0;

  QString action_;
};

class AccessibleView final : public ActingWidget {
 public:
  explicit AccessibleView(GlView* view)
      : ActingWidget(view, QAccessible::Canvas, showMenuAction()), view_(view) {}

 private:
  void Act() override { view_->MenuAsked(); }

  GlView* view_;
};

class AccessibleDummy final : public ActingWidget {
 public:
  explicit AccessibleDummy(DummyBox* box)
      : ActingWidget(box, QAccessible::Button, pressAction()), box_(box) {}

 private:
  void Act() override { box_->Clicked(); }

  DummyBox* box_;
};

/// A plain window: Qt gives it the role Filler and does not list its open menu as a child.
class AccessibleWindow final : public QAccessibleWidget {
 public:
  explicit AccessibleWindow(QWidget* window) : QAccessibleWidget(window, QAccessible::Window) {}

  int childCount() const override {
    return QAccessibleWidget::childCount() + (OpenMenu() != nullptr ? 1 : 0);
  }

  QAccessibleInterface* child(int index) const override {
    QMenu* const menu = index == QAccessibleWidget::childCount() ? OpenMenu() : nullptr;
    return menu != nullptr ? QAccessible::queryAccessibleInterface(menu) : QAccessibleWidget::child(index);
  }

  int indexOfChild(const QAccessibleInterface* child) const override {
    const bool isMenu = child != nullptr && child->object() != nullptr && child->object() == OpenMenu();
    return isMenu ? QAccessibleWidget::childCount() : QAccessibleWidget::indexOfChild(child);
  }

 private:
  QMenu* OpenMenu() const {
    for (QMenu* const menu : widget()->findChildren<QMenu*>(Qt::FindDirectChildrenOnly))
      if (menu->isVisible()) return menu;
    return nullptr;
  }
};

QAccessibleInterface* Create(const QString& kind, QObject* object) {
  auto* const plain = kind == "QWidget" ? qobject_cast<QWidget*>(object) : nullptr;
  if (plain != nullptr && plain->metaObject() == &QWidget::staticMetaObject &&
      plain->windowType() == Qt::Window)
    return new AccessibleWindow(plain);
  if (auto* const view = qobject_cast<GlView*>(object)) return new AccessibleView(view);
  if (auto* const box = qobject_cast<DummyBox*>(object)) return new AccessibleDummy(box);
  return nullptr;
}

}  // namespace

void InstallAccessibleViews() {
  QAccessible::installFactory(Create);
  setup::ui::InstallAccessibleLoopView();
}

}  // namespace shell::ui
