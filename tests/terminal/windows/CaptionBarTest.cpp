#include "terminal/windows/CaptionBar.h"

#include "host/ConstDef.h"
#include "terminal/script/input/Input.h"
#include "terminal/services/Services.h"

#include <QMenu>
#include <QTimer>

#include <gtest/gtest.h>

namespace Terminal {
namespace {

class TCaptionBarTest : public testing::Test {
protected:
  TCaptionBarTest() {
    Bar.show();
    QObject::connect(&Bar, &TCaptionBar::GroupChosen,
                     [this](const QString& group) { Chosen.append(group); });
  }

  QMenu* Groups() { return Bar.findChild<QMenu*>(); }
  QToolButton* GroupButton() {
    for (auto* button : Bar.findChildren<QToolButton*>())
      if (button->menu())
        return button;
    return nullptr;
  }
  QColor MarkColour() {
    const QImage mark = GroupButton()->icon().pixmap(32, 32).toImage();
    return mark.pixelColor(mark.width() / 2, mark.height() / 5);
  }

  TServices Services;
  TCaptionBar Bar{nullptr};
  QStringList Chosen;
};

TEST_F(TCaptionBarTest, OffersNoGroupAndSixGroups) {
  QStringList offered;
  for (auto* action : Groups()->actions())
    offered.append(action->text());
  EXPECT_EQ(offered, (QStringList{"No group", "&1", "&2", "&3", "&4", "&5", "&6"}));
}

TEST_F(TCaptionBarTest, ShowsTheGroupByTheMarkOfItsColour) {
  for (const auto& group : LinkingGroups) {
    Bar.SetGroup(QLatin1String(group.Id));
    EXPECT_EQ(MarkColour(), QColor(group.Colour)) << group.Id;
  }
  Bar.SetGroup({});
  for (const auto& group : LinkingGroups)
    EXPECT_NE(MarkColour(), QColor(group.Colour)) << group.Id;
}

TEST_F(TCaptionBarTest, TheColoursOfGroupsDiffer) {
  std::set<QRgb> colours;
  for (const auto& group : LinkingGroups)
    colours.insert(group.Colour);
  EXPECT_EQ(colours.size(), LinkingGroups.size());
}

TEST_F(TCaptionBarTest, ShowsAGroupThatCannotBeChosenByItsName) {
  Bar.SetGroup(QStringLiteral("desk"));
  EXPECT_EQ(GroupButton()->text(), QStringLiteral("desk"));
}

TEST_F(TCaptionBarTest, AGroupIsChosenByNumberOrByArrowKeys) {
  const auto press = [this](std::vector<Qt::Key> keys) {
    QTimer::singleShot(0, [this, keys] {
      for (const auto key : keys)
        Input::PressKey(Groups(), key);
    });
    Bar.ChooseGroup();
  };
  press({Qt::Key_5});
  press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
  press({Qt::Key_Down, Qt::Key_Return});
  EXPECT_EQ(Chosen, (QStringList{"5", "1", ""}));
}

} // namespace
} // namespace Terminal
