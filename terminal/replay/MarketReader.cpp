#include "terminal/replay/MarketReader.h"

namespace Terminal {

MarketReader::~MarketReader() = default;

} // namespace Terminal
