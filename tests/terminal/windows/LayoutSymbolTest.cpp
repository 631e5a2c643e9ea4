#include "terminal/windows/LayoutSymbol.h"

#include <gtest/gtest.h>

namespace {

using Terminal::SymbolItem;
using Terminal::SymbolOf;

TEST(LayoutSymbol, IsQuotedOnlyWhereItWouldBeTornApart) {
  EXPECT_EQ(SymbolItem("700"), "Symbol=700");
  EXPECT_EQ(SymbolItem("HSI 2401"), "\"Symbol=HSI 2401\"");
  EXPECT_EQ(SymbolItem("a,b"), "\"Symbol=a,b\"");
  EXPECT_EQ(SymbolItem("say \"hi\""), "\"Symbol=say \"\"hi\"\"\"");
}

TEST(LayoutSymbol, ComesBackFromTheFirstItem) {
  for (const char* symbol : {"", "700", "HSI 2401", "a,b", "say \"hi\"", "\"", "騰訊"})
    EXPECT_EQ(SymbolOf(SymbolItem(symbol) + ",DisplayMode=2"), symbol);
  EXPECT_EQ(SymbolOf("DisplayMode=2,Symbol=700"), "");
  EXPECT_EQ(SymbolOf(""), "");
  EXPECT_EQ(SymbolOf("\"Symbol=70"), "70") << "a quote that is never closed";
}

} // namespace
