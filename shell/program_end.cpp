#include "shell/program_end.h"

#include "shell/title.h"

namespace shell {

void ProgramEnd::FatalError(const std::string& message) {
  End(1, std::string("Fatal Error In ") + shell::kProgramTitle, "Fatal Error: " + message);
}

void ProgramEnd::RunTimeError(const model::Fault& fault) { End(1, shell::kProgramTitle, fault.what()); }

void ProgramEnd::End(int status, const std::string& title, const std::string& text) {
  if (ending_) return;
  // Set before the box opens: its event loop must not run more handlers.
  ending_ = true;
  if (!text.empty()) ShowCritical(title, text);
  Leave(status);
}

}  // namespace shell
