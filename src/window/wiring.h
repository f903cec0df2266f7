#pragma once

namespace tavix {

// Ties the events of all forms' controls to their handlers, and gives start-up the steps that lie above it
// (`frameSteps`). Once, before Form_Load. The events that are commands to a real window stay untied: the
// window ties them.
void WireForms();

}  // namespace tavix
