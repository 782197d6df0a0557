/// Keeps a key that is held down with the window that took its first press.
#pragma once

#include <QAbstractNativeEventFilter>
#include <QHash>
#include <QObject>
#include <array>
#include <cstdint>

namespace shell::ui {

/// A key that closes a menu or a dialog is mostly still down when the window below gets the keyboard back,
/// and goes on repeating there: Escape would end the program, Enter would press a button again. This filter
/// of the whole program drops such repeats.
class HeldKeys final : public QObject, public QAbstractNativeEventFilter {
 public:
  HeldKeys();
  ~HeldKeys() override;

  bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// The last events of a key on X.
  struct XKey {
    std::uint32_t Released = 0;  ///< in the server's time
    bool Repeats = false;
  };

  std::array<XKey, 256> xKeys_;            ///< by key code
  QHash<quint32, const QObject*> takers_;  ///< of the first presses; null stands for an open menu
};

}  // namespace shell::ui
