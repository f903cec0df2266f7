#include "window/embedded_page.h"

#include "platform/application.h"
#include "support/program_test.h"

namespace tavix {
namespace {

class EmbeddedPage : public ProgramTest {
 protected:
  void SetUp() override {
    platform::applicationFolder = u"C:\\Program Files\\Tavix";
    Start();
  }
};

TEST_F(EmbeddedPage, LiesBesideTheProgramAndIsHiddenAtStart) {
  EXPECT_EQ(frmPubMain.webGIF.Address.Get(), u"C:\\Program Files\\Tavix\\res\\scan.htm");
  EXPECT_FALSE(frmPubMain.webGIF.Visible);
  EXPECT_EQ(frmPubMain.mhtm.Scroll.Get(), u"");
}

TEST_F(EmbeddedPage, HasNoScrollBarsOnceItHasBeenRead) {
  frmPubMain.webGIF.DocumentComplete();
  EXPECT_EQ(frmPubMain.mhtm.Scroll.Get(), u"no");
}

TEST_F(EmbeddedPage, HasNoMenu) {
  bool shown = true;
  frmPubMain.mhtm.oncontextmenu(shown);
  EXPECT_FALSE(shown);
}

}  // namespace
}  // namespace tavix
