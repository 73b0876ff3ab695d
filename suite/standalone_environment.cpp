#include "suite/standalone_environment.h"

#include <chrono>
#include <utility>

#include "suite/client_register.h"
#include "suite/firm_name.h"
#include "suite/history/history_forms.h"
#include "suite/kept_settings.h"
#include "suite/practice_commands.h"
#include "suite/practice_start.h"
#include "suite/reporter.h"
#include "suite/schema.h"
#include "suite/sheets/source_files.h"
#include "suite/stock_form.h"
#include "suite/table_numbers.h"

namespace quillet::suite {
namespace {

// Making the tables takes seconds at the first start and nothing later.
void completeWithProgress(Database& database, long tableCount, FrontEnd& frontEnd) {
  bool shown = false;
  completeSchema(database, tableCount, [&](long done, long total) {
    if (!shown) {
      shown = true;
      frontEnd.showProgress(true);
      frontEnd.progressText("Preparing the database...");
    }
    frontEnd.progressBar(done, total);
  });
  if (shown) frontEnd.showProgress(false);
}

}  // namespace

StandaloneEnvironment::StandaloneEnvironment(const DataFolder& folder, Settings& settings,
                                             Database& database, FrontEnd& frontEnd, Clock& clock)
    : folder_(folder),
      settings_(settings),
      database_(database),
      frontEnd_(frontEnd),
      clock_(clock),
      log_(database),
      unit_(database, &log_),
      locks_(database, unit_, log_, clock),
      takingBack_(unit_, log_, locks_),
      dialogs_(unit_, locks_.presence(), frontEnd.dialogs()),
      fileRemoval_(unit_, folder.documents(), folder.keptFiles()),
      disk_(database.schemaFolder().parent_path()),
      acts_(unit_, log_, fileRemoval_, disk_, frontEnd.notices(), clock),
      statutoryHeads_(folder.statutoryHeads()) {
  database.tellWaiting([&frontEnd](bool waits) { frontEnd.serverWaits(waits); });
}

StandaloneEnvironment::~StandaloneEnvironment() { database_.tellWaiting({}); }

std::unique_ptr<ServiceObject> StandaloneEnvironment::createServiceObject() {
  return std::make_unique<Service>(folder_, settings_, database_, unit_, frontEnd_, dialogs_);
}

std::unique_ptr<Reporter> StandaloneEnvironment::createReporter() {
  return std::make_unique<DocumentReporter>([this](const Document& document) {
    lastReport_ = document;
    lastReport_->setFirm(FirmName(settings_, unit_).get());
    if (const Form* form = reportingForm_ ? reportingForm_() : nullptr) {
      lastReport_->setSubject(form->subject());
      lastReport_->setFileSubject(form->fileSubject());
    }
    frontEnd_.showReport(*lastReport_);
  });
}

std::unique_ptr<StockForms> StandaloneEnvironment::createStockForms(OpenForms& openForms) {
  return std::make_unique<StockComponent>(openForms, dialogs(), clock(), yearLocks(),
                                          [this](const std::string& text) { notice(text); });
}

std::unique_ptr<Spreadsheet> StandaloneEnvironment::createSpreadsheet() {
  CalcOptions options = calc_;
  options.waiting = [this] { frontEnd_.progressWaits(); };
  return std::make_unique<CalcSpreadsheet>(std::move(options));
}

SourceReader* StandaloneEnvironment::sourceReader() {
  if (!sourceReader_) sourceReader_ = std::make_unique<SourceFiles>(calc_);
  return sourceReader_.get();
}

void StandaloneEnvironment::lookAround() {
  const StationTurns* const turns = unit_.turns();
  const TurnCount before = turns != nullptr ? turns->known() : TurnCount();
  if (!acts_.look()) return;
  try {
    const bool undisturbed = turns != nullptr && turns->known() == before;
    locks_.presence().beat(undisturbed, std::chrono::steady_clock::now());
  } catch (const std::exception&) {
    // The connection is lost; the next look opens it again.
  }
}

void StandaloneEnvironment::follow(Context* context) {
  acts_.leave();
  locks_.follow(context ? &context->openForms.acts : nullptr);
  if (context) acts_.follow(*context);
}

Practice::Practice(DataFolder folder, std::unique_ptr<Database> database, FrontEnd& frontEnd,
                   Clock& clock, const StartPolicy& policy)
    : folder_(std::move(folder)),
      settings_(folder_.settings()),
      database_(std::move(database)),
      frontEnd_(frontEnd),
      standalone_(folder_, settings_, *database_, frontEnd, clock) {
  frontEnd.usePreferences(settings_);
  frontEnd.keepPlacesIn(&settings_);
  noticeLostTables(*database_, folder_, policy);
  backUpOlder(*database_, folder_, clock);
  completeWithProgress(*database_, tableNumbers(settings_, *database_), frontEnd);
  standalone_.actLog().open();
  standalone_.unit().takeTurns();
  database_->share();
  completeClientList(*database_);
  standalone_.removeOldFiles();
  noteStart(*database_, folder_, settings_);
  restartModule();
}

Practice::Practice(const DataFolder& folder, FrontEnd& frontEnd, Clock& clock,
                   const StartPolicy& policy)
    : Practice(folder, openPractice(folder, frontEnd, policy), frontEnd, clock, policy) {}

Practice::~Practice() {
  // The forms leave their years now.
  database_->giveUpIfSilent();
  standalone_.follow(nullptr);
  frontEnd_.keepPlacesIn(nullptr);
  try {
    KeptSettings(folder_).keep(settings_);
  } catch (const std::exception&) {
    // Those of the start stay.
  }
}

void StandaloneEnvironment::bringBackFiles(const ActRow& act) {
  fileRemoval_.bringBack(act.at);
  if (act.takesBack != 0) fileRemoval_.removeAgain(act.takesBack);
}

// Ledgers may have come or gone, and so may the year in work.
void Practice::tookBack(const ActRow& act) {
  standalone_.bringBackFiles(act);
  service().ledgersChanged();
  Context& context = this->context();
  const auto quoted = [&](const std::string& text) {
    return '\'' + database_->escape(text) + '\'';
  };
  const bool there =
      !database_
           ->query("select 1 from master where code_no=" + quoted(context.clientCode) +
                   " and tbl_nm=" + quoted(context.table) +
                   " and s_yr=" + quoted(context.secondDate))
           ->EOF_();
  if (!there && !context.table.empty()) {
    context.forgetYear();
    if (context.editorForm) context.editorForm->close();
  }
  context.openForms.takenBack();
}

Service& Practice::service() { return static_cast<Service&>(*context().host); }

void Practice::restartModule() {
  standalone_.follow(nullptr);
  commands_.reset();
  standalone_.offerHistory(nullptr);
  history_.reset();
  forms_.reset();
  standalone_.forgetReport();
  forms_ = std::make_unique<Forms>(standalone_);
  standalone_.follow(&context());
  standalone_.reportsOf([this] { return context().openForms.active(); });
  service().useOpenForms(context().openForms);
  standalone_.takingBack().onTakenBack = [this](const ActRow& act) { tookBack(act); };
  if (standalone_.actLog().keeps()) {
    history_ =
        std::make_unique<HistoryForms>(context(), standalone_.unit(), standalone_.takingBack());
    standalone_.offerHistory(history_.get());
  }
  commands_ = std::make_unique<PracticeCommands>(*this);
}

}  // namespace quillet::suite
