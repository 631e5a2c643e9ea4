// Any text as layout data of a live view: the view takes it or refuses it with
// std::invalid_argument, and what it then writes it reads back unchanged.

#include "fakes/ViewFakes.h"
#include "fuzz/Fuzz.h"
#include "host/LayoutData.h"
#include "view/QuorPriceView.h"

#include <QApplication>

#include <stdexcept>

namespace {

/// A host with one view that has every caption button that layout data knows.
struct TFuzzedView {
  TFuzzedView() {
    host.editors.listed = {"700", "5", "HSI 2401", "a,b", "say \"hi\""};
    host.config.Set("QuorPrcBtnCaption", "Btn1", "1,000");
    frame = std::make_unique<Quorpriceview::TQuorPriceFrame>(nullptr);
  }

  Fakes::TViewFakes host;
  std::unique_ptr<Quorpriceview::TQuorPriceFrame> frame;
};

} // namespace

void Fuzz::Start(int& argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  new QApplication(argc, argv);
}

void Fuzz::Check(const std::string& text) {
  // A new view now and then, so that what one text leaves does not hide what another does. The last
  // one and the application go before the statics that views rely on.
  static auto& view = *new std::unique_ptr<TFuzzedView>;
  static int texts = 0;
  if (texts % 500 == 0) {
    view.reset();
    view = std::make_unique<TFuzzedView>();
  }
  if (texts++ == 0)
    std::atexit([] {
      delete &view;
      delete qApp;
    });
  auto& frame = *view->frame;
  try {
    frame.SetLayoutData(text);
  } catch (const std::invalid_argument&) {
    // Refused; the view goes on with what it took before.
  }
  const std::string written = frame.GetLayoutData();
  const std::string read = Host::TLayoutData(written).CommaText();
  Expect(read == written, "The written text does not read as itself", written, read);
  frame.SetLayoutData(written);
  const std::string again = frame.GetLayoutData();
  Expect(again == written, "The view does not come back to what it wrote", written, again);
  view->host.viewHost.notifications.clear();
}
