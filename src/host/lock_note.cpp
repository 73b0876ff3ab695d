#include "host/lock_note.h"

#include "books/locked_years.h"
#include "host/year_lock.h"

namespace quillet {

void LockNote::open(const ClientTable& books, const YearKeys& keys) {
  books_ = books;
  keys_ = keys;
  lock_.reset();
  hold_.leave();
  label_.setVisible(false);
}

void LockNote::read() {
  lock_ = enterYear(hold_, context_, books_, keys_);
  label_.setCaption(lock_ ? lockCaption(*lock_) : "");
  label_.setVisible(locked());
}

bool LockNote::refuses() const { return refusedAsLocked(context_, books_.client, keys_); }

}  // namespace quillet
