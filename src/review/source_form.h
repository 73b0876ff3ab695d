// What the reviews of imports have in common: the year, the source and how it is read, and the act
// that enters what was taken. Modal; the opener hands the year over with INITDATA, opens a source,
// shows the form and reads imported() when it has closed.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/basic_controls.h"
#include "controls/choice.h"
#include "controls/control_array.h"
#include "host/context.h"
#include "host/year_lock.h"
#include "review/column_boxes.h"
#include "review/import_review.h"
#include "review/source_boxes.h"

namespace quillet {

class SourceForm : public Form {
 public:
  void INITDATA(const ReviewedYear& year) { year_ = year; }
  void OPENFILE(SourceFile file);
  // False when the cells cannot be read, which a message says, or the reading was stopped: the form
  // is not to be shown then.
  bool OPENCELLS(const std::string& text);
  // The year and the source of another review.
  void takeSource(const SourceForm& from);

  // Whether anything was imported.
  bool imported() const { return imported_; }

  std::string subject() const override;
  void takenBack() override;

  Label lblsource{*this, "lblsource"};
  ComboBox cbosheet{*this, "cbosheet"};
  ComboBox cboencoding{*this, "cboencoding"};
  ComboBox cbodelimiter{*this, "cbodelimiter"};
  ComboBox cboheading{*this, "cboheading"};
  ControlArray<ComboBox> cbocolumn;  // one for each role
  ComboBox cbodecimals{*this, "cbodecimals"};
  CheckBox chkround{*this, "chkround", "R&ound to paise"};

  void FORM_LOAD();
  void FORM_UNLOAD(bool& cancel);
  void FORM_KEYPRESS(Key& key);

  // How the source is read, or a choice, changed: shows what follows. The current row stays.
  virtual void reviewed() = 0;
  // What stands in the way, or that nothing does; or a text in its place.
  virtual void showState(const std::string& text) = 0;

 protected:
  // The columns that a person chooses, each with its label.
  struct Role {
    ColumnRole role;
    const char* label;
  };
  SourceForm(Context& context, std::string name, std::vector<Role> roles);

  void load() override { FORM_LOAD(); }
  void unload(bool& cancel) override { FORM_UNLOAD(cancel); }

  // Before the books: "Import into the Trial Balance".
  virtual std::string title() const = 0;
  // Shows the rows of a source that was just opened.
  virtual void begin() = 0;
  // Escape leads from a box back to the rows; false when none is in work.
  virtual bool leaveBox() = 0;
  // The books that the source is compared with.
  virtual YearBooks readBooks() { return readYearBooks(context_, year_); }
  virtual void offerGroups() = 0;
  // What was imported is told and reported.
  virtual void finish() = 0;

  void attachCommands(MenuEntry& help, MenuEntry& back, Button& backButton);
  // True, and a person was told, when the year was locked meanwhile.
  bool refusesImport() const { return refusedAsLocked(context_, year_.books.client, year_.keys); }
  // All or nothing; what is to be remembered is kept by `run`.
  void enter(const std::function<ImportEnd()>& run);
  // The text with what a person should look at before.
  std::string withDoubts(std::string text) const;
  std::string note() const;
  void showSource();
  LayoutItem sourceLayout();
  ImportMemory memory() const { return {*context_.host, year_.books.client, year_.keys}; }

  Context& context_;
  ReviewedYear year_;
  bool imported_ = false;
  ImportReview review_;
  SourceBoxes source_;

 private:
  void open(SourceBook book);
  void end(ImportEnd how);
  void compareAnew();

  std::vector<Role> roles_;
  ColumnBoxes columns_;
};

}  // namespace quillet
