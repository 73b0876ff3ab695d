// What the adjustment journal says and asks.
#pragma once

#include <string>

#include "host/context.h"

namespace quillet {

inline constexpr const char* noRow = "Please select a Item.";
inline constexpr const char* noRecords = "No records available.";
inline constexpr const char* negativeAmount =
    "An Amount cannot be Negative. Choose \"By\" or \"To\" instead.";
inline constexpr const char* sharedNumber =
    "The number of this voucher is also that of another client's voucher, and both would be "
    "deleted. To take it back, please pass a new one with \"Reverse\".";
// Shown where a person is after a statement failed in the middle; the error log says why.
inline constexpr const char* incomplete =
    "Not everything could be stored; the error log says why. Please press \"Update\" again.";
inline constexpr const char* notDeleted =
    "Not everything could be done; the error log says why. Please look whether the voucher is "
    "gone.";
inline constexpr const char* halfPosted =
    "A voucher is half posted; the error log says why. What is missing is posted with the next "
    "voucher, or when the journal is left.";
inline constexpr const char* staleVoucher =
    "Another station had the year meanwhile, and may have changed the voucher. Nothing was stored; "
    "the list shows what is. Please look, and modify it again.";
inline constexpr const char* staleTyped =
    "Another station had the year meanwhile, and has changed the voucher or deleted it. What was "
    "typed here is not stored and stays to be read; \"Cancel\" leads to the list of what is "
    "stored.";
// What is said of a voucher that is being typed when the year is lost.
inline constexpr const char* typedStays = "What was typed is not stored. It stays here to be read.";
inline constexpr const char* typedAgain =
    "Entries can be passed here again. \"Update\" stores what was typed.";
inline constexpr const char* notSaved = "The voucher was not saved. Update tries again.";
inline constexpr const char* notSavedRead = "The voucher was not saved. It stays here to be read.";
inline constexpr const char* notPrinted =
    "The subsidiary trial balance could not be printed; the error log says why.";
inline constexpr const char* notLoaded =
    "Ledgers and balances could not be loaded; the error log says why.";

inline void tell(Context& context, const std::string& text) {
  context.MsgBox(text, Buttons::OK, Icon::information, Answer::OK, "Adjustment Journal");
}

inline bool confirmed(Context& context, const std::string& question,
                      Answer defaultAnswer = Answer::Yes) {
  return context.MsgBox(question, Buttons::YesNo, Icon::question, defaultAnswer,
                        "Adjustment Journal") == Answer::Yes;
}

}  // namespace quillet
