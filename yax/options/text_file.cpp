#include "yax/options/text_file.h"

#include <glib.h>

#include <string_view>

#include "model/faults.h"
#include "model/files.h"
#include "yax/messages.h"

namespace yax {

namespace {

std::string BytesOf(const std::string& file) {
  try {
    if (model::FileExists(file)) return model::ReadWholeFile(file);
  } catch (const model::Fault& fault) {
    throw Unusable({.File = file}, fault.what(), "give the path of a text file");
  }
  throw Unusable({.File = file}, "there is no such file", "give the path of a text file");
}

}  // namespace

std::string TextOf(const std::string& file) {
  constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";
  const std::string bytes = BytesOf(file);
  return bytes.substr(bytes.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0);
}

std::string DigestOf(const std::string& file) {
  const std::string bytes = BytesOf(file);
  gchar* const digest = g_compute_checksum_for_data(
      G_CHECKSUM_SHA256, reinterpret_cast<const guchar*>(bytes.data()), bytes.size());
  const std::string text(digest, 12);
  g_free(digest);
  return text;
}

}  // namespace yax
