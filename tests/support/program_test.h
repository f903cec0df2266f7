#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <iosfwd>
#include <vector>

#include "doubles/memory_files.h"
#include "doubles/memory_host.h"
#include "text/text.h"

namespace tavix::platform {
enum class Hive : uint32_t;
}

namespace tavix {

// Gives every process-wide variable its value at the start of the process.
void ResetProcess();

// A result row as tests compare it.
struct RowFields {
  Text type, name, size, location, sizeKey, tag;
  bool checked = true;
  bool operator==(const RowFields&) const = default;
};
void PrintTo(const RowFields& row, std::ostream* out);

// The rows of lsvResult in list order.
std::vector<RowFields> ResultRows();

// The text in UTF-8, for the messages of failing tests.
std::string Narrow(TextView text);

// The program over a machine in memory, started as the window and the console start it, without a window.
class ProgramTest : public testing::Test {
 protected:
  // Wires everything and calls Form_Load.
  void Start();
  // True from Form_Load to Form_Unload.
  static bool IsStarted();
  // Writes a string value. Creates its key.
  void Seed(platform::Hive hive, TextView key, TextView name, TextView data);

  // The answers of the system. A question without an answer set fails.
  void SetWindows(TextView folder = u"C:\\WINDOWS");
  void SetUserTemp(TextView folder);
  void SetSystemTemp(TextView folder);
  void SetSystemFolder(TextView folder = u"C:\\WINDOWS\\system32");
  void SetProgramFiles(TextView folder = u"C:\\Program Files");
  // The folders of Internet Explorer.
  void SetCache(TextView folder);
  void SetCookies(TextView folder);
  void SetHistory(TextView folder);
  // A folder that scripts ask for by name or position.
  void SetSpecialFolder(TextView name, TextView folder);
  // A drive as a line of [Drives] in machine.ini describes it; "2" is a hard disk.
  void SetDrive(TextView letter, TextView description = u"2");

  machine::MemoryHost machine;
  machine::MachineRegistry& machineRegistry = machine.registry;
  machine::StandingClock& clock = machine.clock;

 private:
  // Destroyed before the machine.
  struct Reset {
    ~Reset() { ResetProcess(); }
  } reset_;
};

}  // namespace tavix
