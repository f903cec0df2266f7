#include "window/win32/tree_binding.h"

#include <uxtheme.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/windows/wide.h"
#include "window/win32/input.h"

namespace tavix::win32 {
namespace {

// Lengths in twips.
constexpr int kTickHeight = 240;
constexpr int kIndent = 240;
constexpr int kTextSpacer = 120;      // before a text without a check box
constexpr int kMostRowPadding = 120;  // above and below a text together
constexpr int kTextMargin = 2;        // pixels left of a text, within its label

// The width of a text on one line, in pixels.
int WidthIn(HFONT font, TextView text) {
  const windows::ScreenContext screen(GetDC(nullptr));
  const Selection selected(screen.Get(), font);
  SIZE size{};
  GetTextExtentPoint32W(screen.Get(), reinterpret_cast<const wchar_t*>(text.data()),
                        static_cast<int>(text.size()), &size);
  return static_cast<int>(size.cx);
}

// The text, or its beginning and an ellipsis if it is wider.
Text Shortened(HFONT font, TextView text, int width) {
  constexpr size_t kEllipsis = 4;
  const windows::ScreenContext screen(GetDC(nullptr));
  const Selection selected(screen.Get(), font);
  Text words(text);
  words.resize(text.size() + kEllipsis);
  RECT area{0, 0, width, 0};
  DrawTextW(screen.Get(), windows::WideBuffer(words.data()), static_cast<int>(text.size()), &area,
            DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS | DT_MODIFYSTRING);
  return Text(words.c_str());
}

}  // namespace

TreeBinding::TreeBinding(TreeView& model, WindowContext& context, int id, ControlName name, TreeStyle style)
    : OutlinedBinding(model, context, std::move(name)), model_(model), style_(style) {
  const DWORD marks = style.folds ? TVS_HASBUTTONS | TVS_LINESATROOT : 0U;
  CreateOutlined(id, WC_TREEVIEWW,
                 TVS_SHOWSELALWAYS | TVS_NOTOOLTIPS | (style.folds ? 0U : TVS_NOHSCROLL) |
                     (style.checkBoxes ? marks : TVS_FULLROWSELECT));
  SetWindowTheme(Window(), L"Explorer", nullptr);
  if (style.checkBoxes) AddCheckBoxes();
  ShowImages();
  if (style.rowPadding > 0) SetRowHeight(TextHeight(context) + context.Pixels(style.rowPadding));
  model_.treePeer = this;
}

void TreeBinding::AddCheckBoxes() {
  Send(TVM_SETEXTENDEDSTYLE, TVS_EX_DOUBLEBUFFER, TVS_EX_DOUBLEBUFFER);
  // The system makes its boxes when an existing tree gets this style; ours replace them.
  SetWindowLongPtrW(Window(), GWL_STYLE, GetWindowLongPtrW(Window(), GWL_STYLE) | TVS_CHECKBOXES);
}

// The images of the check boxes, or the spacers before texts.
void TreeBinding::ShowImages() {
  ImageList images = style_.checkBoxes ? MakeTickImages(context_, context_.Pixels(kTickHeight), true)
                                       : MakeBlankImages(context_.Pixels(kTextSpacer), 1);
  if (style_.checkBoxes) Send(TVM_SETINDENT, static_cast<WPARAM>(context_.Pixels(kIndent)));
  const auto before =
      reinterpret_cast<HIMAGELIST>(Send(TVM_SETIMAGELIST, style_.checkBoxes ? TVSIL_STATE : TVSIL_NORMAL,
                                        reinterpret_cast<LPARAM>(images.Get())));
  if (before != images_.Get()) ImageList(before).Reset();
  images_ = std::move(images);
}

void TreeBinding::ShowLook() {
  ShowImages();
  if (pictures_) ShowPictures();
  if (style_.rowPadding > 0) {
    SetRowHeight(TextHeight(context_) + context_.Pixels(style_.rowPadding));
  } else if (model_.NodeCount() > 0) {
    FitRows();
  }
}

// The pictures are read when they are first needed.
void TreeBinding::AddPictures() {
  if (style_.pictures && !pictures_) ShowPictures();
}

void TreeBinding::ShowPictures() {
  ImageList pictures = MakeFolderImages(context_);
  Send(TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(pictures.Get()));
  pictures_ = std::move(pictures);
}

void TreeBinding::Detach() {
  model_.treePeer = nullptr;
  OutlinedBinding::Detach();
}

// A node that isn't shown yet is shown as it then is.
void TreeBinding::NodeChanged(Node& node) {
  if (IsShown(node)) changed_.push_back(node.Index);
  ModelChanged();
}

void TreeBinding::NodesCleared() {
  cleared_ = true;
  changed_.clear();
  ModelChanged();
}

void TreeBinding::Show() {
  showing_ = true;
  if (std::exchange(cleared_, false)) {
    items_.clear();
    WithdrawTip();
    Send(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
  }
  const int first = static_cast<int>(items_.size()) + 1;
  if (first <= model_.NodeCount()) InsertFrom(first);
  for (const int index : std::exchange(changed_, {})) ShowNode(*model_.NodeAt(index));
  if (const Node* const node = model_.SelectedItem; node != nullptr && !style_.checkBoxes)
    Send(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(ItemOf(*node)));
  showing_ = false;
}

// Makes rows as high as lets all of them be seen, within limits. A tree that has room for all rows gets no
// scroll bar: some systems would show one for texts that are cut.
void TreeBinding::FitRows() const {
  RECT area;
  GetClientRect(Window(), &area);
  const int text = TextHeight(context_);
  const int fitting = static_cast<int>(area.bottom) / model_.NodeCount();
  const int least = std::max(text, ImageSize()) + context_.Line();
  SetRowHeight(std::clamp(fitting, least, std::max(least, text + context_.Pixels(kMostRowPadding))));
  if (style_.folds) return;
  const LONG_PTR style = GetWindowLongPtrW(Window(), GWL_STYLE) & ~LONG_PTR{TVS_NOSCROLL};
  const bool fits = Send(TVM_GETITEMHEIGHT) * model_.NodeCount() <= area.bottom;
  SetWindowLongPtrW(Window(), GWL_STYLE, style | (fits ? TVS_NOSCROLL : 0));
}

void TreeBinding::InsertFrom(int first) {
  Send(WM_SETREDRAW, FALSE);
  AddPictures();
  if (style_.rowPadding == 0 && (first == 1 || !style_.folds)) FitRows();
  for (int i = first; i <= model_.NodeCount(); ++i) Insert(*model_.NodeAt(i));
  // A node without children can't be opened yet.
  for (int i = first; i <= model_.NodeCount(); ++i) {
    Node* const parent = model_.NodeAt(i)->Parent();
    if (parent != nullptr && parent->Child() == model_.NodeAt(i)) ShowNode(*parent);
  }
  // Opening nodes has scrolled the new tree.
  if (first == 1) Send(TVM_SELECTITEM, TVGN_FIRSTVISIBLE, reinterpret_cast<LPARAM>(items_.front()));
  Send(WM_SETREDRAW, TRUE);
}

// A tree that shortens texts asks for them when it paints. Whoever else asks gets the whole text.
void TreeBinding::Describe(const Node& node, TVITEMW& item) const {
  item.mask |= TVIF_TEXT | TVIF_STATE | TVIF_CHILDREN;
  item.pszText = style_.folds ? const_cast<wchar_t*>(windows::Wide(node.Caption.Get())) : LPSTR_TEXTCALLBACKW;
  item.state = StateOf(node);
  item.stateMask = TVIS_STATEIMAGEMASK | TVIS_BOLD;
  item.cChildren = node.Unopened || node.Children() > 0 ? 1 : 0;
  if (!style_.pictures) return;
  item.mask |= TVIF_IMAGE | TVIF_SELECTEDIMAGE;
  item.iImage = node.Image - 1;
  item.iSelectedImage = node.SelectedImage - 1;
}

void TreeBinding::Insert(Node& node) {
  TVINSERTSTRUCTW insert{};
  insert.hParent = node.Parent() != nullptr ? ItemOf(*node.Parent()) : TVI_ROOT;
  insert.hInsertAfter = TVI_LAST;
  insert.item.mask = TVIF_PARAM;
  insert.item.lParam = node.Index;
  Describe(node, insert.item);
  const LRESULT item = Send(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert));
  items_.push_back(reinterpret_cast<HTREEITEM>(item));
}

void TreeBinding::ShowNode(Node& node) {
  TVITEMW item{};
  item.mask = TVIF_HANDLE;
  item.hItem = ItemOf(node);
  Describe(node, item);
  const auto box = [&] {
    return Send(TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item.hItem), TVIS_STATEIMAGEMASK);
  };
  const LRESULT before = box();
  Send(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
  if (box() != before) AnnounceTick(item.hItem);
  const auto state = Send(TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item.hItem), TVIS_EXPANDED);
  if (((state & TVIS_EXPANDED) != 0) != node.Expanded) {
    Send(TVM_EXPAND, node.Expanded ? TVE_EXPAND : TVE_COLLAPSE, reinterpret_cast<LPARAM>(item.hItem));
  }
  Redraw();
}

