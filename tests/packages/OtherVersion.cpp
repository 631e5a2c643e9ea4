// A package for another contract: its version must be read before anything else is called.

#include <cstdlib>

#define PACKAGE_FUNCTION extern "C" __attribute__((visibility("default")))

PACKAGE_FUNCTION int quorPackageContractVersion() { return 4711; }
PACKAGE_FUNCTION void quorPackageInitialize() { std::abort(); }
PACKAGE_FUNCTION void quorPackageFinalize() {}
