#include "window/update.h"

#include <algorithm>

#include "forms/main_form.h"
#include "frame/messages.h"
#include "frame/support/pub_system.h"
#include "platform/dialogs.h"
#include "platform/network.h"
#include "text/text_file.h"
#include "window/addresses.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr int kVersionSeconds = 6;
constexpr int kNotesSeconds = 26;

Text Address(TextView path) { return Concat(ProductSite(), path); }

bool IsLineEnd(char16_t c) { return c == u'\r' || c == u'\n'; }

bool IsControl(char16_t c) { return c < 0x20 || (c >= 0x7F && c <= 0x9F); }

// Characters that change the direction of reading: a line with one is shown in another order than it is
// stored.
bool IsBidirectional(char16_t c) {
  return c == 0x061C || c == 0x200E || c == 0x200F || (c >= 0x202A && c <= 0x202E) ||
         (c >= 0x2066 && c <= 0x2069);
}

// Whether a text can be a version. The sign-in page of a network can't.
bool CanBeVersion(TextView text) {
  constexpr size_t kMost = 64;
  return text.size() <= kMost &&
         std::ranges::none_of(text, [](char16_t c) { return c == u'<' || (IsControl(c) && !IsLineEnd(c)); });
}

// What is shown of a text that others wrote. Tabs become blanks.
Text Harmless(TextView text) {
  Text harmless;
  harmless.reserve(text.size());
  for (const char16_t c : text) {
    if (c == u'\t') {
      harmless += u' ';
    } else if (IsLineEnd(c) || (!IsControl(c) && !IsBidirectional(c))) {
      harmless += c;
    }
  }
  return harmless;
}

// The text at the address of `net`; empty if the download fails.
Text OpenUrl() {
  const InternetTransfer& net = frmPubMain.net;
  const auto answer = platform::network->Fetch(net.URL.Get(), net.RequestTimeout);
  return answer ? DecodeTextFile(*answer).text : Text();
}

int MsgBox(TextView text, int style) { return platform::dialogs->MsgBox(text, style); }

Text LatestVersion() {
  frmPubMain.net.RequestTimeout = kVersionSeconds;
  Text text = OpenUrl();
  return CanBeVersion(text) ? text : Text();
}

Text Notes() {
  frmPubMain.net.URL = Address(u"/update.txt");
  frmPubMain.net.RequestTimeout = kNotesSeconds;
  return Harmless(OpenUrl());
}

// The version label starts with the letter v.
bool IsNewer(const Text& latest) {
  const Text& shown = frmPubMain.lblVer.Caption.Get();
  return !latest.empty() && latest != TextView(shown).substr(shown.empty() ? 0 : 1);
}

void OfferUpdate() {
  const Text notes = Notes();
  const Text question = Concat(GetMessageText(u"UPGRADE"), u"\r\n\r\n", notes);
  if (MsgBox(question, platform::kOkCancel | platform::kQuestion) != platform::kOk) return;
  pubSystem.RunTarget(Address(u"/tavix-setup.exe"), platform::kMaximized);
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
