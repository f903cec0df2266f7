#pragma once

#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "export/name_mask.h"
#include "export/record.h"
#include "platform/file_system.h"
#include "platform/machine/formats/machine_path.h"
#include "platform/machine/host/host_directory.h"

namespace tavix::exporting {

// Writes files and folders of a machine to drives/, app/ and attributes.ini of a machine folder: names,
// sizes, times, attributes and links. Files are empty inside, except those that the program reads.
//
// Times are written as if the machine's time zone were UTC: read without TZ, they are the machine's own.
class DriveWriter {
 public:
  using ContentMask = std::function<std::string(const std::string& content)>;
  struct Job {
    platform::FileSystem& source;
    Record& record;
    const NameMask* mask = nullptr;          // null: names stay
    std::filesystem::path folder;            // the machine folder: absolute, without links, empty
    std::optional<Text> own = std::nullopt;  // its identity on the machine; it is left out
    platform::DateTime now = 0;              // stands for unknown times of access
    // Changes the content of a file that the program reads, for a masked export.
    ContentMask maskContent;
    // Called often, with the path that is being written and the number of files so far. False ends it.
    std::function<bool(TextView path, uint64_t files)> goesOn;
  };
  explicit DriveWriter(Job job);

  // Writes the record's trees and everything else that it names. False when Job::goesOn ended it or the
  // folder can't be written any more; Stopped tells which.
  bool Write();
  bool Stopped() const { return stopped_; }

  uint64_t Files() const { return files_; }
  // How many files, folders and links this folder can't hold, and the path of the first one.
  uint64_t LeftOut() const { return leftOut_; }
  const Text& FirstLeftOut() const { return firstLeftOut_; }

 private:
  struct Item;
  class Descent;

  bool WriteTree(const Text& path);
  bool WriteListed(const Text& path);
  bool WriteLooked(const Text& path);
  bool WriteUnknown(const Text& path);
  bool WriteApplicationFile(const Text& path);

  // The entries of a folder. Nothing when it can't be read.
  std::optional<std::vector<Item>> ReadItems(platform::OpenFolder* folder) const;
  // Writes an entry; of a folder, the folder alone.
  bool WriteItem(machine::HostDirectory& folder, const Text& path, const Item& item);
  bool WriteFile(machine::HostDirectory& folder, const Text& path, const Item& item);
  bool WriteLink(machine::HostDirectory& folder, const Text& path, const Item& item);
  // A link in circles: whether it exists can't be told.
  bool WriteCircle(machine::HostDirectory& folder, const Text& path);
  // Keeps a folder that can't be read from looking empty, by a link that no walk enters.
  void MarkUnreadable(machine::HostDirectory& folder, const Text& path);
  void SetTimes(machine::HostDirectory& folder, const Text& path, const Item& item);
  // Opens the folder at a path of the machine, and makes what is missing of it. Null when the machine has no
  // such folder or it can't be made.
  std::unique_ptr<machine::HostDirectory> MakeFolder(const Text& path);
  std::unique_ptr<machine::HostDirectory> OpenFolder(const machine::MachinePath& path) const;
  // Counts what can't be written. False when nothing can be written any more.
  bool LeaveOut(const Text& path);

  Text Masked(TextView text) const { return job_.mask != nullptr ? job_.mask->Apply(text) : Text(text); }
  std::filesystem::path HostName(TextView name) const { return Masked(name); }

  const Job job_;
  std::unique_ptr<machine::HostDirectory> root_;
  std::unique_ptr<machine::HostDirectory> drives_;
  std::ofstream attributes_;
  Texts contents_;           // files that are written with their content
  std::vector<Text> trees_;  // written, being written, or next
  bool stopped_ = false;
  uint64_t files_ = 0;
  uint64_t leftOut_ = 0;
  Text firstLeftOut_;
};

}  // namespace tavix::exporting
