#include "language/language.h"

#include "language/catalogue_folder.h"
#include "platform/runtime_error.h"
#include "platform/text_rules.h"
#include "platform/tm_win_reg.h"

namespace kxc {

namespace {

constexpr const char* kCurrentLanguageValue = "CurrentLanguage";
constexpr int kInvalidUseOfNull = 94;

// Thrown by a failing step of a TransMes call that is not its object's first: the call ends.
struct EndCall {};

const char* placeholder(int n) {
  static const char* const kNames[] = {"%%1", "%%2", "%%3", "%%4"};
  return kNames[n];
}

// Leaves one "&", before the first occurrence of the hint (compared upper-cased).
void placeAccessKey(std::string& text, const std::string& hint) {
  text = replaceAll(text, "&", "");
  if (text.empty()) return;
  std::size_t at = findChars(upperCase(text), upperCase(hint));
  if (at > 0) text.insert(byteOffsetOfChar(text, at - 1), "&");
}

std::shared_ptr<const CatalogueTable> openTable(const CatalogueOpener& opener,
                                                const std::string& folder, const char* name) {
  if (!opener) return nullptr;
  try {
    return opener(cataloguePath(folder, name));
  } catch (const RuntimeError&) {
    return nullptr;
  }
}

}  // namespace

Language::Language() : Language(catalogueOpener(), catalogueFolder()) {}

Language::Language(const CatalogueOpener& opener, const std::string& folder) {
  catalogue_ = openTable(opener, folder, kCatalogueFileName);
  branding_.loadRules([this](const std::string& name, std::string& value, const std::string& d) {
    return SystemBrandingRenameFind(name, value, d);
  });
  details_ = openTable(opener, folder, kLanguageDetailsFileName);
  fonts_ = FontSettings::load(details_.get(), current_);
  GetCurrentLangFromWinReg();
}

Language::~Language() {
  details_.reset();
  catalogue_.reset();
}

void Language::CurrentLanguage(int16_t language) {
  if (language < 0 || language >= kLanguageCount) return;
  current_ = language;
  fonts_ = FontSettings::load(details_.get(), current_);
  SetRegString(HKEY_CURRENT_USER, kCacheSettingsKey, kCurrentLanguageValue,
               std::to_string(language));
}

void Language::GetCurrentLangFromWinReg() {
  std::string text;
  if (GetRegString(HKEY_CURRENT_USER, kCacheSettingsKey, kCurrentLanguageValue, text) != kRegOk) {
    SetRegString(HKEY_CURRENT_USER, kCacheSettingsKey, kCurrentLanguageValue, "0");
    CurrentLanguage(int16_t{0});
    return;
  }
  CreateRegKey(HKEY_CURRENT_USER, "Software\\", "Kestra\\Cache");
  double number = roundHalfEven(leadingNumber(text));
  if (number < -32768 || number > 32767) return;  // no 16-bit number: the setter never sees it
  CurrentLanguage(static_cast<int16_t>(number));
}

std::vector<std::string> Language::GetLanguageList() {
  std::vector<std::string> list(static_cast<std::size_t>(kLanguageCount));
  if (!details_) return list;
  for (int i = 0; i < kLanguageCount; ++i) {
    auto row = details_->findFirst("KeyID", detailsKey(i, "_UserName"));
    if (!row) {
      list[static_cast<std::size_t>(i)] = "not found";
      continue;
    }
    auto name = details_->value(*row, 2);
    if (!name) break;  // a null name fails the read; the list ends here
    list[static_cast<std::size_t>(i)] = *name;
  }
  return list;
}

bool Language::SystemBrandingFind(const std::string& name, std::string& value,
                                  const std::string& deflt) {
  if (GetRegString(HKEY_LOCAL_MACHINE, kBrandingKey, name, value) == kRegOk) return false;
  value = deflt;
  return true;
}

bool Language::SystemBrandingRenameFind(const std::string& name, std::string& value,
                                        const std::string& deflt) {
  if (GetRegString(HKEY_LOCAL_MACHINE, kBrandingRenameKey, name, value) == kRegOk) return false;
  value = deflt;
  return true;
}

void Language::readBranding() {
  brandingRead_ = true;
  std::string enabled;
  SystemBrandingFind("Enabled", enabled, "");
  // The result is not checked: a missing key leaves the word empty, a missing value in an
  // existing key leaves the reader's filler.
  std::string word;
  GetRegString(HKEY_LOCAL_MACHINE, kBrandingKey, "Name", word);
  branding_.setState(enabled == "Yes", std::move(word));
}

std::string Language::TransMes(const std::string& key, const TransParam& p1, const TransParam& p2,
                               const TransParam& p3, const TransParam& p4) {
  const TransParam* params[4] = {&p1, &p2, &p3, &p4};
  return translate(key, params);
}

std::string Language::translate(const std::string& key, const TransParam* params[4]) {
  std::string text;
  const bool skipFailures = !brandingRead_;
  auto step = [&](auto&& body) {
    try {
      body();
    } catch (const RuntimeError&) {
      if (!skipFailures) throw EndCall{};
    }
  };
  try {
    if (!brandingRead_) readBranding();
    if (!startsWith(key, "@")) return key;
    step([&] { GetCurrentLangFromWinReg(); });
    std::string code = key.substr(1);
    std::optional<std::string> hint;
    if (auto cut = code.find(" &"); cut != std::string::npos) {
      hint = code.substr(cut + 2);
      code.resize(cut);
    }
    if (!catalogue_) return text;  // a closed catalogue fails every lookup
    if (auto row = catalogue_->findFirst("Code", code)) {
      step([&] {
        auto value = catalogue_->value(*row, static_cast<std::size_t>(current_) + 2);
        if (!value) throw RuntimeError(kInvalidUseOfNull, "Invalid use of Null");
        text = *value;
      });
      for (int n = 0; n < 4; ++n) {
        if (!params[n]->has_value()) continue;
        step([&] {
          std::string param = TransMes((*params[n])->toText());
          text = replaceAll(text, placeholder(n), param);
        });
      }
      for (int n = 0; n < 4; ++n) text = replaceAll(text, placeholder(n), "");
    } else {
      text = "!!" + code;
    }
    if (branding_.enabled()) {
      try {
        branding_.apply(text, skipFailures);
      } catch (const RuntimeError&) {
        throw EndCall{};
      }
    }
    if (hint) step([&] { placeAccessKey(text, *hint); });
    return text;
  } catch (const EndCall&) {
    return text;
  } catch (const RuntimeError&) {
    return text;
  }
}

std::string Language::TransMesPlus(const std::string& key, const TransParam& p1,
                                   const TransParam& p2, const TransParam& p3,
                                   const TransParam& p4) {
  std::size_t plus = key.find('+');
  if (!startsWith(key, "@") || plus == std::string::npos) return TransMes(key, p1, p2, p3, p4);
  std::string first = key.substr(0, plus);
  std::string second = key.substr(plus + 1);
  if (std::size_t at = second.find('@'); at != std::string::npos) {
    second = second.substr(0, at) + TransMes(second.substr(at), p1, p2, p3, p4);
  }
  return TransMes(first, p1, p2, p3, p4) + second;
}

}  // namespace kxc
