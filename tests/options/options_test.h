#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "forms/options_form.h"
#include "forms/type_form.h"
#include "frame/data_paths.h"
#include "frame/messages.h"
#include "frame/settings.h"
#include "platform/dialogs.h"
#include "platform/machine/services/journal.h"
#include "support/program_test.h"
#include "support/source_folder.h"

namespace tavix::mdlPubSelf {

// The program over a machine in memory, with the English texts and a simulated user at the options window.
class OptionsTest : public ProgramTest {
 protected:
  OptionsTest() {
    SetWindows();
    SetUserTemp(u"C:\\Temp");
    SetSystemTemp(u"C:\\WINDOWS\\Temp");
    SetCache(u"C:\\Cache");
    SetCookies(u"C:\\Cookies");
    machine.files.AddFolder(u"C:\\TVXBak");
    UseLanguage("en");
  }

  void UseLanguage(const char* language) {
    const std::filesystem::path folder = std::filesystem::path(SourceFolder()) / "res" / "lang" / language;
    for (const auto& [name, catalogue] :
         {std::pair("tips.dll", TextCatalogue()), {"menus.dll", MenuCatalogue()}}) {
      std::ifstream file(folder / name, std::ios::binary);
      machine.files.AddFile(catalogue, {.content = std::string(std::istreambuf_iterator<char>(file), {})});
    }
  }

  // Starts the program if it is not running, and opens the window at a page.
  void Open(int16_t page = 1) {
    if (!IsStarted()) Start();
    WireTypeWindow();
    frmPubOptions.piPage = page;
    frmPubOptions.LoadOnce();
    frmPubOptions.Resize();
  }
  static void Close() {
    frmPubOptions.sbtClose.Click();
    frmPubOptions.Loaded = false;
  }

  // What the user does in the window that asks for a type, the next time it is shown.
  void InTypeWindow(std::function<void()> user) { inTypeWindow_ = std::move(user); }
  static void EnterType(TextView description, TextView pattern) {
    frmPubType.txt[0].Text = Text(description);
    frmPubType.txt[1].Text = Text(pattern);
  }

  // Moves the focus from a box to another control. The other control gets it before the box loses it.
  static void Leave(TextBox& box, Control& to = frmPubOptions.sbtSave) {
    frmPubOptions.ActiveControl = &to;
    box.LostFocus();
  }
  // Keys pressed in a box with all its text selected.
  static void Type(TextBox& box, TextView keys) {
    box.GotFocus();
    Text text = box.SelLength == static_cast<int>(box.Text.Get().size()) ? Text() : box.Text.Get();
    for (int key : keys) {
      box.KeyPress(key);
      if (key != 0) text += static_cast<char16_t>(key);
    }
    box.Text = text;
  }

  // Texts and styles of the message boxes so far.
  std::vector<std::pair<Text, int>> Messages() {
    std::vector<std::pair<Text, int>> messages;
    for (const machine::JournalEntry& entry : machine.journal.Entries()) {
      if (entry.op != u"MsgBox") continue;
      messages.emplace_back(entry.Get(u"text"), std::get<int>(entry.arguments[1].second));
    }
    return messages;
  }
  static std::pair<Text, int> Information(TextView text) { return {Text(text), platform::kInformation}; }
  static std::pair<Text, int> InformationOf(TextView key) { return Information(GetMessageText(key)); }

  std::string File(TextView path) { return machine.files.ReadFile(path).value_or("missing"); }
  std::string SettingsFile() { return File(kSettingsFile); }
  void WriteSettings(std::string content) {
    machine.files.AddFile(kSettingsFile, {.content = std::move(content)});
  }
  void WriteUserTypes(std::string content) {
    machine.files.AddFile(kUserJunkFile, {.content = std::move(content)});
  }

  static int JunkRow(TextView pattern) {
    ListView& list = frmPubOptions.lsvJF;
    for (int row = 1; row <= list.Count(); ++row) {
      if (list.Row(row).SubItems(1) == pattern) return row;
    }
    return 0;
  }
  // Clicks on rows of the list of junk types, from the second on with Ctrl held.
  static void ClickTypes(std::initializer_list<TextView> patterns) {
    ListView& list = frmPubOptions.lsvJF;
    list.SelectAll(false);
    for (const TextView pattern : patterns) {
      list.FocusRow(JunkRow(pattern));
      list.Row(JunkRow(pattern)).SetSelected(true);
      list.ItemClick();
    }
  }

 private:
  void WireTypeWindow() {
    frmPubType.ShowModal = [this] {
      frmPubType.LoadOnce();
      if (inTypeWindow_) inTypeWindow_();
      frmPubType.Loaded = false;
    };
  }

  std::function<void()> inTypeWindow_;
};

}  // namespace tavix::mdlPubSelf
