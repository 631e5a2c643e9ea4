#include "terminal/services/LanguageTexts.h"

namespace Terminal {

namespace {

std::unordered_map<std::string_view, const TTextRow*> Index(const TTextRow* rows) {
  std::unordered_map<std::string_view, const TTextRow*> table;
  for (; !rows->Key.empty(); ++rows)
    table.emplace(rows->Key, rows);
  return table;
}

} // namespace

std::string Sentence(const Data::TProblem& problem, int language) {
  const std::string_view text = problemTexts[static_cast<std::size_t>(problem.Code)].In(language);
  std::string sentence;
  for (std::size_t i = 0; i < text.size(); ++i)
    if (text[i] != '%')
      sentence += text[i];
    else if (const auto part = static_cast<std::size_t>(text[++i] - '1');
             part < problem.Parts.size())
      sentence += problem.Parts[part];
  return sentence;
}

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
    text = found->second->In(language_);
  else if (isResource || keysMode_)
    text = key;
}

void TLanguageTexts::SetLanguage(int language) {
  if (language < Constdef::Language_TraditionalChinese || language > Constdef::Language_English)
    return;
  language_ = language;
  toolkit_.SetLanguage(language);
}

} // namespace Terminal
