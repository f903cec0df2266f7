#pragma once

#include "advanced/advanced_walker.h"
#include "frame/settings.h"
#include "scan/scan_test.h"

namespace tavix::mdlPubSelf {

// The program over a machine in memory, with walks over single folders.
class AdvancedTest : public ScanTest {
 protected:
  static std::vector<RowFields> Walk(TextView folder, TextView funcs, bool recurse = true) {
    ClearResults();
    WalkAdvancedFolder(folder, funcs, recurse);
    return ResultRows();
  }
  // Files of no bytes.
  void AddEmptyFiles(std::initializer_list<TextView> paths) {
    for (const TextView path : paths) machine.files.AddFile(path);
  }
};

// The row of a file or folder without bytes.
inline RowFields EmptyRow(TextView type, TextView location, TextView name) {
  const TextView tag = type == u"Empty Folder" ? u"P" : u"F";
  return {Text(type), Text(name), u"0", Text(location), u"00000000.0", Text(tag), true};
}

constexpr platform::DateTime kHour = int64_t{60} * 60 * 1000;
constexpr platform::DateTime kDay = 24 * kHour;

}  // namespace tavix::mdlPubSelf
