#include <algorithm>
#include <array>
#include <numeric>

#include "forms/main_form.h"
#include "frame/settings.h"
#include "platform/screen.h"
#include "window/layout.h"
#include "window/place.h"

namespace tavix {
namespace {

constexpr int kTwipsPerPixel = 15;
constexpr int kGap = 90;
constexpr int kMargin = 140;

// What the two sizes differ in.
struct Geometry {
  int windowWidth, windowHeight;
  int miniLeft, closeLeft;
  int functionsHeight;
};
constexpr Geometry kBig{14895, 11175, 14250, 14550, 6810};
constexpr Geometry kSmall{11529, 8650, 10905, 11205, 4150};

constexpr int kTitleHeight = 1140;
constexpr int kTitleButtonWidth = 255;
constexpr int kTitleButtonHeight = 285;
constexpr int kTitleButtonStep = 300;
constexpr int kTitleButtonTop = 30;

constexpr int kPagesTop = 1230;
constexpr int kPageIcon = 960;
constexpr int kFunctionsLeft = kMargin + kPageIcon + kGap;
constexpr int kFunctionsWidth = 2860;
// The height of lst above trvRes: the seven rows of the Advanced page.
constexpr int kFunctionsAboveScope = 2220;

constexpr int kResultLeft = kFunctionsLeft + kFunctionsWidth + kGap;
constexpr int kToolbarHeight = 375;
constexpr int kToolbarButton = 1290;
constexpr int kCheckAllWidth = 1350;

constexpr int kTextLine = 255;
constexpr int kPanelMargin = 150;
constexpr int kStatusHeight = 720;  // three lines
constexpr int kBarHeight = 270;
constexpr int kJobButtonWidth = 1800;
constexpr int kJobButtonHeight = 600;
constexpr int kBusyLeft = 3300;
constexpr int kBusySize = 700;
constexpr int kBusyAboveScan = 50;

void PutWindow(const Geometry& geometry) {
  MainForm& form = frmPubMain;
  const int screenWidth = platform::screen.Width * kTwipsPerPixel;
  const int screenHeight = platform::screen.Height * kTwipsPerPixel;
  const int top = form.BigInterface ? 100 : (screenHeight - geometry.windowHeight) / 2 - 200;
  Put(form, {(screenWidth - geometry.windowWidth) / 2, top, geometry.windowWidth, geometry.windowHeight});
  Put(form.lblBorder, {0, 0, geometry.windowWidth, geometry.windowHeight});
}

void PutTitle(const Geometry& geometry) {
  MainForm& form = frmPubMain;
  Put(form.picTitle, {0, 0, geometry.windowWidth, kTitleHeight});
  const auto putButton = [](PictureBox& button, int left) {
    Put(button, {left, kTitleButtonTop, kTitleButtonWidth, kTitleButtonHeight});
  };
  putButton(form.picClose, geometry.closeLeft);
  putButton(form.picMini, geometry.miniLeft);
  putButton(form.picCommend, geometry.miniLeft - kTitleButtonStep);
  putButton(form.picHelp, geometry.miniLeft - 2 * kTitleButtonStep);
  const int right = geometry.windowWidth - kMargin;
  Put(form.lblProdLogo, {kMargin, 180, 3600, 780});
  Put(form.lblCompLogo, {right - 2600, 390, 2600, 390});
  Put(form.lblVer, {right - 1200, 810, 1200, kTextLine});
}

void PutFunctions(const Geometry& geometry) {
  MainForm& form = frmPubMain;
  int top = kPagesTop;
  for (PictureBox* page : form.PagePictures()) {
    Put(*page, {kMargin, top, kPageIcon, kPageIcon});
    top = BoundsOf(*page).Bottom() + kGap;
  }
  Put(form.trvPrivacy, {kFunctionsLeft, kPagesTop, kFunctionsWidth, geometry.functionsHeight});
  Put(form.lst, BoundsOf(form.trvPrivacy));
  Put(form.trvRes, {kFunctionsLeft, kPagesTop + kFunctionsAboveScope, kFunctionsWidth,
                    geometry.functionsHeight - kFunctionsAboveScope});
}

void PutResults(const Geometry& geometry) {
  MainForm& form = frmPubMain;
  const int right = geometry.windowWidth - kMargin;
  Put(form.lsvResult,
      {kResultLeft, kPagesTop, right - kResultLeft, geometry.functionsHeight - kGap - kToolbarHeight});
  const int top = BoundsOf(form.lsvResult).Bottom() + kGap;
  Put(form.cbxAll, {kResultLeft, top, kCheckAllWidth, kToolbarHeight});
  int left = right - 4 * kToolbarButton - 3 * kGap;
  for (Button& button : form.sbtToolbar) {
    Put(button, {left, top, kToolbarButton, kToolbarHeight});
    left = BoundsOf(button).Right() + kGap;
  }
}

void PutJobPanel(const Geometry& geometry) {
  MainForm& form = frmPubMain;
  const int top = BoundsOf(form.trvPrivacy).Bottom() + kGap;
  Put(form.lblFrame, {kFunctionsLeft, top, geometry.windowWidth - kMargin - kFunctionsLeft,
                      geometry.windowHeight - kMargin - top});
  const int left = kFunctionsLeft + kPanelMargin;
  const int width = form.lblFrame.Width - 2 * kPanelMargin;
  const int optionTop = top + kPanelMargin + kStatusHeight;
  Put(form.lblProgS, {left, top + kPanelMargin, width, kStatusHeight});
  // The words of the link are in line with the others.
  Put(form.lblOpt, {left - kLinkPadding, optionTop, 1050 + 2 * kLinkPadding, kTextLine});
  const int promptLeft = BoundsOf(form.lblOpt).Right();
  Put(form.lblOptPrompt, {promptLeft, optionTop, left + width - promptLeft, kTextLine});
  const int barTop = optionTop + kTextLine + kGap;
  Put(form.lblProgMO, {left, barTop, width, kBarHeight});
  Put(form.lblProgMI, BoundsOf(form.lblProgMO));
  form.lblProgMI.Width = 0;
  const int factsTop = BoundsOf(form.lblProgMO).Bottom() + kGap;
  Put(form.lblTimeP, {left, factsTop, 900, kTextLine});
  Put(form.lblTime, {BoundsOf(form.lblTimeP).Right(), factsTop, width / 2 - 900, kTextLine});
  Put(form.lblSum, {left + width / 2, factsTop, width - width / 2, kTextLine});

  const int buttonTop = BoundsOf(form.lblFrame).Bottom() - kPanelMargin - kJobButtonHeight;
  Put(form.webGIF, {kBusyLeft, buttonTop - kBusyAboveScan, kBusySize, kBusySize});
  Put(form.sbtScan, {kResultLeft, buttonTop, kJobButtonWidth, kJobButtonHeight});
  Put(form.sbtCancel, BoundsOf(form.sbtScan));
  Put(form.sbtClean, {BoundsOf(form.sbtScan).Right() + kGap, buttonTop, kJobButtonWidth, kJobButtonHeight});
  Put(form.sbtRepair, BoundsOf(form.sbtClean));
}

constexpr int kWordGap = 60;
constexpr int kBox = 300;            // the box of Check All and the gap after it
constexpr int kButtonPadding = 180;  // on each side of a caption, if there is room
constexpr int kLeastPadding = 90;

using Widths = std::array<int, 4>;

int Sum(const Widths& widths) { return std::accumulate(widths.begin(), widths.end(), 0); }

// If there is room, all buttons are as wide as the widest; else each is as wide as its caption needs.
Widths ToolbarWidths(const Widths& captions, int room) {
  const int widest = *std::ranges::max_element(captions) + 2 * kButtonPadding;
  Widths widths;
  widths.fill(std::max(widest, kToolbarButton));
  if (Sum(widths) <= room) return widths;
  const int padding = std::clamp((room - Sum(captions)) / 8, kLeastPadding, kButtonPadding);
  std::ranges::transform(captions, widths.begin(), [&](int caption) { return caption + 2 * padding; });
  return widths;
}

void FitToolbar(const WidthOf& widthOf) {
  MainForm& form = frmPubMain;
  form.cbxAll.Width = kBox + widthOf(form.cbxAll.Caption.Get()) + kWordGap;
  Widths captions{};
  for (size_t i = 0; i < captions.size(); ++i) captions[i] = widthOf(form.sbtToolbar[i].Caption.Get());
  const int right = BoundsOf(form.lsvResult).Right();
  const int room = right - BoundsOf(form.cbxAll).Right() - 4 * kGap;
  const Widths widths = ToolbarWidths(captions, room);
  int left = right - Sum(widths) - 3 * kGap;
  for (size_t i = 0; i < widths.size(); ++i) {
    form.sbtToolbar[i].Left = left;
    form.sbtToolbar[i].Width = widths[i];
    left += widths[i] + kGap;
  }
}

// Makes the first label as wide as its text with the padding at its sides, and starts the second one after
// it; that one keeps its right end.
void FitPair(Label& first, int padding, Label& second, const WidthOf& widthOf) {
  const int right = BoundsOf(second).Right();
  first.Width = widthOf(first.Caption.Get()) + 2 * padding;
  second.Left = BoundsOf(first).Right() - padding + kWordGap;
  second.Width = right - second.Left;
}

}  // namespace

void ChooseInterfaceSize() {
  constexpr int kWidestSmallScreen = 1023;
  const Text& setting = mdlPubSelf::InterfaceSize;
  const bool bigFits = platform::screen.Width > kWidestSmallScreen &&
                       platform::screen.WorkHeight * kTwipsPerPixel >= kBig.windowHeight;
  frmPubMain.BigInterface = setting == u"Big" || (setting == u"Auto" && bigFits);
}

void LayOutMainForm() {
  const Geometry& geometry = frmPubMain.BigInterface ? kBig : kSmall;
  PutWindow(geometry);
  PutTitle(geometry);
  PutFunctions(geometry);
  PutResults(geometry);
  PutJobPanel(geometry);
}

void FitTexts(const WidthOf& widthOf) {
  MainForm& form = frmPubMain;
  FitToolbar(widthOf);
  FitPair(form.lblOpt, kLinkPadding, form.lblOptPrompt, widthOf);
  FitPair(form.lblTimeP, 0, form.lblTime, widthOf);
}

}  // namespace tavix
