#include "window/win32/marks.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "window/win32/paint.h"

namespace tavix::win32 {
namespace {

// Twips.
constexpr int kImageWidth = 240;
constexpr int kRing = 195;

//--- Boxes

// Lengths are in units of a box 13 wide, with the origin in the middle.
constexpr double kHalf = 6.5;
constexpr double kCorner = 2;
constexpr double kLine = 1;

struct Point {
  double x, y;
};

// The distance to the edge of a square with round corners; negative inside.
double ToBox(Point p, double half, double corner) {
  const double x = std::abs(p.x) - half + corner;
  const double y = std::abs(p.y) - half + corner;
  return std::hypot(std::max(x, 0.0), std::max(y, 0.0)) + std::min(std::max(x, y), 0.0) - corner;
}

// To a line without width.
double ToStroke(Point p, Point from, Point to) {
  const Point along{to.x - from.x, to.y - from.y};
  const double part =
      ((p.x - from.x) * along.x + (p.y - from.y) * along.y) / (along.x * along.x + along.y * along.y);
  const double t = std::clamp(part, 0.0, 1.0);
  return std::hypot(p.x - from.x - t * along.x, p.y - from.y - t * along.y);
}

// To the check mark, likewise.
double ToMark(Point p) {
  constexpr Point kStart{-3.2, 0.2}, kBottom{-0.9, 2.5}, kEnd{3.4, -2.3};
  return std::min(ToStroke(p, kStart, kBottom), ToStroke(p, kBottom, kEnd)) - 0.9;
}

// The colour of a point and how much of it a box covers, 0 to 1.
struct Shade {
  COLORREF color;
  double coverage;
};

// `pixel` is the length of a pixel.
double Cover(double distance, double pixel) { return std::clamp(0.5 - distance / pixel, 0.0, 1.0); }

COLORREF Mix(COLORREF under, COLORREF over, double part) {
  const auto mix = [&](int shift) {
    const int low = static_cast<int>(under >> shift & 0xFF), high = static_cast<int>(over >> shift & 0xFF);
    return static_cast<COLORREF>(std::lround(low + (high - low) * part)) << shift;
  };
  return mix(0) | mix(8) | mix(16);
}

Shade ShadeAt(Point p, double pixel, const Palette& colors, Tick tick, bool enabled) {
  const double edge = ToBox(p, kHalf, kCorner);
  const COLORREF line = enabled ? colors.buttonLine : colors.line;
  const COLORREF strong = enabled ? colors.accent : colors.line;
  const double within = Cover(edge + std::max(kLine, pixel), pixel);
  Shade shade{Mix(line, colors.panel, within), Cover(edge, pixel)};
  if (tick == Tick::kWhole) {
    shade.color = Mix(strong, colors.accentText, Cover(ToMark(p), pixel));
  } else if (tick == Tick::kPart) {
    shade.color = Mix(shade.color, strong, Cover(ToBox(p, 3.2, 0.8), pixel));
  }
  return shade;
}

template <class Visit>
void ForEachPixel(SIZE size, int dpi, const Visit& visit) {
  const double pixel = 96.0 / dpi;
  for (int y = 0; y < size.cy; ++y) {
    for (int x = 0; x < size.cx; ++x) {
      // Starts at a whole pixel: straight edges stay sharp.
      const int left = (size.cx - std::lround(2 * kHalf / pixel)) / 2;
      const int top = (size.cy - std::lround(2 * kHalf / pixel)) / 2;
      visit(y * size.cx + x, Point{(x - left + 0.5) * pixel - kHalf, (y - top + 0.5) * pixel - kHalf}, pixel);
    }
  }
}

Bitmap MakeTick(const WindowContext& context, SIZE size, Tick tick) {
  uint32_t* pixels = nullptr;
  Bitmap bitmap = MakePicture(size, pixels);
  if (pixels == nullptr) return bitmap;
  ForEachPixel(size, context.dpi, [&](int at, Point p, double pixel) {
    const Shade shade = ShadeAt(p, pixel, context.colors, tick, true);
    const auto alpha = static_cast<uint32_t>(std::lround(shade.coverage * 255));
    pixels[at] =
        alpha << 24 | GetRValue(shade.color) << 16 | GetGValue(shade.color) << 8 | GetBValue(shade.color);
  });
  return bitmap;
}

//--- Rings

// Filled circles. They are drawn larger and scaled down, which smooths their edges.
class Rings {
 public:
  Rings(HDC screen, int size, COLORREF background)
      : size_(size),
        memory_(CreateCompatibleDC(screen)),
        bitmap_(Make(screen)),
        selected_(memory_.Get(), bitmap_.Get()) {
    FillArea(memory_.Get(), {0, 0, size * kFiner, size * kFiner}, background);
  }
  // `inset` in pixels of the screen.
  void Fill(COLORREF color, double inset) const {
    const Selection pen(memory_.Get(), GetStockObject(NULL_PEN));
    const Selection brush(memory_.Get(), GetStockObject(DC_BRUSH));
    SetDCBrushColor(memory_.Get(), color);
    const int from = static_cast<int>(inset * kFiner);
    const int to = size_ * kFiner - from + 1;
    Ellipse(memory_.Get(), from, from, to, to);
  }
  void Show(HDC screen, POINT corner) const {
    SetStretchBltMode(screen, HALFTONE);
    SetBrushOrgEx(screen, 0, 0, nullptr);
    StretchBlt(screen, corner.x, corner.y, size_, size_, memory_.Get(), 0, 0, size_ * kFiner, size_ * kFiner,
               SRCCOPY);
  }

