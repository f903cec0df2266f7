#pragma once

#include "platform/windows/com.h"

#include <docobj.h>
#include <mshtmhst.h>
#include <oleidl.h>

namespace tavix::win32 {

// Hears of a page's events.
class WebPageOwner {
 public:
  virtual ~WebPageOwner() = default;
  virtual void PageComplete() = 0;
  // Whether the page may show its menu.
  virtual bool AllowsMenu() = 0;
};

// The host that the browser asks of us. It answers what a small page without frames, menus and toolbars
// needs, and refuses the rest. It counts its references and is deleted with the last one.
class WebSite final : public IOleClientSite,
                      public IOleInPlaceSite,
                      public IOleInPlaceFrame,
                      public IDocHostUIHandler,
                      public IDispatch {
 public:
  WebSite(HWND window, WebPageOwner& owner) : window_(window), owner_(&owner) {}
  WebSite(const WebSite&) = delete;
  // Call it before the owner goes: events are then dropped.
  void Forget() { owner_ = nullptr; }

  STDMETHODIMP QueryInterface(REFIID id, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override;

  // IOleClientSite
  STDMETHODIMP SaveObject() override { return E_NOTIMPL; }
  STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
  STDMETHODIMP GetContainer(IOleContainer** container) override;
  STDMETHODIMP ShowObject() override { return S_OK; }
  STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
  STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

  // IOleWindow, for IOleInPlaceSite and IOleInPlaceFrame
  STDMETHODIMP GetWindow(HWND* window) override;
  STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

  // IOleInPlaceSite
  STDMETHODIMP CanInPlaceActivate() override { return S_OK; }
  STDMETHODIMP OnInPlaceActivate() override { return S_OK; }
  STDMETHODIMP OnUIActivate() override { return S_OK; }
  STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT place,
                                LPRECT clip, LPOLEINPLACEFRAMEINFO info) override;
  STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
  STDMETHODIMP OnUIDeactivate(BOOL) override { return S_OK; }
  STDMETHODIMP OnInPlaceDeactivate() override { return S_OK; }
  STDMETHODIMP DiscardUndoState() override { return E_NOTIMPL; }
  STDMETHODIMP DeactivateAndUndo() override { return E_NOTIMPL; }
  STDMETHODIMP OnPosRectChange(LPCRECT) override { return S_OK; }

  // IOleInPlaceFrame
  STDMETHODIMP GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
  STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
  STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
  STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject*, LPCOLESTR) override { return S_OK; }
  STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
  STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
  STDMETHODIMP RemoveMenus(HMENU) override { return S_OK; }
  STDMETHODIMP SetStatusText(LPCOLESTR) override { return S_OK; }
  STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }
  STDMETHODIMP TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

  // IDocHostUIHandler
  STDMETHODIMP ShowContextMenu(DWORD, POINT*, IUnknown*, IDispatch*) override;
  STDMETHODIMP GetHostInfo(DOCHOSTUIINFO* info) override;
  STDMETHODIMP ShowUI(DWORD, IOleInPlaceActiveObject*, IOleCommandTarget*, IOleInPlaceFrame*,
                      IOleInPlaceUIWindow*) override {
    return S_OK;
  }
  STDMETHODIMP HideUI() override { return S_OK; }
  STDMETHODIMP UpdateUI() override { return S_OK; }
  STDMETHODIMP OnDocWindowActivate(BOOL) override { return S_OK; }
  STDMETHODIMP OnFrameWindowActivate(BOOL) override { return S_OK; }
  STDMETHODIMP ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override { return S_OK; }
  STDMETHODIMP TranslateAccelerator(LPMSG, const GUID*, DWORD) override { return S_FALSE; }
  STDMETHODIMP GetOptionKeyPath(LPOLESTR*, DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP GetDropTarget(IDropTarget*, IDropTarget**) override { return E_NOTIMPL; }
  STDMETHODIMP GetExternal(IDispatch**) override { return E_NOTIMPL; }
  STDMETHODIMP TranslateUrl(DWORD, LPWSTR, LPWSTR*) override { return S_FALSE; }
  STDMETHODIMP FilterDataObject(IDataObject*, IDataObject**) override { return S_FALSE; }

  // IDispatch, for the page's events
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                      UINT*) override;

 private:
  ~WebSite() = default;

  HWND window_;
  WebPageOwner* owner_;
  ULONG references_ = 1;
};

}  // namespace tavix::win32
