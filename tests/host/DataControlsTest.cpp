#include "fakes/HostFakes.h"
#include "host/BaseDCDataControl.h"

#include <gtest/gtest.h>

// What the bases of the data controls do by themselves.

namespace {

using System::TVariant;

class TOneCellControl : public Basedcdatacontrol::TCustomDataControl {
public:
  using TCustomDataControl::TCustomDataControl;

  int configUpdates = 0;

  int GetCount() const override { return 1; }
  std::string GetDisplayValue(int row, int column) const override {
    return std::to_string(row) + ':' + std::to_string(column);
  }
  void ConfigUpdate(System::TObject* sender, System::TObject* data) override {
    TCustomDataControl::ConfigUpdate(sender, data);
    ++configUpdates;
  }
};

TEST(DataControls, FollowTheConfigurationWhileTheyLive) {
  Fakes::THostFakes host;
  {
    TOneCellControl control(nullptr);
    EXPECT_EQ(host.config.ListenerCount(), 1);
    host.config.Announce();
    host.config.WriteString("S", "K", "V", true);
    EXPECT_EQ(control.configUpdates, 2);
  }
  EXPECT_EQ(host.config.ListenerCount(), 0);
}

TEST(DataControls, TellTheirListenerWhoChanged) {
  Fakes::THostFakes host;
  TOneCellControl control(nullptr);
  control.Changed(); // nobody listens yet
  const System::TObject* told = nullptr;
  control.OnChange = [&told](System::TObject* sender) { told = sender; };
  control.Changed();
  EXPECT_EQ(told, &control);
}

TEST(DataControls, WrapTheDisplayValueAndHaveNoOtherValues) {
  Fakes::THostFakes host;
  const TOneCellControl control(nullptr);
  EXPECT_EQ(control.GetValue(2, 16), TVariant(std::string("2:16")));
  EXPECT_EQ(control.GetRowValue(0), TVariant());
  EXPECT_EQ(control.GetColValue(16), TVariant());
  EXPECT_TRUE(control.GetColList().empty());
}

TEST(DataControls, KnowTheirOwnerAndNoGroupAtFirst) {
  Fakes::THostFakes host;
  System::TObject owner;
  const TOneCellControl control(&owner);
  EXPECT_EQ(control.Owner(), &owner);
  EXPECT_EQ(control.GroupID, "");
}

} // namespace
