#pragma once

#include "host/System.h"

namespace Host {

/// A process-wide service of the host. The slot that holds the installed instance lives in the
/// shared library of the contract, so that the program and every loaded package see the same one.
///
/// Every service is installed before the first call into a package and outlives every view. A
/// package takes the instance afresh at each use and never keeps or frees it. User-interface
/// thread only.
template <typename TServiceClass> class QUOR_EXPORT TService : public System::TObject {
public:
  /// The installed instance. Null only when the host has installed none, which is allowed for
  /// the services that say so.
  static TServiceClass* GetInstance();

  /// Makes `service` the instance, or removes the instance when null. Host-owned.
  static void Install(TServiceClass* service);
};

} // namespace Host
