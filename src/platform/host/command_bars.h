// The host's command bars: the worksheet menu bar (index 1) and the cell context menu ("Cell"),
// holding controls that an add-in adds and removes by tag.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace kxc::host {

enum class ControlType { Button = 1, Popup = 10 };

class CommandBarControls;

class CommandBarControl {
 public:
  virtual ~CommandBarControl() = default;
  virtual ControlType type() const = 0;
  virtual std::string caption() const = 0;  // may hold an "&" before the access key
  virtual void setCaption(const std::string& caption) = 0;
  virtual std::string tag() const = 0;
  virtual void setTag(const std::string& tag) = 0;
  // The command the control runs when chosen.
  virtual std::string onAction() const = 0;
  virtual void setOnAction(const std::string& command) = 0;
  virtual std::string parameter() const = 0;
  virtual void setParameter(const std::string& parameter) = 0;
  // The children of a popup; raises 438 for a button.
  virtual CommandBarControls& controls() = 0;
  // Removes the control (and a popup's children) from its bar.
  virtual void deleteControl() = 0;
};

using ControlRef = std::shared_ptr<CommandBarControl>;

class CommandBarControls {
 public:
  virtual ~CommandBarControls() = default;
  virtual int32_t count() const = 0;
  virtual ControlRef item(int32_t index) const = 0;  // 1-based; raises 5 out of range
  // Appends a control of the type (or inserts it before the 1-based `before`).
  virtual ControlRef add(ControlType type, int32_t before = 0) = 0;
};

class CommandBar {
 public:
  virtual ~CommandBar() = default;
  virtual std::string name() const = 0;
  virtual CommandBarControls& controls() = 0;
  // The first control with this tag, searching the bar's own controls and then their
  // children in order; null when there is none.
  virtual ControlRef findControl(const std::string& tag) = 0;
};

using BarRef = std::shared_ptr<CommandBar>;

class CommandBars {
 public:
  virtual ~CommandBars() = default;
  virtual BarRef item(const std::string& name) = 0;  // raises 5 when there is no such bar
  virtual BarRef item(int32_t index) = 0;            // 1-based; raises 5 out of range
};

}  // namespace kxc::host
