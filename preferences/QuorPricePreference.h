#pragma once

#include "host/view/BaseView.h"
#include "platform/Controls.h"
#include "platform/Layout.h"
#include "preferences/BrokerGrid.h"
#include "preferences/BrokerIDEditor.h"
#include "preferences/BrokerListModel.h"
#include "preferences/ColourEditor.h"

namespace Quorpricepreference {

/// The price view's page in the host's preference dialog: the style of copying a quantity with a
/// price, and the highlighted brokers with their colours. It talks to the views through the
/// configuration only. Any configuration change reloads it; edits that were not saved are lost
/// then.
class TQuorPricePreferenceFrame : public QWidget, public Baseview::TBasePreferenceFrame {
public:
  TQuorPricePreferenceFrame();
  ~TQuorPricePreferenceFrame() override;

  QWidget* Widget() override { return this; }
  int GetWidth() override;
  int GetHeight() override;
  bool SetLanguage(int language) override;
  bool Execute() override;
  bool Reset() override;
  bool ResetFactory() override;
  bool SendMessage(int message, std::int64_t parameter) override;

private:
  void BuildForm();
  void BuildBrokerGroup();
  void InitView();
  void ConfigUpdate(System::TObject* sender, System::TObject* data);
  void InitBrokerColor();
  void SaveBrokerID(const TStoredBrokers& brokers);
  void UpdateGridHeader();
  void CommitOpenEditor();
  void btnAddClick();
  void btnClearClick();
  void cbBrokerIDPropertiesChange();
  void BrokerIDGridViewCellClick(const QModelIndex& cell);
  void DeleteFocusedRow();
  /// The editor of a column's cells, by its tag.
  QAbstractItemDelegate* BrokerIDGridViewGetProperties(int tag) const;

  Platform::TdxLayoutControl* lcPreference;
  Platform::TdxLayoutGroup *lgQuorPrice, *lgBrokerID, *lgBrokerGrid, *lgBrokerIDButton;
  Platform::TdxLayoutItem *liCopyPriceStyle, *lgEnableBrokerIDColor, *liBrokerIDColor, *liAdd,
      *liClear;
  Platform::TcxComboBox* cmbCopyPriceStyle;
  Platform::TcxCheckBox* cbBrokerID;
  TBrokerGrid* BrokerIDGrid;
  TBrokerListModel* BrokerIDGridView;
  Platform::TcxButton *btnAdd, *btnClear;
  QObject* cxEditRepository1;
  TColourEditor* eriColor;
  TDeleteButton* eriDelete;
  TBrokerIDEditor* eriBrokerID;
};

} // namespace Quorpricepreference
