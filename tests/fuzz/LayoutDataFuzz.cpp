// Any text as layout data of a live view: the view takes it or refuses it with
// std::invalid_argument, and what it then writes it reads back unchanged.

#include "fakes/ViewFakes.h"
#include "host/LayoutData.h"
#include "view/QuorPriceView.h"

#include <QApplication>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
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

[[noreturn]] void Fail(const char* what, const std::string& first, const std::string& second) {
  std::fprintf(stderr, "%s: <%s> and <%s>\n", what, first.c_str(), second.c_str());
  std::abort();
}

void Check(const std::string& text) {
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
  if (const auto read = Host::TLayoutData(written).CommaText(); read != written)
    Fail("The written text does not read as itself", written, read);
  frame.SetLayoutData(written);
  if (const auto again = frame.GetLayoutData(); again != written)
    Fail("The view does not come back to what it wrote", written, again);
  view->host.viewHost.notifications.clear();
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  new QApplication(*argc, *argv);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Check({reinterpret_cast<const char*>(data), size});
  return 0;
}
