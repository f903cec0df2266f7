#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace tavix::machine {

// An open folder of the host, for the few files that make up a machine folder itself. It stays the same
// folder whatever happens to its path. Names are those of direct entries. No operation follows a link or
// touches a link's target. A failed call changes nothing, except RemoveTree and WriteNewFile.
//
// On a Windows host the folder is looked up by its path at each call.
class HostDirectory {
 public:
  // `path` is absolute, without relative parts. Null when it isn't a folder or a link is on it.
  static std::unique_ptr<HostDirectory> Open(const std::filesystem::path& path);
  virtual ~HostDirectory() = default;

  // Null when it is missing, a link or no folder.
  virtual std::unique_ptr<HostDirectory> OpenFolder(const std::filesystem::path& name) const = 0;
  // Whether the name is taken; a link counts.
  virtual bool Exists(const std::filesystem::path& name) const = 0;
  // The names of all entries. Nothing when the folder can't be read.
  virtual std::optional<std::vector<std::filesystem::path>> Names() const = 0;
  // Whether both are the same folder. True when the host can't tell.
  virtual bool IsSame(const HostDirectory& other) const = 0;

  // Fails when the name is taken.
  virtual bool MakeFolder(const std::filesystem::path& name) = 0;
  // Writes a new file and flushes it to disk. Fails when the name is taken. A failure may leave part of the
  // file.
  virtual bool WriteNewFile(const std::filesystem::path& name, std::string_view bytes) = 0;
  // Makes a file of `size` bytes that reads as zeros and takes no space on the disk. Fails when the name is
  // taken, and when the host can't keep such a file.
  virtual bool MakeSparseFile(const std::filesystem::path& name, uint64_t size) = 0;
  // Makes a symbolic link. `target` is relative to this folder and needn't exist; `toFolder` matters on
  // Windows alone. Fails when the name is taken, and on Windows without the right to make links.
  virtual bool MakeLink(const std::filesystem::path& name, const std::filesystem::path& target,
                        bool toFolder) = 0;
  // Sets the times of an entry, in milliseconds since 1970 UTC; of a link, its own. One that is
  // platform::kUnknownTime stays as it is.
  virtual bool SetTimes(const std::filesystem::path& name, int64_t modified, int64_t accessed) = 0;
  // Sets this folder's rights to those of `other`, plus all rights for the owner.
  virtual void TakeRightsOf(const HostDirectory& other) = 0;
  // Removes a file or link. True also when there is none of the name.
  virtual bool Remove(const std::filesystem::path& name) = 0;
  virtual bool RemoveEmptyFolder(const std::filesystem::path& name) = 0;
  // Removes a file, a link, or a folder with all its content. False when anything stays.
  virtual bool RemoveTree(const std::filesystem::path& name) = 0;
  // Moves an entry to a name in `to`, which may be this folder. Fails when the name is taken.
  virtual bool Rename(const std::filesystem::path& name, HostDirectory& to,
                      const std::filesystem::path& newName) = 0;
  // Exchanges two names in one step. False when the host can't do that.
  virtual bool Exchange(const std::filesystem::path& left, const std::filesystem::path& right) = 0;
  // Flushes the folder's names to disk, as far as the host can.
  virtual void Flush() = 0;
};

}  // namespace tavix::machine
