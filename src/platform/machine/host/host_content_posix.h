#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/machine/host/host_handle_posix.h"
#include "platform/temporary_name.h"

namespace tavix::machine {

// Contents of ordinary files of the host, by open handles.

// Opens an ordinary file by its name in an open folder; an empty handle where there is none, or something
// else: a link, a pipe. Reading leaves the time of access alone where the host allows that.
HostHandle OpenHostFile(int folder, const std::string& name, int flags);

// All that is in it. Nothing on failure, or when it is too big to be held.
std::optional<std::string> ReadHostContent(int file);
bool WriteHostContent(int file, std::string_view bytes);
// Puts all that is in a file, with its times and rights, into an empty one, and compares the sizes.
bool CopyHostContent(int from, int to);

// The names of new files that have none yet. The colon keeps them out of every listing.
inline constexpr platform::TemporaryNames kHostTemporaries{u".tavix:", u""};

// Takes away the ordinary files in an open folder that have such names. Nobody else may be at work there.
void RemoveHostTemporaries(int folder);

// A new file in an open folder that has no name yet which a file of the machine could have. It goes with
// this unless it was given its name.
class NewHostFile {
 public:
  explicit NewHostFile(int folder);
  ~NewHostFile();
  NewHostFile(const NewHostFile&) = delete;
  NewHostFile& operator=(const NewHostFile&) = delete;

  int Get() const { return file_.Get(); }
  // Gives it its name once its content lies on the disk, in place of a file that has the name already.
  bool Replace(const std::string& name);
  // The same where nothing has the name; false otherwise.
  bool Name(const std::string& name);

 private:
  int folder_;
  std::string temporary_;
  HostHandle file_;
};

// Renames where nothing stands under the new name. 0, or the number of the error.
int RenameHostEntry(int fromFolder, const std::string& from, int toFolder, const std::string& to);

}  // namespace tavix::machine
