#include "terminal/market/RecordFields.h"

#include "terminal/market/BrokerQueue.h"
#include "terminal/market/FieldNumbers.h"

#include <cmath>
#include <cstdio>

namespace Terminal::Market {

namespace {

void AddSide(TFieldList& fields, const TOrderBook& book, TSide side, const Field::TDepth& numbers) {
  std::array<TBookLevel, Field::Levels> levels;
  const std::size_t count = book.ReadLevels(side, levels);
  for (std::size_t i = 0; i < count; ++i) {
    fields.Price(numbers.Price[i], levels[i].Price);
    fields.Count(numbers.Size[i], levels[i].Quantity);
    fields.Count(numbers.Count[i], levels[i].Orders);
  }
  fields.Text(numbers.Queue, BrokerQueueText(book, side));
}

std::string DateText(std::chrono::year_month_day date) {
  char text[16];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
  return text;
}

void AddTerms(TFieldList& fields, const TTerms& terms) {
  fields.Text(Field::Underlying, terms.Underlying);
  fields.Number(Field::Strike, terms.Strike);
  fields.Text(Field::CallPut, terms.Right == TRight::Call ? "C" : "P");
  fields.Text(Field::Expiry, DateText(terms.Expiry));
  fields.Number(Field::ConversionRatio, 1.0 / terms.UnitsPerUnderlying);
  fields.Text(Field::OptionStyle, terms.IsAmerican ? "2" : "1");
  if (terms.CallLevel > 0)
    fields.Price(Field::CallLevel, terms.CallLevel);
}

void AddValuation(TFieldList& fields, const TInstrument& instrument) {
  if (const auto multiple = instrument.PriceEarnings())
    fields.Number(Field::PriceEarnings, std::round(*multiple * 10) / 10);
  if (instrument.DividendYield)
    fields.Number(Field::DividendYield, *instrument.DividendYield);
  fields.Text(Field::AccruedInterest, instrument.AccruedInterest);
}

/// "1" no surplus, "2" of buyers, "3" of sellers.
void AddImbalance(TFieldList& fields, const TInstrumentMarket& market) {
  const auto equilibrium = market.Equilibrium();
  if (!equilibrium)
    return;
  const bool hasBuyers = equilibrium->Imbalance == TImbalance::BuySurplus;
  const bool isEven = equilibrium->Imbalance == TImbalance::None;
  fields.Text(Field::ImbalanceSide, isEven ? "1" : hasBuyers ? "2" : "3");
  fields.Count(Field::ImbalanceQuantity, equilibrium->Surplus);
}

void AddOpeningSession(TFieldList& fields, const TInstrumentMarket& market) {
  if (!market.Settings().HasOpeningAuction)
    return;
  const bool isOn = IsOpeningAuction(market.Phase());
  fields.Text(Field::OpeningSession, isOn ? "1" : "0");
  if (!isOn)
    return;
  fields.Price(Field::OpeningReference, market.ReferencePrice());
  if (const auto limits = market.AuctionLimits()) {
    fields.Price(Field::OpeningLower, limits->Lower);
    fields.Price(Field::OpeningUpper, limits->Upper);
    fields.Price(Field::SellLowerLimit, limits->Lower);
    fields.Price(Field::BuyUpperLimit, limits->Upper);
  }
  AddImbalance(fields, market);
}

/// The field says all day that the session applies; with a reference price it is in force.
void AddClosingSession(TFieldList& fields, const TInstrumentMarket& market) {
  if (!market.Settings().HasClosingAuction)
    return;
  const bool isOver = market.ClosingPrice().has_value();
  fields.Text(Field::ClosingSession, isOver ? "0" : "1");
  const TPhase phase = market.Phase();
  if (phase != TPhase::ReferenceFixing && !IsClosingAuction(phase))
    return;
  fields.Price(Field::ClosingReference, market.ReferencePrice());
  if (const auto limits = market.AuctionLimits()) {
    fields.Price(Field::ClosingLower, limits->Lower);
    fields.Price(Field::ClosingUpper, limits->Upper);
  }
  AddImbalance(fields, market);
}

void AddVolatilityControl(TFieldList& fields, const TInstrumentMarket& market,
                          TCoolingOffs earlier) {
  if (market.Settings().VolatilityPercent == 0)
    return;
  const auto coolingOff = market.CoolingOff();
  const bool isTakenOff = !coolingOff && earlier == TCoolingOffs::Had;
  fields.Text(Field::VolatilityControl, isTakenOff ? "0" : "1");
  if (!coolingOff)
    return;
  fields.Text(Field::CoolingOffStart, ClockText(coolingOff->Start));
  fields.Text(Field::CoolingOffEnd, ClockText(coolingOff->End));
  fields.Price(Field::CoolingOffReference, coolingOff->Reference);
  fields.Price(Field::CoolingOffLower, coolingOff->Limits.Lower);
  fields.Price(Field::CoolingOffUpper, coolingOff->Limits.Upper);
}

std::string AmountText(TAmount amount) {
  const std::string cents = std::to_string(100 + amount / (PriceUnit / 100) % 100);
  return std::to_string(amount / PriceUnit) + "." + cents.substr(1);
}

} // namespace

void AddListedFields(TFieldList& fields, const TListing& listing, const TInstrument& instrument) {
  fields.Text(Field::Name, instrument.Name);
  fields.Text(Field::Exchange, instrument.Exchange);
  fields.Count(Field::ProductType, instrument.ProductType());
  fields.Text(Field::Currency, instrument.Currency);
  fields.Count(Field::BoardLot, instrument.BoardLot);
  fields.Price(Field::PreviousClose, instrument.PreviousClose);
  fields.Text(Field::SpreadCode, instrument.SpreadCode);
  if (instrument.Issued > 0)
    fields.Count(Field::Issued, instrument.Issued);
  if (instrument.Standing == TStanding::Halted)
    fields.Text(Field::Status, "0");
  if (instrument.DailyLimit > 0) {
    fields.Price(Field::LimitUp, instrument.LimitUp(listing.Grid(instrument)));
    fields.Price(Field::LimitDown, instrument.LimitDown(listing.Grid(instrument)));
  }
  AddValuation(fields, instrument);
  if (instrument.Terms)
    AddTerms(fields, *instrument.Terms);
  fields.Text(Field::Remark, instrument.Remark);
  fields.Text(Field::LeftMessage, instrument.Messages[0]);
  fields.Text(Field::RightMessage, instrument.Messages[1]);
  fields.Text(Field::Warrants, listing.WarrantCodes(instrument));
  fields.Text(Field::Related, listing.RelatedCodes(instrument));
  fields.Text(Field::Providers, listing.ProviderCodes(instrument));
}

void AddBookFields(TFieldList& fields, const TInstrumentMarket& market) {
  if (!PublishesBook(market.Phase()))
    return;
  AddSide(fields, market.Book(), TSide::Bid, Field::Bid);
  AddSide(fields, market.Book(), TSide::Ask, Field::Ask);
}

void AddDayFields(TFieldList& fields, const TInstrument& instrument,
                  const TInstrumentMarket& market) {
  const TDayFigures& figures = market.Figures();
  fields.Price(Field::Nominal, market.NominalPrice());
  fields.Count(Field::Volume, figures.Volume);
  fields.Text(Field::Turnover, AmountText(figures.Turnover));
  fields.Price(Field::Open, figures.Open);
  fields.Price(Field::High, figures.High);
  fields.Price(Field::Low, figures.Low);
  if (instrument.YearHigh > 0)
    fields.Price(Field::YearHigh, std::max(instrument.YearHigh, figures.High.value_or(0)));
  if (instrument.YearLow > 0)
    fields.Price(Field::YearLow,
                 std::min(instrument.YearLow, figures.Low.value_or(instrument.YearLow)));
}

void AddSessionFields(TFieldList& fields, const TInstrumentMarket& market, TCoolingOffs earlier) {
  AddVolatilityControl(fields, market, earlier);
  AddOpeningSession(fields, market);
  AddClosingSession(fields, market);
}

std::string BrokerQueueText(const TOrderBook& book, TSide side) {
  std::string text;
  for (const TQueueEntry& entry : BrokerQueueOf(book, side)) {
    char item[16];
    const bool isBroker = entry.Kind == TQueueEntry::TKind::Broker;
    std::snprintf(item, sizeof item, isBroker ? "%04d" : "%+d", entry.Number);
    text += text.empty() ? "" : ",";
    text += item;
  }
  return text;
}

std::string ClockText(TTimeOfDay time) { return TimeOfDayText(time).substr(0, 8); }

} // namespace Terminal::Market
