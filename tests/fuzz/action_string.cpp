#include "scan/action_string.h"

#include <cstdint>

#include "require.h"

namespace {

using namespace tavix;
using namespace tavix::mdlPubSelf;

bool LiesIn(TextView part, TextView whole) {
  return part.empty() ||
         (part.data() >= whole.data() && part.data() + part.size() <= whole.data() + whole.size());
}

void CheckTarget(TextView payload) {
  const RegistryTarget target = ReadRegistryTarget(payload);
  Require(target.key || !target.value);
  size_t used = 0;
  for (const auto& part : {target.key, target.value}) {
    if (!part) continue;
    Require(LiesIn(*part, payload) && part->find(u", ") == TextView::npos);
    used += part->size() + 2;
  }
  Require(used <= payload.size());
}

}  // namespace

// Any text can be a tag. Its parts are pieces of it without separators, and a tag made of these parts reads
// back as the same parts.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const Text tag(data, data + size);
  const Action action = ReadAction(tag);
  Require(tag.starts_with(action.kind) && action.kind.find(u": ") == TextView::npos);
  if (action.payload) {
    Require(LiesIn(*action.payload, tag) && *action.payload == Trim(*action.payload));
    Require(action.payload->find(u": ") == TextView::npos);
    const Text again = Concat(action.kind, u": ", *action.payload);
    const Action same = ReadAction(again);
    Require(same.kind == action.kind && same.payload == action.payload);
    CheckTarget(*action.payload);
  }
  size_t joined = 0;
  for (const TextView piece : SplitRegistryTargets(tag)) {
    Require(LiesIn(piece, tag));
    CheckTarget(piece);
    joined += piece.size();
  }
  Require(joined <= tag.size());
  return 0;
}
