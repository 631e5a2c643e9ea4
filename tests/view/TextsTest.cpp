// Texts of the host's language.

#include "view/Texts.h"

#include "fakes/HostFakes.h"

#include <gtest/gtest.h>

namespace {

TEST(TTextsTest, AreThoseOfTheMomentAndALabelEndsInAColon) {
  Fakes::THostFakes host;
  EXPECT_EQ(Quorpriceview::Translated("Res_Symbol"), "Res_Symbol");
  host.language.SetText("Res_Symbol", "\u4EE3\u865F");
  EXPECT_EQ(Quorpriceview::Translated("Res_Symbol"), QString::fromUtf8("\u4EE3\u865F"));
  EXPECT_EQ(Quorpriceview::Label("Res_Symbol"), QString::fromUtf8("\u4EE3\u865F:"));
  EXPECT_TRUE(host.language.selectorsAsAgreed);
}

} // namespace
