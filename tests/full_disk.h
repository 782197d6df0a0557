/// Simulates a full disk: during its lifetime no file of this process grows beyond a number of bytes.
#pragma once

#include <sys/resource.h>

#include <csignal>

class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : oldHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &oldLimit_);
    const rlimit limit{bytes, oldLimit_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &oldLimit_);
    std::signal(SIGXFSZ, oldHandler_);
  }

 private:
  void (*oldHandler_)(int);
  rlimit oldLimit_{};
};
