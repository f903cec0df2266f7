#include "window/win32/type_window.h"

#include "forms/type_form.h"
#include "window/layout.h"
#include "window/win32/dialog_ids.h"
#include "window/win32/dialog_label_binding.h"
#include "window/win32/push_binding.h"

namespace tavix::win32 {

TypeWindow::TypeWindow() : DialogWindow(frmPubType, kTypeWindowClass, nullptr, &frmPubType.sbt[2]) {}

void TypeWindow::Bind(WindowContext& context, BoxListener& listener, Bindings& bindings) {
  TypeForm& form = frmPubType;
  for (size_t i = 0; i < form.txt.size(); ++i) {
    const int number = static_cast<int>(i);
    bindings.push_back(std::make_unique<DialogLabelBinding>(form.lbl[i], context, kIdTypeLabels + number));
    bindings.push_back(
        std::make_unique<TextBoxBinding>(form.txt[i], context, kIdTypeBoxes + number, listener));
  }
  for (size_t i = 0; i < form.sbt.size(); ++i) {
    const int number = static_cast<int>(i);
    bindings.push_back(
        std::make_unique<ButtonBinding>(form.sbt[i], context, kIdTypeButtons + number, i == 1));
  }
}

void TypeWindow::LayOut(const WidthOf& widthOf) { LayOutTypeForm(widthOf); }

Control& TypeWindow::First() { return frmPubType.txt[0]; }

}  // namespace tavix::win32
