// Amounts as rows hold them.
#pragma once

#include <optional>
#include <string>

#include "data/money.h"
#include "data/recordset.h"

namespace quillet::suite::check {

// The amount in whole paise; nothing when the number has parts of a paisa, or is larger than what
// is reckoned with. What a sum of binary numbers leaves over is no part of a paisa.
std::optional<Money> wholePaise(double rupees);

// "100.00", with all the decimals of one that is not in whole paise.
std::string shownAmount(double rupees);
// "100.00 Dr"
std::string shownBalance(Money balance);

// Fields that may be null.
std::optional<long> idIn(const Recordset& rows, int column);
std::optional<double> amountIn(const Recordset& rows, int column);

}  // namespace quillet::suite::check
