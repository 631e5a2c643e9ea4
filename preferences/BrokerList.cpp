#include "preferences/BrokerList.h"

#include "platform/ColourText.h"
#include "text/Strings.h"

#include <QByteArrayList>

namespace Quorpricepreference {

namespace {

/// An empty text has no pieces.
QByteArrayList Split(const std::string& text) {
  return text.empty() ? QByteArrayList() : QByteArray::fromStdString(text).split(',');
}

} // namespace

bool IsBrokerID(std::string_view text) {
  const auto id = Text::Trim(text);
  return id.empty() || (id.size() <= 4 && Text::IsDigits(id));
}

TStoredBrokers StoreBrokers(const std::vector<TBrokerRow>& rows) {
  QByteArrayList ids, colours;
  for (const auto& row : rows) {
    const std::string typed = row.ID.value_or(std::string());
    const std::string_view id = Text::Trim(typed);
    if (id.empty())
      continue;
    ids << QByteArray(id.data(), static_cast<qsizetype>(id.size()));
    colours << QByteArray::fromStdString(row.Colour ? Platform::ColourText(*row.Colour) : "");
  }
  return {ids.join(',').toStdString(), colours.join(',').toStdString()};
}

void LoadBrokers(const TStoredBrokers& stored, std::vector<TBrokerRow>& rows) {
  const auto ids = Split(stored.IDs);
  const auto colours = Split(stored.Colours);
  if (ids.isEmpty())
    return;
  rows.resize(static_cast<std::size_t>(ids.size()));
  for (qsizetype i = 0; i < ids.size(); ++i) {
    auto& row = rows[static_cast<std::size_t>(i)];
    row.ID = ids[i].toStdString();
    if (i < colours.size())
      row.Colour = Platform::ParseColour(colours[i].toStdString()).value_or(System::clWindow);
  }
}

} // namespace Quorpricepreference
