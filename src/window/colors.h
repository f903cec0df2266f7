#pragma once

namespace tavix::mdlPubSelf {

// Gives the privacy and the scope tree and all their nodes the colours of the result list. At start.
void ColorControls();

}  // namespace tavix::mdlPubSelf
