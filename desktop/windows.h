// The windows of the open forms. Each open form has one; what a person does in any of them is
// performed here, after which all are brought up to date.
#pragma once

#include <QPointer>
#include <QString>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "controls/open_forms.h"
#include "view/action_runner.h"

class QMenu;

namespace quillet::desktop {

class FormWindow;

class Windows : public view::ActionRunner {
 public:
  Windows() = default;
  ~Windows() override;

  // Shows the open forms from now on.
  void follow(OpenForms& openForms);
  // Takes no more notice of the open forms, which may go.
  void leave();

  void refresh();
  // The window in which a person works now, null when there is none.
  FormWindow* front() const;
  FormWindow* of(const Form& form) const;
  void setFootnote(const QString& text);
  void setNotices(const std::vector<std::string>& notices);

  // A menu of the suite in the bar of the form of that name; it outlives the windows.
  void addMenu(const std::string& form, QMenu& menu) { menus_.emplace(form, &menu); }

  // A person asked for help in a form.
  std::function<void(Form&)> onHelp;
  // A person has read the notices.
  std::function<void()> onNoticesClosed;
  // The last window was closed.
  std::function<void()> onLastClosed;

  void perform(const std::function<void()>& action) override;
  int interruptions() const override { return interruptions_; }
  // An action is being performed right now.
  bool performing() const { return depth_ > 0; }

 private:
  void opened(Form& form);
  void closed(Form& form);
  void activated(Form& form);
  FormWindow& create(Form& form);

  OpenForms* openForms_ = nullptr;
  std::vector<QPointer<FormWindow>> windows_;  // oldest first
  std::multimap<std::string, QMenu*> menus_;   // by the names of forms
  QString footnote_;
  std::vector<std::string> notices_;
  int depth_ = 0;
  int interruptions_ = 0;
};

}  // namespace quillet::desktop
