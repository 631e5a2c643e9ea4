#include "platform/Controls.h"
#include "platform/ImageList.h"
#include "platform/Label.h"
#include "platform/LookAndFeel.h"

#include <QPixmap>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Platform;

TEST(Label, HasNoColoursUntilSet) {
  TcxLabel label("Delay");
  EXPECT_EQ(label.text(), "Delay");
  EXPECT_FALSE(label.Color());
  EXPECT_FALSE(label.TextColor());
  EXPECT_FALSE(label.autoFillBackground());
}

TEST(Label, ASwatchIsPaintedInItsColour) {
  TcxLabel label;
  label.setFixedSize(20, 17);
  label.SetColor(0x00102030);
  EXPECT_EQ(label.Color(), 0x00102030u);
  const QImage image = label.grab().toImage();
  EXPECT_EQ(image.pixelColor(0, 0), QColor(0x30, 0x20, 0x10));
  EXPECT_EQ(image.pixelColor(10, 8), QColor(0x30, 0x20, 0x10));
  EXPECT_EQ(image.pixelColor(19, 16), QColor(0x30, 0x20, 0x10));
}

TEST(Label, TextColourAndFontSizeAreKept) {
  TcxLabel label("1");
  label.SetTextColor(0x000000FF);
  label.SetFontSize(21);
  EXPECT_EQ(label.TextColor(), 0x000000FFu);
  EXPECT_EQ(label.palette().color(QPalette::WindowText), QColor(255, 0, 0));
  EXPECT_EQ(label.font().pointSize(), 21);
}

TEST(Label, ATextIsNeverMarkup) {
  TcxLabel label("<b>A</b>");
  TcxLabel plain("A");
  EXPECT_GT(label.sizeHint().width(), 3 * plain.sizeHint().width());
}

TEST(ImageList, GivesANullIconOutOfRange) {
  TcxImageList list;
  QPixmap red(4, 4);
  red.fill(Qt::red);
  list.Add(QIcon(red));
  EXPECT_EQ(list.Count(), 1);
  EXPECT_EQ(list.Image(0).pixmap(4, 4).toImage().pixelColor(1, 1), QColor(Qt::red));
  EXPECT_TRUE(list.Image(1).isNull());
  EXPECT_TRUE(list.Image(-1).isNull());
}

TEST(RootLookAndFeel, AnnouncesOnlyAnotherSkinPainter) {
  auto& root = TcxRootLookAndFeel::Instance();
  ASSERT_FALSE(root.SkinPainter());
  QSignalSpy changed(&root, &TcxRootLookAndFeel::Changed);
  root.SetSkinPainter(TSkinPainter{Qt::black, Qt::white});
  EXPECT_EQ(changed.size(), 1);
  EXPECT_EQ(root.SkinPainter()->ContentColor, QColor(Qt::black));
  root.SetSkinPainter(TSkinPainter{Qt::black, Qt::white});
  EXPECT_EQ(changed.size(), 1);
  root.SetSkinPainter(TSkinPainter{Qt::black, Qt::yellow});
  EXPECT_EQ(changed.size(), 2);
  root.SetSkinPainter(std::nullopt);
  EXPECT_EQ(changed.size(), 3);
  EXPECT_FALSE(root.SkinPainter());
}

TEST(BarButton, IsVisibleOrNot) {
  TdxBarManager manager;
  TdxBarButton button("Detail", &manager);
  button.setVisible(false);
  TdxBarPopupMenu menu;
  menu.addAction(&button);
  EXPECT_EQ(menu.actions().size(), 1);
  EXPECT_TRUE(menu.isEmpty());
  button.setVisible(true);
  EXPECT_FALSE(menu.isEmpty());
}
