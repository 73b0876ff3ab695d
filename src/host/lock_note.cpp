#include "host/lock_note.h"

#include "books/clients.h"
#include "books/locked_years.h"
#include "host/year_lock.h"

namespace quillet {

void LockNote::open(const ClientTable& books, const YearKeys& keys) {
  books_ = books;
  keys_ = keys;
  lock_.reset();
  hold_.leave();
  loss_.forget();
  label_.setVisible(false);
}

void LockNote::read() {
  lock_ = enterYear(hold_, context_, books_, keys_);
  label_.setCaption(lock_ ? lockCaption(*lock_) : "");
  label_.setVisible(locked());
  loss_.see(
      lock_, context_.environment.yearLocks(), label_.form(), typed(),
      [this] {
        return subjectOf(clientName(*context_.host, books_.client), books_.client, keys_.first,
                         keys_.second);
      },
      [this](const std::string& text) { context_.environment.notice(text); });
}

bool LockNote::refuses() const { return refusedAsLocked(context_, books_.client, keys_); }

}  // namespace quillet
