/// Finds out whether there is an X display.
#pragma once

namespace shell::ui {

/// Holds an X connection while Qt opens its own: a server that loses its last client may reset.
class DisplayConnection {
 public:
  /// `name` as on the command line; null for the one that DISPLAY names.
  explicit DisplayConnection(const char* name);
  DisplayConnection(const DisplayConnection&) = delete;
  DisplayConnection& operator=(const DisplayConnection&) = delete;
  ~DisplayConnection();

  bool Answers() const { return display_ != nullptr; }

 private:
  void* display_;
};

}  // namespace shell::ui
