#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>

#include "controls/control.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

// What edits a setting: a control, or the first of several, what it shows of a value, and what of it is
// saved. Nothing leaves the file as it is.
struct OptionBinding {
  const Control* control;
  std::function<void(TextView value)> show;
  std::function<std::optional<Text>()> saved;
};

struct BoundOption {
  int16_t page;  // of the options window
  TextView section;
  TextView key;
  const Text* setting;  // as it was loaded last
  OptionBinding binding;
};

// All of them, page by page in the order in which they are saved.
std::span<const BoundOption> BoundOptions();

// Fills the controls of a page from the settings.
void ShowOptions(int16_t page);
// Writes the settings of a page into the file; those in memory stay.
void SaveOptions(int16_t page);

}  // namespace tavix::mdlPubSelf
