// Any two texts as the stored lists of broker IDs and their colours, with a line break between
// them: what the preference page stores it reads back unchanged, and the view highlights the same
// brokers in the same colours as the page shows.

#include "fuzz/Fuzz.h"
#include "model/RecordText.h"
#include "preferences/BrokerList.h"
#include "view/BrokerHighlight.h"

namespace {

using namespace Quorpricepreference;

std::vector<TBrokerRow> Load(const TStoredBrokers& stored) {
  std::vector<TBrokerRow> rows;
  LoadBrokers(stored, rows);
  return rows;
}

/// A row without a colour becomes one of the colour that it is painted in.
void Colour(std::vector<TBrokerRow>& rows) {
  for (auto& row : rows)
    row.Colour = row.Colour.value_or(System::clWindow);
}

Quorpriceview::TBrokerColours ColoursOf(const std::vector<TBrokerRow>& rows) {
  Quorpriceview::TBrokerColours colours;
  for (const auto& row : rows)
    colours.insert_or_assign(*row.ID, *row.Colour);
  return colours;
}

} // namespace

void Fuzz::Start(int&, char**) {}

void Fuzz::Check(const std::string& text) {
  const auto lineBreak = text.find('\n');
  const TStoredBrokers given{text.substr(0, lineBreak), lineBreak == std::string::npos
                                                            ? std::string()
                                                            : text.substr(lineBreak + 1)};
  Quorpriceview::ParseBrokerColours(given.IDs, given.Colours);
  auto rows = Load(given);
  const TStoredBrokers stored = StoreBrokers(rows);
  auto read = Load(stored);
  Colour(rows);
  Colour(read);
  const TStoredBrokers again = StoreBrokers(read);
  Expect(again == StoreBrokers(rows), "The page does not come back to what it stored",
         stored.IDs + "\n" + stored.Colours, again.IDs + "\n" + again.Colours);
  Expect(Quorpriceview::ParseBrokerColours(stored.IDs, stored.Colours) == ColoursOf(read),
         "Page and view differ", stored.IDs, stored.Colours);
}
