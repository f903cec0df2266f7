#include "forms/product.h"

namespace tavix {

constinit const TextView kProductVersion = TAVIX_VERSION;

}  // namespace tavix
