#pragma once

#include <cstdint>
#include <span>

#include "text/text.h"

namespace tavix::mdlPubSelf {

// Pages of the options window that functions have their options on.
constexpr int16_t kNoOptions = 0;
constexpr int16_t kJunkFilesPage = 2;
constexpr int16_t kDuplicateFilesPage = 3;
constexpr int16_t kOtherOptionsPage = 5;

// A function that the window offers. Each is ticked when its page is first shown. The two branches of the
// privacy tree stand among its functions with keys of their own and are none. A question mark in caption and
// description stands for the days of the setting LastAccessedFile.
struct CleaningFunction {
  TextView Key;
  TextView Caption;
  TextView Description;
  int16_t OptionsPage = kNoOptions;
};

// A function whose caption is its key.
constexpr CleaningFunction ByCaption(TextView caption, TextView description,
                                     int16_t optionsPage = kNoOptions) {
  return {caption, caption, description, optionsPage};
}

// The functions of each page in their order, which is that of a scan. On the Privacy page each branch stands
// before its functions.
extern const std::span<const CleaningFunction> kPrivacyFunctions;
extern const std::span<const CleaningFunction> kSystemFunctions;
extern const std::span<const CleaningFunction> kRegistryFunctions;
extern const std::span<const CleaningFunction> kAdvancedFunctions;

// The words as the window shows them, with the days put in.
Text CaptionOf(const CleaningFunction& function);
Text DescriptionOf(const CleaningFunction& function);

}  // namespace tavix::mdlPubSelf
