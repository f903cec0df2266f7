#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/machine/host/host_handle_posix.h"
#include "platform/temporary_name.h"

namespace tavix::machine {

// The content of ordinary files of the host, by open handles.

// Opens an ordinary file in an open folder. An empty handle on failure and for anything else (a link, a
// pipe). Reading doesn't change the access time where the host allows that.
HostHandle OpenHostFile(int folder, const std::string& name, int flags);

// The whole content. Nothing on failure or when the file is larger than 1 GiB.
std::optional<std::string> ReadHostContent(int file);
bool WriteHostContent(int file, std::string_view bytes);
// Copies content, times and rights to an empty file, and compares the sizes. False on failure.
bool CopyHostContent(int from, int to);

// Names of temporary files. The colon, impossible on Windows, keeps them out of every listing.
inline constexpr platform::TemporaryNames kHostTemporaries{u".tavix:", u""};

// Removes the ordinary files with such names from an open folder. Call it only when nobody else works there.
void RemoveHostTemporaries(int folder);

// A new file under a temporary name. Deleted with this object unless Replace or Name gave it its name.
class NewHostFile {
 public:
  explicit NewHostFile(int folder);
  ~NewHostFile();
  NewHostFile(const NewHostFile&) = delete;
  NewHostFile& operator=(const NewHostFile&) = delete;

  int Get() const { return file_.Get(); }
  // Flushes the file to disk and gives it its name, replacing a file of that name.
  bool Replace(const std::string& name);
  // The same, but fails when the name is taken.
  bool Name(const std::string& name);

 private:
  int folder_;
  std::string temporary_;
  HostHandle file_;
};

// Renames; fails when the new name is taken. Returns 0 or the error number.
int RenameHostEntry(int fromFolder, const std::string& from, int toFolder, const std::string& to);

}  // namespace tavix::machine
