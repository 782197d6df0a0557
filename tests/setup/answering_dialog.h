/// File dialogs that give a prepared answer.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "setup/file_dialog.h"

namespace setup {

class AnsweringDialog final : public FileDialog {
 public:
  std::optional<std::string> ShowOpen(const FileDialogRequest& request) override {
    return Take("open", request);
  }
  std::optional<std::string> ShowSave(const FileDialogRequest& request) override {
    return Take("save", request);
  }

  std::optional<std::string> answer;  ///< empty: cancelled
  std::vector<FileDialogRequest> asked;
  std::string shown;             ///< "open" or "save", the last one
  std::function<void()> asking;  ///< runs while the dialog is open

 private:
  std::optional<std::string> Take(const char* which, const FileDialogRequest& request) {
    shown = which;
    asked.push_back(request);
    if (asking) asking();
    return answer;
  }
};

}  // namespace setup
