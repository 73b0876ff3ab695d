// The closing stock's form of the suite's final-accounts component.
#pragma once

#include <functional>

#include "ports/ports.h"
#include "windows/com/late.h"

namespace quillet::windows {

// Runs a call that returns when a person has closed a window of the host; until then the
// component's own windows take no input.
using Modally = std::function<void(const std::function<void()>& call)>;

class LateStock : public StockForms, public StockForm {
 public:
  explicit LateStock(Modally modally);

  StockForm& ObjTrade() override;

  // Service object, client and table's name; `host` is the service object of this process.
  void LoadData(ServiceObject& host, const std::string& client, const std::string& table) override;
  void Show(int modal, std::function<void()> closed) override;

 private:
  Modally modally_;
  Late component_;
  Late form_;
};

}  // namespace quillet::windows
