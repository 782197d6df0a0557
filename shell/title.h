/// The program's title and the main window's caption.
#pragma once

#include <string>

namespace shell {

inline constexpr char kProgramTitle[] = "3D YAX Viewer";

/// The main window's caption for a package file.
/// Deliberate: contains the minor version twice, so version 1.2.5 shows as 1.22.5.
std::string WindowTitle(const std::string& packagePath);

}  // namespace shell
