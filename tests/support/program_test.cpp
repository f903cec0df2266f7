#include "support/program_test.h"

#include <memory>
#include <ostream>

#include "forms/about_form.h"
#include "forms/main_form.h"
#include "forms/options_form.h"
#include "forms/type_form.h"
#include "frame/settings.h"
#include "frame/start_up.h"
#include "frame/support/file_system_object.h"
#include "frame/support/pub_common.h"
#include "frame/support/pub_file.h"
#include "frame/support/pub_registry.h"
#include "frame/support/pub_system.h"
#include "frame/support/shell_object.h"
#include "junk/junk_definitions.h"
#include "platform/event_queue.h"
#include "platform/machine/formats/machine_facts.h"
#include "platform/machine/services/machine_registry.h"
#include "scan/result_items.h"
#include "scan/scan_driver.h"
#include "scan/scan_function.h"
#include "text/utf8.h"
#include "window/wiring.h"

namespace tavix {

namespace {

template <class T>
void Renew(T& object) {
  std::destroy_at(&object);
  std::construct_at(&object);
}

}  // namespace

void ResetProcess() {
  Renew(frmPubMain);
  Renew(frmPubOptions);
  Renew(frmPubType);
  Renew(frmPubAbout);
  platform::eventQueue = platform::noEventQueue;
  mdlPubSelf::pubSystem = {};
  mdlPubSelf::pubCommon = {};
  mdlPubSelf::pubRegistry = {};
  mdlPubSelf::pubFile = {};
  mdlPubSelf::fileSystemObject = {};
  mdlPubSelf::shellObject = {};
  mdlPubSelf::frameSteps = {};
  mdlPubSelf::CancelRequested = false;
  mdlPubSelf::ProgressStep = 0;
  mdlPubSelf::ClearSettings();
  mdlPubSelf::advancedScan = nullptr;
  mdlPubSelf::JunkPatternChunks.clear();
  mdlPubSelf::JunkTypes.clear();
}

std::string Narrow(TextView text) { return ToUtf8(text); }

void PrintTo(const RowFields& row, std::ostream* out) {
  for (const Text& field : {row.type, row.name, row.size, row.location, row.sizeKey, row.tag}) {
    *out << '"' << Narrow(field) << "\" ";
  }
  *out << (row.checked ? "checked" : "unchecked");
}

std::vector<RowFields> ResultRows() {
  using namespace mdlPubSelf;
  std::vector<RowFields> rows;
  for (int row = 1; row <= ResultCount(); ++row) {
    const ListView::Item item = frmPubMain.lsvResult.Row(row);
    rows.push_back({Text(item.Text()), Text(item.SubItems(kNameColumn)), Text(item.SubItems(kSizeColumn)),
                    Text(item.SubItems(kLocationColumn)), Text(item.SubItems(kSizeKeyColumn)),
                    Text(item.Tag()), item.Checked()});
  }
  return rows;
}

void ProgramTest::Start() {
  WireForms();
  mdlPubSelf::Form_Load();
}

bool ProgramTest::IsStarted() { return frmPubMain.Loaded; }

void ProgramTest::Seed(platform::Hive hive, TextView key, TextView name, TextView data) {
  machineRegistry.WriteString(hive, key, name, data);
}

void ProgramTest::SetWindows(TextView folder) { machine.facts.Set(u"Environment", u"WinDir", folder); }
void ProgramTest::SetUserTemp(TextView folder) { machine.facts.Set(u"Temporary Folders", u"User", folder); }
void ProgramTest::SetSystemTemp(TextView folder) {
  machine.facts.Set(u"Temporary Folders", u"System", folder);
}
void ProgramTest::SetSystemFolder(TextView folder) { machine.facts.Set(u"Folders", u"9966", folder); }
void ProgramTest::SetProgramFiles(TextView folder) { machine.facts.Set(u"Folders", u"38", folder); }
void ProgramTest::SetCache(TextView folder) { machine.facts.Set(u"Folders", u"32", folder); }
void ProgramTest::SetCookies(TextView folder) { machine.facts.Set(u"Folders", u"33", folder); }
void ProgramTest::SetHistory(TextView folder) { machine.facts.Set(u"Folders", u"34", folder); }
void ProgramTest::SetSpecialFolder(TextView name, TextView folder) {
  machine.facts.Set(u"Special Folders", name, folder);
}
void ProgramTest::SetDrive(TextView letter, TextView description) {
  machine.facts.Set(u"Drives", letter, description);
}

}  // namespace tavix
