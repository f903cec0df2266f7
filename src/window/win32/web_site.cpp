#include "window/win32/web_site.h"

#include <exdisp.h>
#include <exdispid.h>

namespace tavix::win32 {

STDMETHODIMP WebSite::QueryInterface(REFIID id, void** object) {
  *object = nullptr;
  const auto give = [&]<class Interface>(Interface* found) {
    if (*object == nullptr && IsEqualIID(id, __uuidof(Interface)) != FALSE) *object = found;
  };
  give(static_cast<IOleClientSite*>(this));
  give(static_cast<IOleInPlaceSite*>(this));
  give(static_cast<IOleInPlaceFrame*>(this));
  give(static_cast<IDocHostUIHandler*>(this));
  give(static_cast<IDispatch*>(this));
  give(static_cast<IOleWindow*>(static_cast<IOleInPlaceSite*>(this)));
  give(static_cast<IUnknown*>(static_cast<IOleClientSite*>(this)));
  if (IsEqualIID(id, __uuidof(DWebBrowserEvents2)) != FALSE) *object = static_cast<IDispatch*>(this);
  if (*object == nullptr) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) WebSite::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

STDMETHODIMP WebSite::GetContainer(IOleContainer** container) {
  *container = nullptr;
  return E_NOINTERFACE;
}

STDMETHODIMP WebSite::GetWindow(HWND* window) {
  *window = window_;
  return S_OK;
}

STDMETHODIMP WebSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT place,
                                       LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
  *frame = this;
  AddRef();
  *document = nullptr;
  *place = *clip = {};
  info->fMDIApp = FALSE;
  info->hwndFrame = GetAncestor(window_, GA_ROOT);
  info->haccel = nullptr;
  info->cAccelEntries = 0;
  return S_OK;
}

STDMETHODIMP WebSite::ShowContextMenu(DWORD, POINT*, IUnknown*, IDispatch*) {
  return owner_ != nullptr && owner_->AllowsMenu() ? S_FALSE : S_OK;
}

STDMETHODIMP WebSite::GetHostInfo(DOCHOSTUIINFO* info) {
  info->dwFlags = DOCHOSTUIFLAG_NO3DBORDER | DOCHOSTUIFLAG_SCROLL_NO | DOCHOSTUIFLAG_DPI_AWARE;
  info->dwDoubleClick = DOCHOSTUIDBLCLK_DEFAULT;
  return S_OK;
}

// A page that can't be read stays blank: setting the error's last argument, which comes first in the array,
// keeps the browser's own error page away.
STDMETHODIMP WebSite::Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                             UINT*) {
  if (event == DISPID_DOCUMENTCOMPLETE && owner_ != nullptr) owner_->PageComplete();
  if (event == DISPID_NAVIGATEERROR && arguments != nullptr && arguments->cArgs > 0 &&
      V_VT(&arguments->rgvarg[0]) == (VT_BYREF | VT_BOOL)) {
    *V_BOOLREF(&arguments->rgvarg[0]) = VARIANT_TRUE;
  }
  return S_OK;
}

}  // namespace tavix::win32
