// Stands in for the service that keeps what a program tells screen readers about its controls
// (CLSID_AccPropServices), which Wine lacks. A name becomes a property of the window, where other processes
// find it: the atom of the text. A role and the setting of a live text become properties as they are.

#include <initguid.h>
#include <objbase.h>
#include <oleacc.h>

namespace {

constexpr GUID kName = {0x608d3df8, 0x8128, 0x4aa7, {0xa4, 0x28, 0xf5, 0x5e, 0x49, 0x26, 0x72, 0x91}};
constexpr GUID kLiveSetting = {0xc12bcd8e, 0x2a8e, 0x4950, {0x8a, 0xe7, 0x36, 0x25, 0x11, 0x1d, 0x58, 0xeb}};
constexpr GUID kRole = {0xcb905ff2, 0x7bd1, 0x4c05, {0xb3, 0xc8, 0xe6, 0xc2, 0x41, 0x36, 0x4d, 0x70}};
constexpr wchar_t kNameProperty[] = L"AnnotatedName";
constexpr wchar_t kRoleProperty[] = L"AnnotatedRole";
constexpr wchar_t kLiveProperty[] = L"AnnotatedLive";

// Null for what the program doesn't set.
const wchar_t* PropertyFor(const GUID& property) {
  if (IsEqualGUID(property, kName)) return kNameProperty;
  if (IsEqualGUID(property, kRole)) return kRoleProperty;
  return IsEqualGUID(property, kLiveSetting) ? kLiveProperty : nullptr;
}

class Services final : public IAccPropServices {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = IsEqualGUID(id, IID_IUnknown) || IsEqualGUID(id, IID_IAccPropServices);
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  // The one object lives as long as the process.
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  HRESULT STDMETHODCALLTYPE SetHwndPropStr(HWND window, DWORD object, DWORD child, MSAAPROPID property,
                                           LPCWSTR text) override {
    if (object != static_cast<DWORD>(OBJID_CLIENT) || child != CHILDID_SELF) return E_INVALIDARG;
    if (!IsEqualGUID(property, kName)) return E_INVALIDARG;
    SetPropW(window, kNameProperty, reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(GlobalAddAtomW(text))));
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE SetHwndProp(HWND window, DWORD, DWORD, MSAAPROPID property,
                                        VARIANT value) override {
    if (PropertyFor(property) == nullptr || value.vt != VT_I4) return E_INVALIDARG;
    SetPropW(window, PropertyFor(property), reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(value.lVal)));
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE ClearHwndProps(HWND window, DWORD, DWORD, const MSAAPROPID* properties,
                                           int count) override {
    for (int i = 0; i < count; ++i) {
      const wchar_t* const name = PropertyFor(properties[i]);
      if (name == nullptr || RemovePropW(window, name) == nullptr) return E_INVALIDARG;
    }
    return S_OK;
  }

  // Not used by the program.
  HRESULT STDMETHODCALLTYPE SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                          AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                              AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                               AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override {
    return E_NOTIMPL;
  }
};

class Factory final : public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = IsEqualGUID(id, IID_IUnknown) || IsEqualGUID(id, IID_IClassFactory);
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override {
    static Services services;
    return services.QueryInterface(id, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

}  // namespace

extern "C" HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID, REFIID id, void** object) {
  static Factory factory;
  return factory.QueryInterface(id, object);
}

extern "C" HRESULT STDAPICALLTYPE DllCanUnloadNow() { return S_FALSE; }
