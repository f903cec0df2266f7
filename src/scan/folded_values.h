#pragma once

#include "frame/support/pub_registry.h"
#include "text/attempt.h"

namespace tavix::mdlPubSelf {

// Calls `visit` with name and data of each value in a folded text, in its order. Data that holds a separator
// is cut there and makes further pieces. A piece without name or data gets that of the piece before.
template <class Visitor>
void VisitFoldedValues(TextView folded, const Visitor& visit) {
  TextView name;
  TextView data;
  for (const TextView piece : Split(folded, clsPubRegistry::kItemSeparator)) {
    const auto parts = Split(piece, clsPubRegistry::kDataSeparator);
    Set(name, ElementAt(parts, 0));
    Set(data, ElementAt(parts, 1));
    visit(name, data);
  }
}

}  // namespace tavix::mdlPubSelf
