// clang-format off
#include "window/win32/accessible_name.h"
#include <oleacc.h>
// clang-format on

#include "platform/windows/com.h"
#include "platform/windows/wide.h"

namespace tavix::win32 {
namespace {

constexpr GUID kServices = {0xb5f8350b, 0x0548, 0x48b1, {0xa6, 0xee, 0x88, 0xbd, 0x00, 0xb4, 0xa5, 0xe7}};
constexpr GUID kServicesInterface = {
    0x6e26e776, 0x04f0, 0x495d, {0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e, 0x31, 0x69}};
constexpr GUID kName = {0x608d3df8, 0x8128, 0x4aa7, {0xa4, 0x28, 0xf5, 0x5e, 0x49, 0x26, 0x72, 0x91}};
constexpr auto kClient = static_cast<DWORD>(OBJID_CLIENT);

windows::ComPointer<IAccPropServices> Services() {
  windows::ComPointer<IAccPropServices> services;
  CoCreateInstance(kServices, nullptr, CLSCTX_INPROC_SERVER, kServicesInterface,
                   reinterpret_cast<void**>(services.Receive()));
  return services;
}

}  // namespace

void SetAccessibleName(HWND window, TextView name) {
  const auto services = Services();
  if (services)
    services.Get()->SetHwndPropStr(window, kClient, CHILDID_SELF, kName, windows::Wide(Text(name)));
}

void ClearAccessibleName(HWND window) {
  const auto services = Services();
  if (services) services.Get()->ClearHwndProps(window, kClient, CHILDID_SELF, &kName, 1);
}

}  // namespace tavix::win32
