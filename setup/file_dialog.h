/// The open and save dialogs as the program's handlers see them; the windows bring the real ones.
#pragma once

#include <optional>
#include <string>

namespace setup {

/// Meanings of the bits in FileDialogRequest::Flags.
inline constexpr int kOverwritePrompt = 0x2;  ///< ask before a file that is there is replaced
inline constexpr int kHideReadOnly = 0x4;     ///< no "read only" box
inline constexpr int kKeepFolder = 0x8;       ///< the program's current folder stays
inline constexpr int kCreatePrompt = 0x2000;  ///< a new name is taken without a question all the same
inline constexpr int kShareAware = 0x4000;    ///< a file that others have open may be chosen

/// What a dialog shows. Texts are UTF-8.
struct FileDialogRequest {
  std::string DialogTitle{};
  std::string FileName{};    ///< what it starts with: a path, or a pattern such as "*.zu"
  std::string Filter{};      ///< pairs of words and pattern: "zu files|*.zu|all files|*.*"
  std::string DefaultExt{};  ///< what a name without one gets, point included
  int Flags = 0;
  /// The package being shown: the overwrite question warns of it, and a first dialog starts in its folder.
  std::string PackagePath{};
};

class FileDialog {
 public:
  virtual ~FileDialog() = default;

  /// Returns the chosen path; empty when the user cancels.
  virtual std::optional<std::string> ShowOpen(const FileDialogRequest& request) = 0;
  virtual std::optional<std::string> ShowSave(const FileDialogRequest& request) = 0;
};

/// What a save dialog asks before it takes `target`; "No" is always the default answer.
/// Returns "" when there is nothing to ask: no such file, or no kOverwritePrompt.
std::string OverwriteQuestion(const std::string& target, const FileDialogRequest& request);

}  // namespace setup
