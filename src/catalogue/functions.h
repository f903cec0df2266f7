#pragma once

#include <cstdint>
#include <span>

#include "text/text.h"

namespace tavix::mdlPubSelf {

// The pages of the options window that hold options of functions.
constexpr int16_t kNoOptions = 0;
constexpr int16_t kJunkFilesPage = 2;
constexpr int16_t kDuplicateFilesPage = 3;
constexpr int16_t kOtherOptionsPage = 5;

// A function that the window offers. It is ticked when its page is first shown. The two branches of the
// privacy tree are entries of this kind, too, with their own keys, though they are no functions. A question
// mark in Caption and Description stands for the number of days in the setting LastAccessedFile.
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

// The functions of each page, in the order of the page and of a scan. On the Privacy page each branch comes
// before its functions.
extern const std::span<const CleaningFunction> kPrivacyFunctions;
extern const std::span<const CleaningFunction> kSystemFunctions;
extern const std::span<const CleaningFunction> kRegistryFunctions;
extern const std::span<const CleaningFunction> kAdvancedFunctions;

// The texts as the window shows them: with the number of days in place of the question mark.
Text CaptionOf(const CleaningFunction& function);
Text DescriptionOf(const CleaningFunction& function);

}  // namespace tavix::mdlPubSelf
