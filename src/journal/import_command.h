// The journal's ways into the review of an import of vouchers: the menu's command, and cells pasted
// into the list.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace quillet {

class frmjrnl;
class frmvchimport;

class VoucherImportCommand {
 public:
  explicit VoucherImportCommand(frmjrnl& form);
  ~VoucherImportCommand();

  // Vouchers come to the list, where the host reads files.
  void setEntry();

 private:
  void takeBack();
  void MNUIMPORT_CLICK();
  void review(const std::function<bool(frmvchimport& form)>& open);

  frmjrnl& form_;
  std::unique_ptr<frmvchimport> review_;  // the one opened last
};

}  // namespace quillet
