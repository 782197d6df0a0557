/// How the program ends, and what a fault in a handler does.
#pragma once

#include <new>
#include <string>

#include "model/callback.h"
#include "model/faults.h"

namespace shell {

/// Ends the program once: after that, no handler and no paint runs any more.
class ProgramEnd {
 public:
  /// Shows a message box with a title and a text, and returns when it is closed.
  model::Callback<const std::string&, const std::string&> ShowCritical;
  /// Closes every window and leaves the program with this exit status.
  model::Callback<int> Leave;

  bool Ending() const { return ending_; }

  /// Status 0, nothing shown.
  void EndSilently() { End(0, {}, {}); }
  /// Reports what keeps OpenGL from being set up, then ends with status 1.
  void FatalError(const std::string& message);
  /// Reports an untrapped fault, then ends with status 1.
  void RunTimeError(const model::Fault& fault);

  /// Runs a handler whose faults end the program; too little memory is one of them.
  template <class Handler>
  void Run(Handler&& handler) {
    if (ending_) return;
    try {
      handler();
    } catch (const model::Fault& fault) {
      RunTimeError(fault);
    } catch (const std::bad_alloc&) {
      RunTimeError(model::Fault("Out of memory", {}));
    }
  }

  /// Runs a handler that ends quietly on a fault, with the state as changed so far.
  template <class Handler>
  void RunTrapped(Handler&& handler) {
    if (ending_) return;
    try {
      handler();
    } catch (const model::Fault&) {
      // Trapped: the view stays usable.
    } catch (const std::bad_alloc&) {
      // Unwinding has freed what was there.
    }
  }

 private:
  void End(int status, const std::string& title, const std::string& text);

  bool ending_ = false;
};

}  // namespace shell
