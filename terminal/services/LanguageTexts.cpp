#include "terminal/services/LanguageTexts.h"

namespace Terminal {

namespace {

std::unordered_map<std::string_view, const TTextRow*> Index(const TTextRow* rows) {
  std::unordered_map<std::string_view, const TTextRow*> table;
  for (; !rows->Key.empty(); ++rows)
    table.emplace(rows->Key, rows);
  return table;
}

std::string_view TextIn(const TTextRow& row, int language) {
  switch (language) {
  case Constdef::Language_TraditionalChinese:
    return row.TraditionalChinese;
  case Constdef::Language_SimplifiedChinese:
    return row.SimplifiedChinese;
  default:
    return row.English;
  }
}

} // namespace

TLanguageTexts::TLanguageTexts()
    : resources_(Index(resourceTexts)), currencies_(Index(currencyTexts)) {}

void TLanguageTexts::GetText(std::string& text, std::string_view tag, std::string_view key, int,
                             int, int) {
  text.clear();
  const bool isResource = tag == Constdef::Const_ResourceStringTag;
  if (!isResource && tag != Constdef::Const_CurrencyTag)
    return;
  const auto& table = isResource ? resources_ : currencies_;
  const auto found = table.find(key);
  if (found != table.end() && !keysMode_)
    text = TextIn(*found->second, language_);
  else if (isResource || keysMode_)
    text = key;
}

void TLanguageTexts::SetLanguage(int language) {
  if (language >= Constdef::Language_TraditionalChinese && language <= Constdef::Language_English)
    language_ = language;
}

} // namespace Terminal
