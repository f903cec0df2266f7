#include "catalogue/functions.h"

#include "frame/settings.h"

namespace tavix::mdlPubSelf {
namespace {

Text WithNumberOfDays(TextView text) {
  const size_t mark = text.find(u'?');
  if (mark == TextView::npos) return Text(text);
  return Concat(text.substr(0, mark), LastAccessedFile, text.substr(mark + 1));
}

}  // namespace

Text CaptionOf(const CleaningFunction& function) { return WithNumberOfDays(function.Caption); }
Text DescriptionOf(const CleaningFunction& function) { return WithNumberOfDays(function.Description); }

}  // namespace tavix::mdlPubSelf
