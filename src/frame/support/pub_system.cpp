#include "frame/support/pub_system.h"

#include "text/attempt.h"
#include "text/ini_text.h"
#include "text/text_file.h"

namespace tavix {

void clsPubSystem::SendWindowMessage(platform::WindowHandle window, uint32_t message, intptr_t wParam,
                                     intptr_t lParam) const {
  services_.desktop->SendWindowMessage(window, message, wParam, lParam);
}

void clsPubSystem::PostWindowMessage(platform::WindowHandle window, uint32_t message, intptr_t wParam,
                                     intptr_t lParam) const {
  services_.desktop->PostWindowMessage(window, message, wParam, lParam);
}

void clsPubSystem::OpenPath(TextView path, int style) const { services_.shell->OpenPath(path, style); }

void clsPubSystem::RunTarget(TextView target, int style) const { services_.shell->RunTarget(target, style); }

void clsPubSystem::ReadProfile(TextView file, Text& content) const {
  if (services_.files == platform::noFileSystem) return;
  const auto bytes = services_.files->ReadFile(file);
  content = bytes ? DecodeTextFile(*bytes).text : Text();
}

void clsPubSystem::ReadProfileString(TextView file, TextView section, TextView key, Text& value) const {
  if (services_.files == platform::noFileSystem) return;
  Text content;
  ReadProfile(file, content);
  value = ReadIniValue(content, section, key).value_or(u"");
}

void clsPubSystem::WriteProfileString(TextView file, TextView section, TextView key, TextView value) const {
  const auto content = services_.files->ReadFile(file);
  // Don't overwrite a file that may exist but can't be read.
  if (!content && services_.files->FileExists(file) != false) return;
  FileText text = DecodeTextFile(content.value_or(""));
  Text changed = WriteIniValue(text.text, section, key, value);
  if (changed == text.text) return;
  text.text = std::move(changed);
  services_.files->WriteFile(file, EncodeTextFile(text));
}

void clsPubSystem::FindWindowByTitle(TextView title, platform::WindowHandle& window) const {
  if (services_.desktop != platform::noDesktop) window = services_.desktop->FindWindowByTitle(title);
}

void clsPubSystem::BrowseForFolder(platform::WindowHandle owner, TextView title, Text& path) const {
  if (services_.dialogs != platform::noDialogs)
    path = services_.dialogs->BrowseForFolder(owner, title).value_or(u"");
}

void clsPubSystem::GetSpecialFolder(int number, Text& path) const {
  Set(path, services_.shell->SpecialFolderByNumber(number));
}

void clsPubSystem::GetRecycleBinInfo(int, Text& info) const { Set(info, services_.shell->RecycleBinInfo()); }

void clsPubSystem::GetUserTempFolder(Text& path) const { Set(path, services_.shell->UserTempFolder()); }

void clsPubSystem::DeleteAtRestart(TextView path) const { services_.shell->DeleteAtRestart(path); }

void clsPubSystem::SetTreeBackColor(platform::WindowHandle tree, uint32_t color) const {
  services_.desktop->SetTreeBackColor(tree, color);
}

void clsPubSystem::EmptyRecycleBin(platform::WindowHandle owner, int) const {
  services_.shell->EmptyRecycleBin(owner);
}

void clsPubSystem::AttachListColorHook(platform::WindowHandle, bool, platform::WindowHandle, uint32_t) const {
}

void clsPubSystem::DeleteToRecycleBin(TextView path) const { services_.shell->DeleteToRecycleBin(path); }

void clsPubSystem::ShowFileProperties(platform::WindowHandle owner, TextView path) const {
  services_.shell->ShowFileProperties(owner, path);
}

}  // namespace tavix
