#include "window/addresses.h"

namespace tavix::mdlPubSelf {

Text ProductSite() { return TAVIX_SITE; }
Text MakerSite() { return TAVIX_MAKER_SITE; }
Text SupportMail() { return TAVIX_SUPPORT_MAIL; }

}  // namespace tavix::mdlPubSelf
