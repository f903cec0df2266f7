#include "window/win32/popup_menu.h"

#include "platform/windows/wide.h"

namespace tavix::win32 {
namespace {

struct MenuTraits {
  using Handle = HMENU;
  static Handle Null() { return nullptr; }
  static void Close(Handle handle) { DestroyMenu(handle); }
};
using MenuHandle = windows::Owned<MenuTraits>;

UINT FlagsOf(const MenuItem& item) {
  if (item.IsSeparator()) return MF_SEPARATOR;
  return MF_STRING | (item.Enabled ? MF_ENABLED : MF_GRAYED);
}

POINT CornerOf(const WindowContext& context) {
  POINT corner{};
  GetCursorPos(&corner);
  return context.menuCorner.value_or(corner);
}

}  // namespace

void PopUp(const WindowContext& context, const Menu& menu) {
  const MenuHandle shown(CreatePopupMenu());
  // Entries are numbered from 1: the result 0 means no choice.
  for (size_t i = 0; i < menu.Items.size(); ++i) {
    const MenuItem& item = *menu.Items[i];
    if (item.Visible) AppendMenuW(shown.Get(), FlagsOf(item), i + 1, windows::Wide(item.Caption.Get()));
  }
  const POINT corner = CornerOf(context);
  const auto chosen = static_cast<size_t>(TrackPopupMenu(shown.Get(), TPM_RETURNCMD | TPM_RIGHTBUTTON,
                                                         corner.x, corner.y, 0, context.window, nullptr));
  if (chosen >= 1 && chosen <= menu.Items.size()) menu.Items[chosen - 1]->Click();
}

}  // namespace tavix::win32
