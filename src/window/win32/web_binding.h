#pragma once

#include <memory>

#include "window/win32/web_page.h"
#include "window/win32/window_binding.h"

namespace tavix::win32 {

// The embedded page. The system's browser is started when the page is to be seen for the first time.
class WebBinding : public WindowBinding, private WebPageOwner {
 public:
  WebBinding(WebBrowser& model, WindowContext& context, int id, WebDocument& document);
  void Detach() override;
  void OnDraw(const DRAWITEMSTRUCT& draw) override;

 protected:
  void Show() override;

 private:
  void PageComplete() override;
  bool AllowsMenu() override;

  WebBrowser& model_;
  WebDocument& document_;
  std::unique_ptr<WebPage> page_;
  Text opened_;  // the address that the page was sent to
};

}  // namespace tavix::win32
