#pragma once

#include "scan/result_items.h"
#include "scan/scan_function.h"
#include "support/program_test.h"

namespace tavix::mdlPubSelf {

// The program started over a machine in memory.
class ScanTest : public ProgramTest {
 protected:
  ScanTest() {
    machine.files.AddFolder(u"C:\\");
    Start();
  }

  static std::vector<RowFields> Scan(TextView function) {
    ClearResults();
    ScanFunction(function);
    return ResultRows();
  }
  // A file of this size.
  void AddFile(TextView path, int kilobytes = 1) {
    machine.files.AddFile(path, {.size = static_cast<uint64_t>(kilobytes) * 1024});
  }
  void AddFiles(std::initializer_list<TextView> paths) {
    for (const TextView path : paths) AddFile(path);
  }
};

// The row of such a file.
inline RowFields FileRow(TextView type, TextView location, TextView name, int kilobytes = 1) {
  const Text digits = ToText(kilobytes);
  return {Text(type),
          Text(name),
          Concat(digits, u"."),
          Text(location),
          Concat(Text(8 - digits.size(), u'0'), digits, u".0"),
          u"F",
          true};
}

// Folder and name of each row.
inline std::vector<Text> Paths(const std::vector<RowFields>& rows) {
  std::vector<Text> paths;
  for (const RowFields& row : rows) paths.push_back(Concat(row.location, u"\\", row.name));
  return paths;
}

}  // namespace tavix::mdlPubSelf
