#include "platform/controls/control.h"

#include "platform/controls/form.h"
#include "platform/runtime_error.h"

namespace kxc::controls {

void FontObject::setName(std::string name) {
  name_ = std::move(name);
  owner_.notify(Property::Font);
}

void FontObject::setSize(double size) {
  size_ = size;
  owner_.notify(Property::Font);
}

void FontObject::setCharset(int16_t charset) {
  charset_ = charset;
  owner_.notify(Property::Font);
}

Control::Control(Traits traits)
    : hasCaption_(traits.caption),
      canFocus_(traits.focus),
      backColor_(traits.backColor),
      fontAccess_(traits.font),
      font_(*this) {}

void Control::setTag(std::string tag) {
  tag_ = std::move(tag);
  notify(Property::Tag);
}

const std::string& Control::caption() const {
  if (!hasCaption_) throw RuntimeError(err::kNoSuchMember);
  return caption_;
}

void Control::setCaption(std::string caption) {
  if (!hasCaption_) throw RuntimeError(err::kNoSuchMember);
  caption_ = std::move(caption);
  notify(Property::Caption);
}

void Control::setEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  notify(Property::Enabled);
}

void Control::setVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  notify(Property::Visible);
}

void Control::setBackColor(int32_t color) {
  backColor_ = color;
  notify(Property::BackColor);
}

void Control::move(int32_t left, int32_t top, int32_t width, int32_t height) {
  if (width < 0 || height < 0) throw controlError(errc::kInvalidPropertyValue);
  left_ = left;
  top_ = top;
  width_ = width;
  height_ = height;
  notify(Property::Geometry);
}

void Control::setSize(int32_t width, int32_t height) { move(left_, top_, width, height); }

const std::string& Control::fontName() const {
  if (!hasFontName()) throw RuntimeError(err::kNoSuchMember);
  return font_.name_;
}

void Control::setFontName(std::string name) {
  if (!hasFontName()) throw RuntimeError(err::kNoSuchMember);
  font_.setName(std::move(name));
}

double Control::fontSize() const {
  if (!hasFontName()) throw RuntimeError(err::kNoSuchMember);
  return font_.size_;
}

void Control::setFontSize(double size) {
  if (!hasFontName()) throw RuntimeError(err::kNoSuchMember);
  font_.setSize(size);
}

FontObject& Control::font() {
  if (!hasFont()) throw RuntimeError(err::kNoSuchMember);
  return font_;
}

const FontObject& Control::font() const {
  if (!hasFont()) throw RuntimeError(err::kNoSuchMember);
  return font_;
}

void Control::setFocus() {
  if (!canFocus_) throw RuntimeError(err::kNoSuchMember);
  if (!enabled_ || !visible_) throw RuntimeError(err::kInvalidCall);
  if (form_) form_->setActiveControl(this);
}

bool Control::hasFocus() const { return form_ && form_->activeControl() == this; }

void Control::notify(Property property) {
  if (FormView* v = view()) v->propertyChanged(this, property);
}

FormView* Control::view() const { return form_ ? form_->view() : nullptr; }

}  // namespace kxc::controls
