#pragma once

#include <string_view>

/// Numbers and texts that the host and its packages agree on.
namespace Constdef {

/// Version of this contract. A package built for another version is refused before any C++ call.
inline constexpr int ContractVersion = 1;

/// Names of the three C functions that a package exports.
inline constexpr const char* PackageVersionSymbol = "quorPackageContractVersion"; ///< int (void)
inline constexpr const char* PackageInitializeSymbol = "quorPackageInitialize";   ///< void (void)
inline constexpr const char* PackageFinalizeSymbol = "quorPackageFinalize";       ///< void (void)

/// Tags of the language manager's texts.
inline constexpr std::string_view Const_ResourceStringTag = "ResourceString";
inline constexpr std::string_view Const_CurrencyTag = "Currency";

/// The display scale, in per cent, that counts as unscaled.
inline constexpr int ScalePPI_100 = 100;

/// Global channel messages.
inline constexpr int Channel_CopySymbol = 0;
inline constexpr int Channel_MainFormShown = 104;
inline constexpr int Channel_LayoutLoaded = 109;
inline constexpr int Channel_ScaleChanged = 110;
inline constexpr int Channel_CopyOrder = 18016;
inline constexpr int Channel_BeginningOfDay = 18150;

/// View notifications, from a view to the host.
inline constexpr int Notify_Shortcut = 12;        ///< the view's shortcut was executed
inline constexpr int Notify_SymbolChanged = 1024; ///< the view shows another symbol
inline constexpr int Notify_SizeChanged = 1025;   ///< ask for width and height again
inline constexpr int Notify_LayoutChanged = 1026; ///< the layout data changed: save it

/// View types.
inline constexpr int View_QuorPrice = 502;
inline constexpr int View_Chart = 513;

/// States of a market-data record.
inline constexpr int RecordState_None = 0;    ///< subscribed, nothing received
inline constexpr int RecordState_Ready = 1;   ///< holds data
inline constexpr int RecordState_Invalid = 2; ///< the symbol was rejected

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

/// Configuration sections with a fixed name.
inline constexpr std::string_view Section_TradePlatform = "TARN_TRADEPLATFORM";
inline constexpr std::string_view Section_QtyButtonCaption = "QuorPrcBtnCaption";

} // namespace Constdef
