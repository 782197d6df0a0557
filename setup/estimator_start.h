/// Finds the estimator and starts it with a package's parameter file.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace setup {

/// Starts `program` with one argument and does not wait for it.
using StartProgram = std::function<void(const std::string& program, const std::string& argument)>;

/// Starts a program without a shell and in a new session, so that it outlives this program and its terminal.
/// Signal dispositions are as if a shell had started it. Leaves no zombie. Ignores a program that cannot be
/// started.
void StartDetached(const std::string& program, const std::string& argument);

class Estimator {
 public:
  /// `programFolder` is this program's folder; `userFolder` gets the parameter file when that one cannot be
  /// written.
  Estimator(std::string programFolder, std::string userFolder, StartProgram start = StartDetached);

  /// True when "ZU.exe" is in this program's folder.
  bool Present() const;

  /// Writes `text` as the package's parameter file and starts the estimator with it, if there is one.
  /// Does nothing when the package's name is too short for a parameter file.
  /// Faults  FileFault when neither folder can be written
  void Run(const std::string& packagePath, std::string_view text) const;

 private:
  std::string Write(const std::string& name, std::string_view text) const;

  std::string programFolder_;
  std::string userFolder_;
  StartProgram start_;
};

}  // namespace setup
