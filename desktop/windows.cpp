#include "desktop/windows.h"

#include <QWindow>

#include "desktop/form_window.h"

namespace quillet::desktop {

void Windows::redraw() {
  for (const auto& window : windows_) {
    if (window) window->redraw();
  }
}

Windows::~Windows() { leave(); }

void Windows::left() {
  for (const auto& window : windows_) {
    if (!window) continue;
    keepPlaces(*window);
    window->detach();
    delete window;
  }
  windows_.clear();
}

FormWindow* Windows::of(const Form& form) const {
  for (const auto& window : windows_) {
    if (window && &window->form() == &form) return window;
  }
  return nullptr;
}

FormWindow* Windows::front() const {
  const Form* form = frontForm();
  return form ? of(*form) : nullptr;
}

void Windows::setFootnote(const QString& text) {
  footnote_ = text;
  for (const auto& window : windows_) {
    if (window && !window->form().modal()) window->setFootnote(text);
  }
}

void Windows::setNotices(const std::vector<std::string>& notices) {
  notices_ = notices;
  for (const auto& window : windows_) {
    if (window) window->setNotices(notices);
  }
}

FormWindow& Windows::create(Form& form) {
  FormWindow* below = windows_.empty() ? nullptr : windows_.back().data();
  auto* window = new FormWindow(form, *this, places_);
  windows_.emplace_back(window);
  window->onActivated = [this, &form] { activated(form); };
  window->onCovered = [this] { interrupted(); };
  window->onHelp = [this, &form] {
    if (onHelp) onHelp(form);
  };
  window->onNoticesClosed = [this] {
    if (onNoticesClosed) onNoticesClosed();
  };
  window->setNotices(notices_);
  const auto [first, last] = menus_.equal_range(form.name());
  for (auto menu = first; menu != last; ++menu) window->addMenu(*menu->second);
  if (form.modal()) {
    window->setWindowModality(Qt::ApplicationModal);
    window->winId();  // makes the window, so that it can be told what it stands above
    if (below) window->windowHandle()->setTransientParent(below->windowHandle());
  } else {
    // Also while it is empty: the form does not move when the first client is named.
    window->setFootnote(footnote_);
  }
  return *window;
}

void Windows::opened(Form& form) {
  FormWindow* known = of(form);
  FormWindow& window = known ? *known : create(form);
  window.refresh();
  window.show();
  KeptPlaces::shown(window);
  if (!window.isActiveWindow()) {
    window.raise();
    window.activateWindow();
  }
}

void Windows::keepPlaces(FormWindow& window) {
  window.form().logErrors("KEEPPLACES", [&] {
    places_.keep(window, window.form().name());
    places_.keepWidths();
  });
}

void Windows::closed(Form& form) {
  FormWindow* window = of(form);
  if (!window) return;
  std::erase(windows_, window);
  keepPlaces(*window);
  window->detach();
  window->hide();
  window->deleteLater();
  if (FormWindow* next = front()) {
    next->raise();
    next->activateWindow();
  }
  if (windows_.empty() && onLastClosed) onLastClosed();
}

void Windows::refresh() {
  const auto windows = windows_;
  for (const auto& window : windows) {
    if (window) window->refresh();
  }
}

}  // namespace quillet::desktop
