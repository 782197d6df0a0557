/// The widget `Picture1`: paints the side view of the loops with antialiased lines.
#pragma once

#include <QWidget>

#include "setup/setup_form.h"

namespace setup::ui {

/// Call once, before the first window: gives the view the accessible role of a picture.
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
