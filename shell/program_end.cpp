#include "shell/program_end.h"

#include "shell/title.h"

namespace shell {

void ProgramEnd::FatalError(const std::string& message) {
  End(1, std::string("Fatal Error In ") + shell::kProgramTitle, "Fatal Error: " + message);
}

void ProgramEnd::RunTimeError(const model::Fault& fault) { End(1, shell::kProgramTitle, fault.what()); }

void ProgramEnd::End(int status, const std::string& title, const std::string& text) {
  if (ending_) return;
  // Before the box: events that arrive while it is open must find nobody at home.
  ending_ = true;
  if (!text.empty() && showCritical) showCritical(title, text);
  if (leave) leave(status);
}

}  // namespace shell
