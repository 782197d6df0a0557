/// Reading and writing of files, each as a whole.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace model {

/// True for a regular file, or a link to one; false for anything else and on any error.
bool FileExists(const std::string& path);

/// The whole file, byte for byte.
/// Faults  FileFault when it is there but cannot be opened or read, is not a regular file, or is larger
///         than 256 megabytes
std::string ReadWholeFile(const std::string& path);

/// The same for pipes and devices too, to whose end it waits: `--rules <(...)`, `/dev/stdin`.
/// Faults  FileFault when it cannot be opened or read, is a folder, or gives more than 256 megabytes
std::string ReadToEnd(const std::string& path);

/// Whether to fsync before the rename. Output that can be regenerated skips it: the sync can cost more than
/// all the rest.
enum class Durability { Synced, Fast };

/// Replaces (or creates) the file at `path` with `bytes`. The old file stays as it was until the new one is
/// complete; an existing file keeps its permissions, and a link still points to it.
/// Faults  FileFault with the system's reason; nothing is left behind then
void WriteWholeFile(const std::string& path, std::string_view bytes,
                    Durability durability = Durability::Synced);

/// A file to be written, which lasts until then.
struct FileToWrite {
  std::string Path;
  std::string_view Bytes;
};

/// Writes several files that belong together as WriteWholeFile does, all or none: no old file gives way
/// before all new ones are complete. Faults  FileFault, with the path of the file that cannot be written in
/// `failed`
void WriteWholeFiles(const std::vector<FileToWrite>& files, Durability durability, std::string& failed);

}  // namespace model
