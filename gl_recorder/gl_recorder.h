/// A strict replacement for OpenGL that unit tests link: it records and checks every call.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace gl_recorder {

/// One call: its name, and its arguments as numbers (names of GL values included) and as text.
struct Call {
  std::string Name;
  std::vector<double> Numbers;
  std::string Text;  ///< "glVertex3f(1, 0, -2)"
};

struct Argument {
  double Number;
  std::string Text;
  Argument(double number);  // NOLINT: numbers stand for themselves
  Argument(double number, std::string text) : Number(number), Text(std::move(text)) {}
};

/// Receives the program's gl and glu calls during its lifetime. Only one may exist at a time.
///
/// It notes an error for: a vertex or normal outside begin and end; anything but vertices, normals, colours
/// and materials inside; a begin inside a begin; an end without one, except the one that BuildCube puts right
/// before the end of its compile-and-execute list; a list inside a list, with a name that glGenLists did not
/// return, or called but missing; calls without a context; stacks that do not balance.
class Recorder {
 public:
  Recorder();
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;
  ~Recorder();

  const std::vector<Call>& Log() const { return log_; }
  const std::vector<std::string>& Errors() const { return errors_; }
  void ClearLog() { log_.clear(); }

  /// The calls compiled into a list; empty when it was emptied or there is no such list.
  std::vector<Call> List(unsigned name) const;
  void SetNextListName(unsigned name) { nextName_ = name; }

  /// NewContext makes a fresh context without lists. After DropContext every call is an error.
  void NewContext();
  void DropContext();

  /// Notes an error for each list, primitive or stack that is still open.
  void Finish();

  /// Adds a line of the test to the log, such as a swap of buffers.
  void Note(const std::string& name);

  // For the gl routines.
  enum class Place { Anywhere, Outside, Inside };  ///< relative to glBegin and glEnd
  void Take(Place place, const std::string& name, const std::vector<Argument>& arguments);
  void Begin(unsigned mode);
  void End();
  unsigned GenLists(int count);
  void NewList(unsigned name, unsigned mode);
  void EndList();
  void CallList(unsigned name);
  void Nest(int step, const std::string& stack, const std::vector<Argument>& arguments);
  bool HasContext() const { return hasContext_; }

 private:
  void Error(const std::string& what);

  std::vector<Call> log_;
  std::vector<std::string> errors_;
  std::map<unsigned, std::vector<Call>> lists_;
  unsigned nextName_ = 1;
  bool hasContext_ = true;
  struct {
    unsigned Name = 0, Mode = 0;  ///< name and mode of the list being compiled
    std::vector<Call> List;       ///< its calls so far
    std::map<std::string, int> Depths;
    bool Primitive = false;
    bool LoneEnd = false;  ///< a glEnd without glBegin came; only glEndList may follow
  } open_;
};

/// Needs   a Recorder
Recorder& Current();

/// The name of a GL value, or its number when the program does not use it.
std::string NameOf(unsigned value);

/// Calls as text, one per line, indented inside primitives and lists.
std::string TextOf(const std::vector<Call>& calls);

}  // namespace gl_recorder
