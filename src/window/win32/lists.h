#pragma once

#include <array>
#include <vector>

#include "controls/check_list.h"
#include "controls/list_box.h"
#include "controls/list_view.h"
#include "window/win32/marks.h"
#include "window/win32/window_binding.h"

// All lists of rows. Rows are counted from 0 here, as the system does.
namespace tavix::win32 {

//--- Virtual list

// A report list that keeps no rows: it asks for what it paints. A click on a box or the space bar changes the
// tick in the model only; the shown tick follows it. Letters lead to the row that begins with them.
class VirtualList : public OutlinedBinding {
 public:
  LRESULT OnNotify(NMHDR& header) override;

 protected:
  static constexpr int kRowHeight = 270;  // twips

  VirtualList(Control& model, WindowContext& context, int id, DWORD style, ControlName name);

  virtual int RowCount() = 0;
  virtual TextView TextAt(int row, int column) = 0;
  virtual bool CheckedAt(int row) = 0;
  virtual void Toggle(int row) = 0;
  // The space bar was pressed on a row.
  virtual void OnSpace(int row) { Toggle(row); }
  // The model's row in focus, -1 for none.
  virtual int FocusedRow() = 0;
  // The user has moved the focus to this row.
  virtual void OnRowFocused(int row) = 0;
  // `row` is -1 for a click beside all rows.
  virtual void OnRowClick(int row) = 0;
  virtual void OnColumnClick(int column) { (void)column; }
  // The user has highlighted these rows, or ended that; `first` below 0 means all rows.
  virtual void OnRowsHighlighted(int first, int last, bool highlighted) {
    (void)first, (void)last, (void)highlighted;
  }
  // Whether a row is highlighted, if the list asks for that (see AskFor).
  virtual bool HighlightedAt(int row) { return (void)row, false; }
  virtual COLORREF TextColorAt(int row) { return (void)row, GetSysColor(COLOR_WINDOWTEXT); }
  void ShowLook() override;
  // Whether the list scrolls to a row that the program puts the focus on.
  virtual bool ScrollsToFocus() const { return false; }
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  void AddColumn(int column, TextView caption, int pixels);
  // The states (LVIS_...) that the list asks for, and keeps none of: the boxes, unless changed.
  void AskFor(UINT states);
  // Tells the list how many rows there are, moves its focus to the model's and repaints it.
  void ShowRows();
  // Sets a state (LVIS_...) of one row, or of all rows for -1.
  void SetState(int row, UINT mask, UINT state) const;
  // The list's own row in focus, -1 for none.
  int ShownFocus() const;
  bool Has(int row) { return row >= 0 && row < RowCount(); }

 private:
  void ShowTicks();
  LRESULT Fill(LVITEMW& item);
  LRESULT PaintRow(NMLVCUSTOMDRAW& draw);
  SearchedRows Searched();
  LRESULT FindAsked(const NMLVFINDITEMW& asked);
  void GoToLetter(char16_t letter);
  void RowChanged(const NMLISTVIEW& change);
  void RowsChanged(const NMLVODSTATECHANGE& change);
  void ShowFocus();
  void AnnounceTick();
  int RowOfBoxAt(LPARAM position) const;
  bool SelectsOne() const { return (GetWindowLongPtrW(Window(), GWL_STYLE) & LVS_SINGLESEL) != 0; }

  ImageList ticks_;
  UINT asked_ = 0;
  int saidRow_ = -1;  // the row in focus, and whether it had a tick when screen readers last heard of it
  bool saidTick_ = false;
  bool showing_ = false;  // changes are the program's, not the user's
};

//--- Check list

// The function list: one column without a header.
class CheckListBinding : public VirtualList {
 public:
  CheckListBinding(CheckList& model, WindowContext& context, int id, ControlName name);

 protected:
  void Show() override;
  int RowCount() override { return model_.ListCount(); }
  TextView TextAt(int row, int column) override { return column == 0 ? model_.List(row) : TextView(); }
  bool CheckedAt(int row) override { return model_.Selected(row); }
  void Toggle(int row) override;
  int FocusedRow() override { return model_.ListIndex; }
  void OnRowFocused(int row) override;
  void OnRowClick(int row) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnMouseMove(int buttons) override { model_.MouseMove(buttons); }

