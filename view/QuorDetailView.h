#pragma once

#include "host/view/GridDataSource.h"
#include "model/QuorDetailDataControl.h"
#include "platform/Grid.h"

#include <memory>
#include <string>

namespace Quordetailview {

/// The content of a detail pop-up: label and value pairs of one instrument. It keeps the symbol
/// that it was given, whatever the view beside it shows later.
class TQuorDetailFrame : public QWidget {
public:
  TQuorDetailFrame();
  ~TQuorDetailFrame() override;

  const std::string& Symbol() const { return symbol_; }
  void SetSymbol(const std::string& symbol);
  /// Reads the texts again; the number of the language does not matter.
  void SetLanguage(int language);

private:
  Platform::TcxGrid* PriceGrid;
  Platform::TcxGridTableView* PriceGridView;
  std::unique_ptr<Griddatasource::TCustomGridDataSource> dataSource_;
  Quorpricedatacontrol::TCustomQuorDetailDataControl* detailControl_; ///< the data source's
  std::string symbol_;
};

} // namespace Quordetailview
