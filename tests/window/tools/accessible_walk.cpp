// Prints what screen readers learn of a window, given by its class: a JSON line in UTF-8 for each control in
// sight that can take the focus, and for the one whose changes are said. Name, role, state and value are
// those of Microsoft Active Accessibility; UI Automation's name and control type follow where the system
// answers, and what the program has set for screen readers, as the stand-in for the system's service keeps
// it.

// clang-format off
#include "platform/windows/windows_api.h"
#include <objbase.h>
#include <oleacc.h>
#include <fcntl.h>
#include <io.h>
// clang-format on

#include <array>
#include <cstdio>
#include <string>

#include "platform/windows/com.h"
#include "platform/windows/wide.h"
#include "text/json.h"
#include "text/utf8.h"

namespace {

using namespace tavix;

constexpr GUID kAccessible = {0x618736e0, 0x3c3d, 0x11cf, {0x81, 0x0c, 0x00, 0xaa, 0x00, 0x38, 0x9b, 0x71}};
constexpr GUID kAutomation = {0xff48dba4, 0x60ef, 0x4201, {0xaa, 0x87, 0x54, 0x10, 0x3e, 0xef, 0x59, 0x4e}};
constexpr GUID kAutomationInterface = {
    0x30cbe57d, 0xd9d0, 0x452a, {0xab, 0x13, 0x7a, 0xc5, 0xac, 0x48, 0x25, 0xee}};

// The beginnings of two interfaces of UI Automation, which the compiler's headers lack.
struct Element : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE SetFocus() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetRuntimeId(SAFEARRAY**) = 0;
  virtual HRESULT STDMETHODCALLTYPE FindFirst(int, IUnknown*, Element**) = 0;
  virtual HRESULT STDMETHODCALLTYPE FindAll(int, IUnknown*, IUnknown**) = 0;
  virtual HRESULT STDMETHODCALLTYPE FindFirstBuildCache(int, IUnknown*, IUnknown*, Element**) = 0;
  virtual HRESULT STDMETHODCALLTYPE FindAllBuildCache(int, IUnknown*, IUnknown*, IUnknown**) = 0;
  virtual HRESULT STDMETHODCALLTYPE BuildUpdatedCache(IUnknown*, Element**) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetCurrentPropertyValue(int property, VARIANT* value) = 0;
};
struct Automation : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE CompareElements(Element*, Element*, BOOL*) = 0;
  virtual HRESULT STDMETHODCALLTYPE CompareRuntimeIds(SAFEARRAY*, SAFEARRAY*, BOOL*) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetRootElement(Element**) = 0;
  virtual HRESULT STDMETHODCALLTYPE ElementFromHandle(HWND window, Element** element) = 0;
};
constexpr int kControlTypeProperty = 30003;
constexpr int kNameProperty = 30005;
constexpr int kLiveSettingProperty = 30135;

std::string Quoted(const wchar_t* text) {
  std::string json;
  AppendJson(json, text == nullptr ? Text() : windows::FromWide(text));
  return json;
}

// A text that the system hands over.
class SystemText {
 public:
  ~SystemText() { SysFreeString(text_); }
  BSTR* Receive() { return &text_; }
  std::string Json() const { return text_ == nullptr ? "null" : Quoted(text_); }

 private:
  BSTR text_ = nullptr;
};

VARIANT Self() {
  VARIANT self{};
  self.vt = VT_I4;
  self.lVal = CHILDID_SELF;
  return self;
}

template <class Get>
std::string NumberFrom(Get&& get) {
  VARIANT value{};
  return SUCCEEDED(get(&value)) && value.vt == VT_I4 ? std::to_string(value.lVal) : "null";
}

std::string ActiveAccessibility(HWND control) {
  windows::ComPointer<IAccessible> object;
  if (FAILED(AccessibleObjectFromWindow(control, static_cast<DWORD>(OBJID_CLIENT), kAccessible,
                                        reinterpret_cast<void**>(object.Receive()))))
    return "\"name\":null";
  IAccessible& seen = *object.Get();
  SystemText name, value, description;
  seen.get_accName(Self(), name.Receive());
  seen.get_accValue(Self(), value.Receive());
  seen.get_accDescription(Self(), description.Receive());
  return "\"name\":" + name.Json() + ",\"value\":" + value.Json() + ",\"description\":" + description.Json() +
         ",\"role\":" + NumberFrom([&](VARIANT* role) { return seen.get_accRole(Self(), role); }) +
         ",\"state\":" + NumberFrom([&](VARIANT* state) { return seen.get_accState(Self(), state); });
}

