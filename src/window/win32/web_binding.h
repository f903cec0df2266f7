#pragma once

#include <memory>

#include "window/win32/web_page.h"
#include "window/win32/window_binding.h"

namespace tavix::win32 {

// The embedded page. The system's browser is started once the program has nothing else to do, so that it
// doesn't hold up the window, or when the page is to be seen before that.
class WebBinding : public WindowBinding, private WebPageOwner {
 public:
  WebBinding(WebBrowser& model, WindowContext& context, int id, WebDocument& document);
  void Detach() override;
  void OnDraw(const DRAWITEMSTRUCT& draw) override;

 protected:
  void Show() override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  void PageComplete() override;
  bool AllowsMenu() override;
  void Open();

  WebBrowser& model_;
  WebDocument& document_;
  std::unique_ptr<WebPage> page_;
  Text opened_;  // the address that the page was sent to
};

}  // namespace tavix::win32
