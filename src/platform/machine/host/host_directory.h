#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace tavix::machine {

// An open folder of the host for the few files that a machine folder itself consists of. It stays that
// folder whatever happens to its path meanwhile. Names are of what lies right in it, and no operation follows
// a link: what a link leads to is never read or changed. What fails changes nothing, but for RemoveTree.
//
// On a Windows host a folder is found by its path again each time.
class HostDirectory {
 public:
  // `path` is absolute, without links and relative parts. Null where no folder is, or a link is on the way.
  static std::unique_ptr<HostDirectory> Open(const std::filesystem::path& path);
  virtual ~HostDirectory() = default;

  // Null when it is missing, a link or no folder.
  virtual std::unique_ptr<HostDirectory> OpenFolder(const std::filesystem::path& name) const = 0;
  // Whether anything has the name, a link included.
  virtual bool Exists(const std::filesystem::path& name) const = 0;
  // Nothing when the folder can't be read.
  virtual std::optional<std::vector<std::filesystem::path>> Names() const = 0;
  // Whether the two are one folder. True as well where the host can't tell.
  virtual bool IsSame(const HostDirectory& other) const = 0;

  // Where nothing has the name.
  virtual bool MakeFolder(const std::filesystem::path& name) = 0;
  // The whole content of a file where nothing has the name; returns when it lies on the disk. On failure a
  // part of it may be there.
  virtual bool WriteNewFile(const std::filesystem::path& name, std::string_view bytes) = 0;
  // The rights of another folder, and all rights for its owner.
  virtual void TakeRightsOf(const HostDirectory& other) = 0;
  // A file or link. True as well when nothing has the name.
  virtual bool Remove(const std::filesystem::path& name) = 0;
  virtual bool RemoveEmptyFolder(const std::filesystem::path& name) = 0;
  // A file, a link, or a folder with all that lies in it. False when something of it stays.
  virtual bool RemoveTree(const std::filesystem::path& name) = 0;
  // Gives something another name in this folder or another one, where nothing has that name.
  virtual bool Rename(const std::filesystem::path& name, HostDirectory& to,
                      const std::filesystem::path& newName) = 0;
  // Lets two names change places in one step. False where the host has no such step.
  virtual bool Exchange(const std::filesystem::path& left, const std::filesystem::path& right) = 0;
  // Returns when the names lie on the disk, as far as the host can tell.
  virtual void Flush() = 0;
};

}  // namespace tavix::machine
