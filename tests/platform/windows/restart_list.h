#pragma once

#include "platform/windows/windows_api.h"
#include "text/text.h"

namespace tavix::windows {

// The renames that the system does at its next start (PendingFileRenameOperations). Restores the list at the
// end.
class RestartList {
 public:
  RestartList() : before_(Read()) {}
  RestartList(const RestartList&) = delete;
  RestartList& operator=(const RestartList&) = delete;
  ~RestartList() {
    HKEY key = Open();
    if (before_.empty()) {
      RegDeleteValueW(key, kName);
    } else {
      RegSetValueExW(key, kName, 0, REG_MULTI_SZ, reinterpret_cast<const BYTE*>(before_.data()),
                     static_cast<DWORD>(before_.size() * sizeof(char16_t)));
    }
    RegCloseKey(key);
  }
  static Text Read() {
    DWORD bytes = 0;
    HKEY key = Open();
    Text data;
    if (RegQueryValueExW(key, kName, nullptr, nullptr, nullptr, &bytes) == ERROR_SUCCESS) {
      data.resize(bytes / sizeof(char16_t));
      RegQueryValueExW(key, kName, nullptr, nullptr, reinterpret_cast<BYTE*>(data.data()), &bytes);
    }
    RegCloseKey(key);
    return data;
  }

 private:
  static constexpr const wchar_t* kName = L"PendingFileRenameOperations";
  static HKEY Open() {
    HKEY key = nullptr;
    RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SYSTEM\\CurrentControlSet\\Control\\Session Manager", 0,
                  KEY_QUERY_VALUE | KEY_SET_VALUE, &key);
    return key;
  }
  Text before_;
};

}  // namespace tavix::windows
