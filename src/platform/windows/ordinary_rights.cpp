#include "platform/windows/ordinary_rights.h"

#include "platform/windows/com.h"
#include "platform/windows/wide.h"

#include <exdisp.h>
#include <servprov.h>
#include <shldisp.h>
#include <shlobj.h>

namespace tavix::windows {
namespace {

struct StringTraits {
  using Handle = BSTR;
  static Handle Null() { return nullptr; }
  static void Close(Handle handle) { SysFreeString(handle); }
};
using OwnedString = Owned<StringTraits>;

OwnedString MakeString(const Text& text) {
  return OwnedString(SysAllocStringLen(Wide(text), static_cast<UINT>(text.size())));
}

VARIANT Number(LONG value) {
  VARIANT variant = {};
  variant.vt = VT_I4;
  variant.lVal = value;
  return variant;
}

// The desktop's window of the signed-in user's shell. Null when there is none.
ComPointer<IDispatch> FindDesktop() {
  ComPointer<IDispatch> desktop;
  ComPointer<IShellWindows> windows;
  if (FAILED(CoCreateInstance(CLSID_ShellWindows, nullptr, CLSCTX_LOCAL_SERVER, IID_IShellWindows,
                              reinterpret_cast<void**>(windows.Receive()))))
    return desktop;
  VARIANT place = Number(CSIDL_DESKTOP), none = {};
  long window = 0;
  // S_FALSE means that there is none.
  if (windows.Get()->FindWindowSW(&place, &none, SWC_DESKTOP, &window, SWFO_NEEDDISPATCH,
                                  desktop.Receive()) != S_OK)
    desktop.Reset();
  return desktop;
}

// The shell's automation object, reached through the desktop's window. It runs in the shell's process, with
// the shell's rights.
ComPointer<IShellDispatch2> ShellOfDesktop(IDispatch* desktop) {
  ComPointer<IShellDispatch2> shell;
  const auto services = Ask<IServiceProvider>(desktop, IID_IServiceProvider);
  ComPointer<IShellBrowser> browser;
  ComPointer<IShellView> view;
  ComPointer<IDispatch> background, application;
  if (!services ||
      FAILED(services.Get()->QueryService(SID_STopLevelBrowser, IID_IShellBrowser,
                                          reinterpret_cast<void**>(browser.Receive()))) ||
      FAILED(browser.Get()->QueryActiveShellView(view.Receive())) ||
      FAILED(view.Get()->GetItemObject(SVGIO_BACKGROUND, IID_IDispatch,
                                       reinterpret_cast<void**>(background.Receive()))))
    return shell;
  const auto folder = Ask<IShellFolderViewDual>(background.Get(), IID_IShellFolderViewDual);
  if (!folder || FAILED(folder.Get()->get_Application(application.Receive()))) return shell;
  return Ask<IShellDispatch2>(application.Get(), IID_IShellDispatch2);
}

}  // namespace

bool HasRaisedRights() {
  ObjectHandle token;
  if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, token.Receive()) == FALSE) return false;
  TOKEN_ELEVATION_TYPE type = TokenElevationTypeDefault;
  DWORD size = 0;
  return GetTokenInformation(token.Get(), TokenElevationType, &type, sizeof type, &size) != FALSE &&
         type == TokenElevationTypeFull;
}

bool OpenByDesktop(const Text& target, int style) {
  const ComPointer<IDispatch> desktop = FindDesktop();
  if (!desktop) return false;
  const ComPointer<IShellDispatch2> shell = ShellOfDesktop(desktop.Get());
  const OwnedString file = MakeString(target);
  if (!shell || !file) return false;
  // Lets the opened program come to the front.
  AllowSetForegroundWindow(ASFW_ANY);
  const VARIANT none = {};
  return shell.Get()->ShellExecute(file.Get(), none, none, none, Number(style)) == S_OK;
}

}  // namespace tavix::windows
