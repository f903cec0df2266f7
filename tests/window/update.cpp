#include "window/update.h"

#include "forms/main_form.h"
#include "forms/product.h"
#include "forms/type_form.h"
#include "frame/messages.h"
#include "frame/start_up.h"
#include "platform/dialogs.h"
#include "platform/machine/services/journal.h"
#include "platform/machine/services/machine_dialogs.h"
#include "platform/machine/services/machine_network.h"
#include "platform/network.h"
#include "support/program_test.h"
#include "window/addresses.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr TextView kTexts =
    u"[Message & Text]\r\nUPGRADE=There is a newer one.\r\nNO_NEWVER=You have the latest one.\r\n";

class UpdateCheck : public ProgramTest {
 protected:
  UpdateCheck() {
    machine.files.AddFile(TextCatalogue(), {.content = Narrow(kTexts)});
    frmPubMain.Unload = [this] {
      journalAtUnload = Calls();
      ++unloads;
    };
  }

  void Serve(TextView path, std::string content) {
    machine.network.answers[Concat(ProductSite(), path)] = std::move(content);
  }
  void Serve(std::string latest, std::string notes) {
    Serve(u"/latestver.txt", std::move(latest));
    Serve(u"/update.txt", std::move(notes));
  }

  // The calls to network, message boxes and shell, in order.
  std::vector<std::string> Calls() {
    std::vector<std::string> calls;
    for (const auto& entry : machine.journal.Entries()) calls.push_back(entry.Json());
    return calls;
  }
  std::vector<std::string> CallsByHand() {
    Start();
    machine.journal.Clear();
    machine.network.timeouts.clear();
    frmPubType.menhl.Click();
    return Calls();
  }

  const std::string site = Narrow(ProductSite());
  const std::string fetchVersion = R"({"op":"Fetch","url":")" + site + R"(/latestver.txt"})";
  const std::string fetchNotes = R"({"op":"Fetch","url":")" + site + R"(/update.txt"})";
  const std::string question =
      R"({"op":"MsgBox","text":"There is a newer one.\r\n\r\n* quicker\n* safer","style":33})";
  const std::string download = R"({"op":"RunTarget","target":")" + site + R"(/tavix-setup.exe","style":3})";
  const std::string nothingNew = R"({"op":"MsgBox","text":"You have the latest one.","style":64})";
  const std::string running = Narrow(kProductVersion);

  int unloads = 0;
  std::vector<std::string> journalAtUnload;
};

using Strings = std::vector<std::string>;

TEST_F(UpdateCheck, ANewVersionIsOfferedAtStartAndOkFetchesItAndEndsTheProgram) {
  Serve("9.0.1", "* quicker\n* safer");
  machine.dialogs.answers = {platform::kOk};
  Start();
  EXPECT_EQ(Calls(), (Strings{fetchVersion, fetchNotes, question, download}));
  EXPECT_EQ(unloads, 1);
  EXPECT_EQ(journalAtUnload.back(), download);
  EXPECT_EQ(machine.network.timeouts, (std::vector<int>{6, 26}));
}

TEST_F(UpdateCheck, CancelAtStartLeavesTheProgramStartingAndTheNextStartAsksAgain) {
  Serve("9.0.1", "* quicker\n* safer");
  machine.dialogs.answers = {platform::kCancel, platform::kCancel};
  Start();
  EXPECT_EQ(Calls(), (Strings{fetchVersion, fetchNotes, question}));
  EXPECT_EQ(unloads, 0);
  EXPECT_TRUE(frmPubMain.Loaded);
  EXPECT_GT(frmPubMain.trvPrivacy.NodeCount(), 0);
  Form_Unload();
  ResetProcess();
  machine.journal.Clear();
  Start();
  EXPECT_EQ(Calls(), (Strings{fetchVersion, fetchNotes, question}));
}

TEST_F(UpdateCheck, WithoutANetworkTheStartIsSilentAfterOneFetch) {
  Start();
  EXPECT_EQ(Calls(), Strings{fetchVersion});
  EXPECT_EQ(machine.network.timeouts, std::vector<int>{6});
  EXPECT_TRUE(frmPubMain.Loaded);
}

TEST_F(UpdateCheck, WithoutANetworkServiceTheStartIsSilent) {
  platform::network = platform::noNetwork;
  Start();
  EXPECT_EQ(Calls(), Strings{});
}

