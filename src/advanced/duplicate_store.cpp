#include "advanced/duplicate_store.h"

#include "frame/data_paths.h"
#include "frame/support/pub_file.h"
#include "text/letter_case.h"
#include "text/pattern.h"

namespace tavix::mdlPubSelf {

void WriteDuplicateCandidate(TextView name, TextView path) {
  const TextView first = name.substr(0, 1);
  const bool letter = MatchesPattern(ToUpper(first), u"[A-Z]");
  pubFile.AppendLine(Concat(kScannedFolder, u"\\", letter ? first : u"other", u"\\", name), path);
}

Text BucketTitle(TextView bucket) { return bucket.size() > 1 ? Text(u"other") : Concat(u"'", bucket, u"*'"); }

}  // namespace tavix::mdlPubSelf
