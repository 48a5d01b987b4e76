// The base of every control in the toolkit-neutral control model: name, tag, caption, enabled,
// visible, back colour, font, geometry and focus, with change notices to the form's view.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/controls/form_view.h"

namespace kxc::controls {

class Form;
class Control;

// Colours are 0x00BBGGRR.
inline constexpr int32_t kColorWhite = 0xFFFFFF;
inline constexpr int32_t kColorYellow = 0x00FFFF;
inline constexpr int32_t kColorButtonFace = 0xF0F0F0;

// The font every control has at design time.
inline constexpr std::string_view kDefaultFontName = "MS Sans Serif";
inline constexpr double kDefaultFontSize = 8.25;

// How a control exposes its font. The simple controls (text box, label, button, frame) have the
// FontName/FontSize pair and a Font object; the complex ones (list view, grid) only the object;
// menus have no font at all.
enum class FontAccess { None, ObjectOnly, NameAndObject };

// A control's Font object: name, size in points and character set. Setting a value notifies the
// form's view. Owned by its control.
class FontObject {
 public:
  const std::string& name() const { return name_; }
  void setName(std::string name);
  double size() const { return size_; }
  void setSize(double size);
  int16_t charset() const { return charset_; }
  void setCharset(int16_t charset);

 private:
  friend class Control;
  explicit FontObject(Control& owner) : owner_(owner) {}
  Control& owner_;
  std::string name_{kDefaultFontName};
  double size_ = kDefaultFontSize;
  int16_t charset_ = 0;
};

// A control. Forms own their controls (Form::add); a control made on its own works the same
// but has no view to notify and no form to focus. Members that a kind of control does not have
// raise 438 "Object doesn't support this property or method". Not thread-safe: used on the
// user-interface thread only.
class Control {
 public:
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  // The kind of control as the dialogs test it: "TextBox", "Label", "CommandButton", "Frame",
  // "ListView", "Grid", "Menu".
  virtual std::string_view typeName() const = 0;

  const std::string& name() const { return name_; }
  Form* form() const { return form_; }

  const std::string& tag() const { return tag_; }
  void setTag(std::string tag);

  bool hasCaption() const { return hasCaption_; }
  const std::string& caption() const;  // 438 without a caption
  void setCaption(std::string caption);

  bool enabled() const { return enabled_; }
  void setEnabled(bool enabled);
  bool visible() const { return visible_; }
  void setVisible(bool visible);

  int32_t backColor() const { return backColor_; }
  void setBackColor(int32_t color);

  // Position and size in twips.
  int32_t left() const { return left_; }
  int32_t top() const { return top_; }
  int32_t width() const { return width_; }
  int32_t height() const { return height_; }
  void move(int32_t left, int32_t top, int32_t width, int32_t height);
  void setSize(int32_t width, int32_t height);

  bool hasFontName() const { return fontAccess_ == FontAccess::NameAndObject; }
  bool hasFont() const { return fontAccess_ != FontAccess::None; }
  const std::string& fontName() const;  // 438 unless hasFontName()
  void setFontName(std::string name);   // 438 unless hasFontName()
  double fontSize() const;              // 438 unless hasFontName()
  void setFontSize(double size);        // 438 unless hasFontName()
  FontObject& font();                   // 438 unless hasFont()
  const FontObject& font() const;

  bool canFocus() const { return canFocus_; }
  // Makes this control the form's active control. 438 for controls that never take the focus,
  // 5 "Invalid procedure call or argument" when the control is disabled or hidden.
  void setFocus();
  bool hasFocus() const;

 protected:
  struct Traits {
    FontAccess font = FontAccess::NameAndObject;
    bool caption = false;
    bool focus = true;
    int32_t backColor = kColorButtonFace;
  };
  explicit Control(Traits traits);

  // Tells the form's view, if any, that `property` changed.
  void notify(Property property);
  FormView* view() const;

 private:
  friend class Form;
  friend class FontObject;

  std::string name_;
  Form* form_ = nullptr;
  std::string tag_;
  std::string caption_;
  bool hasCaption_;
  bool canFocus_;
  bool enabled_ = true;
  bool visible_ = true;
  int32_t backColor_;
  int32_t left_ = 0;
  int32_t top_ = 0;
  int32_t width_ = 1215;
  int32_t height_ = 375;
  FontAccess fontAccess_;
  FontObject font_;
};

}  // namespace kxc::controls
