#include "model/ResourceText.h"

#include "fakes/HostFakes.h"

#include <gtest/gtest.h>

// Texts of resource keys.

namespace Quorpricedatacontrol {

TEST(TResourceTextTest, IsTheTextOfTheKeyAtTheTime) {
  Fakes::THostFakes host;
  host.language.SetText("Res_Bid", "Bid");
  EXPECT_EQ(ResourceText("Res_Bid"), "Bid");
  host.language.SetText("Res_Bid", "Kauf");
  EXPECT_EQ(ResourceText("Res_Bid"), "Kauf");
  host.language.SetText("Other", "Res_Ask", "not a resource");
  EXPECT_EQ(ResourceText("Res_Ask"), "Res_Ask");
  EXPECT_TRUE(host.language.selectorsAsAgreed);
}

} // namespace Quorpricedatacontrol
