// A package of the right contract that registers no view.

#include "host/ConstDef.h"
#include "host/Export.h"

extern "C" {

QUOR_EXPORT int quorPackageContractVersion() { return Constdef::ContractVersion; }
QUOR_EXPORT void quorPackageInitialize() {}
QUOR_EXPORT void quorPackageFinalize() {}
}
