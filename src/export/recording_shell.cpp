#include "export/recording_shell.h"

namespace tavix::exporting {

bool RecordingShell::RunTarget(TextView target, int style) { return source_.RunTarget(target, style); }

bool RecordingShell::OpenPath(TextView path, int style) { return source_.OpenPath(path, style); }

bool RecordingShell::RunHidden(TextView target) { return source_.RunHidden(target); }

bool RecordingShell::ShowFileProperties(platform::WindowHandle owner, TextView path) {
  return source_.ShowFileProperties(owner, path);
}

bool RecordingShell::DeleteToRecycleBin(TextView path) { return source_.DeleteToRecycleBin(path); }

bool RecordingShell::EmptyRecycleBin(platform::WindowHandle owner) { return source_.EmptyRecycleBin(owner); }

std::optional<Text> RecordingShell::RecycleBinInfo() { return source_.RecycleBinInfo(); }

bool RecordingShell::DeleteAtRestart(TextView path) { return source_.DeleteAtRestart(path); }

std::optional<Text> RecordingShell::SpecialFolderByNumber(int number) {
  return source_.SpecialFolderByNumber(number);
}

std::optional<Text> RecordingShell::SpecialFolderByName(TextView name) {
  return source_.SpecialFolderByName(name);
}

std::optional<Text> RecordingShell::UserTempFolder() { return source_.UserTempFolder(); }

std::optional<Text> RecordingShell::SystemTempFolder() { return source_.SystemTempFolder(); }

std::optional<std::vector<Text>> RecordingShell::NamedFolders() { return source_.NamedFolders(); }

std::optional<Text> RecordingShell::EnvironmentVariable(TextView name) {
  record_.variables.emplace(name);
  return source_.EnvironmentVariable(name);
}

// Notes the text between any two percent signs: only names of variables have a value when they are written.
Text RecordingShell::ExpandEnvironment(TextView text) {
  for (size_t open = text.find(u'%'); open != TextView::npos;) {
    const size_t close = text.find(u'%', open + 1);
    if (close == TextView::npos) break;
    if (close > open + 1) record_.variables.emplace(text.substr(open + 1, close - open - 1));
    open = close;
  }
  return source_.ExpandEnvironment(text);
}

std::optional<platform::Shortcut> RecordingShell::OpenShortcut(TextView path) {
  record_.read.emplace(path);
  return source_.OpenShortcut(path);
}

}  // namespace tavix::exporting
