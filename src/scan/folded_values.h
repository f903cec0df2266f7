#pragma once

#include "frame/support/pub_registry.h"
#include "text/attempt.h"

namespace tavix::mdlPubSelf {

// Calls with name and data of each value of a folded text, in its order. Data that holds a separator makes
// pieces of its own; what such a piece lacks, name or data, is that of the piece before.
template <class Visitor>
void VisitFoldedValues(TextView folded, const Visitor& visit) {
  TextView name;
  TextView data;
  const auto element = [](const std::vector<TextView>& parts, size_t index) {
    return index < parts.size() ? std::optional(parts[index]) : std::nullopt;
  };
  for (const TextView piece : Split(folded, clsPubRegistry::kItemSeparator)) {
    const auto parts = Split(piece, clsPubRegistry::kDataSeparator);
    Set(name, element(parts, 0));
    Set(data, element(parts, 1));
    visit(name, data);
  }
}

}  // namespace tavix::mdlPubSelf
