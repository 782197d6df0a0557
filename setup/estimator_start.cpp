#include "setup/estimator_start.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <utility>

#include "model/faults.h"
#include "model/files.h"
#include "setup/parameter_file.h"

namespace setup {

namespace {

std::string Beside(const std::string& folder, const std::string& name) {
  return folder.ends_with('/') ? folder + name : folder + "/" + name;
}

/// Runs in the forked child. Locks held by other threads stay locked there, so it calls only
/// async-signal-safe functions: no allocation, no C++ library.
[[noreturn]] void BecomeProgram(const char* program, char* const* arguments) {
  setsid();
  // The second child is an orphan: init reaps it, so it never becomes our zombie.
  if (fork() != 0) _exit(0);
  // Reset the signals, as a shell does: this program and its libraries ignore some, and exec keeps that.
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  for (int number = 1; number < NSIG; ++number) signal(number, SIG_DFL);
  const int nothing = open("/dev/null", O_RDONLY);
  if (nothing > STDIN_FILENO) {
    dup2(nothing, STDIN_FILENO);
    close(nothing);
  }
  execv(program, arguments);
  _exit(127);
}

}  // namespace

void StartDetached(const std::string& program, const std::string& argument) {
  std::string ownName = program;
  std::string ownArgument = argument;
  char* const arguments[] = {ownName.data(), ownArgument.data(), nullptr};
  const pid_t child = fork();
  if (child == 0) BecomeProgram(program.c_str(), arguments);
  int status = 0;
  while (child > 0 && waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
}

Estimator::Estimator(std::string programFolder, std::string userFolder, StartProgram start)
    : programFolder_(std::move(programFolder)),
      userFolder_(std::move(userFolder)),
      start_(std::move(start)) {}

bool Estimator::Present() const { return model::FileExists(Beside(programFolder_, "ZU.exe")); }

void Estimator::Run(const std::string& packagePath, std::string_view text) const {
  const auto name = ParameterFileName(packagePath);
  if (!name) return;
  const std::string file = Write(*name, text);
  if (Present()) start_(Beside(programFolder_, "ZU.exe"), file);
}

std::string Estimator::Write(const std::string& name, std::string_view text) const {
  const std::string beside = Beside(programFolder_, name);
  try {
    model::WriteWholeFile(beside, text);
    return beside;
  } catch (const model::FileFault&) {
    // The folder of an installed program usually belongs to root.
    if (userFolder_.empty()) throw;
  }
  std::error_code error;
  std::filesystem::create_directories(userFolder_, error);
  const std::string own = Beside(userFolder_, name);
  model::WriteWholeFile(own, text);
  return own;
}

}  // namespace setup
