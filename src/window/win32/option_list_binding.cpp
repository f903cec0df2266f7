#include "window/win32/option_list_binding.h"

#include "window/caption.h"
#include "window/win32/blank_images.h"
#include "window/win32/shift_keys.h"

namespace tavix::win32 {
namespace {
constexpr int kRowHeight = 270;  // twips
}  // namespace

OptionListBinding::OptionListBinding(ListView& model, WindowContext& context, int id,
                                     const Property<Text>& name, bool boxes)
    : ListViewBinding(model, context, id, u""), model_(model), caption_(name), boxes_(boxes) {
  if (boxes) return;
  Send(LVM_SETCALLBACKMASK, 0);
  Send(LVM_SETIMAGELIST, LVSIL_STATE, 0);
  Send(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_CHECKBOXES, 0);
  // The rows are as far apart as boxes would keep them.
  room_ = MakeBlankImages(1, context.Pixels(kRowHeight));
  Send(LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(room_.Get()));
}

void OptionListBinding::Show() {
  ListViewBinding::Show();
  SetName(PlainCaption(caption_.Get()));
}

void OptionListBinding::OnRowFocused(int row) {
  ListViewBinding::OnRowFocused(row);
  model_.ItemClick();
}

LRESULT OptionListBinding::OnNotify(NMHDR& header) {
  const LRESULT result = ListViewBinding::OnNotify(header);
  if (header.code == NM_DBLCLK && reinterpret_cast<NMITEMACTIVATE&>(header).iItem >= 0) model_.DblClick();
  return result;
}

std::optional<LRESULT> OptionListBinding::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_KEYDOWN) model_.KeyDown(static_cast<int>(wide), HeldShiftKeys());
  if (!boxes_ && (message == WM_KEYDOWN || message == WM_CHAR) && wide == VK_SPACE) return 0;
  return ListViewBinding::OnMessage(message, wide, longer);
}

}  // namespace tavix::win32
