/// A strict stand-in for OpenGL: unit tests link it instead, and it writes down and judges every call.
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

/// Takes the calls of the program's gl and glu names as long as it lives; there is one at a time.
///
/// It notes an error for: a vertex or normal outside begin and end; anything but vertices, normals,
/// colours and materials inside; a begin inside a begin; an end without one, except the one that
/// BuildCube puts right before the end of its compile-and-execute list; lists inside lists, of no name, or
/// called without being there; calls without a context; stacks that do not balance.
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

  /// A fresh context, without lists; or none, and then every call is an error.
  void NewContext();
  void DropContext();

  /// Notes what is still open or unbalanced.
  void Finish();

  /// Writes a line of the test's own into the log, such as a swap of buffers.
  void Note(const std::string& name);

  // What the gl names do.
  enum class Place { Anywhere, Outside, Inside };  ///< of the ends of a primitive
  void Take(Place place, const std::string& name, const std::vector<Argument>& arguments);
  void Begin(unsigned mode);
  void End();
  unsigned GenLists(int count);
  void NewList(unsigned name, unsigned mode);
  void EndList();
  void CallList(unsigned name);
  void MatrixMode(unsigned mode);
  void Nest(int step, std::string stack, const std::vector<Argument>& arguments);
  bool HasContext() const { return hasContext_; }

 private:
  void Error(const std::string& what);

  std::vector<Call> log_;
  std::vector<std::string> errors_;
  std::map<unsigned, std::vector<Call>> lists_;
  unsigned nextName_ = 1;
  std::string matrixMode_ = "GL_MODELVIEW";
  bool hasContext_ = true;
  struct {
    unsigned Name = 0, Mode = 0;  ///< of the list being compiled
    std::vector<Call> List;       ///< what it holds so far
    std::map<std::string, int> Depths;
    bool Primitive = false;
    bool LoneEnd = false;  ///< an end without a begin came; only the list's end may follow
  } open_;
};

/// The recorder at work. Needs  one to live
Recorder& Current();

/// A GL value as its name; the number for one that the program does not use.
std::string NameOf(unsigned value);

/// Calls as readable text, one a line, indented by what encloses them.
std::string TextOf(const std::vector<Call>& calls);

}  // namespace gl_recorder
