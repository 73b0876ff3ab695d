// The windows of the open forms on the desktop.
#pragma once

#include <QPointer>
#include <QString>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "desktop/kept_places.h"
#include "view/form_windows.h"

class QMenu;

namespace quillet::desktop {

class FormWindow;

class Windows : public view::FormWindows {
 public:
  Windows() = default;
  ~Windows() override;

  void refresh() override;
  // Draws everything anew, for preferences that changed.
  void redraw();
  // The window in which a person works now, null when there is none.
  FormWindow* front() const;
  FormWindow* of(const Form& form) const;
  void setFootnote(const QString& text);
  void setNotices(const std::vector<std::string>& notices);

  // A menu of the suite in the bar of the form of that name; it outlives the windows.
  void addMenu(const std::string& form, QMenu& menu) { menus_.emplace(form, &menu); }

  KeptPlaces& places() { return places_; }

  // A person asked for help in a form.
  std::function<void(Form&)> onHelp;
  // A person has read the notices.
  std::function<void()> onNoticesClosed;
  // The last window was closed.
  std::function<void()> onLastClosed;

 private:
  void opened(Form& form) override;
  void closed(Form& form) override;
  void left() override;
  FormWindow& create(Form& form);
  void keepPlaces(FormWindow& window);

  KeptPlaces places_;                          // outlives the windows
  std::vector<QPointer<FormWindow>> windows_;  // oldest first
  std::multimap<std::string, QMenu*> menus_;   // by the names of forms
  QString footnote_;
  std::vector<std::string> notices_;
};

}  // namespace quillet::desktop
