#pragma once

#include <cstdint>
#include <functional>
#include <memory>
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

// The values in the keys below one key, for reading many of them.
class KeysBelow {
 public:
  virtual ~KeysBelow() = default;
  // As Registry::ReadValue, for the key at a path below. Nothing for the empty path.
  virtual std::optional<Text> ReadValue(TextView below, TextView name) = 0;
};

// The registry of a machine. A key is a path below a hive: names with one backslash between any two, none at
// the ends. The empty path is the hive itself. Names are matched ignoring letter case. A hive that isn't one
// of the five has no keys.
//
// Data is given as text:
// - a string as it is stored, without its terminator, variables not expanded;
// - several strings joined by a blank;
// - a number of 32 or 64 bits in decimal digits, unsigned;
// - anything else, a number of the wrong length too, as upper-case hex pairs joined by a blank.
class Registry {
 public:
  using NameVisitor = std::function<void(TextView name)>;
  using ValueVisitor = std::function<void(TextView name, TextView data)>;

  virtual ~Registry() = default;

  // Calls `visit` with the name of each direct subkey, in the order of the upper-cased names. The name is
  // valid during the call. The visitor must not change the registry. True when all subkeys were visited; a
  // missing key has none. False when the key can't be read, or can't be read to its end.
  virtual bool VisitSubKeys(Hive hive, TextView key, const NameVisitor& visit) = 0;
  // The same for each value, in the order in which they were made. The default value has the empty name; it
  // is visited only when it is set.
  virtual bool VisitValues(Hive hive, TextView key, const ValueVisitor& visit) = 0;
  // The data of one value; the empty name is the default value. Nothing when the key or the value is missing
  // or can't be read.
  virtual std::optional<Text> ReadValue(Hive hive, TextView key, TextView name) = 0;
  // The keys below a key; null when it is missing. Keys that are made and values that are written in it later
  // are seen. A key that is missing now, or deleted later, has nothing below it even if it is made again. It
  // must not outlive the registry.
  virtual std::unique_ptr<KeysBelow> Below(Hive hive, TextView key);
  // Whether a key exists. A key without the right to read it exists.
  virtual Existence KeyExists(Hive hive, TextView key) = 0;
  // Writes a string value (REG_SZ). Makes the key if it is missing. False on failure; nothing is changed
  // then.
  virtual bool WriteString(Hive hive, TextView key, TextView name, TextView data) = 0;
  // Deletes a key with everything below it. Of a registry link, here or below, only the link is deleted, not
  // its target. False when the key is missing or is a hive itself, or when part of it stays.
  virtual bool DeleteKey(Hive hive, TextView key) = 0;
  // Deletes one value. False when it is missing or stays.
  virtual bool DeleteValue(Hive hive, TextView key, TextView name) = 0;
};

// Never null. Without a host it is noRegistry (platform/nothing.h).
extern Registry* registry;
extern Registry* const noRegistry;

}  // namespace tavix::platform
