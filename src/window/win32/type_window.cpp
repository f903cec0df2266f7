#include "forms/type_form.h"
#include "window/layout.h"
#include "window/win32/buttons.h"
#include "window/win32/control_ids.h"
#include "window/win32/dialogs.h"
#include "window/win32/labels.h"

namespace tavix::win32 {

TypeWindow::TypeWindow()
    : DialogWindow({.form = frmPubType,
                    .windowClass = kTypeWindowClass,
                    .first = frmPubType.txt[0],
                    .enter = nullptr,
                    .escape = frmPubType.sbt[2],
                    .layOut = LayOutTypeForm}) {}

void TypeWindow::AddControls(BindingList& controls) {
  TypeForm& form = frmPubType;
  for (size_t i = 0; i < form.txt.size(); ++i) {
    const int number = static_cast<int>(i);
    controls.Add<LabelBinding>(form.lbl[i], kIdTypeLabels + number, kDialogLabel);
    controls.Add<TextBoxBinding>(form.txt[i], kIdTypeBoxes + number);
  }
  for (size_t i = 0; i < form.sbt.size(); ++i)
    controls.Add<ButtonBinding>(form.sbt[i], kIdTypeButtons + static_cast<int>(i), i == 1);
}

}  // namespace tavix::win32
