#include "model/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <new>
#include <stdexcept>
#include <system_error>

#include "model/faults.h"
#include "model/text.h"

namespace model {

namespace {

// The largest packages have some megabytes. What is beyond this is none, and may be a hole without end.
constexpr std::size_t kMaxBytes = std::size_t{1} << 28;

class OpenFile {
 public:
  explicit OpenFile(const std::string& path)
      // Without O_NONBLOCK a pipe that took the file's place would hold the program for ever.
      : number_(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() {
    if (number_ >= 0) close(number_);
  }
  int Number() const { return number_; }

 private:
  int number_;
};

[[noreturn]] void FaultOf(int error, const std::string& path) {
  throw FileFault(std::generic_category().message(error), std::string(FileNameOf(path)));
}

/// All of an open file whose size was `size` a moment ago: it may grow or shrink while it is read.
std::string ReadFrom(int file, std::size_t size, const std::string& path) {
  // One byte more than the size lets the last read() see the end without growing the buffer.
  std::string bytes(size + 1, '\0');
  std::size_t got = 0;
  for (;;) {
    if (got > kMaxBytes) FaultOf(EFBIG, path);
    if (got == bytes.size()) bytes.resize(bytes.size() + 4096);
    const ssize_t part = read(file, bytes.data() + got, bytes.size() - got);
    if (part < 0 && errno == EINTR) continue;
    if (part < 0) FaultOf(errno, path);
    if (part == 0) break;
    got += static_cast<std::size_t>(part);
  }
  bytes.resize(got);
  return bytes;
}

}  // namespace

bool FileExists(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

std::string ReadWholeFile(const std::string& path) {
  const OpenFile file(path);
  if (file.Number() < 0) FaultOf(errno, path);
  struct stat status {};
  if (fstat(file.Number(), &status) != 0) FaultOf(errno, path);
  if (S_ISDIR(status.st_mode)) FaultOf(EISDIR, path);
  if (!S_ISREG(status.st_mode)) throw FileFault("Not a regular file", std::string(FileNameOf(path)));

  if (static_cast<std::size_t>(status.st_size) > kMaxBytes) FaultOf(EFBIG, path);
  try {
    return ReadFrom(file.Number(), static_cast<std::size_t>(status.st_size), path);
  } catch (const std::bad_alloc&) {
    FaultOf(ENOMEM, path);
  } catch (const std::length_error&) {
    FaultOf(EFBIG, path);
  }
}

}  // namespace model
