#pragma once

/// Captions of quantity buttons and what they mean.
namespace QtyCaptions {

struct TCaption {
  const char* caption;
  int quantity; ///< 0: a click copies nothing
};

inline constexpr TCaption Captions[] = {
    {"1000", 1'000},
    {"1,000", 1'000},
    {"1,2,3", 123},
    {"2K", 2'000},
    {"2k", 2'000},
    {"1,5K", 15'000},
    {"3m", 3'000'000},
    {"3M", 3'000'000},
    {"2,K", 2'000},
    {"2147483647", 2'147'483'647},
    {"2147M", 2'147'000'000},
    {"1.5K", 0},
    {"ABC", 0},
    {"0", 0},
    {"0K", 0},
    {"K", 0},
    {"M", 0},
    {"KK", 0},
    {"2KM", 0},
    {"2K sh", 0},
    {",", 0},
    {" ", 0},
    {"-5K", 0},
    {"-1", 0},
    {"2147483648", 0},
    {"\u4E00\u5343", 0},
    {"1&0", 0},
    // 32 bits hold what is left of a larger product.
    {"3000M", 0},
    {"5000M", 705'032'704},
};

} // namespace QtyCaptions
