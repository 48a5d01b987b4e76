#include "language/language.h"
#include "platform/controls/form.h"
#include "platform/controls/list_view.h"
#include "platform/error_report.h"
#include "platform/text_rules.h"

namespace kxc {

namespace {

void applyFont(controls::Control& control, const FontSettings& fonts) {
  if (control.hasFontName()) {
    bool courier = upperCase(leftChars(control.fontName(), 7)) == "COURIER";
    control.setFontName(courier ? fonts.fixedName : fonts.proportionalName);
    if (auto size = translatedFontSize(control.fontSize(), fonts)) control.setFontSize(*size);
    return;
  }
  if (!control.hasFont()) return;
  // Through the Font object the current name is not consulted: even a Courier font becomes
  // the proportional one.
  controls::FontObject& font = control.font();
  font.setName(fonts.proportionalName);
  if (auto size = translatedFontSize(font.size(), fonts)) font.setSize(*size);
  if (fonts.charSet != 0) font.setCharset(fonts.charSet);
}

}  // namespace

void Language::TranslateForm(controls::Form& form) {
  try {
    GetCurrentLangFromWinReg();
    for (controls::Control* control : form.controls()) {
      ignoringErrors([&] { applyFont(*control, fonts_); });
      std::string_view type = control->typeName();
      if (type == "CommandButton" || type == "Label") {
        if (control->tag().empty()) continue;
        std::string caption = TransMes(control->tag());
        if (!caption.empty()) control->setCaption(caption);
      } else if (auto* list = dynamic_cast<controls::ListView*>(control);
                 list && type == "ListView") {
        for (const auto& header : list->columnHeaders()) {
          std::string text = TransMes(header->tag());
          if (!text.empty()) header->setText(text);
        }
      }
    }
    if (!form.tag().empty()) {
      std::string caption = TransMes(form.tag());
      if (!caption.empty()) form.setCaption(caption);
    }
  } catch (const RuntimeError&) {
    // The form keeps what was translated before the failure; no message.
  }
}

}  // namespace kxc
