#include "terminal/TextTable.h"

#include "terminal/Fixture.h"

#include <gtest/gtest.h>

namespace Terminal {
namespace {

TEST(TextTable, AlignsColumnsByTheWidthOfTheirTexts) {
  EXPECT_EQ(ConsoleWidth("a騰b"), 4);
  Fixture::TView view;
  view.show();
  EXPECT_EQ(TextTable(*view.Grid->View(), TColouring::None), "0:1 0:2 \n1:1 1:2 \n2:1 2:2 \n");
  const std::string coloured = TextTable(*view.Grid->View(), TColouring::Ansi);
  EXPECT_NE(coloured.find("\x1b[48;2;"), std::string::npos);
}

} // namespace
} // namespace Terminal