 private:
  static constexpr int kFiner = 8;
  Bitmap Make(HDC screen) const {
    return Bitmap(CreateCompatibleBitmap(screen, size_ * kFiner, size_ * kFiner));
  }
  int size_;
  MemoryContext memory_;
  Bitmap bitmap_;
  Selection selected_;
};

}  // namespace

int TickWidth(const WindowContext& context) { return context.Pixels(kImageWidth); }

ImageList MakeTickImages(const WindowContext& context, int height, bool leading) {
  const SIZE size{TickWidth(context), height};
  ImageList images(ImageList_Create(size.cx, size.cy, ILC_COLOR32, 4, 0));
  const auto add = [&](Tick tick) {
    ImageList_Add(images.Get(), MakeTick(context, size, tick).Get(), nullptr);
  };
  if (leading) add(Tick::kNone);
  for (const Tick tick : {Tick::kNone, Tick::kWhole, Tick::kPart}) add(tick);
  return images;
}

void DrawTick(HDC context, const WindowContext& window, const RECT& area, Tick tick, bool enabled) {
  const SIZE size{TickWidth(window), area.bottom - area.top};
  ForEachPixel(size, window.dpi, [&](int at, Point p, double pixel) {
    const Shade shade = ShadeAt(p, pixel, window.colors, tick, enabled);
    const int x = area.left + at % static_cast<int>(size.cx), y = area.top + at / static_cast<int>(size.cx);
    if (shade.coverage > 0)
      SetPixelV(context, x, y, Mix(GetPixel(context, x, y), shade.color, shade.coverage));
  });
}

void DrawRing(HDC screen, const WindowContext& context, const RECT& area, bool marked, bool enabled) {
  const Palette& colors = context.colors;
  const int size = context.Pixels(kRing);
  const double pixel = context.dpi / 96.0;
  const Rings rings(screen, size, colors.background);
  const COLORREF strong = enabled ? colors.accent : colors.faintText;
  rings.Fill(marked ? strong : enabled ? colors.buttonLine : colors.line, 0);
  if (!marked) rings.Fill(enabled ? colors.panel : colors.background, pixel);
  if (marked) rings.Fill(colors.accentText, 4 * pixel);
  rings.Show(screen, {area.left + (TickWidth(context) - size) / 2, (area.top + area.bottom - size) / 2});
}

void AddBlankImage(const ImageList& images, int width, int height) {
  const size_t line = static_cast<size_t>(width + 15) / 16 * 2;
  const size_t bytes = line * static_cast<size_t>(height);
  const Bitmap picture(CreateBitmap(width, height, 1, 1, std::vector<BYTE>(bytes, 0).data()));
  const Bitmap mask(CreateBitmap(width, height, 1, 1, std::vector<BYTE>(bytes, 0xFF).data()));
  ImageList_Add(images.Get(), picture.Get(), mask.Get());
}

ImageList MakeBlankImages(int width, int height) {
  ImageList images(ImageList_Create(width, height, ILC_COLOR | ILC_MASK, 1, 0));
  AddBlankImage(images, width, height);
  return images;
}

}  // namespace tavix::win32
