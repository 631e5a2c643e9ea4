#pragma once

#include "host/Service.h"

/// Definitions behind Host::TService. Included only where the shared libraries of the contract
/// instantiate their services: an instantiation elsewhere would be a second slot.
namespace Host {

template <typename TServiceClass> inline TServiceClass* serviceSlot = nullptr;

template <typename TServiceClass> TServiceClass* TService<TServiceClass>::GetInstance() {
  return serviceSlot<TServiceClass>;
}

template <typename TServiceClass> void TService<TServiceClass>::Install(TServiceClass* service) {
  serviceSlot<TServiceClass> = service;
}

} // namespace Host
