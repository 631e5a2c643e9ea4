#pragma once

#include "host/Export.h"

#include <cstdint>
#include <functional>
#include <string>
#include <variant>

namespace System {

/// Root of everything that travels through the contract as a sender, an owner or the data of a
/// notification. Receivers tell what they got with dynamic_cast.
class QUOR_EXPORT TObject {
public:
  TObject() = default;
  TObject(const TObject&) = delete;
  TObject& operator=(const TObject&) = delete;
  virtual ~TObject();
};

/// An event with one listener; an empty function is an unassigned event.
using TNotifyEvent = std::function<void(TObject* sender)>;

/// A host notification. `data` is null when the notification carries nothing, and is valid only
/// during the call.
using TDataEvent = std::function<void(TObject* sender, TObject* data)>;

/// A grid cell's value; std::monostate is the null value.
using TVariant = std::variant<std::monostate, bool, std::int64_t, double, std::string>;

/// A colour in the platform's encoding: red in the lowest byte, then green, then blue. A value
/// whose top byte is FF names a system colour.
using TColor = std::uint32_t;

/// The system colour of window backgrounds.
inline constexpr TColor clWindow = 0xFF000005;
inline constexpr TColor clBlack = 0x00000000;
inline constexpr TColor clRed = 0x000000FF;

} // namespace System
