#include "window/win32/skin.h"
#include "support/case.h"

#include <gtest/gtest.h>

namespace tavix::win32 {
namespace {

constexpr TextView kPages[] = {u"PRIVACY", u"SYS", u"REG", u"ADV", u"OPT", u"ONE"};
constexpr TextView kTitleButtons[] = {u"MINI", u"CLOSE", u"HELP", u"COMMEND"};

void ExpectSize(Skin& skin, TextView key, int dpi, int width, int height) {
  EXPECT_TRUE(skin.Has(key)) << std::string(key.begin(), key.end()) << " at " << dpi;
  EXPECT_EQ(skin.SizeOf(key).cx, MulDiv(width, dpi, 96));
  EXPECT_EQ(skin.SizeOf(key).cy, MulDiv(height, dpi, 96));
}

TEST(Skin, HasAllPicturesInTheSizesOfEveryScreen) {
  // The last two have no drawings of their own.
  for (const int dpi : {96, 120, 144, 192, 168, 240}) {
    Skin skin(dpi);
    ExpectSize(skin, u"TITLE_BIG", dpi, 992, 76);
    ExpectSize(skin, u"TITLE_SM", dpi, 768, 76);
    for (const TextView state : {u"_STTC", u"_ACTV"}) {
      for (const TextView page : kPages) ExpectSize(skin, Concat(page, state), dpi, 64, 64);
      for (const TextView button : kTitleButtons)
        EXPECT_TRUE(skin.Has(Concat(button, state))) << Case(button);
      for (const TextView button : {u"MINI", u"CLOSE"}) ExpectSize(skin, Concat(button, state), dpi, 17, 19);
    }
    for (const TextView key : {u"OPT32", u"JUNK32", u"DUP32", u"DEL32", u"ONE32"})
      ExpectSize(skin, key, dpi, 32, 32);
  }
  Skin skin(96);
  EXPECT_EQ(skin.SizeOf(u"CLOSE_STTC").cx, 17);
  EXPECT_EQ(skin.SizeOf(u"CLOSE_STTC").cy, 19);
}

TEST(Skin, WhatIsNotThereIsNotDrawn) {
  Skin skin(96);
  EXPECT_FALSE(skin.Has(u"NO_SUCH_PICTURE"));
  EXPECT_FALSE(skin.Has(u""));
  EXPECT_EQ(skin.SizeOf(u"NO_SUCH_PICTURE").cx, 0);
}

TEST(Skin, LitPicturesDifferFromThoseAtRest) {
  const MemoryContext memory(CreateCompatibleDC(nullptr));
  BITMAPINFO info{};
  info.bmiHeader = {sizeof info.bmiHeader, 64, -64, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  const Bitmap bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  const Selection selected(memory.Get(), bitmap.Get());
  const auto* const pixels = static_cast<const uint32_t*>(bits);
  Skin skin(96);
  for (const TextView page : kPages) {
    skin.Draw(memory.Get(), {0, 0}, Concat(page, u"_STTC"));
    GdiFlush();
    const std::vector<uint32_t> atRest(pixels, pixels + 64 * 64);
    skin.Draw(memory.Get(), {0, 0}, Concat(page, u"_ACTV"));
    GdiFlush();
    int different = 0;
    for (size_t i = 0; i < atRest.size(); ++i) different += atRest[i] != pixels[i] ? 1 : 0;
    EXPECT_GT(different, 64 * 64 / 3) << std::string(page.begin(), page.end());
  }
}

}  // namespace
}  // namespace tavix::win32
