/// Sends the repeats of a held key only to the window that got its first press.
#pragma once

#include <QAbstractNativeEventFilter>
#include <QHash>
#include <QObject>
#include <array>
#include <cstdint>

namespace shell::ui {

/// A key that closes a menu or a dialog is usually still down when the window below gets the keyboard back,
/// and keeps repeating there: Escape would end the program, Enter would press a button again. This
/// application-wide event filter drops such repeats.
class HeldKeys final : public QObject, public QAbstractNativeEventFilter {
 public:
  HeldKeys();
  ~HeldKeys() override;

  bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// The last X events of a key.
  struct XKey {
    std::uint32_t Released = 0;  ///< X server time
    bool Repeats = false;
  };

  std::array<XKey, 256> xKeys_;            ///< by key code
  QHash<quint32, const QObject*> takers_;  ///< what got the first press of each key; null for an open menu
};

}  // namespace shell::ui
