// Locked years as a person is told of them, and which of them carry a group or a ledger.
#pragma once

#include <string>
#include <vector>

#include "books/year_tables.h"
#include "ports/ports.h"
#include "ports/year_locks.h"

namespace quillet {

// "Audited, by asha, since 22/11/2026 16:45"
std::string lockText(const YearLock& lock);
// The same as a form shows it of its year: "Locked: ..." or "Open at DESK2, ...".
std::string lockCaption(const YearLock& lock);
// Why nothing of the year can be changed. The subject names client and year.
std::string lockedSentence(const std::string& subject, const YearLock& lock);
// Whether a year that is open elsewhere is to be taken over.
std::string takeOverText(const std::string& subject, const YearLock& lock);
// Why nothing of the year can be changed, and what to do.
std::string lockedText(const std::string& subject, const YearLock& lock);
// It came while a form was open on the year. `typed`: something stands in the form's fields that is
// not stored.
std::string lossText(const std::string& subject, const YearLock& lock, bool typed);
// "Asha Traders (C1), 01/04/2008 - 31/03/2009"
std::string subjectOf(ServiceObject& host, const LockedYear& year);

// Those of the years in whose tables of these prefixes a row meets the condition.
std::vector<LockedYear> lockedWith(ServiceObject& host, const std::vector<LockedYear>& locked,
                                   const TablePrefixes& prefixes, const Sql& condition,
                                   const Sql& bindingCondition = {});

}  // namespace quillet
