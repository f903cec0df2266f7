#include "frame/support/pub_system.h"

#include "text/attempt.h"
#include "text/ini_text.h"
#include "text/text_file.h"

namespace tavix {

void clsPubSystem::SendWindowMessage(platform::WindowHandle window, uint32_t message, intptr_t wParam,
                                     intptr_t lParam) const {
  on_.desktop->SendWindowMessage(window, message, wParam, lParam);
}

void clsPubSystem::PostWindowMessage(platform::WindowHandle window, uint32_t message, intptr_t wParam,
                                     intptr_t lParam) const {
  on_.desktop->PostWindowMessage(window, message, wParam, lParam);
}

void clsPubSystem::OpenPath(TextView path, int style) const { on_.shell->OpenPath(path, style); }

void clsPubSystem::RunTarget(TextView target, int style) const { on_.shell->RunTarget(target, style); }

void clsPubSystem::ReadProfileString(TextView file, TextView section, TextView key, Text& value) const {
  if (on_.files == platform::noFileSystem) return;
  const auto content = on_.files->ReadFile(file);
  value = content ? ReadIniValue(DecodeTextFile(*content).text, section, key).value_or(u"") : u"";
}

void clsPubSystem::WriteProfileString(TextView file, TextView section, TextView key, TextView value) const {
  const auto content = on_.files->ReadFile(file);
  // A file that may stand there and can't be read is not to be written over.
  if (!content && on_.files->FileExists(file) != false) return;
  FileText text = DecodeTextFile(content.value_or(""));
  Text changed = WriteIniValue(text.text, section, key, value);
  if (changed == text.text) return;
  text.text = std::move(changed);
  on_.files->WriteFile(file, EncodeTextFile(text));
}

void clsPubSystem::FindWindowByTitle(TextView title, platform::WindowHandle& window) const {
  if (on_.desktop != platform::noDesktop) window = on_.desktop->FindWindowByTitle(title);
}

void clsPubSystem::BrowseForFolder(platform::WindowHandle owner, TextView title, Text& path) const {
  if (on_.dialogs != platform::noDialogs) path = on_.dialogs->BrowseForFolder(owner, title).value_or(u"");
}

void clsPubSystem::GetSpecialFolder(int number, Text& path) const {
  Set(path, on_.shell->SpecialFolderByNumber(number));
}

void clsPubSystem::GetRecycleBinInfo(int, Text& info) const { Set(info, on_.shell->RecycleBinInfo()); }

void clsPubSystem::GetUserTempFolder(Text& path) const { Set(path, on_.shell->UserTempFolder()); }

void clsPubSystem::DeleteAtRestart(TextView path) const { on_.shell->DeleteAtRestart(path); }

void clsPubSystem::SetTreeBackColor(platform::WindowHandle tree, uint32_t color) const {
  on_.desktop->SetTreeBackColor(tree, color);
}

void clsPubSystem::EmptyRecycleBin(platform::WindowHandle owner, int) const {
  on_.shell->EmptyRecycleBin(owner);
}

void clsPubSystem::AttachListColorHook(platform::WindowHandle, bool, platform::WindowHandle, uint32_t) const {
}

void clsPubSystem::DeleteToRecycleBin(TextView path) const { on_.shell->DeleteToRecycleBin(path); }

void clsPubSystem::ShowFileProperties(platform::WindowHandle owner, TextView path) const {
  on_.shell->ShowFileProperties(owner, path);
}

}  // namespace tavix
