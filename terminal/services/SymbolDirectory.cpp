#include "terminal/services/SymbolDirectory.h"

#include "host/ConstDef.h"

#include <algorithm>

namespace Terminal {

namespace {

QString FromUtf8(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// An input method may leave full-width letters and blanks; names are padded with blanks.
QString Plain(const QString& text) {
  return text.normalized(QString::NormalizationForm_KC).simplified().toCaseFolded();
}

QString PlainSymbol(const QString& text) {
  QString symbol = Plain(text);
  if (symbol.endsWith(QLatin1String(".hk")))
    symbol.chop(3);
  const bool isNumber = !symbol.isEmpty() && std::all_of(symbol.begin(), symbol.end(), [](QChar c) {
    return c >= u'0' && c <= u'9';
  });
  while (isNumber && symbol.size() > 1 && symbol.front() == u'0')
    symbol.remove(0, 1);
  return symbol;
}

/// Whether `text` is how the entry is offered in one of the languages.
bool IsOffered(const TSymbolDirectory::TEntry& entry, const QString& text) {
  for (int language = Constdef::Language_TraditionalChinese; language <= Constdef::Language_English;
       ++language)
    if (Plain(TSymbolDirectory::Text(entry, language)) == Plain(text))
      return true;
  return false;
}

} // namespace

void TSymbolDirectory::Add(std::string_view symbol) {
  if (symbol.empty() || bySymbol_.count(symbol) > 0)
    return;
  const auto text = FromUtf8(symbol);
  bySymbol_.emplace(symbol, entries_.size());
  byPlainSymbol_.emplace(PlainSymbol(text), entries_.size());
  entries_.push_back({text, {}});
  ++revision_;
}

void TSymbolDirectory::Add(std::string_view symbol, std::string_view name,
                           std::string_view traditionalName, std::string_view simplifiedName) {
  Add(symbol);
  const bool hasName = !name.empty() || !traditionalName.empty() || !simplifiedName.empty();
  if (symbol.empty() || !hasName)
    return;
  const auto position = bySymbol_.find(symbol)->second;
  auto& entry = entries_[position];
  const std::array names{FromUtf8(traditionalName), FromUtf8(simplifiedName), FromUtf8(name)};
  if (entry.Names == names)
    return;
  for (const auto& former : entry.Names)
    byPlainName_[Plain(former)].erase(position);
  entry.Names = names;
  for (const auto& each : names)
    if (!each.isEmpty())
      byPlainName_[Plain(each)].insert(position);
  ++revision_;
}

QString TSymbolDirectory::TEntry::NameIn(int language) const {
  const auto& [traditional, simplified, english] = Names;
  std::array order{&english, &traditional, &simplified};
  if (language == Constdef::Language_TraditionalChinese)
    order = {&traditional, &simplified, &english};
  else if (language == Constdef::Language_SimplifiedChinese)
    order = {&simplified, &traditional, &english};
  const auto has = std::find_if(order.begin(), order.end(),
                                [](const QString* name) { return !name->isEmpty(); });
  return has == order.end() ? QString() : **has;
}

const TSymbolDirectory::TEntry* TSymbolDirectory::Find(const QString& text) const {
  if (const auto found = byPlainSymbol_.find(PlainSymbol(text)); found != byPlainSymbol_.end())
    return &entries_[found->second];
  const auto found = byPlainName_.find(Plain(text));
  const bool isOne = found != byPlainName_.end() && found->second.size() == 1;
  return isOne ? &entries_[*found->second.begin()] : nullptr;
}

std::optional<std::string> TSymbolDirectory::Resolve(std::string_view text) const {
  if (const auto listed = bySymbol_.find(text); listed != bySymbol_.end())
    return listed->first;
  const auto given = FromUtf8(text).trimmed();
  const auto* found = Find(given);
  if (!found) {
    const auto* offered = Find(given.section(u' ', 0, 0));
    found = offered && IsOffered(*offered, given) ? offered : nullptr;
  }
  return found ? std::optional(found->Symbol.toStdString()) : std::nullopt;
}

QString TSymbolDirectory::Text(const TEntry& entry, int language) {
  const QString name = entry.NameIn(language);
  return name.isEmpty() ? entry.Symbol : entry.Symbol + QLatin1String("  ") + name;
}

} // namespace Terminal
