#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "platform/machine/memory_host.h"

namespace tavix {

// Puts every process-wide variable back to what it is at the start of the process.
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

// For readable messages of failing tests.
std::string Narrow(TextView text);

// The program over a machine in memory, started as the window and the console start it, without a window.
class ProgramTest : public testing::Test {
 protected:
  // Form_Load with everything wired.
  void Start();
  // From Form_Load to Form_Unload.
  static bool IsStarted();
  // One string value, made with its key.
  void Seed(platform::Hive hive, TextView key, TextView name, TextView data);

  machine::MemoryHost machine;
  machine::MachineRegistry& machineRegistry = machine.registry;
  machine::StandingClock& clock = machine.clock;

 private:
  // Goes before the machine does.
  struct Reset {
    ~Reset() { ResetProcess(); }
  } reset_;
};

}  // namespace tavix
