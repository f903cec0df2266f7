#pragma once

#include <vector>

#include "controls/list_box.h"
#include "window/win32/framed_binding.h"

namespace tavix::win32 {

// A list of lines, any number of which can be selected. It is named by a caption.
class ListBoxBinding : public FramedBinding {
 public:
  ListBoxBinding(ListBox& model, WindowContext& context, int id, const Property<Text>& name);
  void OnCommand(int code) override;
  HBRUSH OnColors(HDC context) override;

 protected:
  void Show() override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  void ShowRows();
  bool IsSelected(int row) const { return Send(LB_GETSEL, static_cast<WPARAM>(row)) > 0; }

  ListBox& model_;
  const Property<Text>& caption_;
  std::vector<Text> rows_;  // as they are shown
};

}  // namespace tavix::win32