// Tells screen readers that a tick has turned.
void TreeBinding::AnnounceTick(HTREEITEM item) const {
  NotifyWinEvent(EVENT_OBJECT_STATECHANGE, Window(), OBJID_CLIENT,
                 static_cast<LONG>(Send(TVM_MAPHTREEITEMTOACCID, reinterpret_cast<WPARAM>(item))));
}

UINT TreeBinding::StateOf(const Node& node) const {
  const UINT bold = node.Bold ? TVIS_BOLD : 0U;
  if (!style_.checkBoxes) return bold;
  const Tick ticked = node.BackColor == kButtonFace ? Tick::kPart : Tick::kWhole;
  // Images are counted from 1, in the order of `Tick`.
  return bold | INDEXTOSTATEIMAGEMASK(1U + static_cast<UINT>(node.Checked ? ticked : Tick::kNone));
}

Node* TreeBinding::NodeOf(HTREEITEM handle) const {
  TVITEMW item{};
  item.mask = TVIF_HANDLE | TVIF_PARAM;
  item.hItem = handle;
  if (handle == nullptr || cleared_ || Send(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)) == FALSE)
    return nullptr;
  return model_.NodeAt(static_cast<int>(item.lParam));
}

TVHITTESTINFO TreeBinding::HitTest(POINT position) const {
  TVHITTESTINFO hit{};
  hit.pt = position;
  Send(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  return hit;
}

LRESULT TreeBinding::OnNotify(NMHDR& header) {
  switch (header.code) {
    case NM_CUSTOMDRAW:
      return style_.checkBoxes ? PaintNode(reinterpret_cast<NMTVCUSTOMDRAW&>(header)) : CDRF_DODEFAULT;
    case NM_CLICK:
      if (style_.checkBoxes) OnClick();
      return 0;
    case TVN_GETDISPINFOW:
      return FillText(reinterpret_cast<NMTVDISPINFOW&>(header).item), 0;
    case TVN_ITEMEXPANDINGW:
      return OnOpening(reinterpret_cast<NMTREEVIEWW&>(header)) ? TRUE : FALSE;
    case TVN_ITEMEXPANDEDW:
      return OnExpanded(reinterpret_cast<NMTREEVIEWW&>(header)), 0;
    case TVN_SELCHANGEDW:
      return OnSelected(reinterpret_cast<NMTREEVIEWW&>(header)), 0;
    default:
      return 0;
  }
}

LRESULT TreeBinding::PaintNode(NMTVCUSTOMDRAW& draw) const {
  if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  const bool selected = (draw.nmcd.uItemState & CDIS_SELECTED) != 0;
  const Node* const node =
      selected || cleared_ ? nullptr : model_.NodeAt(static_cast<int>(draw.nmcd.lItemlParam));
  if (node != nullptr) {
    if (node->BackColor != kButtonFace) draw.clrTextBk = ScreenColor(node->BackColor);
    draw.clrText = ScreenColor(node->ForeColor);
  }
  return CDRF_DODEFAULT;
}

bool TreeBinding::LabelArea(HTREEITEM item, RECT& area) const {
  // The message reads the node from the memory to which it writes the rectangle.
  union {
    HTREEITEM item;
    RECT area;
  } label{};
  label.item = item;
  if (Send(TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&label)) == FALSE) return false;
  area = label.area;
  return true;
}

