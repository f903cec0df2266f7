#include "catalogue/scope_tree.h"

#include "forms/main_form.h"
#include "frame/support/file_system_object.h"
#include "frame/support/pub_common.h"

namespace tavix::mdlPubSelf {
namespace {

bool CanBeScanned(const platform::Drive& drive) {
  return drive.ready && drive.type != platform::kCdDrive && drive.type != platform::kNetworkDrive;
}

int ImageOf(const platform::Drive& drive) {
  switch (drive.type) {
    case platform::kRemovableDrive:
      return kRemovableDriveImage;
    case platform::kFixedDrive:
      return kFixedDriveImage;
    case platform::kMemoryDrive:
      return kMemoryDriveImage;
    default:
      return kUnknownDriveImage;
  }
}

// Null, and no new node, if a node has the key already.
Node* AddScopeNode(Node* parent, TextView key, TextView text, int image, int selectedImage) {
  Node* node = frmPubMain.trvRes.AddNode(parent, key, text);
  if (node == nullptr) return nullptr;
  node->Image = image;
  node->SelectedImage = selectedImage;
  node->BackColor = frmPubMain.lst.BackColor.Get();
  node->ForeColor = frmPubMain.lst.ForeColor.Get();
  return node;
}

}  // namespace

void BuildScopeTree() {
  TreeView& tree = frmPubMain.trvRes;
  tree.Clear();
  Node* root = AddScopeNode(nullptr, u"Root", u"My Computer", kComputerImage, kComputerImage);
  root->Checked = true;
  root->Expanded = true;
  for (const platform::Drive& drive : fileSystemObject.Drives()) {
    if (!CanBeScanned(drive)) continue;
    const Text text = Concat(drive.volumeName, u" (", drive.path, u")");
    const int image = ImageOf(drive);
    Node* node = AddScopeNode(root, drive.path, text, image, image);
    if (node == nullptr) continue;
    node->Checked = true;
    node->Unopened = true;
  }
}

void LoadChildFolders(TextView key) {
  constexpr size_t kDriveLength = 2;
  Node* parent = frmPubMain.trvRes.NodeByKey(key);
  if (parent == nullptr) return;
  parent->Unopened = false;
  const Text path = key.size() == kDriveLength ? Concat(key, u"\\") : Text(key);
  const auto folder = fileSystemObject.GetFolder(path);
  if (!folder) return;
  const auto subFolders = folder->SubFolders();
  if (!subFolders) return;
  for (const Folder& subFolder : *subFolders) {
    const auto subPath = subFolder.Path();
    const auto name = subFolder.Name();
    if (!subPath || !name) continue;
    Node* node = AddScopeNode(parent, *subPath, *name, kFolderImage, kOpenFolderImage);
    if (node != nullptr) node->Unopened = true;
  }
}

void PropagateCheckDown(const Node& node) {
  for (Node* child = node.Child(); child != nullptr; child = child->Next()) {
    child->Checked = node.Checked.Get();
    PropagateCheckDown(*child);
  }
}

void trvRes_NodeCheck(Node& node) {
  if (node.Children() == 0) LoadChildFolders(node.Key);
  PropagateCheckDown(node);
}

void trvRes_NodeClick(Node& node) {
  trvRes_NodeCheck(node);
  node.Expanded = !node.Expanded;
}

}  // namespace tavix::mdlPubSelf
