/// Ends the program, and runs handlers that may fault.
#pragma once

#include <new>
#include <string>

#include "model/callback.h"
#include "model/faults.h"

namespace shell {

/// Ends the program once; no handler or paint runs after that.
class ProgramEnd {
 public:
  /// Shows a message box with a title and a text, and returns when it is closed.
  model::Callback<const std::string&, const std::string&> ShowCritical;
  /// Closes every window and leaves the program with this exit status.
  model::Callback<int> Leave;

  bool Ending() const { return ending_; }

  /// Ends with status 0 and shows nothing.
  void EndSilently() { End(0, {}, {}); }
  /// Reports why OpenGL cannot be set up, then ends with status 1.
  void FatalError(const std::string& message);
  /// Reports an untrapped fault, then ends with status 1.
  void RunTimeError(const model::Fault& fault);

  /// Runs a handler; a fault or a lack of memory ends the program.
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

  /// Runs a handler; on a fault only the handler ends, silently, and its changes so far stay.
  template <class Handler>
  void RunTrapped(Handler&& handler) {
    if (ending_) return;
    try {
      handler();
    } catch (const model::Fault&) {
      // Trapped: the view stays usable.
    } catch (const std::bad_alloc&) {
      // Unwinding has freed the memory.
    }
  }

 private:
  void End(int status, const std::string& title, const std::string& text);

  bool ending_ = false;
};

}  // namespace shell