void TreeBinding::FillText(TVITEMW& item) {
  if ((item.mask & TVIF_TEXT) == 0 || item.cchTextMax <= 0) return;
  const Node* const node = cleared_ ? nullptr : model_.NodeAt(static_cast<int>(item.lParam));
  Text text;
  if (node != nullptr) text = painting_ ? ShortText(item.hItem, *node) : node->Caption.Get();
  const size_t length = std::min(text.size(), static_cast<size_t>(item.cchTextMax) - 1);
  *std::copy_n(text.begin(), length, item.pszText) = L'\0';
}

// To measure the label, the tree may ask for its text again.
Text TreeBinding::ShortText(HTREEITEM item, const Node& node) {
  painting_ = false;
  RECT label{}, area{};
  const bool seen = LabelArea(item, label);
  painting_ = true;
  if (!seen) return node.Caption;
  GetClientRect(Window(), &area);
  const HFONT font = (node.Bold ? context_.boldFont : context_.font).Get();
  return Shortened(font, node.Caption.Get(), static_cast<int>(area.right - label.left) - 2 * kTextMargin);
}

LRESULT TreeBinding::PaintAll(UINT message, WPARAM wParam, LPARAM lParam) {
  painting_ = true;
  const LRESULT result = PassOn(message, wParam, lParam);
  painting_ = false;
  return result;
}

