#include "frame/messages.h"

#include "frame/support/pub_system.h"
#include "platform/application.h"
#include "platform/dialogs.h"

namespace tavix::mdlPubSelf {

Text TextCatalogue() { return Concat(platform::applicationFolder, u"\\tips.dll"); }
Text MenuCatalogue() { return Concat(platform::applicationFolder, u"\\menus.dll"); }

Text GetMessageText(TextView key) {
  Text text;
  pubSystem.ReadProfileString(TextCatalogue(), u"Message & Text", key, text);
  return text;
}

Text GetMessageText(TextView key, TextView builtIn) {
  Text text = GetMessageText(key);
  return Trim(text).empty() ? Text(builtIn) : text;
}

void Inform(TextView text) { platform::dialogs->MsgBox(text, platform::kInformation); }

}  // namespace tavix::mdlPubSelf
