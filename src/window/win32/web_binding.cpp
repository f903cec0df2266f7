#include "window/win32/web_binding.h"

#include <mshtml.h>

#include "platform/windows/wide.h"
#include "window/win32/paint.h"

namespace tavix::win32 {
namespace {

constexpr UINT kOpenPage = WM_APP;

struct SystemTextTraits {
  using Handle = BSTR;
  static Handle Null() { return nullptr; }
  static void Close(Handle handle) { SysFreeString(handle); }
};
using SystemText = windows::Owned<SystemTextTraits>;

SystemText ToSystem(TextView text) {
  return SystemText(
      SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()), static_cast<UINT>(text.size())));
}

VARIANT AsVariant(const SystemText& text) {
  VARIANT variant{};
  V_VT(&variant) = VT_BSTR;
  V_BSTR(&variant) = text.Get();
  return variant;
}

// A colour as the attributes of a page take it: "#RRGGBB".
Text PageColor(COLORREF color) {
  constexpr TextView kDigits = u"0123456789ABCDEF";
  Text text = u"#";
  for (const int part : {GetRValue(color), GetGValue(color), GetBValue(color)}) {
    text += kDigits[static_cast<size_t>(part >> 4)];
    text += kDigits[static_cast<size_t>(part & 0xF)];
  }
  return text;
}

template <class Interface, class From>
windows::ComPointer<Interface> As(From* object) {
  windows::ComPointer<Interface> found;
  if (object != nullptr)
    object->QueryInterface(__uuidof(Interface), reinterpret_cast<void**>(found.Receive()));
  return found;
}

}  // namespace

//--- Browser

WebPage::WebPage(HWND window, WebPageOwner& owner) : window_(window), site_(new WebSite(window, owner)) {}

WebPage::~WebPage() {
  site_.Get()->Forget();
  if (events_ && listening_ != 0) events_.Get()->Unadvise(listening_);
  if (!object_) return;
  object_.Get()->Close(OLECLOSE_NOSAVE);
  object_.Get()->SetClientSite(nullptr);
}

bool WebPage::Open(TextView address) {
  if (!Activate()) return false;
  Listen();
  const SystemText target = ToSystem(address);
  VARIANT where = AsVariant(target);
  return SUCCEEDED(browser_.Get()->Navigate2(&where, nullptr, nullptr, nullptr, nullptr));
}

bool WebPage::Activate() {
  if (FAILED(CoCreateInstance(__uuidof(::WebBrowser), nullptr, CLSCTX_INPROC_SERVER, __uuidof(IOleObject),
                              reinterpret_cast<void**>(object_.Receive()))))
    return false;
  const RECT nowhere{};
  object_.Get()->SetClientSite(site_.Get());
  object_.Get()->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site_.Get(), 0, window_, &nowhere);
  browser_ = As<IWebBrowser2>(object_.Get());
  if (!browser_) return false;
  browser_.Get()->put_Silent(VARIANT_TRUE);
  return true;
}

void WebPage::Listen() {
  const auto container = As<IConnectionPointContainer>(browser_.Get());
  if (!container) return;
  container.Get()->FindConnectionPoint(__uuidof(DWebBrowserEvents2), events_.Receive());
  if (events_) events_.Get()->Advise(static_cast<IDispatch*>(site_.Get()), &listening_);
}

// Activate gave it an empty rectangle.
void WebPage::Appear() {
  RECT area;
  GetClientRect(window_, &area);
  const auto inPlace = As<IOleInPlaceObject>(object_.Get());
  if (inPlace) inPlace.Get()->SetObjectRects(&area, &area);
}

void WebPage::SetBodyAttribute(TextView name, TextView value) {
  windows::ComPointer<IDispatch> dispatch;
  if (browser_) browser_.Get()->get_Document(dispatch.Receive());
  const auto document = As<IHTMLDocument2>(dispatch.Get());
  windows::ComPointer<IHTMLElement> body;
  if (document) document.Get()->get_body(body.Receive());
  if (!body) return;
  const SystemText attribute = ToSystem(name), text = ToSystem(value);
  body.Get()->setAttribute(attribute.Get(), AsVariant(text), 0);
}

//--- Binding

WebBinding::WebBinding(WebBrowser& model, WindowContext& context, int id, WebDocument& document)
    : WindowBinding(model, context), model_(model), document_(document) {
  Create(id, L"STATIC", SS_OWNERDRAW | WS_CLIPCHILDREN);
}

void WebBinding::Detach() {
  page_.reset();
  WindowBinding::Detach();
}

void WebBinding::Paint(HDC canvas, const RECT& area, UINT) { FillArea(canvas, area, context_.colors.panel); }

void WebBinding::Show() {
  ShowColors();
  if (opened_ == model_.Address.Get()) return;
  if (model_.Visible) {
    Open();
  } else {
    PostMessageW(Window(), kOpenPage, 0, 0);
  }
}

std::optional<LRESULT> WebBinding::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != kOpenPage) return WindowBinding::OnMessage(message, wParam, lParam);
  Open();
  return 0;
}

// A missing file doesn't start the browser.
void WebBinding::Open() {
  const Text& address = model_.Address.Get();
  if (opened_ == address) return;
  opened_ = address;
  if (GetFileAttributesW(windows::Wide(address)) == INVALID_FILE_ATTRIBUTES) return;
  page_ = std::make_unique<WebPage>(Window(), static_cast<WebPageOwner&>(*this));
  if (!page_->Open(address)) page_.reset();
}

// The page has no colours of its own: it stands on the panel, whose colours can be dark.
void WebBinding::ShowColors() {
  if (page_ != nullptr) page_->SetBodyAttribute(u"bgColor", PageColor(context_.colors.panel));
}

void WebBinding::PageComplete() {
  if (page_ == nullptr) return;
  model_.DocumentComplete();
  if (!document_.Scroll.Get().empty()) page_->SetBodyAttribute(u"scroll", document_.Scroll.Get());
  ShowColors();
  page_->Appear();
  appeared_ = true;
}

// The page doesn't follow the size of the control by itself.
void WebBinding::ShowLook() {
  if (page_ != nullptr && appeared_) page_->Appear();
}

bool WebBinding::AllowsMenu() {
  bool shown = true;
  document_.oncontextmenu(shown);
  return shown;
}

}  // namespace tavix::win32
