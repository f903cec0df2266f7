#pragma once

#include <functional>

#include "forms/main_form.h"
#include "platform/event_queue.h"
#include "platform/machine/host/machine_clock.h"
#include "platform/shortcut_bytes.h"
#include "scan/scan_test.h"
#include "scan/walkers.h"

namespace tavix::mdlPubSelf {

constexpr platform::DateTime kDay = platform::DateTime{24} * 60 * 60 * 1000;

// The five walkers with one signature. All five list dead shortcuts.
struct Walker {
  const char* name;
  void (*walk)(TextView folder);
  bool byFileList;
};
inline const Walker kWalkers[] = {
    {"WalkFolderFiles", [](TextView folder) { WalkFolderFiles(folder, u"t"); }, false},
    {"WalkFolderFilesExcept", [](TextView folder) { WalkFolderFilesExcept(folder, u"t", u"skip.lnk"); },
     false},
    {"WalkInvalidShortcuts", [](TextView folder) { WalkInvalidShortcuts(folder, u"t"); }, true},
    {"WalkFolderByPattern", [](TextView folder) { WalkFolderByPattern(folder, u"t", u"*.lnk"); }, true},
    {"WalkFolderByPatternAge", [](TextView folder) { WalkFolderByPatternAge(folder, u"t", u"*.lnk", 1); },
     true},
};

inline std::string DeadShortcut() {
  using namespace platform::shortcut_bytes;
  return Header(kHasLocation) + LocationBlock({.flags = 1, .path = u"C:\\Nowhere\\x.exe"}) + U32(0);
}

// Counts the yields, and calls `act` at the yield numbered `actAt`.
struct YieldCount : platform::EventQueue {
  YieldCount() { platform::eventQueue = this; }
  ~YieldCount() override { platform::eventQueue = platform::noEventQueue; }
  void Yield() override {
    if (++count == actAt) act();
  }
  int count = 0;
  int actAt = 0;
  std::function<void()> act;
};

class Walkers : public ScanTest {
 protected:
  Walkers() {
    SetDrive(u"C");
    clock.Set(1000 * kDay + kDay / 2);
  }
  void AddDead(TextView path) {
    machine.files.AddFile(path, {.content = DeadShortcut(), .accessed = 900 * kDay});
  }

  static std::vector<Text> Walk(const Walker& walker, TextView folder) {
    ClearResults();
    walker.walk(folder);
    return Paths(ResultRows());
  }
  static Text Status() { return frmPubMain.lblProgS.Caption; }
  static Text Scanning(TextView folder) { return Concat(u"Scanning in '", folder, u"', please wait..."); }
};

}  // namespace tavix::mdlPubSelf
