// The lookup dialog's selection text: encoding which rows of a list are selected into a compact
// text (`MultipleSelectGet`) and selecting the rows such a text names (`MultipleSelectSet`).
//
// The text joins pieces with ","; a piece is one row's text, or first ".." last for a run of
// selected rows; a leading "<<" marks a text naming more than one row; "<ALL>" is dropped where
// it would only mean every member. The two directions are deliberately not exact inverses:
// decoding the encoded text reselects the same rows when the row texts are unique, non-empty,
// free of ",", ".." and "<<", do not begin or end with ".", and (outside single mode) are
// sorted in binary order; except that a selected "<ALL>" first row is dropped unless it is the
// only selected row, every row is selected, or the list has at most two rows. Decoding ""
// keeps the current selection, so an empty selection does not come back.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kxc {

// The rows the codec works on, numbered 1 to count(). Implemented over a list widget.
// Texts returned must stay valid while only the selection changes.
class SelectionRows {
 public:
  virtual ~SelectionRows() = default;
  virtual int32_t count() const = 0;
  virtual std::string_view text(int32_t row) const = 0;
  virtual bool selected(int32_t row) const = 0;
  virtual void setSelected(int32_t row, bool on) = 0;
};

inline constexpr std::string_view kAllMembers = "<ALL>";

// Encodes the selection of `rows`. When `singleMode` is false on entry and exactly one row is
// selected, it is switched to true. Every selected row is then a piece of its own in single
// mode; otherwise runs become first..last pieces. `first`, `last` and `isRange` receive the
// parts of the result (the whole list and "" when it has two or more pieces; the two sides of
// the first ".." for one piece; untouched otherwise). More than 32767 selected rows (before
// the switch) or pieces raise 6 "Overflow"; errors of `rows` pass through.
std::string encodeSelection(const SelectionRows& rows, std::string& first, std::string& last,
                            bool& singleMode, bool& isRange);

// Unselects every row, then selects the rows each piece of `text` names: the first row whose
// text equals the piece, or for from..to the first row equal to from and the rows after it
// up to (not including) the first whose text sorts after to in binary order. Pieces naming no
// row are ignored. An empty text changes nothing. Errors of `rows` pass through.
void decodeSelection(SelectionRows& rows, std::string_view text);

// encodeSelection behind the error trap: an error is reported ("FrmLookup MultipleSelectGet")
// and the result is then "" (the by-reference outputs keep what they had received).
std::string MultipleSelectGet(const SelectionRows& rows, std::string& first, std::string& last,
                              bool& singleMode, bool& isRange);

// decodeSelection behind the error trap ("FrmLookup MultipleSelectSet"): rows selected before
// an error stay selected. Always returns 0.
int16_t MultipleSelectSet(SelectionRows& rows, std::string_view text);

}  // namespace kxc
