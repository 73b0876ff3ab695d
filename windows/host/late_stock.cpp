#include "windows/host/late_stock.h"

#include <utility>

#include "windows/host/late_service.h"

namespace quillet::windows {

LateStock::LateStock(Modally modally)
    : modally_(std::move(modally)), component_(Late::create("PrjMoxRep.Forms")) {}

StockForm& LateStock::ObjTrade() {
  form_ = component_.object("ObjTrade");
  return *this;
}

void LateStock::LoadData(ServiceObject& host, const std::string& client, const std::string& table) {
  form_.call("LoadData", dynamic_cast<LateService&>(host).host().get(), client, table);
}

// The host's form runs a loop of its own: the call returns when it is closed.
void LateStock::Show(int modal, std::function<void()> closed) {
  modally_([&] { form_.call("Show", modal); });
  if (closed) closed();
}

}  // namespace quillet::windows
