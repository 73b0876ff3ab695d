#include "books/locked_years.h"

#include <algorithm>
#include <set>
#include <utility>

#include "books/clients.h"
#include "data/text.h"
#include "data/year.h"

namespace quillet {

std::string lockText(const YearLock& lock) {
  return (lock.station.empty() ? lock.reason : "open at " + lock.station) +
         (lock.person.empty() ? "" : ", by " + lock.person) +
         (lock.since.empty() ? "" : ", since " + shownMoment(lock.since));
}

std::string lockCaption(const YearLock& lock) {
  if (lock.station.empty()) return "Locked: " + lockText(lock);
  if (lock.gone) return lock.reason + ". Nothing can be entered here any more.";
  if (!lock.reason.empty()) return lock.reason + ". F5 shows what is stored now.";
  return 'O' + lockText(lock).substr(1) + "; here it can be read";
}

std::string lockedSentence(const std::string& subject, const YearLock& lock) {
  return "The trial balance of " + subject + (lock.station.empty() ? " is locked: " : " is ") +
         lockText(lock) + '.';
}

std::string takeOverText(const std::string& subject, const YearLock& lock) {
  return lockedSentence(subject, lock) +
         "\r\n\r\nWhat is being entered there would not be stored any more."
         "\r\n\r\nTake it over ?";
}

std::string lockedText(const std::string& subject, const YearLock& lock) {
  if (lock.gone) {
    return "The trial balance of " + subject +
           " does not exist any more, or not as it was opened here: another station has deleted"
           " it, or made it anew. Nothing was changed here.";
  }
  if (!lock.station.empty() && !lock.reason.empty()) {
    return "The trial balance of " + subject +
           ": another station has changed it meanwhile. What is "
           "shown after this is as it is stored; please look, and do it again.";
  }
  if (!lock.station.empty()) {
    return lockedSentence(subject, lock) +
           "\r\n\r\nNothing of it can be changed here meanwhile. Close it there; or open it here "
           "anew, and take it over.";
  }
  return lockedSentence(subject, lock) +
         "\r\n\r\nNothing of the year can be changed. Whoever may do so unlocks it on the home "
         "form: choose the year there, then \"Unlock Year...\".";
}

namespace {

// When what was typed can be stored.
std::string storableAgain(const YearLock& lock) {
  if (lock.gone) return "It stays in the fields to be read.";
  const std::string stays = "It stays in the fields, and can be stored ";
  if (lock.station.empty()) return stays + "when the year is unlocked.";
  return stays + (lock.reason.empty() ? "when the year is closed there." : "after that.");
}

}  // namespace

std::string lossText(const std::string& subject, const YearLock& lock, bool typed) {
  const std::string year = "The trial balance of " + subject;
  std::string text;
  if (lock.gone) {
    text = year +
           " does not exist any more, or not as it was opened here: another station has"
           " deleted it, or made it anew.";
  } else if (!lock.station.empty() && !lock.reason.empty()) {
    text = year +
           " was changed at another station meanwhile, or deleted. F5 shows what is stored"
           " now.";
  } else {
    text = lockedSentence(subject, lock) + " Here it can only be read.";
  }
  return typed ? text + " What was typed is not stored. " + storableAgain(lock) : text;
}

std::string subjectOf(ServiceObject& host, const LockedYear& year) {
  return subjectOf(clientName(host, year.client), year.client, year.firstDate, year.secondDate);
}

std::vector<LockedYear> lockedWith(ServiceObject& host, const std::vector<LockedYear>& locked,
                                   const TablePrefixes& prefixes, const Sql& condition,
                                   const Sql& bindingCondition) {
  std::set<std::string> names;
  for (const LockedYear& year : locked) names.insert(upperCase(year.table));
  if (names.empty()) return {};
  TableNames missing;
  std::vector<Sql> selects;
  for (const YearTable& table : yearTables(host, prefixes, missing)) {
    if (!names.contains(upperCase(table.trialBalance))) continue;
    selects.push_back("Select Distinct Code_No," + host.quoted(table.trialBalance) + " from " +
                      table.sql() + " Where " +
                      (table.prefix == "RMGRP_" ? bindingCondition : condition));
  }
  std::set<std::pair<std::string, std::string>> found;
  queryAll(host, selects, [&](const Recordset& row) {
    found.emplace(upperCase(row.text(0)), upperCase(row.text(1)));
  });
  std::vector<LockedYear> carrying;
  std::ranges::copy_if(locked, std::back_inserter(carrying), [&](const LockedYear& year) {
    return found.contains({upperCase(year.client), upperCase(year.table)});
  });
  return carrying;
}

}  // namespace quillet
