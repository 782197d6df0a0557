/// A flag that is set for the life of a scope, however it ends.
#pragma once

namespace shell::navigation {

class ScopedFlag {
 public:
  explicit ScopedFlag(bool& flag) : flag_(flag) { flag_ = true; }
  ScopedFlag(const ScopedFlag&) = delete;
  ScopedFlag& operator=(const ScopedFlag&) = delete;
  ~ScopedFlag() { flag_ = false; }

 private:
  bool& flag_;
};

}  // namespace shell::navigation