TEST_F(UpdateCheck, TheRunningVersionGivesNoPromptAtStartAndABoxByHand) {
  Serve(running, "notes");
  Start();
  EXPECT_EQ(Calls(), Strings{fetchVersion});
  EXPECT_EQ(CallsByHand(), (Strings{fetchVersion, nothingNew}));
}

TEST_F(UpdateCheck, AnEmptyVersionGivesNoPromptAtStartAndABoxByHand) {
  Serve("", "notes");
  Start();
  EXPECT_EQ(Calls(), Strings{fetchVersion});
  EXPECT_EQ(CallsByHand(), (Strings{fetchVersion, nothingNew}));
}

TEST_F(UpdateCheck, AFailedFetchByHandGivesTheSameBoxAsNoNewVersion) {
  EXPECT_EQ(CallsByHand(), (Strings{fetchVersion, nothingNew}));
  EXPECT_EQ(machine.network.timeouts, std::vector<int>{6});
  EXPECT_EQ(unloads, 0);
}

TEST_F(UpdateCheck, ByHandANewVersionIsOfferedAsAtStart) {
  machine.dialogs.answers = {platform::kOk};
  Start();
  machine.journal.Clear();
  machine.network.timeouts.clear();
  Serve("9.0.1", "* quicker\n* safer");
  frmPubType.menhl.Click();
  EXPECT_EQ(Calls(), (Strings{fetchVersion, fetchNotes, question, download}));
  EXPECT_EQ(machine.network.timeouts, (std::vector<int>{6, 26}));
  EXPECT_EQ(unloads, 1);
}

TEST_F(UpdateCheck, ByHandAgainAsksForTheVersionFirstAgain) {
  Serve("9.0.1", "* quicker\n* safer");
  machine.dialogs.answers = {platform::kCancel, platform::kCancel, platform::kCancel};
  EXPECT_EQ(CallsByHand(), (Strings{fetchVersion, fetchNotes, question}));
  machine.journal.Clear();
  frmPubType.menhl.Click();
  EXPECT_EQ(Calls(), (Strings{fetchVersion, fetchNotes, question}));
}

TEST_F(UpdateCheck, WithoutNotesTheBoxShowsOnlyTheMessage) {
  Serve(u"/latestver.txt", "9.0.1");
  machine.dialogs.answers = {platform::kCancel};
  Start();
  ASSERT_EQ(machine.journal.Entries().size(), 3U);
  EXPECT_EQ(machine.journal.Entries()[2].Get(u"text"), u"There is a newer one.\r\n\r\n");
}

TEST_F(UpdateCheck, NotesThatDontComeInTimeAreLeftOut) {
  // A network that knows the version at once, and takes all the time that it is given for the notes.
  struct SlowNotes : platform::Network {
    SlowNotes() { platform::network = this; }
    std::optional<std::string> Fetch(TextView url, int timeoutSeconds) override {
      if (url.ends_with(u"/latestver.txt")) return "9.0.1";
      waited += timeoutSeconds;
      return std::nullopt;
    }
    int waited = 0;
  } network;
  machine.dialogs.answers = {platform::kCancel};
  Start();
  EXPECT_EQ(network.waited, 26);
  EXPECT_EQ(machine.journal.Entries().back().Get(u"text"), u"There is a newer one.\r\n\r\n");
}

TEST_F(UpdateCheck, WithoutTheCatalogueTheNotesAreShownAll) {
  machine.files.DeleteFile(TextCatalogue(), true);
  Serve("9.0.1", "notes");
  machine.dialogs.answers = {platform::kCancel};
  Start();
  EXPECT_EQ(machine.journal.Entries().back().Get(u"text"), u"\r\n\r\nnotes");
}

TEST_F(UpdateCheck, EveryShortPlainTextButTheRunningVersionCountsAsNewer) {
  for (const std::string& latest :
       {std::string("0.0.1"), running + "\r\n", running + "\n", running + " ", " " + running, "v" + running,
        std::string(64, '9'), std::string("caf\xC3\xA9")}) {
    machine.journal.Clear();
    machine.dialogs.answers = {platform::kCancel};
    Serve(latest, "notes");
    CheckForUpdate();
    EXPECT_EQ(Calls().size(), 3U) << latest;
  }
}