 private:
  CheckList& model_;
  bool clickReported_ = false;  // the click in progress has moved the focus, which the model knows
};

//--- List view

struct ListStyle {
  bool checkBoxes = true;
  bool followsFocus = false;  // the list scrolls to a row that the program puts the focus on
};
constexpr ListStyle kResultList{};
constexpr ListStyle kTickedOptionList{.followsFocus = true};
constexpr ListStyle kPlainOptionList{.checkBoxes = false, .followsFocus = true};

// Columns with sort marks, rows with colours of their own, any number of them highlighted. The model keeps
// the highlights and the list asks it for those that it paints: so all rows change at once. The list keeps
// the focus.
class ListViewBinding : public VirtualList {
 public:
  ListViewBinding(ListView& model, WindowContext& context, int id, ControlName name, ListStyle style);
  LRESULT OnNotify(NMHDR& header) override;

 protected:
  void Show() override;
  void ShowLook() override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  int RowCount() override { return model_.Count(); }
  TextView TextAt(int row, int column) override;
  bool CheckedAt(int row) override { return model_.Row(row + 1).Checked(); }
  void Toggle(int row) override;
  void OnSpace(int row) override;
  int FocusedRow() override { return model_.SelectedRow() - 1; }
  void OnRowFocused(int row) override;
  void OnRowsHighlighted(int first, int last, bool highlighted) override;
  bool HighlightedAt(int row) override { return model_.Row(row + 1).Selected(); }
  void OnRowClick(int row) override;
  void OnColumnClick(int column) override { model_.ColumnClick(column + 1); }
  COLORREF TextColorAt(int row) override;
  bool ScrollsToFocus() const override { return style_.followsFocus; }
  void OnMouseMove(int buttons) override { model_.MouseMove(buttons); }

 private:
  void RemoveCheckBoxes();
  void ShowSpacers();
  void ShowColumns();
  void ScaleColumns();
  void ShowColors();
  int SortMark(int header) const;
  std::optional<LRESULT> OnHighlightMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void PassOnState(int row, UINT state) const;
  UINT BoxStates() const { return style_.checkBoxes ? LVIS_STATEIMAGEMASK : 0; }
  int NextHighlighted(int row);
  void HighlightTo(int row, bool range, bool adds);
  void AnnounceHighlights();
  int RowOfKey(WPARAM key) const;
  void MoveFocus(WPARAM key);
  void FocusOn(int row);
  LRESULT Press(UINT message, WPARAM wParam, LPARAM lParam);
  void BeginFrame();
  void EndFrame();
  void AskForMenu(LPARAM position);

  ListView& model_;
  ListStyle style_;
  // As they were shown last.
  std::array<ListView::ColumnHeader, ListView::kColumns> columns_;
  std::array<int, ListView::kColumns> sortMarks_{};
  std::array<int, ListView::kColumns> pulled_{};  // their widths in twips, if the user has changed them
  COLORREF back_ = CLR_NONE;
  ImageList spacers_;     // keep rows without boxes apart
  int mark_ = -1;         // the row where a range begins
  bool framing_ = false;  // a press beside all rows lasts
};

//--- List box

// A list of lines, any number of which can be selected. Letters lead to the next line that begins with them;
// the signs of a pattern before its first letter don't count.
class ListBoxBinding : public OutlinedBinding {
 public:
  ListBoxBinding(ListBox& model, WindowContext& context, int id, ControlName name);
  void OnCommand(int code) override;
  HBRUSH OnColors(HDC context) override;

 protected:
  void Show() override;
  void ShowLook() override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void ShowRows();
  void GoToLetter(char16_t letter);
  bool IsSelected(int row) const { return Send(LB_GETSEL, static_cast<WPARAM>(row)) > 0; }

  ListBox& model_;
  std::vector<Text> rows_;  // as they were shown last
};

}  // namespace tavix::win32
