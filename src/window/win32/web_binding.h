#pragma once

#include <memory>

#include "window/win32/web_site.h"
#include "window/win32/window_binding.h"

#include <exdisp.h>

namespace tavix::win32 {

//--- Browser

// A page shown by the system's browser in a window of ours. It stays unseen until it has been read, and where
// the system has no engine for pages.
class WebPage {
 public:
  WebPage(HWND window, WebPageOwner& owner);
  WebPage(const WebPage&) = delete;
  ~WebPage();
  // False when the page can't be opened.
  bool Open(TextView address);
  // Shows what has been read, in the whole window.
  void Appear();
  // Sets an attribute of the page's body. Does nothing before there is one.
  void SetBodyAttribute(TextView name, TextView value);

 private:
  bool Activate();
  void Listen();

  windows::ComApartment apartment_;
  HWND window_;
  windows::ComPointer<WebSite> site_;
  windows::ComPointer<IOleObject> object_;
  windows::ComPointer<IWebBrowser2> browser_;
  windows::ComPointer<IConnectionPoint> events_;
  DWORD listening_ = 0;
};

//--- Binding

// The embedded page. The browser starts when the program is idle, or when the page becomes visible before
// that: it must not delay the window.
class WebBinding : public WindowBinding, private WebPageOwner {
 public:
  WebBinding(WebBrowser& model, WindowContext& context, int id, WebDocument& document);
  void Detach() override;

 protected:
  void Show() override;
  void ShowLook() override;
  void Paint(HDC canvas, const RECT& area, UINT state) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void PageComplete() override;
  bool AllowsMenu() override;
  void Open();
  void ShowColors();

  WebBrowser& model_;
  WebDocument& document_;
  std::unique_ptr<WebPage> page_;
  bool appeared_ = false;
  Text opened_;  // the address that the page was sent to
};

}  // namespace tavix::win32