TEST_F(UpdateCheck, WhatIsNoShortPlainTextIsAFailedFetch) {
  Start();
  for (const std::string& latest :
       {std::string("<html>Welcome to the hotel</html>"), std::string("9.0.1<"), std::string(65, '9'),
        "9.0.1" + std::string(1, '\0'), std::string("9.0.1\t"), std::string("\x1B[2J"), std::string("9\x7F"),
        std::string("9.0.1\xC2\x85"), std::string("\xFF\xFE", 2) + "9"}) {
    machine.journal.Clear();
    Serve(latest, "notes");
    CheckForUpdate();
    EXPECT_EQ(Calls(), Strings{fetchVersion}) << latest;
    machine.journal.Clear();
    frmPubType.menhl.Click();
    EXPECT_EQ(Calls(), (Strings{fetchVersion, nothingNew})) << latest;
  }
}

TEST_F(UpdateCheck, TheVersionIsReadInEveryUsualEncoding) {
  std::string wide("\xFF\xFE", 2);
  for (const char c : running) wide += {c, '\0'};
  for (const std::string& latest : {running, "\xEF\xBB\xBF" + running, wide}) {
    Serve(latest, "notes");
    EXPECT_EQ(CallsByHand(), (Strings{fetchVersion, nothingNew})) << latest;
    Form_Unload();
  }
}

TEST_F(UpdateCheck, NotesOfAnyBytesAreShownAsText) {
  struct Case {
    std::string bytes;
    Text shown;
  };
  const Case cases[] = {
      {"caf\xC3\xA9", u"café"},
      {"caf\xE9", u"café"},
      {std::string("\xFF\xFE\xE9\x00\xE9", 5), u"é"},
      {"one\r\n\ttwo\nthree", u"one\r\n two\nthree"},
      {std::string("one\0two", 7), u"onetwo"},
      {"\x80\xFE\xFF", u"\u20ACþÿ"},
      {"%s%n\x1B[2J\x07\x7F", u"%s%n[2J"},
      // Next line; right-to-left override, marks and isolates.
      {"a\xC2\x85z", u"az"},
      {"exe.\xE2\x80\xAEtxt\xE2\x80\xAC", u"exe.txt"},
      {"\xE2\x80\x8E\xE2\x80\x8F\xD8\x9C\xE2\x81\xA6x\xE2\x81\xA9", u"x"},
      {std::string(1 << 20, 'x'), Text(1 << 20, u'x')},
  };
  Start();
  for (const Case& c : cases) {
    Serve("9.0.1", c.bytes);
    machine.dialogs.answers = {platform::kCancel};
    frmPubType.menhl.Click();
    EXPECT_EQ(machine.journal.Entries().back().Get(u"text"),
              Concat(u"There is a newer one.\r\n\r\n", c.shown));
  }
}

TEST_F(UpdateCheck, TheRunningVersionIsWhatTheWindowShows) {
  Start();
  frmPubMain.lblVer.Caption = u"x9.0.1";
  Serve("9.0.1", "notes");
  EXPECT_EQ(frmPubMain.lblVer.Caption, u"x9.0.1");
  machine.journal.Clear();
  frmPubType.menhl.Click();
  EXPECT_EQ(Calls(), (Strings{fetchVersion, nothingNew}));
  frmPubMain.lblVer.Caption = u"";
  machine.dialogs.answers = {platform::kCancel};
  machine.journal.Clear();
  frmPubType.menhl.Click();
  EXPECT_EQ(Calls().size(), 3U);
}

TEST_F(UpdateCheck, TheCheckIsTheLastStepOfTheStart) {
  Serve("9.0.1", "notes");
  bool ready = false;
  struct Watch : ControlPeer {
    std::function<void()> changed;
    void ModelChanged() override { changed(); }
  } watch;
  // The check sets the address that it fetches. By then the rest of the start must be done.
  watch.changed = [&] {
    ready = frmPubMain.webGIF.Address != u"" && frmPubMain.trvPrivacy.NodeCount() > 0 && frmPubMain.Width > 0;
  };
  frmPubMain.net.peer = &watch;
  machine.dialogs.answers = {platform::kCancel};
  Start();
  frmPubMain.net.peer = nullptr;
  EXPECT_TRUE(ready);
}

TEST_F(UpdateCheck, EndingTheProgramAtStartEmptiesTheScratchFoldersAndReleasesTheServices) {
  Serve("9.0.1", "notes");
  machine.files.AddFolder(u"C:\\");
  machine.dialogs.answers = {platform::kOk};
  frmPubMain.Unload = Form_Unload;
  Start();
  EXPECT_FALSE(frmPubMain.Loaded);
  EXPECT_EQ(machine.files.FolderExists(u"C:\\MORVDataPath\\TVX\\DupeFiles\\scanned\\A"), true);
}

}  // namespace
}  // namespace tavix::mdlPubSelf
