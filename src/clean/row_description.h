#pragma once

#include "controls/list_view.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

// What cleaning a row does, in words: the file, folder, key, value, command or log that its tag stands for,
// and what becomes of it by the cleaning method. It tells what will be asked of the system, so it doesn't
// look at the disk: what a clean leaves alone for safety is not told.
Text DescribeRow(const ListView::Item& row);

// The user has moved the focus to a row: shows its description in the status line. A running job keeps the
// line.
void lsvResult_ItemClick();

}  // namespace tavix::mdlPubSelf
