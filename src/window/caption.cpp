#include "window/caption.h"

namespace tavix {

Text PlainCaption(TextView caption) {
  Text plain;
  for (size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == u'&' && ++i == caption.size()) break;
    plain += caption[i];
  }
  return plain;
}

}  // namespace tavix
