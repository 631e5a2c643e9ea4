#include "terminal/start/TextTable.h"

#include "terminal/Fixture.h"

#include <QLabel>

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

TEST(TextTable, LabelsThatAreSeenStandBelowItLineByLine) {
  QWidget view;
  const auto label = [&view](const char* text, QPoint place) {
    auto* made = new QLabel(QString::fromLatin1(text), &view);
    made->move(place);
    return made;
  };
  label("Ref Price", {10, 40});
  label("5.00", {80, 40});
  label("halted", {10, 5});
  label("  ", {10, 70});
  label("of another panel", {10, 90})->hide();
  view.show();
  EXPECT_EQ(LabelLines(view), "halted\nRef Price  5.00\n");
}

} // namespace
} // namespace Terminal
