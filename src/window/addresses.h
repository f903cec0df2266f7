#pragma once

#include "text/text.h"

// Set by the build.
namespace tavix::mdlPubSelf {

// The web sites of the product and its maker, without a slash at the end.
Text ProductSite();
Text MakerSite();
// The mail address of the support.
Text SupportMail();

}  // namespace tavix::mdlPubSelf
