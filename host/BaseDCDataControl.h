#pragma once

#include "host/BaseDataControl.h"

namespace Basedcdatacontrol {

/// A data control of the market-data kind: follows the configuration from creation to
/// destruction, and knows the linking group of the view that it serves.
class QUOR_EXPORT TCustomDataControl : public Basedatacontrol::TBaseDataControl {
public:
  explicit TCustomDataControl(System::TObject* owner);
  ~TCustomDataControl() override;

  System::TObject* Owner() const { return owner_; }

  /// Called after any configuration change; an override calls it first.
  virtual void ConfigUpdate(System::TObject* sender, System::TObject* data);

  /// Linking group, sent with copied orders as their source; empty when in none.
  std::string GroupID;

private:
  System::TObject* owner_;
};

} // namespace Basedcdatacontrol
