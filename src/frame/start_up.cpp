#include "frame/start_up.h"

#include "frame/support/pub_registry.h"

namespace tavix::mdlPubSelf {
namespace {

void Run(const std::function<void()>& step) {
  if (step) step();
}

}  // namespace

void Form_Load() {
  pubRegistry = clsPubRegistry(platform::registry);
  Run(frameSteps.BuildPrivacyTree);
  Run(frameSteps.LayOutWindow);
  Run(frameSteps.SendEmbeddedPage);
}

void Form_Unload() { pubRegistry = {}; }

}  // namespace tavix::mdlPubSelf
