#pragma once

#include "text/text.h"

namespace tavix::windows {

// Whether this program has more rights than the same user's others: it was started as administrator under the
// control of user accounts. False where the user has no lesser rights (the control is off).
bool HasRaisedRights();

// Has the desktop of the signed-in user open an address or a file, so that what opens it gets that user's
// ordinary rights and not ours. False when the desktop can't be asked, as when there is none, or says at once
// that it can't open it. True says that it was asked; whether it opened anything it doesn't tell. `style` is
// the show style.
bool OpenByDesktop(const Text& target, int style);

}  // namespace tavix::windows
