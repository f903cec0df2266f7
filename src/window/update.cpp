#include "window/update.h"

#include "forms/main_form.h"
#include "frame/messages.h"
#include "frame/support/pub_system.h"
#include "frame/support/text_file.h"
#include "platform/dialogs.h"
#include "platform/network.h"
#include "window/addresses.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr int kVersionSeconds = 6;
constexpr int kNotesSeconds = 26;
constexpr int kMaximised = 3;

Text Address(TextView path) { return Concat(ProductSite(), path); }

// The text at the address of `net`; empty where there is none to be had.
Text OpenUrl() {
  if (platform::network == nullptr) return {};
  const InternetTransfer& net = frmPubMain.net;
  const auto answer = platform::network->Fetch(net.URL.Get(), net.RequestTimeout);
  return answer ? DecodeTextFile(*answer).text : Text();
}

int MsgBox(TextView text, int style) {
  return platform::dialogs == nullptr ? platform::kCancel : platform::dialogs->MsgBox(text, style);
}

Text LatestVersion() {
  frmPubMain.net.RequestTimeout = kVersionSeconds;
  return OpenUrl();
}

Text Notes() {
  frmPubMain.net.URL = Address(u"/update.txt");
  frmPubMain.net.RequestTimeout = kNotesSeconds;
  return OpenUrl();
}

// The version text of the window bears a letter in front.
bool IsNewer(const Text& latest) {
  const Text& shown = frmPubMain.lblVer.Caption.Get();
  return !latest.empty() && latest != TextView(shown).substr(shown.empty() ? 0 : 1);
}

void OfferUpdate() {
  const Text notes = Notes();
  const Text question = Concat(GetMessageText(u"UPGRADE"), u"\r\n\r\n", notes);
  if (MsgBox(question, platform::kOkCancel | platform::kQuestion) != platform::kOk) return;
  pubSystem.RunTarget(Address(u"/tavix-setup.exe"), kMaximised);
  frmPubMain.Unload();
}

}  // namespace

void CheckForUpdate() {
  frmPubMain.net.URL = Address(u"/latestver.txt");
  if (IsNewer(LatestVersion())) OfferUpdate();
}

void menhl_Click() {
  frmPubMain.net.URL = Address(u"/latestver.txt");
  if (IsNewer(LatestVersion())) {
    OfferUpdate();
  } else {
    MsgBox(GetMessageText(u"NO_NEWVER"), platform::kInformation);
  }
}

}  // namespace tavix::mdlPubSelf
