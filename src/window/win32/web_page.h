#pragma once

#include "platform/windows/com.h"
#include "text/text.h"
#include "window/win32/web_site.h"

#include <exdisp.h>

namespace tavix::win32 {

// A page shown by the system's browser in a window of ours. Nothing of it is seen before it has been read,
// nor at all where the system has no engine for pages.
class WebPage {
 public:
  WebPage(HWND window, WebPageOwner& owner);
  WebPage(const WebPage&) = delete;
  ~WebPage();
  // False when the page can't be opened.
  bool Open(TextView address);
  // Shows what has been read, in the whole window.
  void Appear();
  // Sets an attribute of the page's body; nothing happens without one.
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

}  // namespace tavix::win32
