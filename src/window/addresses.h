#pragma once

#include "text/text.h"

// Where the product is at home. The build gives it.
namespace tavix::mdlPubSelf {

// Addresses of web sites, without a slash at the end.
Text ProductSite();
Text MakerSite();
// A mail address.
Text SupportMail();

}  // namespace tavix::mdlPubSelf
