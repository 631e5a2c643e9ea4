#pragma once

#include <string_view>

/// Numbers and texts that the host and its packages agree on.
namespace Constdef {

/// Version of this contract. A package built for another version is refused before any C++ call.
inline constexpr int ContractVersion = 3;

/// Names of the three C functions that a package exports.
inline constexpr const char* PackageVersionSymbol = "quorPackageContractVersion"; ///< int (void)
inline constexpr const char* PackageInitializeSymbol = "quorPackageInitialize";   ///< void (void)
inline constexpr const char* PackageFinalizeSymbol = "quorPackageFinalize";       ///< void (void)

/// Class that the package registers: the price view's descriptor.
inline constexpr std::string_view Class_QuorPrice = "TIQuorPrice";

/// Tags of the language manager's texts.
inline constexpr std::string_view Const_ResourceStringTag = "ResourceString"; ///< keys "Res_..."
inline constexpr std::string_view Const_CurrencyTag = "Currency";             ///< currency codes

/// The display scale, in per cent, that counts as unscaled.
inline constexpr int ScalePPI_100 = 100;

/// Global channel messages. Those that say nothing of data carry none.
inline constexpr int Channel_CopySymbol = 0;         ///< a list's symbol: TCustomListObject
inline constexpr int Channel_MainFormShown = 104;    ///< the host's main window is shown
inline constexpr int Channel_LayoutLoaded = 109;     ///< the host has restored its layout
inline constexpr int Channel_ScaleChanged = 110;     ///< Key_ScaleSize has changed
inline constexpr int Channel_CopyOrder = 18016;      ///< Datadef::TCopyOrderRecord
inline constexpr int Channel_BeginningOfDay = 18150; ///< the records hold a new day's data

/// View notifications, from a view to the host.
inline constexpr int Notify_Shortcut = 12;        ///< the view's shortcut was executed
inline constexpr int Notify_SymbolChanged = 1024; ///< the view shows another symbol
inline constexpr int Notify_SizeChanged = 1025;   ///< ask for width and height again
inline constexpr int Notify_LayoutChanged = 1026; ///< the layout data changed: save it

/// View types.
inline constexpr int View_QuorPrice = 502; ///< the price view; kind of an order that it copies
inline constexpr int View_Chart = 513;     ///< the host's chart, opened for a symbol

/// Names of the price view's caption buttons, whatever image and text they show.
inline constexpr std::string_view Button_ShowHide = "show-hide"; ///< the line of the symbol box
inline constexpr std::string_view Button_DisplayMode = "display-mode"; ///< five levels or ten
inline constexpr std::string_view Button_Lock = "lock";                ///< to the symbol shown
inline constexpr std::string_view Button_Chart = "chart";              ///< opens View_Chart
inline constexpr std::string_view Button_Refresh = "refresh";          ///< asks for a new quote
inline constexpr std::string_view Button_BrokerQueue = "broker-queue"; ///< its columns
inline constexpr std::string_view Button_Quantity = "quantity";        ///< the quantity buttons
inline constexpr std::string_view CaptionButtons[] = {
    Button_ShowHide, Button_DisplayMode, Button_Lock,    Button_Chart,
    Button_Refresh,  Button_BrokerQueue, Button_Quantity};

/// Items of the price view's layout data, a Host::TLayoutData, in their order. Without the last two
/// where the view has no such button. A state is the number of a caption button's: 0 or 1.
inline constexpr std::string_view Layout_Symbol = "Symbol";
inline constexpr std::string_view Layout_DisplayMode = "DisplayMode";       ///< a DisplayMode_...
inline constexpr std::string_view Layout_ShowHideState = "ShowHideState";   ///< 1: hidden
inline constexpr std::string_view Layout_ShowBrokerName = "ShowBrokerName"; ///< 0 or -1
inline constexpr std::string_view Layout_LockState = "LockState";           ///< 1: locked
inline constexpr std::string_view Layout_BrokerQueueState = "BrokerQueueState"; ///< 1: hidden
inline constexpr std::string_view Layout_QtyButtonState = "QtyButtonState";     ///< 1: hidden
inline constexpr int DisplayMode_FiveLevels = 0;
inline constexpr int DisplayMode_TenLevels = 2;

/// Object names of the price view's components that a host may look for below its widget.
inline constexpr const char* Component_SymbolBox = "edtSymbol";
inline constexpr const char* Component_LiqProviderBox = "cmbLiqProvider";
inline constexpr const char* Component_WarrantBox = "cmbWarrant";
inline constexpr const char* Component_RelatedBox = "cmbRelated";
inline constexpr const char* Component_PriceGrid = "PriceGrid";
inline constexpr const char* Component_BrokerNameItem = "mBrokerName"; ///< of the grid's menu
inline constexpr const char* Component_DetailItem = "mDetail";         ///< of the grid's menu
/// With a number from 1 to 10 behind it, a quantity button.
inline constexpr const char* ComponentPrefix_QtyButton = "btnQty";

/// States of a market-data record.
inline constexpr int RecordState_None = 0;    ///< subscribed, nothing received
inline constexpr int RecordState_Ready = 1;   ///< holds data
inline constexpr int RecordState_Invalid = 2; ///< the symbol was rejected

/// Kinds of instrument, in Host::Field::ProductType. Any other integer is one without details.
inline constexpr int ProductType_Stock = 1;
inline constexpr int ProductType_Warrant = 4; ///< CBBCs too

/// Data set of real-time prices, at the subscribe adapter.
inline constexpr std::string_view DataSet_Prices = "PRCDDS";

/// Named value of a copied order: "1" for a click on the bid side, not set otherwise.
inline constexpr std::string_view OrderValue_Flags = "OrderFlags";

/// State of a spread table that holds bands.
inline constexpr int SpreadState_Ready = 1;

/// Feed types of the vendor data-feed model.
inline constexpr int FeedType_Streaming = 1; ///< streaming with broker queue
inline constexpr int FeedType_PerClick = 2;  ///< snapshot quotes on request
inline constexpr int FeedType_Delayed = 3;   ///< delayed quotes without broker queue

/// Languages of the host.
inline constexpr int Language_TraditionalChinese = 1;
inline constexpr int Language_SimplifiedChinese = 2;
inline constexpr int Language_English = 3;

/// Functions that a user may be granted.
inline constexpr std::string_view Function_QuorPrice = "QuorPrice"; ///< the price view
inline constexpr std::string_view Function_Chart = "ProChart";      ///< its chart button

/// Configuration sections with a fixed name. The keys further down stand in the section named
/// with them, or in the one that the configuration manager gives as the current one.
inline constexpr std::string_view Section_TradePlatform = "TARN_TRADEPLATFORM";
inline constexpr std::string_view Section_QtyButtonCaption = "QuorPrcBtnCaption";

// In the current section, written by the preference page and read by it and the views:

/// Quantity copied with a price: "L" one board lot, "N" none, "S" the sizes down to the clicked
/// level, in either case; anything else, written as "D", the best size where that was clicked.
inline constexpr std::string_view Key_CopyPriceStyle = "CopyPriceStyle";
/// Boolean: brokers are highlighted; written as "Y" or "N".
inline constexpr std::string_view Key_SpecBrokerChecked = "SpecBrokerChecked";
/// The highlighted brokers' numbers, separated by commas.
inline constexpr std::string_view Key_DetailSpecialBroker = "DetailSpecialBroker";
/// Their colours in the same order, separated by commas: "$" and eight hexadecimal digits of a
/// System::TColor, or empty.
inline constexpr std::string_view Key_DetailSpecialBrokerColor = "DetailSpecialBrokerColor";

// In the current section, written by the host:

/// Integer of the host's; the depth grid is read again when it changes.
inline constexpr std::string_view Key_DenominatorMode = "DenominatorModeValue";
/// Exchange codes whose market data the user may not see, separated by commas.
inline constexpr std::string_view Key_ConcealedExchanges = "ConcealMktDataByExch";
/// Integer: milliseconds between two refreshes of the depth grid; less than 50 counts as 50.
inline constexpr std::string_view Key_UpdateInterval = "QuorPriceUpdateInterval";

// In Section_TradePlatform, written by the host:

/// Integer: display scale in per cent; counts as the next of 100, 115, 125, 135 and 150.
inline constexpr std::string_view Key_ScaleSize = "ScaleSize";
/// Integer: a view follows its own linking group only, and one in no group follows broadcasts and
/// order entry when bit 0 is set. Not a number, or negative: every view follows everybody.
inline constexpr std::string_view Key_DefaultGroupDataMode = "DefaultGroupDataMode";

// In Section_QtyButtonCaption, written by the host:

/// With a number from 1 to 10 behind it, the caption of that quantity button, such as 1,000 or 10K;
/// empty for a button without one.
inline constexpr std::string_view KeyPrefix_QtyButton = "Btn";

/// Named colours of a skin.
inline constexpr std::string_view Colour_LabelBackground = "coLabelBground"; ///< header captions
/// Header captions of a rejected or concealed symbol. Red unless the skin section of the
/// configuration has a value under this name.
inline constexpr std::string_view Colour_LabelInvalidBackground = "coLabelInvalidBground";
inline constexpr std::string_view Colour_BidLabel = "coBuyColorLabel";   ///< bid labels and markers
inline constexpr std::string_view Colour_AskLabel = "coSellColorLabel";  ///< ask labels and markers
inline constexpr std::string_view Colour_VcmBackground = "coVCMBgColor"; ///< volatility control
inline constexpr std::string_view Colour_CasBackground = "coCASBgColor"; ///< closing auction
inline constexpr std::string_view Colour_PosBackground = "coPOSBgColor"; ///< pre-opening session

/// Standard colours of a skin, by number.
inline constexpr int Colour_BidBackground = 6;
inline constexpr int Colour_BidText = 7;
inline constexpr int Colour_AskBackground = 8;
inline constexpr int Colour_AskText = 9;

} // namespace Constdef