void TreeBinding::WithdrawTip() {
  pointed_ = nullptr;
  tip_.Withdraw();
}

// The text of the row under the mouse gets a tip if it isn't all in sight.
void TreeBinding::OfferTip(POINT mouse) {
  const HTREEITEM item = HitTest(mouse).hItem;
  if (item == pointed_) return;
  pointed_ = item;
  tip_.Withdraw();
  const Node* const node = NodeOf(item);
  RECT label{}, row{};
  if (node == nullptr || !LabelArea(item, label)) return;
  const HFONT font = (node->Bold ? context_.boldFont : context_.font).Get();
  GetClientRect(Window(), &row);
  RECT text = label;
  text.left += kTextMargin;
  text.right = text.left + WidthIn(font, node->Caption.Get());
  if (text.left >= 0 && text.right <= row.right) return;
  OffsetRect(&text, static_cast<int>(std::max<LONG>(-text.left, 0)), 0);
  row.top = label.top;
  row.bottom = label.bottom;
  tip_.Offer(Window(), row, text, font, node->Caption.Get());
}

void TreeBinding::OnClick() {
  POINT position;
  GetCursorPos(&position);
  ScreenToClient(Window(), &position);
  const TVHITTESTINFO hit = HitTest(position);
  if ((hit.flags & (TVHT_ONITEMLABEL | TVHT_ONITEMICON)) == 0) return;
  if (Node* const node = NodeOf(hit.hItem); node != nullptr) model_.NodeClick(*node);
}

// True if the tree itself isn't to open the node: the model does, as after a click on the node.
bool TreeBinding::OnOpening(const NMTREEVIEWW& change) {
  Node* const node = showing_ ? nullptr : NodeOf(change.itemNew.hItem);
  if (node == nullptr || !node->Unopened || node->Children() > 0) return false;
  model_.NodeClick(*node);
  return true;
}

void TreeBinding::OnExpanded(const NMTREEVIEWW& change) {
  Node* const node = showing_ ? nullptr : NodeOf(change.itemNew.hItem);
  if (node != nullptr) node->Expanded = (change.action & TVE_TOGGLE) == TVE_EXPAND;
}

void TreeBinding::OnSelected(const NMTREEVIEWW& change) {
  Node* const node = showing_ ? nullptr : NodeOf(change.itemNew.hItem);
  if (node == nullptr) return;
  const bool byKey = searching_ || change.action == TVC_BYKEYBOARD;
  const bool clicks = style_.checkBoxes ? !style_.folds && byKey : node != model_.SelectedItem.Get();
  if (clicks) model_.NodeClick(*node);
  if (style_.folds && byKey) ScrollTo(change.itemNew.hItem);
}

void TreeBinding::GoToLetter(char16_t letter) {
  std::vector<HTREEITEM> shown;
  const auto next = [this](WPARAM which, HTREEITEM item) {
    return reinterpret_cast<HTREEITEM>(Send(TVM_GETNEXTITEM, which, reinterpret_cast<LPARAM>(item)));
  };
  for (HTREEITEM item = next(TVGN_ROOT, nullptr); item != nullptr; item = next(TVGN_NEXTVISIBLE, item))
    shown.push_back(item);
  const auto caret = std::ranges::find(shown, next(TVGN_CARET, nullptr));
  const int focused = caret == shown.end() ? -1 : static_cast<int>(caret - shown.begin());
  const auto textOf = [&](int row) {
    const Node* const node = NodeOf(shown[static_cast<size_t>(row)]);
    return node == nullptr ? TextView() : TextView(node->Caption.Get());
  };
  const int row = context_.letters.Type(Window(), letter, {static_cast<int>(shown.size()), focused, textOf});
  if (row < 0) return;
  searching_ = true;
  Send(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(shown[static_cast<size_t>(row)]));
  searching_ = false;
}

