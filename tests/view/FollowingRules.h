#pragma once

/// What a view follows, case by case.
namespace FollowingRules {

/// What a view in `group` ("" for none) with a default group data mode does with a broadcast, and
/// with group messages and orders of group A, of group B and of none.
struct TRule {
  const char* group;
  const char* mode; ///< as configured
  int value;        ///< as a number
  bool broadcast;
  bool groupA, groupB, groupNone;
  bool orderA, orderB, orderNone;
};

inline constexpr TRule Rules[] = {
    // Unset, or below 0: everything.
    {"", "", -1, true, true, true, true, true, true, true},
    {"A", "", -1, true, true, true, true, true, true, true},
    {"A", "x", -1, true, true, true, true, true, true, true},
    {"A", "-1", -1, true, true, true, true, true, true, true},
    {"", "-2", -2, true, true, true, true, true, true, true},
    // Linked: the own group only, whatever bit 0 says.
    {"A", "0", 0, false, true, false, false, true, false, false},
    {"A", "1", 1, false, true, false, false, true, false, false},
    {"A", "2", 2, false, true, false, false, true, false, false},
    {"A", "3", 3, false, true, false, false, true, false, false},
    // Not linked: broadcasts and orders by bit 0.
    {"", "0", 0, false, false, false, true, false, false, false},
    {"", "1", 1, true, false, false, true, true, true, true},
    {"", "2", 2, false, false, false, true, false, false, false},
    {"", "3", 3, true, false, false, true, true, true, true},
};

} // namespace FollowingRules
