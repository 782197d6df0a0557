/// Finds the controls of a window by their accessible names.
#pragma once

#include <QAccessible>
#include <QWidget>
#include <stdexcept>

/// The control of that accessible name, which is the caption where none is set; within `frame` if one is
/// given.
template <class Control>
Control& Find(const QWidget& window, const QString& name, const QString& frame = {}) {
  for (Control* const control : window.findChildren<Control*>()) {
    const QWidget* const parent = control->parentWidget();
    if (!frame.isEmpty() && (parent == nullptr || parent->accessibleName() != frame)) continue;
    if (QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name) == name) return *control;
  }
  throw std::out_of_range((frame + ": " + name).toStdString());
}
