#pragma once

#include "feed/exchange/Layout.h"

#include <array>

/// The messages of the exchange's securities feed. Prices have three decimals unless told
/// otherwise, times are nanoseconds since 1970 in universal time.
namespace Feed::Exchange::Layouts {

using enum TFieldKind;

inline constexpr TMessageLayout MarketDefinition = {10,
                                                    "Market Definition",
                                                    {{"MarketCode", Letters, 4},
                                                     {"MarketName", Letters, 25},
                                                     {"CurrencyCode", Letters, 3},
                                                     {"NumberOfSecurities", Uint32}}};

inline constexpr TMessageLayout SecurityDefinition = {
    11,
    "Security Definition",
    {{"SecurityCode", Uint32},
     {"MarketCode", Letters, 4},
     {"ISINCode", Letters, 12},
     {"InstrumentType", Letters, 4},
     {"ProductType", Uint8},
     {"", Filler, 1},
     {"SpreadTableCode", Letters, 2},
     {"SecurityShortName", Letters, 40},
     {"CurrencyCode", Letters, 3},
     {"SecurityNameGCCS", Unicode, 60},
     {"SecurityNameGB", Unicode, 60},
     {"LotSize", Uint32},
     {"", Filler, 4},
     {"PreviousClosingPrice", Int32},
     {"VCMFlag", Letters, 1},
     {"ShortSellFlag", Letters, 1},
     {"CASFlag", Letters, 1},
     {"CCASSFlag", Letters, 1},
     {"DummySecurityFlag", Letters, 1},
     {"", Filler, 1},
     {"StampDutyFlag", Letters, 1},
     {"", Filler, 1},
     {"ListingDate", Uint32},
     {"DelistingDate", Uint32},
     {"FreeText", Letters, 38},
     {"", Filler, 62},
     {"POSFlag", Letters, 1},
     {"POSUpperLimit", Int32},
     {"POSLowerLimit", Int32},
     {"DomainStmtSecurityCode", Uint32},
     {"", Filler, 37},
     {"EFNFlag", Letters, 1},
     {"AccruedInterest", Uint32},
     {"CouponRate", Uint32},
     {"", Filler, 1},
     {"FaceValue", Uint64},
     {"DecimalsInFaceValue", Uint8},
     {"FaceValueCurrency", Letters, 3},
     {"BondMaturityDate", Uint32},
     {"InvestorType", Letters, 1},
     {"", Filler, 44},
     {"ConversionRatio", Uint32},
     {"StrikePrice1", Int32},
     {"StrikePrice2", Int32},
     {"MaturityDate", Uint32},
     {"CallPutFlag", Letters, 1},
     {"Style", Letters, 1},
     {"", Filler, 2},
     {"WarrantType", Letters, 1},
     {"CallPrice", Int32},
     {"DecimalsInCallPrice", Uint8},
     {"Entitlement", Int32},
     {"DecimalsInEntitlement", Uint8},
     {"NoWarrantsPerEntitlement", Uint32},
     {"", Filler, 63},
     {"NoUnderlyingSecurities", Uint16}},
    "NoUnderlyingSecurities",
    {{"UnderlyingSecurityCode", Uint32}, {"", Filler, 4}}};

inline constexpr TMessageLayout LiquidityProvider = {
    13,
    "Liquidity Provider",
    {{"SecurityCode", Uint32}, {"NoLiquidityProviders", Uint16}},
    "NoLiquidityProviders",
    {{"LPBrokerNumber", Uint16}}};

inline constexpr TMessageLayout CurrencyRate = {14,
                                                "Currency Rate",
                                                {{"CurrencyCode", Letters, 3},
                                                 {"", Filler, 1},
                                                 {"CurrencyFactor", Uint16},
                                                 {"", Filler, 2},
                                                 {"CurrencyRate", Uint32}}};

inline constexpr TMessageLayout TradingSessionStatus = {20,
                                                        "Trading Session Status",
                                                        {{"MarketCode", Letters, 4},
                                                         {"", Filler, 1},
                                                         {"TradingSessionSubID", Uint8},
                                                         {"TradingSesStatus", Uint8},
                                                         {"TradingSesControlFlag", Letters, 1},
                                                         {"", Filler, 4},
                                                         {"StartDateTime", Uint64},
                                                         {"EndDateTime", Uint64}}};

inline constexpr TMessageLayout SecurityStatus = {
    21,
    "Security Status",
    {{"SecurityCode", Uint32}, {"SuspensionIndicator", Uint8}, {"", Filler, 3}}};

inline constexpr TMessageLayout VcmTrigger = {23,
                                              "VCM Trigger",
                                              {{"SecurityCode", Uint32},
                                               {"CoolingOffStartTime", Uint64},
                                               {"CoolingOffEndTime", Uint64},
                                               {"VCMReferencePrice", Int32},
                                               {"VCMLowerPrice", Int32},
                                               {"VCMUpperPrice", Int32}}};

inline constexpr TMessageLayout AddOrder = {30,
                                            "Add Order",
                                            {{"SecurityCode", Uint32},
                                             {"OrderID", Uint64},
                                             {"Price", Int32},
                                             {"Quantity", Uint32},
                                             {"Side", Uint16},
                                             {"OrderType", Letters, 1},
                                             {"", Filler, 1},
                                             {"OrderBookPosition", Int32}}};

inline constexpr TMessageLayout ModifyOrder = {31,
                                               "Modify Order",
                                               {{"SecurityCode", Uint32},
                                                {"OrderID", Uint64},
                                                {"Quantity", Uint32},
                                                {"Side", Uint16},
                                                {"", Filler, 2},
                                                {"OrderBookPosition", Int32}}};

inline constexpr TMessageLayout DeleteOrder = {
    32,
    "Delete Order",
    {{"SecurityCode", Uint32}, {"OrderID", Uint64}, {"Side", Uint16}, {"", Filler, 2}}};

inline constexpr TMessageLayout AddOddLotOrder = {33,
                                                  "Add Odd Lot Order",
                                                  {{"SecurityCode", Uint32},
                                                   {"OrderID", Uint64},
                                                   {"Price", Int32},
                                                   {"Quantity", Uint32},
                                                   {"BrokerID", Uint16},
                                                   {"Side", Uint16}}};

inline constexpr TMessageLayout DeleteOddLotOrder = {
    34,
    "Delete Odd Lot Order",
    {{"SecurityCode", Uint32}, {"OrderID", Uint64}, {"BrokerID", Uint16}, {"Side", Uint16}}};

inline constexpr TMessageLayout NominalPrice = {
    40, "Nominal Price", {{"SecurityCode", Uint32}, {"NominalPrice", Int32}}};

inline constexpr TMessageLayout IndicativeEquilibriumPrice = {
    41,
    "Indicative Equilibrium Price",
    {{"SecurityCode", Uint32}, {"Price", Int32}, {"AggregateQuantity", Uint64}}};

inline constexpr TMessageLayout ReferencePrice = {43,
                                                  "Reference Price",
                                                  {{"SecurityCode", Uint32},
                                                   {"ReferencePrice", Int32},
                                                   {"LowerPrice", Int32},
                                                   {"UpperPrice", Int32}}};

inline constexpr TMessageLayout Yield = {44, "Yield", {{"SecurityCode", Uint32}, {"Yield", Int32}}};

inline constexpr TMessageLayout Trade = {50,
                                         "Trade",
                                         {{"SecurityCode", Uint32},
                                          {"TradeID", Uint32},
                                          {"Price", Int32},
                                          {"Quantity", Uint32},
                                          {"TrdType", Int16},
                                          {"", Filler, 2},
                                          {"TradeTime", Uint64}}};

inline constexpr TMessageLayout TradeCancel = {
    51, "Trade Cancel", {{"SecurityCode", Uint32}, {"TradeID", Uint32}}};

inline constexpr TMessageLayout TradeTicker = {52,
                                               "Trade Ticker",
                                               {{"SecurityCode", Uint32},
                                                {"TickerID", Uint32},
                                                {"Price", Int32},
                                                {"AggregateQuantity", Uint64},
                                                {"TradeTime", Uint64},
                                                {"TrdType", Int16},
                                                {"TrdCancelFlag", Letters, 1},
                                                {"", Filler, 1}}};

inline constexpr TMessageLayout AggregateOrderBookUpdate = {
    53,
    "Aggregate Order Book Update",
    {{"SecurityCode", Uint32}, {"", Filler, 3}, {"NoEntries", Uint8}},
    "NoEntries",
    {{"AggregateQuantity", Uint64},
     {"Price", Int32},
     {"NumberOfOrders", Uint32},
     {"Side", Uint16},
     {"PriceLevel", Uint8},
     {"UpdateAction", Uint8},
     {"", Filler, 4}}};

inline constexpr TMessageLayout BrokerQueue = {
    54,
    "Broker Queue",
    {{"SecurityCode", Uint32}, {"ItemCount", Uint8}, {"Side", Uint16}, {"BQMoreFlag", Letters, 1}},
    "ItemCount",
    {{"Item", Uint16}, {"Type", Letters, 1}, {"", Filler, 1}}};

inline constexpr TMessageLayout OrderImbalance = {56,
                                                  "Order Imbalance",
                                                  {{"SecurityCode", Uint32},
                                                   {"OrderImbalanceDirection", Letters, 1},
                                                   {"", Filler, 1},
                                                   {"OrderImbalanceQuantity", Uint64},
                                                   {"", Filler, 2}}};

inline constexpr TMessageLayout Statistics = {60,
                                              "Statistics",
                                              {{"SecurityCode", Uint32},
                                               {"SharesTraded", Uint64},
                                               {"Turnover", Int64},
                                               {"HighPrice", Int32},
                                               {"LowPrice", Int32},
                                               {"LastPrice", Int32},
                                               {"VWAP", Int32},
                                               {"ShortSellSharesTraded", Uint32},
                                               {"ShortSellTurnover", Int64}}};

inline constexpr TMessageLayout MarketTurnover = {61,
                                                  "Market Turnover",
                                                  {{"MarketCode", Letters, 4},
                                                   {"CurrencyCode", Letters, 3},
                                                   {"", Filler, 1},
                                                   {"Turnover", Int64}}};

inline constexpr TMessageLayout ClosingPrice = {
    62,
    "Closing Price",
    {{"SecurityCode", Uint32}, {"ClosingPrice", Int32}, {"NumberOfTrades", Uint32}}};

inline constexpr TMessageLayout IndexDefinition = {70,
                                                   "Index Definition",
                                                   {{"IndexCode", Letters, 11},
                                                    {"IndexSource", Letters, 1},
                                                    {"CurrencyCode", Letters, 3},
                                                    {"", Filler, 1}}};

inline constexpr TMessageLayout IndexData = {71,
                                             "Index Data",
                                             {{"IndexCode", Letters, 11},
                                              {"IndexStatus", Letters, 1},
                                              {"IndexTime", Int64},
                                              {"IndexValue", Int64},
                                              {"NetChgPrevDay", Int64},
                                              {"HighValue", Int64},
                                              {"LowValue", Int64},
                                              {"EASValue", Int64},
                                              {"IndexTurnover", Int64},
                                              {"OpeningValue", Int64},
                                              {"ClosingValue", Int64},
                                              {"PreviousSesClose", Int64},
                                              {"IndexVolume", Int64},
                                              {"NetChgPrevDayPct", Int32},
                                              {"Exception", Letters, 1},
                                              {"", Filler, 3}}};

inline constexpr TMessageLayout StockConnectDailyQuotaBalance = {
    80,
    "Stock Connect Daily Quota Balance",
    {{"StockConnectMarket", Letters, 2},
     {"TradingDirection", Letters, 2},
     {"DailyQuotaBalance", Int64},
     {"DailyQuotaBalanceTime", Uint64}}};

inline constexpr TMessageLayout StockConnectMarketTurnover = {81,
                                                              "Stock Connect Market Turnover",
                                                              {{"StockConnectMarket", Letters, 2},
                                                               {"TradingDirection", Letters, 2},
                                                               {"BuyTurnover", Int64},
                                                               {"SellTurnover", Int64},
                                                               {"BuySellTurnover", Int64}}};

inline constexpr TMessageLayout SequenceReset = {100, "Sequence Reset", {{"NewSeqNo", Uint32}}};

inline constexpr TMessageLayout Logon = {101, "Logon", {{"Username", Letters, 12}}};

inline constexpr TMessageLayout LogonResponse = {
    102, "Logon Response", {{"SessionStatus", Uint8}, {"", Filler, 3}}};

inline constexpr TMessageLayout DisasterRecoverySignal = {
    105, "Disaster Recovery Signal", {{"DRStatus", Uint32}}};

inline constexpr TMessageLayout RetransmissionRequest = {
    201,
    "Retransmission Request",
    {{"ChannelID", Uint16}, {"", Filler, 2}, {"BeginSeqNum", Uint32}, {"EndSeqNum", Uint32}}};

inline constexpr TMessageLayout RetransmissionResponse = {202,
                                                          "Retransmission Response",
                                                          {{"ChannelID", Uint16},
                                                           {"RetransStatus", Uint8},
                                                           {"", Filler, 1},
                                                           {"BeginSeqNum", Uint32},
                                                           {"EndSeqNum", Uint32}}};

inline constexpr TMessageLayout RefreshComplete = {
    203, "Refresh Complete", {{"LastSeqNum", Uint32}}};

/// All of them, ascending by type.
inline constexpr std::array All = {&MarketDefinition,
                                   &SecurityDefinition,
                                   &LiquidityProvider,
                                   &CurrencyRate,
                                   &TradingSessionStatus,
                                   &SecurityStatus,
                                   &VcmTrigger,
                                   &AddOrder,
                                   &ModifyOrder,
                                   &DeleteOrder,
                                   &AddOddLotOrder,
                                   &DeleteOddLotOrder,
                                   &NominalPrice,
                                   &IndicativeEquilibriumPrice,
                                   &ReferencePrice,
                                   &Yield,
                                   &Trade,
                                   &TradeCancel,
                                   &TradeTicker,
                                   &AggregateOrderBookUpdate,
                                   &BrokerQueue,
                                   &OrderImbalance,
                                   &Statistics,
                                   &MarketTurnover,
                                   &ClosingPrice,
                                   &IndexDefinition,
                                   &IndexData,
                                   &StockConnectDailyQuotaBalance,
                                   &StockConnectMarketTurnover,
                                   &SequenceReset,
                                   &Logon,
                                   &LogonResponse,
                                   &DisasterRecoverySignal,
                                   &RetransmissionRequest,
                                   &RetransmissionResponse,
                                   &RefreshComplete};

/// Null for a type that is not among them.
const TMessageLayout* Find(std::uint16_t type);

} // namespace Feed::Exchange::Layouts
