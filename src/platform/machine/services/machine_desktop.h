#pragma once

#include <map>
#include <vector>

#include "platform/desktop.h"

namespace tavix::machine {

// A desktop whose windows are only titles. It records what is done to them.
class MachineDesktop : public platform::Desktop {
 public:
  struct Message {
    platform::WindowHandle window = 0;
    uint32_t message = 0;
    intptr_t wParam = 0;
    intptr_t lParam = 0;
    bool posted = false;
    bool operator==(const Message&) const = default;
  };

  void SendWindowMessage(platform::WindowHandle window, uint32_t message, intptr_t wParam,
                         intptr_t lParam) override {
    messages.push_back({window, message, wParam, lParam, false});
  }
  void PostWindowMessage(platform::WindowHandle window, uint32_t message, intptr_t wParam,
                         intptr_t lParam) override {
    messages.push_back({window, message, wParam, lParam, true});
  }
  platform::WindowHandle FindWindowByTitle(TextView title) override {
    const auto found = windows.find(Text(title));
    return found == windows.end() ? 0 : found->second;
  }
  void ReleaseCapture() override { ++captureReleases; }
  void SetTreeBackColor(platform::WindowHandle tree, uint32_t color) override { treeColors[tree] = color; }

  std::map<Text, platform::WindowHandle> windows;  // by title
  std::vector<Message> messages;
  std::map<platform::WindowHandle, uint32_t> treeColors;
  int captureReleases = 0;
};

}  // namespace tavix::machine
