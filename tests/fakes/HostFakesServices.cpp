#include "fakes/HostFakesServices.h"

#include "host/ConstDef.h"
#include "host/RecordFields.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace Fakes {

namespace {

/// With `decimals` decimals, whole part in groups of three.
std::string Grouped(double value, int decimals) {
  char buffer[64];
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals).ptr;
  std::string text(buffer, end);
  const auto point = text.find('.');
  const std::size_t first = text.front() == '-' ? 1 : 0;
  for (auto at = point == std::string::npos ? text.size() : point; at > first + 3;)
    text.insert(at -= 3, 1, ',');
  return text;
}

/// As short as it can be.
std::string Plain(double value) {
  char buffer[64];
  return {buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr};
}

bool CanFormat(const Basesubscribedata::TCustomSubItem& record, int field, std::string& text) {
  text.clear();
  return record.GetState() == Constdef::RecordState_Ready && !record.GetText(field).empty();
}

} // namespace

void TFakeConfigManager::Set(std::string_view section, std::string_view key, std::string value) {
  values_[{std::string(section), std::string(key)}] = std::move(value);
}

void TFakeConfigManager::SetCurrent(std::string_view key, std::string value) {
  Set(currentSection, key, std::move(value));
}

void TFakeConfigManager::RegisterListener(System::TDataEvent handler,
                                          const System::TObject* owner) {
  listeners_.Add(std::move(handler), owner);
}

void TFakeConfigManager::UnregisterListener(const System::TObject* owner) {
  listeners_.Remove(owner);
}

std::string TFakeConfigManager::ReadString(std::string_view section, std::string_view key) {
  const auto found = values_.find({std::string(section), std::string(key)});
  return found == values_.end() ? std::string() : found->second;
}

int TFakeConfigManager::ReadInteger(std::string_view section, std::string_view key) {
  const std::string text = ReadString(section, key);
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size() ? value : 0;
}

bool TFakeConfigManager::ReadBoolean(std::string_view section, std::string_view key) {
  std::string text = ReadString(section, key);
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text == "y" || text == "1" || text == "true";
}

void TFakeConfigManager::WriteString(std::string_view section, std::string_view key,
                                     std::string_view value, bool store) {
  writes.push_back({std::string(section), std::string(key), std::string(value), store});
  Set(section, key, std::string(value));
  Announce();
}

void TFakeLanguageManager::SetText(std::string_view tag, std::string_view key, std::string text) {
  texts_[std::string(tag)][std::string(key)] = std::move(text);
}

void TFakeLanguageManager::SetText(std::string_view key, std::string text) {
  SetText(Constdef::Const_ResourceStringTag, key, std::move(text));
}

void TFakeLanguageManager::GetText(std::string& text, std::string_view tag, std::string_view key,
                                   int kind, int first, int second) {
  selectorsAsAgreed = selectorsAsAgreed && kind == 3 && first == 0 && second == 0;
  if (const auto tagged = texts_.find(tag); tagged != texts_.end())
    if (const auto found = tagged->second.find(key); found != tagged->second.end()) {
      text = found->second;
      return;
    }
  text = tag == Constdef::Const_ResourceStringTag ? key : std::string_view();
}

System::TColor TFakeLookAndFeelService::GetColour(int index, std::string_view name) {
  if (index != 0) {
    const auto found = indexedColours.find(index);
    return found == indexedColours.end() ? System::clBlack : found->second;
  }
  const auto found = namedColours.find(name);
  return found == namedColours.end() ? System::clBlack : found->second;
}

void TFakeTimerControl::Register(const System::TObject* owner, System::TNotifyEvent handler) {
  listeners_.Add(std::move(handler), owner);
}

void TFakeTimerControl::Unregister(const System::TObject* owner) { listeners_.Remove(owner); }

std::string TFakeFormatter::FormatNumber(double value, int flag) {
  return Grouped(value, flag == 1 ? 2 : 0);
}

std::string TFakeFormatter::FormatQuantity(double value) { return Grouped(value, 0) + " sh"; }

std::string TFakeFormatter::FormatAmount(std::string_view symbol, double value) {
  return std::string(symbol) + " $" + Grouped(value, 0);
}

std::string TFakeFormatter::FormatAbbreviatedAmount(double value, int precision) {
  return '~' + Grouped(value, 0) + '/' + std::to_string(precision);
}

std::string TFakeFormatter::FormatPrice(std::string_view symbol, int precision, double value) {
  std::string text = std::string(symbol) + '@' + Plain(value);
  return precision == 0 ? text : text + '/' + std::to_string(precision);
}

bool TFakeMarketDataFormatter::FormatPrice(const Basesubscribedata::TCustomSubItem& record,
                                           int field, std::string& text) {
  if (!CanFormat(record, field, text))
    return false;
  text = Grouped(record.GetNumber(field), 3);
  return true;
}

bool TFakeMarketDataFormatter::FormatVolume(const Basesubscribedata::TCustomSubItem& record,
                                            int field, std::string& text) {
  if (!CanFormat(record, field, text))
    return false;
  text = Grouped(record.GetNumber(field), 0);
  return true;
}

bool TFakeMarketDataFormatter::FormatChange(const Basesubscribedata::TCustomSubItem& record,
                                            std::string& text) {
  if (!CanFormat(record, Host::Field::Change, text))
    return false;
  text.append("chg(").append(record.GetText(Host::Field::Change)).append(")");
  return true;
}

bool TFakeMarketDataFormatter::FormatChangePercent(const Basesubscribedata::TCustomSubItem& record,
                                                   std::string& text) {
  if (!CanFormat(record, Host::Field::ChangePercent, text))
    return false;
  text.append("chg%(").append(record.GetText(Host::Field::ChangePercent)).append(")");
  return true;
}

} // namespace Fakes
