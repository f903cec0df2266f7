#include "contract/registry_contract.h"
#include "platform/machine/services/machine_registry.h"
#include "platform/merged_registry.h"

namespace tavix::contract {
namespace {

class MemoryStage : public RegistryStage {
 public:
  platform::Registry& Use() override { return merged_; }
  bool MakeKey(Hive hive, TextView key) override { return plain_.MakeKey(hive, key); }
  bool SetValue(Hive hive, TextView key, TextView name, uint32_t type, std::string bytes) override {
    return plain_.SetValue(hive, key, name, type, std::move(bytes));
  }
  bool Deny(Hive hive, TextView key) override {
    plain_.Deny(hive, key);
    return true;
  }

 private:
  machine::MachineRegistry plain_;
  platform::MergedRegistry merged_{plain_};
};

std::unique_ptr<RegistryStage> Make() { return std::make_unique<MemoryStage>(); }

INSTANTIATE_TEST_SUITE_P(Memory, RegistryContract, testing::Values(StageMaker{"memory", Make}));

}  // namespace
}  // namespace tavix::contract
