// Detail pop-ups without a view: what fills them, and every way in which one goes.

#include "view/DetailWindows.h"
#include "host/RecordFields.h"
#include "view/FormFixture.h"
#include "view/QuorDetailView.h"

#include <QCoreApplication>
#include <QPointer>

#include <algorithm>

using namespace Quorpriceview;

namespace {

namespace Field = Host::Field;

class TDetailWindowsTest : public TFormTest {
protected:
  TDetailWindowsTest() {
    host.Record("700").Set({{Field::ProductType, "1"}, {Field::IssueSize, "2000"}});
    host.Record("10001").Set(Field::ProductType, "4");
  }

  QWidget& Open(const char* symbol) {
    control.SetSymbol(symbol);
    windows.Open(Baseview::GetDialogForm(nullptr, nullptr), control);
    return *host.viewHost.dialogs.back();
  }

  static std::string Caption(const QWidget& window) { return window.windowTitle().toStdString(); }
  int Subscriptions(const char* symbol) { return host.subscriptions.SubscriptionCount(symbol); }
  std::ptrdiff_t LiveWindows() const {
    return std::count_if(host.viewHost.dialogs.begin(), host.viewHost.dialogs.end(),
                         [](const auto& dialog) { return !dialog.isNull(); });
  }

  TDetailWindows windows;
};

TEST_F(TDetailWindowsTest, StocksAndWarrantsHaveDetails) {
  EXPECT_FALSE(AreDetailsOffered(control)) << "no symbol";
  for (const auto& [type, offered] : {std::pair{"", false},
                                      {"0", false},
                                      {"1", true},
                                      {"2", false},
                                      {"3", false},
                                      {"4", true},
                                      {"5", false}}) {
    host.Record(std::string("S") + type).Set(Field::ProductType, type);
    control.SetSymbol(std::string("S") + type);
    EXPECT_EQ(AreDetailsOffered(control), offered) << type;
  }
}

TEST_F(TDetailWindowsTest, AWindowHasTheSizeOfItsProductAndKeepsItsSymbol) {
  const auto& stock = Open("700");
  const auto& warrant = Open("10001");
  EXPECT_EQ(stock.size(), QSize(210, 100));
  EXPECT_EQ(warrant.size(), QSize(210, 200));
  EXPECT_EQ(Caption(stock), "700 Res_DetailInfo");
  EXPECT_EQ(Caption(warrant), "10001 Res_DetailInfo");
  for (const auto* window : {&stock, &warrant}) {
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(window->isModal());
  }
  EXPECT_EQ(stock.findChild<Quordetailview::TQuorDetailFrame*>()->Symbol(), "700");
}

TEST_F(TDetailWindowsTest, ALanguageReachesEveryWindow) {
  const auto& first = Open("700");
  const auto& second = Open("");
  host.language.SetText("Res_DetailInfo", "Angaben");
  host.language.SetText("Res_IssuedShares", "Aktien");
  windows.SetLanguage(2);
  EXPECT_EQ(Caption(first), "700 Angaben");
  EXPECT_EQ(Caption(second), " Angaben") << "without a symbol it begins with a blank";
  const auto* view = first.findChild<Platform::TcxGrid*>()->View();
  EXPECT_EQ(view->Cell(0, view->Columns()[0].get())->Text, "Aktien");
}

TEST_F(TDetailWindowsTest, AClosedWindowGivesItsContentBackAtOnceAndIsFreedLater) {
  auto& closed = Open("700");
  const auto& left = Open("700");
  EXPECT_EQ(Subscriptions("700"), 3) << "the control's and two";
  closed.setAttribute(Qt::WA_DeleteOnClose, false);
  closed.close();
  EXPECT_EQ(Subscriptions("700"), 2);
  EXPECT_EQ(LiveWindows(), 2);
  host.language.SetText("Res_DetailInfo", "Angaben");
  windows.SetLanguage(2);
  EXPECT_EQ(Caption(closed), "700 Res_DetailInfo") << "it is forgotten";
  EXPECT_EQ(Caption(left), "700 Angaben");
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(LiveWindows(), 1) << "whatever its host said";
}

TEST_F(TDetailWindowsTest, AWindowThatIsFreedWithoutClosingIsForgotten) {
  auto* freed = &Open("700");
  Open("10001");
  delete freed;
  EXPECT_EQ(Subscriptions("700"), 0);
  windows.SetLanguage(1);
  windows.CloseAll();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(LiveWindows(), 0);
}

TEST_F(TDetailWindowsTest, AllAreFreedAtOnceAlsoOneThatRefusesAndOneThatGoesWithAnother) {
  class TRefusal : public QObject {
  public:
    bool eventFilter(QObject*, QEvent* event) override { return event->type() == QEvent::Close; }
  } refusal;
  for (int i = 0; i < 3; ++i)
    Open("700").installEventFilter(&refusal);
  auto all = host.viewHost.dialogs;
  std::sort(all.begin(), all.end(),
            [](const auto& left, const auto& right) { return left.data() < right.data(); });
  QObject::connect(all[0], &QObject::destroyed, [last = all[2]] { delete last.data(); });
  control.SetSymbol("");
  windows.CloseAll();
  EXPECT_EQ(LiveWindows(), 0);
  EXPECT_EQ(Subscriptions("700"), 0);
  windows.CloseAll();
}

} // namespace
