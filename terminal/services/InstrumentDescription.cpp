#include "terminal/services/InstrumentDescription.h"

#include "host/RecordFields.h"

#include <algorithm>

namespace Terminal {

namespace {

namespace Field = Host::Field;

const TSymbolDirectory::TEntry* FindEntry(const TSymbolDirectory& symbols, const QString& symbol) {
  const auto found =
      std::ranges::find(symbols.Entries(), symbol, &TSymbolDirectory::TEntry::Symbol);
  return found == symbols.Entries().end() ? nullptr : &*found;
}

/// A call begins with C, 1 or 6, a put with P, 2 or 7.
std::string CallOrPut(std::string_view given, TLanguageTexts& languages) {
  const char first = given.empty() ? ' ' : given.front();
  if (std::string_view("C16").find(first) != std::string_view::npos)
    return languages.GetResource("Res_Call");
  if (std::string_view("P27").find(first) != std::string_view::npos)
    return languages.GetResource("Res_Put");
  return {};
}

} // namespace

std::string InstrumentDescription(std::string_view symbol, const TSymbolDirectory& symbols,
                                  const TSubscribeAdapter& records, TLanguageTexts& languages) {
  std::string text;
  const auto append = [&text](std::string_view part) {
    if (!part.empty())
      (text += text.empty() ? "" : "  ") += part;
  };
  const auto* entry =
      FindEntry(symbols, QString::fromUtf8(symbol.data(), static_cast<qsizetype>(symbol.size())));
  if (entry)
    append(entry->NameIn(languages.CurrentLanguage()).toStdString());
  if (const auto* record = records.Find(symbol)) {
    append(CallOrPut(record->GetText(Field::CallPut), languages));
    append(record->GetText(Field::StrikePrice));
    append(record->GetText(Field::ExpiryDate));
  }
  return text;
}

} // namespace Terminal
