#include <filesystem>
#include <optional>
#include <random>
#include <stdexcept>
#include <vector>

#include "contract/registry_contract.h"
#include "platform/machine/services/machine_folder.h"
#include "platform/merged_registry.h"

namespace tavix::contract {
namespace {

namespace fs = std::filesystem;

fs::path NewFolder() {
  std::random_device random;
  fs::path folder;
  do {
    folder = fs::temp_directory_path() / ("tavix-contract-" + std::to_string(random()));
  } while (!fs::create_directory(folder));
  fs::create_directory(folder / "registry");
  return folder;
}

// Saves the registry and opens it again between any two steps of a test.
class FolderStage : public RegistryStage {
 public:
  FolderStage() : folder_(NewFolder()) { Open(); }
  ~FolderStage() override {
    merged_.reset();
    machine_.reset();
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }

  platform::Registry& Use() override {
    Settle();
    return *merged_;
  }
  bool MakeKey(Hive hive, TextView key) override { return machine_->Registry().MakeKey(hive, key); }
  bool SetValue(Hive hive, TextView key, TextView name, uint32_t type, std::string bytes) override {
    return machine_->Registry().SetValue(hive, key, name, type, std::move(bytes));
  }
  bool Deny(Hive hive, TextView key) override {
    denied_.emplace_back(hive, key);
    machine_->Registry().Deny(hive, key);
    return true;
  }

 private:
  void Settle() {
    if (!machine_->Registry().Changed()) return;
    std::string error;
    ASSERT_TRUE(machine_->Save(error)) << error;
    Open();
  }
  void Open() {
    merged_.reset();
    std::string error;
    machine_ = machine::MachineFolder::Open(folder_, error);
    if (machine_ == nullptr) throw std::runtime_error(error);
    for (const auto& [hive, key] : denied_) machine_->Registry().Deny(hive, key);
    merged_.emplace(machine_->Registry());
  }

  fs::path folder_;
  std::unique_ptr<machine::MachineFolder> machine_;
  std::optional<platform::MergedRegistry> merged_;
  std::vector<std::pair<Hive, Text>> denied_;
};

std::unique_ptr<RegistryStage> Make() { return std::make_unique<FolderStage>(); }

INSTANTIATE_TEST_SUITE_P(Folder, RegistryContract, testing::Values(StageMaker{"folder", Make}));

}  // namespace
}  // namespace tavix::contract
