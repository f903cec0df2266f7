#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <ostream>

#include "platform/event_logs.h"
#include "platform/file_system.h"
#include "platform/shell.h"

namespace tavix::contract {

// A shell under test. Its machine has the special folders that the interface names, both temporary folders,
// the variable WinDir, the event log "Application" and empty recycle bins.
class ShellStage {
 public:
  virtual ~ShellStage() = default;
  virtual platform::Shell& Use() = 0;
  virtual platform::EventLogs& Logs() = 0;
  // The files of the same machine.
  virtual platform::FileSystem& Files() = 0;
  // An empty folder for the test. It is deleted with the stage.
  virtual Text Place() = 0;
  // False if emptying the bin leaves folders with content in it on this system.
  virtual bool EmptiesTheBinOfFolders() { return true; }
};

struct ShellStageMaker {
  const char* name;
  std::unique_ptr<ShellStage> (*make)();
};
inline void PrintTo(const ShellStageMaker& maker, std::ostream* out) { *out << maker.name; }

class ShellContract : public testing::TestWithParam<ShellStageMaker> {
 protected:
  ShellContract()
      : stage(GetParam().make()), shell(stage->Use()), logs(stage->Logs()), files(stage->Files()) {}

  Text In(TextView name) const { return Concat(stage->Place(), u"\\", name); }

  std::unique_ptr<ShellStage> stage;
  platform::Shell& shell;
  platform::EventLogs& logs;
  platform::FileSystem& files;
};

}  // namespace tavix::contract
