#include "platform/qt/text_box_widget.h"

#include <QKeyEvent>

#include "platform/qt/guarded_call.h"
#include "platform/qt/key_mapping.h"
#include "platform/qt/qt_text.h"

namespace kxc::qt {

TextBoxWidget::TextBoxWidget(controls::TextBox& box, QWidget* parent)
    : QLineEdit(parent), box_(box) {
  showText();
  connect(this, &QLineEdit::textEdited, this,
          [this](const QString& text) { guarded(box_, [&] { box_.setText(fromQString(text)); }); });
}

void TextBoxWidget::showText() {
  const QString text = toQString(box_.text());
  if (this->text() != text) setText(text);
}

void TextBoxWidget::keyPressEvent(QKeyEvent* event) {
  if (const int code = hostKeyCode(event->key(), event->modifiers())) {
    int left = code;
    guarded(box_, [&] { left = box_.keyDown(code, hostShiftFlags(event->modifiers())); });
    if (left == 0) {
      event->accept();
      return;
    }
  }
  QLineEdit::keyPressEvent(event);
}

}  // namespace kxc::qt