// `wheel` is above 0 to the right.
void TreeBinding::ScrollSideways(int wheel) {
  UINT columns = 3;
  SystemParametersInfoW(SPI_GETWHEELSCROLLCHARS, 0, &columns, 0);
  if (columns == 0) return;
  if ((wheel < 0) != (wheel_ < 0)) wheel_ = 0;
  wheel_ += wheel;
  const int notch = std::max(WHEEL_DELTA / static_cast<int>(std::min<UINT>(columns, WHEEL_DELTA)), 1);
  for (; std::abs(wheel_) >= notch; wheel_ -= wheel_ < 0 ? -notch : notch)
    Send(WM_HSCROLL, wheel_ < 0 ? SB_LINELEFT : SB_LINERIGHT);
}

// Scrolls sideways until the mark, the box, the picture and the text of a node are in sight, the first ones
// if not all of them fit.
void TreeBinding::ScrollTo(HTREEITEM item) const {
  RECT label{}, area{};
  if (!LabelArea(item, label)) return;
  GetClientRect(Window(), &area);
  const int before = ImageSize() + TickWidth(context_) + context_.Pixels(kIndent);
  const int left = static_cast<int>(label.left) - before;
  const int beyond = std::max<int>(0, static_cast<int>(label.right - area.right));
  const int by = left < beyond ? left : beyond;
  const int position = GetScrollPos(Window(), SB_HORZ) + by;
  if (by != 0) Send(WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, std::max(position, 0)));
}

std::optional<LRESULT> TreeBinding::OnKey(WPARAM key) {
  // Opening everything would list whole drives.
  if (key == VK_MULTIPLY) return 0;
  if (key != VK_SPACE && key != VK_RETURN) return std::nullopt;
  Node* const node = NodeOf(reinterpret_cast<HTREEITEM>(Send(TVM_GETNEXTITEM, TVGN_CARET)));
  if (node == nullptr) return 0;
  if (key == VK_SPACE) {
    model_.UserCheck(*node, !node->Checked);
  } else {
    model_.NodeClick(*node);
  }
  return 0;
}

// Keeps the tip at the row under the mouse. The result is what the tip is told.
std::optional<LRESULT> TreeBinding::TipMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DESTROY) tip_.Close();
  if (message == WM_MOUSEMOVE) OfferTip(PointOf(lParam));
  // The rows have moved under the mouse, or the mouse has left them.
  constexpr UINT kEnds[] = {WM_MOUSEWHEEL, WM_MOUSEHWHEEL, WM_HSCROLL, WM_VSCROLL, WM_KEYDOWN, WM_MOUSELEAVE};
  if (std::ranges::find(kEnds, message) != std::end(kEnds)) WithdrawTip();
  if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) tip_.Relay(Window(), message, wParam, lParam);
  if (message != WM_NOTIFY) return std::nullopt;
  const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
  if (header.code != TTN_SHOW || header.hwndFrom != tip_.Window()) return std::nullopt;
  return tip_.Place(), TRUE;
}

std::optional<LRESULT> TreeBinding::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_PAINT || message == WM_PRINTCLIENT) return PaintAll(message, wParam, lParam);
  if (const auto done = TipMessage(message, wParam, lParam)) return done;
  const int wheel = GET_WHEEL_DELTA_WPARAM(wParam);
  if (message == WM_MOUSEHWHEEL) return ScrollSideways(wheel), 0;
  if (message == WM_MOUSEWHEEL && (GET_KEYSTATE_WPARAM(wParam) & MK_SHIFT) != 0)
    return ScrollSideways(-wheel), 0;
  if (message == WM_CHAR) {
    if (wParam > VK_SPACE) GoToLetter(static_cast<char16_t>(wParam));
    return 0;
  }
  if (!style_.checkBoxes) return OutlinedBinding::OnMessage(message, wParam, lParam);
  if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK) {
    const TVHITTESTINFO hit = HitTest(PointOf(lParam));
    Node* const node = hit.flags == TVHT_ONITEMSTATEICON ? NodeOf(hit.hItem) : nullptr;
    if (node == nullptr) return std::nullopt;
    SetFocus(Window());
    model_.UserCheck(*node, !node->Checked);
    return 0;
  }
  if (message == WM_KEYDOWN) {
    if (const auto done = OnKey(wParam)) return done;
  }
  if (message == WM_GETDLGCODE && wParam == VK_RETURN) return DLGC_WANTARROWS | DLGC_WANTMESSAGE;
  return OutlinedBinding::OnMessage(message, wParam, lParam);
}

}  // namespace tavix::win32
