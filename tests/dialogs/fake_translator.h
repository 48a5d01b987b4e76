// A translator for the dialog tests: keys come back marked, translated forms are recorded.
#pragma once

#include <string>
#include <vector>

#include "state/translation.h"

namespace kxc::testing {

class FakeTranslator : public FormTranslator {
 public:
  void translateForm(controls::Form& form) override { translatedForms.push_back(form.name()); }
  std::string transMes(std::string_view key) override { return "T:" + std::string(key); }

  std::vector<std::string> translatedForms;
};

}  // namespace kxc::testing
