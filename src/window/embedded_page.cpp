#include "window/embedded_page.h"

#include "forms/main_form.h"
#include "platform/application.h"

namespace tavix::mdlPubSelf {

void SendEmbeddedPage() {
  frmPubMain.webGIF.Navigate(Concat(platform::applicationFolder, u"\\res\\scan.htm"));
}

void webGIF_DocumentComplete() { frmPubMain.mhtm.Scroll = Text(u"no"); }

void mhtm_oncontextmenu(bool& shown) { shown = false; }

}  // namespace tavix::mdlPubSelf
