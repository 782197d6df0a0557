/// Whether there is a display to show windows on.
#pragma once

namespace shell::ui {

/// A connection to the X server, held while the toolkit makes its own: a server without any client left may
/// start anew just then, and the toolkit would find nobody.
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
