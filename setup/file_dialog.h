/// The open and save dialogs as an interface for the handlers of setup and of shell, which includes setup.
#pragma once

#include <optional>
#include <string>

namespace setup {

/// What a dialog shows. Texts are UTF-8.
struct FileDialogRequest {
  std::string DialogTitle{};
  std::string FileName{};    ///< the initial name: a path, or a pattern such as "*.zu"
  std::string Filter{};      ///< pairs of description and pattern: "zu files|*.zu|all files|*.*"
  std::string DefaultExt{};  ///< appended to a name without a suffix, such as ".zu"
  bool OverwritePrompt = false;
  /// The package being shown: the first dialog starts in its folder, and the overwrite question warns of it.
  std::string PackagePath{};
};

class FileDialog {
 public:
  virtual ~FileDialog() = default;

  /// Returns the chosen path; empty when the user cancels.
  virtual std::optional<std::string> ShowOpen(const FileDialogRequest& request) = 0;
  virtual std::optional<std::string> ShowSave(const FileDialogRequest& request) = 0;
};

/// The question to ask before `target` is overwritten; "No" is the default answer.
/// Returns "" when there is no such file yet
std::string OverwriteQuestion(const std::string& target, const std::string& packagePath);

}  // namespace setup
