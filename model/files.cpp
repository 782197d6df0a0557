#include "model/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <deque>
#include <new>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "model/faults.h"
#include "model/text.h"

namespace model {

namespace {

// The largest packages have a few megabytes. A larger file is not a package; a sparse file can have any size.
constexpr std::size_t kMaxBytes = std::size_t{1} << 28;

[[noreturn]] void ThrowFault(int error, const std::string& path) {
  throw FileFault(std::generic_category().message(error), std::string(FileNameOf(path)));
}

/// Owns a file descriptor; -1 for none.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  int Number() const { return number_; }
  bool Close() { return close(std::exchange(number_, -1)) == 0; }

 private:
  int number_;
};

/// Reads   an open file to its end. `size` is its last known size: the file may grow or shrink meanwhile.
std::string ReadFrom(int file, std::size_t size, const std::string& path) {
  // One byte more than the size lets the last read() see the end without growing the buffer.
  std::string bytes(size + 1, '\0');
  std::size_t got = 0;
  for (;;) {
    if (got > kMaxBytes) ThrowFault(EFBIG, path);
    if (got == bytes.size()) bytes.resize(bytes.size() + 4096);
    const ssize_t part = read(file, bytes.data() + got, bytes.size() - got);
    if (part < 0 && errno == EINTR) continue;
    if (part < 0) ThrowFault(errno, path);
    if (part == 0) break;
    got += static_cast<std::size_t>(part);
  }
  bytes.resize(got);
  return bytes;
}

/// Follows links, even one whose target does not exist yet.
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
  ThrowFault(ELOOP, path);
}

/// A temporary file beside the target, deleted again unless it replaced the target. Its name does not contain
/// the target's, which may already be as long as the system allows.
class Draft {
 public:
  explicit Draft(const std::string& target)
      : name_(target.substr(0, target.rfind('/') + 1) + ".yaxview-XXXXXX"),
        file_(mkostemp(name_.data(), O_CLOEXEC)) {}
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;
  ~Draft() {
    if (opened_ && !placed_) unlink(name_.c_str());
    if (!old_.empty()) unlink(old_.c_str());
  }

  bool Opened() const { return opened_; }

  bool Write(std::string_view bytes) {
    while (!bytes.empty()) {
      const ssize_t part = write(file_.Number(), bytes.data(), bytes.size());
      if (part < 0 && errno == EINTR) continue;
      if (part < 0) return false;
      bytes.remove_prefix(static_cast<std::size_t>(part));
    }
    return true;
  }

  bool Complete(mode_t mode, Durability durability) {
    const bool settled =
        fchmod(file_.Number(), mode) == 0 && (durability == Durability::Fast || fsync(file_.Number()) == 0);
    // A network file system may report ENOSPC only at close().
    return settled && file_.Close();
  }

  bool Place(const std::string& target) {
    placed_ = rename(name_.c_str(), target.c_str()) == 0;
    return placed_;
  }

  /// Places the draft so that TakeBack can undo it: the old file is kept under another name until the end.
  bool PlaceForNow(const std::string& target) {
    old_ = name_ + "o";
    if (link(target.c_str(), old_.c_str()) != 0) {
      old_.clear();
      // Some file systems have no hard links; there TakeBack cannot restore the old file.
      isNew_ = errno == ENOENT;
    }
    return Place(target);
  }
  void TakeBack(const std::string& target) {
    if (!old_.empty() && rename(old_.c_str(), target.c_str()) == 0) old_.clear();
    if (isNew_) unlink(target.c_str());
  }

 private:
  std::string name_;
  std::string old_;
  bool isNew_ = false;
  Descriptor file_;
  bool opened_ = file_.Number() >= 0;
  bool placed_ = false;
};

/// The new file's permissions: the old file's, or the default for a new file.
mode_t ModeFor(const std::string& target) {
  struct stat old {};
  if (stat(target.c_str(), &old) == 0) {
    if (!S_ISREG(old.st_mode)) ThrowFault(S_ISDIR(old.st_mode) ? EISDIR : EINVAL, target);
    // rename() replaces even a read-only file; its permissions must hold here too.
    if (access(target.c_str(), W_OK) != 0) ThrowFault(errno, target);
    return old.st_mode & 07777;
  }
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

}  // namespace

bool FileExists(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

std::string ReadWholeFile(const std::string& path) {
  // Without O_NONBLOCK, opening a named pipe would block until a writer opens it.
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (file.Number() < 0) ThrowFault(errno, path);
  struct stat status {};
  if (fstat(file.Number(), &status) != 0) ThrowFault(errno, path);
  if (S_ISDIR(status.st_mode)) ThrowFault(EISDIR, path);
  if (!S_ISREG(status.st_mode)) throw FileFault("Not a regular file", std::string(FileNameOf(path)));

  if (static_cast<std::size_t>(status.st_size) > kMaxBytes) ThrowFault(EFBIG, path);
  try {
    return ReadFrom(file.Number(), static_cast<std::size_t>(status.st_size), path);
  } catch (const std::bad_alloc&) {
    ThrowFault(ENOMEM, path);
  } catch (const std::length_error&) {
    ThrowFault(EFBIG, path);
  }
}

std::string ReadToEnd(const std::string& path) {
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (file.Number() < 0) ThrowFault(errno, path);
  return ReadFrom(file.Number(), 0, path);
}

void WriteWholeFile(const std::string& path, std::string_view bytes, Durability durability) {
  const std::string target = TargetOf(path);
  const mode_t mode = ModeFor(target);
  Draft draft(target);
  if (!draft.Opened() || !draft.Write(bytes) || !draft.Complete(mode, durability) || !draft.Place(target))
    ThrowFault(errno, path);
}

void WriteWholeFiles(const std::vector<FileToWrite>& files, Durability durability, std::string& failed) {
  std::vector<std::string> targets;
  std::deque<Draft> drafts;
  for (const FileToWrite& file : files) {
    failed = file.Path;
    targets.push_back(TargetOf(file.Path));
    const mode_t mode = ModeFor(targets.back());
    Draft& draft = drafts.emplace_back(targets.back());
    if (!draft.Opened() || !draft.Write(file.Bytes) || !draft.Complete(mode, durability))
      ThrowFault(errno, file.Path);
  }
  for (std::size_t i = 0; i < files.size(); ++i) {
    // The last file needs no undo: nothing can fail after it.
    if (i + 1 < files.size() ? drafts[i].PlaceForNow(targets[i]) : drafts[i].Place(targets[i])) continue;
    const int error = errno;
    failed = files[i].Path;
    while (i > 0) --i, drafts[i].TakeBack(targets[i]);
    ThrowFault(error, failed);
  }
  failed.clear();
}

}  // namespace model
