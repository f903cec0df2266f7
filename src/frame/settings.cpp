#include "frame/settings.h"

#include <algorithm>

#include "frame/support/pub_common.h"
#include "frame/support/pub_system.h"
#include "platform/shell.h"
#include "text/ini_text.h"

namespace tavix::mdlPubSelf {

std::vector<Setting*>& Setting::All() {
  static std::vector<Setting*> all;
  return all;
}

void Setting::Enroll() {
  const auto next =
      std::ranges::find_if(All(), [this](const Setting* other) { return other->line_ > line_; });
  All().insert(next, this);
}

Setting* Setting::Find(TextView section, TextView key) {
  const auto found = std::ranges::find_if(
      All(), [&](const Setting* setting) { return setting->section == section && setting->key == key; });
  return found != All().end() ? *found : nullptr;
}

Text DefaultExceptFolders() {
  constexpr int kInternetCache = 32;
  constexpr int kCookies = 33;
  const Text windows = platform::shell->EnvironmentVariable(u"WinDir").value_or(u"");
  Text systemTemp;
  pubCommon.GetSystemTempFolder(systemTemp);
  Text userTemp;
  pubSystem.GetUserTempFolder(userTemp);
  Text cache;
  pubSystem.GetSpecialFolder(kInternetCache, cache);
  Text cookies;
  pubSystem.GetSpecialFolder(kCookies, cookies);
  return Concat(kAllRecycleBins, u"|", windows, u"/Windows System Folder|", systemTemp,
                u"/Windows Temporary Folder|", userTemp, u"/User Temporary Folder|", cache,
                u"/Internet Temporary Folder|", cookies, u"/Cookies Folder");
}

void ClearSettings() {
  for (Setting* setting : Setting::All()) setting->clear();
}

void LoadSettings() {
  Text content;
  pubSystem.ReadProfile(kSettingsFile, content);
  for (Setting* setting : Setting::All()) {
    *setting = ReadIniValue(content, setting->section, setting->key).value_or(u"");
  }
}

void WriteDefaultSettings() {
  for (const Setting* setting : Setting::All()) WriteSetting(*setting, setting->Default());
}

void WriteSetting(const Setting& setting, TextView value) {
  pubSystem.WriteProfileString(kSettingsFile, setting.section, setting.key, value);
}

}  // namespace tavix::mdlPubSelf
