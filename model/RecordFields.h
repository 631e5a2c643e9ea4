#pragma once

/// Numbers of the market-data record's fields.
namespace Quorpricedatacontrol::Field {

inline constexpr int None = -1;

// Prices
inline constexpr int BestBid = 1;
inline constexpr int BestAsk = 2;
inline constexpr int Nominal = 3;
inline constexpr int StrikePrice = 27;
inline constexpr int PreviousClose = 31;
inline constexpr int Low = 32;
inline constexpr int High = 37;
inline constexpr int Change = 48;
inline constexpr int PriceUpperLimit = 116;
inline constexpr int PriceLowerLimit = 117;
inline constexpr int ChangePercent = 130;
inline constexpr int High52Weeks = 131;
inline constexpr int Low52Weeks = 132;
inline constexpr int Open = 133;
inline constexpr int CallPrice = 172;

// Quantities and amounts
inline constexpr int BestBidSize = 16;
inline constexpr int Volume = 17;
inline constexpr int BestAskSize = 19;
inline constexpr int LotSize = 24;
inline constexpr int Turnover = 38;

// Broker queues
inline constexpr int BidQueue = 120; ///< comma-separated
inline constexpr int AskQueue = 121; ///< comma-separated

// The instrument
inline constexpr int Status = 5;
inline constexpr int Name = 10;
inline constexpr int IssueSize = 18; ///< issued shares of a stock
inline constexpr int Exchange = 20;
inline constexpr int ProductType = 22;
inline constexpr int Currency = 23;
inline constexpr int Underlying = 26;
inline constexpr int CallPut = 28;
inline constexpr int ExpiryDate = 29;
inline constexpr int PriceEarnings = 49;
inline constexpr int SpreadTable = 73;
inline constexpr int Yield = 102;
inline constexpr int Premium = 103;
inline constexpr int ConversionRatio = 104; ///< underlyings per unit
inline constexpr int Gearing = 106;
inline constexpr int AccruedInterest = 118;
inline constexpr int OptionStyle = 170;
inline constexpr int MarketCapitalisation = 506;
inline constexpr int Category = 3000; ///< of a CBBC; no feed field, worked out from its name

// Related instruments: symbols separated by blanks
inline constexpr int WarrantList = 135;
inline constexpr int RelatedList = 136;
inline constexpr int LiquidityProviderList = 3200;

// Messages
inline constexpr int OtherMessage = 25; ///< stands in when there is no first or second message
inline constexpr int UpdateTime = 33;
inline constexpr int FirstMessage = 200;
inline constexpr int SecondMessage = 201;

// Volatility control mechanism
inline constexpr int VcmMarker = 3500;
inline constexpr int VcmStartTime = 3501;
inline constexpr int VcmEndTime = 3502;
inline constexpr int VcmReferencePrice = 3503;
inline constexpr int VcmLowerPrice = 3504;
inline constexpr int VcmUpperPrice = 3505;

// Pre-opening session
inline constexpr int PosMarker = 3506;
inline constexpr int PosReferencePrice = 3507;
inline constexpr int PosLowerPrice = 3508;
inline constexpr int PosUpperPrice = 3509;
inline constexpr int PosSellLowerLimit = 3551;
inline constexpr int PosBuyUpperLimit = 3552;

// Closing auction session
inline constexpr int CasMarker = 3510;
inline constexpr int CasReferencePrice = 3511;
inline constexpr int CasLowerPrice = 3512;
inline constexpr int CasUpperPrice = 3513;

// Order imbalance, of either session
inline constexpr int ImbalanceDirection = 3514;
inline constexpr int ImbalanceQuantity = 3515;

} // namespace Quorpricedatacontrol::Field
