#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

namespace tavix::machine {

// A folder of the host that is deleted after the test.
class ScratchFolder {
 public:
  ScratchFolder() {
    static std::atomic<int> count = 0;
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    root_ = std::filesystem::temp_directory_path() /
            ("tavix-" + std::to_string(now) + "-" + std::to_string(count++));
    std::filesystem::create_directories(root_);
  }
  ~ScratchFolder() {
    std::error_code failure;
    std::filesystem::remove_all(root_, failure);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  const std::filesystem::path& Root() const { return root_; }
  void Write(const std::filesystem::path& file, const std::string& bytes) const {
    std::filesystem::create_directories((root_ / file).parent_path());
    std::ofstream(root_ / file, std::ios::binary) << bytes;
  }
  std::string Read(const std::filesystem::path& file) const {
    std::ifstream in(root_ / file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  // Every file below: its path with slashes, and its content. Links are listed but not followed.
  std::map<std::string, std::string> Files() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root_)) {
      const std::string name = entry.path().lexically_relative(root_).generic_string();
      if (entry.is_symlink()) {
        files[name] = "link";
      } else if (entry.is_regular_file()) {
        files[name] = Read(name);
      }
    }
    return files;
  }

 private:
  std::filesystem::path root_;
};

}  // namespace tavix::machine
