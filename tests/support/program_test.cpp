#include "support/program_test.h"

#include <memory>
#include <ostream>

#include "frame/settings.h"
#include "frame/start_up.h"
#include "frame/support/pub_registry.h"
#include "platform/event_queue.h"
#include "platform/screen.h"
#include "scan/result_items.h"
#include "scan/scan_driver.h"
#include "scan/scan_function.h"
#include "text/number.h"
#include "text/utf8.h"
#include "window/wiring.h"

namespace tavix {

void ResetProcess() {
  std::destroy_at(&frmPubMain);
  std::construct_at(&frmPubMain);
  platform::registry = nullptr;
  platform::clock = nullptr;
  platform::eventQueue = nullptr;
  platform::screen = {};
  userLocale = {};
  mdlPubSelf::pubRegistry = {};
  mdlPubSelf::frameSteps = {};
  mdlPubSelf::CancelRequested = false;
  mdlPubSelf::ProgressStep = 0;
  mdlPubSelf::Functions.clear();
  mdlPubSelf::advancedScan = nullptr;
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

ProgramTest::ProgramTest() {
  ResetProcess();
  platform::registry = &mergedRegistry;
  platform::clock = &clock;
}

ProgramTest::~ProgramTest() { ResetProcess(); }

void ProgramTest::Start() {
  WireMainForm();
  mdlPubSelf::Form_Load();
}

void ProgramTest::Seed(platform::Hive hive, TextView key, TextView name, TextView data) {
  machineRegistry.WriteString(hive, key, name, data);
}

}  // namespace tavix
