#include "model/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <memory>
#include <system_error>
#include <utility>

#include "model/faults.h"
#include "model/text.h"

namespace model {

namespace {

[[noreturn]] void FaultOf(int error, const std::string& path) {
  throw FileFault(std::generic_category().message(error), std::string(FileNameOf(path)));
}

/// Where writing to `path` really lands: links followed, also one whose target is not there yet.
std::string TargetOf(const std::string& path) {
  std::string target = path;
  for (int links = 0; links < 40; ++links) {
    char text[PATH_MAX];
    const ssize_t length = readlink(target.c_str(), text, sizeof text);
    if (length < 0) return target;
    const std::string next(text, static_cast<std::size_t>(length));
    const std::size_t folder = target.rfind('/');
    target =
        next.starts_with('/') || folder == std::string::npos ? next : target.substr(0, folder + 1) + next;
  }
  FaultOf(ELOOP, path);
}

/// The new content beside the target, gone again unless it took the target's place.
/// Its name does not grow out of the target's, which may be as long as the system allows.
class Draft {
 public:
  explicit Draft(const std::string& target)
      : name_(target.substr(0, target.rfind('/') + 1) + ".yaxview-XXXXXX"),
        number_(mkostemp(name_.data(), O_CLOEXEC)) {}
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;
  ~Draft() {
    if (!opened_) return;
    if (number_ >= 0) close(number_);
    if (!placed_) unlink(name_.c_str());
  }

  bool Opened() const { return opened_; }

  bool Write(std::string_view bytes) {
    while (!bytes.empty()) {
      const ssize_t part = write(number_, bytes.data(), bytes.size());
      if (part < 0 && errno == EINTR) continue;
      if (part < 0) return false;
      bytes.remove_prefix(static_cast<std::size_t>(part));
    }
    return true;
  }

  bool Place(const std::string& target, mode_t mode, Content content) {
    const bool settled = fchmod(number_, mode) == 0 && (content == Content::MadeAgain || fsync(number_) == 0);
    // Disks in the network may tell only now that they are full.
    placed_ = settled && close(std::exchange(number_, -1)) == 0 && rename(name_.c_str(), target.c_str()) == 0;
    return placed_;
  }

 private:
  std::string name_;
  int number_;
  bool opened_ = number_ >= 0;
  bool placed_ = false;
};

/// The permissions that the new file takes: the old file's, or those of any new file.
mode_t ModeFor(const std::string& target) {
  struct stat old {};
  if (stat(target.c_str(), &old) == 0) {
    if (!S_ISREG(old.st_mode)) FaultOf(S_ISDIR(old.st_mode) ? EISDIR : EINVAL, target);
    // A rename would replace a file that may not be written; its permissions must hold here too.
    if (access(target.c_str(), W_OK) != 0) FaultOf(errno, target);
    return old.st_mode & 07777;
  }
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

}  // namespace

void WriteWholeFile(const std::string& path, std::string_view bytes, Content content) {
  const std::string target = TargetOf(path);
  const mode_t mode = ModeFor(target);
  Draft draft(target);
  if (!draft.Opened() || !draft.Write(bytes) || !draft.Place(target, mode, content)) FaultOf(errno, path);
}

}  // namespace model
