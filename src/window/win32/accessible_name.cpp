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
constexpr GUID kRole = {0xcb905ff2, 0x7bd1, 0x4c05, {0xb3, 0xc8, 0xe6, 0xc2, 0x41, 0x36, 0x4d, 0x70}};
constexpr GUID kLiveSetting = {0xc12bcd8e, 0x2a8e, 0x4950, {0x8a, 0xe7, 0x36, 0x25, 0x11, 0x1d, 0x58, 0xeb}};
constexpr auto kClient = static_cast<DWORD>(OBJID_CLIENT);

windows::ComPointer<IAccPropServices> Services() {
  windows::ComPointer<IAccPropServices> services;
  CoCreateInstance(kServices, nullptr, CLSCTX_INPROC_SERVER, kServicesInterface,
                   reinterpret_cast<void**>(services.Receive()));
  return services;
}

void SetNumber(HWND window, const GUID& property, LONG number) {
  VARIANT value{};
  value.vt = VT_I4;
  value.lVal = number;
  const auto services = Services();
  if (services) services.Get()->SetHwndProp(window, kClient, CHILDID_SELF, property, value);
}

void Clear(HWND window, const GUID& property) {
  const auto services = Services();
  if (services) services.Get()->ClearHwndProps(window, kClient, CHILDID_SELF, &property, 1);
}

}  // namespace

void SetAccessibleName(HWND window, TextView name) {
  const auto services = Services();
  if (services)
    services.Get()->SetHwndPropStr(window, kClient, CHILDID_SELF, kName, windows::Wide(Text(name)));
}

void ClearAccessibleName(HWND window) { Clear(window, kName); }

void SetLinkRole(HWND window) { SetNumber(window, kRole, ROLE_SYSTEM_LINK); }
void ClearLinkRole(HWND window) { Clear(window, kRole); }

void SetLive(HWND window) {
  constexpr LONG kPolite = 1;
  SetNumber(window, kLiveSetting, kPolite);
}

void ClearLive(HWND window) { Clear(window, kLiveSetting); }

}  // namespace tavix::win32
