// Measures the Registry page over the registry of the running system, beside a bare pass of RegEnumKeyExW,
// RegEnumValueW and RegQueryValueExW over the same keys: bare_registry [ROUNDS]. The two run in turn. Prints
// the best time of each, and the median of the rounds' ratios, which varies least on a busy machine.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

#include "forms/main_form.h"
#include "frame/start_up.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_api.h"
#include "platform/windows/windows_host.h"
#include "scan/result_items.h"
#include "window/wiring.h"

namespace {

using namespace tavix;

constexpr DWORD kMaxNameLength = 16384;

// A key opened for reading. Get() is null if the key does not exist.
class Key {
 public:
  Key(HKEY base, const Text& path) {
    if (RegOpenKeyExW(base, windows::Wide(path), 0, KEY_READ, &key_) != ERROR_SUCCESS) key_ = nullptr;
  }
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;
  ~Key() {
    if (key_ != nullptr) RegCloseKey(key_);
  }
  HKEY Get() const { return key_; }

  std::vector<Text> SubKeys() const {
    std::vector<Text> names;
    wchar_t name[256];
    for (DWORD i = 0, size = 256;
         RegEnumKeyExW(key_, i, name, &size, nullptr, nullptr, nullptr, nullptr) == 0; ++i, size = 256) {
      names.emplace_back(reinterpret_cast<const char16_t*>(name), size);
    }
    return names;
  }
  int ReadAll() const {
    static wchar_t name[kMaxNameLength];
    static BYTE data[65536];
    int values = 0;
    for (;; ++values) {
      DWORD nameSize = kMaxNameLength, dataSize = sizeof data;
      const LSTATUS status =
          RegEnumValueW(key_, static_cast<DWORD>(values), name, &nameSize, nullptr, nullptr, data, &dataSize);
      if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA) return values;
    }
  }
  int Read(const wchar_t* name) const {
    BYTE data[4096];
    DWORD size = sizeof data;
    return RegQueryValueExW(key_, name, nullptr, nullptr, data, &size) == ERROR_SUCCESS ? 1 : 0;
  }

 private:
  HKEY key_ = nullptr;
};

const Text kWindows = u"Software\\Microsoft\\Windows\\CurrentVersion\\";
const Text kNt = u"Software\\Microsoft\\Windows NT\\CurrentVersion\\";

int ReadBelow(HKEY hive, const Text& root, const Text& below, const wchar_t* value) {
  const Key opened(hive, root);
  if (opened.Get() == nullptr) return 0;
  int read = 0;
  for (const Text& name : opened.SubKeys()) {
    const Key entry(opened.Get(), name + below);
    if (entry.Get() != nullptr) read += entry.Read(value);
  }
  return read;
}

int ReadTwoLevels(HKEY hive, const Text& root, const Text& inner, const Text& below, const wchar_t* value) {
  const Key opened(hive, root);
  if (opened.Get() == nullptr) return 0;
  int read = 0;
  for (const Text& name : opened.SubKeys()) read += ReadBelow(opened.Get(), name + inner, below, value);
  return read;
}

int ReadValues(HKEY hive, const Text& key) {
  const Key opened(hive, key);
  return opened.Get() == nullptr ? 0 : opened.ReadAll();
}

int ReadSoftware(HKEY hive) {
  const Key software(hive, u"Software");
  int read = 0;
  for (const Text& name : software.SubKeys()) {
    const Key entry(software.Get(), name);
    if (entry.SubKeys().empty()) read += entry.ReadAll();
  }
  return read;
}

int BarePass() {
  int read = 0;
  read += ReadValues(HKEY_LOCAL_MACHINE, kWindows + u"SharedDlls");
  read += ReadBelow(HKEY_CLASSES_ROOT, u"CLSID", u"\\InprocServer32", L"");
  read += ReadBelow(HKEY_LOCAL_MACHINE, u"Software\\Classes\\CLSID", u"\\InprocServer32", L"");
  read += ReadBelow(HKEY_CURRENT_USER, u"Software\\Classes\\CLSID", u"\\InprocServer32", L"");
  read += static_cast<int>(Key(HKEY_CLASSES_ROOT, u"TypeLib").SubKeys().size());
  read += ReadBelow(HKEY_CLASSES_ROOT, u"Interface", u"\\TypeLib", L"");
  read += ReadTwoLevels(HKEY_CLASSES_ROOT, u"Applications", u"\\shell", u"\\command", L"");
  read += ReadValues(HKEY_LOCAL_MACHINE, kNt + u"Fonts");
  read += ReadBelow(HKEY_LOCAL_MACHINE, kWindows + u"App Paths", u"", L"");
  read += ReadValues(HKEY_LOCAL_MACHINE, u"Software\\Microsoft\\Windows\\Help");
  read += ReadValues(HKEY_LOCAL_MACHINE, u"Software\\Microsoft\\Windows\\Html Help");
  read += ReadValues(HKEY_LOCAL_MACHINE, kWindows + u"Installer\\Folders");
  const Text users = kWindows + u"Installer\\UserData";
  read += ReadTwoLevels(HKEY_LOCAL_MACHINE, users, u"\\Patches", u"", L"LocalPackage");
  read += ReadTwoLevels(HKEY_LOCAL_MACHINE, users, u"\\Products", u"\\InstallProperties", L"LocalPackage");
  for (const HKEY hive : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
    read += ReadSoftware(hive) + ReadValues(hive, kWindows + u"Run");
  }
  const Key menu(HKEY_CURRENT_USER, kWindows + u"Explorer\\MenuOrder\\Start Menu2\\Programs");
  read += static_cast<int>(menu.SubKeys().size());
  read += ReadValues(HKEY_CURRENT_USER, u"Software\\Microsoft\\Windows\\ShellNoRoam\\MUICache");
  read += ReadBelow(HKEY_LOCAL_MACHINE, kWindows + u"Uninstall", u"", L"UninstallString");
  read += ReadValues(HKEY_CURRENT_USER, u"Control Panel\\Appearance\\Schemes");
  read += ReadValues(HKEY_LOCAL_MACHINE, kWindows + u"Control Panel\\Cursors\\Schemes");
  read += ReadBelow(HKEY_LOCAL_MACHINE, kWindows + u"Telephony\\Country List", u"", L"Name");
  read += ReadBelow(HKEY_LOCAL_MACHINE, kNt + u"Time Zones", u"", L"Std");
  return read;
}

template <class Work>
double Milliseconds(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace

int main(int count, char** arguments) {
  const windows::WindowsHost host;
  WireForms();
  mdlPubSelf::Form_Load();
  frmPubMain.picRegistry.MouseUp(kLeftButton);
  double page = 1e9, bare = 1e9;
  std::vector<double> ratios;
  int read = 0;
  for (int rounds = std::max(count > 1 ? std::atoi(arguments[1]) : 7, 1); rounds > 0; --rounds) {
    const double bareOnce = Milliseconds([&read] { read = BarePass(); });
    const double pageOnce = Milliseconds([] { frmPubMain.sbtScan.Click(); });
    bare = std::min(bare, bareOnce);
    page = std::min(page, pageOnce);
    ratios.push_back(pageOnce / bareOnce);
  }
  std::sort(ratios.begin(), ratios.end());
  std::printf("%d rows, %d values\npage %.1f ms, bare pass %.1f ms, median ratio %.2f\n",
              mdlPubSelf::ResultCount(), read, page, bare, ratios[ratios.size() / 2]);
  mdlPubSelf::Form_Unload();
}
