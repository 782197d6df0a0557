#include "shell/accessible_view.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "shell/gl_view.h"
#include "shell/view_controls.h"

namespace shell {

namespace {

/// A widget with one action of its own beside the toolkit's "SetFocus".
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
  void Act() override {
    if (view_->menuAsked) view_->menuAsked();
  }

  GlView* view_;
};

class AccessibleDummy final : public ActingWidget {
 public:
  explicit AccessibleDummy(DummyBox* box)
      : ActingWidget(box, QAccessible::Button, pressAction()), box_(box) {}

 private:
  void Act() override {
    if (box_->clicked) box_->clicked();
  }

  DummyBox* box_;
};

QAccessibleInterface* Create(const QString&, QObject* object) {
  if (auto* const view = qobject_cast<GlView*>(object)) return new AccessibleView(view);
  if (auto* const box = qobject_cast<DummyBox*>(object)) return new AccessibleDummy(box);
  return nullptr;
}

}  // namespace

void InstallAccessibleViews() { QAccessible::installFactory(Create); }

}  // namespace shell
