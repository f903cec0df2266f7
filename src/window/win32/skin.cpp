#include "window/win32/skin.h"

#include <algorithm>
#include <iterator>

#include "platform/windows/wide.h"

namespace tavix::win32 {
namespace {

struct Drawing {
  int dpi;
  TextView suffix;
};
constexpr Drawing kDrawings[] = {{96, u""}, {120, u"_120"}, {144, u"_144"}, {192, u"_192"}};

// The drawing for this resolution, or the next finer one, which is scaled down.
const Drawing& DrawingFor(int dpi) {
  const auto* const found = std::ranges::find_if(kDrawings, [&](const Drawing& d) { return d.dpi >= dpi; });
  return found != std::end(kDrawings) ? *found : *std::rbegin(kDrawings);
}

}  // namespace

Skin::Picture Skin::Load(TextView key) const {
  const Drawing& drawing = DrawingFor(dpi_);
  const Text name = Concat(key, drawing.suffix);
  Picture picture;
  picture.bitmap.Reset(static_cast<HBITMAP>(
      LoadImageW(GetModuleHandleW(nullptr), windows::Wide(name), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
  BITMAP facts{};
  if (!picture.bitmap || GetObjectW(picture.bitmap.Get(), sizeof facts, &facts) == 0) return {};
  picture.drawn = {facts.bmWidth, facts.bmHeight};
  picture.shown = {MulDiv(facts.bmWidth, dpi_, drawing.dpi), MulDiv(facts.bmHeight, dpi_, drawing.dpi)};
  return picture;
}

const Skin::Picture& Skin::Find(TextView key) {
  const auto known = pictures_.find(Text(key));
  return known != pictures_.end() ? known->second : pictures_.emplace(Text(key), Load(key)).first->second;
}

void Skin::Draw(HDC context, POINT corner, TextView key) {
  const Picture& picture = Find(key);
  if (!picture.bitmap) return;
  const MemoryContext memory(CreateCompatibleDC(context));
  const Selection selected(memory.Get(), picture.bitmap.Get());
  SetStretchBltMode(context, HALFTONE);
  SetBrushOrgEx(context, 0, 0, nullptr);
  StretchBlt(context, corner.x, corner.y, picture.shown.cx, picture.shown.cy, memory.Get(), 0, 0,
             picture.drawn.cx, picture.drawn.cy, SRCCOPY);
}

}  // namespace tavix::win32
