#pragma once

#include "advanced/advanced_test.h"
#include "controls/property.h"
#include "frame/data_paths.h"

namespace tavix::mdlPubSelf {

// Fills the store of duplicates directly.
class DuplicateTest : public AdvancedTest {
 protected:
  // Adds a candidate file.
  void AddCandidates(TextView bucket, TextView name, std::initializer_list<TextView> paths) {
    machine.files.AddFile(ScannedFile(bucket, name), {.content = Lines(paths)});
  }
  // Appends members to a group file.
  void AddGroup(TextView bucket, TextView name, std::initializer_list<TextView> paths) {
    const Text file = GroupFile(bucket, name);
    machine.files.AddFile(file, {.content = machine.files.ReadFile(file).value_or("") + Lines(paths)});
  }
  static Text ScannedFile(TextView bucket, TextView name) {
    return Concat(kScannedFolder, u"\\", bucket, u"\\", name);
  }
  static Text GroupFile(TextView bucket, TextView name) {
    return Concat(kComparedFolder, u"\\", bucket, u"\\", name);
  }
  static std::string Lines(std::initializer_list<TextView> paths) {
    std::string lines;
    for (const TextView path : paths) lines += Narrow(path) + "\r\n";
    return lines;
  }
  // Adds files of the given sizes in KB, all changed at the same time.
  void AddCopies(std::initializer_list<std::pair<TextView, int>> copies) {
    for (const auto& [path, kilobytes] : copies) AddFile(path, kilobytes);
  }
};

constexpr Color kKeptColor = 56 | 109 << 8 | 181 << 16;

// The rows of a group: all ticked but the first.
inline std::vector<RowFields> Group(std::initializer_list<RowFields> members) {
  std::vector<RowFields> rows = members;
  if (!rows.empty()) rows.front().checked = false;
  return rows;
}

}  // namespace tavix::mdlPubSelf
