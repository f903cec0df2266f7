#pragma once

#include "export/record.h"
#include "platform/registry.h"

namespace tavix::exporting {

// A registry that answers as another one does and notes the keys and values that are read. What is read of
// HKEY_CLASSES_ROOT is noted in the two hives that it is made of. Writing and deleting aren't noted.
class RecordingRegistry : public platform::Registry {
 public:
  // Both must outlive this.
  RecordingRegistry(platform::Registry& source, Record& record) : source_(source), record_(record) {}

  bool VisitSubKeys(platform::Hive hive, TextView key, const NameVisitor& visit) override;
  bool VisitValues(platform::Hive hive, TextView key, const ValueVisitor& visit) override;
  std::optional<Text> ReadValue(platform::Hive hive, TextView key, TextView name) override;
  std::unique_ptr<platform::KeysBelow> Below(platform::Hive hive, TextView key) override;
  platform::Existence KeyExists(platform::Hive hive, TextView key) override;
  bool WriteString(platform::Hive hive, TextView key, TextView name, TextView data) override;
  bool DeleteKey(platform::Hive hive, TextView key) override;
  bool DeleteValue(platform::Hive hive, TextView key, TextView name) override;

 private:
  class Keys;

  machine::RegistryKey* Make(platform::Hive hive, TextView key);
  void NoteKey(platform::Hive hive, TextView key);
  void NoteSubKeys(platform::Hive hive, TextView key);
  void NoteValues(platform::Hive hive, TextView key);
  void NoteValue(platform::Hive hive, TextView key, TextView name);

  platform::Registry& source_;
  Record& record_;
};

}  // namespace tavix::exporting
