#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "platform/existence.h"
#include "text/text.h"

namespace tavix::platform {

enum class Hive : uint32_t {
  ClassesRoot = 0x80000000,
  CurrentUser = 0x80000001,
  LocalMachine = 0x80000002,
  Users = 0x80000003,
  CurrentConfig = 0x80000005,
};

// The registry of a machine. Keys are paths below a hive, parts separated by single backslashes, without
// one at either end; the empty path is the hive itself. Names are matched without regard to letter case.
// A hive that isn't one of the five has no keys.
//
// Data comes as text: strings as they are, not expanded, without the terminator; numbers of 32 and 64 bits
// in decimal digits, unsigned; several strings joined by a blank; anything else, a number of the wrong
// length among it, as upper-case pairs of hex digits joined by a blank.
class Registry {
 public:
  using NameVisitor = std::function<void(TextView name)>;
  using ValueVisitor = std::function<void(TextView name, TextView data)>;

  virtual ~Registry() = default;

  // Calls the visitor with each direct subkey, in the order of their upper-cased names. A key that is
  // missing or can't be read has none. What the visitor gets is valid during its call; it changes nothing.
  // True when those were all there are, none of a missing key included; false when the key, or the rest of
  // it, can't be read.
  virtual bool VisitSubKeys(Hive hive, TextView key, const NameVisitor& visit) = 0;
  // The same with each value, in the order in which they were made; the default value, if it is set, has
  // the empty name.
  virtual bool VisitValues(Hive hive, TextView key, const ValueVisitor& visit) = 0;
  // The data of one value, the default value for the empty name. Nothing when key or value are missing or
  // can't be read.
  virtual std::optional<Text> ReadValue(Hive hive, TextView key, TextView name) = 0;
  // A key that may not be read is there all the same.
  virtual Existence KeyExists(Hive hive, TextView key) = 0;
  // Writes a string (REG_SZ), making the key where it is missing. False, and nothing changed, on failure.
  virtual bool WriteString(Hive hive, TextView key, TextView name, TextView data) = 0;
  // Deletes a key with everything below it. A registry link, the key itself or one below it, goes and
  // what it points to stays. False when the key is missing, is a hive itself, or something of it stays.
  virtual bool DeleteKey(Hive hive, TextView key) = 0;
  // Deletes one value. False when there is none.
  virtual bool DeleteValue(Hive hive, TextView key, TextView name) = 0;
};

// The registry of the machine the program works on; null before it is there and after it has gone.
inline Registry* registry = nullptr;

}  // namespace tavix::platform
