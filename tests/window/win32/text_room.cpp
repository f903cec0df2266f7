#include <gtest/gtest.h>

#include "catalogue/functions.h"
#include "forms/main_form.h"
#include "frame/settings.h"
#include "platform/windows/resolution.h"
#include "window/layout.h"
#include "window/win32/window_context.h"

namespace tavix::win32 {
namespace {

class TextRoom : public testing::TestWithParam<bool> {
 protected:
  void SetUp() override {
    frmPubMain.BigInterface = GetParam();
    LayOutMainForm();
    MakeDrawingTools(context, windows::DpiOf(nullptr));
    mdlPubSelf::LastAccessedFile = u"365";
  }
  void TearDown() override {
    frmPubMain.BigInterface = false;
    mdlPubSelf::ClearSettings();
  }
  // The height in pixels of a text that wraps at the width of the status line.
  long HeightInStatusLine(TextView text) const {
    RECT area{0, 0, context.Pixels(frmPubMain.lblProgS.Width), 0};
    const windows::ScreenContext screen(GetDC(nullptr));
    const Selection selected(screen.Get(), context.font.Get());
    DrawTextW(screen.Get(), reinterpret_cast<const wchar_t*>(text.data()), static_cast<int>(text.size()),
              &area, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    return area.bottom;
  }

  WindowContext context;
};

INSTANTIATE_TEST_SUITE_P(BothSizes, TextRoom, testing::Bool(),
                         [](const auto& size) { return size.param ? "Big" : "Small"; });

TEST_P(TextRoom, EveryDescriptionIsSeenWhole) {
  using namespace mdlPubSelf;
  const int room = context.Pixels(frmPubMain.lblProgS.Height);
  size_t longest = 0;
  for (const auto& page : {kPrivacyFunctions, kSystemFunctions, kRegistryFunctions, kAdvancedFunctions}) {
    for (const CleaningFunction& function : page) {
      const Text description = DescriptionOf(function);
      longest = std::max(longest, description.size());
      EXPECT_LE(HeightInStatusLine(description), room)
          << std::string(function.Key.begin(), function.Key.end());
    }
  }
  EXPECT_GT(longest, 200U);
}

}  // namespace
}  // namespace tavix::win32
