/// Whether there is a display to show windows on.
#pragma once

namespace shell {

/// True when the X server that DISPLAY names answers.
bool DisplayAnswers();

}  // namespace shell
