#pragma once

#include "data/Problem.h"
#include "host/BaseLanguageManager.h"
#include "terminal/services/ToolkitTexts.h"

#include <unordered_map>

namespace Terminal {

/// One text in the languages of the terminal.
template <typename TKey> struct TRowOf {
  TKey Key;
  std::string_view TraditionalChinese;
  std::string_view SimplifiedChinese;
  std::string_view English;

  /// Constdef::Language_...; English for another number.
  std::string_view In(int language) const {
    return language == Constdef::Language_TraditionalChinese  ? TraditionalChinese
           : language == Constdef::Language_SimplifiedChinese ? SimplifiedChinese
                                                              : English;
  }
};

using TTextRow = TRowOf<std::string_view>;
using TProblemRow = TRowOf<Data::TProblemCode>;

/// Texts of the tag "ResourceString": "Res_..." are the packages', "Term_..." the terminal's own.
/// The last row has an empty key.
extern const TTextRow resourceTexts[];
/// Names of the tag "Currency" by currency code. The last row has an empty key.
extern const TTextRow currencyTexts[];
/// Sentences, one for each code, in the order of the codes. %1, %2, ... stand for the parts.
extern const TProblemRow problemTexts[static_cast<std::size_t>(Data::TProblemCode::Count)];

/// What is wrong, in one sentence of that language.
std::string Sentence(const Data::TProblem& problem, int language);

/// The terminal's texts in three languages.
class TLanguageTexts : public Baselanguagemanager::TCustomLanguageManager {
public:
  TLanguageTexts();

  void GetText(std::string& text, std::string_view tag, std::string_view key, int kind, int first,
               int second) override;
  int CurrentLanguage() override { return language_; }

  /// Constdef::Language_...; another number is ignored. The toolkit follows; views are told by the
  /// caller.
  void SetLanguage(int language);

  /// While on, every text is its own key and a currency's name its code.
  void SetKeysMode(bool on) { keysMode_ = on; }

private:
  using TTable = std::unordered_map<std::string_view, const TTextRow*>;

  TTable resources_;
  TTable currencies_;
  TToolkitTexts toolkit_;
  int language_ = Constdef::Language_English;
  bool keysMode_ = false;
};

} // namespace Terminal
