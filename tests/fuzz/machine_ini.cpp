#include "platform/machine/formats/machine_ini.h"

#include <cstdint>

#include "platform/machine/formats/machine_facts.h"
#include "require.h"

// Any bytes are read, or refused with line and reason. A value that was set is read back, and no value is
// longer than the file.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace tavix;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  machine::TextError error;
  auto ini = machine::MachineIni::Read(bytes, error);
  if (!ini) {
    Require(error.Line >= 1 && error.Line <= size + 1 && !error.Reason.empty());
    return 0;
  }
  for (const TextView section : {TextView(u"Drives"), TextView(u"Environment"), TextView(u"s")}) {
    size_t length = 0;
    for (const auto& [key, value] : ini->Entries(section)) {
      length += key.size() + value.size() + 1;
      const auto found = ini->Value(section, key);
      Require(found.has_value());
    }
    Require(length <= size);
    const size_t count = ini->Entries(section).size();
    const bool known = ini->Value(section, u"Key").has_value();
    ini->Set(section, u"kEY", u"value");
    Require(ini->Value(section, u"Key") == Text(u"value"));
    Require(ini->Entries(section).size() == count + (known ? 0 : 1));
  }
  const machine::MachineFacts facts(*ini, nullptr);
  const auto& drives = facts.Drives();
  Require(drives.size() <= 26);
  for (size_t i = 1; i < drives.size(); ++i) Require(drives[i - 1].path < drives[i].path);
  return 0;
}
