/// A callback to an owner; an empty one does nothing.
#pragma once

#include <functional>
#include <type_traits>
#include <utility>

namespace model {

/// Holds a routine that the owner sets, for example "show the printer dialog". The routine's result is
/// dropped.
template <class... Args>
class Callback {
 public:
  Callback() = default;
  template <class Routine, class = std::enable_if_t<std::is_invocable_v<Routine&, Args...> &&
                                                    !std::is_same_v<std::remove_cvref_t<Routine>, Callback>>>
  Callback(Routine&& routine) : routine_(std::forward<Routine>(routine)) {}

  void operator()(Args... args) const {
    if (routine_) routine_(std::forward<Args>(args)...);
  }

 private:
  std::function<void(Args...)> routine_;
};

}  // namespace model
