#include "window/options_page.h"

#include "catalogue/pages.h"
#include "forms/main_form.h"
#include "forms/options_form.h"

namespace tavix::mdlPubSelf {

void picOpt_MouseUp(int button) {
  MainForm& form = frmPubMain;
  if (button != kLeftButton || form.picOpt.BorderStyle == 1) return;
  for (PictureBox* page : form.PagePictures()) page->BorderStyle = page == &form.picOpt ? 1 : 0;
  form.picOpt.Picture = Text(u"OPT_STTC");
  frmPubOptions.piPage = 1;
  frmPubOptions.ShowModal();
  form.picOpt.BorderStyle = 0;
  MarkLastPage();
}

}  // namespace tavix::mdlPubSelf
