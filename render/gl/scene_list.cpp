#include "render/gl/scene_list.h"

#include <GL/gl.h>

#include <limits>
#include <string>

#include "model/faults.h"

namespace render::gl {

std::int16_t ListNumber(unsigned name) {
  if (name > unsigned(std::numeric_limits<std::int16_t>::max()))
    throw model::Overflow("display list " + std::to_string(name));
  return static_cast<std::int16_t>(name);
}

namespace {

/// Names are never freed, but an empty list costs nothing: memory stays flat over thousands of builds.
void Empty(std::int16_t number) {
  glNewList(static_cast<GLuint>(number), GL_COMPILE);
  glEndList();
}

}  // namespace

void SceneList::BuildCube(Scene& scene) { Build(scene, GL_COMPILE_AND_EXECUTE); }

void SceneList::CompileCube(Scene& scene) { Build(scene, GL_COMPILE); }

void SceneList::Build(Scene& scene, unsigned mode) {
  const std::int16_t fresh = ListNumber(glGenLists(1));
  glNewList(static_cast<GLuint>(fresh), mode);
  try {
    scene.DrawPackage();
  } catch (...) {
    glEndList();
    Empty(fresh);
    throw;
  }
  // Deliberate: an end without a begin is part of every scene list. OpenGL raises an error for it, which is
  // never reported.
  glEnd();
  glEndList();
  if (number_ != 0) Empty(number_);
  number_ = fresh;
}

void SceneList::Call() const { glCallList(static_cast<GLuint>(number_)); }

}  // namespace render::gl
