#include "host/year_lock.h"

#include "books/clients.h"
#include "books/locked_years.h"
#include "host/rights.h"

namespace quillet {

std::optional<YearLock> lockOf(Context& context, const std::string& client,
                               const std::string& secondDate) {
  YearLocks* const locks = context.environment.yearLocks();
  return locks ? locks->find(client, secondDate) : std::nullopt;
}

std::optional<YearLock> enterYear(YearHold& hold, Context& context, const ClientTable& books,
                                  const YearKeys& keys) {
  YearLocks* const locks = context.environment.yearLocks();
  if (locks == nullptr) return std::nullopt;
  const auto subject = [&] {
    return subjectOf(clientName(*context.host, books.client), books.client, keys.first,
                     keys.second);
  };
  return hold.enter(locks, context.dialogs, subject, books.client, keys.second, books.table);
}

bool refusedAsLocked(Context& context, const std::string& client, const YearKeys& keys) {
  const auto lock = lockOf(context, client, keys.second);
  if (!lock) return false;
  const std::string name = clientName(*context.host, client);
  context.MsgBox(lockedText(subjectOf(name, client, keys.first, keys.second), *lock), Buttons::OK,
                 Icon::information);
  return true;
}

std::vector<LockedYear> lockedYears(Context& context) {
  YearLocks* const locks = context.environment.yearLocks();
  return locks ? locks->all() : std::vector<LockedYear>();
}

bool mayChangeLocked(Context& context, const std::vector<LockedYear>& years,
                     const std::string& what) {
  if (years.empty()) return true;
  for (const LockedYear& year : years) {
    if (year.lock.station.empty()) continue;
    context.MsgBox(lockedText(subjectOf(*context.host, year), year.lock), Buttons::OK,
                   Icon::information);
    return false;
  }
  std::string names;
  for (const LockedYear& year : years) {
    names += "\r\n - " + subjectOf(*context.host, year) + ": " + lockText(year.lock);
  }
  const Answer answer = context.MsgBox(
      what + " changes years that are locked:\r\n" + names +
          "\r\n\r\nIt needs the right to unlock years, and the years stay locked.\r\n\r\n"
          "Change them all the same ?",
      Buttons::YesNo, Icon::exclamation, Answer::No);
  if (answer != Answer::Yes || !context.host->CheckPass(right::unlockYear)) return false;
  context.environment.yearLocks()->permit(years, what + " changes locked years:" + names);
  return true;
}

}  // namespace quillet
