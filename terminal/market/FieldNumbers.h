#pragma once

#include <array>

// The numbers that a record's fields have on the feed.
namespace Terminal::Market::Field {

inline constexpr std::size_t Levels = 10;

/// Of one side of the book, best level first.
struct TDepth {
  std::array<int, Levels> Price, Size, Count;
  int Queue;
};
inline constexpr TDepth Bid{{1, 81, 82, 83, 84, 3180, 3181, 3182, 3183, 3184},
                            {16, 51, 52, 53, 54, 3155, 3156, 3157, 3158, 3159},
                            {55, 56, 57, 58, 59, 3136, 3137, 3138, 3139, 3140},
                            120};
inline constexpr TDepth Ask{{2, 91, 92, 93, 94, 3190, 3191, 3192, 3193, 3194},
                            {19, 61, 62, 63, 64, 3165, 3166, 3167, 3168, 3169},
                            {65, 66, 67, 68, 69, 3146, 3147, 3148, 3149, 3150},
                            121};

enum TNumber {
  Nominal = 3,
  Status = 5,
  Name = 10,
  Volume = 17,
  Issued = 18,
  Exchange = 20,
  ProductType = 22,
  Currency = 23,
  BoardLot = 24,
  Remark = 25,
  Underlying = 26,
  Strike = 27,
  CallPut = 28,
  Expiry = 29,
  PreviousClose = 31,
  Low = 32,
  UpdateTime = 33,
  High = 37,
  Turnover = 38,
  PriceEarnings = 49,
  SpreadCode = 73,
  DividendYield = 102,
  ConversionRatio = 104,
  LimitUp = 116,
  LimitDown = 117,
  AccruedInterest = 118,
  YearHigh = 131,
  YearLow = 132,
  Open = 133,
  Warrants = 135,
  Related = 136,
  OptionStyle = 170,
  CallLevel = 172,
  LeftMessage = 200,
  RightMessage = 201,
  Providers = 3200,
  VolatilityControl = 3500,
  CoolingOffStart = 3501,
  CoolingOffEnd = 3502,
  CoolingOffReference = 3503,
  CoolingOffLower = 3504,
  CoolingOffUpper = 3505,
  OpeningSession = 3506,
  OpeningReference = 3507,
  OpeningLower = 3508,
  OpeningUpper = 3509,
  ClosingSession = 3510,
  ClosingReference = 3511,
  ClosingLower = 3512,
  ClosingUpper = 3513,
  ImbalanceSide = 3514,
  ImbalanceQuantity = 3515,
  SellLowerLimit = 3551,
  BuyUpperLimit = 3552
};

} // namespace Terminal::Market::Field
