#pragma once

#include "advanced/advanced_walker.h"
#include "frame/settings.h"
#include "scan/scan_test.h"

namespace tavix::mdlPubSelf {

// Walks over single folders of a machine in memory.
class AdvancedTest : public ScanTest {
 protected:
  static std::vector<RowFields> Walk(TextView folder, TextView funcs, bool recurse = true) {
    ClearResults();
    WalkAdvancedFolder(folder, funcs, recurse);
    return ResultRows();
  }
  // Adds files of zero bytes.
  void AddEmptyFiles(std::initializer_list<TextView> paths) {
    for (const TextView path : paths) machine.files.AddFile(path);
  }
};

// The row of an empty file or folder.
inline RowFields EmptyRow(TextView type, TextView location, TextView name) {
  const TextView tag = type == u"Empty Folder" ? u"P" : u"F";
  return {Text(type), Text(name), u"0", Text(location), u"00000000.0", Text(tag), true};
}

constexpr platform::DateTime kHour = int64_t{60} * 60 * 1000;
constexpr platform::DateTime kDay = 24 * kHour;

}  // namespace tavix::mdlPubSelf
