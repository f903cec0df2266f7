#include "window/layout.h"

#include "forms/main_form.h"
#include "frame/settings.h"
#include "platform/screen.h"

namespace tavix {
namespace {

constexpr int kTwipsPerPixel = 15;
constexpr int kGap = 90;
constexpr int kMargin = 140;

// What differs between the two sizes.
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
// So much of lst stays free above trvRes: the seven rows of the Advanced page.
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

int Right(const Control& control) { return control.Left + control.Width; }
int Bottom(const Control& control) { return control.Top + control.Height; }

void Place(Control& control, int left, int top, int width, int height) {
  control.Left = left;
  control.Top = top;
  control.Width = width;
  control.Height = height;
}

void PlaceOn(Control& control, const Control& other) {
  Place(control, other.Left, other.Top, other.Width, other.Height);
}

void PlaceWindow(const Geometry& geometry) {
  MainForm& form = frmPubMain;
  const int screenWidth = platform::screen.Width * kTwipsPerPixel;
  const int screenHeight = platform::screen.Height * kTwipsPerPixel;
  const int top = form.BigInterface ? 100 : (screenHeight - geometry.windowHeight) / 2 - 200;
  Place(form, (screenWidth - geometry.windowWidth) / 2, top, geometry.windowWidth, geometry.windowHeight);
  Place(form.lblBorder, 0, 0, geometry.windowWidth, geometry.windowHeight);
}

void PlaceTitle(const Geometry& geometry) {
  MainForm& form = frmPubMain;
  Place(form.picTitle, 0, 0, geometry.windowWidth, kTitleHeight);
  const auto placeButton = [](PictureBox& button, int left) {
    Place(button, left, kTitleButtonTop, kTitleButtonWidth, kTitleButtonHeight);
  };
  placeButton(form.picClose, geometry.closeLeft);
  placeButton(form.picMini, geometry.miniLeft);
  placeButton(form.picCommend, geometry.miniLeft - kTitleButtonStep);
  placeButton(form.picHelp, geometry.miniLeft - 2 * kTitleButtonStep);
  const int right = geometry.windowWidth - kMargin;
  Place(form.lblProdLogo, kMargin, 180, 3600, 780);
  Place(form.lblCompLogo, right - 2600, 390, 2600, 390);
  Place(form.lblVer, right - 1200, 810, 1200, kTextLine);
}

void PlaceFunctions(const Geometry& geometry) {
  MainForm& form = frmPubMain;
  int top = kPagesTop;
  for (PictureBox* page : form.PagePictures()) {
    Place(*page, kMargin, top, kPageIcon, kPageIcon);
    top = Bottom(*page) + kGap;
  }
  Place(form.trvPrivacy, kFunctionsLeft, kPagesTop, kFunctionsWidth, geometry.functionsHeight);
  PlaceOn(form.lst, form.trvPrivacy);
  Place(form.trvRes, kFunctionsLeft, kPagesTop + kFunctionsAboveScope, kFunctionsWidth,
        geometry.functionsHeight - kFunctionsAboveScope);
}

void PlaceResults(const Geometry& geometry) {
  MainForm& form = frmPubMain;
  const int right = geometry.windowWidth - kMargin;
  Place(form.lsvResult, kResultLeft, kPagesTop, right - kResultLeft,
        geometry.functionsHeight - kGap - kToolbarHeight);
  const int top = Bottom(form.lsvResult) + kGap;
  Place(form.cbxAll, kResultLeft, top, kCheckAllWidth, kToolbarHeight);
  int left = right - 4 * kToolbarButton - 3 * kGap;
  for (Button& button : form.sbtToolbar) {
    Place(button, left, top, kToolbarButton, kToolbarHeight);
    left = Right(button) + kGap;
  }
}

void PlaceJobPanel(const Geometry& geometry) {
  MainForm& form = frmPubMain;
  const int top = Bottom(form.trvPrivacy) + kGap;
  Place(form.lblFrame, kFunctionsLeft, top, geometry.windowWidth - kMargin - kFunctionsLeft,
        geometry.windowHeight - kMargin - top);
  const int left = kFunctionsLeft + kPanelMargin;
  const int width = form.lblFrame.Width - 2 * kPanelMargin;
  const int optionTop = top + kPanelMargin + kStatusHeight;
  Place(form.lblProgS, left, top + kPanelMargin, width, kStatusHeight);
  Place(form.lblOpt, left, optionTop, 1050, kTextLine);
  Place(form.lblOptPrompt, Right(form.lblOpt), optionTop, width - form.lblOpt.Width, kTextLine);
  const int barTop = optionTop + kTextLine + kGap;
  Place(form.lblProgMO, left, barTop, width, kBarHeight);
  PlaceOn(form.lblProgMI, form.lblProgMO);
  form.lblProgMI.Width = 0;
  const int factsTop = Bottom(form.lblProgMO) + kGap;
  Place(form.lblTimeP, left, factsTop, 900, kTextLine);
  Place(form.lblTime, Right(form.lblTimeP), factsTop, width / 2 - 900, kTextLine);
  Place(form.lblSum, left + width / 2, factsTop, width - width / 2, kTextLine);

  const int buttonTop = Bottom(form.lblFrame) - kPanelMargin - kJobButtonHeight;
  Place(form.webGIF, kBusyLeft, buttonTop - kBusyAboveScan, kBusySize, kBusySize);
  Place(form.sbtScan, kResultLeft, buttonTop, kJobButtonWidth, kJobButtonHeight);
  PlaceOn(form.sbtCancel, form.sbtScan);
  Place(form.sbtClean, Right(form.sbtScan) + kGap, buttonTop, kJobButtonWidth, kJobButtonHeight);
  PlaceOn(form.sbtRepair, form.sbtClean);
}

}  // namespace

void ChooseInterfaceSize() {
  constexpr int kWidestSmallScreen = 1023;
  const Text& setting = mdlPubSelf::InterfaceSize;
  frmPubMain.BigInterface =
      setting == u"Big" || (setting == u"Auto" && platform::screen.Width > kWidestSmallScreen);
}

void LayOutMainForm() {
  const Geometry& geometry = frmPubMain.BigInterface ? kBig : kSmall;
  PlaceWindow(geometry);
  PlaceTitle(geometry);
  PlaceFunctions(geometry);
  PlaceResults(geometry);
  PlaceJobPanel(geometry);
}

}  // namespace tavix
