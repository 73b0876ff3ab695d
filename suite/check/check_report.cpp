#include "suite/check/check_report.h"

#include "books/client_years.h"
#include "books/clients.h"
#include "suite/reporter.h"

namespace quillet::suite::check {
namespace {

std::string counted(std::size_t number, const std::string& one) {
  return std::to_string(number) + ' ' + one + (number == 1 ? "" : "s");
}

void write(Document& document, const std::string& text, bool title) {
  document.addRow({.values = {text},
                   .alignments = {Align::left},
                   .widths = {0},
                   .before = {},
                   .after = {},
                   .heading = false,
                   .masks = {title ? "1" : "0", title ? "1" : "0", "1", "1"}});
}

std::string titleOf(const Place& place, ClientYears& names) {
  if (place.client.empty()) return "All clients";
  const std::string& name = names.client(place.client);
  if (place.year.first.empty()) return name + " (" + place.client + ")";
  return subjectOf(name, place.client, place.year.first, place.year.second);
}

}  // namespace

std::string summaryOf(const Examination& examination) {
  const std::string extent =
      counted(examination.years, "year") + " of " + counted(examination.clients, "client");
  if (!examination.complete) return "The examination was stopped before its end.";
  if (examination.findings.empty()) return "The books are sound: " + extent + '.';
  const std::size_t mendable = examination.mendable();
  return counted(examination.findings.size(), "finding") + " in " + extent +
         (mendable == 0 ? ", for a person to look at."
                        : ", of which " + std::to_string(mendable) + " can be mended.");
}

std::string summaryOf(const Mending& mending) {
  std::string text = counted(mending.mended, "finding") + " mended.";
  if (!mending.complete) text += " It was stopped before its end.";
  for (const std::string& sentence : mending.failed) text += '\n' + sentence;
  return text + "\nThe books of before: " + mending.backup;
}

Document reportOf(const Examination& examination, ServiceObject& host) {
  ClientYears names(host);
  Document document;
  document.addHeading("Examination of the Books");
  document.setSubject(summaryOf(examination));
  document.setFirm(host.COMPANY_NAME());
  document.beginTable();
  std::string title;
  for (const Finding& finding : examination.findings) {
    const std::string next = titleOf(finding.place, names);
    if (next != title) write(document, title = next, true);
    write(document, finding.what, false);
    write(document, "    " + finding.remedy, false);
  }
  return document;
}

}  // namespace quillet::suite::check
