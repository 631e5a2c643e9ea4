#include "terminal/services/SymbolDirectory.h"

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

void TSymbolDirectory::Add(std::string_view symbol, std::string_view name) {
  Add(symbol);
  if (symbol.empty() || name.empty())
    return;
  const auto position = bySymbol_.find(symbol)->second;
  auto& entry = entries_[position];
  const auto text = FromUtf8(name);
  if (entry.Name == text)
    return;
  const auto former = byPlainName_.find(Plain(entry.Name));
  if (former != byPlainName_.end() && former->second == position)
    byPlainName_.erase(former);
  entry.Name = text;
  byPlainName_.emplace(Plain(text), position);
  ++revision_;
}

const TSymbolDirectory::TEntry* TSymbolDirectory::Find(const QString& text) const {
  if (const auto found = byPlainSymbol_.find(PlainSymbol(text)); found != byPlainSymbol_.end())
    return &entries_[found->second];
  const auto found = byPlainName_.find(Plain(text));
  return found == byPlainName_.end() ? nullptr : &entries_[found->second];
}

std::optional<std::string> TSymbolDirectory::Resolve(std::string_view text) const {
  if (const auto listed = bySymbol_.find(text); listed != bySymbol_.end())
    return listed->first;
  const auto given = FromUtf8(text).trimmed();
  const auto* found = Find(given);
  if (!found) {
    const auto* offered = Find(given.section(u' ', 0, 0));
    found = offered && Plain(Text(*offered)) == Plain(given) ? offered : nullptr;
  }
  return found ? std::optional(found->Symbol.toStdString()) : std::nullopt;
}

QString TSymbolDirectory::Text(const TEntry& entry) {
  return entry.Name.isEmpty() ? entry.Symbol : entry.Symbol + QLatin1String("  ") + entry.Name;
}

} // namespace Terminal
