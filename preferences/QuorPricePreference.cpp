#include "preferences/QuorPricePreference.h"

#include "host/BaseConfigManager.h"
#include "host/BaseMarketAdapter.h"
#include "host/ConstDef.h"
#include "preferences/Resource.h"

#include <QHeaderView>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <cctype>

namespace Quorpricepreference {

using namespace Platform;
using Baseconfigmanager::TCustomConfigManager;
using Basemarketadapter::TCustomMarketAdapter;

namespace {

constexpr QSize DesignSize(459, 390);
constexpr QSize GridSize(415, 200);
constexpr QSize ButtonSize(75, 25);
constexpr int DeleteColumnWidth = 50;

/// An entry of the copy-price style: its text, and the letter that is stored and read back.
struct TCopyPriceStyle {
  const char* Key;
  char Letter;
};

constexpr std::array<TCopyPriceStyle, 4> CopyPriceStyles{{{"Res_CopyPriceStyle_Default", 'D'},
                                                          {"Res_CopyPriceStyle_None", 'N'},
                                                          {"Res_CopyPriceStyle_LotSize", 'L'},
                                                          {"Res_CopyPriceStyle_Summary", 'S'}}};

struct TColumnKey {
  int Tag;
  const char* Key;
  int Width;
};

constexpr std::array<TColumnKey, 3> BrokerColumns{{{tagBrokerID, "Res_BrokerID", 100},
                                                   {tagColour, "Res_Color", 100},
                                                   {tagDelete, "Res_Delete", DeleteColumnWidth}}};

/// The first entry for any letter that names none.
int IndexOfStyle(const std::string& stored) {
  const int letter = stored.empty() ? 0 : std::toupper(static_cast<unsigned char>(stored.front()));
  for (std::size_t i = 0; i < CopyPriceStyles.size(); ++i)
    if (CopyPriceStyles[i].Letter == letter)
      return static_cast<int>(i);
  return 0;
}

std::string StoredStyle(int index) {
  const bool known = index > 0 && static_cast<std::size_t>(index) < CopyPriceStyles.size();
  return std::string(1, CopyPriceStyles[known ? static_cast<std::size_t>(index) : 0].Letter);
}

/// Reads and writes in the current section, asked for at each use.
std::string Read(std::string_view key) {
  auto* config = TCustomConfigManager::GetInstance();
  return config->ReadString(config->CurrentSection(), key);
}

bool ReadBoolean(std::string_view key) {
  auto* config = TCustomConfigManager::GetInstance();
  return config->ReadBoolean(config->CurrentSection(), key);
}

void Write(std::string_view key, const std::string& value) {
  auto* config = TCustomConfigManager::GetInstance();
  config->WriteString(config->CurrentSection(), key, value, true);
}

template <typename TComponent> TComponent* Named(const char* name, TComponent* component) {
  component->setObjectName(QLatin1String(name));
  return component;
}

} // namespace

TQuorPricePreferenceFrame::TQuorPricePreferenceFrame() {
  BuildForm();
  InitView();
  TQuorPricePreferenceFrame::SetLanguage(Constdef::Language_English);
  TCustomConfigManager::GetInstance()->RegisterListener(
      [this](System::TObject* sender, System::TObject* changed) { ConfigUpdate(sender, changed); },
      this);
  TCustomMarketAdapter::GetInstance()->RegisterBrokerListener(
      [this](System::TObject*, System::TObject*) { BrokerIDGrid->viewport()->update(); }, this);
  ConfigUpdate(this, nullptr);
  cbBrokerIDPropertiesChange();
}

TQuorPricePreferenceFrame::~TQuorPricePreferenceFrame() {
  TCustomMarketAdapter::GetInstance()->UnregisterBrokerListener(this);
  TCustomConfigManager::GetInstance()->UnregisterListener(this);
}

void TQuorPricePreferenceFrame::BuildForm() {
  setObjectName(QStringLiteral("QuorPricePreferenceFrame"));
  resize(DesignSize);
  lcPreference = new TdxLayoutControl(QStringLiteral("lcPreference"), this);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(lcPreference);

  lgQuorPrice =
      lcPreference->Root()->AddGroup(QStringLiteral("lgQuorPrice"), TLayoutDirection::Vertical);
  lgQuorPrice->ShowCaption();
  cmbCopyPriceStyle = Named("cmbCopyPriceStyle", new TcxComboBox);
  liCopyPriceStyle =
      lgQuorPrice->AddItem(QStringLiteral("liCopyPriceStyle"), cmbCopyPriceStyle, true);
  BuildBrokerGroup();
}

void TQuorPricePreferenceFrame::BuildBrokerGroup() {
  lgBrokerID =
      lcPreference->Root()->AddGroup(QStringLiteral("lgBrokerID"), TLayoutDirection::Vertical);
  lgBrokerID->ShowCaption();
  cbBrokerID = Named("cbBrokerID", new TcxCheckBox);
  lgEnableBrokerIDColor = lgBrokerID->AddItem(QStringLiteral("lgEnableBrokerIDColor"), cbBrokerID);
  connect(cbBrokerID, &TcxCheckBox::toggled, this,
          &TQuorPricePreferenceFrame::cbBrokerIDPropertiesChange);

  lgBrokerGrid = lgBrokerID->AddGroup(QStringLiteral("lgBrokerGrid"), TLayoutDirection::Vertical);
  BrokerIDGrid = Named("BrokerIDGrid", new TBrokerGrid);
  BrokerIDGrid->setMinimumSize(GridSize);
  liBrokerIDColor = lgBrokerGrid->AddItem(QStringLiteral("liBrokerIDColor"), BrokerIDGrid, true);

  lgBrokerIDButton =
      lgBrokerGrid->AddGroup(QStringLiteral("lgBrokerIDButton"), TLayoutDirection::Horizontal);
  lgBrokerGrid->Align(lgBrokerIDButton, Qt::AlignHCenter);
  btnAdd = Named("btnAdd", new TcxButton);
  btnClear = Named("btnClear", new TcxButton);
  for (auto* button : {btnAdd, btnClear})
    button->setMinimumSize(ButtonSize);
  liAdd = lgBrokerIDButton->AddItem(QStringLiteral("liAdd"), btnAdd);
  liClear = lgBrokerIDButton->AddItem(QStringLiteral("liClear"), btnClear);
  connect(btnAdd, &TcxButton::clicked, this, &TQuorPricePreferenceFrame::btnAddClick);
  connect(btnClear, &TcxButton::clicked, this, &TQuorPricePreferenceFrame::btnClearClick);
}

void TQuorPricePreferenceFrame::InitView() {
  for (const auto& style : CopyPriceStyles)
    cmbCopyPriceStyle->addItem(QLatin1String(style.Key));
  cmbCopyPriceStyle->setCurrentIndex(0);

  cxEditRepository1 = Named("cxEditRepository1", new QObject(this));
  eriColor = Named("eriColor", new TColourEditor(cxEditRepository1));
  eriDelete = Named("eriDelete", new TDeleteButton(cxEditRepository1));
  eriBrokerID = Named("eriBrokerID", new TBrokerIDEditor(cxEditRepository1));

  std::vector<Columninfo::TColumnInfo> columns;
  for (const auto& column : BrokerColumns)
    Columninfo::AddColumn(columns, column.Tag, column.Width, false, column.Key);
  BrokerIDGridView =
      Named("BrokerIDGridView", new TBrokerListModel(std::move(columns), BrokerIDGrid));
  BrokerIDGrid->setModel(BrokerIDGridView);
  for (int column = 0; column < BrokerIDGridView->columnCount(); ++column)
    if (auto* editor = BrokerIDGridViewGetProperties(BrokerIDGridView->TagOf(column)))
      BrokerIDGrid->setItemDelegateForColumn(column, editor);

  auto* header = BrokerIDGrid->horizontalHeader();
  header->setSectionResizeMode(QHeaderView::Stretch);
  header->setHighlightSections(false);
  header->setTextElideMode(Qt::ElideRight);
  const int deleteColumn = BrokerIDGridView->ColumnOf(tagDelete);
  header->setMinimumSectionSize(DeleteColumnWidth);
  header->setSectionResizeMode(deleteColumn, QHeaderView::ResizeToContents);
  BrokerIDGrid->verticalHeader()->hide();
  connect(BrokerIDGrid, &TBrokerGrid::clicked, this,
          &TQuorPricePreferenceFrame::BrokerIDGridViewCellClick);
}

QAbstractItemDelegate* TQuorPricePreferenceFrame::BrokerIDGridViewGetProperties(int tag) const {
  switch (tag) {
  case tagDelete:
    return eriDelete;
  case tagBrokerID:
    return eriBrokerID;
  case tagColour:
    return eriColor;
  default:
    return nullptr;
  }
}

int TQuorPricePreferenceFrame::GetWidth() { return lcPreference->ContentWidth(); }

int TQuorPricePreferenceFrame::GetHeight() { return lcPreference->ContentHeight(GetWidth()); }

bool TQuorPricePreferenceFrame::SetLanguage(int) {
  lgQuorPrice->SetCaption(GetResource("Res_QuorPrice_Preference"));
  liCopyPriceStyle->SetCaption(GetResource("Res_QuorPrice_CopyPriceStyle"));
  lgBrokerID->SetCaption(GetResource("Res_QuorPrice_BrokerPreference"));
  cbBrokerID->setText(GetResource("Res_HighLightBroker"));
  btnAdd->setText(GetResource("Res_Add"));
  btnClear->setText(GetResource("Res_Clear"));
  for (std::size_t i = 0; i < CopyPriceStyles.size(); ++i)
    cmbCopyPriceStyle->setItemText(static_cast<int>(i), GetResource(CopyPriceStyles[i].Key));
  UpdateGridHeader();
  return true;
}

void TQuorPricePreferenceFrame::UpdateGridHeader() {
  for (const auto& column : BrokerColumns)
    BrokerIDGridView->SetCaption(column.Tag, GetResource(column.Key));
}

void TQuorPricePreferenceFrame::ConfigUpdate(System::TObject*, System::TObject*) {
  cmbCopyPriceStyle->setCurrentIndex(IndexOfStyle(Read(Constdef::Key_CopyPriceStyle)));
  cbBrokerID->setChecked(ReadBoolean(Constdef::Key_SpecBrokerChecked));
  InitBrokerColor();
}

void TQuorPricePreferenceFrame::InitBrokerColor() {
  const TStoredBrokers stored{Read(Constdef::Key_DetailSpecialBroker),
                              Read(Constdef::Key_DetailSpecialBrokerColor)};
  if (stored.IDs.empty())
    return;
  auto rows = BrokerIDGridView->Rows();
  LoadBrokers(stored, rows);
  BrokerIDGridView->SetRows(std::move(rows));
}

bool TQuorPricePreferenceFrame::Execute() {
  CommitOpenEditor();
  // Every value leaves the page before the first is written: a write reloads the page.
  const auto style = StoredStyle(cmbCopyPriceStyle->currentIndex());
  const bool highlight = cbBrokerID->isChecked();
  auto rows = BrokerIDGridView->Rows();

  if (style != Read(Constdef::Key_CopyPriceStyle))
    Write(Constdef::Key_CopyPriceStyle, style);
  if (highlight != ReadBoolean(Constdef::Key_SpecBrokerChecked))
    Write(Constdef::Key_SpecBrokerChecked, highlight ? "Y" : "N");
  SaveBrokerID(StoreBrokers(rows));
  // Reloads between the writes mixed what was stored before into the rows.
  BrokerIDGridView->SetRows(std::move(rows));
  InitBrokerColor();
  return true;
}

void TQuorPricePreferenceFrame::SaveBrokerID(const TStoredBrokers& brokers) {
  Write(Constdef::Key_DetailSpecialBroker, brokers.IDs);
  Write(Constdef::Key_DetailSpecialBrokerColor, brokers.Colours);
}

void TQuorPricePreferenceFrame::CommitOpenEditor() {
  const auto cell = BrokerIDGrid->currentIndex();
  if (auto* editor = cell.isValid() ? BrokerIDGrid->indexWidget(cell) : nullptr)
    emit BrokerIDGrid->itemDelegateForIndex(cell)->commitData(editor);
}

bool TQuorPricePreferenceFrame::Reset() {
  ConfigUpdate(this, nullptr);
  return true;
}

bool TQuorPricePreferenceFrame::ResetFactory() { return Reset(); }

bool TQuorPricePreferenceFrame::SendMessage(int, std::int64_t) { return true; }

void TQuorPricePreferenceFrame::btnAddClick() {
  const int row = BrokerIDGridView->rowCount();
  BrokerIDGridView->SetRowCount(row + 1);
  BrokerIDGrid->EnterCell(BrokerIDGridView->index(row, BrokerIDGridView->ColumnOf(tagBrokerID)));
}

void TQuorPricePreferenceFrame::btnClearClick() { BrokerIDGridView->SetRowCount(0); }

void TQuorPricePreferenceFrame::cbBrokerIDPropertiesChange() {
  lgBrokerGrid->setEnabled(cbBrokerID->isChecked());
}

void TQuorPricePreferenceFrame::BrokerIDGridViewCellClick(const QModelIndex& cell) {
  if (BrokerIDGridView->TagOf(cell.column()) == tagDelete) {
    DeleteFocusedRow();
    return;
  }
  BrokerIDGrid->OpenEditor(cell);
  if (auto* colours = qobject_cast<QComboBox*>(BrokerIDGrid->indexWidget(cell)))
    colours->showPopup();
}

/// The delete button that comes to its place has the focus then.
void TQuorPricePreferenceFrame::DeleteFocusedRow() {
  const int row = BrokerIDGrid->currentIndex().row();
  BrokerIDGridView->RemoveRow(row);
  const int next = std::min(row, BrokerIDGridView->rowCount() - 1);
  if (next >= 0)
    BrokerIDGrid->setCurrentIndex(
        BrokerIDGridView->index(next, BrokerIDGridView->ColumnOf(tagDelete)));
}

} // namespace Quorpricepreference
