#pragma once

#include <set>
#include <utility>

#include "text/letter_case.h"
#include "text/text.h"

namespace tavix::machine {

// Chooses calls on a machine in memory that fail. Operations have the names of the routines.
class Faults {
 public:
  // Makes every call of an operation on this path fail, ignoring letter case. An empty path means any path.
  void Fail(TextView operation, TextView path = {}) { failing_.emplace(operation, path); }
  // Makes one call fail: the `number`th from now on, counted over all operations.
  void FailCall(int number) { failAt_ = calls_ + number; }
  void Clear() {
    failing_.clear();
    failAt_ = 0;
  }
  // The number of calls so far.
  int Calls() const { return calls_; }

  // Counts a call and returns whether it fails.
  bool Hit(TextView operation, TextView path) { return ++calls_ == failAt_ || Fails(operation, path); }
  // Whether calls of this operation on this path fail. Doesn't count a call.
  bool Fails(TextView operation, TextView path) const {
    if (failing_.empty()) return false;
    return failing_.contains({Text(operation), Text(path)}) || failing_.contains({Text(operation), Text()});
  }

 private:
  struct Less {
    bool operator()(const std::pair<Text, Text>& left, const std::pair<Text, Text>& right) const {
      if (left.first != right.first) return left.first < right.first;
      return CompareIgnoringCase(left.second, right.second) < 0;
    }
  };
  std::set<std::pair<Text, Text>, Less> failing_;
  int calls_ = 0;
  int failAt_ = 0;
};

}  // namespace tavix::machine
