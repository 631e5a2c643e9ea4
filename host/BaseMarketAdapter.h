#pragma once

#include "host/Service.h"

#include <string>
#include <string_view>

namespace Basemarketadapter {

/// The keys (symbols, spread-table codes) that a notification says have changed.
class QUOR_EXPORT TChangedKeys : public System::TObject {
public:
  ~TChangedKeys() override;

  virtual bool Contains(std::string_view key) const = 0;
};

/// The minimum price steps of a class of instruments, by price band. Prices and steps are in
/// currency units.
class QUOR_EXPORT TCustomSpreadTable : public System::TObject {
public:
  ~TCustomSpreadTable() override;

  /// Constdef::SpreadState_Ready when the table holds bands.
  virtual int State() const = 0;
  /// The step at `price`, where a price on a band's upper end belongs to that band; 0 outside
  /// the bands.
  virtual double PriceStep(double price) const = 0;
  /// The price that lies `steps` price steps above (below, when negative) `price`, taking each
  /// step from the band it is in; 0 when a step lies in no band, so that there is no such price.
  virtual double PriceStepsAway(double price, int steps) const = 0;
};

/// A broker of the exchange's broker directory. Names are UTF-8 and may be empty.
class QUOR_EXPORT TCustomBroker : public System::TObject {
public:
  ~TCustomBroker() override;

  virtual std::string_view Name() const = 0;      ///< the default name
  virtual std::string_view Name1() const = 0;     ///< name in language 1
  virtual std::string_view Name2() const = 0;     ///< name in language 2
  virtual std::string_view OtherName() const = 0; ///< last fallback

  /// The name in a language (Constdef::Language_...); where it is empty the default name, and where
  /// that is empty too the last fallback.
  std::string_view NameIn(int language) const;
};

/// Reference data of an instrument.
class QUOR_EXPORT TCustomInstrument : public System::TObject {
public:
  ~TCustomInstrument() override;

  /// Currency code, such as HKD; may be empty.
  virtual std::string_view Currency() const = 0;
  /// What it is, in one line and the user's language: its name, and of a warrant or a CBBC call or
  /// put, strike and expiry. UTF-8; empty where the host has nothing to say.
  virtual std::string Description() const { return {}; }
};

/// Reference data of the market: spread tables, brokers, instruments. What a query returns stays
/// the host's and is valid until the next notification of that kind.
class QUOR_EXPORT TCustomMarketAdapter : public Host::TService<TCustomMarketAdapter> {
public:
  ~TCustomMarketAdapter() override;

  /// `handler` gets null data when the broker directory changed.
  virtual void RegisterBrokerListener(System::TDataEvent handler, const System::TObject* owner) = 0;
  virtual void UnregisterBrokerListener(const System::TObject* owner) = 0;

  /// `handler` gets TChangedKeys with the codes of the spread tables that changed.
  virtual void RegisterSpreadListener(System::TDataEvent handler, const System::TObject* owner) = 0;
  virtual void UnregisterSpreadListener(const System::TObject* owner) = 0;

  /// Each null when unknown.
  virtual const TCustomSpreadTable* GetSpreadTable(std::string_view code) = 0;
  /// `id` is the four-digit broker number.
  virtual const TCustomBroker* GetBroker(std::string_view id) = 0;
  virtual const TCustomInstrument* GetInstrument(std::string_view symbol) = 0;
};

} // namespace Basemarketadapter
