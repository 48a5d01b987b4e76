#include "platform/controls/list_view.h"

#include <algorithm>

#include "platform/controls/form.h"
#include "platform/runtime_error.h"

namespace kxc::controls {

ListView::ListView()
    : Control(Traits{.font = FontAccess::ObjectOnly, .backColor = kColorWhite}),
      columns_(*this),
      items_(*this) {}

ListItem ListView::selectedItem() {
  if (items_.focusIndex() == 0) throw RuntimeError(err::kObjectNotSet);
  return items_.item(items_.focusIndex());
}

void ListView::setMultiSelect(bool on) {
  if (multiSelect_ == on) return;
  multiSelect_ = on;
  if (!on) items_.unselectAllBut(items_.focusIndex());
  notify(Property::MultiSelect);
}

void ListView::clickItem(int32_t index, int shift) {
  if (!enabled() || !visible()) return;
  if (index != 0) items_.item(index);  // 35600 for a row that does not exist
  if (form()) setFocus();
  if (index != 0) {
    const int32_t anchor = items_.focusIndex();
    if (multiSelect_ && (shift & keys::kCtrl)) {
      items_.setSelected(index, !items_.selected(index));
      items_.setFocusIndex(index);
    } else if (multiSelect_ && (shift & keys::kShift) && anchor != 0) {
      items_.unselectAllBut(0);
      for (int32_t row = std::min(anchor, index); row <= std::max(anchor, index); ++row) {
        items_.setSelected(row, true);
      }
      items_.setFocusIndex(index);
    } else {
      items_.unselectAllBut(index);
      items_.setSelected(index, true);
    }
    if (onItemClick) onItemClick(items_.item(index));
  }
  if (onClick) onClick();
}

void ListView::doubleClick() {
  if (enabled() && visible() && onDblClick) onDblClick();
}

void ListView::mouseDown(int button, int shift, double x, double y) {
  if (enabled() && visible() && onMouseDown) onMouseDown(button, shift, x, y);
}

void ListView::mouseUp(int button, int shift, double x, double y) {
  if (enabled() && visible() && onMouseUp) onMouseUp(button, shift, x, y);
}

int ListView::keyDown(int keyCode, int shift) {
  if (onKeyDown) onKeyDown(keyCode, shift);
  return keyCode;
}

void ListView::notifyRows(ListChange change) {
  if (FormView* v = view()) v->listChanged(*this, change);
}

}  // namespace kxc::controls
