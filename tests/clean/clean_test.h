#pragma once

#include "clean/clean_driver.h"
#include "forms/main_form.h"
#include "frame/settings.h"
#include "platform/machine/services/journal.h"
#include "scan/result_items.h"
#include "support/program_test.h"

namespace tavix::mdlPubSelf {

// Starts the program over a machine in memory. Tests put their files into C:\Work.
class CleanTest : public ProgramTest {
 protected:
  CleanTest() {
    machine.files.AddFolder(u"C:\\Work");
    Start();
    frmPubMain.lblProgMO.Width = 3000;
    machine.journal.Clear();
  }

  static void Add(TextView tag, TextView location = u"Registry", TextView name = u"n",
                  TextView size = u"N/A") {
    AddResultItem(u"t", name, size, location, kNoSizeKey, tag);
  }
  void AddFileRow(TextView name, TextView size = u"2.") {
    machine.files.AddFile(Concat(u"C:\\Work\\", name), {.content = std::string(2048, 'x')});
    Add(u"F", u"C:\\Work", name, size);
  }
  void AddFolderRow(TextView name) {
    machine.files.AddFolder(Concat(u"C:\\Work\\", name));
    Add(u"P", u"C:\\Work", name, u"0.");
  }
  bool FileThere(TextView path) { return machine.files.FileExists(path) == true; }
  bool FolderThere(TextView path) { return machine.files.FolderExists(path) == true; }
  static Text Sum() { return frmPubMain.lblSum.Caption; }
  std::vector<Text> Calls() const {
    std::vector<Text> calls;
    for (const auto& entry : machine.journal.Entries()) calls.push_back(entry.op);
    return calls;
  }
};

}  // namespace tavix::mdlPubSelf
