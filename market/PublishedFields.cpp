#include "market/PublishedFields.h"

#include "host/RecordFields.h"

#include <cmath>
#include <cstdio>

namespace Market {

namespace {

void AddSide(TFieldList& fields, const TSnapshot::TBookSide& side,
             const Host::Field::TSideFields& numbers) {
  for (std::size_t i = 0; i < side.Levels.size(); ++i) {
    fields.Price(numbers.Price[i], side.Levels[i].Price);
    fields.Count(numbers.Size[i], side.Levels[i].Quantity);
    fields.Count(numbers.Count[i], side.Levels[i].Orders);
  }
  fields.Text(numbers.Queue, BrokerQueueText(side.Queue));
}

std::string DateText(std::chrono::year_month_day date) {
  char text[16];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
  return text;
}

void AddTerms(TFieldList& fields, const TTerms& terms) {
  fields.Text(Host::Field::Underlying, terms.Underlying);
  fields.Number(Host::Field::StrikePrice, terms.Strike);
  fields.Text(Host::Field::CallPut, terms.Right == TRight::Call ? "C" : "P");
  fields.Text(Host::Field::ExpiryDate, DateText(terms.Expiry));
  fields.Number(Host::Field::ConversionRatio, 1.0 / terms.UnitsPerUnderlying);
  fields.Text(Host::Field::OptionStyle, terms.IsAmerican ? "2" : "1");
  if (terms.CallLevel > 0)
    fields.Price(Host::Field::CallPrice, terms.CallLevel);
}

void AddValuation(TFieldList& fields, const TInstrument& instrument) {
  if (const auto multiple = instrument.PriceEarnings())
    fields.Number(Host::Field::PriceEarnings, std::round(*multiple * 10) / 10);
  if (instrument.DividendYield)
    fields.Number(Host::Field::DividendYield, *instrument.DividendYield);
  fields.Text(Host::Field::AccruedInterest, instrument.AccruedInterest);
}

/// "1" no surplus, "2" of buyers, "3" of sellers.
void AddImbalance(TFieldList& fields, const TSnapshot& shown) {
  if (!shown.Equilibrium)
    return;
  const bool hasBuyers = shown.Equilibrium->Imbalance == TImbalance::BuySurplus;
  const bool isEven = shown.Equilibrium->Imbalance == TImbalance::None;
  fields.Text(Host::Field::ImbalanceDirection, isEven ? "1" : hasBuyers ? "2" : "3");
  fields.Count(Host::Field::ImbalanceQuantity, shown.Equilibrium->Surplus);
}

void AddOpeningSession(TFieldList& fields, const TSnapshot& shown) {
  const bool isOn = shown.Session == TSnapshot::TSession::Opening;
  fields.Text(Host::Field::PosMarker, isOn ? "1" : "0");
  if (!isOn)
    return;
  fields.Price(Host::Field::PosReferencePrice, shown.Reference);
  if (shown.AuctionLimits) {
    fields.Price(Host::Field::PosLowerPrice, shown.AuctionLimits->Lower);
    fields.Price(Host::Field::PosUpperPrice, shown.AuctionLimits->Upper);
    fields.Price(Host::Field::PosSellLowerLimit, shown.AuctionLimits->Lower);
    fields.Price(Host::Field::PosBuyUpperLimit, shown.AuctionLimits->Upper);
  }
  AddImbalance(fields, shown);
}

/// The field says all day that the session applies; with a reference price it is in force.
void AddClosingSession(TFieldList& fields, const TSnapshot& shown) {
  fields.Text(Host::Field::CasMarker, shown.IsClosed ? "0" : "1");
  if (shown.Session != TSnapshot::TSession::Closing)
    return;
  fields.Price(Host::Field::CasReferencePrice, shown.Reference);
  if (shown.AuctionLimits) {
    fields.Price(Host::Field::CasLowerPrice, shown.AuctionLimits->Lower);
    fields.Price(Host::Field::CasUpperPrice, shown.AuctionLimits->Upper);
  }
  AddImbalance(fields, shown);
}

void AddVolatilityControl(TFieldList& fields, const std::optional<TCoolingOff>& coolingOff,
                          TCoolingOffs earlier) {
  const bool isTakenOff = !coolingOff && earlier == TCoolingOffs::Had;
  fields.Text(Host::Field::VcmMarker, isTakenOff ? "0" : "1");
  if (!coolingOff)
    return;
  fields.Text(Host::Field::VcmStartTime, ClockText(coolingOff->Start));
  fields.Text(Host::Field::VcmEndTime, ClockText(coolingOff->End));
  fields.Price(Host::Field::VcmReferencePrice, coolingOff->Reference);
  fields.Price(Host::Field::VcmLowerPrice, coolingOff->Limits.Lower);
  fields.Price(Host::Field::VcmUpperPrice, coolingOff->Limits.Upper);
}

std::string AmountText(TAmount amount) {
  const std::string cents = std::to_string(100 + amount / (PriceUnit / 100) % 100);
  return std::to_string(amount / PriceUnit) + "." + cents.substr(1);
}

} // namespace

void AddListedFields(TFieldList& fields, const TListing& listing, const TInstrument& instrument) {
  fields.Text(Host::Field::Name, instrument.Name);
  fields.Text(Host::Field::Exchange, instrument.Exchange);
  fields.Count(Host::Field::ProductType, instrument.ProductType());
  fields.Text(Host::Field::Currency, instrument.Currency);
  fields.Count(Host::Field::BoardLot, instrument.BoardLot);
  fields.Price(Host::Field::PreviousClose, instrument.PreviousClose);
  fields.Text(Host::Field::SpreadCode, instrument.SpreadCode);
  if (instrument.Issued > 0)
    fields.Count(Host::Field::IssueSize, instrument.Issued);
  if (const auto limits = listing.DailyLimits(instrument)) {
    fields.Price(Host::Field::UpperLimit, limits->Upper);
    fields.Price(Host::Field::LowerLimit, limits->Lower);
  }
  AddValuation(fields, instrument);
  if (instrument.Terms)
    AddTerms(fields, *instrument.Terms);
  fields.Text(Host::Field::OtherMessage, instrument.Remark);
  fields.Text(Host::Field::FirstMessage, instrument.Messages[0]);
  fields.Text(Host::Field::SecondMessage, instrument.Messages[1]);
  fields.Text(Host::Field::WarrantList, listing.WarrantCodes(instrument));
  fields.Text(Host::Field::RelatedList, listing.RelatedCodes(instrument));
  fields.Text(Host::Field::LiquidityProviderList, listing.ProviderCodes(instrument));
}

void AddBookFields(TFieldList& fields, const TSnapshot& shown) {
  AddSide(fields, shown.Bid, Host::Field::Bid);
  AddSide(fields, shown.Ask, Host::Field::Ask);
}

void AddDayFields(TFieldList& fields, const TInstrument& instrument, const TSnapshot& shown) {
  const TDayFigures& figures = shown.Figures;
  fields.Text(Host::Field::Status, shown.IsSuspended ? "0" : "");
  fields.Price(Host::Field::Nominal, shown.Nominal);
  fields.Count(Host::Field::Volume, figures.Volume);
  fields.Text(Host::Field::Turnover, AmountText(figures.Turnover));
  fields.Price(Host::Field::Open, figures.Open);
  fields.Price(Host::Field::High, figures.High);
  fields.Price(Host::Field::Low, figures.Low);
  if (instrument.YearHigh > 0)
    fields.Price(Host::Field::High52Weeks, std::max(instrument.YearHigh, figures.High.value_or(0)));
  if (instrument.YearLow > 0)
    fields.Price(Host::Field::Low52Weeks,
                 std::min(instrument.YearLow, figures.Low.value_or(instrument.YearLow)));
}

void AddSessionFields(TFieldList& fields, const TInstrumentSettings& settings,
                      const TSnapshot& shown, TCoolingOffs earlier) {
  if (settings.VolatilityPercent > 0)
    AddVolatilityControl(fields, shown.CoolingOff, earlier);
  if (settings.HasOpeningAuction)
    AddOpeningSession(fields, shown);
  if (settings.HasClosingAuction)
    AddClosingSession(fields, shown);
}

std::string BrokerQueueText(const std::vector<TQueueEntry>& queue) {
  std::string text;
  for (const TQueueEntry& entry : queue) {
    char item[16];
    const bool isBroker = entry.Kind == TQueueEntry::TContent::Broker;
    std::snprintf(item, sizeof item, isBroker ? "%04d" : "%+d", entry.Number);
    text += text.empty() ? "" : ",";
    text += item;
  }
  return text;
}

} // namespace Market
