// The least work to draw without a display and write a PNG file: bench_clear_png BITMAP FILE
// It clears a frame, reads it back, and writes the picture of BITMAP.
#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GL/gl.h>
#include <png.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <vector>

namespace {

bool OpenGl(EGLint width, EGLint height) {
  const EGLDisplay display =
      eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
  if (!eglInitialize(display, nullptr, nullptr) || !eglBindAPI(EGL_OPENGL_API)) return false;
  const EGLint wanted[] = {EGL_SURFACE_TYPE,
                           EGL_PBUFFER_BIT,
                           EGL_RENDERABLE_TYPE,
                           EGL_OPENGL_BIT,
                           EGL_RED_SIZE,
                           8,
                           EGL_DEPTH_SIZE,
                           24,
                           EGL_NONE};
  EGLConfig config = nullptr;
  EGLint count = 0;
  if (!eglChooseConfig(display, wanted, &config, 1, &count) || count == 0) return false;
  const EGLint extent[] = {EGL_WIDTH, width, EGL_HEIGHT, height, EGL_NONE};
  const EGLSurface surface = eglCreatePbufferSurface(display, config, extent);
  const EGLContext context = eglCreateContext(display, config, EGL_NO_CONTEXT, nullptr);
  return eglMakeCurrent(display, surface, surface, context);
}

void WritePng(const char* path, int width, int height, const std::vector<png_byte>& rgb) {
  std::FILE* const file = std::fopen(path, "wb");
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  if (file == nullptr || setjmp(png_jmpbuf(png)) != 0) std::exit(1);
  png_init_io(png, file);
  png_set_compression_level(png, 1);
  png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
  png_set_IHDR(png, info, png_uint_32(width), png_uint_32(height), 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_write_info(png, info);
  for (int y = 0; y < height; ++y)
    png_write_row(png, &rgb[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) * 3]);
  png_write_end(png, nullptr);
  png_destroy_write_struct(&png, &info);
  std::fclose(file);
}

/// The pixels of a bitmap of 24 bits, from the top, red first.
struct Bitmap {
  int width = 0;
  int height = 0;
  std::vector<png_byte> rgb;
};

Bitmap ReadBitmap(const char* path) {
  std::ifstream file(path, std::ios::binary);
  std::array<char, 54> head{};
  if (!file.read(head.data(), head.size())) std::exit(1);
  Bitmap bitmap;
  std::memcpy(&bitmap.width, &head[18], 4);
  std::memcpy(&bitmap.height, &head[22], 4);
  const std::size_t row = std::size_t(bitmap.width) * 3;
  std::vector<char> line((row + 3) / 4 * 4);
  bitmap.rgb.resize(row * std::size_t(bitmap.height));
  for (auto y = std::size_t(bitmap.height); y-- > 0;) {
    if (!file.read(line.data(), std::streamsize(line.size()))) std::exit(1);
    for (std::size_t i = 0; i < row; ++i) bitmap.rgb[y * row + i] = png_byte(line[i / 3 * 3 + 2 - i % 3]);
  }
  return bitmap;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const Bitmap bitmap = ReadBitmap(argv[1]);
  if (!OpenGl(bitmap.width, bitmap.height)) return 1;
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  std::vector<png_byte> cleared(bitmap.rgb.size());
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, bitmap.width, bitmap.height, GL_RGB, GL_UNSIGNED_BYTE, cleared.data());
  WritePng(argv[2], bitmap.width, bitmap.height, bitmap.rgb);
}
