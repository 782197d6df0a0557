#include "tests/gl_recorder/gl_recorder.h"

#include <GL/gl.h>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace gl_recorder {

// GL's own names have no object to hang on, so neither has the recorder that they write to.
static Recorder*& Slot() {
  static Recorder* current = nullptr;
  return current;
}

Recorder& Current() {
  if (Slot() == nullptr) {
    std::fputs("A gl call came without a recorder to take it\n", stderr);
    std::abort();
  }
  return *Slot();
}

Argument::Argument(double number) : Number(number) {
  char text[32];
  // Without the sign of a zero, which no picture shows.
  std::snprintf(text, sizeof text, "%.6g", number == 0.0 ? 0.0 : number);
  Text = text;
}

#define NAMED(value) \
  { value, #value }

std::string NameOf(unsigned value) {
  static const std::map<unsigned, std::string> kNames = {NAMED(GL_MODELVIEW),
                                                         NAMED(GL_PROJECTION),
                                                         NAMED(GL_COMPILE),
                                                         NAMED(GL_COMPILE_AND_EXECUTE),
                                                         NAMED(GL_DEPTH_TEST),
                                                         NAMED(GL_DITHER),
                                                         NAMED(GL_LIGHTING),
                                                         NAMED(GL_LIGHT0),
                                                         NAMED(GL_POSITION),
                                                         NAMED(GL_LIGHT_MODEL_AMBIENT),
                                                         NAMED(GL_SMOOTH),
                                                         NAMED(GL_CCW),
                                                         NAMED(GL_LESS),
                                                         NAMED(GL_FRONT),
                                                         NAMED(GL_BACK),
                                                         NAMED(GL_FRONT_AND_BACK),
                                                         NAMED(GL_AMBIENT_AND_DIFFUSE),
                                                         NAMED(GL_SPECULAR),
                                                         NAMED(GL_SHININESS),
                                                         NAMED(GL_PACK_ALIGNMENT),
                                                         NAMED(GL_RGB),
                                                         NAMED(GL_UNSIGNED_BYTE)};
  const auto found = kNames.find(value);
  return found == kNames.end() ? std::to_string(value) : found->second;
}

std::string TextOf(const std::vector<Call>& calls) {
  std::string text;
  std::size_t depth = 0;
  for (const Call& call : calls) {
    const bool closes = call.Name.starts_with("glEnd") || call.Name.starts_with("glPop");
    if (closes && depth > 0) --depth;
    text.append(2 * depth, ' ').append(call.Text) += '\n';
    if (call.Name == "glBegin" || call.Name == "glNewList" || call.Name.starts_with("glPush")) ++depth;
  }
  return text;
}

Recorder::Recorder() : matrixMode_(GL_MODELVIEW) {
  if (Slot() != nullptr) std::abort();
  Slot() = this;
}

Recorder::~Recorder() { Slot() = nullptr; }

void Recorder::Error(const std::string& what) { errors_.push_back(what); }

void Recorder::Anywhere(const std::string& name, std::initializer_list<Argument> arguments) {
  Call call{name, {}, name + "("};
  for (const Argument& argument : arguments) {
    if (!call.Numbers.empty()) call.Text += ", ";
    call.Numbers.push_back(argument.Number);
    call.Text += argument.Text;
  }
  call.Text += ")";
  if (!hasContext_) Error(call.Text + " without a context");
  if (loneEnd_ && name != "glEndList") Error("glEnd() without a glBegin, and then " + call.Text);
  loneEnd_ = false;
  if (openName_ != 0) open_.push_back(call);
  log_.push_back(std::move(call));
}

void Recorder::Note(const std::string& name) { log_.push_back({name, {}, name}); }

void Recorder::Plain(const std::string& name, std::initializer_list<Argument> arguments) {
  if (inPrimitive_) Error(name + " between glBegin and glEnd");
  Anywhere(name, arguments);
}

void Recorder::InsidePrimitive(const std::string& name, std::initializer_list<Argument> arguments) {
  if (!inPrimitive_) Error(name + " outside glBegin and glEnd");
  Anywhere(name, arguments);
}

void Recorder::Begin(unsigned mode) {
  // Small numbers mean different things elsewhere, so primitives have names of their own.
  static const std::map<unsigned, std::string> kPrimitives = {NAMED(GL_LINES), NAMED(GL_LINE_STRIP),
                                                              NAMED(GL_TRIANGLE_FAN), NAMED(GL_QUADS)};
  Plain("glBegin", {{double(mode), kPrimitives.at(mode)}});
  inPrimitive_ = true;
}

void Recorder::End() {
  Anywhere("glEnd", {});
  if (std::exchange(inPrimitive_, false)) return;
  // BuildCube's lone end: the last call of a list that draws while it is compiled.
  if (openMode_ == GL_COMPILE_AND_EXECUTE) {
    loneEnd_ = true;
  } else {
    Error("glEnd() without a glBegin");
  }
}

unsigned Recorder::GenLists(int count) {
  Plain("glGenLists", {double(count)});
  const unsigned first = nextName_;
  nextName_ += static_cast<unsigned>(count);
  namesGiven_ = nextName_ - 1;
  return first;
}

void Recorder::NewList(unsigned name, unsigned mode) {
  if (openName_ != 0) Error("glNewList inside list " + std::to_string(openName_));
  if (name == 0 || name > namesGiven_) Error("glNewList of a name never given: " + std::to_string(name));
  Plain("glNewList", {double(name), {double(mode), NameOf(mode)}});
  openName_ = name;
  openMode_ = mode;
  open_.clear();
}

void Recorder::EndList() {
  if (openName_ == 0) Error("glEndList() without a glNewList");
  if (inPrimitive_) Error("glEndList() between glBegin and glEnd");
  if (openName_ != 0) lists_[openName_] = std::move(open_);
  open_.clear();
  openName_ = 0;
  openMode_ = 0;
  Anywhere("glEndList", {});
}

void Recorder::CallList(unsigned name) {
  Plain("glCallList", {double(name)});
  // List 0 is the one that is never there, and drawing it does nothing.
  if (name != 0 && !HasList(name)) Error("glCallList of no list: " + std::to_string(name));
}

std::vector<Call> Recorder::List(unsigned name) const {
  const auto found = lists_.find(name);
  return found == lists_.end() ? std::vector<Call>() : found->second;
}

void Recorder::MatrixMode(unsigned mode) {
  Plain("glMatrixMode", {{double(mode), NameOf(mode)}});
  matrixMode_ = mode;
}

void Recorder::PushMatrix() {
  Plain("glPushMatrix", {});
  ++matrixDepth_[matrixMode_];
}

void Recorder::PopMatrix() {
  Plain("glPopMatrix", {});
  if (--matrixDepth_[matrixMode_] < 0) Error("glPopMatrix() of an empty stack");
}

void Recorder::PushAttrib(const Argument& mask) {
  Plain("glPushAttrib", {mask});
  ++attribDepth_;
}

void Recorder::PopAttrib() {
  Plain("glPopAttrib", {});
  if (--attribDepth_ < 0) Error("glPopAttrib() of an empty stack");
}

void Recorder::NewContext() {
  Finish();
  hasContext_ = true;
  lists_.clear();
  nextName_ = 1;
  namesGiven_ = 0;
  matrixMode_ = GL_MODELVIEW;
}

void Recorder::DropContext() {
  Finish();
  hasContext_ = false;
  lists_.clear();
}

void Recorder::Finish() {
  if (inPrimitive_) Error("glBegin without a glEnd");
  if (openName_ != 0) Error("glNewList without a glEndList");
  if (loneEnd_) Error("glEnd() without a glBegin");
  for (const auto& [mode, depth] : matrixDepth_)
    if (depth > 0) Error("glPushMatrix() without a glPopMatrix() in " + NameOf(mode));
  if (attribDepth_ > 0) Error("glPushAttrib without a glPopAttrib");
  inPrimitive_ = false;
  openName_ = 0;
  loneEnd_ = false;
  matrixDepth_.clear();
  attribDepth_ = 0;
}

}  // namespace gl_recorder
