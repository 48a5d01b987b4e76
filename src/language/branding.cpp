#include "language/branding.h"

#include <cstdio>

#include "platform/runtime_error.h"
#include "platform/text_rules.h"

namespace kxc {

namespace {

int16_t countFrom(const std::string& text) {
  double n = roundHalfEven(leadingNumber(text));
  if (n < -32768 || n > 32767) return 0;  // no count a person could mean
  return static_cast<int16_t>(n);
}

}  // namespace

void Branding::loadRules(const BrandingFinder& find) {
  std::string text;
  count_ = find("Count", text, "0") ? 0 : countFrom(text);
  rules_.clear();
  for (int k = 1; k <= count_; ++k) {
    char prefix[16];
    std::snprintf(prefix, sizeof prefix, "%03d-", k);
    RenameRule rule;
    if (find(std::string(prefix) + "Pattern", rule.Pattern, "") ||
        find(std::string(prefix) + "Replace", rule.Replace, "") ||
        find(std::string(prefix) + "With", rule.With, "")) {
      continue;
    }
    if (trimSpaces(rule.Pattern).empty() || trimSpaces(rule.Replace).empty() || rule.With.empty()) {
      continue;
    }
    rules_.resize(static_cast<std::size_t>(k));
    rules_[static_cast<std::size_t>(k) - 1] = std::move(rule);
  }
}

void Branding::setState(bool enabled, std::string brandWord) {
  enabled_ = enabled;
  brandWord_ = std::move(brandWord);
}

void Branding::apply(std::string& text, bool skipFailures) const {
  for (int r = 1; r <= count_; ++r) {
    try {
      if (static_cast<std::size_t>(r) > rules_.size()) throw RuntimeError(err::kSubscript);
      const RenameRule& rule = rules_[static_cast<std::size_t>(r) - 1];
      if (likeMatch(text, rule.Pattern)) text = replaceAll(text, rule.Replace, rule.With);
    } catch (const RuntimeError&) {
      if (!skipFailures) throw;
    }
  }
  if (text.find(kProductWord) != std::string::npos)
    text = replaceAll(text, kProductWord, brandWord_);
}

}  // namespace kxc
