#pragma once

#include "model/InstrumentFigures.h"

#include <string>
#include <vector>

/// The rows that describe a warrant, a CBBC or a stock. Which rows there can be, in which order and
/// of what, is one table; a new row is a line of it.
namespace Quorpricedatacontrol {

/// How the issue size reads.
enum class TIssueSizeStyle { Number, Amount };

/// Kinds of instrument that have rows of their own.
enum TInstrumentKind : unsigned { ikOther = 0, ikStock = 1, ikWarrant = 2, ikCBBC = 4 };

/// An instrument as its rows describe it. The records are the subscribe adapter's; null for none.
struct TInstrument {
  TCustomSubItem* Record = nullptr;
  TCustomSubItem* Underlying = nullptr;
  TIssueSizeStyle IssueSizeStyle = TIssueSizeStyle::Number;
  TInstrumentKind Kind = ikOther;
  std::string Category; ///< of a CBBC

  /// Reads kind and category from the record.
  void Update();
};

/// Record fields of the rows, in order; none for an instrument of another kind.
std::vector<int> DetailFieldsOf(TInstrumentKind kind);

/// Caption of a field; empty for a field that is never a row.
std::string DetailCaption(TInstrumentKind kind, int field);

/// Value of a field; empty without a record and for a field that is never a row.
std::string DetailText(const TInstrument& instrument, int field);

/// True for the field of a row of which a click copies the price.
bool DetailCopiesPrice(int field);

} // namespace Quorpricedatacontrol
