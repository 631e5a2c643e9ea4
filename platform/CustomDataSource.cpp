#include "platform/CustomDataSource.h"

namespace Platform {

TcxCustomDataSource::~TcxCustomDataSource() = default;

} // namespace Platform
