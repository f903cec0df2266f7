#pragma once

#include "window/win32/list_view_binding.h"

namespace tavix::win32 {

// A list of the options window, with check boxes or without. Besides what the result list does it tells of
// keys, of double clicks, and of a focus moved by keys. It is named by a caption.
class OptionListBinding : public ListViewBinding {
 public:
  OptionListBinding(ListView& model, WindowContext& context, int id, const Property<Text>& name, bool boxes);
  LRESULT OnNotify(NMHDR& header) override;

 protected:
  void Show() override;
  bool ScrollsToFocus() const override { return true; }
  void OnRowFocused(int row) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  ListView& model_;
  const Property<Text>& caption_;
  bool boxes_;
  ImageList room_;
};

}  // namespace tavix::win32
