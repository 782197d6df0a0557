/// Reading and writing of files, each as a whole.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace model {

/// True for a regular file, or a link to one; false for anything else and on any error.
bool FileExists(const std::string& path);

/// The whole file, byte for byte.
/// Faults  FileFault when it cannot be opened or read, is not a regular file, or is larger than 256 megabytes
std::string ReadWholeFile(const std::string& path);

/// The same for pipes and devices too, to whose end it waits: `--rules <(...)`, `/dev/stdin`.
/// Faults  FileFault when it cannot be opened or read, is a folder, or gives more than 256 megabytes
std::string ReadToEnd(const std::string& path);

/// Whether to fsync before the rename. Output that can be regenerated skips it: the sync can cost more than
/// all the rest.
enum class Durability { Synced, Fast };

/// Replaces (or creates) the file at `path` with `bytes`. The old file stays as it was until the new one is
/// complete; an existing file keeps its permissions, and a link still points to it.
/// Faults  FileFault with the system's reason; no temporary file is left behind
void WriteWholeFile(const std::string& path, std::string_view bytes,
                    Durability durability = Durability::Synced);

/// A file to be written; the bytes must outlive the call.
struct FileToWrite {
  std::string Path;
  std::string_view Bytes;
};

/// Writes  several files that belong together, all or none: each as WriteWholeFile does, and no old file is
///         replaced before all new ones are complete.
/// Faults  FileFault; `failed` is then the path of the file that cannot be written
void WriteWholeFiles(const std::vector<FileToWrite>& files, Durability durability, std::string& failed);

}  // namespace model
