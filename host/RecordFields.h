#pragma once

#include <array>

/// The fields of a market-data record by number, as a host fills them and a package reads them.
/// Every field is a UTF-8 text:
///
///   price     decimal number in currency units, without grouping: 318.2
///   number    decimal number, without grouping
///   quantity  whole number of shares or units, without grouping: 12000
///   amount    decimal number of currency units, without grouping
///   time      shown as it stands: 09:30:00
///   marker    "1" for yes; anything else, or no field, for no
///   symbols   separated by blanks
///
/// A field that the record does not have, or that is empty, shows as an empty text unless it says
/// otherwise here.
namespace Host::Field {

// The book. Absent while there is no order, and all of it while no book is published.

inline constexpr int BestBid = 1;      ///< price of the highest bid
inline constexpr int BestAsk = 2;      ///< price of the lowest ask
inline constexpr int BestBidSize = 16; ///< quantity bid at the best price
inline constexpr int BestAskSize = 19; ///< quantity offered at the best price
/// Brokers that stand in the bid queue, front first, separated by commas: broker numbers, and
/// before those who stand n spreads from the best price a marker +n or -n; "0" is an empty place.
inline constexpr int BidQueue = 120;
inline constexpr int AskQueue = 121; ///< the same of the ask queue

inline constexpr int DepthLevels = 10;

/// One side of the book, best level first. Where a feed gives no prices of the levels behind the
/// best one, each of them lies a price step from the one before, and its number of orders shows.
struct TSideFields {
  std::array<int, DepthLevels> Price; ///< price of the level
  std::array<int, DepthLevels> Size;  ///< quantity at the level
  std::array<int, DepthLevels> Count; ///< number of orders at the level
  int Queue;                          ///< the side's broker queue
};

inline constexpr TSideFields Bid = {
    {BestBid, 81, 82, 83, 84, 3180, 3181, 3182, 3183, 3184},
    {BestBidSize, 51, 52, 53, 54, 3155, 3156, 3157, 3158, 3159},
    {55, 56, 57, 58, 59, 3136, 3137, 3138, 3139, 3140},
    BidQueue,
};
inline constexpr TSideFields Ask = {
    {BestAsk, 91, 92, 93, 94, 3190, 3191, 3192, 3193, 3194},
    {BestAskSize, 61, 62, 63, 64, 3165, 3166, 3167, 3168, 3169},
    {65, 66, 67, 68, 69, 3146, 3147, 3148, 3149, 3150},
    AskQueue,
};

// The day.

inline constexpr int Nominal = 3;         ///< price; absent: figures use the middle of bid and ask
inline constexpr int Status = 5;          ///< "0" or "-1": the prices do not count for figures
inline constexpr int Volume = 17;         ///< quantity traded today
inline constexpr int PreviousClose = 31;  ///< price
inline constexpr int Low = 32;            ///< price; absent before the first trade
inline constexpr int UpdateTime = 33;     ///< time of the last quote of a user who asks for each
inline constexpr int High = 37;           ///< price; absent before the first trade
inline constexpr int Turnover = 38;       ///< amount traded today
inline constexpr int Change = 48;         ///< price; absent: nominal less previous close
inline constexpr int ChangePercent = 130; ///< number, in per cent; absent: from nominal and close
inline constexpr int High52Weeks = 131;   ///< price; absent: its row is left out
inline constexpr int Low52Weeks = 132;    ///< price; absent: its row is left out
inline constexpr int Open = 133;          ///< price; absent: its row is empty

// The instrument.

inline constexpr int Name = 10;             ///< short name; a CBBC has "#" third and "N"/"R" ninth
inline constexpr int IssueSize = 18;        ///< quantity: issued shares of a stock, or units
inline constexpr int Exchange = 20;         ///< exchange code, by which data can be concealed
inline constexpr int ProductType = 22;      ///< 1 stock, 4 warrant or CBBC, others without details
inline constexpr int Currency = 23;         ///< text; absent: the instrument's currency
inline constexpr int BoardLot = 24;         ///< quantity
inline constexpr int SpreadCode = 73;       ///< code of the spread table; absent: no price steps
inline constexpr int PriceEarnings = 49;    ///< P/E, shown as it stands
inline constexpr int DividendYield = 102;   ///< shown as it stands
inline constexpr int UpperLimit = 116;      ///< highest price of the day; shown with LowerLimit
inline constexpr int LowerLimit = 117;      ///< lowest price of the day; shown with UpperLimit
inline constexpr int AccruedInterest = 118; ///< of a bond, as it stands; absent: no row
inline constexpr int MarketCap = 506;       ///< amount; a stock's is worked out instead

// Warrants and CBBCs.

inline constexpr int Underlying = 26;       ///< symbol; absent: no premium and no gearing
inline constexpr int StrikePrice = 27;      ///< price
inline constexpr int CallPut = 28;          ///< begins with "C", "1", "6": call; "P", "2", "7": put
inline constexpr int ExpiryDate = 29;       ///< date, shown as it stands
inline constexpr int Premium = 103;         ///< a fraction; worked out for warrants and CBBCs
inline constexpr int ConversionRatio = 104; ///< number of underlyings per unit: 0.1
inline constexpr int Gearing = 106;         ///< number; worked out for warrants and CBBCs
inline constexpr int OptionStyle = 170;     ///< "1" European, "2" American, others as they stand
inline constexpr int CallPrice = 172;       ///< price at which a CBBC is called

// Related instruments; their boxes are hidden while the field is absent.

inline constexpr int WarrantList = 135;            ///< symbols: warrants, or what a warrant is on
inline constexpr int RelatedList = 136;            ///< symbols
inline constexpr int LiquidityProviderList = 3200; ///< liquidity providers, separated by blanks

// Messages.

inline constexpr int FirstMessage = 200;  ///< at the left of the message line
inline constexpr int SecondMessage = 201; ///< at its right
inline constexpr int OtherMessage = 25;   ///< shown while neither of the others is there

// Volatility control mechanism (VCM).

inline constexpr int VcmMarker = 3500;         ///< marker: it applies. Another text ends it
inline constexpr int VcmStartTime = 3501;      ///< time at which the cooling-off began
inline constexpr int VcmEndTime = 3502;        ///< time at which it ends
inline constexpr int VcmReferencePrice = 3503; ///< price; with the marker: a cooling-off begins
inline constexpr int VcmLowerPrice = 3504;     ///< lowest price allowed meanwhile
inline constexpr int VcmUpperPrice = 3505;     ///< highest price allowed meanwhile

// Pre-opening session (POS).

inline constexpr int PosMarker = 3506;         ///< marker: the session is on
inline constexpr int PosReferencePrice = 3507; ///< price
inline constexpr int PosLowerPrice = 3508;     ///< price
inline constexpr int PosUpperPrice = 3509;     ///< price
inline constexpr int PosSellLowerLimit = 3551; ///< lowest price of an order to sell
inline constexpr int PosBuyUpperLimit = 3552;  ///< highest price of an order to buy

// Closing auction session (CAS).

inline constexpr int CasMarker = 3510;         ///< marker: it applies. Another text ends it
inline constexpr int CasReferencePrice = 3511; ///< price; with the marker: the auction begins
inline constexpr int CasLowerPrice = 3512;     ///< price
inline constexpr int CasUpperPrice = 3513;     ///< price

// Order imbalance of either session.

inline constexpr int ImbalanceDirection = 3514; ///< "1" none, "2" more to buy, "3" more to sell
inline constexpr int ImbalanceQuantity = 3515;  ///< quantity

} // namespace Host::Field
