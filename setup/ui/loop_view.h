/// `Picture1` on the screen: the side view of the loops, painted with smooth lines.
#pragma once

#include <QWidget>

#include "setup/setup_form.h"

namespace setup::ui {

/// To be called once, before the first window: makes the view a picture to assistive technology.
void InstallAccessibleLoopView();

class LoopView final : public QWidget {
  Q_OBJECT

 public:
  explicit LoopView(const SetupForm& form);

  QSize sizeHint() const override { return {640, 230}; }
  QSize minimumSizeHint() const override { return {320, 140}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const SetupForm& form_;
};

}  // namespace setup::ui
