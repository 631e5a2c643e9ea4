#include "host/LayoutData.h"

#include <algorithm>
#include <iomanip>
#include <sstream>
#include <strings.h>

namespace Host {

namespace {

bool IsBlank(char c) { return static_cast<unsigned char>(c) <= ' '; }

/// Takes one quoted text off the front; without a closing quote, all that is left.
std::string CutQuoted(std::string_view& text) {
  std::string item;
  text.remove_prefix(1);
  while (!text.empty()) {
    if (text.front() == '"') {
      if (text.size() < 2 || text[1] != '"') {
        text.remove_prefix(1);
        break;
      }
      text.remove_prefix(1);
    }
    item += text.front();
    text.remove_prefix(1);
  }
  return item;
}

std::string CutPlain(std::string_view& text) {
  const auto end =
      std::find_if(text.begin(), text.end(), [](char c) { return IsBlank(c) || c == ','; });
  std::string item(text.begin(), end);
  text.remove_prefix(item.size());
  return item;
}

void SkipBlanks(std::string_view& text) {
  while (!text.empty() && IsBlank(text.front()))
    text.remove_prefix(1);
}

std::string Quoted(const std::string& item) {
  const bool plain = std::none_of(item.begin(), item.end(),
                                  [](char c) { return IsBlank(c) || c == ',' || c == '"'; });
  if (plain)
    return item;
  std::ostringstream quoted;
  quoted << std::quoted(item, '"', '"');
  return quoted.str();
}

} // namespace

TLayoutData::TLayoutData(std::string_view commaText) {
  SkipBlanks(commaText);
  while (!commaText.empty()) {
    items_.push_back(commaText.front() == '"' ? CutQuoted(commaText) : CutPlain(commaText));
    SkipBlanks(commaText);
    if (!commaText.empty() && commaText.front() == ',')
      commaText.remove_prefix(1);
    SkipBlanks(commaText);
  }
}

void TLayoutData::Add(std::string_view name, std::string_view value) {
  items_.push_back(std::string(name) + '=' + std::string(value));
}

void TLayoutData::Add(std::string_view name, int value) { Add(name, std::to_string(value)); }

std::string TLayoutData::CommaText() const {
  std::string text;
  for (const auto& item : items_) {
    if (!text.empty())
      text += ',';
    text += Quoted(item);
  }
  return text;
}

std::string TLayoutData::Value(std::string_view name) const {
  for (const auto& item : items_) {
    const auto equals = item.find('=');
    if (equals == name.size() && strncasecmp(item.data(), name.data(), equals) == 0)
      return item.substr(equals + 1);
  }
  return {};
}

} // namespace Host
