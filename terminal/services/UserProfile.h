#pragma once

#include "host/BaseUserAppProfile.h"
#include "host/BaseVendorDDSModel.h"

#include <optional>
#include <set>

namespace Terminal {

/// The functions that the user was granted; none at first.
class TUserProfile : public Baseuserappprofile::TCustomUserAppProfile {
public:
  using TFunctions = std::set<std::string, std::less<>>;

  bool IsFunctionGranted(std::string_view function) override { return granted_.count(function); }
  /// Replaces the former grants.
  void Grant(TFunctions functions) { granted_ = std::move(functions); }

private:
  TFunctions granted_;
};

/// The vendor's data feed; the installed service while it has a feed type.
class TVendorModel : public Basevendorddsmodel::TCustomVendorDDSModel {
public:
  ~TVendorModel() override;

  int FeedType() override { return feedType_.value_or(0); }
  /// Nothing takes the model away.
  void SetFeedType(std::optional<int> type);

private:
  std::optional<int> feedType_;
};

} // namespace Terminal
