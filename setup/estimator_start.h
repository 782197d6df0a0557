/// The companion estimator: where it lies, and how it is started on a package's parameter file.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace setup {

/// Starts `program` with one argument and does not wait for it.
using StartProgram = std::function<void(const std::string& program, const std::string& argument)>;

/// Starts a program with no shell in between, in a new session, so that it outlives this program and its
/// terminal, and with the signal dispositions that a shell would give it. Leaves no zombie. A program that
/// cannot be started is ignored.
void StartDetached(const std::string& program, const std::string& argument);

class Estimator {
 public:
  /// `programFolder` is this program's own; `userFolder` takes the parameter file where that one cannot be
  /// written.
  Estimator(std::string programFolder, std::string userFolder, StartProgram start = StartDetached);

  /// True when "ZU.exe" lies beside this program.
  bool Present() const;

  /// Writes `text` as the package's parameter file and starts the estimator on it, if it is there.
  /// A package whose name is too short for a parameter file does nothing.
  /// Faults  FileFault when neither folder can be written
  void Run(const std::string& packagePath, std::string_view text) const;

 private:
  std::string Write(const std::string& name, std::string_view text) const;

  std::string programFolder_;
  std::string userFolder_;
  StartProgram start_;
};

}  // namespace setup
