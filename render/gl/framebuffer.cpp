#define GL_GLEXT_PROTOTYPES
#include "render/gl/framebuffer.h"

#include <GL/gl.h>
#include <GL/glext.h>

#include <cstring>

#include "render/gl/read_back.h"

namespace render::gl {

namespace {

bool Has(const char* extension) {
  const auto* const all = reinterpret_cast<const char*>(glGetString(GL_EXTENSIONS));
  return all != nullptr && std::strstr(all, extension) != nullptr;
}

void Attach(GLenum place, GLenum format, const PixelSize& size) {
  GLuint memory = 0;
  glGenRenderbuffers(1, &memory);
  glBindRenderbuffer(GL_RENDERBUFFER, memory);
  glRenderbufferStorage(GL_RENDERBUFFER, format, size.Width, size.Height);
  glFramebufferRenderbuffer(GL_FRAMEBUFFER, place, GL_RENDERBUFFER, memory);
}

}  // namespace

bool Framebuffer::Bind(const PixelSize& size) {
  if (!Has("GL_ARB_framebuffer_object")) return false;
  size_ = size;
  while (glGetError() != GL_NO_ERROR) continue;  // every scene list leaves one
  GLuint target = 0;
  glGenFramebuffers(1, &target);
  glBindFramebuffer(GL_FRAMEBUFFER, target);
  Attach(GL_COLOR_ATTACHMENT0, GL_RGBA8, size);
  Attach(GL_DEPTH_ATTACHMENT, GL_DEPTH_COMPONENT24, size);
  // Rows run down in a surface and up in a framebuffer object, so corners between two pixels round
  // differently. With the origin at the top the driver rounds as for a surface.
  topRowFirst_ = Has("GL_ARB_clip_control");
  if (topRowFirst_) glClipControl(GL_UPPER_LEFT, GL_NEGATIVE_ONE_TO_ONE);
  return glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE && glGetError() == GL_NO_ERROR;
}

void Framebuffer::ReadRows(int first, int count, std::uint8_t* rgb) const {
  render::gl::ReadRows(size_, topRowFirst_, first, count, rgb);
}

}  // namespace render::gl
