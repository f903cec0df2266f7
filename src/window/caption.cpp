#include "window/caption.h"

#include "text/letter_case.h"

namespace tavix {

Text PlainCaption(TextView caption) {
  Text plain;
  for (size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == u'&' && ++i == caption.size()) break;
    plain += caption[i];
  }
  return plain;
}

char16_t MarkedLetter(TextView caption) {
  for (size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] == u'&' && caption[++i] != u'&') return ToUpper(caption[i]);
  }
  return 0;
}

}  // namespace tavix
