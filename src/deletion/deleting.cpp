// The deletion itself: statements and files, in the order that the suite's other components rely
// on. There is no way back: what was sent before a failure stays done, and a second try runs
// through the whole again.
#include "data/errors.h"
#include "deletion/frmdelwhatinTB.h"

namespace quillet {
namespace {

// Error numbers of a path that cannot be used and of a bad file name.
constexpr long pathAccessError = 75;
constexpr long badFileName = 52;

}  // namespace

void frmdelwhatinTB::send(std::span<const deletion::Statement> statements) {
  for (const deletion::Statement& statement : statements) {
    context_.host->ConQuery(deletion::filled(statement.pattern, keys_));
    touched_ = true;
    // The trial balance goes first, and with it whatever was to be posted into it.
    context_.unposted.forget({year_.table, year_.client});
    context_.host->ConQuery(deletion::filled(statement.flush, keys_));
  }
}

void frmdelwhatinTB::deleteSchedules() {
  send(deletion::schedulesBeforeChart());
  // Without a chart some of its rows may be there all the same; the next year of that number would
  // inherit them.
  if (deletesChart() || removesYear()) send(deletion::depreciationChart());
  send(deletion::schedulesAfterChart());
}

void frmdelwhatinTB::deleteMisc() {
  if (!deletion::namesFiles(year_.client)) {
    send(deletion::annexures());
    send(deletion::annexureName());
    refuseFiles();
    return;
  }
  deletion::YearFiles files(context_.host->DocPath(), year_.client, keys_.year - 1, keys_.year);
  files.deleteAnnexureFolder();
  send(deletion::annexures());
  files.deleteAnnexures();
  send(deletion::annexureName());
  files.deleteReports();
  keepFailed(files.failed());
}

void frmdelwhatinTB::deleteRegistryRow() {
  for (const deletion::Statement& statement : deletion::registry()) {
    context_.host->ConQuery(deletion::filled(statement.pattern, keys_));
    registryRowDeleted_ = true;
    context_.host->ConQuery(deletion::filled(statement.flush, keys_));
  }
}

// --- what could not be deleted ------------------------------------------------------------------

void frmdelwhatinTB::refuseFiles() {
  log(badFileName, "The client code " + year_.client + " cannot be part of a file name.");
  problems_ = "The files of this year were not deleted: the client code " + year_.client +
              " cannot be part of a file name.";
}

void frmdelwhatinTB::keepFailed(const std::vector<std::string>& files) {
  if (files.empty()) return;
  std::string names;
  for (const std::string& file : files) names += "\r\n" + file;
  log(pathAccessError, "Files not deleted:" + names);
  problems_ = "These files could not be deleted:" + names;
}

void frmdelwhatinTB::log(long number, const std::string& description) {
  trap("CMDDELETE_CLICK", [&] { throw RunTimeError(number, description, "Quillet"); });
}

}  // namespace quillet