// A control as UI Automation knows it; null if it doesn't.
windows::ComPointer<Element> ElementOf(Automation* automation, HWND control) {
  windows::ComPointer<Element> element;
  if (automation == nullptr || FAILED(automation->ElementFromHandle(control, element.Receive())))
    (void)element.Release();
  return element;
}

std::string ByAutomation(Automation* automation, HWND control) {
  const windows::ComPointer<Element> element = ElementOf(automation, control);
  VARIANT name{}, type{};
  if (element.Get() == nullptr || FAILED(element.Get()->GetCurrentPropertyValue(kNameProperty, &name)) ||
      FAILED(element.Get()->GetCurrentPropertyValue(kControlTypeProperty, &type)))
    return "null";
  std::string seen = "{\"name\":" + (name.vt == VT_BSTR ? Quoted(name.bstrVal) : "null") +
                     ",\"type\":" + (type.vt == VT_I4 ? std::to_string(type.lVal) : "null") + "}";
  VariantClear(&name);
  return seen;
}

// Whether changes of a control are said aloud.
bool IsLive(Automation* automation, HWND control) {
  const windows::ComPointer<Element> element = ElementOf(automation, control);
  VARIANT setting{};
  return element.Get() != nullptr &&
         SUCCEEDED(element.Get()->GetCurrentPropertyValue(kLiveSettingProperty, &setting)) &&
         setting.vt == VT_I4 && setting.lVal != 0;
}

// The name that the program has set at the system's service; the stand-in keeps it at the window.
std::string AnnotatedName(HWND control) {
  const auto atom = static_cast<ATOM>(reinterpret_cast<UINT_PTR>(GetPropW(control, L"AnnotatedName")));
  std::array<wchar_t, 256> name{};
  if (atom == 0 || GlobalGetAtomNameW(atom, name.data(), static_cast<int>(name.size())) == 0) return "null";
  return Quoted(name.data());
}

bool TakesTheFocus(HWND control) {
  return IsWindowVisible(control) != FALSE && IsWindowEnabled(control) != FALSE &&
         (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_STATIC) == 0;
}

void Walk(HWND window) {
  windows::ComPointer<Automation> automation;
  if (FAILED(CoCreateInstance(kAutomation, nullptr, CLSCTX_INPROC_SERVER, kAutomationInterface,
                              reinterpret_cast<void**>(automation.Receive()))))
    (void)automation.Release();
  for (HWND control = GetWindow(window, GW_CHILD); control != nullptr;
       control = GetWindow(control, GW_HWNDNEXT)) {
    const bool live = GetPropW(control, L"AnnotatedLive") != nullptr || IsLive(automation.Get(), control);
    if (!TakesTheFocus(control) && !live) continue;
    std::array<wchar_t, 64> kind{};
    GetClassNameW(control, kind.data(), static_cast<int>(kind.size()));
    RECT area;
    GetWindowRect(control, &area);
    std::printf(
        "{\"control\":%d,\"class\":%s,\"live\":%s,\"tabStop\":%s,\"rect\":[%ld,%ld,%ld,%ld],"
        "\"annotated\":%s,\"annotatedRole\":%d,\"style\":%d,\"checked\":%s,%s,\"uia\":%s}\n",
        GetDlgCtrlID(control), Quoted(kind.data()).c_str(), live ? "true" : "false",
        (GetWindowLongPtrW(control, GWL_STYLE) & WS_TABSTOP) != 0 ? "true" : "false", area.left, area.top,
        area.right, area.bottom, AnnotatedName(control).c_str(),
        static_cast<int>(reinterpret_cast<INT_PTR>(GetPropW(control, L"AnnotatedRole"))),
        static_cast<int>(GetWindowLongPtrW(control, GWL_STYLE) & 0xFFFF),
        SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED ? "true" : "false",
        ActiveAccessibility(control).c_str(), ByAutomation(automation.Get(), control).c_str());
  }
}

}  // namespace

int main(int count, char** values) {
  SetProcessDPIAware();  // so that places are those of the screen
  _setmode(_fileno(stdout), _O_BINARY);
  const windows::ComApartment apartment;
  if (count != 2) return 2;
  const Text kind = FromUtf8(values[1]).value_or(Text());
  HWND window = nullptr;
  do {
    window = FindWindowExW(nullptr, window, windows::Wide(kind), nullptr);
    if (window == nullptr) return 1;
  } while (IsWindowVisible(window) == FALSE);
  Walk(window);
  return 0;
}
