#include "platform/windows/windows_host.h"

#include "platform/application.h"
#include "platform/nothing.h"
#include "platform/windows/resolution.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_locale.h"
#include "platform/windows/windows_path.h"

namespace tavix::windows {

WindowsHost::WindowsHost() {
  platform::registry = &merged_;
  platform::clock = &clock_;
  platform::fileSystem = &fileSystem_;
  platform::shell = &shell_;
  platform::eventLogs = &eventLogs_;
  platform::dialogs = &dialogs_;
  platform::desktop = &desktop_;
  platform::instance = &instance_;
  platform::network = &network_;
  platform::trust = &trust_;
  platform::applicationFolder = ProgramFolder();
  userLocale = ReadUserLocale();
  platform::screen = ScreenOf(nullptr);
}

WindowsHost::~WindowsHost() { platform::ClearPlatform(); }

Text ProgramFolder() {
  Text path(MAX_PATH, u'\0');
  for (;;) {
    const DWORD length =
        GetModuleFileNameW(nullptr, WideBuffer(path.data()), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      const std::optional<Text> normal = NormalPath(path);
      return normal ? Text(FolderOf(*normal)) : Text();
    }
    path.resize(path.size() * 2);
  }
}

}  // namespace tavix::windows
