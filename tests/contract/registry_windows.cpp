#include <utility>
#include <vector>

#include "contract/registry_contract.h"
#include "platform/merged_registry.h"
#include "platform/windows/native_registry.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_registry.h"

#include <aclapi.h>

namespace tavix::contract {
namespace {

namespace native = windows::native;

class WindowsStage : public RegistryStage {
 public:
  WindowsStage() { Clean(); }
  ~WindowsStage() override {
    for (const auto& [hive, key] : denied_) Allow(hive, key);
    Clean();
  }

  platform::Registry& Use() override { return merged_; }
  bool MakeKey(Hive hive, TextView key) override { return static_cast<bool>(Made(hive, key)); }
  bool SetValue(Hive hive, TextView key, TextView name, uint32_t type, std::string bytes) override {
    const windows::RegistryKeyHandle made = Made(hive, key);
    return made && native::SetValue(made.Get(), name, type, bytes);
  }
  // An empty access list (DACL) denies everything; the owner can still change the list.
  bool Deny(Hive hive, TextView key) override {
    denied_.emplace_back(hive, key);
    ACL none;
    if (!InitializeAcl(&none, sizeof(none), ACL_REVISION) || !SetRights(hive, key, &none)) return false;
    const windows::RegistryKeyHandle base = native::OpenHive(hive);
    return !native::Open(base.Get(), key, KEY_QUERY_VALUE).key;
  }
  bool KeepsOrderOfValues() override {
    // Wine sorts the values of a key by name.
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") == nullptr;
  }

 private:
  static windows::RegistryKeyHandle Made(Hive hive, TextView key) {
    windows::RegistryKeyHandle made = native::OpenHive(hive);
    for (const TextView part : Split(key, u"\\")) {
      made = native::Create(made.Get(), part, KEY_ALL_ACCESS).opened.key;
      if (!made) break;
    }
    return made;
  }
  static bool SetRights(Hive hive, TextView key, ACL* rights) {
    const windows::RegistryKeyHandle base = native::OpenHive(hive);
    const native::Opened opened = native::Open(base.Get(), key, WRITE_DAC);
    return opened.key && SetSecurityInfo(opened.key.Get(), SE_REGISTRY_KEY,
                                         DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION,
                                         nullptr, nullptr, rights, nullptr) == ERROR_SUCCESS;
  }
  // No access list at all (a null DACL) allows everything.
  static void Allow(Hive hive, TextView key) { SetRights(hive, key, nullptr); }

  void Clean() {
    for (const Hive hive : {Hive::CurrentUser, Hive::LocalMachine}) {
      for (const TextView key : {kPlace, kClassPlace}) {
        plain_.DeleteKey(hive, key);
        EXPECT_EQ(plain_.KeyExists(hive, key), false);
      }
    }
  }

  windows::WindowsRegistry plain_;
  platform::MergedRegistry merged_{plain_};
  std::vector<std::pair<Hive, Text>> denied_;
};

std::unique_ptr<RegistryStage> Make() { return std::make_unique<WindowsStage>(); }

INSTANTIATE_TEST_SUITE_P(Windows, RegistryContract, testing::Values(StageMaker{"windows", Make}));

}  // namespace
}  // namespace tavix::contract
