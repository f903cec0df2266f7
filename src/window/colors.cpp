#include "window/colors.h"

#include "forms/main_form.h"
#include "frame/tree_colors.h"

namespace tavix::mdlPubSelf {

void ColorControls() {
  for (TreeView* tree : {&frmPubMain.trvPrivacy, &frmPubMain.trvRes}) {
    ColorTreeLike(*tree, frmPubMain.lsvResult);
  }
}

}  // namespace tavix::mdlPubSelf
