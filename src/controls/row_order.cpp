#include "controls/row_order.h"

#include <algorithm>
#include <vector>

#include "text/letter_case.h"

namespace tavix {
namespace {

// A row, with the first four characters after the prefix that all texts share. Most comparisons need only
// these.
struct Entry {
  uint64_t lead;
  TextView rest;
  uint32_t row;
};

size_t CommonPrefix(std::span<const uint32_t> rows, const std::function<TextView(uint32_t)>& textOf) {
  const TextView first = textOf(rows[0]);
  size_t common = first.size();
  for (const uint32_t row : rows) {
    const TextView text = textOf(row);
    if (text.data() == first.data() && text.size() == first.size()) continue;
    common = std::min(common, text.size());
    size_t same = 0;
    while (same < common && ToUpper(text[same]) == ToUpper(first[same])) ++same;
    common = same;
  }
  return common;
}

uint64_t Lead(TextView text) {
  uint64_t lead = 0;
  for (size_t i = 0; i < 4; ++i) lead = lead << 16U | (i < text.size() ? ToUpper(text[i]) : 0);
  return lead;
}

int Compare(const Entry& left, const Entry& right) {
  if (left.lead != right.lead) return left.lead < right.lead ? -1 : 1;
  if (left.rest.data() == right.rest.data() && left.rest.size() == right.rest.size()) return 0;
  return CompareIgnoringCase(left.rest, right.rest);
}

}  // namespace

void SortRows(std::span<uint32_t> rows, bool descending, const std::function<TextView(uint32_t)>& textOf) {
  if (rows.size() < 2) return;
  const size_t common = CommonPrefix(rows, textOf);
  std::vector<Entry> entries;
  entries.reserve(rows.size());
  for (const uint32_t row : rows) {
    const TextView rest = textOf(row).substr(common);
    entries.push_back({Lead(rest), rest, row});
  }
  if (descending) {
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry& a, const Entry& b) { return Compare(a, b) > 0; });
  } else {
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry& a, const Entry& b) { return Compare(a, b) < 0; });
  }
  std::transform(entries.begin(), entries.end(), rows.begin(), [](const Entry& entry) { return entry.row; });
}

}  // namespace tavix
