/// A call upward that does nothing while it is empty.
#pragma once

#include <concepts>
#include <functional>
#include <type_traits>
#include <utility>

namespace model {

/// Holds what an owner fills in, for example "show the printer dialog". Whatever the owner's routine returns
/// is dropped.
template <class... Args>
class Callback {
 public:
  Callback() = default;
  template <class Routine>
    requires std::invocable<Routine&, Args...> && (!std::same_as<std::remove_cvref_t<Routine>, Callback>)
  Callback(Routine&& routine) : routine_(std::forward<Routine>(routine)) {}

  void operator()(Args... args) const {
    if (routine_) routine_(std::forward<Args>(args)...);
  }

 private:
  std::function<void(Args...)> routine_;
};

}  // namespace model
