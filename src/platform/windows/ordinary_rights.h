#pragma once

#include "text/text.h"

namespace tavix::windows {

// Whether this process is elevated: the user has a token with fewer rights, and UAC gave this process the
// full one. False when UAC is off, because then there is no lesser token.
bool HasRaisedRights();

// Asks the signed-in user's desktop (Explorer) to open an address or a file, so that the opened program gets
// that user's ordinary rights and not ours. `style` is the show style. False when there is no desktop, when
// it can't be asked, or when it fails at once. True when it was asked; it doesn't report whether anything
// opened.
bool OpenByDesktop(const Text& target, int style);

}  // namespace tavix::windows
