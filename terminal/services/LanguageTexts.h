#pragma once

#include "host/BaseLanguageManager.h"

#include <unordered_map>

namespace Terminal {

/// One text in the languages of the terminal.
struct TTextRow {
  std::string_view Key;
  std::string_view TraditionalChinese;
  std::string_view SimplifiedChinese;
  std::string_view English;
};

/// Texts of the tag "ResourceString": "Res_..." are the packages', "Term_..." the terminal's own.
/// The last row has an empty key.
extern const TTextRow resourceTexts[];
/// Names of the tag "Currency" by currency code. The last row has an empty key.
extern const TTextRow currencyTexts[];

/// The terminal's texts in three languages.
class TLanguageTexts : public Baselanguagemanager::TCustomLanguageManager {
public:
  TLanguageTexts();

  void GetText(std::string& text, std::string_view tag, std::string_view key, int kind, int first,
               int second) override;
  int CurrentLanguage() override { return language_; }

  /// Constdef::Language_...; another number is ignored. Views are told by the caller.
  void SetLanguage(int language);

  /// While on, every text is its own key and a currency's name its code.
  void SetKeysMode(bool on) { keysMode_ = on; }

private:
  using TTable = std::unordered_map<std::string_view, const TTextRow*>;

  TTable resources_;
  TTable currencies_;
  int language_ = Constdef::Language_English;
  bool keysMode_ = false;
};

} // namespace Terminal
