#include "window/win32/about_window.h"

#include <utility>

#include "forms/about_form.h"
#include "forms/main_form.h"
#include "platform/windows/wide.h"
#include "window/layout.h"
#include "window/win32/label_binding.h"
#include "window/win32/paint.h"
#include "window/win32/push_binding.h"

namespace tavix::win32 {
namespace {

constexpr wchar_t kClass[] = L"TavixAboutWindow";
constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
constexpr DWORD kExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;

// The Escape key presses the button with the number that dialogs have for it.
enum ControlId : int { kIdClose = IDCANCEL, kIdProduct = 100, kIdCopyright, kIdMailer, kIdWeb };

// In the middle of the owner, with room for the given inside.
RECT PlaceOver(HWND owner, SIZE inside) {
  RECT frame{0, 0, inside.cx, inside.cy};
  AdjustWindowRectEx(&frame, kStyle, FALSE, kExtendedStyle);
  RECT around{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  if (owner != nullptr) GetWindowRect(owner, &around);
  const LONG left = (around.left + around.right - (frame.right - frame.left)) / 2;
  const LONG top = (around.top + around.bottom - (frame.bottom - frame.top)) / 2;
  return {left, top, left + frame.right - frame.left, top + frame.bottom - frame.top};
}

}  // namespace

AboutWindow::AboutWindow() {
  frmPubAbout.ShowModal = [this] { ShowModal(); };
  frmPubAbout.Unload = [this] { Unload(); };
}

AboutWindow::~AboutWindow() {
  frmPubAbout.ShowModal = nullptr;
  frmPubAbout.Unload = nullptr;
}

// The owner is out of reach meanwhile, in the model too, which would have it back otherwise.
void AboutWindow::ShowModal() {
  if (context_ != nullptr) return;
  owner_ = reinterpret_cast<HWND>(frmPubMain.hWnd);
  const bool reachable = frmPubMain.Enabled;
  frmPubAbout.LoadOnce();
  context_ = std::make_unique<WindowContext>();
  if (Create(owner_)) {
    frmPubMain.Enabled = false;
    if (owner_ != nullptr) EnableWindow(owner_, FALSE);
    Run();
    frmPubMain.Enabled = reachable;
  }
  Unload();
  bindings_.clear();
  context_.reset();
}

bool AboutWindow::Create(HWND owner) {
  MakeDrawingTools(*context_);
  MakeClassKnown(kClass);
  context_->form = &frmPubAbout;
  LayOutAboutForm([this](TextView text) { return TextWidth(*context_, text); });
  const RECT place =
      PlaceOver(owner, {context_->Pixels(frmPubAbout.Width), context_->Pixels(frmPubAbout.Height)});
  const HWND window =
      CreateWindowExW(kExtendedStyle, kClass, windows::Wide(frmPubAbout.Caption.Get()), kStyle, place.left,
                      place.top, place.right - place.left, place.bottom - place.top, owner, nullptr,
                      GetModuleHandleW(nullptr), Parameter());
  if (window == nullptr) return false;
  frmPubAbout.hWnd = reinterpret_cast<intptr_t>(window);
  BindControls();
  return true;
}

void AboutWindow::BindControls() {
  AboutForm& form = frmPubAbout;
  WindowContext& context = *context_;
  bindings_.push_back(std::make_unique<LabelBinding>(form.lblProduct, context, kIdProduct));
  bindings_.push_back(std::make_unique<LabelBinding>(form.lblCopyright, context, kIdCopyright));
  bindings_.push_back(std::make_unique<ButtonBinding>(form.sbtMailer, context, kIdMailer));
  bindings_.push_back(std::make_unique<ButtonBinding>(form.sbtWeb, context, kIdWeb));
  bindings_.push_back(std::make_unique<ButtonBinding>(form.sbtClose, context, kIdClose, true));
}

void AboutWindow::Run() {
  context_->changes.Flush();
  ShowWindow(context_->window, SW_SHOWNORMAL);
  SetFocus(bindings_.back()->Window());
  MSG message;
  while (context_->window != nullptr) {
    context_->changes.Flush();
    if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
      // The end of the program is for the main window's loop.
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    if (IsDialogMessageW(context_->window, &message) != FALSE) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

// The owner is in reach again before the window goes, or another program would come to the front.
void AboutWindow::Unload() {
  frmPubAbout.Loaded = false;
  if (context_ == nullptr || context_->window == nullptr) return;
  frmPubAbout.hWnd = 0;
  for (const auto& binding : bindings_) binding->Detach();
  if (owner_ != nullptr) EnableWindow(owner_, TRUE);
  DestroyWindow(context_->window);
}

std::optional<LRESULT> AboutWindow::OnMessage(UINT message, WPARAM, LPARAM) {
  if (message != WM_CLOSE) return std::nullopt;
  frmPubAbout.Unload();
  return 0;
}

void AboutWindow::OnPaint(HDC screen, const RECT& area) {
  FillArea(screen, area, context_->colors.panel);
  const RECT logo = context_->Area(frmPubAbout.picLogo);
  const auto icon = static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(1), IMAGE_ICON,
                                                  logo.right - logo.left, logo.bottom - logo.top, LR_SHARED));
  DrawIconEx(screen, logo.left, logo.top, icon, logo.right - logo.left, logo.bottom - logo.top, 0, nullptr,
             DI_NORMAL);
}

}  // namespace tavix::win32
