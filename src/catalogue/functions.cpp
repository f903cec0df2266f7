#include "catalogue/functions.h"

#include "frame/settings.h"

namespace tavix::mdlPubSelf {
namespace {

Text WithDays(TextView words) {
  const size_t mark = words.find(u'?');
  if (mark == TextView::npos) return Text(words);
  return Concat(words.substr(0, mark), LastAccessedFile, words.substr(mark + 1));
}

}  // namespace

Text CaptionOf(const CleaningFunction& function) { return WithDays(function.Caption); }
Text DescriptionOf(const CleaningFunction& function) { return WithDays(function.Description); }

}  // namespace tavix::mdlPubSelf
