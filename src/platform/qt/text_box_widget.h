// The widget of a text box: a QLineEdit whose edits become TextBox::setText (raising Change)
// and whose keys go to TextBox::keyDown first.
#pragma once

#include <QLineEdit>

#include "platform/controls/text_box.h"

namespace kxc::qt {

// A key the handler consumes (leaves code 0) never reaches the line edit. The text box must
// outlive the widget.
class TextBoxWidget : public QLineEdit {
 public:
  explicit TextBoxWidget(controls::TextBox& box, QWidget* parent = nullptr);

  // Shows the text box's text, unless the line edit already holds it (the cursor stays).
  void showText();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  controls::TextBox& box_;
};

}  // namespace kxc::qt
