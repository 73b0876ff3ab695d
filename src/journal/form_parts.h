// What the source files of the journal form share besides the form itself.
#pragma once

#include <string>

#include "controls/grid.h"
#include "controls/text_box.h"
#include "data/name_list.h"
#include "data/recordset.h"

namespace quillet {

// Columns of the list of vouchers.
enum VoucherColumn { dateColumn, particularsColumn, debitColumn, creditColumn, vidColumn };

// Columns of the drop-down lists of ledgers and groups.
enum NameColumn { idColumn, nameColumn };

inline constexpr const char* negativeAmount =
    "An Amount cannot be Negative. Choose \"By\" or \"To\" instead.";
// Shown where a person is after a statement failed in the middle; the error log says why.
inline constexpr const char* incomplete =
    "Not everything could be stored; the error log says why. Please press \"Update\" again.";
inline constexpr const char* notDeleted =
    "Not everything could be done; the error log says why. Please look whether the voucher is "
    "gone.";
inline constexpr const char* halfPosted =
    "A voucher is half posted; the error log says why. What is missing is posted with the next "
    "voucher, or when the journal is left.";
inline constexpr const char* notPrinted =
    "The subsidiary trial balance could not be printed; the error log says why.";
inline constexpr const char* notLoaded =
    "Ledgers and balances could not be loaded; the error log says why.";

// Where the fields of a journal's row stand in a result, looked up once for all rows.
struct VoucherFields {
  explicit VoucherFields(const Recordset& rows)
      : code(rows.column("code_no")),
        vid(rows.column("VID")),
        line(rows.column("LSrNo")),
        date(rows.column("VDate")),
        partId(rows.column("PartId")),
        allId(rows.column("AllId")),
        amount(rows.column("Amount")),
        narration(rows.column("VNar")) {}
  int code, vid, line, date, partId, allId, amount, narration;
};

// Raised while a procedure writes into the boxes, whose handlers then leave them alone.
class Filling {
 public:
  explicit Filling(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
  ~Filling() { flag_ = before_; }
  Filling(const Filling&) = delete;
  Filling& operator=(const Filling&) = delete;

 private:
  bool& flag_;
  bool before_;
};

// Shows the names that were found in a drop-down list.
void fillNames(Grid& list, const NameList::Matches& matches);

// Writes a name so that its beginning is in view, however narrow the box.
inline void putName(TextBox& box, const std::string& name) {
  box.setText(name);
  box.select(0, 0);
}

// How many lines of a voucher are in view at a time. Only these have a place in the form's
// arrangement, so that a voucher of 200 lines is as quick to draw as one of ten.
inline constexpr int linesInView = 10;

}  // namespace quillet
