#include "terminal/windows/SymbolChoice.h"

#include "host/ConstDef.h"
#include "terminal/services/Services.h"

namespace Terminal {

void ChooseSymbol(TServices& services, const std::string& group, System::TObject* sender,
                  const std::string& symbol) {
  if (group.empty()) {
    TListObject chosen(symbol, false);
    services.Channels.Send(Constdef::Channel_CopySymbol, sender, &chosen);
  } else {
    TGroupData chosen(group, symbol, false);
    services.Channels.SendToGroup(group, sender, &chosen);
  }
}

} // namespace Terminal
