#include "gl_recorder/gl_recorder.h"

#include <GL/gl.h>

#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <utility>

namespace gl_recorder {

// GL routines are free functions, so they find their recorder through a global pointer.
static Recorder*& Slot() {
  static Recorder* current = nullptr;
  return current;
}

Recorder& Current() {
  if (Slot() == nullptr) {
    std::fputs("A GL call without a Recorder\n", stderr);
    std::abort();
  }
  return *Slot();
}

Argument::Argument(double number) : Number(number) {
  char text[32];
  // Drop the sign of zero, which changes no picture.
  std::snprintf(text, sizeof text, "%.6g", number == 0.0 ? 0.0 : number);
  Text = text;
}

#define VALUES_AND_NAMES(...)                   \
  constexpr unsigned kValues[] = {__VA_ARGS__}; \
  constexpr char kNames[] = #__VA_ARGS__
VALUES_AND_NAMES(GL_LINES, GL_LINE_STRIP, GL_TRIANGLE_FAN, GL_QUADS, GL_MODELVIEW, GL_PROJECTION, GL_COMPILE,
                 GL_COMPILE_AND_EXECUTE, GL_DEPTH_TEST, GL_DITHER, GL_LIGHTING, GL_LIGHT0, GL_POSITION,
                 GL_LIGHT_MODEL_AMBIENT, GL_SMOOTH, GL_CCW, GL_LESS, GL_FRONT, GL_BACK, GL_FRONT_AND_BACK,
                 GL_AMBIENT_AND_DIFFUSE, GL_SPECULAR, GL_SHININESS, GL_PACK_ALIGNMENT, GL_RGB,
                 GL_UNSIGNED_BYTE);

std::string NameOf(unsigned value) {
  std::istringstream names(kNames);
  std::string name;
  for (const unsigned each : kValues) {
    std::getline(names >> std::ws, name, ',');
    if (each == value) return name;
  }
  return std::to_string(value);
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

Recorder::Recorder() {
  if (Slot() != nullptr) std::abort();
  Slot() = this;
}

Recorder::~Recorder() { Slot() = nullptr; }

void Recorder::Error(const std::string& what) { errors_.push_back(what); }

void Recorder::Note(const std::string& name) { log_.push_back({name, {}, name}); }

void Recorder::Take(Place place, const std::string& name, const std::vector<Argument>& arguments) {
  Call call{name, {}, name + "("};
  for (const Argument& argument : arguments) {
    if (!call.Numbers.empty()) call.Text += ", ";
    call.Numbers.push_back(argument.Number);
    call.Text += argument.Text;
  }
  call.Text += ")";
  if (place == Place::Outside && open_.Primitive) Error(name + " between glBegin and glEnd");
  if (place == Place::Inside && !open_.Primitive) Error(name + " outside glBegin and glEnd");
  if (!hasContext_) Error(call.Text + " without a context");
  if (open_.LoneEnd && name != "glEndList") Error("glEnd() without a glBegin, and then " + call.Text);
  open_.LoneEnd = false;
  if (open_.Name != 0) open_.List.push_back(call);
  log_.push_back(std::move(call));
}

void Recorder::Begin(unsigned mode) {
  Take(Place::Outside, "glBegin", {{double(mode), NameOf(mode)}});
  open_.Primitive = true;
}

void Recorder::End() {
  Take(Place::Anywhere, "glEnd", {});
  if (std::exchange(open_.Primitive, false)) return;
  // BuildCube's lone end: the last call of a list that draws while it is compiled.
  open_.LoneEnd = open_.Mode == GL_COMPILE_AND_EXECUTE;
  if (!open_.LoneEnd) Error("glEnd() without a glBegin");
}

unsigned Recorder::GenLists(int count) {
  Take(Place::Outside, "glGenLists", {double(count)});
  return std::exchange(nextName_, nextName_ + static_cast<unsigned>(count));
}

void Recorder::NewList(unsigned name, unsigned mode) {
  if (open_.Name != 0) Error("glNewList inside list " + std::to_string(open_.Name));
  if (name == 0 || name >= nextName_)
    Error("glNewList of a name that glGenLists did not return: " + std::to_string(name));
  Take(Place::Outside, "glNewList", {double(name), {double(mode), NameOf(mode)}});
  open_.Name = name;
  open_.Mode = mode;
  open_.List.clear();
}

void Recorder::EndList() {
  if (open_.Name == 0) Error("glEndList() without a glNewList");
  lists_[std::exchange(open_.Name, 0)] = std::move(open_.List);
  open_.Mode = 0;
  Take(Place::Outside, "glEndList", {});
}

void Recorder::CallList(unsigned name) {
  Take(Place::Outside, "glCallList", {double(name)});
  // List 0 never exists, and calling it does nothing.
  if (name != 0 && !lists_.contains(name)) Error("glCallList of a missing list: " + std::to_string(name));
}

std::vector<Call> Recorder::List(unsigned name) const {
  const auto found = lists_.find(name);
  return found == lists_.end() ? std::vector<Call>() : found->second;
}

void Recorder::Nest(int step, const std::string& stack, const std::vector<Argument>& arguments) {
  Take(Place::Outside, (step > 0 ? "glPush" : "glPop") + stack, arguments);
  if ((open_.Depths[stack] += step) < 0) Error("glPop of an empty stack: " + stack);
}

void Recorder::NewContext() {
  DropContext();
  hasContext_ = true;
  nextName_ = 1;
}

void Recorder::DropContext() {
  Finish();
  hasContext_ = false;
  lists_.clear();
}

void Recorder::Finish() {
  if (open_.Primitive) Error("glBegin without a glEnd");
  if (open_.Name != 0) Error("glNewList without a glEndList");
  if (open_.LoneEnd) Error("glEnd() without a glBegin");
  for (const auto& [stack, depth] : open_.Depths)
    if (depth > 0) Error("glPush without a glPop: " + stack);
  open_ = {};
}

}  // namespace gl_recorder
