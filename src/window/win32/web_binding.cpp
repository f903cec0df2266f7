#include "window/win32/web_binding.h"

#include "platform/windows/wide.h"
#include "window/win32/paint.h"

namespace tavix::win32 {
namespace {
constexpr UINT kOpen = WM_APP;
}  // namespace

WebBinding::WebBinding(WebBrowser& model, WindowContext& context, int id, WebDocument& document)
    : WindowBinding(model, context), model_(model), document_(document) {
  Create(id, L"STATIC", SS_OWNERDRAW | WS_CLIPCHILDREN);
}

void WebBinding::Detach() {
  page_.reset();
  WindowBinding::Detach();
}

void WebBinding::OnDraw(const DRAWITEMSTRUCT& draw) {
  FillArea(draw.hDC, draw.rcItem, context_.colors.panel);
}

void WebBinding::Show() {
  if (opened_ == model_.Address.Get()) return;
  if (model_.Visible) {
    Open();
  } else {
    PostMessageW(Window(), kOpen, 0, 0);
  }
}

std::optional<LRESULT> WebBinding::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message != kOpen) return WindowBinding::OnMessage(message, wide, longer);
  Open();
  return 0;
}

// A file that is missing is not even tried.
void WebBinding::Open() {
  const Text& address = model_.Address.Get();
  if (opened_ == address) return;
  opened_ = address;
  if (GetFileAttributesW(windows::Wide(address)) == INVALID_FILE_ATTRIBUTES) return;
  page_ = std::make_unique<WebPage>(Window(), static_cast<WebPageOwner&>(*this));
  if (!page_->Open(address)) page_.reset();
}

void WebBinding::PageComplete() {
  if (page_ == nullptr) return;
  model_.DocumentComplete();
  if (!document_.Scroll.Get().empty()) page_->SetBodyAttribute(u"scroll", document_.Scroll.Get());
  page_->Appear();
}

bool WebBinding::AllowsMenu() {
  bool shown = true;
  document_.oncontextmenu(shown);
  return shown;
}

}  // namespace tavix::win32
