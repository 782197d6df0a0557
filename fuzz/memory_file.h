/// A file in memory with a path, for readers that take a path.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <string>
#include <string_view>

class MemoryFile {
 public:
  MemoryFile()
      : number_(memfd_create("fuzz", MFD_CLOEXEC)), path_("/proc/self/fd/" + std::to_string(number_)) {}
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;
  ~MemoryFile() { close(number_); }

  const std::string& Path() const { return path_; }

  /// Returns false when the bytes cannot be written.
  bool Put(std::string_view bytes) const {
    return ftruncate(number_, 0) == 0 &&
           pwrite(number_, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size());
  }

 private:
  int number_;
  std::string path_;
};
