#pragma once

#include "model/RecordText.h"

#include <string>
#include <string_view>
#include <vector>

namespace Quorpricedatacontrol {

class TCustomQuorDetailDataControl;

/// Caption of a header field in the user's language; empty for a field without a caption.
std::string HeaderCaption(int field);

/// The value of a header field; empty unless the record holds data.
std::string HeaderValueText(const TCustomSubItem* record, int field);

/// True for the field of a header row, detail rows included, of which a click copies the price.
bool CopiesPrice(int field);

/// The header rows: which record field each shows, and its caption. Which rows there can be, in
/// which order and when, is one table; a new row is a line of it.
class THeaderRows {
public:
  /// How many rows there can be before those that the detail control supplies.
  static const int MostOwn;

  /// The rows that every symbol has, without captions.
  THeaderRows() { SetHeaderAttribute(nullptr); }

  int Count() const { return static_cast<int>(attributes_.size()); }
  /// Number of rows before those that the detail control supplies.
  int OwnCount() const { return ownCount_; }
  /// Field::None for an empty row and for a row that does not exist.
  int Attribute(int row) const;
  /// Empty for a row that does not exist.
  std::string Caption(int row) const;
  /// -1 when no row shows the field.
  int RowOf(int field) const;

  /// The rows that the record has values for; null: those that every symbol has.
  void SetHeaderAttribute(const TCustomSubItem* record);
  /// Adds the rows of `detail` that have a text, until there are `rowCount` rows.
  void AppendDetail(const TCustomQuorDetailDataControl& detail, int rowCount);
  /// Reads the captions again. `detail` captions the rows that it supplied; null for none.
  void UpdateCaptions(const TCustomQuorDetailDataControl* detail);

private:
  std::vector<int> attributes_;
  std::vector<std::string> captions_;
  int ownCount_ = 0;
};

} // namespace Quorpricedatacontrol
